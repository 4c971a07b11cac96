/// @file  Register decoders: what is special about some, each by name.

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "unit/line_list.h"

namespace kolmfluxor::test {
namespace {

using Texts = std::vector<std::string>;

/// The lines of the fields only.
Texts Fields(std::uint32_t address, std::uint32_t value) {
    Texts texts = Decoded(address, value);
    texts.erase(texts.begin(), texts.begin() + 2);
    return texts;
}

std::string Heading(std::uint32_t address) {
    return Decoded(address, 0).at(1);
}

TEST(Decoder, puts_the_heading_after_the_value_and_the_fields_under_the_value) {
    EXPECT_EQ(Decoded(0xF0F00800, 0x82000123),
              (Texts{"Value: 0x82000123", "Feature: 0xf0f00800", "  Present: 1", "  AbsControl: 0", "  OnePush: 0",
                     "  OnOff: 1", "  Auto: 0", "  Value: 291"}));
}

TEST(Decoder, shows_a_value_of_zero_in_full) {
    EXPECT_EQ(Decoded(0xF0F00100, 0), (Texts{"Value: 0x0", "VideoFormatInq: 0xf0f00100", "  Format0: 0", "  Format1: 0",
                                             "  Format2: 0", "  Format6: 0", "  Format7: 0"}));
}

TEST(Decoder, default_layout_has_Auto_before_OnePush) {
    for (const std::uint32_t address : {0xF1000100U, 0x12345678U}) {
        EXPECT_EQ(Fields(address, 0x05000FFF),
                  (Texts{"  Presents: 0", "  Auto: 1", "  OnePush: 1", "  OnOff: 0", "  Value: 4095"}));
    }
    EXPECT_EQ(Heading(0xF1000100), "Default: 0xf1000100");
    EXPECT_EQ(Heading(0x12345678), "Default: 0x12345678");
}

TEST(Decoder, catalogue_registers_without_a_layout_have_the_default_one) {
    for (const std::uint32_t address : {0xF0F0018CU, 0xF0F00198U, 0xF0F0040CU, 0xF0F00610U, 0xF0F00880U, 0xF1000100U,
                                        0xF1000440U, 0xF1000550U, 0xF1000620U}) {
        EXPECT_EQ(Heading(address).substr(0, 10), "Default: 0") << std::hex << address;
    }
}

TEST(Decoder, an_address_inside_a_run_that_is_no_multiple_of_4_has_the_default_layout) {
    EXPECT_EQ(Heading(0xF0F00201), "Default: 0xf0f00201");
    EXPECT_EQ(Heading(0xF0F00806), "Default: 0xf0f00806");
    EXPECT_EQ(Heading(0xF10003A7), "Default: 0xf10003a7");
}

TEST(Decoder, frame_rates_have_texts_of_their_own) {
    const char* const texts[] = {"  FPS: 1.875 [0]", "  FPS: 3.75 [1]", "  FPS: 7.5 [2]", "  FPS: 15 [3]",
                                 "  FPS: 30 [4]",    "  FPS: 60 [5]",   "  FPS: 120 [6]", "  FPS: 240 [7]"};
    for (std::uint32_t rate = 0; rate < 8; ++rate) {
        EXPECT_EQ(Fields(0xF0F00600, rate << 29), Texts{texts[rate]});
        EXPECT_EQ(Fields(0xF0F00600, rate << 29 | 0x1FFFFFFF), Texts{texts[rate]});
    }
}

TEST(Decoder, color_coefficients_are_signed_thousandths) {
    EXPECT_EQ(Fields(0xF10003A4, 0xFFFFFC18), Texts{"  Value: -1.000000"});
    EXPECT_EQ(Fields(0xF10003C4, 1234), Texts{"  Value: 1.234000"});
    EXPECT_EQ(Fields(0xF10003B4, 0x80000000), Texts{"  Value: -2147483.648000"});
    EXPECT_EQ(Fields(0xF10003B4, 0x7FFFFFFF), Texts{"  Value: 2147483.647000"});
}

TEST(Decoder, addresses_are_four_times_the_value_and_wrap) {
    EXPECT_EQ(Fields(0xF0F00484, 0x3C3C2000), Texts{"  Address: f0f08000"});
    EXPECT_EQ(Fields(0xF0F002FC, 0xC0000001), Texts{"  Address: 4"});
}

TEST(Decoder, the_address_of_the_advanced_features_is_decimal) {
    EXPECT_EQ(Fields(0xF0F00480, 0x10), Texts{"  Address: 64"});
    EXPECT_EQ(Fields(0xF0F00480, 0x3FFFFFFF), Texts{"  Address: -4"});
    for (const std::uint32_t neighbor : {0xF0F00484U, 0xF0F00488U, 0xF0F0048CU})
        EXPECT_EQ(Fields(neighbor, 0x10), Texts{"  Address: 40"});
}

TEST(Decoder, whole_words_are_signed) {
    EXPECT_EQ(Fields(0xF0F08034, 0xFFFFFFFF), Texts{"  PixelPerFrame: -1"});
    EXPECT_EQ(Fields(0xF0F08020, 0x80000000), Texts{"  Res: -2147483648"});
}

TEST(Decoder, the_micro_sign_is_byte_B5) {
    for (const std::uint32_t address : {0xF1000284U, 0xF1000288U, 0xF100028CU})
        EXPECT_EQ(Fields(address, 0xFFFF0102), Texts{"  Time \xB5s: 258"});
}

TEST(Decoder, the_software_trigger_has_the_heading_of_the_mode_error) {
    EXPECT_EQ(Heading(0xF0F0062C), "VModeErrorState: 0xf0f0062c");
    EXPECT_EQ(Fields(0xF0F0062C, 0x80000000), Texts{"  SoftTrigger: 1"});
}

TEST(Decoder, the_white_balances_presence_goes_by_Address) {
    EXPECT_EQ(Fields(0xF0F0080C, 0x80000000).front(), "  Address: 1");
}

TEST(Decoder, labels_keep_their_odd_colons) {
    EXPECT_EQ(Fields(0xF0F00830, 0x80000000).front(), "  :Present 1");
    EXPECT_EQ(Fields(0xF0F00614, 0x80000000), Texts{"  ContShot 1"});
}

TEST(Decoder, the_maximum_resolution_has_its_width_in_the_low_half) {
    EXPECT_EQ(Fields(0xF1000200, 0x03C00500), (Texts{"  MaxWidth: 1280", "  MaxHeight: 960"}));
}

TEST(Decoder, the_sequence_control_is_labelled_as_the_look_up_tables) {
    EXPECT_EQ(Heading(0xF1000220), "Sequence Control: 0xf1000220");
    EXPECT_EQ(Fields(0xF1000220, 0x8200003F), (Texts{"  Presents: 1", "  OnOff: 1", "  LUTNr: 63"}));
}

TEST(Decoder, the_frame_counter_goes_by_Presents) {
    EXPECT_EQ(Fields(0xF1000274, 123456), Texts{"  Presents: 123456"});
}

TEST(Decoder, an_outputs_mode_goes_by_InputMode) {
    EXPECT_EQ(Fields(0xF1000320, 0x001F0000).at(3), "  InputMode: 31");
}

TEST(Decoder, the_limits_of_the_auto_shutter_show_six_bits_as_Presents) {
    EXPECT_EQ(Fields(0xF1000364, 0xFC000000), Texts{"  Presents: 63"});
    EXPECT_EQ(Fields(0xF1000368, 0x03FFFFFF), Texts{"  Presents: 0"});
}

TEST(Decoder, headings_keep_their_spellings) {
    EXPECT_EQ(Heading(0xF1000400), "De fault: 0xf1000400");
    EXPECT_EQ(Heading(0xF1000340), "KolmDeleyedIntEna: 0xf1000340");
    EXPECT_EQ(Heading(0xF1000244), "KolmLUTMemorControl: 0xf1000244");
    EXPECT_EQ(Heading(0xF1000010), "KolmVersionInfo1: 0xf1000010");
}

TEST(Decoder, Format_7_unit_height_repeats_the_width) {
    EXPECT_EQ(Fields(0xF0F08004, 0x00080004), (Texts{"  UWidth: 8", "  UHeight: 8"}));
}

TEST(Decoder, Format_7_Mono12_is_the_bit_of_SMono12) {
    EXPECT_EQ(Fields(0xF0F08024, 0x02000000), (Texts{"  Raw12: 0", "  SRGB12: 0", "  SMono12: 1", "  RGB12: 0",
                                                     "  Mono12: 1", "  MonoB: 0", "  MonoG: 0", "  MonoR: 0"}));
}

TEST(Decoder, Format_7_headings_name_the_offset_and_only_its_low_byte_counts) {
    EXPECT_EQ(Heading(0xF0F0F07C), "Format 7 Value Setting x7c");
    EXPECT_EQ(Heading(0xF0F09100), "Format 7 Max image size: 0x0");
    EXPECT_EQ(Heading(0xF0F09F10), "Format 7 Color coding 0x10");
}

TEST(Decoder, beyond_a_Format_7_modes_registers_there_is_only_the_value) {
    for (const std::uint32_t address : {0xF0F08080U, 0xF0F080FCU, 0xF0F08001U, 0xF0F0F07EU}) {
        CLineList list;
        EXPECT_FALSE(DecodeRegister(address, 7, list.Root(), list)) << std::hex << address;
        EXPECT_EQ(list.Texts(), Texts{"Value: 0x7"});
    }
}

}  // namespace
}  // namespace kolmfluxor::test
