#pragma once
/// @file  All settings that a file keeps.

#include <span>
#include <string>
#include <vector>

#include "settings/setting.h"

namespace kolmctl {

/// The table's rows, in the order of files, which is the one in which a camera takes them.
[[nodiscard]] std::span<const SettingRow> SettingRows();

/// The rows with their numbers, one setting each.
[[nodiscard]] std::vector<Setting> AllSettings();

}  // namespace kolmctl
