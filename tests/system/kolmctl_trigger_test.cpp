/// @file  kolmctl trigger and trigger set.

#include "system/support_kolmctl.h"

namespace kolmfluxor::test {
namespace {

using ::testing::HasSubstr;

constexpr std::uint32_t kTrigger = 53;  // driver id
constexpr std::uint32_t kInquiry = 32;  // its mask of capabilities
constexpr std::uint32_t kTriggerRegister = 0xF0F00830;
constexpr std::uint32_t kPolarity = 1U << 24U;
constexpr std::uint32_t kOn = 1U << 25U;

class KolmctlTrigger : public KolmctlTest {
protected:
    /// The IIDC trigger register: on b25, polarity b24, mode b19-16, parameter b11-0.
    [[nodiscard]] std::uint32_t Register() const {
        std::uint32_t word = 0xDEADBEEF;
        EXPECT_TRUE(OpenCamera()->PeekRegister(kTriggerRegister, &word));
        return word;
    }
    [[nodiscard]] std::uint32_t Mode() const { return (Register() >> 16U) & 0xFU; }
    [[nodiscard]] std::uint32_t Parameter() const { return Register() & 0xFFFU; }

    static ProcessOutcome Set(const std::vector<std::wstring>& options) {
        std::vector<std::wstring> arguments = {L"--simulate", L"--tsv", L"trigger", L"set"};
        arguments.insert(arguments.end(), options.begin(), options.end());
        return Kolmctl(arguments);
    }
};

TEST_F(KolmctlTrigger, shows_state_and_abilities) {
    EXPECT_THAT(Kolmctl({L"--simulate", L"trigger"}), Prints("on                   no\n"
                                                             "mode                 0\n"
                                                             "parameter            1\n"
                                                             "polarity             low\n"
                                                             "input                low\n"
                                                             "supported modes      0,1,2,3,4,5,14,15\n"
                                                             "can be switched off  yes\n"
                                                             "polarity can change  yes\n"));
}

TEST_F(KolmctlTrigger, prints_one_row_for_programs) {
    EXPECT_THAT(Kolmctl({L"--simulate", L"--tsv", L"trigger"}),
                Prints("on\tmode\tparameter\tpolarity\tinput\tmodes\tcanSwitch\tcanChangePolarity\n"
                       "no\t0\t1\tlow\tlow\t0,1,2,3,4,5,14,15\tyes\tyes\n"));
    const ProcessOutcome json = Kolmctl({L"--simulate", L"--json", L"trigger"});
    EXPECT_THAT(json.out, HasSubstr("    \"on\": false,\n    \"mode\": 0,\n    \"parameter\": 1,\n"));
    EXPECT_THAT(json.out, HasSubstr("    \"modes\": [\n      0,\n      1,\n")) << "numbers, no texts";
}

TEST_F(KolmctlTrigger, set_changes_all_that_is_named) {
    const ProcessOutcome outcome = Set({L"--mode", L"3", L"--on", L"--polarity", L"high", L"--parameter", L"7"});

    EXPECT_EQ(outcome.exitCode, kSuccess) << outcome.err;
    EXPECT_THAT(outcome.out, HasSubstr("\nyes\t3\t7\thigh\t"));
    EXPECT_EQ(Mode(), 3U);
    EXPECT_EQ(Parameter(), 7U);
    EXPECT_EQ(Register() & (kOn | kPolarity), kOn | kPolarity);
}

TEST_F(KolmctlTrigger, set_leaves_what_is_not_named) {
    ASSERT_EQ(Set({L"--mode", L"3", L"--on", L"--polarity", L"high", L"--parameter", L"7"}).exitCode, kSuccess);

    EXPECT_THAT(Set({L"--mode", L"15"}).out, HasSubstr("\nyes\t15\t7\thigh\t"));
    EXPECT_THAT(Set({L"--off"}).out, HasSubstr("\nno\t15\t7\thigh\t"));
    EXPECT_THAT(Set({L"--polarity", L"low"}).out, HasSubstr("\nno\t15\t7\tlow\t"));
    EXPECT_THAT(Set({L"--parameter", L"0x9"}).out, HasSubstr("\nno\t15\t9\tlow\t"));
    EXPECT_THAT(Set({L"--on"}).out, HasSubstr("\nyes\t15\t9\tlow\t"));
}

TEST_F(KolmctlTrigger, set_sends_parameter_and_state_word) {
    const ProcessOutcome outcome = Kolmctl({L"--simulate", L"trace", L"trigger", L"set", L"--mode", L"1", L"--on",
                                            L"--polarity", L"high", L"--parameter", L"2"});

    EXPECT_EQ(outcome.exitCode, kSuccess) << outcome.err;
    EXPECT_THAT(outcome.out, HasSubstr("SET  property 53  64 bytes  0x00000000 S_OK\n"
                                       "      24  00000002 00020060 00000000 00000000  ->"));
}

struct ModeCase {
    const wchar_t* number;
    const char* mask;
};

TEST_F(KolmctlTrigger, set_knows_each_mode_by_its_mask) {
    for (const ModeCase& mode : {ModeCase{L"0", "00010000"},
                                 {L"1", "00020000"},
                                 {L"2", "00040000"},
                                 {L"3", "00080000"},
                                 {L"4", "00100000"},
                                 {L"5", "00200000"},
                                 {L"14", "40000000"},
                                 {L"15", "80000000"}}) {
        const ProcessOutcome outcome =
            Kolmctl({L"--simulate", L"trace", L"trigger", L"set", L"--off", L"--mode", mode.number});

        EXPECT_EQ(outcome.exitCode, kSuccess) << mode.mask << outcome.err;
        EXPECT_THAT(outcome.out, HasSubstr(std::string("      24  00000001 ") + mode.mask + " 00000000 00000000  ->"));
        EXPECT_EQ(Mode(), std::stoul(mode.number));
    }
}

TEST_F(KolmctlTrigger, set_refuses_what_the_camera_cannot_do_and_changes_nothing) {
    // No switch and no polarity; modes 0 and 15 only.
    ASSERT_TRUE(OpenCamera()->SetFeatureWord(kTrigger, kInquiry, 0x80010000));
    const std::uint32_t before = Register();

    EXPECT_THAT(Set({L"--mode", L"3"}), Fails(kRefused, "cannot set the trigger: 0x80004001 E_NOTIMPL"));
    EXPECT_THAT(Set({L"--mode", L"3"}), Fails(kRefused, "the camera's trigger modes are 0, 15\n"));
    EXPECT_THAT(Set({L"--off"}), Fails(kRefused, "the camera cannot switch its trigger off\n"));
    EXPECT_THAT(Set({L"--mode", L"15", L"--polarity", L"high"}), Fails(kRefused, "cannot change the polarity"));

    EXPECT_EQ(Register(), before);
    EXPECT_THAT(Kolmctl({L"--simulate", L"--tsv", L"trigger"}).out, HasSubstr("\nyes\t0\t1\tlow\t\t0,15\tno\tno\n"));
}

TEST_F(KolmctlTrigger, set_needs_a_mode_where_the_camera_reports_none) {
    ASSERT_TRUE(OpenCamera()->SetFeatureWord(kTrigger, kMode, 0));

    EXPECT_THAT(Set({L"--on"}), Fails(kRefused, "the camera reports no mode that could stay: give --mode\n"));
    EXPECT_THAT(Kolmctl({L"--simulate", L"--json", L"trigger"}).out, HasSubstr("    \"mode\": null,\n"));
    EXPECT_THAT(Set({L"--on", L"--mode", L"2"}).out, HasSubstr("\nyes\t2\t"));
}

TEST_F(KolmctlTrigger, set_refuses_wrong_usage_and_changes_nothing) {
    const std::uint32_t before = Register();

    EXPECT_THAT(Set({}), Fails(kUsage, "nothing to set"));
    EXPECT_THAT(Set({L"--mode", L"6"}), Fails(kUsage, "unknown trigger mode \"6\"\n  modes are 0 to 5, 14 and 15"));
    EXPECT_THAT(Set({L"--mode", L"edge"}), Fails(kUsage, "unknown trigger mode \"edge\""));
    EXPECT_THAT(Set({L"--on", L"--off"}), Fails(kUsage, "--on excludes --off"));
    EXPECT_THAT(Set({L"--mode", L"1", L"--polarity", L"up"}), Fails(kUsage, "unknown polarity \"up\""));
    EXPECT_THAT(Set({L"--mode", L"1", L"--parameter", L"-1"}), Fails(kUsage, "not a parameter: \"-1\""));
    EXPECT_THAT(Set({L"--mode", L"1", L"stray"}), Fails(kUsage, "stray"));
    EXPECT_THAT(Kolmctl({L"--simulate", L"trigger", L"stray"}), Fails(kUsage, "stray"));

    EXPECT_EQ(Register(), before);
}

}  // namespace
}  // namespace kolmfluxor::test
