#pragma once
/// @file  Pictures of windows.

#include <windows.h>

#include "picture.h"

namespace kolmctl {

/// Takes a picture of a window's client area with everything in it, as it is painted now. @throws CallError
[[nodiscard]] Picture TakePicture(HWND window);

}  // namespace kolmctl
