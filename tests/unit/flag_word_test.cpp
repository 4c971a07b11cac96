#include "driver/flag_word.h"

#include <gtest/gtest.h>

namespace kolmfluxor {
namespace {

constexpr std::uint32_t kBit31 = 0x80000000;

TEST(FlagWord, a_flag_is_its_own_bit) {
    for (const std::uint32_t bit : {0x2U, 0x4U, 0x40U, 0x80U, 0x1000U, 0x2000U, 0x4000U, kBit31}) {
        EXPECT_TRUE(IsFlagSet(bit, bit, 0, 0));
        EXPECT_FALSE(IsFlagSet(bit, ~bit, 1, 1));
    }
}

TEST(FlagWord, auto_also_counts_by_its_own_word_when_exactly_1) {
    EXPECT_TRUE(IsFlagSet(0x8, 0x8, 0, 0));
    EXPECT_TRUE(IsFlagSet(0x8, 0, 1, 0));
    EXPECT_FALSE(IsFlagSet(0x8, 0, 2, 0));
    EXPECT_FALSE(IsFlagSet(0x8, ~0x8U, 0, 1));
}

TEST(FlagWord, one_push_also_counts_by_its_own_word_when_exactly_1) {
    EXPECT_TRUE(IsFlagSet(0x10, 0x10, 0, 0));
    EXPECT_TRUE(IsFlagSet(0x10, 0, 0, 1));
    EXPECT_FALSE(IsFlagSet(0x10, 0, 0, 2));
    EXPECT_FALSE(IsFlagSet(0x10, ~0x10U, 1, 0));
}

TEST(FlagWord, bit_40000000_is_kept_at_800) {
    EXPECT_TRUE(IsFlagSet(0x40000000, 0x800, 0, 0));
    EXPECT_FALSE(IsFlagSet(0x40000000, ~0x800U, 1, 1));
}

}  // namespace
}  // namespace kolmfluxor
