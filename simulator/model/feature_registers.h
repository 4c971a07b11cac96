#pragma once
/// @file  The standard features as IIDC registers: inquiry and control.

#include <cstdint>

#include "model/camera_state.h"

namespace kolmsim {

/// Bits 31 to 16: which of the sixteen standard features the camera has.
[[nodiscard]] std::uint32_t ReadFeatureHiInquiry(const CameraState& state, std::uint32_t address);

/// Capabilities and range of one feature; 0 for one that the camera lacks. Numbers beyond 12 bits show as 4095.
[[nodiscard]] std::uint32_t ReadFeatureInquiry(const CameraState& state, std::uint32_t address);

/// The control register of one feature: presence, one-push, on/off, auto and value; white balance has two values.
[[nodiscard]] std::uint32_t ReadFeatureControl(const CameraState& state, std::uint32_t address);

/// Takes mode and value over. In Auto and one-push the value is not looked at; a mode that the feature lacks counts as
/// the nearest it has. A value out of range changes nothing and sets the feature's bit in the error register, which
/// the next good write clears.
void WriteFeatureControl(CameraState& state, std::uint32_t address, std::uint32_t word);

void LookAtFeatureControl(CameraState& state, std::uint32_t address);

/// Sets or clears the error bit of the standard feature with this place in the registers.
void NoteFeatureError(CameraState& state, std::uint32_t place, bool error);

}  // namespace kolmsim
