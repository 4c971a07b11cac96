#pragma once
/// @file  The scalable video modes (IIDC Format 7): geometry, color coding, packets.

#include <cstdint>
#include <vector>

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
    std::uint32_t codings;  ///< set of color codings; a camera offers those of them that it knows
};

/// The limits of a mode below kFormat7Modes.
[[nodiscard]] const Format7Limits& Format7LimitsOf(std::uint32_t mode);

/// The size of a packet is a multiple of this, from this to the largest.
inline constexpr std::uint32_t kPacketUnitBytes = 4;
inline constexpr std::uint32_t kLargestPacketBytes = 4096;

/// IIDC: how many packets a frame may have at most; one goes out each 125 us.
inline constexpr std::uint32_t kMostPackets = 4095;
inline constexpr std::int64_t kPacketTime = 1250;  ///< in 100 ns units

/// The sensor gives no picture faster, however small the area: 240 frames per second, in 100 ns units.
inline constexpr std::int64_t kShortestFrameTime = 41'666;

/// The set of color codings of a mode.
[[nodiscard]] std::uint32_t CodingSet(std::uint32_t mode, Variant variant);

/// IIDC color coding ids of a mode, in the order of their numbers.
[[nodiscard]] std::vector<std::uint32_t> ColorCodings(std::uint32_t mode, Variant variant);

/// Bits of each pixel as they travel; 0 for a color coding that no camera offers.
[[nodiscard]] std::uint32_t Format7BitsPerPixel(const Format7State& mode);

/// Bits of each component that carry data.
[[nodiscard]] std::uint32_t Format7DataDepth(const Format7State& mode);

[[nodiscard]] std::uint64_t Format7FrameBytes(const Format7State& mode);

/// The packet size for 30 frames per second, or the nearest to it.
[[nodiscard]] std::uint32_t RecommendedPacketBytes(const Format7State& mode);

/// The packet size at which a frame takes at most this time; where no packet is as large, the largest one.
///
/// @param frameTime  in 100 ns units
[[nodiscard]] std::uint32_t PacketBytesFor(const Format7State& mode, std::int64_t frameTime);

/// How many packets make a frame; 0 where the packet size is 0.
[[nodiscard]] std::uint32_t PacketsPerFrame(const Format7State& mode);

/// How long a frame takes, in 100 ns units; 0 where the packet size is 0.
[[nodiscard]] std::int64_t Format7FrameTime(const Format7State& mode);

/// Whether a camera of this variant can do exactly this.
[[nodiscard]] bool IsPossible(const Format7State& wanted, std::uint32_t mode, Variant variant);

/// The nearest that the mode can do: sizes and positions rounded down to their units and kept inside the sensor, an
/// unknown color coding replaced by the first, a packet size brought into its range (0: the recommended one). A packet
/// is as large as kMostPackets for a frame demands.
[[nodiscard]] Format7State Nearest(const Format7State& wanted, std::uint32_t mode, Variant variant);

void ResetFormat7(CameraState& state);

}  // namespace kolmsim
