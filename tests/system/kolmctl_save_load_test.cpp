/// @file  kolmctl save and load: what was saved comes back.

#include <set>

#include "system/settings_fixture.h"

namespace kolmfluxor::test {
namespace {

using ::testing::HasSubstr;
using ::testing::Not;

/// Lines of a register dump by name.
std::map<std::string, std::string> Dump(const wchar_t* variant, const ProcessOutcome& outcome) {
    EXPECT_EQ(outcome.exitCode, kSuccess) << variant << outcome.err;
    std::map<std::string, std::string> lines;
    std::istringstream stream(outcome.out);
    std::string line;
    while (std::getline(stream, line)) {
        lines[line.substr(0, line.find('\t'))] += line + "\n";
    }
    return lines;
}

/// Registers that tell what happened to the camera, not how it is set.
const std::set<std::string> kStatusRegisters = {
    "FeatureErrorHi",  // errors of the last writes
};

struct Journey {
    const wchar_t* variant;
    bool scalable;
};

class KolmctlSaveLoad : public KolmctlSettings, public ::testing::WithParamInterface<Journey> {
protected:
    std::map<std::string, std::string> DumpOf() const {
        return Dump(GetParam().variant,
                    Kolmctl({std::wstring(L"--simulate=") + GetParam().variant, L"--tsv", L"reg", L"dump"}));
    }

    void Change() const {
        if (GetParam().scalable) {
            ChangeEverything(GetParam().variant, kScalableFormat);
        } else {
            ChangeEverything(GetParam().variant, kFixedFormat);
        }
    }
};

TEST_P(KolmctlSaveLoad, every_setting_comes_back_in_a_fresh_camera) {
    const std::wstring variant = GetParam().variant;
    const auto factory = Lines(Save(variant).out);
    Change();
    const auto before = DumpOf();
    const ProcessOutcome saved = Save(variant);
    ASSERT_EQ(saved.exitCode, kSuccess) << saved.err;
    for (const auto& [name, line] : Lines(saved.out)) {
        EXPECT_NE(line, factory.at(name)) << "the test did not change it";
    }
    ChangeToFreshCamera();
    ASSERT_NE(Save(variant).out, saved.out);

    const ProcessOutcome loaded = Load(saved.out, variant);

    EXPECT_THAT(loaded, Prints("All " + std::to_string(factory.size()) + " settings are as in the file.\n"));
    const auto after = DumpOf();
    EXPECT_GT(after.size(), 300U);
    for (const auto& [name, line] : before) {
        if (!kStatusRegisters.contains(name)) {
            EXPECT_EQ(after.at(name), line);
        }
    }
    EXPECT_EQ(Save(variant).out, saved.out) << "a second save is the same, byte for byte";
}

INSTANTIATE_TEST_SUITE_P(Cameras, KolmctlSaveLoad,
                         ::testing::Values(Journey{L"color", true}, Journey{L"color", false}, Journey{L"mono", true},
                                           Journey{L"mono", false}),
                         [](const auto& tested) {
                             return std::string(*tested.param.variant == L'c' ? "color" : "mono") +
                                    (tested.param.scalable ? "_scalable" : "_fixed");
                         });

TEST_F(KolmctlSettings, a_file_names_version_camera_and_one_setting_a_line) {
    const ProcessOutcome saved = Save();

    EXPECT_EQ(saved.err, "");
    EXPECT_THAT(saved.out,
                ::testing::StartsWith(
                    "{\n"
                    "  \"version\": 1,\n"
                    "  \"camera\": {\"vendor\": \"KolmFluxor\", \"model\": \"Simulated camera (color)\", "
                    "\"serialNumber\": 10002},\n"
                    "  \"settings\": {\n"
                    "    \"iso-speed\": {\"speed\": \"S400\"},\n"
                    "    \"iso-channel\": {\"mode\": \"auto\"},\n"
                    "    \"format\": {\"mode\": \"f0m5\", \"pixels\": \"Mono8\", \"x\": 0, \"y\": 0, \"width\": 640, "
                    "\"height\": 480, \"rate\": 30.0},\n"));
    EXPECT_THAT(saved.out, HasSubstr("    \"gain\": {\"value\": 64, \"mode\": \"manual\"},\n"));
    EXPECT_THAT(saved.out, ::testing::EndsWith("\n  }\n}\n"));
}

TEST_F(KolmctlSettings, what_a_camera_lacks_is_left_out) {
    const auto color = Lines(Save(L"color").out);
    const auto mono = Lines(Save(L"mono").out);

    for (const char* name :
         {"white-balance-ub", "white-balance-vr", "hue", "saturation", "color-matrix", "color-correction"}) {
        EXPECT_TRUE(color.contains(name)) << name;
        EXPECT_FALSE(mono.contains(name)) << name;
    }
    EXPECT_EQ(mono.size() + 6, color.size());
    EXPECT_FALSE(color.contains("zoom"));
}

TEST_F(KolmctlSettings, a_value_that_the_camera_chooses_is_no_setting) {
    const UniqueCamera camera = OpenCamera();
    camera->SetFeatureWord(kGain, kMode, kAutoBit);
    camera->SetFeatureWord(kShutter, kMode, 0x10);              // one-push
    ASSERT_TRUE(camera->PokeRegister(0xF0F0080C, 0x83000000));  // white balance: auto
    ASSERT_TRUE(camera->PokeRegister(0xF0F00880, 0x83000010));  // zoom: auto
    ASSERT_TRUE(camera->PokeRegister(0xF0F00884, 0x82000011));  // pan

    const auto lines = Lines(Save().out);

    EXPECT_EQ(lines.at("gain"), "    \"gain\": {\"mode\": \"auto\"}");
    EXPECT_EQ(lines.at("white-balance-ub"), "    \"white-balance-ub\": {\"mode\": \"auto\"}");
    EXPECT_EQ(lines.at("white-balance-vr"), "    \"white-balance-vr\": {\"mode\": \"auto\"}");
    EXPECT_THAT(lines.at("shutter"), HasSubstr("\"mode\": \"manual\"")) << "that is how one-push ends";
    EXPECT_EQ(lines.at("extended-shutter"), "    \"extended-shutter\": {\"mode\": \"manual\"}");
    EXPECT_EQ(lines.at("zoom"), "    \"zoom\": {\"on\": true, \"auto\": true}");
    EXPECT_EQ(lines.at("pan"), "    \"pan\": {\"value\": 17, \"on\": true, \"auto\": false}");
}

TEST_F(KolmctlSettings, a_mode_that_does_not_last_is_no_setting) {
    constexpr std::uint32_t kUnknownBit = 0x40000000;
    OpenCamera()->SetFeatureWord(kGain, kMode, kUnknownBit);

    EXPECT_EQ(Lines(Save().out).at("gain"), "    \"gain\": {\"value\": 64}");
}

TEST_F(KolmctlSettings, automatic_modes_come_last_and_values_before_them) {
    const ProcessOutcome outcome = Kolmctl(
        {L"--simulate", L"trace", L"load", L"-"},
        File(R"("gain": {"value": 99, "mode": "auto"}, "lut": {"on": true}, "white-balance-ub": {"mode": "auto"})"));

    EXPECT_EQ(outcome.exitCode, kSuccess) << outcome.err;
    std::vector<std::string> sets;
    for (std::size_t at = outcome.out.find("SET  property "); at != std::string::npos;
         at = outcome.out.find("SET  property ", at + 1)) {
        sets.push_back(outcome.out.substr(at + 14, outcome.out.find(' ', at + 14) - at - 14));
    }
    EXPECT_THAT(sets, ::testing::ElementsAre("0", "11", "1", "0")) << "value of gain, LUT, both automatic modes";
    EXPECT_EQ(Word(kGain, kMode), kAutoBit);
}

TEST_F(KolmctlSettings, load_writes_nothing_that_is_as_wanted) {
    const std::string saved = Save().out;

    const ProcessOutcome outcome = Kolmctl({L"--simulate", L"trace", L"load", L"-"}, saved);

    EXPECT_EQ(outcome.exitCode, kSuccess) << outcome.err;
    EXPECT_THAT(outcome.out, HasSubstr("GET  property "));
    EXPECT_THAT(outcome.out, Not(HasSubstr("SET  property ")));
}

TEST_F(KolmctlSettings, a_file_may_name_a_part_alone) {
    EXPECT_THAT(Load(File(R"("gain": {"value": 5}, "trigger": {"mode": 14}, "mirror": {"vertical": true})")),
                Prints("All 3 settings are as in the file.\n"));

    const auto lines = Lines(Save().out);
    EXPECT_EQ(lines.at("gain"), "    \"gain\": {\"value\": 5, \"mode\": \"manual\"}");
    EXPECT_EQ(lines.at("trigger"),
              "    \"trigger\": {\"on\": false, \"mode\": 14, \"parameter\": 1, "
              "\"polarity\": \"low\", \"source\": 0}");
    EXPECT_EQ(lines.at("mirror"), "    \"mirror\": {\"horizontal\": false, \"vertical\": true}");
}

TEST_F(KolmctlSettings, save_and_load_name_a_file) {
    const CSettingsFile file;
    file.Write("an earlier file");

    const ProcessOutcome saved = Kolmctl({L"--simulate", L"save", file.Path()});

    EXPECT_EQ(saved.exitCode, kSuccess) << saved.err;
    EXPECT_THAT(saved.out, ::testing::MatchesRegex("\\d+ settings saved to \".*camera.json\"\\.\n"));
    EXPECT_EQ(file.Content(), Save().out);
    EXPECT_EQ(file.Files(), 1);
    ASSERT_EQ(Kolmctl({L"--simulate", L"set", L"gain", L"1"}).exitCode, kSuccess);
    EXPECT_THAT(Kolmctl({L"--simulate", L"--json", L"load", file.Path()}), Prints("[]\n"));
    EXPECT_EQ(Word(kGain, kValue), 64U);
}

TEST_F(KolmctlSettings, a_failing_save_leaves_the_earlier_file) {
    const CSettingsFile file;
    file.Write("an earlier file");

    for (const wchar_t* faults :
         {L"any any #1 8007001F", L"get any #40 8007001F", L"get 53 8007001F; get 26 8007001F", L"get 5 8007001F"}) {
        EXPECT_THAT(KolmctlWithFaults(faults, {L"--simulate", L"save", file.Path()}),
                    Fails(kRefused, "0x8007001F ERROR_GEN_FAILURE"));
        EXPECT_EQ(file.Content(), "an earlier file");
        EXPECT_EQ(file.Files(), 1);
    }
    EXPECT_THAT(KolmctlWithFaults(L"get any #40 8007001F", {L"--simulate", L"save", L"-"}),
                Fails(kRefused, "0x8007001F ERROR_GEN_FAILURE"));
}

TEST_F(KolmctlSettings, save_puts_a_new_file_in_the_place_of_the_earlier_one) {
    const CSettingsFile file;
    const CSettingsFile other;
    file.Write("an earlier file");
    ASSERT_TRUE(::CreateHardLinkW(other.Path().c_str(), file.Path().c_str(), nullptr)) << ::GetLastError();

    ASSERT_EQ(Kolmctl({L"--simulate", L"save", file.Path()}).exitCode, kSuccess);

    EXPECT_EQ(other.Content(), "an earlier file") << "it was written over, so a failure would have left a part";
}

TEST_F(KolmctlSettings, load_keeps_other_bits_of_a_register_but_gives_no_command) {
    // Pan: absolute control (b30), a one-push under way (b26), on.
    ASSERT_TRUE(OpenCamera()->PokeRegister(0xF0F00884, 0xC6000011));

    const ProcessOutcome outcome = Kolmctl({L"--simulate", L"trace", L"load", L"-"}, File(R"("pan": {"value": 18})"));

    EXPECT_THAT(outcome.out, HasSubstr("SET  property 11  32 bytes  0x00000000 S_OK\n      24  f0f00884 c2000012"));
}

TEST_F(KolmctlSettings, save_tells_why_a_file_cannot_be_written) {
    const CSettingsFile file;
    std::filesystem::create_directory(file.Path());

    EXPECT_THAT(Kolmctl({L"--simulate", L"save", file.Path()}), Fails(kRefused, "cannot write \""));
    EXPECT_EQ(file.Files(), 1) << "no neighbor is left";
    EXPECT_THAT(Kolmctl({L"--simulate", L"save", file.Path() + L"\\no\\such\\folder.json"}),
                Fails(kRefused, "cannot write \""));
}

}  // namespace
}  // namespace kolmfluxor::test
