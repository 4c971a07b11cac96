/// @file  How the viewer measures frame rates, and how samples pass from the stream to the window.

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <atomic>
#include <thread>
#include <vector>

#include "kolmview/newest_sample.h"
#include "kolmview/rate_meter.h"

namespace kolmview {
namespace {

using namespace std::chrono_literals;
using ::testing::ElementsAre;

using Time = RateMeter::Time;
using Microseconds = std::chrono::microseconds;

const Time kBegin{1000s};

/// Notes pictures at equal distances; gives the time of the last.
Time NoteMany(RateMeter* meter, int count, Microseconds frameTime, Time first = kBegin) {
    for (int i = 0; i < count; ++i) {
        meter->Note(first + i * frameTime);
    }
    return first + (count - 1) * frameTime;
}

TEST(ViewRate, needs_two_pictures) {
    RateMeter meter;
    EXPECT_EQ(meter.Rate(kBegin), std::nullopt);
    EXPECT_EQ(meter.Silence(kBegin), std::nullopt);
    meter.Note(kBegin);
    EXPECT_EQ(meter.Rate(kBegin), std::nullopt);
    EXPECT_EQ(meter.Silence(kBegin + 3ms), 3ms);

    meter.Note(kBegin + 40ms);

    ASSERT_TRUE(meter.Rate(kBegin + 40ms));
    EXPECT_DOUBLE_EQ(*meter.Rate(kBegin + 40ms), 25);
    EXPECT_EQ(meter.Silence(kBegin + 41ms), 1ms);
}

TEST(ViewRate, is_exact_for_equal_distances_from_slow_to_fast) {
    for (const auto& [frameTime, rate] :
         {std::pair{Microseconds(266'667), 1e6 / 266'667}, {33'333us, 1e6 / 33'333}, {5s, 0.2}, {500us, 2000.0}}) {
        RateMeter meter;

        const Time last = NoteMany(&meter, 1000, frameTime);

        ASSERT_TRUE(meter.Rate(last)) << rate;
        EXPECT_NEAR(*meter.Rate(last), rate, rate * 1e-9);
    }
}

TEST(ViewRate, follows_a_change_within_two_seconds) {
    RateMeter meter;
    const Time changed = NoteMany(&meter, 100, 100'000us);

    const Time last = NoteMany(&meter, 60, 33'333us, changed + 33'333us);

    EXPECT_NEAR(*meter.Rate(last), 30, 0.01);
}

TEST(ViewRate, of_uneven_distances_is_the_mean) {
    RateMeter meter;
    for (const auto at : {0ms, 10ms, 90ms, 100ms}) {
        meter.Note(kBegin + at);
    }

    EXPECT_DOUBLE_EQ(*meter.Rate(kBegin + 100ms), 30);
}

TEST(ViewRate, ends_when_pictures_do) {
    RateMeter fast;
    const Time last = NoteMany(&fast, 100, 33'333us);
    EXPECT_TRUE(fast.Rate(last + 2s));
    EXPECT_FALSE(fast.Rate(last + 2001ms));
    RateMeter slow;
    const Time lastSlow = NoteMany(&slow, 3, 5s);
    EXPECT_TRUE(slow.Rate(lastSlow + 15s));
    EXPECT_FALSE(slow.Rate(lastSlow + 15001ms));
}

TEST(ViewRate, of_pictures_at_one_moment_is_not_infinite) {
    RateMeter meter;

    NoteMany(&meter, 5, 0us);

    EXPECT_EQ(meter.Rate(kBegin), std::nullopt);
}

TEST(NewestSample, is_the_last_one_and_taken_once) {
    NewestSample newest;
    std::vector<std::uint8_t> sample = {9};
    EXPECT_FALSE(newest.Take(&sample));
    EXPECT_THAT(sample, ElementsAre(9)) << "left alone";

    newest.Put(std::vector<std::uint8_t>{1, 2, 3}, kBegin);
    newest.Put(std::vector<std::uint8_t>{4, 5}, kBegin + 50ms);

    EXPECT_TRUE(newest.Take(&sample));
    EXPECT_THAT(sample, ElementsAre(4, 5));
    EXPECT_FALSE(newest.Take(&sample));
    const auto figures = newest.FiguresAt(kBegin + 51ms);
    EXPECT_EQ(figures.count, 2u) << "those that nobody took count too";
    EXPECT_DOUBLE_EQ(figures.rate.value_or(0), 20);
    EXPECT_EQ(figures.silence, 1ms);
}

TEST(NewestSample, is_whole_whatever_two_threads_do) {
    constexpr int kSamples = 20'000;
    NewestSample newest;
    std::atomic<bool> done = false;
    std::jthread stream([&] {
        for (int i = 0; i < kSamples; ++i) {
            newest.Put(std::vector<std::uint8_t>(static_cast<std::size_t>(1 + i % 7), static_cast<std::uint8_t>(i % 7)),
                       kBegin + i * 1us);
        }
        done = true;
    });

    std::vector<std::uint8_t> sample;
    int taken = 0;
    while (!done || taken == 0) {
        if (newest.Take(&sample)) {
            ++taken;
            ASSERT_EQ(sample, std::vector<std::uint8_t>(sample.size(), static_cast<std::uint8_t>(sample.size() - 1)));
        }
    }

    EXPECT_EQ(newest.FiguresAt(kBegin).count, static_cast<std::uint64_t>(kSamples));
}

}  // namespace
}  // namespace kolmview
