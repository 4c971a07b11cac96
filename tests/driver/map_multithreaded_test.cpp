#include "driver/map_multithreaded.h"

#include <gtest/gtest.h>

#include <atomic>
#include <stdexcept>
#include <string>
#include <thread>
#include <tuple>
#include <vector>

#include "support/recorded_waits.h"
#include "support/thrown_text.h"

namespace kolmfluxor {
namespace {

using Map = map_multithreaded<ULONG, int>;

TEST(MapMultithreaded, finds_what_was_inserted) {
    Map map;
    int value = 42;

    EXPECT_FALSE(map.find(1, &value));
    EXPECT_EQ(value, 42) << "nothing found: the output is left alone";
    EXPECT_TRUE(map.insert(1, 7));
    EXPECT_TRUE(map.find(1, &value));
    EXPECT_EQ(value, 7);
}

TEST(MapMultithreaded, never_replaces_an_entry) {
    Map map;
    int value = 0;

    EXPECT_TRUE(map.insert(1, 7));
    EXPECT_FALSE(map.insert(1, 8));
    EXPECT_TRUE(map.find(1, &value));
    EXPECT_EQ(value, 7);
}

TEST(MapMultithreaded, says_that_no_mutex_could_be_made) {
    EXPECT_EQ(test::ThrownText([] { Map map(INVALID_HANDLE_VALUE); }),
              "map_multithreaded<unsigned long,struct KSPROPERTY_KOLM_FEATURE_ACCESS>::map_multithreaded: "
              "could not create mutex");
}

TEST(MapMultithreaded, a_null_mutex_passes_and_the_map_works) {
    Map map(HANDLE{nullptr});
    int value = 0;

    EXPECT_TRUE(map.insert(1, 7));
    EXPECT_TRUE(map.find(1, &value));
}

TEST(MapMultithreaded, a_guard_without_a_map_throws_an_integer) {
    EXPECT_THROW(Map::lock_guard(nullptr), int);
}

/// A key whose comparison throws on demand.
struct TouchyKey {
    int number;
    bool touchy = false;
    bool operator<(const TouchyKey& other) const {
        if (touchy || other.touchy) throw std::runtime_error("do not compare me");
        return number < other.number;
    }
};

TEST(MapMultithreaded, gives_its_mutex_back_when_an_exception_passes) {
    map_multithreaded<TouchyKey, int> map;
    map.insert({1}, 1);
    int value = 0;

    EXPECT_THROW(static_cast<void>(map.find({1, true}, &value)), std::runtime_error);
    EXPECT_THROW(map.insert({2, true}, 2), std::runtime_error);

    bool found = false;
    std::thread([&] { found = map.find({1}, &value); }).join();  // would wait for ever if the mutex were kept
    EXPECT_TRUE(found);
}

TEST(MapMultithreaded, takes_its_mutex_in_each_operation_and_closes_it_in_the_end) {
    using enum test::HandleCall::Kind;
    HANDLE const mutex = ::CreateMutexA(nullptr, FALSE, nullptr);
    const test::CRecordedWaits recorded(mutex);
    {
        Map map(mutex);
        int value = 0;
        map.insert(1, 7);
        std::ignore = map.find(1, &value);
    }

    const std::vector<test::HandleCall> expected = {{wait, INFINITE}, {release},        {wait, INFINITE},
                                                    {release},        {wait, INFINITE}, {close}};
    EXPECT_EQ(recorded.Calls(), expected);
}

TEST(MapMultithreaded, serves_several_threads_at_once) {
    Map map;
    std::vector<std::thread> threads;
    std::atomic<int> inserted{0};

    for (int t = 0; t < 4; ++t) {
        threads.emplace_back([&, t] {
            for (ULONG key = 0; key < 500; ++key)
                inserted += map.insert(key, t) ? 1 : 0;
        });
    }
    for (std::thread& thread : threads)
        thread.join();

    EXPECT_EQ(inserted, 500) << "each key has exactly one winner";
}

}  // namespace
}  // namespace kolmfluxor
