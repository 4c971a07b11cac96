#pragma once
/// @file  Texts that the interface allocates and its caller frees.

#include <objbase.h>

#include "output.h"
#include "text.h"

namespace kolmctl {

/// A text in task memory.
class OwnedText {
public:
    OwnedText() = default;
    ~OwnedText() { ::CoTaskMemFree(m_text); }
    OwnedText(const OwnedText&) = delete;
    OwnedText& operator=(const OwnedText&) = delete;

    [[nodiscard]] char** Out() { return &m_text; }

    /// Null when none was given.
    [[nodiscard]] Json Cell() const { return m_text != nullptr ? Json(AnsiToUtf8(m_text)) : Json(); }

private:
    char* m_text = nullptr;
};

}  // namespace kolmctl
