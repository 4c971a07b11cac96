#pragma once
/// @file  Reading and writing a camera's settings.

#include <optional>

#include "camera.h"
#include "settings/setting.h"

namespace kolmctl {

/// All fields of a setting as the camera has them, in the order of its fields; nothing where the camera lacks it.
///
/// @throws CallError when the camera does not answer
[[nodiscard]] std::optional<Json> ReadSetting(Camera& camera, const Setting& setting);

/// What a file should hold of them: without what the camera chooses by itself at the moment, and without modes that do
/// not last. A one-push adjustment counts as the Manual that it ends in.
[[nodiscard]] Json LastingFields(Camera& camera, const Setting& setting, const Json& fields);

/// Whether the camera chooses this field by itself, given the setting's fields as read.
[[nodiscard]] bool IsChosenByCamera(Camera& camera, const Setting& setting, const SettingField& field,
                                    const Json& fields);

/// Writes the named fields; the others stay.
///
/// @param fields  some of the setting's, of which none has a Complaint
/// @throws Error when the camera refuses
void WriteSetting(Camera& camera, const Setting& setting, const Json& fields);

}  // namespace kolmctl
