#pragma once
/// @file  The camera's registers as the bus sees them: single words by address.

#include <cstdint>
#include <optional>

#include "model/camera_state.h"
#include "model/record.h"
#include "model/status.h"

namespace kolmsim {

/// What a register shows; nothing where there is none. Lets no time pass.
[[nodiscard]] std::optional<std::uint32_t> ReadRegister(const CameraState& state, std::uint32_t address);

/// Writes a register as the bus does; false where there is none.
bool WriteRegister(CameraState& state, std::uint32_t address, std::uint32_t word);

/// The camera changes a register by itself: as a write where a write acts, else the word shows from now on as it is,
/// in a register that can only be read too. False where there is no register.
bool ForceRegister(CameraState& state, std::uint32_t address, std::uint32_t word);

/// Answers a GET or SET of the register record (driver id 11) in place. An address without a register, or one that is
/// no multiple of 4, answers invalidAddress.
[[nodiscard]] Status AnswerRegister(CameraState& state, Record record);

/// Lets happen what happens when a register is read by the driver.
void LookAtRegister(CameraState& state, std::uint32_t address);

}  // namespace kolmsim
