#pragma once
/// @file  The exception that carries a code beside its text.

#include "base/errors.h"

namespace kolmfluxor {

/// A failure with a fixed text and a code; pages show the text in a message box.
///
/// Codes in use: 1 ("unable to retrieve current selection", "unable to retrieve item count") and 5 ("index into media
/// info store out of bounds").
class CKolmFluxorException : public CTextException {
public:
    CKolmFluxorException(const char* text, DWORD code) noexcept : CTextException(text), m_code(code) {}

    [[nodiscard]] DWORD Code() const noexcept { return m_code; }

private:
    DWORD m_code;
};

}  // namespace kolmfluxor
