#pragma once
/// @file  The pictures that the camera makes up by itself (driver id 3).

#include <cstdint>

#include "model/camera_state.h"
#include "model/record.h"
#include "model/status.h"

namespace kolmsim {

/// Test images that the camera has at the factory: image n is bit n - 1.
inline constexpr std::uint32_t kTestImages = 0x7;

/// Number of the test image that takes the scene's place; 0 for none.
[[nodiscard]] std::uint32_t CurrentTestImage(const CameraState& state);

/// Answers driver id 3 in place: number at 24, mask of images at 32. A SET takes 0 or an image of the mask.
[[nodiscard]] Status AnswerTestImage(CameraState& state, Record record);

/// The control register; a number without an image changes nothing.
[[nodiscard]] std::uint32_t ReadTestImage(const CameraState& state, std::uint32_t address);
void WriteTestImage(CameraState& state, std::uint32_t address, std::uint32_t word);

void ResetTestImage(CameraState& state);

}  // namespace kolmsim
