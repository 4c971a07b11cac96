#pragma once
/// @file  Takes from a camera's memory what shows in its pictures.

#include <array>
#include <cstdint>
#include <span>

#include "model/camera_state.h"
#include "model/render_settings.h"

namespace kolmsim {

[[nodiscard]] RenderSettings SettingsOf(const CameraState& state);

/// What a lookup table makes of each 8-bit level.
///
/// @param bytes         the table's memory: one byte for each value up to 8 bits, else two, the high one first
/// @param bitsPerValue  1 to 16; anything else leaves the levels as they are
[[nodiscard]] std::array<std::uint8_t, 256> LevelsOf(std::span<const std::uint8_t> bytes, std::uint32_t bitsPerValue);

}  // namespace kolmsim
