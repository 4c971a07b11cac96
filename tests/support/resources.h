#pragma once
/// @file  What this process holds of the system: for tests that count it before and after.

#include <iosfwd>
#include <span>

namespace kolmfluxor::test {

struct Resources {
    int handles = 0;  ///< from the system's list: the process's own count is not kept everywhere
    int threads = 0;
    int gdiObjects = 0;
    int userObjects = 0;
    bool operator==(const Resources&) const = default;
};

/// This process's threads.
[[nodiscard]] int CountThreads();
/// This process's handles. @return  -1 when the system's list cannot be had
[[nodiscard]] int CountHandles();

/// Counts all of them now.
[[nodiscard]] Resources CountResources();

void PrintTo(const Resources& resources, std::ostream* out);

/// Fails the test when any count has grown by more than `slack`: what is lost with each of many cycles shows.
///
/// @param gdiAllowance  GDI objects that the system itself is known to keep
void ExpectFlat(const Resources& before, int slack = 0, int gdiAllowance = 0);

/// Fails the test when some count has grown by more than `slack` in every round: what is made once, in whichever round,
/// is no leak.
///
/// @param counts  before the first round and after each
void ExpectFlatRound(std::span<const Resources> counts, int slack);

}  // namespace kolmfluxor::test
