#include "base/bit_field.h"

#include <gtest/gtest.h>

namespace kolmfluxor {
namespace {

TEST(BitField, takes_and_puts_exactly_its_bits) {
    constexpr BitRange kMiddle{23, 16};
    EXPECT_EQ(kMiddle.Of(0x12345678), 0x34u);
    EXPECT_EQ(kMiddle.Put(0x12345678, 0xAB), 0x12AB5678u);
    EXPECT_EQ(kMiddle.Put(0x12345678, 0x1AB), 0x12AB5678u) << "what does not fit is dropped";
    EXPECT_EQ(kMiddle.Put(0xFFFFFFFF, 0), 0xFF00FFFFu);
}

TEST(BitField, may_be_one_bit_or_the_whole_word) {
    constexpr BitRange kTop{31, 31};
    constexpr BitRange kWhole{31, 0};
    EXPECT_EQ(kTop.Of(0x80000000), 1u);
    EXPECT_EQ(kTop.Put(0, 1), 0x80000000u);
    EXPECT_EQ(kWhole.Of(0xDEADBEEF), 0xDEADBEEFu);
    EXPECT_EQ(kWhole.Put(1, 2), 2u);
}

}  // namespace
}  // namespace kolmfluxor
