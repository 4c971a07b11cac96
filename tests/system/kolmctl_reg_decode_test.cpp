/// @file  kolmctl reg decode, and the fields in kolmctl reg dump.

#include "system/support_kolmctl.h"

#include <string>

namespace kolmfluxor::test {
namespace {

using ::testing::EndsWith;
using ::testing::HasSubstr;
using ::testing::Not;

constexpr std::uint32_t kTestImage = 0xF1000210;

class KolmctlRegDecode : public KolmctlTest {};

TEST_F(KolmctlRegDecode, shows_the_fields_of_what_the_camera_holds) {
    ASSERT_TRUE(OpenCamera()->PokeRegister(kTestImage, 0x80E00003));

    EXPECT_THAT(Kolmctl({L"--simulate", L"reg", L"decode", L"KolmTestImage"}),
                Prints("NAME           ADDRESS     HEX              VALUE\n"
                       "KolmTestImage  0xF1000210  0x80E00003  2162163715\n"
                       "\n"
                       "TestImage: 0xf1000210\n"
                       "  Presents: 1\n"
                       "  Image1Inq: 1\n"
                       "  Image2Inq: 1\n"
                       "  Image3Inq: 1\n"
                       "  Image4Inq: 0\n"
                       "  Image5Inq: 0\n"
                       "  Image6Inq: 0\n"
                       "  Image7Inq: 0\n"
                       "  ImageId: 3\n"));
}

TEST_F(KolmctlRegDecode, takes_names_and_addresses) {
    const ProcessOutcome byName = Kolmctl({L"reg", L"decode", L"brightness", L"0x82000123"});
    const ProcessOutcome byAddress = Kolmctl({L"reg", L"decode", L"0xF0F00800", L"2181038371"});

    EXPECT_EQ(byName.exitCode, kSuccess) << byName.err;
    EXPECT_THAT(byName.out, EndsWith("\nFeature: 0xf0f00800\n  Present: 1\n  AbsControl: 0\n  OnePush: 0\n"
                                     "  OnOff: 1\n  Auto: 0\n  Value: 291\n"));
    EXPECT_EQ(byAddress.out, byName.out);
}

TEST_F(KolmctlRegDecode, needs_no_camera_for_a_value_that_is_given) {
    Module().Unregister();

    EXPECT_EQ(Kolmctl({L"reg", L"decode", L"0xF0F00600", L"0xE0000000"}).exitCode, kSuccess);
    EXPECT_THAT(Kolmctl({L"--simulate", L"reg", L"decode", L"0xF0F00600"}), Fails(kNoDevice, "property set"));
}

TEST_F(KolmctlRegDecode, reads_once_without_a_value_and_never_with_one) {
    const ProcessOutcome reading = Kolmctl({L"--simulate", L"trace", L"reg", L"decode", L"Gain"});
    const ProcessOutcome given = Kolmctl({L"--simulate", L"trace", L"reg", L"decode", L"Gain", L"0"});

    EXPECT_EQ(reading.exitCode, kSuccess) << reading.err;
    EXPECT_THAT(reading.out, HasSubstr("Driver requests: 1 "));
    EXPECT_THAT(reading.out, HasSubstr("  1  GET  property 11  32 bytes  0x00000000 S_OK\n"
                                       "      24  f0f00820 00000000 "));
    EXPECT_EQ(given.exitCode, kSuccess) << given.err;
    EXPECT_THAT(given.out, Not(HasSubstr("property 11")));
}

TEST_F(KolmctlRegDecode, prints_json_with_an_array_of_fields) {
    EXPECT_THAT(Kolmctl({L"--json", L"reg", L"decode", L"KolmMaxResolution", L"0x03C00500"}),
                Prints("[\n"
                       "  {\n"
                       "    \"name\": \"KolmMaxResolution\",\n"
                       "    \"address\": \"0xF1000200\",\n"
                       "    \"hex\": \"0x03C00500\",\n"
                       "    \"value\": 62915840,\n"
                       "    \"layout\": \"MaxResolution: 0xf1000200\",\n"
                       "    \"fields\": [\n"
                       "      \"MaxWidth: 1280\",\n"
                       "      \"MaxHeight: 960\"\n"
                       "    ]\n"
                       "  }\n"
                       "]\n"));
}

TEST_F(KolmctlRegDecode, prints_tsv_with_the_fields_in_one_cell) {
    EXPECT_THAT(Kolmctl({L"--tsv", L"reg", L"decode", L"KolmMaxResolution", L"0x03C00500"}),
                Prints("name\taddress\thex\tvalue\tlayout\tfields\n"
                       "KolmMaxResolution\t0xF1000200\t0x03C00500\t62915840\tMaxResolution: 0xf1000200\t"
                       "MaxWidth: 1280, MaxHeight: 960\n"));
}

TEST_F(KolmctlRegDecode, prints_the_micro_sign_in_utf8) {
    EXPECT_THAT(Kolmctl({L"--tsv", L"reg", L"decode", L"KolmHDRKneePoint2", L"20"}),
                Prints("name\taddress\thex\tvalue\tlayout\tfields\n"
                       "KolmHDRKneePoint2\t0xF1000288\t0x00000014\t20\tKolmHDRKneePoint: 0xf1000288\t"
                       "Time \xC2\xB5s: 20\n"));
}

TEST_F(KolmctlRegDecode, gives_an_address_without_a_name_the_default_layout) {
    const ProcessOutcome outcome = Kolmctl({L"--tsv", L"reg", L"decode", L"0x12345678", L"1"});

    EXPECT_EQ(outcome.exitCode, kSuccess) << outcome.err;
    EXPECT_THAT(outcome.out, EndsWith("\n\t0x12345678\t0x00000001\t1\tDefault: 0x12345678\t"
                                      "Presents: 0, Auto: 0, OnePush: 0, OnOff: 0, Value: 1\n"));
}

TEST_F(KolmctlRegDecode, refuses_an_address_between_the_registers_of_format_7_and_reads_nothing) {
    for (const wchar_t* address : {L"0xF0F08080", L"0xF0F08002"}) {
        EXPECT_THAT(Kolmctl({L"--simulate", L"reg", L"decode", address}),
                    Fails(kUsage, "no register has the address 0xF0F080"));
    }
}

TEST_F(KolmctlRegDecode, refuses_what_is_no_register_and_no_value) {
    EXPECT_THAT(Kolmctl({L"reg", L"decode"}), Fails(kUsage, "REGISTER is required"));
    EXPECT_THAT(Kolmctl({L"reg", L"decode", L"bright"}), Fails(kUsage, "names that hold it are BrightnessInq"));
    EXPECT_THAT(Kolmctl({L"reg", L"decode", L"Brightness", L"much"}), Fails(kUsage, "not a value"));
    EXPECT_THAT(Kolmctl({L"reg", L"decode", L"Brightness", L"0x100000000"}), Fails(kUsage, "not a value"));
}

TEST_F(KolmctlRegDecode, shows_the_code_when_the_camera_refuses) {
    EXPECT_THAT(Kolmctl({L"--simulate", L"reg", L"decode", L"0x10000000"}),
                Fails(kRefused, "cannot read register 0x10000000: 0x8007"));
}

TEST_F(KolmctlRegDecode, dump_shows_the_fields_of_each_register) {
    ASSERT_TRUE(OpenCamera()->PokeRegister(kTestImage, 0x80E00003));

    const ProcessOutcome text = Kolmctl({L"--simulate", L"reg", L"dump", L"--filter", L"TestImage"});
    const ProcessOutcome json = Kolmctl({L"--simulate", L"--json", L"reg", L"dump", L"--filter", L"TestImage"});

    EXPECT_THAT(text, Prints("NAME           ADDRESS     HEX              VALUE  ERROR  FIELDS\n"
                             "KolmTestImage  0xF1000210  0x80E00003  2162163715         Presents: 1, Image1Inq: 1, "
                             "Image2Inq: 1, Image3Inq: 1, Image4Inq: 0, Image5Inq: 0, Image6Inq: 0, Image7Inq: 0, "
                             "ImageId: 3\n"));
    EXPECT_EQ(json.exitCode, kSuccess) << json.err;
    EXPECT_THAT(json.out, HasSubstr("    \"value\": 2162163715,\n"
                                    "    \"error\": null,\n"
                                    "    \"fields\": [\n"
                                    "      \"Presents: 1\",\n"));
    EXPECT_THAT(json.out, HasSubstr("      \"ImageId: 3\"\n    ]\n"));
}

TEST_F(KolmctlRegDecode, dump_has_fields_for_every_register) {
    const ProcessOutcome outcome = Kolmctl({L"--simulate", L"--json", L"reg", L"dump"});

    EXPECT_EQ(outcome.exitCode, kSuccess) << outcome.err;
    std::size_t arrays = 0;
    for (std::size_t at = outcome.out.find("\"fields\": [\n"); at != std::string::npos;
         at = outcome.out.find("\"fields\": [\n", at + 1))
        ++arrays;
    EXPECT_EQ(arrays, 358u);
}

}  // namespace
}  // namespace kolmfluxor::test
