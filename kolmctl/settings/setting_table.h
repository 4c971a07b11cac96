#pragma once
/// @file  All settings that a file keeps.

#include <vector>

#include "settings/setting.h"

namespace kolmctl {

/// All settings, in the order of files, which is the one in which a camera takes them.
[[nodiscard]] std::vector<Setting> AllSettings();

}  // namespace kolmctl
