#pragma once
/// @file  The external trigger (driver id 53) and its registers.

#include <cstdint>

#include "model/camera_state.h"
#include "model/record.h"
#include "model/status.h"

namespace kolmsim {

/// Driver id of the trigger.
inline constexpr std::uint32_t kTriggerProperty = 53;

/// Answers driver id 53 in place: parameter at 24, state at 28, inquiry at 32.
///
/// State and inquiry share their bits: on 0x20, inverted 0x40, signal level 0x80, sources 0x100 to 0x800, modes 0x10000
/// to 0x200000, 0x40000000 and 0x80000000. A SET takes on, inverted, at most one source and at most one mode, all of
/// them bits of the inquiry; without a source or mode the old one stays. The parameter has 12 bits. A camera without a
/// trigger answers zeros and refuses every SET.
[[nodiscard]] Status AnswerTrigger(CameraState& state, Record record);

/// Whether the camera waits for triggers: its trigger is on, or can't be switched off.
[[nodiscard]] bool IsTriggerOn(const CameraState& state);

[[nodiscard]] std::uint32_t ReadTriggerInquiry(const CameraState& state, std::uint32_t address);
[[nodiscard]] std::uint32_t ReadTrigger(const CameraState& state, std::uint32_t address);

/// A source or mode that the camera lacks changes nothing and sets the trigger's bit in the error register.
void WriteTrigger(CameraState& state, std::uint32_t address, std::uint32_t word);

/// One trigger, from the bus or at an input: counted while the trigger is on. It asks for one picture, in mode 15 for
/// as many as the parameter says; pictures that come slower wait in line, until the camera starts or ends its stream.
///
/// @return  false while the trigger is off: nothing waits for it
bool Trigger(CameraState& state);

/// Whether the next picture may be taken: the trigger is off, or has asked for one, which is then over.
[[nodiscard]] bool PassTrigger(CameraState& state);

/// b31 is a trigger from the bus; the bit reads 0.
void WriteSoftTrigger(CameraState& state, std::uint32_t address, std::uint32_t word);

void ResetTrigger(CameraState& state);

}  // namespace kolmsim
