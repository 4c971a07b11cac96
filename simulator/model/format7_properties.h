#pragma once
/// @file  The driver's properties of the scalable video modes: ids 13 to 18, 20 and 65.
///
/// The 96-byte record: mode at 28, packet size 32, bits per pixel 44, left 48, top 52, width 56, height 60, largest
/// packet 64, color coding 68, unit width 72, unit height 76, largest width 80, largest height 84, bytes of a frame 88,
/// recommended packet size 92. In a SET a packet size of 0 stands for the recommended one.

#include "model/camera_state.h"
#include "model/record.h"
#include "model/status.h"

namespace kolmsim {

/// Id 13: GET fills the record of the mode named at 28; SET takes geometry, color coding and packet size when the mode
/// can do exactly that, else it is refused.
[[nodiscard]] Status AnswerFormat7Info(CameraState& state, Record record);

/// Id 14: which of the color codings that the camera offers the selected mode uses, as an index at 28; the color coding
/// id comes back at 44.
[[nodiscard]] Status AnswerFormat7Coding(CameraState& state, Record record);

/// Id 15: selects a mode for the properties that name none.
[[nodiscard]] Status AnswerFormat7Selection(CameraState& state, Record record);

/// Id 16, a 32-byte record: packet size of the selected mode at 24.
[[nodiscard]] Status AnswerFormat7Packet(CameraState& state, Record record);

/// Id 17: as id 13, but a SET takes the nearest that the mode can do. A word at 64 that is not 0 bounds the packet
/// size.
[[nodiscard]] Status AnswerFormat7Nearest(CameraState& state, Record record);

/// Id 18, GET only: the record of the selected mode.
[[nodiscard]] Status AnswerFormat7Current(CameraState& state, Record record);

/// Id 20, SET only: answers what 88 and 92 would be for geometry and color coding, and changes nothing.
[[nodiscard]] Status AnswerFormat7Calculation(CameraState& state, Record record);

/// Id 65, a 40-byte record: mode at 24, left 28, top 32. A SET takes the nearest position and answers it.
[[nodiscard]] Status AnswerImagePosition(CameraState& state, Record record);

}  // namespace kolmsim
