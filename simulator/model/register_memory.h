#pragma once
/// @file  The camera's register memory: which addresses exist and the words behind them.

#include <cstdint>

#include "model/camera_state.h"
#include "model/record.h"
#include "model/status.h"

namespace kolmsim {

/// Start of each block of registers; addresses are the low 32 bits of the 48-bit bus address.
inline constexpr std::uint32_t kIidcBase = 0xF0F00000;
inline constexpr std::uint32_t kFormat7Base = 0xF0F08000;
inline constexpr std::uint32_t kVendorBase = 0xF1000000;

/// The word at an address, or null where the camera has no register. An address must be a multiple of 4.
[[nodiscard]] std::uint32_t* FindRegister(CameraState& state, std::uint32_t address);

/// Answers a GET or SET of the register record (driver id 11) in place.
[[nodiscard]] Status AnswerRegister(CameraState& state, Record record);

}  // namespace kolmsim
