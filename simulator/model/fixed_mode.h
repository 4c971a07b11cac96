#pragma once
/// @file  The fixed video modes (IIDC formats 0 to 2) that the cameras know.

#include <array>
#include <cstdint>
#include <span>

#include "model/feature_table.h"

namespace kolmsim {

/// Frame times in 100 ns units by IIDC frame rate index: 1.875, 3.75, ... 240 frames per second.
inline constexpr std::array<std::int64_t, 8> kRateFrameTimes = {5'333'333, 2'666'666, 1'333'333, 666'666,
                                                                333'333,   166'666,   83'333,    41'666};

/// One fixed mode.
struct FixedMode {
    std::uint32_t format;
    std::uint32_t mode;
    std::uint32_t width;
    std::uint32_t height;
    std::uint32_t packetPixels;  ///< pixels of each packet at 1.875 frames per second; each next rate doubles them
    std::uint32_t colorCoding;
    std::uint32_t rates;  ///< b31 for index 0, b30 for index 1, ...

    [[nodiscard]] bool HasRate(std::uint32_t rate) const { return rate < 8 && (rates << rate & 0x80000000) != 0; }

    /// Bytes of each packet at a rate.
    [[nodiscard]] std::uint32_t PacketBytes(std::uint32_t rate) const;
};

/// All fixed modes of any camera; the first is the one that a camera leaves the factory in.
[[nodiscard]] std::span<const FixedMode> FixedModes();

/// Whether a camera of this variant offers the mode: it does when it knows the color coding.
[[nodiscard]] bool IsOffered(const FixedMode& mode, Variant variant);

/// A mode that a camera of this variant offers, or null.
[[nodiscard]] const FixedMode* FindFixedMode(Variant variant, std::uint32_t format, std::uint32_t mode);

}  // namespace kolmsim
