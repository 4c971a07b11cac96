#pragma once
/// @file  Texts: UTF-8 inside the program and on its output, UTF-16 towards Windows.

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace kolmctl {

/// Converts to UTF-8; what is no valid UTF-16 becomes U+FFFD.
[[nodiscard]] std::string ToUtf8(std::wstring_view text);

/// Converts to UTF-16; what is no valid UTF-8 becomes U+FFFD.
[[nodiscard]] std::wstring ToUtf16(std::string_view text);

/// Converts a text in the system's code page.
[[nodiscard]] std::string AnsiToUtf8(std::string_view text);

/// Converts a text in Windows code page 1252, whatever the system's own is.
[[nodiscard]] std::string Windows1252ToUtf8(std::string_view text);

/// Compares as Windows compares file names: by code unit, without case.
[[nodiscard]] bool EqualWithoutCase(std::wstring_view a, std::wstring_view b);

/// Whether `text` holds `part`, without case. Everything holds an empty part.
[[nodiscard]] bool ContainsWithoutCase(std::wstring_view text, std::wstring_view part);

/// Reads a whole text as an unsigned 32-bit number: decimal, or hexadecimal after "0x".
[[nodiscard]] std::optional<std::uint32_t> ParseNumber(std::string_view text);

/// Reads a whole text as a decimal number such as "30" or "7.5", rounded to thousandths.
///
/// @return  the thousandths; nothing for anything but a number from 0.001 to 1000000
[[nodiscard]] std::optional<std::int64_t> ParseThousandths(std::string_view text);

/// "0x" and eight digits.
[[nodiscard]] std::string Hex32(std::uint32_t value);

/// Joins texts with a separator between them.
[[nodiscard]] std::string Join(const std::vector<std::string>& texts, std::string_view separator);

/// Breaks a text at blanks into lines of at most `width` characters; longer words get a line of their own.
[[nodiscard]] std::string Wrap(std::string_view text, std::size_t width);

/// The characters of a UTF-8 text, counted as code points: its width in columns for the scripts of Europe.
[[nodiscard]] std::size_t CountCharacters(std::string_view utf8);

}  // namespace kolmctl
