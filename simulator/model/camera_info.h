#pragma once
/// @file  What the camera and its driver tell about themselves: ids 9, 10, 12, 29, 38, 42, 51, 52 and 56.

#include <cstdint>

#include "model/camera_state.h"
#include "model/record.h"
#include "model/status.h"

namespace kolmsim {

inline constexpr std::size_t kCameraInfoBytes = 800;
inline constexpr std::size_t kProperty10Bytes = 840;

/// Id 9, GET only: three texts of 256 bytes at 24, 280 and 536 (maker, model, driver), serial number at 792.
[[nodiscard]] Status AnswerCameraInfo(CameraState& state, Record record);

/// Id 10, GET only: count of figures at 24; width, height, bits per pixel, bytes per packet, packets per frame and
/// pixels of the current mode from 612 on, all 0 in a mode that the camera lacks.
[[nodiscard]] Status AnswerModeFigures(CameraState& state, Record record);

/// Id 12, a 32-byte record, GET only: current frame rate index, format and mode in one byte each at 28, mode lowest.
[[nodiscard]] Status AnswerCurrentMode(CameraState& state, Record record);

/// Id 29, SET only: puts the camera back into its factory state.
[[nodiscard]] Status AnswerFactoryReset(CameraState& state, Record record);

/// Id 38, GET only: versions of microcontroller and FPGA in the low halves of the words at 24 and 40.
[[nodiscard]] Status AnswerVersions(CameraState& state, Record record);

/// Id 42, deferred transfer: pictures to send at 24, room for pictures at 36; flags at 28: 0x8 hold, 0x800 fast
/// capture, 0x80000000 sending. A SET with no flag keeps the flags.
[[nodiscard]] Status AnswerDeferredTransfer(CameraState& state, Record record);

/// Id 51, GET only: the camera status register at 24.
[[nodiscard]] Status AnswerCameraStatus(CameraState& state, Record record);

/// Id 52, a 48-byte record, GET only: the input numbered at 24 (0 to 3): pin state at 28, mode 36, polarity 40, its
/// register 44.
[[nodiscard]] Status AnswerInput(CameraState& state, Record record);

/// Id 56, GET only: the figure named by the selector at 24 comes back at 28.
///
/// 5 and 6 expand the versions in the low halves of the words at 40 and 44, which the caller has read from the version
/// registers: 0x0312 gives 0x00031200. 41 to 44 are bytes per packet used and free, channels in use high and low.
[[nodiscard]] Status AnswerFigure(CameraState& state, Record record);

// Registers
[[nodiscard]] std::uint32_t ReadCameraVersion(const CameraState& state, std::uint32_t address);
[[nodiscard]] std::uint32_t ReadAdvancedInquiry1(const CameraState& state, std::uint32_t address);

/// Factory state with b31 of the initialize register or b26 of the soft reset register; both bits read 0.
void WriteInitialize(CameraState& state, std::uint32_t address, std::uint32_t word);
void WriteSoftReset(CameraState& state, std::uint32_t address, std::uint32_t word);

/// b30 starts the frame counter anew and reads 0.
void WriteFrameInfo(CameraState& state, std::uint32_t address, std::uint32_t word);

}  // namespace kolmsim
