#pragma once
/// @file  Places of the viewer's controls.

#include <windows.h>

namespace kolmview {

/// Gives the whole client area to the picture, except for a strip below it with histogram, figures and buttons.
void LayOutViewer(HWND viewer);

/// The size of the whole window that shows a picture pixel for pixel, or as much of it as the screen has room for.
[[nodiscard]] SIZE SizeForPicture(HWND viewer, SIZE picture);

/// The smallest size of the whole window in which the strip is complete.
[[nodiscard]] SIZE SmallestSize(HWND viewer);

}  // namespace kolmview
