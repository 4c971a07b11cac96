/// @file  kolmctl list.

#include "system/support_kolmctl.h"

namespace kolmfluxor::test {
namespace {

extern "C" const CLSID CLSID_SampleGrabber;

// {6D1A5C55-2D4C-4B0B-9C0D-7A1B93E8F001}: no class of this id exists
constexpr CLSID kMissingClass = {0x6D1A5C55, 0x2D4C, 0x4B0B, {0x9C, 0x0D, 0x7A, 0x1B, 0x93, 0xE8, 0xF0, 0x01}};

const std::string kColorName =
    "@device:sw:{860BB310-5D01-11D0-BD3B-00A0C911CE86}\\{0E79EF7D-6A17-4DE4-9FDF-A94FEB69860B}";
const std::string kMonoName =
    "@device:sw:{860BB310-5D01-11D0-BD3B-00A0C911CE86}\\{44B885A0-5ACE-448D-91C1-98C06F8A5103}";

class KolmctlList : public KolmctlTest {};

TEST_F(KolmctlList, shows_both_simulated_cameras) {
    EXPECT_THAT(Kolmctl({L"list"}), Prints("NAME                                 PROPERTY SET  DISPLAY NAME\n"
                                           "KolmFluxor simulated camera (color)  yes           " +
                                           kColorName +
                                           "\n"
                                           "KolmFluxor simulated camera (mono)   yes           " +
                                           kMonoName + "\n"));
}

TEST_F(KolmctlList, prints_tab_separated_values) {
    EXPECT_THAT(Kolmctl({L"list", L"--tsv"}), Prints("name\tpropertySet\tdisplayName\n"
                                                     "KolmFluxor simulated camera (color)\tyes\t" +
                                                     kColorName +
                                                     "\n"
                                                     "KolmFluxor simulated camera (mono)\tyes\t" +
                                                     kMonoName + "\n"));
}

TEST_F(KolmctlList, prints_json) {
    CaptureFilter().Unregister();
    const COtherDevice plain(L"Plain", CLSID_SampleGrabber);

    const ProcessOutcome outcome = Kolmctl({L"--json", L"list"});

    EXPECT_EQ(outcome.exitCode, kSuccess);
    EXPECT_THAT(outcome.out, ::testing::StartsWith("[\n"
                                                   "  {\n"
                                                   "    \"name\": \"Plain\",\n"
                                                   "    \"propertySet\": false,\n"
                                                   "    \"displayName\": \"@device:sw:{860BB310-"));
    EXPECT_THAT(outcome.out, ::testing::EndsWith("\"\n  }\n]\n"));
}

TEST_F(KolmctlList, prints_names_in_utf8) {
    const COtherDevice plain(L"Kamera \x00FC \x20AC", CLSID_SampleGrabber);

    const ProcessOutcome outcome = Kolmctl({L"list"});

    EXPECT_EQ(outcome.exitCode, kSuccess);
    EXPECT_THAT(outcome.out, ::testing::HasSubstr("\nKamera \xC3\xBC \xE2\x82\xAC                           no   "));
}

TEST_F(KolmctlList, shows_a_device_that_cannot_be_opened_and_says_why) {
    const COtherDevice broken(L"Broken", kMissingClass);

    const ProcessOutcome outcome = Kolmctl({L"list"});

    EXPECT_EQ(outcome.exitCode, kSuccess);
    EXPECT_THAT(outcome.out, ::testing::HasSubstr("\nBroken                               no   "));
    EXPECT_EQ(outcome.err, "kolmctl: cannot open \"Broken\": 0x80040154 REGDB_E_CLASSNOTREG (class not registered)\n");
}

TEST_F(KolmctlList, tells_that_cameras_offer_no_property_set_without_the_module) {
    Module().Unregister();

    EXPECT_THAT(Kolmctl({L"list", L"--tsv"}), Prints("name\tpropertySet\tdisplayName\n"
                                                     "KolmFluxor simulated camera (color)\tno\t" +
                                                     kColorName +
                                                     "\n"
                                                     "KolmFluxor simulated camera (mono)\tno\t" +
                                                     kMonoName + "\n"));
}

TEST_F(KolmctlList, without_devices_is_empty) {
    CaptureFilter().Unregister();

    const ProcessOutcome outcome = Kolmctl({L"list", L"--json"});

    EXPECT_EQ(outcome.exitCode, kSuccess);
    EXPECT_EQ(outcome.out, "[]\n");
    EXPECT_EQ(outcome.err, "kolmctl: there is no capture device\n");
}

TEST_F(KolmctlList, takes_no_argument) {
    EXPECT_THAT(Kolmctl({L"list", L"all"}), Fails(kUsage, "all"));
}

}  // namespace
}  // namespace kolmfluxor::test
