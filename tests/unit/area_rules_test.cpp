#include "media/area_rules.h"

#include <array>
#include <cstdint>
#include <limits>
#include <random>

#include <gtest/gtest.h>

#include "support/area_model.h"

namespace kolmfluxor {
namespace {

constexpr std::int32_t kMax = std::numeric_limits<std::int32_t>::max();
constexpr std::int32_t kMin = std::numeric_limits<std::int32_t>::min();

constexpr AxisLimits kUsual = {.minSize = 8, .maxSize = 640, .sizeUnit = 4, .positionUnit = 4};

/// Numbers as drivers and users give them: small ones, sizes, and now and then anything at all.
class CNumbers {
public:
    explicit CNumbers(std::uint32_t seed) : m_random(seed) {}

    std::int32_t Next() {
        constexpr std::array kSpecial = {kMin, kMin + 1, -1, 0, 1, 2, 3, 4, kMax - 1, kMax};
        switch (m_random() % 8) {
        case 0:
            return kSpecial[m_random() % kSpecial.size()];
        case 1:
            return static_cast<std::int32_t>(m_random());
        case 2:
        case 3:
            return static_cast<std::int32_t>(m_random() % 40) - 20;
        default:
            return static_cast<std::int32_t>(m_random() % 4000) - 1000;
        }
    }

    AxisLimits Limits() { return {Next(), Next(), Next(), Next()}; }

private:
    std::mt19937 m_random;
};

// -- Arithmetic

TEST(AreaArithmetic, wraps) {
    EXPECT_EQ(WrappedSum(kMax, 1), kMin);
    EXPECT_EQ(WrappedSum(kMin, -1), kMax);
    EXPECT_EQ(WrappedSum(-3, 2), -1);
    EXPECT_EQ(WrappedDifference(kMin, 1), kMax);
    EXPECT_EQ(WrappedDifference(0, kMin), kMin);
    EXPECT_EQ(WrappedProduct(0x10000, 0x10000), 0);
    EXPECT_EQ(WrappedProduct(kMin, -1), kMin);
    EXPECT_EQ(WrappedProduct(-3, 5), -15);
    EXPECT_EQ(WrappedMagnitude(-7), 7);
    EXPECT_EQ(WrappedMagnitude(7), 7);
    EXPECT_EQ(WrappedMagnitude(kMin), kMin);
}

// -- Rectangles

TEST(AreaRectangles, normalizing_swaps_each_direction_by_itself) {
    EXPECT_EQ(Normalized({1, 2, 3, 4}), (PixelRect{1, 2, 3, 4}));
    EXPECT_EQ(Normalized({3, 2, 1, 4}), (PixelRect{1, 2, 3, 4}));
    EXPECT_EQ(Normalized({1, 4, 3, 2}), (PixelRect{1, 2, 3, 4}));
    EXPECT_EQ(Normalized({3, 4, 1, 2}), (PixelRect{1, 2, 3, 4}));
}

TEST(AreaRectangles, bounds_include_their_edges) {
    constexpr PixelRect kBounds{0, 0, 640, 480};
    EXPECT_TRUE(LiesIn(kBounds, kBounds));
    EXPECT_TRUE(LiesIn(kBounds, {640, 480, 640, 480}));
    EXPECT_TRUE(LiesIn(kBounds, {0, 0, 0, 0}));
    EXPECT_FALSE(LiesIn(kBounds, {-1, 0, 640, 480}));
    EXPECT_FALSE(LiesIn(kBounds, {0, -1, 640, 480}));
    EXPECT_FALSE(LiesIn(kBounds, {0, 0, 641, 480}));
    EXPECT_FALSE(LiesIn(kBounds, {0, 0, 640, 481}));
    EXPECT_FALSE(LiesIn(kBounds, {641, 0, 641, 480}));
    EXPECT_FALSE(LiesIn(kBounds, {0, 481, 640, 481}));
}

TEST(AreaRectangles, the_width_is_the_surface_s_only_when_all_edges_are_zero) {
    EXPECT_EQ(AreaWidth({0, 0, 0, 0}, 640), 640);
    EXPECT_EQ(AreaWidth({0, 0, 0, 1}, 640), 0);
    EXPECT_EQ(AreaWidth({5, 0, 5, 0}, 640), 0);
    EXPECT_EQ(AreaWidth({16, 0, 336, 0}, 640), 320);
    EXPECT_EQ(AreaWidth({16, 0, 0, 0}, 640), -16);
    EXPECT_EQ(AreaWidth({kMin, 0, 1, 0}, 640), kMin + 1) << "wraps";
}

TEST(AreaExtents, bitmaps_of_unequal_width_differ) {
    EXPECT_FALSE(SameExtent({}, {640, 480}, {}, {641, 480}));
    EXPECT_FALSE(SameExtent({}, {640, 480}, {}, {-640, 480})) << "signs count here";
    EXPECT_TRUE(SameExtent({}, {640, 480}, {}, {640, 480}));
}

TEST(AreaExtents, heights_of_the_bitmaps_are_not_compared) {
    EXPECT_TRUE(SameExtent({}, {640, 480}, {}, {640, 17}));
}

TEST(AreaExtents, an_empty_rectangle_and_one_as_large_as_its_bitmap_are_the_same) {
    constexpr BitmapSize kSize = {640, -480};
    constexpr PixelRect kWhole = {0, 0, 640, 480};
    EXPECT_TRUE(SameExtent({}, kSize, kWhole, kSize));
    EXPECT_TRUE(SameExtent(kWhole, kSize, {}, kSize));
    EXPECT_TRUE(SameExtent({7, 9, 7, 9}, kSize, kWhole, kSize)) << "empty anywhere";
    EXPECT_TRUE(SameExtent({640, 480, 0, 0}, kSize, {8, 8, 648, 488}, kSize)) << "without signs, anywhere";
    EXPECT_FALSE(SameExtent({7, 9, 7, 10}, kSize, kWhole, kSize)) << "empty needs both directions";
    EXPECT_FALSE(SameExtent({7, 9, 8, 9}, kSize, kWhole, kSize)) << "empty needs both directions";
}

TEST(AreaExtents, otherwise_the_rectangles_must_be_equally_large) {
    constexpr BitmapSize kSize = {640, 480};
    EXPECT_TRUE(SameExtent({0, 0, 320, 240}, kSize, {100, 50, 420, 290}, kSize));
    EXPECT_TRUE(SameExtent({320, 240, 0, 0}, kSize, {0, 0, 320, 240}, kSize)) << "without signs";
    EXPECT_FALSE(SameExtent({0, 0, 320, 240}, kSize, {0, 0, 321, 240}, kSize));
    EXPECT_FALSE(SameExtent({0, 0, 320, 240}, kSize, {0, 0, 320, 241}, kSize));
    EXPECT_FALSE(SameExtent({0, 0, 320, 240}, kSize, {0, 0, 640, 480}, kSize));
    EXPECT_FALSE(SameExtent({0, 0, 320, 240}, kSize, {}, kSize));
    // Each is measured against its own bitmap: one that fills its bitmap is the same as one that fills another.
    EXPECT_TRUE(SameExtent({0, 0, 640, 480}, {640, 480}, {0, 0, 640, 240}, {640, 240}));
}

// -- Bitmaps

TEST(AreaBitmaps, the_stride_is_a_multiple_of_four_and_negative_for_bottom_up) {
    EXPECT_EQ(StrideBytes(640, 24, 480), -1920);
    EXPECT_EQ(StrideBytes(640, 24, -480), 1920);
    EXPECT_EQ(StrideBytes(641, 8, 480), -644);
    EXPECT_EQ(StrideBytes(641, 8, -1), 644);
    EXPECT_EQ(StrideBytes(644, 8, -1), 644);
    EXPECT_EQ(StrideBytes(645, 8, -1), 648);
    EXPECT_EQ(StrideBytes(640, 12, 0), -960) << "a height of 0 counts as bottom-up";
    EXPECT_EQ(StrideBytes(1, 1, -1), 0) << "part of a byte counts as none";
    EXPECT_EQ(StrideBytes(0, 8, -1), 0);
    EXPECT_EQ(StrideBytes(-641, 8, -1), -640) << "rounded down: -641 + 3";
}

TEST(AreaBitmaps, the_image_size_is_32_bit_signed) {
    EXPECT_EQ(ImageBytes(480, 640, 24), 921'600);
    EXPECT_EQ(ImageBytes(1, 1, 12), 1) << "the fraction is dropped";
    EXPECT_EQ(ImageBytes(-1, 1, 12), -1) << "toward zero";
    EXPECT_EQ(ImageBytes(0x8000, 0x8000, 4), 0) << "2^32 bits wrap to none";
    EXPECT_EQ(ImageBytes(0x8000, 0x8000, 2), kMin / 8);
}

// -- Changes

TEST(AreaChanges, a_position_is_rounded_and_then_limited) {
    EXPECT_EQ(FittedPosition(13, kUsual, 320), 12);
    EXPECT_EQ(FittedPosition(400, kUsual, 320), 320);
    EXPECT_EQ(FittedPosition(-8, kUsual, 320), 0);
    EXPECT_EQ(FittedPosition(-3, kUsual, 320), 0);
    EXPECT_EQ(FittedPosition(320, kUsual, 320), 320);
    EXPECT_EQ(FittedPosition(321, kUsual, 320), 320);
    EXPECT_EQ(FittedPosition(323, kUsual, 318), 320) << "320 is below the limit 322";
    EXPECT_EQ(FittedPosition(400, kUsual, 319), 321) << "the limit is not rounded again";
    EXPECT_EQ(FittedPosition(0, kUsual, 650), -10) << "a limit below zero is taken as it is";
}

TEST(AreaChanges, a_width_is_limited_and_then_rounded) {
    EXPECT_EQ(FittedWidth(7, kUsual, 0), 8);
    EXPECT_EQ(FittedWidth(8, kUsual, 0), 8);
    EXPECT_EQ(FittedWidth(11, kUsual, 0), 8);
    EXPECT_EQ(FittedWidth(1000, {.minSize = 8, .maxSize = 640, .sizeUnit = 6}, 0), 636);
    EXPECT_EQ(FittedWidth(1000, kUsual, 16), 624);
    EXPECT_EQ(FittedWidth(1, {.minSize = 10, .maxSize = 640, .sizeUnit = 4}, 0), 8) << "rounded below the minimum";
    EXPECT_EQ(FittedWidth(9, {.minSize = 10, .maxSize = 4, .sizeUnit = 1}, 0), 10) << "crossed limits: the minimum";
    EXPECT_EQ(FittedWidth(10, {.minSize = 10, .maxSize = 4, .sizeUnit = 1}, 0), 4);
}

TEST(AreaChanges, a_height_is_rounded_and_then_limited_and_keeps_its_sign) {
    EXPECT_EQ(FittedHeight(13, kUsual, 0), 12);
    EXPECT_EQ(FittedHeight(-13, kUsual, 0), -12);
    EXPECT_EQ(FittedHeight(7, kUsual, 0), 8);
    EXPECT_EQ(FittedHeight(-7, kUsual, 0), -8);
    EXPECT_EQ(FittedHeight(1000, kUsual, 10), 630) << "the limit is not rounded";
    EXPECT_EQ(FittedHeight(-1000, kUsual, 10), -630);
    EXPECT_EQ(FittedHeight(1, {.minSize = 10, .maxSize = 640, .sizeUnit = 4}, 0), 10) << "the minimum is not rounded";
}

TEST(AreaChanges, a_negative_height_that_rounds_to_zero_takes_the_positive_minimum) {
    EXPECT_EQ(FittedHeight(-3, kUsual, 0), 8);
    EXPECT_EQ(FittedHeight(-4, kUsual, 0), -8);
}

TEST(AreaChanges, a_step_of_zero_or_less_rounds_nothing) {
    for (const std::int32_t unit : {0, -1, -4, kMin}) {
        const AxisLimits limits = {.minSize = 8, .maxSize = 640, .sizeUnit = unit, .positionUnit = unit};
        EXPECT_EQ(FittedPosition(13, limits, 320), 13);
        EXPECT_EQ(FittedWidth(13, limits, 0), 13);
        EXPECT_EQ(FittedHeight(-13, limits, 0), -13);
        EXPECT_TRUE(IsValidPosition(13, limits, 640));
        EXPECT_TRUE(IsValidExtent(13, limits, 0));
        EXPECT_TRUE(IsValidExtent(1, limits, 0));
        EXPECT_FALSE(IsValidExtent(0, limits, 0)) << "the step counts as 1";
        EXPECT_FALSE(IsValidExtent(-1, limits, 0));
    }
}

// -- Tests

TEST(AreaTests, a_position_is_a_multiple_from_zero_to_the_largest) {
    EXPECT_TRUE(IsValidPosition(0, kUsual, 640));
    EXPECT_TRUE(IsValidPosition(640, kUsual, 640)) << "the size is not looked at";
    EXPECT_FALSE(IsValidPosition(644, kUsual, 640));
    EXPECT_FALSE(IsValidPosition(2, kUsual, 640));
    EXPECT_FALSE(IsValidPosition(-4, kUsual, 640));
}

TEST(AreaTests, a_size_is_a_multiple_from_one_step_to_what_the_position_leaves) {
    EXPECT_TRUE(IsValidExtent(4, kUsual, 0)) << "the minimum is not looked at";
    EXPECT_FALSE(IsValidExtent(0, kUsual, 0));
    EXPECT_FALSE(IsValidExtent(-4, kUsual, 0));
    EXPECT_FALSE(IsValidExtent(6, kUsual, 0));
    EXPECT_TRUE(IsValidExtent(640, kUsual, 0));
    EXPECT_FALSE(IsValidExtent(644, kUsual, 0));
    EXPECT_TRUE(IsValidExtent(632, kUsual, 8));
    EXPECT_FALSE(IsValidExtent(636, kUsual, 8));
    EXPECT_FALSE(IsValidExtent(8, kUsual, kMax)) << "the sum does not wrap";
}

// -- Anything

TEST(AreaRules, agree_with_a_model_for_any_numbers) {
    namespace m = test::model;
    CNumbers numbers(394);
    for (int i = 0; i < 100'000; ++i) {
        const AxisLimits limits = numbers.Limits();
        const std::int32_t value = numbers.Next();
        const std::int32_t other = numbers.Next();
        const std::int32_t third = numbers.Next();
        SCOPED_TRACE(testing::Message() << "value " << value << ", other " << other << ", third " << third
                                        << ", limits " << limits.minSize << ' ' << limits.maxSize << ' '
                                        << limits.sizeUnit << ' ' << limits.positionUnit);
        ASSERT_EQ(FittedPosition(value, limits, other),
                  m::CheckedPosition(value, limits.positionUnit, limits.maxSize, other));
        ASSERT_EQ(FittedWidth(value, limits, other),
                  m::CheckedWidth(value, limits.minSize, limits.sizeUnit, limits.maxSize, other));
        ASSERT_EQ(FittedHeight(value, limits, other),
                  m::CheckedHeight(value, limits.minSize, limits.sizeUnit, limits.maxSize, other));
        ASSERT_EQ(IsValidPosition(value, limits, other), m::ValidPosition(value, limits.positionUnit, other));
        ASSERT_EQ(IsValidExtent(value, limits, other), m::ValidSize(value, limits.sizeUnit, limits.maxSize, other));
        const std::int32_t bits = other & 0xFFFF;
        ASSERT_EQ(StrideBytes(value, bits, third), m::Stride(value, bits, third));
        ASSERT_EQ(ImageBytes(value, third, bits), m::ImageSize(value, third, bits));
    }
}

}  // namespace
}  // namespace kolmfluxor
