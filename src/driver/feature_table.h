#pragma once
/// @file  How features and modes are numbered on the wire. No Windows header: this also builds natively.

#include <cstdint>
#include <optional>

#include <kolmfluxor/features.h>

namespace kolmfluxor {

/// Bits of the words Mode and ModeCaps of a feature record.
namespace wire {
inline constexpr std::uint32_t kManual = 0x2;
inline constexpr std::uint32_t kOff = 0x4;
inline constexpr std::uint32_t kAuto = 0x8;
inline constexpr std::uint32_t kOnePush = 0x10;
}  // namespace wire

/// The driver property of a feature; none for any id that is not in the table.
[[nodiscard]] std::optional<std::uint32_t> DriverIdOf(std::uint32_t featureId) noexcept;

/// The wire bit of a mode number 0 to 9; none for any other number.
[[nodiscard]] std::optional<std::uint32_t> WireBitOf(std::uint32_t mode) noexcept;

/// The mode of a wire word; none unless the word is exactly one known bit.
[[nodiscard]] std::optional<FeatureMode> ModeOfWireBit(std::uint32_t bit) noexcept;

}  // namespace kolmfluxor
