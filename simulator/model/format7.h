#pragma once
/// @file  The scalable video modes (IIDC Format 7): geometry, color coding, packets.

#include <cstdint>
#include <span>

#include "model/camera_state.h"

namespace kolmsim {

/// What is fixed of one scalable mode, in pixels.
struct Format7Limits {
    std::uint32_t maxWidth;
    std::uint32_t maxHeight;
    std::uint32_t unitWidth;
    std::uint32_t unitHeight;
    std::uint32_t unitLeft;
    std::uint32_t unitTop;
};

/// The limits of a mode below kFormat7Modes.
[[nodiscard]] const Format7Limits& Format7LimitsOf(std::uint32_t mode);

/// The size of a packet is a multiple of this, from this to the largest.
inline constexpr std::uint32_t kPacketUnitBytes = 4;
inline constexpr std::uint32_t kLargestPacketBytes = 4096;

/// IIDC color coding ids that a camera offers, in the order of their numbers.
[[nodiscard]] std::span<const std::uint32_t> ColorCodings(Variant variant);

/// Bits of each pixel as they travel; 0 for a color coding that no camera offers.
[[nodiscard]] std::uint32_t ColorCodingBits(std::uint32_t colorCoding);

[[nodiscard]] std::uint32_t Format7BitsPerPixel(const Format7State& mode);

/// Bits of each component that carry data.
[[nodiscard]] std::uint32_t Format7DataDepth(const Format7State& mode);

[[nodiscard]] std::uint64_t Format7FrameBytes(const Format7State& mode);

/// The packet size for 30 frames per second, or the nearest to it.
[[nodiscard]] std::uint32_t RecommendedPacketBytes(const Format7State& mode);

/// How many packets make a frame; 0 where the packet size is 0.
[[nodiscard]] std::uint32_t PacketsPerFrame(const Format7State& mode);

/// Whether a camera of this variant can do exactly this.
[[nodiscard]] bool IsPossible(const Format7State& wanted, std::uint32_t mode, Variant variant);

/// The nearest that the mode can do: sizes and positions rounded down to their units and kept inside the sensor, an
/// unknown color coding replaced by the first, a packet size brought into its range (0: the recommended one).
[[nodiscard]] Format7State Nearest(const Format7State& wanted, std::uint32_t mode, Variant variant);

void ResetFormat7(CameraState& state);

}  // namespace kolmsim
