#pragma once
/// @file  The exception with a fixed text. No Windows header: this also builds natively.

#include <exception>

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

}  // namespace kolmfluxor
