/// @file  The example program, built and run as a user would.

#include "system/support_kolmctl.h"

#include "support/module.h"

namespace kolmfluxor::test {
namespace {

extern "C" const CLSID CLSID_SampleGrabber;

using ::testing::EndsWith;
using ::testing::HasSubstr;
using ::testing::MatchesRegex;

class ExampleMinimalClient : public KolmctlTest {
protected:
    static ProcessOutcome Run() { return RunProcess(CModule::BesideTheTests(L"minimal_client.exe"), {}); }
};

TEST_F(ExampleMinimalClient, shows_the_camera_and_moves_its_gain_by_one_and_back) {
    const ProcessOutcome outcome = Run();

    EXPECT_EQ(outcome.exitCode, 0U) << outcome.err;
    EXPECT_EQ(outcome.err, "");
    EXPECT_THAT(outcome.out, MatchesRegex("camera: \\w.*\r\n"
                                          "driver: \\w.*\r\n"
                                          "serial number: \\d+\r\n"
                                          "gain: 64 .0 to 255.\r\n"
                                          "gain: 65\r\n"
                                          "gain: 64 again\r\n"));
    EXPECT_EQ(Word(kGain, kValue), 64U);
    EXPECT_EQ(Word(kGain, kMode), kManualBit);
}

TEST_F(ExampleMinimalClient, leaves_the_range_at_neither_end) {
    ASSERT_TRUE(OpenCamera()->SetFeatureWord(kGain, kValue, 255));

    const ProcessOutcome outcome = Run();

    EXPECT_EQ(outcome.exitCode, 0U) << outcome.err;
    EXPECT_THAT(outcome.out, EndsWith("\ngain: 255 (0 to 255)\r\ngain: 0\r\ngain: 255 again\r\n"));
    EXPECT_EQ(Word(kGain, kValue), 255U);
}

TEST_F(ExampleMinimalClient, gives_an_automatic_mode_back) {
    ASSERT_TRUE(OpenCamera()->SetFeatureWord(kGain, kMode, kAutoBit));

    EXPECT_EQ(Run().exitCode, 0U);

    EXPECT_EQ(Word(kGain, kMode), kAutoBit);
}

TEST_F(ExampleMinimalClient, passes_over_devices_of_another_kind) {
    const COtherDevice plain(L"A plain device", CLSID_SampleGrabber);

    EXPECT_EQ(Run().exitCode, 0U);
}

TEST_F(ExampleMinimalClient, fails_without_the_module) {
    Module().Unregister();

    const ProcessOutcome outcome = Run();

    EXPECT_EQ(outcome.exitCode, 1U);
    EXPECT_EQ(outcome.out, "");
    EXPECT_THAT(outcome.err, HasSubstr("no capture device offers the property set"));
}

TEST_F(ExampleMinimalClient, fails_when_a_call_does) {
    ASSERT_TRUE(OpenCamera()->SetFeaturePresent(kGain, false));

    const ProcessOutcome outcome = Run();

    EXPECT_EQ(outcome.exitCode, 1U);
    EXPECT_THAT(outcome.err, MatchesRegex("GetGainRange: 0x80070490\r\n"));
}

}  // namespace
}  // namespace kolmfluxor::test
