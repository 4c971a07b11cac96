/// @file  kolmctl iso and iso set.

#include "system/support_kolmctl.h"

namespace kolmfluxor::test {
namespace {

using ::testing::HasSubstr;

class KolmctlIso : public KolmctlTest {
protected:
    static ProcessOutcome Set(const std::vector<std::wstring>& options) {
        std::vector<std::wstring> arguments = {L"--simulate", L"--tsv", L"iso", L"set"};
        arguments.insert(arguments.end(), options.begin(), options.end());
        return Kolmctl(arguments);
    }

    /// What programs get for this speed, channel and mode.
    static std::string State(const std::string& speed, const std::string& channel, const std::string& mode) {
        return "speed\tspeedMin\tspeedMax\tchannel\tchannelMode\tchannelMin\tchannelMax\n" + speed + "\tS100\tS800\t" +
               channel + "\t" + mode + "\t0\t63\n";
    }

    static void ExpectFactoryState() {
        EXPECT_THAT(Kolmctl({L"--simulate", L"--tsv", L"iso"}), Prints(State("S400", "5", "auto")));
    }
};

TEST_F(KolmctlIso, shows_speed_and_channel) {
    EXPECT_THAT(Kolmctl({L"--simulate", L"iso"}), Prints("speed            S400\n"
                                                         "slowest          S100\n"
                                                         "fastest          S800\n"
                                                         "channel          5\n"
                                                         "channel mode     auto\n"
                                                         "lowest channel   0\n"
                                                         "highest channel  63\n"));
}

TEST_F(KolmctlIso, prints_json) {
    EXPECT_THAT(Kolmctl({L"--simulate", L"--json", L"iso"}), Prints("[\n"
                                                                    "  {\n"
                                                                    "    \"speed\": \"S400\",\n"
                                                                    "    \"speedMin\": \"S100\",\n"
                                                                    "    \"speedMax\": \"S800\",\n"
                                                                    "    \"channel\": 5,\n"
                                                                    "    \"channelMode\": \"auto\",\n"
                                                                    "    \"channelMin\": 0,\n"
                                                                    "    \"channelMax\": 63\n"
                                                                    "  }\n"
                                                                    "]\n"));
}

TEST_F(KolmctlIso, set_changes_the_speed_and_leaves_the_channel) {
    EXPECT_THAT(Set({L"--speed", L"S100"}), Prints(State("S100", "5", "auto")));
    EXPECT_THAT(Set({L"--speed", L"s800"}), Prints(State("S800", "5", "auto")));
    EXPECT_THAT(Set({L"--speed", L"200"}), Prints(State("S200", "5", "auto")));

    EXPECT_THAT(Kolmctl({L"--simulate", L"--tsv", L"iso"}), Prints(State("S200", "5", "auto"))) << "the camera kept it";
}

TEST_F(KolmctlIso, set_changes_the_channel_and_leaves_the_speed) {
    EXPECT_THAT(Set({L"--channel", L"63"}), Prints(State("S400", "63", "manual")));
    EXPECT_THAT(Set({L"--channel", L"0"}), Prints(State("S400", "0", "manual")));
    EXPECT_THAT(Set({L"--channel", L"auto"}).out, HasSubstr("\tauto\t0\t63\n"));
}

TEST_F(KolmctlIso, set_changes_both) {
    EXPECT_THAT(Set({L"--speed", L"S200", L"--channel", L"12"}), Prints(State("S200", "12", "manual")));
}

TEST_F(KolmctlIso, set_sends_the_speeds_index) {
    const ProcessOutcome outcome = Kolmctl({L"--simulate", L"trace", L"iso", L"set", L"--speed", L"S800"});

    EXPECT_EQ(outcome.exitCode, kSuccess) << outcome.err;
    EXPECT_THAT(outcome.out, HasSubstr("SET  property 54  64 bytes  0x00000000 S_OK\n      24  00000003 00000000 "));
}

TEST_F(KolmctlIso, set_refuses_what_the_camera_does_not_take_and_changes_nothing) {
    EXPECT_THAT(Set({L"--speed", L"S1600"}), Fails(kRefused, "cannot set the speed to S1600: 0x80070057 E_INVALIDARG"));
    EXPECT_THAT(Set({L"--speed", L"S1600"}), Fails(kRefused, "the camera takes speeds from S100 to S800\n"));
    EXPECT_THAT(Set({L"--channel", L"64"}), Fails(kRefused, "the camera takes channels from 0 to 63\n"));
    EXPECT_THAT(Set({L"--speed", L"S100", L"--channel", L"64"}), Fails(kRefused, "cannot set the channel to 64"));

    ExpectFactoryState();
}

TEST_F(KolmctlIso, shows_the_code_for_what_the_camera_lacks) {
    constexpr std::uint32_t kChannel = 55;
    ASSERT_TRUE(OpenCamera()->SetFeaturePresent(kChannel, false));

    EXPECT_THAT(Kolmctl({L"--simulate", L"iso"}), Fails(kRefused, "cannot read iso-channel: 0x80070490"));
    EXPECT_THAT(Set({L"--speed", L"S100", L"--channel", L"4"}), Fails(kRefused, "0x80070490 ERROR_NOT_FOUND"));
    ASSERT_TRUE(OpenCamera()->SetFeaturePresent(kChannel, true));
    ExpectFactoryState();
}

TEST_F(KolmctlIso, set_refuses_a_mode_that_the_channel_lacks) {
    constexpr std::uint32_t kChannel = 55;
    constexpr std::uint32_t kModes = 32;
    ASSERT_TRUE(OpenCamera()->SetFeatureWord(kChannel, kModes, kAutoBit));

    EXPECT_THAT(Set({L"--channel", L"4"}), Fails(kRefused, "cannot set the channel to 4: 0x80004001 E_NOTIMPL"));
    EXPECT_THAT(Set({L"--channel", L"4"}), Fails(kRefused, "iso-channel supports these modes: auto\n"));

    ExpectFactoryState();
}

TEST_F(KolmctlIso, set_refuses_wrong_usage_and_changes_nothing) {
    EXPECT_THAT(Set({}), Fails(kUsage, "nothing to set"));
    EXPECT_THAT(Set({L"--speed", L"fast"}), Fails(kUsage, "unknown speed \"fast\"\n  known are S100, S200, S400"));
    EXPECT_THAT(Set({L"--speed", L""}), Fails(kUsage, "unknown speed \"\""));
    EXPECT_THAT(Set({L"--speed", L"S100", L"--channel", L"any"}), Fails(kUsage, "not a channel number: \"any\""));

    ExpectFactoryState();
}

}  // namespace
}  // namespace kolmfluxor::test
