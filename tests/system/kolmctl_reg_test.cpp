/// @file  kolmctl reg read, reg write and reg dump.

#include "system/support_kolmctl.h"

#include <algorithm>
#include <iomanip>
#include <sstream>

namespace kolmfluxor::test {
namespace {

using ::testing::HasSubstr;
using ::testing::Not;
using ::testing::StartsWith;

constexpr std::uint32_t kBrightness = 0xF0F00800;
constexpr std::uint32_t kTestImage = 0xF1000210;
constexpr std::uint32_t kNoRegister = 0x10000000;

class KolmctlReg : public KolmctlTest {
protected:
    [[nodiscard]] std::uint32_t Register(std::uint32_t address) const {
        std::uint32_t word = 0xDEADBEEF;
        EXPECT_TRUE(OpenCamera()->PeekRegister(address, &word)) << std::hex << address;
        return word;
    }

    void SetRegister(std::uint32_t address, std::uint32_t word) const {
        ASSERT_TRUE(OpenCamera()->PokeRegister(address, word)) << std::hex << address;
    }

    static std::string Hex(std::uint32_t word) {
        std::ostringstream text;
        text << "0x" << std::uppercase << std::hex << std::setw(8) << std::setfill('0') << word;
        return text.str();
    }
};

TEST_F(KolmctlReg, read_takes_names_and_addresses) {
    const std::uint32_t brightness = Register(kBrightness);
    const std::string row = "Brightness\t0xF0F00800\t" + Hex(brightness) + "\t" + std::to_string(brightness) + "\n";

    EXPECT_THAT(
        Kolmctl({L"--simulate", L"--tsv", L"reg", L"read", L"Brightness", L"brightness", L"0xF0F00800", L"4042262528"}),
        Prints("name\taddress\thex\tvalue\n" + row + row + row + row));
}

TEST_F(KolmctlReg, read_shows_what_the_camera_has) {
    SetRegister(kTestImage, Register(kTestImage) | 0x1);

    const ProcessOutcome outcome = Kolmctl({L"--simulate", L"reg", L"read", L"KolmTestImage"});

    EXPECT_EQ(outcome.exitCode, kSuccess) << outcome.err;
    EXPECT_THAT(outcome.out, StartsWith("NAME           ADDRESS     HEX "));
    EXPECT_THAT(outcome.out, HasSubstr("\nKolmTestImage  0xF1000210  " + Hex(Register(kTestImage)) + "  "));
}

TEST_F(KolmctlReg, read_prints_json_with_the_value_as_a_number) {
    const std::uint32_t brightness = Register(kBrightness);

    EXPECT_THAT(Kolmctl({L"--simulate", L"--json", L"reg", L"read", L"Brightness"}),
                Prints("[\n"
                       "  {\n"
                       "    \"name\": \"Brightness\",\n"
                       "    \"address\": \"0xF0F00800\",\n"
                       "    \"hex\": \"" +
                       Hex(brightness) +
                       "\",\n"
                       "    \"value\": " +
                       std::to_string(brightness) +
                       "\n"
                       "  }\n"
                       "]\n"));
}

TEST_F(KolmctlReg, read_is_one_request_a_register) {
    const ProcessOutcome outcome = Kolmctl({L"--simulate", L"trace", L"reg", L"read", L"Brightness", L"Gain"});

    EXPECT_EQ(outcome.exitCode, kSuccess) << outcome.err;
    EXPECT_THAT(outcome.out, HasSubstr("Driver requests: 2 "));
    EXPECT_THAT(outcome.out, HasSubstr("  1  GET  property 11  32 bytes  0x00000000 S_OK\n"
                                       "      24  f0f00800 00000000 "));
    EXPECT_THAT(outcome.out, HasSubstr("  2  GET  property 11  32 bytes  0x00000000 S_OK\n"
                                       "      24  f0f00820 00000000 "));
}

TEST_F(KolmctlReg, read_shows_the_code_for_an_address_without_a_register) {
    std::uint32_t word = 0;
    ASSERT_FALSE(OpenCamera()->PeekRegister(kNoRegister, &word));

    EXPECT_THAT(Kolmctl({L"--simulate", L"reg", L"read", L"Brightness", L"0x10000000"}),
                Fails(kRefused, "cannot read register 0x10000000: 0x8007"));
}

TEST_F(KolmctlReg, refuses_an_unknown_name_and_tells_similar_ones) {
    const ProcessOutcome similar = Kolmctl({L"--simulate", L"reg", L"read", L"bright"});
    const ProcessOutcome strange = Kolmctl({L"--simulate", L"reg", L"read", L"Brightness", L"Lightness"});
    const ProcessOutcome common = Kolmctl({L"--simulate", L"reg", L"write", L"Kolm", L"1"});

    EXPECT_THAT(similar,
                Fails(kUsage, "unknown register \"bright\"\n  names that hold it are BrightnessInq, Brightness\n"));
    EXPECT_THAT(strange, Fails(kUsage, "unknown register \"Lightness\"\n  \"kolmctl reg dump\" lists the names"));
    EXPECT_THAT(common, Fails(kUsage, "\"kolmctl reg dump\" lists the names")) << "too many to tell";
}

TEST_F(KolmctlReg, write_shows_what_was_written_and_what_reads_back) {
    const std::uint32_t written = (Register(kBrightness) & ~0xFFFU) | 77;

    const ProcessOutcome outcome =
        Kolmctl({L"--simulate", L"--tsv", L"reg", L"write", L"Brightness", std::to_wstring(written)});

    const std::uint32_t now = Register(kBrightness);
    EXPECT_THAT(outcome, Prints("name\taddress\twritten\thex\tvalue\nBrightness\t0xF0F00800\t" + Hex(written) + "\t" +
                                Hex(now) + "\t" + std::to_string(now) + "\n"));
    EXPECT_EQ(now & 0xFFFU, 77U);
    EXPECT_THAT(Kolmctl({L"--simulate", L"--tsv", L"get", L"brightness"}), Prints("feature\tid\tvalue\tmode\n"
                                                                                  "brightness\t256\t77\tmanual\n"))
        << "the register is the feature";
}

TEST_F(KolmctlReg, write_is_a_set_and_a_get) {
    const ProcessOutcome outcome = Kolmctl({L"--simulate", L"trace", L"reg", L"write", L"0xF1000210", L"0x2"});

    EXPECT_EQ(outcome.exitCode, kSuccess) << outcome.err;
    EXPECT_THAT(outcome.out, HasSubstr("Driver requests: 2 "));
    EXPECT_THAT(outcome.out, HasSubstr("  1  SET  property 11  32 bytes  0x00000000 S_OK\n"
                                       "      24  f1000210 00000002 "));
    EXPECT_THAT(outcome.out, HasSubstr("  2  GET  property 11  32 bytes  0x00000000 S_OK\n"
                                       "      24  f1000210 00000000 "));
}

TEST_F(KolmctlReg, write_shows_the_code_for_an_address_without_a_register) {
    EXPECT_THAT(Kolmctl({L"--simulate", L"reg", L"write", L"0x10000000", L"1"}),
                Fails(kRefused, "cannot write 0x00000001 to register 0x10000000: 0x8007"));
}

TEST_F(KolmctlReg, write_refuses_what_is_no_value_and_sends_nothing) {
    const std::uint32_t before = Register(kBrightness);

    for (const wchar_t* text : {L"abc", L"-1", L"0x100000000", L""}) {
        EXPECT_THAT(Kolmctl({L"--simulate", L"reg", L"write", L"Brightness", text}), Fails(kUsage, "not a value"))
            << text;
    }
    EXPECT_THAT(Kolmctl({L"--simulate", L"reg", L"write", L"Brightness"}), Fails(kUsage, "VALUE is required"));

    EXPECT_EQ(Register(kBrightness), before);
}

TEST_F(KolmctlReg, dump_lists_every_register_and_no_progress_off_a_terminal) {
    const ProcessOutcome outcome = Kolmctl({L"--simulate", L"--tsv", L"reg", L"dump"});

    EXPECT_EQ(outcome.exitCode, kSuccess);
    EXPECT_EQ(outcome.err, "");
    EXPECT_EQ(std::ranges::count(outcome.out, '\n'), 359) << "a heading and 358 registers";
    EXPECT_THAT(outcome.out, StartsWith("name\taddress\thex\tvalue\terror\tfields\nInitialize\t0xF0F00000\t"));
    const std::uint32_t brightness = Register(kBrightness);
    EXPECT_THAT(outcome.out, HasSubstr("\nBrightness\t0xF0F00800\t" + Hex(brightness) + "\t" +
                                       std::to_string(brightness) + "\t\tPresent: 1, AbsControl: "));
    EXPECT_THAT(outcome.out, HasSubstr("\nKolmTRiggerCounter\t0xF1000620\t"));
}

TEST_F(KolmctlReg, dump_keeps_to_the_filter) {
    const ProcessOutcome outcome = Kolmctl({L"--simulate", L"--tsv", L"reg", L"dump", L"--filter", L"kolmlut"});

    EXPECT_EQ(outcome.exitCode, kSuccess) << outcome.err;
    EXPECT_EQ(std::ranges::count(outcome.out, '\n'), 4);
    for (const char* name : {"\nKolmLUTCtrl\t", "\nKolmLUTMemCtrl\t", "\nKolmLUTInfo\t"}) {
        EXPECT_THAT(outcome.out, HasSubstr(name));
    }
}

TEST_F(KolmctlReg, dump_with_a_filter_that_nothing_passes_is_refused) {
    EXPECT_THAT(Kolmctl({L"--simulate", L"reg", L"dump", L"--filter", L"zebra"}),
                Fails(kUsage, "no register has \"zebra\" in its name"));
}

TEST_F(KolmctlReg, dump_prints_json_with_null_for_no_error) {
    const ProcessOutcome outcome = Kolmctl({L"--simulate", L"--json", L"reg", L"dump", L"--filter", L"LUTInfo"});

    EXPECT_EQ(outcome.exitCode, kSuccess) << outcome.err;
    EXPECT_THAT(outcome.out, HasSubstr("    \"error\": null,\n"));
    EXPECT_THAT(outcome.out, Not(HasSubstr("\"value\": null")));
}

TEST_F(KolmctlReg, needs_to_know_what_to_do) {
    EXPECT_THAT(Kolmctl({L"reg"}), Fails(kUsage, "A subcommand is required"));
    EXPECT_THAT(Kolmctl({L"reg", L"fly"}), Fails(kUsage, "unknown subcommand \"fly\""));
    EXPECT_THAT(Kolmctl({L"reg", L"read"}), Fails(kUsage, "REGISTER is required"));
}

}  // namespace
}  // namespace kolmfluxor::test
