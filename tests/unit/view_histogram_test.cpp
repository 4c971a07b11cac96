/// @file  The viewer's histogram.

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <numeric>
#include <vector>

#include "kolmview/histogram.h"

namespace kolmview {
namespace {

using ::testing::Each;

/// Two rows of two pixels, and fill bytes that must not count.
const std::vector<std::uint8_t> kColorBytes = {10, 20, 255, 10, 20, 255, 99, 99,  //
                                               10, 30, 255, 11, 20, 0,   99, 99};
const BgrPixels kColor = {.bytes = kColorBytes, .width = 2, .height = 2, .rowBytes = 8};

TEST(ViewHistogram, of_color_counts_red_green_and_blue_in_this_order_without_fill_bytes) {
    const Histogram histogram = Histogram::OfColor(kColor);

    ASSERT_TRUE(histogram.IsColor());
    ASSERT_EQ(histogram.Channels().size(), 3u);
    EXPECT_EQ(histogram.Channels()[0][255], 3u);
    EXPECT_EQ(histogram.Channels()[0][0], 1u);
    EXPECT_EQ(histogram.Channels()[1][20], 3u);
    EXPECT_EQ(histogram.Channels()[1][30], 1u);
    EXPECT_EQ(histogram.Channels()[2][10], 3u);
    EXPECT_EQ(histogram.Channels()[2][11], 1u);
    for (const LevelCounts& channel : histogram.Channels()) {
        EXPECT_EQ(std::accumulate(channel.begin(), channel.end(), 0u), 4u);
    }
}

TEST(ViewHistogram, of_luma_counts_each_pixel_once) {
    const std::vector<std::uint8_t> bytes = {7, 7, 7, 0, 0, 0, 7, 7, 7, 255, 255, 255};
    const Histogram histogram = Histogram::OfLuma({.bytes = bytes, .width = 4, .height = 1, .rowBytes = 12});

    EXPECT_FALSE(histogram.IsColor());
    ASSERT_EQ(histogram.Channels().size(), 1u);
    EXPECT_EQ(histogram.Channels()[0][7], 2u);
    EXPECT_EQ(histogram.Channels()[0][0], 1u);
    EXPECT_EQ(histogram.Channels()[0][255], 1u);
    EXPECT_DOUBLE_EQ(histogram.Mean(), (7 + 0 + 7 + 255) / 4.0);
    EXPECT_DOUBLE_EQ(histogram.Saturated(), 0.25);
}

TEST(ViewHistogram, mean_is_that_of_all_channels_and_saturated_that_of_the_worst) {
    const Histogram histogram = Histogram::OfColor(kColor);

    EXPECT_DOUBLE_EQ(histogram.Mean(), (3 * 255 + 3 * 20 + 30 + 3 * 10 + 11) / 12.0);
    EXPECT_DOUBLE_EQ(histogram.Saturated(), 0.75);
}

TEST(ViewHistogram, of_nothing_has_figures_too) {
    EXPECT_TRUE(Histogram().Channels().empty());
    EXPECT_DOUBLE_EQ(Histogram().Mean(), 0);
    EXPECT_DOUBLE_EQ(Histogram().Saturated(), 0);
    const Histogram empty = Histogram::OfLuma({.bytes = {}, .width = 0, .height = 0, .rowBytes = 0});
    EXPECT_DOUBLE_EQ(empty.Mean(), 0);
    EXPECT_DOUBLE_EQ(empty.Saturated(), 0);
    EXPECT_EQ(BarScale({}), 0u);
    EXPECT_EQ(BarScale(empty.Channels()), 0u);
}

TEST(ViewHistogram, bars_are_in_proportion_and_a_single_pixel_shows) {
    LevelCounts counts{};
    counts[0] = 1000;
    counts[1] = 500;
    counts[2] = 1;
    counts[255] = 4'000'000'000;

    const auto heights = BarHeights(counts, 1000, 40);

    EXPECT_EQ(heights[0], 40);
    EXPECT_EQ(heights[1], 20);
    EXPECT_EQ(heights[2], 1);
    EXPECT_EQ(heights[3], 0);
    EXPECT_EQ(heights[255], 40) << "cut";
    EXPECT_EQ(BarHeights(counts, 4'000'000'000, 2'000'000'000)[255], 2'000'000'000) << "no overflow";
}

TEST(ViewHistogram, scale_is_exceeded_by_one_in_twenty_of_the_levels_that_occur) {
    std::vector<LevelCounts> channels(3);
    channels[1][7] = 3;
    channels[2][8] = 100'000;
    EXPECT_EQ(BarScale(channels), 100'000u) << "few levels: the largest count";
    for (std::size_t level = 0; level < 19; ++level) {
        channels[0][level] = static_cast<std::uint32_t>(level + 1);
    }
    EXPECT_EQ(BarScale(channels), 19u) << "one of 21 is larger";
    for (std::size_t level = 100; level < 118; ++level) {
        channels[0][level] = 1;
    }
    EXPECT_EQ(BarScale(channels), 19u) << "one of 39 is larger";
    channels[0][118] = 1;
    EXPECT_EQ(BarScale(channels), 18u) << "two of 40 are larger";
}

TEST(ViewHistogram, bars_without_counts_or_room_are_none) {
    LevelCounts counts{};
    counts[3] = 5;

    EXPECT_THAT(BarHeights(counts, 0, 40), Each(0));
    EXPECT_THAT(BarHeights(counts, 5, 0), Each(0));
    EXPECT_THAT(BarHeights(counts, 5, -1), Each(0));
}

}  // namespace
}  // namespace kolmview
