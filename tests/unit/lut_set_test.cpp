/// @file  The set of look-up tables: counts, access, texts of what it refuses; and how a table fills it.

#include "lut/lut_set.h"

#include <gtest/gtest.h>

#include <cstdint>
#include <stdexcept>
#include <string>
#include <tuple>
#include <typeinfo>
#include <vector>

#include "base/text_exception.h"
#include "lut/lut_info.h"
#include "lut/lut_loader.h"

namespace kolmfluxor::test {
namespace {

constexpr auto kUnknown = static_cast<LutType>(2);

/// The text of the exception of exactly this type; something else when there is none.
template <class Exception, class F> std::string TextOf(F&& call) {
    try {
        std::ignore = call();
    } catch (const std::exception& e) {
        return typeid(e) == typeid(Exception) ? e.what() : "(another exception was thrown)";
    }
    return "(nothing was thrown)";
}

/// Two LUTs of three values, valid.
CLutSet SetOf(LutType type) {
    CLutSet set;
    set.SetType(type);
    set.Resize8Bit(2);
    set.Resize16Bit(1);
    set.Luts8Bit()[1] = {.name = "eight", .values = {1, 2, 3}};
    set.Luts16Bit()[0] = {.name = "sixteen", .values = {1000, 2000, 3000}};
    set.SetValid(true);
    return set;
}

TEST(LutSet, is_not_valid_at_first) {
    const CLutSet set;
    EXPECT_FALSE(set.IsValid());
    EXPECT_EQ(set.Type(), LutType::bits8);
}

TEST(LutSet, counts_the_LUTs_of_its_type) {
    EXPECT_EQ(SetOf(LutType::bits8).GetLUTCount(), 2u);
    EXPECT_EQ(SetOf(LutType::bits16).GetLUTCount(), 1u);
    CLutSet set = SetOf(LutType::bits8);
    set.Resize8Bit(5);
    EXPECT_EQ(set.GetLUTCount(), 5u);
    set.Resize16Bit(6);
    EXPECT_EQ(set.GetLUTCount(), 5u);
}

TEST(LutSet, count_refuses_an_invalid_set_before_an_unknown_type) {
    CLutSet set = SetOf(kUnknown);
    EXPECT_EQ(TextOf<CTextException>([&] { return set.GetLUTCount(); }), "unknown LUT type");
    set.SetValid(false);
    EXPECT_EQ(TextOf<CTextException>([&] { return set.GetLUTCount(); }), "LUT not valid");
}

TEST(LutSet, gives_LUTs_of_its_own_type_only) {
    const CLutSet eight = SetOf(LutType::bits8);
    const CLutSet sixteen = SetOf(LutType::bits16);
    EXPECT_EQ(eight.Get8BitLUT(1).name, "eight");
    EXPECT_EQ(sixteen.Get16BitLUT(0).values[2], 3000);
    for (const CLutSet& other : {sixteen, SetOf(kUnknown)})
        EXPECT_EQ(TextOf<CTextException>([&] { return other.Get8BitLUT(9); }),
                  "can not access 8 bit LUT type incompatible");
    for (const CLutSet& other : {eight, SetOf(kUnknown)})
        EXPECT_EQ(TextOf<CTextException>([&] { return other.Get16BitLUT(9); }),
                  "can not access 16 bit LUT type incompatible");
}

TEST(LutSet, numbers_above_the_count_are_out_of_range) {
    const CLutSet eight = SetOf(LutType::bits8);
    const CLutSet sixteen = SetOf(LutType::bits16);
    const std::string text = "LUT number larger then size of LUT vector";
    EXPECT_EQ(TextOf<std::out_of_range>([&] { return eight.Get8BitLUT(3); }), text);
    EXPECT_EQ(TextOf<std::out_of_range>([&] { return sixteen.Get16BitLUT(2); }), text);
    EXPECT_EQ(TextOf<std::out_of_range>([&] { return eight.GetLUTName(3); }), text);
    EXPECT_EQ(TextOf<std::out_of_range>([&] { return sixteen.GetLUTName(2); }), text);
    EXPECT_EQ(TextOf<std::out_of_range>([&] { return eight.GetLUTByteSize(3); }),
              "lUT number larger then lUT vector size");
    EXPECT_EQ(TextOf<std::out_of_range>([&] { return sixteen.GetLUTByteSize(2); }),
              "lUT number larger then lUT vector size");
}

TEST(LutSet, a_number_equal_to_the_count_is_not_out_of_range) {
    const CLutSet eight = SetOf(LutType::bits8);
    const CLutSet sixteen = SetOf(LutType::bits16);
    EXPECT_TRUE(eight.Get8BitLUT(2).values.empty());
    EXPECT_TRUE(sixteen.Get16BitLUT(1).values.empty());
    EXPECT_EQ(eight.GetLUTName(2), "");
    EXPECT_EQ(eight.GetLUTByteSize(2), 0u);
    EXPECT_EQ(sixteen.GetLUTByteSize(1), 0u);
}

TEST(LutSet, names_of_either_type) {
    EXPECT_EQ(SetOf(LutType::bits8).GetLUTName(1), "eight");
    EXPECT_EQ(SetOf(LutType::bits16).GetLUTName(0), "sixteen");
    EXPECT_EQ(SetOf(kUnknown).GetLUTName(77), "") << "an unknown type has no names";
    CLutSet invalid = SetOf(LutType::bits8);
    invalid.SetValid(false);
    EXPECT_EQ(invalid.GetLUTName(1), "eight");
}

TEST(LutSet, sizes_are_in_bytes) {
    EXPECT_EQ(SetOf(LutType::bits8).GetLUTByteSize(1), 3u);
    EXPECT_EQ(SetOf(LutType::bits8).GetLUTByteSize(0), 0u);
    EXPECT_EQ(SetOf(LutType::bits16).GetLUTByteSize(0), 6u);
    CLutSet set = SetOf(kUnknown);
    EXPECT_EQ(TextOf<CTextException>([&] { return set.GetLUTByteSize(0); }), "lUT not initialized");
    set.SetValid(false);
    EXPECT_EQ(TextOf<CTextException>([&] { return set.GetLUTByteSize(0); }), "LUTs not initialized");
}

// -- From a table

CCsvTable TableOf(std::string_view text) {
    CCsvTable table;
    std::ignore = table.ReadText(text);
    return table;
}

TEST(LutLoader, one_byte_per_value_makes_8_bit_LUTs) {
    CLutSet set;
    EXPECT_TRUE(LoadLutSet(set, TableOf("In,A,B\n0,300,1\n1,2,3\n"), 1));

    EXPECT_TRUE(set.IsValid());
    EXPECT_EQ(set.Type(), LutType::bits8);
    ASSERT_EQ(set.GetLUTCount(), 2u);
    EXPECT_EQ(set.GetLUTName(0), "A");
    EXPECT_EQ(set.Get8BitLUT(0).values, (std::vector<std::uint8_t>{44, 2}));
    EXPECT_EQ(set.Get8BitLUT(1).values, (std::vector<std::uint8_t>{1, 3}));
}

TEST(LutLoader, two_bytes_per_value_make_16_bit_LUTs) {
    CLutSet set;
    EXPECT_TRUE(LoadLutSet(set, TableOf("In,A\n0,300\n1,70000\n"), 2));

    EXPECT_EQ(set.Type(), LutType::bits16);
    EXPECT_EQ(set.Get16BitLUT(0).values, (std::vector<std::uint16_t>{300, 70000 - 65536}));
    EXPECT_EQ(set.GetLUTByteSize(0), 4u);
}

TEST(LutLoader, a_set_takes_the_type_and_the_count_of_what_is_loaded_last) {
    CLutSet set;
    ASSERT_TRUE(LoadLutSet(set, TableOf("In,a,b,c\n0,1000,2000,3000\n"), 2));
    ASSERT_EQ(set.GetLUTCount(), 3u);

    EXPECT_TRUE(LoadLutSet(set, TableOf("In,A,B\n0,1,2\n1,3,4\n"), 1));
    EXPECT_EQ(set.Type(), LutType::bits8);
    ASSERT_EQ(set.GetLUTCount(), 2u);
    EXPECT_EQ(set.GetLUTName(0), "A");
    EXPECT_EQ(set.GetLUTName(1), "B");
    EXPECT_EQ(set.Get8BitLUT(1).values, (std::vector<std::uint8_t>{2, 4}));

    EXPECT_TRUE(LoadLutSet(set, TableOf("In,K\n0,500\n"), 2));
    EXPECT_EQ(set.Type(), LutType::bits16);
    ASSERT_EQ(set.GetLUTCount(), 1u) << "fewer than the 16-bit LUTs before";
    EXPECT_EQ(set.GetLUTName(0), "K");
    EXPECT_EQ(set.Get16BitLUT(0).values, std::vector<std::uint16_t>{500});

    EXPECT_TRUE(LoadLutSet(set, TableOf("In,Z\n0,7\n"), 1));
    ASSERT_EQ(set.GetLUTCount(), 1u) << "fewer than the 8-bit LUTs before";
    EXPECT_EQ(set.GetLUTName(0), "Z");
    EXPECT_EQ(set.Get8BitLUT(0).values, std::vector<std::uint8_t>{7});
}

TEST(LutLoader, other_widths_fill_nothing_and_leave_the_set_invalid) {
    for (const std::uint32_t width : {0u, 3u, 4u, 0xFFFFFFFFu}) {
        CLutSet set = SetOf(LutType::bits8);
        EXPECT_FALSE(LoadLutSet(set, TableOf("In,A\n0,300\n"), width));
        EXPECT_FALSE(set.IsValid());
        EXPECT_EQ(set.Get8BitLUT(1).name, "eight");
    }
}

TEST(LutLoader, a_table_that_is_none_leaves_the_set_invalid) {
    for (const char* text : {"", "a,b\n1\n", "header,only\n"}) {
        CLutSet set = SetOf(LutType::bits8);
        EXPECT_THROW(LoadLutSet(set, TableOf(text), 1), std::exception) << text;
        EXPECT_FALSE(set.IsValid());
    }
}

// -- What a camera tells of its LUTs

TEST(LutInfo, bytes_per_value_are_bits_rounded_up) {
    const struct {
        std::uint32_t bits, bytes;
    } rows[] = {{0, 0}, {1, 1}, {8, 1}, {9, 2}, {12, 2}, {16, 2}, {17, 3}, {24, 3}, {32, 4}, {0xFFFFFFFF, 0x20000000}};
    for (const auto& row : rows)
        EXPECT_EQ(LutInfo{.bitsPerValue = row.bits}.BytesPerValue(), row.bytes) << row.bits;
}

TEST(LutInfo, element_count_is_the_size_over_the_bytes_per_value) {
    EXPECT_EQ((LutInfo{.maxLutSize = 4096, .bitsPerValue = 8}.ElementCount()), 4096u);
    EXPECT_EQ((LutInfo{.maxLutSize = 4096, .bitsPerValue = 12}.ElementCount()), 2048u);
    EXPECT_EQ((LutInfo{.maxLutSize = 4097, .bitsPerValue = 16}.ElementCount()), 2048u) << "whole elements";
    EXPECT_EQ((LutInfo{.maxLutSize = 0, .bitsPerValue = 8}.ElementCount()), 0u);
    EXPECT_EQ((LutInfo{.maxLutSize = 4096, .bitsPerValue = 0}.ElementCount()), 0u) << "no division by zero";
    EXPECT_EQ((LutInfo{.maxLutSize = 0xFFFFFFFF, .bitsPerValue = 0xFFFFFFFF}.ElementCount()), 7u);
}

}  // namespace
}  // namespace kolmfluxor::test
