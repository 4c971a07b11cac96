#pragma once
/// @file  What a sensor is not ideal in: fixed-pattern noise, blemishes, and noise that grows with the gain.

#include <cstdint>
#include <span>

#include "model/camera_state.h"
#include "model/pixel_pipeline.h"
#include "model/render_settings.h"

namespace kolmsim {

/// Takes from a camera's memory which flaws show: those that no correction takes away.
///
/// In the factory state none does. The noise starts above the neutral gain; High SNR takes the mean of so many pictures
/// as its value says, which divides the noise by the square root of that.
void TakeSensorFlaws(RenderSettings& settings, const CameraState& state);

/// Puts the flaws into one row of light; a test image stays as it is. Each flaw belongs to a pixel of the sensor.
///
/// @param y    row of the sensor, from the top
/// @param row  light from left to right
void AddSensorFlaws(const RenderSettings& settings, std::uint64_t frameNumber, std::uint32_t y, std::span<Rgb> row);

}  // namespace kolmsim
