#pragma once
/// @file  What bounds the automatic functions (driver ids 24, 25 and 26). The settings live in the registers.

#include <cstdint>

#include "model/camera_state.h"
#include "model/record.h"
#include "model/status.h"

namespace kolmsim {

/// Id 24: shortest and longest automatic exposure time in microseconds, at 36 and 40.
[[nodiscard]] Status AnswerAutoShutter(CameraState& state, Record record);

/// Id 25: lowest and highest automatic gain, at 36 and 40.
[[nodiscard]] Status AnswerAutoGain(CameraState& state, Record record);

/// Id 26, a 48-byte record: the area that the automatic functions look at.
///
/// Units at 24 (vertical in the high half, horizontal in the low one; not taken from a SET), switch at 28 (0 or 1),
/// left 32, top 36, width 40, height 44 in pixels, all in whole units and inside the sensor.
[[nodiscard]] Status AnswerAutoArea(CameraState& state, Record record);

/// The gain register; limits that the gain feature does not have change nothing.
void WriteAutoGain(CameraState& state, std::uint32_t address, std::uint32_t word);

/// Position and size registers of the area; what lies outside the sensor changes nothing.
void WriteAutoAreaPosition(CameraState& state, std::uint32_t address, std::uint32_t word);
void WriteAutoAreaSize(CameraState& state, std::uint32_t address, std::uint32_t word);

}  // namespace kolmsim
