/// @file  A look-up table as a curve: each corner of the polygon.

#include "lut/lut_curve.h"

#include <gtest/gtest.h>

#include <stdexcept>
#include <tuple>
#include <vector>

namespace kolmfluxor::test {
namespace {

using Values8 = std::vector<std::uint8_t>;
using Values16 = std::vector<std::uint16_t>;
using Corners = std::vector<CurvePoint>;

Corners Curve(const Values8& values, const CurveArea& area, const LutInfo& info) {
    return LutCurve(std::span<const std::uint8_t>(values), area, info);
}

LutInfo Info(std::uint32_t sizeBytes, std::uint32_t bits) {
    return {.maxLutSize = sizeBytes, .bitsPerValue = bits};
}

TEST(LutCurve, goes_from_the_bottom_through_each_column_to_the_bottom) {
    EXPECT_EQ(Curve({0, 85, 170, 255}, {10, 20, 4, 30}, Info(4, 8)),
              (Corners{{10, 50}, {10, 50}, {11, 40}, {12, 30}, {13, 20}, {13, 50}}));
}

TEST(LutCurve, heights_are_truncated) {
    // 100 x 1 / 255 is 0.39: the curve is at 99.6.
    EXPECT_EQ(Curve({1}, {0, 0, 1, 100}, Info(1, 8))[1], (CurvePoint{0, 99}));
    EXPECT_EQ(Curve({255}, {0, 0, 1, 100}, Info(1, 8))[1], (CurvePoint{0, 0}));
    // 10 - 10 x 4 / 3 is -3.33: toward zero.
    EXPECT_EQ(Curve({4}, {0, 0, 1, 10}, Info(1, 2))[1], (CurvePoint{0, -3}));
}

TEST(LutCurve, steps_between_elements_are_no_whole_numbers) {
    // 5 elements on 3 columns: 0, 1.67 and 3.33.
    EXPECT_EQ(Curve({0, 51, 255, 102, 255}, {0, 0, 3, 10}, Info(5, 8)),
              (Corners{{0, 10}, {0, 10}, {1, 8}, {2, 6}, {2, 10}}));
}

TEST(LutCurve, a_value_above_the_bits_goes_beyond_the_area) {
    EXPECT_EQ(Curve({255}, {0, 0, 1, 30}, Info(1, 4))[1], (CurvePoint{0, 30 - 510}));
}

TEST(LutCurve, a_wider_area_repeats_elements) {
    EXPECT_EQ(Curve({0, 255}, {0, 0, 4, 10}, Info(2, 8)),
              (Corners{{0, 10}, {0, 10}, {1, 10}, {2, 0}, {3, 0}, {3, 10}}));
}

TEST(LutCurve, a_narrower_area_skips_elements) {
    EXPECT_EQ(Curve({0, 255, 51, 255, 102, 255}, {0, 0, 3, 10}, Info(6, 8)),
              (Corners{{0, 10}, {0, 10}, {1, 8}, {2, 6}, {2, 10}}));
}

TEST(LutCurve, of_16_bit_values_uses_the_bits_of_the_camera) {
    const Values16 values = {0, 4095};
    EXPECT_EQ(LutCurve(std::span<const std::uint16_t>(values), {0, 0, 2, 40}, Info(4, 12)),
              (Corners{{0, 40}, {0, 40}, {1, 0}, {1, 40}}));
}

TEST(LutCurve, nothing_is_divided_by_what_a_camera_or_window_makes_0) {
    EXPECT_EQ(Curve({1, 2}, {0, 0, 0, 10}, Info(2, 8)), Corners{}) << "no width";
    EXPECT_EQ(Curve({1, 2}, {0, 0, -5, 10}, Info(2, 8)), Corners{});
    EXPECT_EQ(Curve({1, 2}, {0, 0, 2, 10}, Info(2, 0)), Corners{}) << "no bits";
    EXPECT_EQ(Curve({255}, {0, 0, 2, 10}, Info(0, 8)), (Corners{{0, 10}, {0, 0}, {1, 0}, {1, 10}})) << "no size";
    EXPECT_EQ(Curve({255}, {0, 7, 1, 0}, Info(1, 8)), (Corners{{0, 7}, {0, 7}, {0, 7}})) << "no height";
}

TEST(LutCurve, very_many_bits_make_it_flat) {
    for (const std::uint32_t bits : {32u, 64u, 65u, 2000u, 0xFFFFFFFFu})
        EXPECT_EQ(Curve({255}, {0, 0, 1, 10}, Info(4, bits))[1].y, bits < 64 ? 9 : 10) << bits;
}

TEST(LutCurve, a_LUT_shorter_than_the_cameras_is_out_of_range) {
    EXPECT_THROW(std::ignore = Curve({1, 2}, {0, 0, 4, 10}, Info(4, 8)), std::out_of_range);
    EXPECT_THROW(std::ignore = Curve({}, {0, 0, 4, 10}, Info(0, 8)), std::out_of_range);
    EXPECT_THROW(std::ignore = Curve({1}, {0, 0, 4, 10}, Info(0xFFFFFFFF, 8)), std::out_of_range);
}

}  // namespace
}  // namespace kolmfluxor::test
