#pragma once
/// @file  Modes of features that last until somebody changes them, as files name them.
///
/// The others are under way (a one-push adjustment, a computation), or commands: a file that held them would start
/// them.

#include <algorithm>
#include <iterator>
#include <span>
#include <string>

namespace kolmctl {

inline constexpr const char* kLastingModes[] = {"off", "manual", "auto", "show-image"};

[[nodiscard]] inline std::span<const char* const> LastingModes() {
    return kLastingModes;
}

[[nodiscard]] inline bool IsLastingMode(const std::string& mode) {
    return std::ranges::find(kLastingModes, mode) != std::end(kLastingModes);
}

/// Whether a feature in this mode chooses its value by itself.
[[nodiscard]] inline bool IsAutomaticMode(const std::string& mode) {
    return mode == "auto" || mode == "one-push";
}

}  // namespace kolmctl
