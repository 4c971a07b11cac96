#pragma once
/// @file  The camera's current video mode, isochronous channel and speed, and what the bus carries of them.

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

/// Bytes that the bus at its present speed carries in each packet time.
[[nodiscard]] std::uint32_t BusCapacity(const CameraState& state);

/// Whether isochronous transmission is enabled.
[[nodiscard]] bool IsStreaming(const CameraState& state);

/// Enables or disables isochronous transmission; either way no picture is left to be taken for an earlier trigger.
void SetStreaming(CameraState& state, bool on);

/// Whether the property is the isochronous channel or speed, which stay as they are while the camera streams.
[[nodiscard]] bool IsIsoSetting(std::uint32_t propertyId);

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

/// b31 enables isochronous transmission.
[[nodiscard]] std::uint32_t ReadIsoEnable(const CameraState& state, std::uint32_t address);
void WriteIsoEnable(CameraState& state, std::uint32_t address, std::uint32_t word);

/// Channel and speed in both places that IIDC has for them; b15 says which place counts in a write. A write while the
/// camera streams changes nothing.
[[nodiscard]] std::uint32_t ReadIsoControl(const CameraState& state, std::uint32_t address);
void WriteIsoControl(CameraState& state, std::uint32_t address, std::uint32_t word);

}  // namespace kolmsim
