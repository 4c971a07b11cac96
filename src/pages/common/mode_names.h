#pragma once
/// @file  The names under which pages show feature modes.

#include <array>
#include <cstddef>
#include <cstdint>

namespace kolmfluxor {

/// Names of the modes 0 to 9, by mode number.
inline constexpr std::array<const char*, 10> kModeNames = {
    "Off", "Manual", "OnePush", "Auto", "Busy", "ShowImage", "LoadData", "SaveData", "ClearData", "Error",
};

/// The name of a mode; "unknown" for any number beyond the table.
[[nodiscard]] constexpr const char* ModeName(std::uint32_t mode) {
    return mode < kModeNames.size() ? kModeNames[mode] : "unknown";
}

}  // namespace kolmfluxor
