#pragma once
/// @file  The rule by which flags are read from a driver record. No Windows header: this also builds natively.

#include <cstdint>

namespace kolmfluxor {

/// Bits of the flag word at offset 28.
namespace flag {
inline constexpr std::uint32_t kOn = 0x2;
inline constexpr std::uint32_t kOff = 0x4;
inline constexpr std::uint32_t kAuto = 0x8;
inline constexpr std::uint32_t kOnePush = 0x10;
inline constexpr std::uint32_t kBit800 = 0x40000000;  ///< asked for by this value, kept at 0x800
}  // namespace flag

/// Whether a flag counts as set.
///
/// @param word       the word at 28
/// @param autoOn     the word at 44
/// @param onePushOn  the word at 52
[[nodiscard]] constexpr bool IsFlagSet(std::uint32_t bit, std::uint32_t word, std::uint32_t autoOn,
                                       std::uint32_t onePushOn) {
    switch (bit) {
    // Compatibility: a driver may tell Auto and OnePush by their own words only.
    case flag::kAuto:
        return (word & flag::kAuto) != 0 || autoOn == 1;
    case flag::kOnePush:
        return (word & flag::kOnePush) != 0 || onePushOn == 1;
    // Compatibility: this flag is asked for by one bit and kept in another. Drivers store it at 0x800.
    case flag::kBit800:
        return (word & 0x800) != 0;
    default:
        return (word & bit) != 0;
    }
}

}  // namespace kolmfluxor
