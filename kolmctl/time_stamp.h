#pragma once
/// @file  Points in time as text.

#include <string>

namespace kolmctl {

/// The local time now, with its distance to UTC: "2026-11-22T14:03:05.123+01:00" (ISO 8601).
[[nodiscard]] std::string TimeStamp();

}  // namespace kolmctl
