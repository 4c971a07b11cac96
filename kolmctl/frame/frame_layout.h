#pragma once
/// @file  Where the parts of the property frame stand.

#include <windows.h>

namespace kolmctl {

/// Gives the frame the size that its pages need, and all parts their places; centers it on the screen.
///
/// Everything is measured: sizes of the pages, of the tabs, of the buttons, and dialog units of the frame's font.
///
/// @param frame     with all its tabs
/// @param pageSize  of the largest page, in pixels
void LayOutFrame(HWND frame, SIZE pageSize);

}  // namespace kolmctl
