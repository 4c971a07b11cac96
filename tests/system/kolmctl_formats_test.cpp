/// @file  kolmctl formats and format: what the camera offers, and what it is set to.

#include "system/support_kolmctl.h"

namespace kolmfluxor::test {
namespace {

using ::testing::HasSubstr;
using ::testing::Not;

class KolmctlFormats : public KolmctlTest {};

TEST_F(KolmctlFormats, lists_fixed_and_scalable_formats_and_marks_the_current_one) {
    const ProcessOutcome outcome = Kolmctl({L"--simulate", L"formats"});

    EXPECT_EQ(outcome.exitCode, kSuccess) << outcome.err;
    for (const char* line : {
             "INDEX  CURRENT  MODE             PIXELS        BITS      SIZE     WHOLE  SLOWEST  FASTEST  POSITION  "
             "STEPS  SIZE STEPS  SMALLEST\n",
             "\n    0  yes      Format 0 mode 5  Mono8            8   640x480   640x480    1.875     60.0\n",
             "\n    1  no       Format 0 mode 1  UYVY(YUV422)    16   320x240   320x240    1.875     60.0\n",
             "\n    2  no       Format 0 mode 2  YUV411          12   640x480   640x480    1.875     60.0\n",
             "\n    6  no       Format 1 mode 1  RGB24           24   800x600   800x600      7.5     15.0\n",
             "\n   14  no       Format 7 mode 0  Mono8            8  1280x960  1280x960    1.979   26.667       0,0    "
             "4,2         8x2       8x2\n",
             "\n   31  no       Format 7 mode 5  Raw8             8  1280x960  1280x960    1.979   26.667       0,0   "
             "16,8       32x16     32x16\n",
         }) {
        EXPECT_THAT(outcome.out, HasSubstr(line));
    }
}

TEST_F(KolmctlFormats, lists_numbers_in_json) {
    const ProcessOutcome outcome = Kolmctl({L"--simulate", L"--json", L"formats"});

    EXPECT_EQ(outcome.exitCode, kSuccess) << outcome.err;
    for (const char* text : {
             "[\n  {\n    \"index\": 0,\n    \"current\": true,\n    \"mode\": \"Format 0 mode 5\",\n",
             "    \"size\": [\n      640,\n      480\n    ],\n",
             "    \"positionSteps\": null,\n    \"sizeSteps\": null,\n    \"smallestSize\": null\n",
             "    \"slowestRate\": 1.979,\n    \"fastestRate\": 26.667,\n    \"position\": [\n      0,\n      0\n    "
             "],\n"
             "    \"positionSteps\": [\n      4,\n      2\n    ],\n    \"sizeSteps\": [\n      8,\n      2\n    ],\n",
         }) {
        EXPECT_THAT(outcome.out, HasSubstr(text));
    }
}

TEST_F(KolmctlFormats, a_monochrome_camera_offers_no_colors) {
    const ProcessOutcome outcome = Kolmctl({L"--simulate=mono", L"formats"});

    EXPECT_EQ(outcome.exitCode, kSuccess) << outcome.err;
    EXPECT_THAT(outcome.out, HasSubstr("Format 0 mode 6  Mono16    16   640x480"));
    for (const char* colors : {"YUV", "RGB", "Raw", "unknown"}) {
        EXPECT_THAT(outcome.out, Not(HasSubstr(colors)));
    }
}

TEST_F(KolmctlFormats, shows_the_area_and_rate_of_a_scalable_format) {
    kolmsim::VideoFormat wanted = {
        .format = 7, .mode = 3, .colorCoding = 2, .left = 8, .top = 5, .width = 320, .height = 240, .frameTime = 0};
    ASSERT_EQ(OpenCamera()->SetVideoFormat(kolmsim::Geometry::agreed, &wanted), S_OK);

    EXPECT_THAT(Kolmctl({L"--simulate", L"format"}), Prints("index              25\n"
                                                            "mode               Format 7 mode 3\n"
                                                            "pixels             UYVY(YUV422)\n"
                                                            "bits per pixel     16\n"
                                                            "position           8,5\n"
                                                            "size               320x240\n"
                                                            "whole picture      640x480\n"
                                                            "frame rate         30.189\n"
                                                            "slowest rate       2.083\n"
                                                            "fastest rate       210.526\n"
                                                            "position in steps  4,1\n"
                                                            "size in steps      4x2\n"
                                                            "smallest size      4x2\n"));
    EXPECT_THAT(Kolmctl({L"--simulate", L"formats"}).out,
                HasSubstr("\n   25  yes      Format 7 mode 3  UYVY(YUV422)    16   320x240   640x480"));
}

TEST_F(KolmctlFormats, asks_for_the_position_of_each_scalable_mode_once) {
    const ProcessOutcome outcome = Kolmctl({L"--simulate", L"trace", L"formats"});

    EXPECT_THAT(outcome.out, HasSubstr("Driver requests: 8 "));
    EXPECT_THAT(outcome.out, HasSubstr("GET  property 65  40 bytes  0x00000000 S_OK\n      24  00000007 "));
}

TEST_F(KolmctlFormats, format_shows_the_current_one_in_tsv) {
    EXPECT_THAT(Kolmctl({L"--simulate", L"--tsv", L"format"}),
                Prints("index\tmode\tpixels\tbits\tposition\tsize\twholeSize\trate\tslowestRate\tfastestRate\t"
                       "positionSteps\tsizeSteps\tsmallestSize\n"
                       "0\tFormat 0 mode 5\tMono8\t8\t0,0\t640x480\t640x480\t30.0\t1.875\t60.0\t\t\t\n"));
}

}  // namespace
}  // namespace kolmfluxor::test
