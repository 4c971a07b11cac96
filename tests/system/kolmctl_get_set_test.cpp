/// @file  kolmctl get and kolmctl set, each run a process of its own.

#include "system/support_kolmctl.h"

#include <algorithm>

namespace kolmfluxor::test {
namespace {

using ::testing::HasSubstr;

class KolmctlGet : public KolmctlTest {};

TEST_F(KolmctlGet, shows_value_and_mode) {
    EXPECT_THAT(Kolmctl({L"--simulate", L"get", L"gain"}), Prints("FEATURE   ID  VALUE  MODE\n"
                                                                  "gain     265     64  manual\n"));
}

TEST_F(KolmctlGet, shows_several_features_by_name_and_number) {
    EXPECT_THAT(Kolmctl({L"--simulate", L"get", L"256", L"0x108", L"ISO_Channel"}),
                Prints("FEATURE        ID  VALUE  MODE\n"
                       "brightness    256     16  manual\n"
                       "shutter       264    500  manual\n"
                       "iso-channel  1032      5  auto\n"));
}

TEST_F(KolmctlGet, prints_tab_separated_values) {
    EXPECT_THAT(Kolmctl({L"--simulate", L"--tsv", L"get", L"gain"}),
                Prints("feature\tid\tvalue\tmode\ngain\t265\t64\tmanual\n"));
}

TEST_F(KolmctlGet, prints_json) {
    EXPECT_THAT(Kolmctl({L"--simulate", L"get", L"gain", L"--json"}), Prints("[\n"
                                                                             "  {\n"
                                                                             "    \"feature\": \"gain\",\n"
                                                                             "    \"id\": 265,\n"
                                                                             "    \"value\": 64,\n"
                                                                             "    \"mode\": \"manual\"\n"
                                                                             "  }\n"
                                                                             "]\n"));
}

TEST_F(KolmctlGet, knows_every_feature_of_the_color_camera) {
    const ProcessOutcome outcome = Kolmctl({L"--simulate",
                                            L"get",
                                            L"brightness",
                                            L"auto-exposure",
                                            L"sharpness",
                                            L"white-balance-ub",
                                            L"white-balance-vr",
                                            L"hue",
                                            L"saturation",
                                            L"gamma",
                                            L"shutter",
                                            L"gain",
                                            L"trigger-delay",
                                            L"time-base",
                                            L"extended-shutter",
                                            L"feature-515",
                                            L"lut",
                                            L"feature-517",
                                            L"feature-520",
                                            L"color-correction",
                                            L"feature-523",
                                            L"dsnu-correction",
                                            L"feature-527",
                                            L"delayed-integration",
                                            L"high-snr",
                                            L"feature-542",
                                            L"feature-543",
                                            L"feature-544",
                                            L"iso-channel"});

    EXPECT_EQ(outcome.exitCode, kSuccess) << outcome.err;
    EXPECT_EQ(std::count(outcome.out.begin(), outcome.out.end(), '\n'), 28);
}

TEST_F(KolmctlGet, follows_an_automatic_mode_from_process_to_process) {
    ASSERT_TRUE(OpenCamera()->SetFeatureWord(kGain, kMode, kAutoBit));

    const ProcessOutcome first = Kolmctl({L"--simulate", L"--tsv", L"get", L"gain"});
    const ProcessOutcome second = Kolmctl({L"--simulate", L"--tsv", L"get", L"gain"});

    EXPECT_THAT(first.out, HasSubstr("\tauto\n")) << first.err;
    EXPECT_THAT(second.out, HasSubstr("\tauto\n")) << second.err;
    EXPECT_NE(first.out, second.out);
}

TEST_F(KolmctlGet, refuses_an_unknown_feature) {
    EXPECT_THAT(Kolmctl({L"--simulate", L"get", L"focus"}), Fails(kUsage, "unknown feature \"focus\""));
    EXPECT_THAT(Kolmctl({L"--simulate", L"get", L"600"}), Fails(kUsage, "unknown feature \"600\""));
    EXPECT_THAT(Kolmctl({L"--simulate", L"get", L"focus"}), Fails(kUsage, "brightness, auto-exposure"));
}

TEST_F(KolmctlGet, reads_nothing_when_one_name_is_wrong) {
    ASSERT_TRUE(OpenCamera()->SetFeatureWord(kGain, kMode, kAutoBit));

    EXPECT_THAT(Kolmctl({L"--simulate", L"get", L"gain", L"focus"}), Fails(kUsage, "focus"));

    EXPECT_EQ(Word(kGain, kValue), 64U) << "a read would have moved it";
}

TEST_F(KolmctlGet, shows_the_code_for_a_feature_that_the_camera_lacks) {
    EXPECT_THAT(Kolmctl({L"--simulate=mono", L"get", L"hue"}), Fails(kRefused, "cannot read hue: 0x80070490"));
}

TEST_F(KolmctlGet, needs_a_feature) {
    EXPECT_THAT(Kolmctl({L"--simulate", L"get"}), Fails(kUsage, "FEATURE is required"));
}

class KolmctlSet : public KolmctlTest {
protected:
    void ExpectFactoryGain() const {
        EXPECT_EQ(Word(kGain, kValue), 64U);
        EXPECT_EQ(Word(kGain, kMode), kManualBit);
    }
};

TEST_F(KolmctlSet, sets_a_value_that_later_processes_read) {
    EXPECT_THAT(Kolmctl({L"--simulate", L"set", L"gain", L"100"}), Prints("FEATURE   ID  VALUE  MODE\n"
                                                                          "gain     265    100  manual\n"));

    EXPECT_EQ(Word(kGain, kValue), 100U);
    EXPECT_THAT(Kolmctl({L"--simulate", L"--tsv", L"get", L"gain"}),
                Prints("feature\tid\tvalue\tmode\ngain\t265\t100\tmanual\n"));
}

TEST_F(KolmctlSet, takes_hexadecimal_values_and_feature_numbers) {
    const ProcessOutcome outcome = Kolmctl({L"--simulate", L"set", L"265", L"0xff"});

    EXPECT_EQ(outcome.exitCode, kSuccess) << outcome.err;
    EXPECT_EQ(Word(kGain, kValue), 255U);
}

TEST_F(KolmctlSet, sets_a_mode_and_leaves_the_value) {
    const ProcessOutcome outcome = Kolmctl({L"--simulate", L"set", L"gamma", L"--mode", L"manual"});

    EXPECT_THAT(outcome, Prints("FEATURE   ID  VALUE  MODE\n"
                                "gamma    263      1  manual\n"));
}

TEST_F(KolmctlSet, sets_value_and_mode) {
    const ProcessOutcome outcome = Kolmctl({L"--simulate", L"set", L"gain", L"100", L"--mode=auto"});

    EXPECT_EQ(outcome.exitCode, kSuccess) << outcome.err;
    EXPECT_EQ(Word(kGain, kMode), kAutoBit);
    EXPECT_EQ(Word(kGain, kValue), 103U) << "100, and one step of the automatic mode at the read that follows";
}

TEST_F(KolmctlSet, prints_what_the_camera_has_as_json) {
    const ProcessOutcome outcome = Kolmctl({L"--simulate", L"--json", L"set", L"gain", L"100"});

    EXPECT_EQ(outcome.exitCode, kSuccess) << outcome.err;
    EXPECT_THAT(outcome.out, HasSubstr("\"value\": 100,"));
}

TEST_F(KolmctlSet, takes_the_ends_of_the_range) {
    EXPECT_EQ(Kolmctl({L"--simulate", L"set", L"shutter", L"1"}).exitCode, kSuccess);
    EXPECT_EQ(Word(kShutter, kValue), 1U);

    EXPECT_EQ(Kolmctl({L"--simulate", L"set", L"shutter", L"4095"}).exitCode, kSuccess);
    EXPECT_EQ(Word(kShutter, kValue), 4095U);
}

TEST_F(KolmctlSet, refuses_a_value_out_of_range_and_says_the_range) {
    const ProcessOutcome above = Kolmctl({L"--simulate", L"set", L"shutter", L"4096"});
    const ProcessOutcome below = Kolmctl({L"--simulate", L"set", L"shutter", L"0", L"--mode", L"manual"});

    EXPECT_THAT(above, Fails(kRefused, "cannot set shutter to 4096: 0x80070057 E_INVALIDARG"));
    EXPECT_THAT(above, Fails(kRefused, "shutter takes values from 1 to 4095\n"));
    EXPECT_THAT(below, Fails(kRefused, "shutter takes values from 1 to 4095\n"));
    EXPECT_EQ(Word(kShutter, kValue), 500U);
}

TEST_F(KolmctlSet, refuses_a_mode_that_the_feature_lacks_and_says_which_it_has) {
    const ProcessOutcome alone = Kolmctl({L"--simulate", L"set", L"gain", L"--mode", L"off"});
    const ProcessOutcome withValue = Kolmctl({L"--simulate", L"set", L"gain", L"70", L"--mode", L"show-image"});

    EXPECT_THAT(alone, Fails(kRefused, "cannot set gain, mode off: 0x80004001 E_NOTIMPL"));
    EXPECT_THAT(alone, Fails(kRefused, "gain supports these modes: manual, one-push, auto\n"));
    EXPECT_THAT(withValue, Fails(kRefused, "cannot set gain to 70, mode show-image: 0x80004001"));
    ExpectFactoryGain();
}

TEST_F(KolmctlSet, refuses_what_is_no_number) {
    for (const wchar_t* text : {L"abc", L"-5", L"1.5", L"12abc", L"0x", L"", L"4294967296", L" 7"}) {
        EXPECT_THAT(Kolmctl({L"--simulate", L"set", L"gain", text}), Fails(kUsage, "not a value")) << text;
    }
    ExpectFactoryGain();
}

TEST_F(KolmctlSet, refuses_an_unknown_feature_or_mode) {
    EXPECT_THAT(Kolmctl({L"--simulate", L"set", L"focus", L"1"}), Fails(kUsage, "unknown feature \"focus\""));
    EXPECT_THAT(Kolmctl({L"--simulate", L"set", L"gain", L"--mode", L"turbo"}),
                Fails(kUsage, "unknown mode \"turbo\""));
    EXPECT_THAT(Kolmctl({L"--simulate", L"set", L"gain", L"--mode", L"10"}), Fails(kUsage, "unknown mode \"10\""));
    ExpectFactoryGain();
}

TEST_F(KolmctlSet, needs_a_value_or_a_mode) {
    EXPECT_THAT(Kolmctl({L"--simulate", L"set", L"gain"}), Fails(kUsage, "nothing to set"));
}

TEST_F(KolmctlSet, takes_one_value) {
    EXPECT_THAT(Kolmctl({L"--simulate", L"set", L"gain", L"1", L"2"}), Fails(kUsage, "2"));
    ExpectFactoryGain();
}

TEST_F(KolmctlSet, shows_the_code_for_a_feature_that_the_camera_lacks) {
    EXPECT_THAT(Kolmctl({L"--simulate=mono", L"set", L"hue", L"100"}),
                Fails(kRefused, "cannot set hue to 100: 0x80070490"));
}

}  // namespace
}  // namespace kolmfluxor::test
