#pragma once
/// @file  Features that are one thing in the camera: the exposure time, the white balance.

#include <cstdint>

#include "model/camera_state.h"

namespace kolmsim {

/// Carries a feature's new value on to the features that it goes along with.
///
/// The extended shutter (id 7) is the exposure time in microseconds. Shutter (5) and time base (6) make it; an extended
/// shutter written makes the shutter, rounded down to whole units and kept inside its range.
void CoupleValue(CameraState& state, std::uint32_t id);

/// Carries a feature's new mode on: both white balances (ids 1 and 2) always work in one mode.
void CoupleMode(CameraState& state, std::uint32_t id);

}  // namespace kolmsim
