#pragma once
/// @file  HRESULTs in words.

#include <string>

#include <windows.h>

namespace kolmctl {

/// The code in hexadecimal, its name where it has one here, and what it means, as in
/// "0x80004001 E_NOTIMPL (the camera or the module does not support this)".
///
/// The meaning is this module's where it has one of its own, else the system's.
[[nodiscard]] std::string HResultText(HRESULT hr);

}  // namespace kolmctl
