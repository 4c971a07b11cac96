#pragma once
/// @file  The video format as a setting.

#include <string>

#include "camera.h"
#include "output.h"

namespace kolmctl {

/// Mode, pixel format, area and frame rate, without what the driver does not tell.
///
/// @throws Error when the pin does not answer
[[nodiscard]] Json ReadFormatFields(Camera& camera);

/// Sets what is named; the rest stays, or comes with a mode that is named.
///
/// @param intention  what is refused, for messages
/// @throws Error when there is no such format, or the camera refuses it
void WriteFormatFields(Camera& camera, const Json& fields, const std::string& intention);

}  // namespace kolmctl
