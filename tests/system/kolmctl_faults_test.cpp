/// @file  Each subcommand of kolmctl with a driver that fails, and with words that it does not know.

#include <filesystem>
#include <ostream>

#include "system/settings_fixture.h"

namespace kolmfluxor::test {
namespace {

using ::testing::AnyOf;
using ::testing::HasSubstr;

/// A command line that succeeds on a sound camera.
struct CommandCase {
    const char* name;
    std::vector<std::wstring> words;
    /// Goes on with what the camera answers: one failing request need not end it.
    bool tolerant = false;
    /// Begins with a request; the others may need none of the driver's.
    bool asks = true;
    bool sets = false;
};

std::vector<std::wstring> WordsOf(const CommandCase& tested) {
    std::vector<std::wstring> words = {L"--simulate"};
    words.insert(words.end(), tested.words.begin(), tested.words.end());
    return words;
}

void PrintTo(const CommandCase& tested, std::ostream* stream) {
    *stream << tested.name;
}

// clang-format off
const CommandCase kCommands[] = {
    {.name = "info", .words = {L"info"}, .tolerant = true},
    {.name = "features", .words = {L"features"}, .tolerant = true},
    {.name = "get", .words = {L"get", L"gain", L"shutter"}},
    {.name = "set_value", .words = {L"set", L"gain", L"7"}, .sets = true},
    {.name = "set_mode", .words = {L"set", L"gain", L"--mode", L"auto"}, .sets = true},
    {.name = "set_both", .words = {L"set", L"gain", L"8", L"--mode", L"manual"}, .sets = true},
    {.name = "trigger", .words = {L"trigger"}},
    {.name = "trigger_set", .words = {L"trigger", L"set", L"--mode", L"1", L"--on"}, .sets = true},
    {.name = "formats", .words = {L"formats"}, .tolerant = true, .asks = false},
    {.name = "format", .words = {L"format"}, .tolerant = true, .asks = false},
    {.name = "format_set", .words = {L"format", L"set", L"--mode", L"f7m0", L"--width", L"320", L"--height", L"240"}, .tolerant = true, .sets = true},
    {.name = "iso", .words = {L"iso"}},
    {.name = "iso_set", .words = {L"iso", L"set", L"--speed", L"S200", L"--channel", L"3"}, .sets = true},
    {.name = "lut", .words = {L"lut"}},
    {.name = "lut_enable", .words = {L"lut", L"enable", L"1"}, .sets = true},
    {.name = "lut_disable", .words = {L"lut", L"disable"}, .sets = true},
    {.name = "reg_read", .words = {L"reg", L"read", L"Brightness", L"Gain"}},
    {.name = "reg_write", .words = {L"reg", L"write", L"KolmTestImage", L"1"}, .sets = true},
    {.name = "reg_decode", .words = {L"reg", L"decode", L"Brightness"}},
    {.name = "reg_dump", .words = {L"reg", L"dump", L"--filter", L"Kolm"}, .tolerant = true},
    {.name = "raw_get", .words = {L"raw", L"get", L"61"}},
    {.name = "raw_set", .words = {L"raw", L"set", L"61", L"1"}, .sets = true},
    {.name = "save", .words = {L"save", L"-"}},
};
// clang-format on

class KolmctlFailingDriver : public KolmctlSettings, public ::testing::WithParamInterface<CommandCase> {
protected:
    static std::vector<std::wstring> Words() { return WordsOf(GetParam()); }
};

TEST_P(KolmctlFailingDriver, without_faults_it_succeeds) {
    EXPECT_EQ(Kolmctl(Words()).exitCode, kSuccess);
}

TEST_P(KolmctlFailingDriver, says_why_when_every_request_fails) {
    if (!GetParam().asks) {
        EXPECT_THAT(KolmctlWithFaults(L"any any 8007001F", Words()).exitCode, AnyOf(kSuccess, kRefused));
        return;
    }
    EXPECT_THAT(KolmctlWithFaults(L"any any 8007001F", Words()), Fails(kRefused, "0x8007001F ERROR_GEN_FAILURE"));
}

TEST_P(KolmctlFailingDriver, says_why_when_the_camera_is_unplugged) {
    const ProcessOutcome outcome = KolmctlWithFaults(L"any any unplug", Words());
    if (!GetParam().asks && outcome.exitCode == kSuccess) {
        return;
    }
    EXPECT_THAT(outcome, Fails(kRefused, "0x8007048F ERROR_DEVICE_NOT_CONNECTED"));
}

TEST_P(KolmctlFailingDriver, says_why_when_the_driver_answers_with_reservations) {
    if (!GetParam().asks || GetParam().tolerant) {
        return;
    }
    EXPECT_THAT(KolmctlWithFaults(L"any any patch 0xFFFFFFF0 0 1", Words()), Fails(kRefused, "0x00000001 S_FALSE"));
}

INSTANTIATE_TEST_SUITE_P(Commands, KolmctlFailingDriver, ::testing::ValuesIn(kCommands),
                         [](const auto& tested) { return tested.param.name; });

class KolmctlFaults : public KolmctlSettings {};

TEST_F(KolmctlFaults, an_upload_that_breaks_off_says_why) {
    const CSettingsFile table(L"table.bin");
    table.Write(std::string(8192, '\1'));
    const std::vector<std::wstring> upload = {L"--simulate", L"lut", L"upload", table.Path(), L"--number", L"1"};
    ASSERT_EQ(Kolmctl(upload).exitCode, kSuccess);

    for (const wchar_t* when : {L"any", L"any #1", L"any #2", L"any #5", L"11 #6"}) {
        EXPECT_THAT(KolmctlWithFaults(L"any " + std::wstring(when) + L" 8007001F", upload),
                    Fails(kRefused, "0x8007001F ERROR_GEN_FAILURE"));
        EXPECT_THAT(KolmctlWithFaults(L"any " + std::wstring(when) + L" unplug", upload),
                    Fails(kRefused, "0x8007048F ERROR_DEVICE_NOT_CONNECTED"));
    }
    // A block's own result is not looked at: the memory's control register tells, and here it says that all is well.
    EXPECT_EQ(KolmctlWithFaults(L"set 62 #3 8007001F", upload).exitCode, kSuccess);
    EXPECT_THAT(KolmctlWithFaults(L"set 62 #3 unplug", upload),
                Fails(kRefused, "0x8007048F ERROR_DEVICE_NOT_CONNECTED"));
}

TEST_F(KolmctlFaults, loading_a_table_from_a_file_that_breaks_off_says_why) {
    const CSettingsFile file(L"table.csv");
    std::string text = "level,curve\n";
    for (int level = 0; level < 4096; ++level) {
        text += std::to_string(level) + "," + std::to_string(level) + "\n";
    }
    file.Write(text);
    const std::vector<std::wstring> load = {L"--simulate", L"lut", L"load", file.Path(), L"--upload", L"1"};
    ASSERT_EQ(Kolmctl(load).exitCode, kSuccess);

    for (const wchar_t* when : {L"any", L"any #1", L"any #2", L"any #5", L"11 #6"}) {
        EXPECT_THAT(KolmctlWithFaults(L"any " + std::wstring(when) + L" 8007001F", load),
                    Fails(kRefused, "0x8007001F ERROR_GEN_FAILURE"));
        EXPECT_THAT(KolmctlWithFaults(L"any " + std::wstring(when) + L" unplug", load),
                    Fails(kRefused, "0x8007048F ERROR_DEVICE_NOT_CONNECTED"));
    }
}

TEST_F(KolmctlFaults, a_still_picture_of_an_unplugged_camera_is_none) {
    const CSettingsFile picture(L"still.png");
    const std::vector<std::wstring> still = {L"--simulate", L"still", picture.Path()};
    // The first request pulls the cable.
    EXPECT_THAT(KolmctlWithFaults(L"any any unplug", still), Fails(kRefused, "0x8007048F ERROR_DEVICE_NOT_CONNECTED"));
    EXPECT_FALSE(std::filesystem::exists(picture.Path()));

    // Pictures come through the stream, not by requests: those may fail.
    EXPECT_EQ(KolmctlWithFaults(L"any any 8007001F", still).exitCode, kSuccess);
    EXPECT_TRUE(std::filesystem::exists(picture.Path()));
}

TEST_F(KolmctlFaults, the_list_of_cameras_needs_none_that_answers) {
    const ProcessOutcome sound = Kolmctl({L"list"});

    for (const wchar_t* fault : {L"any any 8007001F", L"any any unplug"}) {
        const ProcessOutcome outcome = KolmctlWithFaults(fault, {L"list"});
        EXPECT_EQ(outcome.exitCode, kSuccess);
        EXPECT_EQ(outcome.out, sound.out);
        EXPECT_EQ(outcome.err, "");
    }
}

TEST_F(KolmctlFaults, a_feature_that_the_camera_does_not_answer_for_is_told) {
    const std::vector<std::wstring> features = {L"--simulate", L"--tsv", L"features"};
    const ProcessOutcome failing = KolmctlWithFaults(L"get 0 8007001F; get 4 8007001F", features);

    EXPECT_EQ(failing.exitCode, kSuccess);
    EXPECT_EQ(failing.out.find("\ngain\t"), std::string::npos);
    EXPECT_THAT(failing.out, HasSubstr("\nhue\t"));
    EXPECT_THAT(failing.err,
                HasSubstr("kolmctl: the camera does not answer for brightness, gain: 0x8007001F ERROR_GEN_FAILURE"));

    const ProcessOutcome lacking = KolmctlWithFaults(L"get 0 80070490", features);
    EXPECT_EQ(lacking.exitCode, kSuccess);
    EXPECT_EQ(lacking.out.find("\ngain\t"), std::string::npos);
    EXPECT_EQ(lacking.err, "");
}

TEST_F(KolmctlFaults, whether_a_camera_is_a_color_camera_is_open_when_the_driver_does_not_tell) {
    const std::vector<std::wstring> info = {L"--simulate", L"--json", L"info"};
    const ProcessOutcome failing = KolmctlWithFaults(L"get 1 8007001F", info);

    EXPECT_EQ(failing.exitCode, kSuccess);
    EXPECT_THAT(failing.out, HasSubstr("\"color\": null"));
    EXPECT_THAT(failing.err, HasSubstr("kolmctl: cannot tell whether it is a color camera: 0x8007001F"));

    const ProcessOutcome lacking = KolmctlWithFaults(L"get 1 80070490", info);
    EXPECT_THAT(lacking.out, HasSubstr("\"color\": false"));
    EXPECT_EQ(lacking.err, "");
}

TEST_F(KolmctlFaults, a_trace_shows_the_request_that_failed) {
    const ProcessOutcome outcome =
        KolmctlWithFaults(L"set 0 8007001F", {L"--simulate", L"trace", L"set", L"gain", L"7"});

    EXPECT_EQ(outcome.exitCode, kRefused);
    EXPECT_THAT(outcome.err, HasSubstr("kolmctl: cannot set gain to 7: 0x8007001F ERROR_GEN_FAILURE"));
    EXPECT_THAT(outcome.out, HasSubstr("SET  property 0  64 bytes  0x8007001F ERROR_GEN_FAILURE"));
}

TEST_F(KolmctlFaults, a_refused_command_changes_nothing) {
    const std::string before = Save().out;

    for (const CommandCase& each : kCommands) {
        if (each.sets) {
            EXPECT_THAT(KolmctlWithFaults(L"set any 8007001F", WordsOf(each)),
                        Fails(kRefused, "0x8007001F ERROR_GEN_FAILURE"));
        }
    }

    EXPECT_EQ(Save().out, before);
}

TEST_F(KolmctlFaults, wrong_words_are_refused_by_every_subcommand_and_change_nothing) {
    const std::string before = Save().out;

    for (const CommandCase& each : kCommands) {
        for (const std::wstring wrong : {L"--no-such-option", L"no such word"}) {
            std::vector<std::wstring> words = WordsOf(each);
            words.push_back(wrong);
            EXPECT_THAT(Kolmctl(words), Fails(kUsage, "no")) << each.name;
        }
    }

    EXPECT_EQ(Save().out, before);
}

TEST_F(KolmctlFaults, faults_reach_a_camera_of_another_process) {
    EXPECT_THAT(KolmctlWithFaults(L"get 0 patch 24 2A", {L"--simulate", L"--tsv", L"get", L"gain"}),
                Prints("feature\tid\tvalue\tmode\ngain\t265\t42\tmanual\n"));
    EXPECT_THAT(KolmctlWithFaults(L"get 0 #2 8007001F", {L"--simulate", L"get", L"gain", L"gain"}),
                Fails(kRefused, "cannot read gain: 0x8007001F"));
    EXPECT_THAT(KolmctlWithFaults(L"get 1 8007001F; set any 8007001F", {L"--simulate", L"--tsv", L"get", L"gain"}),
                Prints("feature\tid\tvalue\tmode\ngain\t265\t64\tmanual\n"));
}

TEST_F(KolmctlFaults, a_text_that_is_no_fault_keeps_the_camera_shut) {
    const ProcessOutcome outcome = KolmctlWithFaults(L"get gain 8007001F", {L"--simulate", L"get", L"gain"});

    EXPECT_EQ(outcome.exitCode, kRefused);
    EXPECT_EQ(outcome.out, "");
    EXPECT_THAT(outcome.err, HasSubstr("KOLMSIM_FAULTS: fault 1: \"gain\" is no property number\n"));
    EXPECT_THAT(outcome.err, HasSubstr("kolmctl: cannot open \"KolmFluxor simulated camera (color)\": 0x80070057"));
}

}  // namespace
}  // namespace kolmfluxor::test
