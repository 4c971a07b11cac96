#pragma once
/// @file  The system's dialog for the name of a file.

#include <string>

#include <windows.h>

namespace kolmview {

/// Asks under which name a PNG file is to be written. @return  empty when the user thinks better of it
[[nodiscard]] std::wstring AskForPngFile(HWND owner);

}  // namespace kolmview
