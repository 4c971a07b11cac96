#pragma once
/// @file  Puts a camera into the state that a document tells.

#include "camera.h"
#include "settings/load_report.h"

namespace kolmctl {

/// Writes all settings in the order that the camera takes them, automatic modes last, then reads them back.
///
/// What the camera refuses is reported, and the rest is set all the same. A setting that is as wanted is not written.
///
/// @param settings  the part of a document that CheckSettings accepted
[[nodiscard]] LoadReport LoadSettings(Camera& camera, const Json& settings);

}  // namespace kolmctl
