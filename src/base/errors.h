#pragma once
/// @file  The exception with a fixed text, and the conversion of Win32 errors.

#include <exception>

#include <windows.h>

namespace kolmfluxor {

/// An exception that carries one fixed text.
///
/// `std::exception` of this compiler's library cannot hold a text. Every helper class reports misuse through this type,
/// with a text of the form "Class::Method: what failed"; the texts are fixed, their spelling included.
class CTextException : public std::exception {
public:
    /// @param text  kept by pointer: a string literal, or anything else that outlives the exception
    explicit CTextException(const char* text) noexcept : m_text(text) {}

    [[nodiscard]] const char* what() const noexcept override { return m_text; }

private:
    const char* m_text;
};

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
