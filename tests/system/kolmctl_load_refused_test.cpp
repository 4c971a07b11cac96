/// @file  kolmctl load: files that are none, and what a camera refuses.

#include "system/settings_fixture.h"

namespace kolmfluxor::test {
namespace {

using ::testing::HasSubstr;

struct BadFile {
    const char* text;
    const char* complaint;
};

// clang-format off
const BadFile kBadFiles[] = {
    {"",                                       "the standard input is no JSON: parse error at line 1, column 1"},
    {"{\n  \"version\": 1,\n  oops\n}",        "the standard input is no JSON: parse error at line 3, column 3"},
    {"{\"version\": 1, \"settings\": {}",      "is no JSON: parse error at line 1"},
    {"{\"version\": 1, \"settings\": {}} {}",  "is no JSON: parse error at line 1"},
    {"{\"version\": 1e999, \"settings\": {}}", "the standard input: number overflow"},
    {"{\"version\": 1, \"settings\": {\"\xFF\": 0}}", "is no JSON: "},
    {"[]",                                     "the standard input: the file is no object"},
    {"null",                                   "the standard input: the file is no object"},
    {"{\"settings\": {}}",                     "\"version\" is missing"},
    {"{\"version\": 2, \"settings\": {}}",     "version: 2 is not 1\n  this program knows version 1 alone"},
    {"{\"version\": \"1\", \"settings\": {}}", "version: \"1\" is not 1"},
    {"{\"version\": 1.0, \"settings\": {}}",   "version: 1.0 is not 1"},
    {"{\"version\": true, \"settings\": {}}",  "version: true is not 1"},
    {"{\"version\": 1}",                       "\"settings\" is missing"},
    {"{\"version\": 1, \"settings\": []}",     "settings is no object"},
    {"{\"version\": 1, \"settings\": {}, \"extra\": 0}",            "extra: unknown name"},
    {"{\"version\": 1, \"version\": 1, \"settings\": {}}",          "\"version\" stands twice in one object"},
    {"{\"version\": 1, \"camera\": 5, \"settings\": {}}",           "camera is no object"},
    {"{\"version\": 1, \"camera\": {\"model\": 5}, \"settings\": {}}", "camera.model: 5 is not a text"},
    {"{\"version\": 1, \"camera\": {\"owner\": \"x\"}, \"settings\": {}}", "camera.owner: unknown name"},
    {"{\"version\": 1, \"camera\": {\"serialNumber\": -1}, \"settings\": {}}", "camera.serialNumber: -1 is not a whole number"},
};

/// What stands in "settings" behind a gain that could be set.
const BadFile kBadSettings[] = {
    {R"("volume": {"value": 1})",                   "settings.volume: unknown setting\n  known are iso-speed, iso-channel"},
    {R"("Gain": {"value": 1})",                     "settings.Gain: unknown setting"},
    {R"("output-5": {"mode": 1})",                  "settings.output-5: unknown setting"},
    {R"("output-#": {"mode": 1})",                  "settings.output-#: unknown setting"},
    {R"("hue": 5)",                                 "settings.hue is no object"},
    {R"("hue": {})",                                "settings.hue names nothing"},
    {R"("gain": {"value": 2})",                     "\"gain\" stands twice in one object"},
    {R"("hue": {"value": 2, "value": 3})",          "\"value\" stands twice in one object"},
    {R"("hue": {"level": 2})",                      "settings.hue.level: unknown name\n  hue has value, mode"},
    {R"("hue": {"value": -1})",                     "settings.hue.value: -1 is not a whole number from 0 to 4294967295"},
    {R"("hue": {"value": 4294967296})",             "settings.hue.value: 4294967296 is not a whole number"},
    {R"("hue": {"value": 1.0})",                    "settings.hue.value: 1.0 is not a whole number"},
    {R"("hue": {"value": "1"})",                    "settings.hue.value: \"1\" is not a whole number"},
    {R"("hue": {"value": null})",                   "settings.hue.value: null is not a whole number"},
    {R"("hue": {"value": [1]})",                    "settings.hue.value: [1] is not a whole number"},
    {R"("hue": {"mode": "one-push"})",              "settings.hue.mode: \"one-push\" is none of \"off\", \"manual\", \"auto\", \"show-image\""},
    {R"("hue": {"mode": 1})",                       "settings.hue.mode: 1 is none of"},
    {R"("trigger": {"mode": 16})",                  "settings.trigger.mode: 16 is not a whole number from 0 to 15"},
    {R"("trigger": {"on": 1})",                     "settings.trigger.on: 1 is neither true nor false"},
    {R"("trigger": {"polarity": "up"})",            "settings.trigger.polarity: \"up\" is none of \"low\", \"high\""},
    {R"("iso-speed": {"speed": "400"})",            "settings.iso-speed.speed: \"400\" is not a speed"},
    {R"("iso-speed": {"speed": 400})",              "settings.iso-speed.speed: 400 is not a speed"},
    {R"("format": {"mode": "f7"})",                 "settings.format.mode: \"f7\" is not a mode"},
    {R"("format": {"mode": "f7mx"})",               "settings.format.mode: \"f7mx\" is not a mode"},
    {R"("format": {"pixels": "Mono9"})",            "settings.format.pixels: \"Mono9\" is none of Mono8, "},
    {R"("format": {"width": 65536})",               "settings.format.width: 65536 is not a whole number from 0 to 65535"},
    {R"("format": {"rate": 0})",                    "settings.format.rate: 0 is not a frame rate"},
    {R"("format": {"rate": "30"})",                 "settings.format.rate: \"30\" is not a frame rate"},
    {R"("color-matrix": {"c11": 2147483648})",      "settings.color-matrix.c11: 2147483648 is not a whole number from -2147483648"},
    {R"("color-matrix": {"c11": -2147483649})",     "settings.color-matrix.c11: -2147483649 is not a whole number"},
};
// clang-format on

class KolmctlLoadRefused : public KolmctlSettings {
protected:
    /// A line of the report for people.
    static void ExpectLine(const ProcessOutcome& outcome, const std::string& line) {
        EXPECT_THAT("\n" + outcome.out, HasSubstr("\n" + line));
    }
};

TEST_F(KolmctlLoadRefused, a_bad_file_is_told_with_the_place_and_changes_nothing) {
    const std::string before = Save().out;

    for (const BadFile& bad : kBadFiles) {
        EXPECT_THAT(Load(bad.text), Fails(kUsage, bad.complaint)) << bad.text;
    }

    EXPECT_EQ(Save().out, before);
}

TEST_F(KolmctlLoadRefused, a_bad_setting_is_told_with_the_place_and_nothing_of_the_file_is_set) {
    const std::string before = Save().out;

    for (const BadFile& bad : kBadSettings) {
        EXPECT_THAT(Load(File(R"("gain": {"value": 1}, )" + std::string(bad.text))), Fails(kUsage, bad.complaint))
            << bad.text;
    }

    EXPECT_EQ(Save().out, before);
}

TEST_F(KolmctlLoadRefused, a_file_is_judged_before_a_camera_is_looked_for) {
    EXPECT_THAT(Kolmctl({L"--device", L"none of this name", L"load", L"-"}, "{}"), Fails(kUsage, "is missing"));
    EXPECT_THAT(Kolmctl({L"--device", L"none of this name", L"load", L"-"}, File("")), Fails(kNoDevice, ""));
}

TEST_F(KolmctlLoadRefused, wrong_usage_is_told) {
    const CSettingsFile file;

    EXPECT_THAT(Kolmctl({L"--simulate", L"load"}), Fails(kUsage, "FILE"));
    EXPECT_THAT(Kolmctl({L"--simulate", L"save"}), Fails(kUsage, "FILE"));
    EXPECT_THAT(Kolmctl({L"--simulate", L"load", L"-", L"stray"}), Fails(kUsage, "stray"));
    EXPECT_THAT(Kolmctl({L"--simulate", L"load", file.Path()}), Fails(kUsage, "cannot read \""));
    file.Write(std::string(1'000'001, ' '));
    EXPECT_THAT(Kolmctl({L"--simulate", L"load", file.Path()}), Fails(kUsage, "it is larger than 1 MB"));
}

TEST_F(KolmctlLoadRefused, deep_nesting_is_refused_and_no_crash) {
    for (const std::size_t depth : {std::size_t{20}, std::size_t{400'000}}) {
        SCOPED_TRACE(depth);
        const std::string open(depth, '[');
        const std::string whole = open + std::string(depth, ']');
        EXPECT_THAT(Load("{\"version\": " + whole + ", \"settings\": {}}"), Fails(kUsage, "nested too deeply"));
        EXPECT_THAT(Load(File("\"hue\": {\"value\": " + whole + "}")), Fails(kUsage, "nested too deeply"));
        EXPECT_THAT(Load(open), Fails(kUsage, "nested too deeply"));
    }
    std::string objects;
    for (int i = 0; i < 100'000; ++i) {
        objects += "{\"a\":";
    }
    EXPECT_THAT(Load(objects), Fails(kUsage, "nested too deeply"));
    const std::string shallow = std::string(10, '[') + std::string(10, ']');
    EXPECT_THAT(Load("{\"version\": " + shallow + ", \"settings\": {}}"), Fails(kUsage, "]]] is not 1"));
}

TEST_F(KolmctlLoadRefused, what_the_camera_refuses_is_told_and_the_rest_is_set) {
    const ProcessOutcome outcome = Load(File(R"("gain": {"value": 300}, "gamma": {"mode": "auto"},
        "high-snr": {"value": 1, "mode": "manual"}, "brightness": {"value": 77}, "test-image": {"number": 9},
        "auto-gain-limits": {"low": 9, "high": 5}, "lut": {"on": true, "number": 9}, "low-smear": {"value": 12})"));

    EXPECT_EQ(outcome.exitCode, kRefused);
    EXPECT_EQ(outcome.err, "kolmctl: the camera refused 6 of 8 settings\n");
    ExpectLine(outcome,
               "gain: cannot set gain to value 300: 0x80070057 E_INVALIDARG (value out of range, or invalid "
               "argument); gain takes values from 0 to 255\n");
    ExpectLine(outcome,
               "gamma: cannot set gamma to mode auto: 0x80004001 E_NOTIMPL (the camera or the module does not "
               "support this); gamma supports these modes: off, manual\n");
    ExpectLine(outcome, "high-snr: cannot set high-snr to value 1, mode manual: 0x80070057");
    ExpectLine(outcome, "test-image: cannot set test-image to number 9: 0x80070057");
    ExpectLine(outcome, "auto-gain-limits: cannot set auto-gain-limits to low 9, high 5: 0x80070057");
    ExpectLine(outcome, "lut on: asked true, the camera has false\n");
    ExpectLine(outcome, "lut number: asked 9, the camera has 0\n");
    const auto lines = Lines(Save().out);
    EXPECT_THAT(lines.at("brightness"), HasSubstr("\"value\": 77"));
    EXPECT_THAT(lines.at("low-smear"), HasSubstr("\"value\": 12"));
    EXPECT_THAT(lines.at("gain"), HasSubstr("\"value\": 64"));
}

TEST_F(KolmctlLoadRefused, programs_get_a_row_for_each_refusal) {
    const std::string file = File(R"("gain": {"value": 300}, "lut": {"number": 9}, "gamma": {"value": 0})");

    const ProcessOutcome json = Kolmctl({L"--simulate", L"--json", L"load", L"-"}, file);
    const ProcessOutcome tsv = Kolmctl({L"--simulate", L"--tsv", L"load", L"-"}, file);

    EXPECT_EQ(json.exitCode, kRefused);
    EXPECT_THAT(json.out,
                ::testing::StartsWith("[\n  {\n    \"setting\": \"gain\",\n    \"field\": null,\n"
                                      "    \"asked\": null,\n    \"actual\": null,\n    \"reason\": \"cannot set "));
    EXPECT_THAT(json.out, HasSubstr("    \"setting\": \"lut\",\n    \"field\": \"number\",\n    \"asked\": 9,\n"
                                    "    \"actual\": 0,\n    \"reason\": \"asked 9, the camera has 0\"\n  }\n]\n"));
    EXPECT_EQ(json.err, "kolmctl: the camera refused 2 of 3 settings\n");
    EXPECT_THAT(tsv.out, ::testing::StartsWith("setting\tfield\tasked\tactual\treason\ngain\t\t\t\tcannot set "));
}

TEST_F(KolmctlLoadRefused, a_register_that_keeps_its_word_is_told) {
    ASSERT_TRUE(OpenCamera()->PokeRegister(0xF0F00880, 0x82000010));  // a zoom that nothing moves

    const ProcessOutcome outcome = Load(File(R"("zoom": {"value": 17, "on": true})"));

    EXPECT_EQ(outcome.exitCode, kRefused);
    EXPECT_EQ(outcome.out, "zoom value: asked 17, the camera has 16\n");
}

TEST_F(KolmctlLoadRefused, a_color_cameras_file_on_a_mono_camera_tells_what_is_missing) {
    ChangeEverything(L"color", kFixedFormat);
    const std::string saved = Save().out;
    ChangeToFreshCamera();

    const ProcessOutcome outcome = Load(saved, L"mono");

    EXPECT_EQ(outcome.exitCode, kRefused);
    EXPECT_THAT(outcome.err, ::testing::MatchesRegex("kolmctl: the camera refused 7 of \\d+ settings\n"));
    for (const char* name :
         {"white-balance-ub", "white-balance-vr", "hue", "saturation", "color-matrix", "color-correction"}) {
        ExpectLine(outcome, std::string(name) + ": the camera does not have it\n");
    }
    EXPECT_THAT(Lines(Save(L"mono").out).at("gain"), HasSubstr("\"value\": 170"));
}

TEST_F(KolmctlLoadRefused, a_format_that_the_camera_lacks_is_told) {
    for (const BadFile& bad : {
             BadFile{R"("mode": "f3m0")", "format: cannot set the format to \"f3m0\": 0x80070057"},
             {R"("mode": "f7m1", "width": 3)", "; areas lie inside "},
             {R"("width": 320)", "Format 0 mode 5 is always 640x480 at 0,0\n"},
             {R"("rate": 29)", "format rate: asked 29, the camera has 30.0\n"},
         }) {
        const ProcessOutcome outcome = Load(File("\"format\": {" + std::string(bad.text) + "}"));

        EXPECT_EQ(outcome.exitCode, kRefused) << bad.text;
        EXPECT_THAT(outcome.out, HasSubstr(bad.complaint)) << bad.text;
    }
}

TEST_F(KolmctlLoadRefused, a_failing_driver_is_told_setting_by_setting) {
    const CSettingsFile file;
    file.Write(File(
        R"("gain": {"value": 9}, "gamma": {"mode": "manual"}, "trigger": {"on": true}, "test-image": {"number": 1})"));
    struct FaultCase {
        const wchar_t* faults;
        const char* line;
        const char* summary;
    };
    for (const FaultCase& each : {
             FaultCase{L"set 0 8007001F", "gain: cannot set gain to value 9: 0x8007001F ERROR_GEN_FAILURE", "1 of 4"},
             {L"get 0 8007001F", "gain: cannot read gain: 0x8007001F ERROR_GEN_FAILURE", "1 of 4"},
             {L"get 0 #3 8007001F", "gain: cannot read gain: 0x8007001F ERROR_GEN_FAILURE", "1 of 4"},
             {L"set 11 8007001F", "trigger: cannot set trigger to on true: 0x8007001F", "1 of 4"},
             {L"set 3 answer", "test-image number: asked 1, the camera has 0\n", "1 of 4"},
             {L"any 0 80070490", "gain: the camera does not have it\n", "1 of 4"},
             {L"any any unplug", "trigger: cannot read register Trigger (0xF0F00830): 0x8007048F", "4 of 4"},
         }) {
        ChangeToFreshCamera();

        const ProcessOutcome outcome = KolmctlWithFaults(each.faults, {L"--simulate", L"load", file.Path()});

        EXPECT_EQ(outcome.exitCode, kRefused) << each.line;
        ExpectLine(outcome, each.line);
        EXPECT_EQ(outcome.err, "kolmctl: the camera refused " + std::string(each.summary) + " settings\n");
    }
}

TEST_F(KolmctlLoadRefused, help_says_what_no_file_holds) {
    for (const wchar_t* command : {L"save", L"load"}) {
        const ProcessOutcome help = Kolmctl({command, L"--help"});

        EXPECT_EQ(help.exitCode, kSuccess);
        EXPECT_THAT(help.out, HasSubstr("look-up tables"));
        EXPECT_THAT(help.out, HasSubstr("\nExample:\n  kolmctl --simulate "));
    }
}

}  // namespace
}  // namespace kolmfluxor::test
