/// @file  The audit of the decoders' tables: what it lets pass, and each thing that it finds.

#include "registers/decoder_table.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <array>

namespace kolmfluxor::test {
namespace {

constexpr RegisterField kGood[] = {{"A: %d", {31, 31}}, {"B: %x", {7, 0}}};
constexpr RegisterField kNoConversion[] = {{"A", {31, 31}}};
constexpr RegisterField kTwoConversions[] = {{"A: %d%d", {31, 31}}};
constexpr RegisterField kString[] = {{"A: %s", {31, 31}}};
constexpr RegisterField kFloatOfNumber[] = {{"A: %lf", {31, 0}}};
constexpr RegisterField kPartOfSigned[] = {{"A: %lf", {30, 0}, FieldKind::thousandths}};
constexpr RegisterField kNumberOfFloat[] = {{"A: %d", {31, 0}, FieldKind::thousandths}};
constexpr auto kLongFormat = [] {
    std::array<char, kLineSize> text{};
    text.fill('A');
    text[text.size() - 3] = '%';
    text[text.size() - 2] = 'd';
    text[text.size() - 1] = '\0';
    return text;
}();
constexpr RegisterField kLong[] = {{kLongFormat.data(), {31, 31}}};

template <std::size_t N> consteval bool Passes(const RegisterDecoder (&rows)[N]) {
    return WellFormed(rows);
}

static_assert(Passes({{0x100, 0x100, "H: 0x%x", kGood}, {0x104, 0x10C, "H x%x", kGood}}));
static_assert(!Passes({{0x100, 0x104, "H: 0x%x", kGood}, {0x104, 0x10C, "H: 0x%x", kGood}}), "overlap");
static_assert(!Passes({{0x104, 0x10C, "H: 0x%x", kGood}, {0x100, 0x100, "H: 0x%x", kGood}}), "not ascending");
static_assert(!Passes({{0x104, 0x100, "H: 0x%x", kGood}}), "ends before it begins");
static_assert(!Passes({{0x101, 0x104, "H: 0x%x", kGood}}), "does not begin at a register");
static_assert(!Passes({{0x100, 0x106, "H: 0x%x", kGood}}), "does not end at a register");
static_assert(!Passes({{0x100, 0x100, "H", kGood}}), "heading without the address");
static_assert(!Passes({{0x100, 0x100, "H: %d", kGood}}), "heading with a decimal address");
static_assert(!Passes({{0x100, 0x100, "H: 0x%x", {}}}), "no fields");
static_assert(!Passes({{0x100, 0x100, "H: 0x%x", kNoConversion}}));
static_assert(!Passes({{0x100, 0x100, "H: 0x%x", kTwoConversions}}));
static_assert(!Passes({{0x100, 0x100, "H: 0x%x", kString}}));
static_assert(!Passes({{0x100, 0x100, "H: 0x%x", kFloatOfNumber}}));
static_assert(!Passes({{0x100, 0x100, "H: 0x%x", kPartOfSigned}}));
static_assert(!Passes({{0x100, 0x100, "H: 0x%x", kNumberOfFloat}}));
static_assert(!Passes({{0x100, 0x100, "H: 0x%x", kLong}}), "longer than the buffer");

TEST(DecoderTable, has_this_many_rows) {
    EXPECT_EQ(IidcDecoders().size(), 29u);
    EXPECT_EQ(KolmDecoders().size(), 40u);
    EXPECT_EQ(Format7Decoders().size(), 25u);
}

TEST(DecoderTable, frame_rate_has_its_text_for_numbers_without_a_rate) {
    const auto rows = IidcDecoders();
    const auto rate = std::ranges::find(rows, 0xF0F00600U, &RegisterDecoder::first);
    ASSERT_NE(rate, rows.end());
    ASSERT_EQ(rate->fields.size(), 1u);
    EXPECT_STREQ(rate->fields[0].text, "FPS: OOB [%d]");
    EXPECT_EQ(rate->fields[0].kind, FieldKind::frameRate);
}

}  // namespace
}  // namespace kolmfluxor::test
