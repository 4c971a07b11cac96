/// @file  kolmctl raw get and raw set.

#include "system/support_kolmctl.h"

namespace kolmfluxor::test {
namespace {

using ::testing::HasSubstr;

class KolmctlRaw : public KolmctlTest {};

TEST_F(KolmctlRaw, get_shows_value_and_the_two_other_words) {
    EXPECT_THAT(Kolmctl({L"--simulate", L"raw", L"get", L"0"}),
                Prints("PROPERTY  VALUE  HEX         WORD AT 44  WORD AT 48\n"
                       "       0     64  0x00000040  0x00000000  0xE0010100\n"));
}

TEST_F(KolmctlRaw, get_prints_json) {
    EXPECT_THAT(Kolmctl({L"--simulate", L"--json", L"raw", L"get", L"0x0"}), Prints("[\n"
                                                                                    "  {\n"
                                                                                    "    \"property\": 0,\n"
                                                                                    "    \"value\": 64,\n"
                                                                                    "    \"hex\": \"0x00000040\",\n"
                                                                                    "    \"word44\": \"0x00000000\",\n"
                                                                                    "    \"word48\": \"0xE0010100\"\n"
                                                                                    "  }\n"
                                                                                    "]\n"));
}

TEST_F(KolmctlRaw, get_shows_the_code_for_an_unknown_property) {
    EXPECT_THAT(Kolmctl({L"--simulate", L"raw", L"get", L"999"}),
                Fails(kRefused, "cannot read driver property 999: 0x80070490 ERROR_NOT_FOUND"));
}

TEST_F(KolmctlRaw, set_sends_the_value_and_shows_what_it_sent) {
    EXPECT_THAT(Kolmctl({L"--simulate", L"raw", L"set", L"61", L"1"}),
                Prints("PROPERTY  VALUE  HEX         FLAG A  FLAG B\n"
                       "      61      1  0x00000001  no      no\n"));

    EXPECT_THAT(Kolmctl({L"--simulate", L"--tsv", L"raw", L"get", L"61"}).out, HasSubstr("\n61\t1\t0x00000001\t"))
        << "the camera kept it";
}

TEST_F(KolmctlRaw, set_sends_its_flags) {
    const auto sent = [](const std::vector<std::wstring>& flags) {
        std::vector<std::wstring> arguments = {L"--simulate", L"trace", L"raw", L"set", L"61", L"1"};
        arguments.insert(arguments.end(), flags.begin(), flags.end());
        return Kolmctl(arguments).out;
    };

    EXPECT_THAT(sent({}), HasSubstr("      24  00000001 00000000 00000000 00000000  ->"));
    EXPECT_THAT(sent({L"--flag-a"}), HasSubstr("      24  00000001 00010000 00000000 00000000  ->"));
    EXPECT_THAT(sent({L"--flag-b"}), HasSubstr("      24  00000001 00020000 00000000 00000000  ->"));
    EXPECT_THAT(sent({L"--flag-a", L"--flag-b"}), HasSubstr("      24  00000001 00030000 00000000 00000000  ->"));
    EXPECT_THAT(sent({L"--flag-a"}), HasSubstr("Driver requests: 1 "));
}

TEST_F(KolmctlRaw, set_shows_the_code_for_an_unknown_property) {
    EXPECT_THAT(Kolmctl({L"--simulate", L"raw", L"set", L"999", L"1"}),
                Fails(kRefused, "cannot set driver property 999 to 1: 0x80070490"));
}

TEST_F(KolmctlRaw, refuses_what_is_no_number) {
    EXPECT_THAT(Kolmctl({L"--simulate", L"raw", L"get", L"gain"}), Fails(kUsage, "not a property number: \"gain\""));
    EXPECT_THAT(Kolmctl({L"--simulate", L"raw", L"set", L"gain", L"1"}), Fails(kUsage, "not a property number"));
    EXPECT_THAT(Kolmctl({L"--simulate", L"raw", L"set", L"61", L"on"}), Fails(kUsage, "not a value: \"on\""));
    EXPECT_THAT(Kolmctl({L"--simulate", L"raw", L"set", L"61"}), Fails(kUsage, "VALUE is required"));
    EXPECT_THAT(Kolmctl({L"--simulate", L"raw"}), Fails(kUsage, "A subcommand is required"));
}

}  // namespace
}  // namespace kolmfluxor::test
