/// @file  Hexadecimal and binary texts of edits.

#include "base/hex_text.h"

#include <gtest/gtest.h>

#include <optional>
#include <string>
#include <string_view>

namespace kolmfluxor::test {
namespace {

TEST(HexText, is_cut_after_its_leading_digits) {
    EXPECT_EQ(CutHexText("f0f0z800"), "f0f0");
    EXPECT_EQ(CutHexText("1 2"), "1");
    EXPECT_EQ(CutHexText("0x12"), "0");
    EXPECT_EQ(CutHexText("12h"), "12");
}

TEST(HexText, of_digits_only_is_not_cut) {
    EXPECT_EQ(CutHexText("0123456789abcdefABCDEF"), std::nullopt);
    EXPECT_EQ(CutHexText(""), std::nullopt);
}

TEST(HexText, keeps_a_first_character_that_is_no_digit) {
    EXPECT_EQ(CutHexText("x12"), "x");
    EXPECT_EQ(CutHexText("x"), "x");
    EXPECT_EQ(CutHexText(" 12"), " ");
    EXPECT_EQ(CutHexText("\xB5s"), "\xB5") << "a character above 127";
}

TEST(HexText, has_no_digits_but_these_sixteen_in_two_cases) {
    for (int c = 1; c < 256; ++c) {
        const std::string text = {'a', static_cast<char>(c)};
        const bool digit = (c >= '0' && c <= '9') || (c >= 'a' && c <= 'f') || (c >= 'A' && c <= 'F');
        EXPECT_EQ(CutHexText(text), digit ? std::nullopt : std::optional<std::string_view>("a")) << c;
    }
}

TEST(HexText, parses_what_the_percent_x_format_takes) {
    EXPECT_EQ(ParseHexText("f0f00800"), 0xF0F00800U);
    EXPECT_EQ(ParseHexText("F0f0"), 0xF0F0U);
    EXPECT_EQ(ParseHexText("  0x1A"), 0x1AU);
    EXPECT_EQ(ParseHexText("12 34"), 0x12U);
    EXPECT_EQ(ParseHexText("-1"), 0xFFFFFFFFU);
}

TEST(HexText, without_a_digit_counts_as_0) {
    for (const char* text : {"", " ", "x", "x12", "-", "0x", "\xB5"})
        EXPECT_EQ(ParseHexText(text), 0U) << text;
}

TEST(HexText, longer_than_32_bits_keeps_its_low_ones_and_longer_than_64_is_all_ones) {
    EXPECT_EQ(ParseHexText("123456789"), 0x23456789U);
    EXPECT_EQ(ParseHexText("ffffffff00000001"), 1U);
    EXPECT_EQ(ParseHexText("10000000000000000"), 0xFFFFFFFFU) << "more than 16 digits";
    EXPECT_EQ(ParseHexText(std::string(255, 'f')), 0xFFFFFFFFU);
}

TEST(HexText, is_written_in_lower_case_without_a_prefix) {
    EXPECT_EQ(HexText(0xF0F00800), "f0f00800");
    EXPECT_EQ(HexText(0), "0");
    EXPECT_EQ(HexText(0xFFFFFFFF), "ffffffff");
}

TEST(BinaryText, has_32_digits_with_bit_31_first) {
    EXPECT_EQ(BinaryText(0x80000000), "1" + std::string(31, '0'));
    EXPECT_EQ(BinaryText(0), std::string(32, '0'));
    EXPECT_EQ(BinaryText(0xA5000001), "10100101000000000000000000000001");
}

}  // namespace
}  // namespace kolmfluxor::test
