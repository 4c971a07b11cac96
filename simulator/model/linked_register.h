#pragma once
/// @file  The maker's registers that show a feature: value field and switch, as a table.

#include <cstdint>

#include "model/camera_state.h"

namespace kolmsim {

/// What such a register shows: presence where the camera has the feature, its value, its switch, and the stored word's
/// other bits.
[[nodiscard]] std::uint32_t ReadLinked(const CameraState& state, std::uint32_t address);

/// Puts value and switch into the feature, and the other writable bits into the stored word. A value that the feature
/// does not take changes nothing.
void WriteLinked(CameraState& state, std::uint32_t address, std::uint32_t word);

void LookAtLinked(CameraState& state, std::uint32_t address);

/// The color correction's control register: its switch is on while the correction is off, b24 restores the matrix.
[[nodiscard]] std::uint32_t ReadColorCorrection(const CameraState& state, std::uint32_t address);
void WriteColorCorrection(CameraState& state, std::uint32_t address, std::uint32_t word);

/// One coefficient of the matrix, a signed number of thousandths; reads 0 on a camera without color.
[[nodiscard]] std::uint32_t ReadColorCoefficient(const CameraState& state, std::uint32_t address);
void WriteColorCoefficient(CameraState& state, std::uint32_t address, std::uint32_t word);

/// Restores the factory's coefficients.
void ResetColorMatrix(CameraState& state);

}  // namespace kolmsim
