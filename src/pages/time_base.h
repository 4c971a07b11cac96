#pragma once
/// @file  The camera's time bases: the lengths of one shutter unit.

#include <array>

#include <windows.h>

namespace kolmfluxor {

struct TimeBase {
    const char* text;    ///< right-aligned to four digits; the micro sign is byte 0xB5 of Windows-1252
    ULONG microseconds;  ///< length of one shutter unit
};

/// By time base index, the value of feature 512.
inline constexpr std::array<TimeBase, 10> kTimeBases = {{
    {"   1\xB5s", 1},
    {"   2\xB5s", 2},
    {"   5\xB5s", 5},
    {"  10\xB5s", 10},
    {"  20\xB5s", 20},
    {"  50\xB5s", 50},
    {" 100\xB5s", 100},
    {" 200\xB5s", 200},
    {" 500\xB5s", 500},
    {"1000\xB5s", 1000},
}};

/// Microseconds of a shutter unit; 0 for an index beyond the table.
[[nodiscard]] constexpr ULONG MicrosecondsOf(ULONG timeBaseIndex) {
    return timeBaseIndex < kTimeBases.size() ? kTimeBases[timeBaseIndex].microseconds : 0;
}

/// Shutter units in a time, truncated; the time itself where the index names no time base.
[[nodiscard]] constexpr ULONG ShutterUnitsOf(ULONG microseconds, ULONG timeBaseIndex) {
    const ULONG unit = MicrosecondsOf(timeBaseIndex);
    return unit != 0 ? microseconds / unit : microseconds;
}

}  // namespace kolmfluxor
