/// @file  How the Info page writes its figures.

#include "pages/info_texts.h"

#include <algorithm>
#include <array>
#include <string>
#include <utility>
#include <vector>

#include <gtest/gtest.h>

namespace kolmfluxor {
namespace {

std::string Written(FigureFormatter format, std::uint32_t figure) {
    std::array<char, 64> buffer{};
    buffer.fill('#');
    format(buffer, figure);
    EXPECT_NE(std::ranges::find(buffer, '\0'), buffer.end()) << "no NUL";
    return buffer.data();
}

TEST(InfoTexts, decimal_numbers_are_signed) {
    EXPECT_EQ(Written(FormatDecimal, 0), "0");
    EXPECT_EQ(Written(FormatDecimal, 4096), "4096");
    EXPECT_EQ(Written(FormatDecimal, 0x7FFFFFFF), "2147483647");
    EXPECT_EQ(Written(FormatDecimal, 0x80000000), "-2147483648");
    EXPECT_EQ(Written(FormatDecimal, 0xFFFFFFFF), "-1");
}

TEST(InfoTexts, serial_numbers_have_eight_digits_with_leading_zeros) {
    EXPECT_EQ(Written(FormatSerialNumber, 1234), "00001234");
    EXPECT_EQ(Written(FormatSerialNumber, 0), "00000000");
    EXPECT_EQ(Written(FormatSerialNumber, 12345678), "12345678");
    EXPECT_EQ(Written(FormatSerialNumber, 2147483647), "2147483647");
    EXPECT_EQ(Written(FormatSerialNumber, 0xFFFFFFFF), "-0000001");
}

TEST(InfoTexts, versions_show_three_pairs_of_digits_and_leave_two_digits_out) {
    EXPECT_EQ(Written(FormatVersion, 0x01020304), "12.03.04");
    EXPECT_EQ(Written(FormatVersion, 0), "00.00.00");
    EXPECT_EQ(Written(FormatVersion, 0xFFFFFFFF), "ff.ff.ff");
    EXPECT_EQ(Written(FormatVersion, 0xF0F00000), "00.00.00") << "bits 20 to 23 and 28 to 31 are not shown";
    constexpr std::pair<std::uint32_t, const char*> kDigits[] = {
        {0x0A000000, "a0.00.00"}, {0x000A0000, "0a.00.00"}, {0x0000A000, "00.a0.00"},
        {0x00000A00, "00.0a.00"}, {0x000000A0, "00.00.a0"}, {0x0000000A, "00.00.0a"},
    };
    for (const auto& [figure, text] : kDigits)
        EXPECT_EQ(Written(FormatVersion, figure), text);
}

TEST(InfoTexts, bits_are_32_characters_the_most_significant_first) {
    EXPECT_EQ(Written(FormatBits, 0x80000001), "10000000000000000000000000000001");
    EXPECT_EQ(Written(FormatBits, 0), std::string(32, '0'));
    EXPECT_EQ(Written(FormatBits, 0xFFFFFFFF), std::string(32, '1'));
    for (unsigned bit = 0; bit < 32; ++bit) {
        std::string text(32, '0');
        text[31 - bit] = '1';
        EXPECT_EQ(Written(FormatBits, 1U << bit), text);
    }
}

TEST(InfoTexts, bits_need_33_characters_and_fill_up_a_larger_buffer) {
    for (const std::size_t size : {0U, 1U, 32U}) {
        std::vector<char> buffer(size, '#');
        FormatBits(buffer, 5);
        EXPECT_EQ(buffer, std::vector<char>(size, '#')) << size;
    }
    for (const std::size_t size : {33U, 64U}) {
        std::vector<char> buffer(size, '#');
        FormatBits(buffer, 5);
        EXPECT_EQ(std::string(buffer.data()), std::string(29, '0') + "101");
        EXPECT_TRUE(std::all_of(buffer.begin() + 32, buffer.end(), [](char c) { return c == '\0'; }));
    }
}

TEST(InfoTexts, other_formats_are_cut_to_the_buffer) {
    for (const FigureFormatter format : {FormatDecimal, FormatSerialNumber, FormatVersion}) {
        std::array<char, 8> buffer{};
        buffer.fill('#');
        format(std::span(buffer).first(4), 0x7FFFFFFF);
        EXPECT_EQ(buffer[3], '\0');
        EXPECT_EQ(buffer[4], '#') << "beyond the buffer";
        buffer.fill('#');
        format(std::span(buffer).first(0), 0x7FFFFFFF);
        EXPECT_EQ(buffer[0], '#') << "an empty buffer";
    }
}

}  // namespace
}  // namespace kolmfluxor
