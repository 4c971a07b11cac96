#include "media/frame_time.h"

#include <cstdint>
#include <cstdlib>
#include <limits>
#include <random>

#include <gtest/gtest.h>

#include "support/thrown_text.h"

namespace kolmfluxor {
namespace {

using test::ThrownText;

constexpr std::int64_t kLongest = std::numeric_limits<std::int64_t>::max();
constexpr std::int64_t kMostNegative = std::numeric_limits<std::int64_t>::min();
constexpr std::int32_t kMaxFpms = std::numeric_limits<std::int32_t>::max();
constexpr std::int32_t kMinFpms = std::numeric_limits<std::int32_t>::min();

// -- Conversions

TEST(FrameTime, zero_is_refused_with_the_name_of_the_function) {
    EXPECT_EQ(ThrownText([] { (void)FpsToFrameTime(0); }), "FpsToFrameTime: Div by Zero -> fps is 0");
    EXPECT_EQ(ThrownText([] { (void)FPpsX1000ToFrameTime(0); }), "FPpsX1000ToFrameTime: Div by Zero -> fps is 0");
    EXPECT_EQ(ThrownText([] { (void)FrameTimeToFps(0); }), "FrameTimeToFps: Div by Zero -> frame time is 0");
    EXPECT_EQ(ThrownText([] { (void)FrameTimeToFpms(0); }), "FrameTimeToFpms: Div by Zero -> frame time is 0");
}

TEST(FrameTime, whole_rates_divide_and_drop_the_fraction) {
    EXPECT_EQ(FpsToFrameTime(1), 10'000'000);
    EXPECT_EQ(FpsToFrameTime(30), 333'333);
    EXPECT_EQ(FpsToFrameTime(60), 166'666);
    EXPECT_EQ(FpsToFrameTime(10'000'000), 1);
    EXPECT_EQ(FpsToFrameTime(10'000'001), 0);
    EXPECT_EQ(FpsToFrameTime(0xFFFFFFFF), 0) << "the rate is unsigned";
    EXPECT_EQ(FrameTimeToFps(333'333), 30);
    EXPECT_EQ(FrameTimeToFps(333'334), 29);
    EXPECT_EQ(FrameTimeToFps(10'000'001), 0);
    EXPECT_EQ(FrameTimeToFps(-1), -10'000'000);
    EXPECT_EQ(FrameTimeToFps(-3), -3'333'333) << "truncated toward zero";
    EXPECT_EQ(FrameTimeToFps(kMostNegative), 0);
    EXPECT_EQ(FrameTimeToFps(kLongest), 0);
}

TEST(FrameTime, fractional_rates_are_per_1000_seconds) {
    EXPECT_EQ(FPpsX1000ToFrameTime(1875), 5'333'333);
    EXPECT_EQ(FPpsX1000ToFrameTime(3750), 2'666'666);
    EXPECT_EQ(FPpsX1000ToFrameTime(30'000), 333'333);
    EXPECT_EQ(FPpsX1000ToFrameTime(1), 10'000'000'000) << "beyond 32 bits";
    EXPECT_EQ(FPpsX1000ToFrameTime(kMaxFpms), 4);
    EXPECT_EQ(FPpsX1000ToFrameTime(-1), -10'000'000'000) << "the rate is signed";
    EXPECT_EQ(FPpsX1000ToFrameTime(-1875), -5'333'333) << "truncated toward zero";
    EXPECT_EQ(FPpsX1000ToFrameTime(kMinFpms), -4);
    EXPECT_EQ(FrameTimeToFpms(333'333), 30'000);
    EXPECT_EQ(FrameTimeToFpms(2'666'666), 3750);
    EXPECT_EQ(FrameTimeToFpms(5'333'333), 1875);
    EXPECT_EQ(FrameTimeToFpms(-333'333), -30'000);
    EXPECT_EQ(FrameTimeToFpms(10'000'000'000), 1);
    EXPECT_EQ(FrameTimeToFpms(10'000'000'001), 0);
    EXPECT_EQ(FrameTimeToFpms(kLongest), 0);
    EXPECT_EQ(FrameTimeToFpms(kMostNegative), 0);
}

TEST(FrameTime, a_rate_beyond_32_bits_gives_the_largest_or_smallest) {
    EXPECT_EQ(FrameTimeToFpms(5), 2'000'000'000);
    EXPECT_EQ(FrameTimeToFpms(4), kMaxFpms);
    EXPECT_EQ(FrameTimeToFpms(1), kMaxFpms);
    EXPECT_EQ(FrameTimeToFpms(-5), -2'000'000'000);
    EXPECT_EQ(FrameTimeToFpms(-4), kMinFpms);
    EXPECT_EQ(FrameTimeToFpms(-1), kMinFpms);
}

// -- The fixed rates

/// A fixed rate, its frame time, and the fpms up to which it is chosen for a frame time.
struct Rate {
    std::int64_t frameTime;
    std::int32_t fpms;
    std::int32_t chosenUpTo;
};
constexpr Rate kRates[] = {
    {5'333'333, 1875, 3750},   {2'666'666, 3750, 7500},    {1'333'333, 7500, 15'000},  {666'666, 15'000, 30'000},
    {333'333, 30'000, 60'000}, {166'666, 60'000, 120'000}, {83'333, 120'000, 240'000}, {41'666, 240'000, kMaxFpms},
};
constexpr std::size_t kRateCount = std::size(kRates);

TEST(FrameTimeSnap, down_gives_each_time_from_itself_up_to_the_next) {
    EXPECT_EQ(SnapFrameTimeDown(kLongest), 5'333'333);
    for (std::size_t i = 0; i < kRateCount; ++i) {
        EXPECT_EQ(SnapFrameTimeDown(kRates[i].frameTime), kRates[i].frameTime);
        EXPECT_EQ(SnapFrameTimeDown(kRates[i].frameTime + 1), kRates[i].frameTime);
        if (i + 1 == kRateCount) break;
        EXPECT_EQ(SnapFrameTimeDown(kRates[i].frameTime - 1), kRates[i + 1].frameTime);
    }
}

TEST(FrameTimeSnap, below_the_shortest_time_gives_240000_which_is_a_rate) {
    for (const std::int64_t t : {std::int64_t{41'665}, std::int64_t{30'000}, std::int64_t{1}, std::int64_t{0},
                                 std::int64_t{-1}, kMostNegative}) {
        EXPECT_EQ(SnapFrameTimeDown(t), 240'000) << t;
        EXPECT_EQ(SnapFrameTimeNearest(t), 240'000) << t;
    }
}

TEST(FrameTimeSnap, nearest_changes_halfway) {
    EXPECT_EQ(SnapFrameTimeNearest(kLongest), 5'333'333);
    for (std::size_t i = 0; i < kRateCount; ++i) {
        EXPECT_EQ(SnapFrameTimeNearest(kRates[i].frameTime), kRates[i].frameTime);
        if (i + 1 == kRateCount) break;
        // All sums of neighbors are odd, so that there is no tie.
        const std::int64_t longer = kRates[i].frameTime;
        const std::int64_t shorter = kRates[i + 1].frameTime;
        const std::int64_t lastOfShorter = (shorter + longer) / 2;
        EXPECT_EQ(SnapFrameTimeNearest(lastOfShorter), shorter);
        EXPECT_EQ(SnapFrameTimeNearest(lastOfShorter + 1), longer);
        EXPECT_EQ(SnapFrameTimeNearest(longer - 1), longer);
        EXPECT_EQ(SnapFrameTimeNearest(shorter + 1), shorter);
    }
}

TEST(FrameTimeSnap, nearest_of_250000_is_333333) {
    EXPECT_EQ(SnapFrameTimeNearest(250'000), 333'333) << "83334 from the shorter one, 83333 from the longer one";
    EXPECT_EQ(SnapFrameTimeNearest(249'999), 166'666);
}

TEST(FrameTimeSnap, nearest_agrees_with_a_search_of_all_rates) {
    std::mt19937_64 random(1875);
    for (int i = 0; i < 20'000; ++i) {
        const std::int64_t t = static_cast<std::int64_t>(random() % 6'000'000);
        std::int64_t expected = 240'000;
        if (t >= 41'666) {
            expected = kRates[0].frameTime;
            for (const Rate& rate : kRates) {
                if (std::llabs(rate.frameTime - t) < std::llabs(expected - t)) expected = rate.frameTime;
            }
        }
        ASSERT_EQ(SnapFrameTimeNearest(t), expected) << t;
    }
}

TEST(IidcRates, a_frame_time_gives_the_rate_that_is_not_slower) {
    EXPECT_EQ(FrameTimeToIidcFpms(kLongest), 1875);
    EXPECT_EQ(FrameTimeToIidcFpms(kMostNegative), 240'000);
    EXPECT_EQ(FrameTimeToIidcFpms(0), 240'000);
    for (std::size_t i = 0; i < kRateCount; ++i) {
        EXPECT_EQ(FrameTimeToIidcFpms(kRates[i].frameTime), kRates[i].fpms);
        const std::size_t next = i + 1 < kRateCount ? i + 1 : i;
        EXPECT_EQ(FrameTimeToIidcFpms(kRates[i].frameTime - 1), kRates[next].fpms);
    }
}

TEST(IidcRates, the_nearest_rate_is_that_of_the_nearest_frame_time) {
    EXPECT_EQ(FrameTimeToIidcFpmsNearest(250'000), 30'000);
    EXPECT_EQ(FrameTimeToIidcFpmsNearest(249'999), 60'000);
    EXPECT_EQ(FrameTimeToIidcFpmsNearest(41'666), 240'000);
    EXPECT_EQ(FrameTimeToIidcFpmsNearest(62'499), 240'000);
    EXPECT_EQ(FrameTimeToIidcFpmsNearest(62'500), 120'000);
    EXPECT_EQ(FrameTimeToIidcFpmsNearest(5'333'332), 1875);
    EXPECT_EQ(FrameTimeToIidcFpmsNearest(kLongest), 1875);
}

TEST(IidcRates, the_nearest_rate_below_the_shortest_time_is_60000) {
    EXPECT_EQ(FrameTimeToIidcFpmsNearest(41'665), 60'000);
    EXPECT_EQ(FrameTimeToIidcFpmsNearest(kMostNegative), 60'000);
}

TEST(IidcRates, a_rate_gives_the_frame_time_of_the_next_slower_one) {
    EXPECT_EQ(IidcFpmsToFrameTime(kMinFpms), 5'333'333);
    EXPECT_EQ(IidcFpmsToFrameTime(0), 5'333'333);
    for (std::size_t i = 0; i < kRateCount; ++i) {
        EXPECT_EQ(IidcFpmsToFrameTime(kRates[i].chosenUpTo), kRates[i].frameTime);
        if (i + 1 == kRateCount) break;
        EXPECT_EQ(IidcFpmsToFrameTime(kRates[i].chosenUpTo + 1), kRates[i + 1].frameTime);
    }
}

}  // namespace
}  // namespace kolmfluxor
