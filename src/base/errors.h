#pragma once
/// @file  The exception with a fixed text, and the conversion of Win32 errors.

#include <windows.h>

#include "base/text_exception.h"

namespace kolmfluxor {

/// Turns a Win32 code into an `HRESULT`: a positive code becomes 0x80070000 OR its low 16 bits.
///
/// Zero, and a value that is already negative, come back as they are.
[[nodiscard]] constexpr HRESULT HResultFromWin32(LONG code) noexcept {
    return code <= 0 ? HRESULT{code} : static_cast<HRESULT>(0x80070000U | (static_cast<ULONG>(code) & 0xFFFFU));
}

/// `HResultFromWin32` of the calling thread's last error. Call it in the very next statement after the failed call.
[[nodiscard]] inline HRESULT HResultFromLastError() noexcept {
    return HResultFromWin32(static_cast<LONG>(::GetLastError()));
}

}  // namespace kolmfluxor
