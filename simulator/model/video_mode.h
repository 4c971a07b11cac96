#pragma once
/// @file  Fixed video modes, isochronous channel and speed, and what the bus carries of them.

#include <cstdint>

#include "model/camera_state.h"

namespace kolmsim {

/// Format, mode and frame rate index that the camera is set to.
struct CurrentMode {
    std::uint32_t format;
    std::uint32_t mode;
    std::uint32_t rate;
};
[[nodiscard]] CurrentMode ReadCurrentMode(const CameraState& state);

/// Whether the camera can work in the mode that it is set to.
[[nodiscard]] bool IsOffered(const CameraState& state, const CurrentMode& mode);

/// Bits of each pixel in a mode that is offered; else 0.
[[nodiscard]] std::uint32_t BitsPerPixel(const CameraState& state, const CurrentMode& mode);

/// Bytes that the camera sends in each packet while it streams; 0 in a mode that it lacks.
[[nodiscard]] std::uint32_t PacketBytes(const CameraState& state, const CurrentMode& mode);

/// What the bus carries: bytes of each packet in use and free, and channels in use, channel 0 the highest bit of
/// `high`.
///
/// The camera takes its share while isochronous transmission is enabled; channel 31 is always in use.
struct BusFigures {
    std::uint32_t packetBytesUsed;
    std::uint32_t packetBytesFree;
    std::uint32_t channelsHigh;
    std::uint32_t channelsLow;
};
[[nodiscard]] BusFigures ReadBusFigures(const CameraState& state);

// Registers
[[nodiscard]] std::uint32_t ReadModeInquiry(const CameraState& state, std::uint32_t address);
[[nodiscard]] std::uint32_t ReadRateInquiry(const CameraState& state, std::uint32_t address);
[[nodiscard]] std::uint32_t ReadModeError(const CameraState& state, std::uint32_t address);
[[nodiscard]] std::uint32_t ReadDataDepth(const CameraState& state, std::uint32_t address);

/// Channel and speed in both places that IIDC has for them; b15 says which place counts in a write.
[[nodiscard]] std::uint32_t ReadIsoControl(const CameraState& state, std::uint32_t address);
void WriteIsoControl(CameraState& state, std::uint32_t address, std::uint32_t word);

}  // namespace kolmsim
