/// @file  kolmctl format set.

#include <sstream>
#include <string>
#include <vector>

#include "system/support_kolmctl.h"

namespace kolmfluxor::test {
namespace {

using kolmsim::Geometry;
using kolmsim::VideoFormat;
using ::testing::ElementsAre;
using ::testing::HasSubstr;
using ::testing::IsEmpty;
using ::testing::Not;
using ::testing::StartsWith;

// IIDC color coding ids
constexpr std::uint32_t kMono8 = 0;
constexpr std::uint32_t kYuv411 = 1;
constexpr std::uint32_t kYuv422 = 2;
constexpr std::uint32_t kRgb8 = 4;

class KolmctlFormatSet : public KolmctlTest {
protected:
    static ProcessOutcome Set(const std::vector<std::wstring>& options) {
        std::vector<std::wstring> arguments = {L"--simulate", L"--tsv", L"format", L"set"};
        arguments.insert(arguments.end(), options.begin(), options.end());
        return Kolmctl(arguments);
    }

    /// What a run set at the driver: property and the first three words of each request, in order.
    static std::vector<std::string> Sets(const std::vector<std::wstring>& options) {
        std::vector<std::wstring> arguments = {L"--simulate", L"--tsv", L"trace", L"format", L"set"};
        arguments.insert(arguments.end(), options.begin(), options.end());
        const ProcessOutcome outcome = Kolmctl(arguments);
        EXPECT_THAT(outcome.out, HasSubstr("\tGET\t65\t")) << "no requests shown: " << outcome.err;
        std::istringstream lines(outcome.out);
        std::vector<std::string> sets;
        for (std::string line; std::getline(lines, line);) {
            std::istringstream words(line);
            std::string number, direction, property, bytes, result, a, b, c;
            if (words >> number >> direction >> property >> bytes >> result >> a >> b >> c && direction == "SET") {
                sets.push_back(property + ": " + a + " " + b + " " + c);
            }
        }
        return sets;
    }

    void Prepare(VideoFormat wanted) const { ASSERT_EQ(OpenCamera()->SetVideoFormat(Geometry::agreed, &wanted), S_OK); }

    [[nodiscard]] VideoFormat Current() const {
        VideoFormat format{.format = 99};
        EXPECT_TRUE(OpenCamera()->CurrentVideoFormat(&format));
        return format;
    }

    void ExpectFactoryState() const {
        EXPECT_EQ(Current(), (VideoFormat{.format = 0,
                                          .mode = 5,
                                          .colorCoding = kMono8,
                                          .left = 0,
                                          .top = 0,
                                          .width = 640,
                                          .height = 480,
                                          .frameTime = 333'333}));
    }
};

/// A run that printed this format: the start of its line.
MATCHER_P(Shows, start, "") {
    return arg.exitCode == kSuccess && arg.err.empty() && arg.out.find(std::string("\n") + start) != std::string::npos;
}

TEST_F(KolmctlFormatSet, names_a_mode_by_index_by_iidc_number_and_by_size_and_pixels) {
    struct Way {
        const wchar_t* mode;
        const char* shown;
    };
    for (const Way& way : {
             Way{L"3", "3\tFormat 0 mode 3\tUYVY(YUV422)\t16\t0,0\t640x480\t640x480\t30.0\t"},
             Way{L"f1m2", "7\tFormat 1 mode 2\tMono8\t8\t0,0\t800x600\t800x600\t30.0\t"},
             Way{L"640x480 YUV411", "2\tFormat 0 mode 2\tYUV411\t12\t"},
             Way{L"rgb24 1024x768", "9\tFormat 1 mode 4\tRGB24\t24\t0,0\t1024x768\t1024x768\t7.5\t"},
             Way{L"320X240", "1\tFormat 0 mode 1\t"},
             Way{L"F7M3 yuv422", "25\tFormat 7 mode 3\tUYVY(YUV422)\t"},
             Way{L"f7m3 Y411", "24\tFormat 7 mode 3\tYUV411\t"},
             Way{L"f7m4 uyvy(yuv422)", "28\tFormat 7 mode 4\tUYVY(YUV422)\t"},
         }) {
        EXPECT_THAT(Set({L"--mode", way.mode}), Shows(way.shown)) << way.shown;
    }
}

TEST_F(KolmctlFormatSet, mode_and_rate_stay_for_the_next_run) {
    constexpr char kShown[] = "7\tFormat 1 mode 2\tMono8\t8\t0,0\t800x600\t800x600\t15.0\t";
    EXPECT_THAT(Set({L"--mode", L"f1m2", L"--rate", L"15"}), Shows(kShown));

    EXPECT_THAT(Kolmctl({L"--simulate", L"--tsv", L"format"}), Shows(kShown));
    EXPECT_THAT(Set({L"--mode", L"f1m2"}), Shows(kShown)) << "the current mode keeps its rate";
    EXPECT_THAT(Kolmctl({L"--simulate", L"formats"}).out, HasSubstr("\n    7  yes      Format 1 mode 2  Mono8"));
    EXPECT_EQ(Current(), (VideoFormat{.format = 1,
                                      .mode = 2,
                                      .colorCoding = kMono8,
                                      .left = 0,
                                      .top = 0,
                                      .width = 800,
                                      .height = 600,
                                      .frameTime = 666'666}));
}

TEST_F(KolmctlFormatSet, of_several_formats_the_one_with_the_current_pixels_is_meant) {
    EXPECT_THAT(Set({L"--mode", L"f7m0"}), Shows("14\tFormat 7 mode 0\tMono8\t"));
    EXPECT_THAT(Set({L"--mode", L"f7m0 RGB24"}), Shows("17\tFormat 7 mode 0\tRGB24\t"));
    EXPECT_THAT(Set({L"--mode", L"f7m0"}), Shows("17\tFormat 7 mode 0\tRGB24\t")) << "the current one";
    EXPECT_THAT(Set({L"--mode", L"f7m3"}), Shows("26\tFormat 7 mode 3\tRGB24\t"));
}

TEST_F(KolmctlFormatSet, refuses_a_name_that_several_formats_have) {
    Prepare({.format = 0, .mode = 2, .colorCoding = kYuv411, .width = 640, .height = 480});
    const VideoFormat before = Current();

    const ProcessOutcome outcome = Set({L"--mode", L"f7m1"});

    EXPECT_THAT(outcome, Fails(kRefused, "cannot set the format to \"f7m1\": 0x80070057 E_INVALIDARG"));
    EXPECT_THAT(outcome, Fails(kRefused,
                               "several formats are like this; name more of one, or its index:\n"
                               "  19  Format 7 mode 1 Mono8\n"
                               "  20  Format 7 mode 1 UYVY(YUV422)\n"));
    EXPECT_EQ(Current(), before);
}

TEST_F(KolmctlFormatSet, refuses_formats_that_the_camera_lacks) {
    for (const wchar_t* mode : {L"37", L"f0m6", L"f7m1 RGB24", L"640x481", L"f7m3 1280x960", L"Mono12", L"0 f7m0"}) {
        EXPECT_THAT(Set({L"--mode", mode}),
                    Fails(kRefused, "none of the camera's formats is like this; \"kolmctl formats\" shows them"));
    }
    ExpectFactoryState();
}

TEST_F(KolmctlFormatSet, sets_area_and_rate_of_a_scalable_mode) {
    EXPECT_THAT(Set({L"--mode", L"f7m0 RGB24", L"--x", L"4", L"--y", L"2", L"--width", L"320", L"--height", L"240",
                     L"--rate", L"100"}),
                Shows("17\tFormat 7 mode 0\tRGB24\t24\t4,2\t320x240\t1280x960\t100.0\t"));

    EXPECT_EQ(Current(), (VideoFormat{.format = 7,
                                      .mode = 0,
                                      .colorCoding = kRgb8,
                                      .left = 4,
                                      .top = 2,
                                      .width = 320,
                                      .height = 240,
                                      .frameTime = 100'000}));
}

TEST_F(KolmctlFormatSet, what_is_not_named_stays) {
    Prepare({.format = 7, .mode = 3, .colorCoding = kYuv422, .left = 8, .top = 5, .width = 320, .height = 240});
    const VideoFormat before = Current();

    EXPECT_THAT(Set({L"--x", L"16"}), Shows("25\tFormat 7 mode 3\tUYVY(YUV422)\t16\t16,5\t320x240\t"));
    VideoFormat expected = before;
    expected.left = 16;
    EXPECT_EQ(Current(), expected);

    EXPECT_THAT(Set({L"--height", L"0x64"}), Shows("25\tFormat 7 mode 3\tUYVY(YUV422)\t16\t16,5\t320x100\t"));

    EXPECT_THAT(Set({L"--rate", L"7.5"}),
                Shows("25\tFormat 7 mode 3\tUYVY(YUV422)\t16\t16,5\t320x100\t640x480\t8.0\t"));
    EXPECT_EQ(Current().left, 16U);
    EXPECT_EQ(Current().width, 320U);
}

TEST_F(KolmctlFormatSet, a_mode_comes_with_the_area_that_the_camera_kept_for_it) {
    Prepare({.format = 7, .mode = 3, .colorCoding = kMono8, .left = 8, .top = 5, .width = 320, .height = 240});
    EXPECT_THAT(Set({L"--mode", L"0"}), Shows("0\tFormat 0 mode 5\t"));

    EXPECT_THAT(Set({L"--mode", L"f7m3"}), Shows("23\tFormat 7 mode 3\tMono8\t8\t8,5\t320x240\t"));
}

TEST_F(KolmctlFormatSet, lets_the_driver_take_an_area_only_meanwhile) {
    EXPECT_THAT(
        Sets({L"--mode", L"f7m4", L"--x", L"2", L"--y", L"3", L"--width", L"16", L"--height", L"8"}),
        ElementsAre(StartsWith("61: 00000001 "), StartsWith("61: 00000000 "), "65: 00000004 00000002 00000003"));
}

TEST_F(KolmctlFormatSet, a_fixed_mode_needs_no_driver_request) {
    EXPECT_THAT(Sets({L"--mode", L"f0m2"}), IsEmpty());
    EXPECT_EQ(Current().mode, 2U);
}

TEST_F(KolmctlFormatSet, refuses_areas_off_steps_and_limits_and_sends_nothing) {
    Prepare({.format = 7, .mode = 0, .colorCoding = kMono8, .left = 4, .top = 2, .width = 320, .height = 240});
    const VideoFormat before = Current();
    for (const std::vector<std::wstring>& options : std::vector<std::vector<std::wstring>>{
             {L"--x", L"6"},
             {L"--y", L"3"},
             {L"--width", L"324"},
             {L"--height", L"241"},
             {L"--width", L"0"},
             {L"--height", L"0"},
             {L"--x", L"964"},
             {L"--y", L"722"},
             {L"--width", L"1280"},
             {L"--height", L"960"},
             {L"--x", L"4294967292"},
             {L"--width", L"4294967288"},
             {L"--mode", L"f7m5", L"--width", L"328"},
         }) {
        EXPECT_THAT(Set(options), Fails(kRefused, "cannot set the area to "));
        EXPECT_EQ(Current(), before);
    }
    EXPECT_THAT(Set({L"--x", L"6"}), Fails(kRefused, "cannot set the area to 320x240 at 6,2: 0x80070057 E_INVALIDARG"));
    EXPECT_THAT(Sets({L"--x", L"6"}), IsEmpty());
    EXPECT_THAT(Set({L"--x", L"6"}), Fails(kRefused,
                                           "areas lie inside 1280x960, sizes are 8x2 or more in steps of 8x2,\n"
                                           "  x and y go in steps of 4 and 2\n"));
    EXPECT_EQ(Current(), before);

    EXPECT_THAT(Set({L"--x", L"960", L"--y", L"720"}), Shows("14\tFormat 7 mode 0\tMono8\t8\t960,720\t320x240"))
        << "up to the edge";
}

TEST_F(KolmctlFormatSet, refuses_an_area_for_a_fixed_mode) {
    for (const std::vector<std::wstring>& options : std::vector<std::vector<std::wstring>>{
             {L"--x", L"4"}, {L"--y", L"2"}, {L"--width", L"320"}, {L"--height", L"240"}}) {
        EXPECT_THAT(Set(options),
                    Fails(kRefused, "Format 0 mode 5 is always 640x480 at 0,0; Format 7 modes let choose\n"));
    }
    ExpectFactoryState();

    EXPECT_THAT(Set({L"--x", L"0", L"--width", L"640"}), Shows("0\tFormat 0 mode 5\t")) << "what it has anyhow";
}

TEST_F(KolmctlFormatSet, refuses_rates_that_a_fixed_mode_lacks) {
    for (const wchar_t* rate : {L"20", L"120", L"29.97", L"0.001"}) {
        EXPECT_THAT(Set({L"--rate", rate}),
                    Fails(kRefused, "Format 0 mode 5 has these rates: 1.875, 3.75, 7.5, 15, 30, 60\n"));
    }
    EXPECT_THAT(Set({L"--rate", L"20"}), Fails(kRefused, "cannot set the frame rate to 20: 0x80070057 E_INVALIDARG"));
    EXPECT_THAT(Set({L"--mode", L"f1m4", L"--rate", L"15"}), Fails(kRefused, "has these rates: 1.875, 3.75, 7.5\n"));
    ExpectFactoryState();
}

TEST_F(KolmctlFormatSet, takes_every_rate_of_a_fixed_mode) {
    for (const wchar_t* rate : {L"1.875", L"3.75", L"7.50", L"15", L"30.0", L"60"}) {
        const ProcessOutcome outcome = Kolmctl({L"--simulate", L"format", L"set", L"--rate", rate});

        EXPECT_EQ(outcome.exitCode, kSuccess) << outcome.err;
        EXPECT_THAT(outcome.out, Not(HasSubstr("instead of")));
    }
    EXPECT_EQ(Current().frameTime, 166'666);
}

TEST_F(KolmctlFormatSet, refuses_rates_beyond_the_limits_of_a_scalable_mode) {
    Prepare({.format = 7, .mode = 0, .colorCoding = kMono8, .left = 4, .top = 2, .width = 320, .height = 240});
    const VideoFormat before = Current();

    EXPECT_THAT(Set({L"--rate", L"241"}),
                Fails(kRefused, "Format 7 mode 0 takes rates from 2.083 to 240.004 at this size\n"));
    EXPECT_THAT(Set({L"--rate", L"2"}), Fails(kRefused, "cannot set the frame rate to 2: 0x80070057 E_INVALIDARG"));
    EXPECT_EQ(Current(), before);

    EXPECT_THAT(Set({L"--rate", L"240.004"}), Shows("14\tFormat 7 mode 0\tMono8\t8\t4,2\t320x240\t1280x960\t240.004\t"))
        << "a limit as it is shown";
}

TEST_F(KolmctlFormatSet, tells_when_the_camera_makes_another_rate) {
    const std::vector<std::wstring> set = {L"--simulate", L"format", L"set", L"--mode", L"f7m0"};
    std::vector<std::wstring> small = set;
    small.insert(small.end(), {L"--width", L"320", L"--height", L"240", L"--rate", L"15"});
    std::vector<std::wstring> large = set;
    large.insert(large.end(), {L"--width", L"1280", L"--height", L"240", L"--rate", L"200"});

    EXPECT_THAT(Kolmctl(small).out, HasSubstr("\nThe camera makes 15.414 frames per second instead of 15.\n"));
    EXPECT_THAT(Kolmctl(large).out, HasSubstr("\nThe camera makes 106.667 frames per second instead of 200.\n"));
}

TEST_F(KolmctlFormatSet, shows_the_code_when_the_bus_is_too_slow) {
    ASSERT_EQ(Kolmctl({L"--simulate", L"iso", L"set", L"--speed", L"S100"}).exitCode, kSuccess);

    EXPECT_THAT(Set({L"--mode", L"1280x960 Mono8", L"--rate", L"15"}),
                Fails(kRefused,
                      "cannot set the format to Format 2 mode 2 Mono8, 1280x960 at 0,0: "
                      "0x800705AA ERROR_NO_SYSTEM_RESOURCES"));
    ExpectFactoryState();
}

TEST_F(KolmctlFormatSet, refuses_wrong_usage_and_changes_nothing) {
    EXPECT_THAT(Set({}), Fails(kUsage, "nothing to set\n  give --mode, --x, --y, --width, --height or --rate\n"));
    for (const wchar_t* mode :
         {L"640x", L"x480", L"f7", L"f7mx", L"g7m0", L"-1", L"Mono8 blue", L"99999999999", L"640x99999", L"unknown"}) {
        EXPECT_THAT(Set({L"--mode", mode}), Fails(kUsage, "unknown format \""));
    }
    EXPECT_THAT(Set({L"--mode", L" "}), Fails(kUsage, "no format is named"));
    EXPECT_THAT(Set({L"--mode", L"1", L"--x", L"left"}), Fails(kUsage, "not a pixel count: \"left\""));
    EXPECT_THAT(Set({L"--mode", L"1", L"--width", L"-8"}), Fails(kUsage, "not a pixel count: \"-8\""));
    for (const wchar_t* rate : {L"fast", L"0", L"-15", L"15 fps", L"nan", L"inf", L"1e3", L"0.0001", L"2000000", L""}) {
        EXPECT_THAT(Set({L"--mode", L"1", L"--rate", rate}), Fails(kUsage, "not a frame rate: \""));
    }
    ExpectFactoryState();
}

}  // namespace
}  // namespace kolmfluxor::test
