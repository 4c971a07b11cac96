#pragma once
/// @file  What becomes of a failing edit of a video mode.

#include <functional>

#include <windows.h>

namespace kolmfluxor {

/// Runs an edit. A `CKolmFluxorException` is shown in a message box captioned "Error" (none is thrown by the media
/// types of today), any other exception is dropped: the field keeps what the user typed.
///
/// @param owner  of the message box
void RunFormatEdit(HWND owner, const std::function<void()>& edit);

}  // namespace kolmfluxor
