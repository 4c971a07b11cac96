#pragma once
/// @file  The scalable video modes as registers, 0x1000 bytes for each mode.

#include <cstdint>

#include "model/camera_state.h"

namespace kolmsim {

/// Where the registers of a mode lie, in quadlets from 0xF0000000; 0 for a mode that the camera lacks.
[[nodiscard]] std::uint32_t ReadFormat7Address(const CameraState& state, std::uint32_t address);

/// One register of a mode; 0 throughout for a mode that the camera lacks.
[[nodiscard]] std::uint32_t ReadFormat7(const CameraState& state, std::uint32_t address);

/// Image position and size, color coding and packet size can be written and act at once. A size moves the image where
/// it does not fit any more; size and color coding enlarge packets that would be too many. What the mode cannot do
/// changes nothing and sets the error flag (b23 of the value setting register), which the next good write clears.
void WriteFormat7(CameraState& state, std::uint32_t address, std::uint32_t word);

}  // namespace kolmsim
