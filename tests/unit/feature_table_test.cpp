#include "driver/feature_table.h"

#include <gtest/gtest.h>

#include <map>

namespace kolmfluxor {
namespace {

/// The driver contract: feature id, driver property id.
const std::map<std::uint32_t, std::uint32_t> kDriverIds = {
    {256, 4},  {257, 60}, {258, 21}, {259, 1},  {260, 2},  {261, 22}, {262, 23}, {263, 8},  {264, 5},
    {265, 0},  {266, 40}, {512, 6},  {514, 7},  {515, 31}, {516, 63}, {517, 64}, {520, 28}, {521, 27},
    {523, 19}, {526, 32}, {527, 33}, {528, 39}, {539, 41}, {542, 35}, {543, 36}, {544, 37}, {1032, 55},
};

/// The driver contract: mode number, wire bit.
const std::map<std::uint32_t, std::uint32_t> kWireBits = {
    {0, 0x4}, {1, 0x2}, {2, 0x10}, {3, 0x8}, {4, 0x40}, {5, 0x80}, {6, 0x100}, {7, 0x200}, {8, 0x400}, {9, 0x1000},
};

TEST(FeatureTable, maps_exactly_the_known_features) {
    for (std::uint32_t id = 0; id < 2000; ++id) {
        const auto expected = kDriverIds.find(id);
        const auto driverId = DriverIdOf(id);
        ASSERT_EQ(driverId.has_value(), expected != kDriverIds.end()) << "feature " << id;
        if (driverId) EXPECT_EQ(*driverId, expected->second) << "feature " << id;
    }
    EXPECT_FALSE(DriverIdOf(0xFFFFFFFF));
}

TEST(FeatureTable, maps_exactly_the_known_modes) {
    for (std::uint32_t mode = 0; mode < 50; ++mode) {
        const auto expected = kWireBits.find(mode);
        const auto bit = WireBitOf(mode);
        ASSERT_EQ(bit.has_value(), expected != kWireBits.end()) << "mode " << mode;
        if (bit) EXPECT_EQ(*bit, expected->second) << "mode " << mode;
    }
    EXPECT_FALSE(WireBitOf(0xFFFFFFFF));
}

TEST(FeatureTable, knows_the_mode_of_each_single_bit) {
    std::map<std::uint32_t, std::uint32_t> modes;
    for (const auto& [mode, bit] : kWireBits)
        modes[bit] = mode;

    for (int shift = 0; shift < 32; ++shift) {
        const std::uint32_t bit = 1U << shift;
        const auto mode = ModeOfWireBit(bit);
        ASSERT_EQ(mode.has_value(), modes.contains(bit)) << "bit " << shift;
        if (mode) EXPECT_EQ(static_cast<std::uint32_t>(*mode), modes[bit]) << "bit " << shift;
    }
}

TEST(FeatureTable, a_word_that_is_not_one_bit_has_no_mode) {
    EXPECT_FALSE(ModeOfWireBit(0));
    EXPECT_FALSE(ModeOfWireBit(0x6));
    EXPECT_FALSE(ModeOfWireBit(0xFFFFFFFF));
}

}  // namespace
}  // namespace kolmfluxor
