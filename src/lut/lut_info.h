#pragma once
/// @file  What a camera tells about its look-up tables (LUTs).

#include <cstdint>

namespace kolmfluxor {

/// The camera's LUT control and the size of its tables. Whatever a camera reports is data: nothing here divides by it
/// untested.
struct LutInfo {
    std::uint32_t onOff = 0;
    std::uint32_t current = 0;       ///< number of the active LUT, from 0
    std::uint32_t numberOfLuts = 0;  ///< slots in the camera
    std::uint32_t maxLutSize = 0;    ///< bytes of each slot
    std::uint32_t bitsPerValue = 0;

    /// Whole bytes that hold a value: 1 for 1 to 8 bits, 2 for 9 to 16; 0 without bits.
    [[nodiscard]] constexpr std::uint32_t BytesPerValue() const noexcept {
        return bitsPerValue / 8 + (bitsPerValue % 8 != 0 ? 1 : 0);
    }
    /// How many values a LUT must have; 0 when the camera reports no bits.
    [[nodiscard]] constexpr std::uint32_t ElementCount() const noexcept {
        return bitsPerValue != 0 ? maxLutSize / BytesPerValue() : 0;
    }
};

}  // namespace kolmfluxor
