#include "time_stamp.h"

#include <array>
#include <cstdint>
#include <cstdio>
#include <cstdlib>

#include <windows.h>

namespace kolmctl {
namespace {

constexpr std::int64_t kMinute = 600'000'000;  // in units of 100 ns

std::int64_t Ticks(const SYSTEMTIME& time) {
    FILETIME file{};
    ::SystemTimeToFileTime(&time, &file);
    return (std::int64_t{file.dwHighDateTime} << 32) + file.dwLowDateTime;
}

}  // namespace

std::string TimeStamp() {
    SYSTEMTIME utc{};
    ::GetSystemTime(&utc);
    SYSTEMTIME local = utc;
    if (!::SystemTimeToTzSpecificLocalTime(nullptr, &utc, &local)) {
        local = utc;
    }
    const auto offset = static_cast<int>((Ticks(local) - Ticks(utc)) / kMinute);
    std::array<char, 64> text{};
    std::snprintf(text.data(), text.size(), "%04u-%02u-%02uT%02u:%02u:%02u.%03u%c%02d:%02d", local.wYear, local.wMonth,
                  local.wDay, local.wHour, local.wMinute, local.wSecond, local.wMilliseconds, offset < 0 ? '-' : '+',
                  std::abs(offset) / 60, std::abs(offset) % 60);
    return text.data();
}

}  // namespace kolmctl
