#pragma once
/// @file  Numbers as hexadecimal and binary text, as edits show and take them. No Windows header.

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

namespace kolmfluxor {

/// What is left of a typed text with a character that is no hexadecimal digit: the digits before the first such one.
///
/// This module's own rule for a text that does not begin with a digit: its first character is left, so the result can
/// be the whole text.
///
/// @return  nothing for a text of digits only and for an empty one
[[nodiscard]] std::optional<std::string_view> CutHexText(std::string_view text);

/// The number that "%x" reads from a text: after blanks, a sign and "0x", which may be there, come the digits.
///
/// @return  0 when there is no digit. Of longer numbers, up to 16 digits keep their low 32 bits; more give ffffffff.
[[nodiscard]] std::uint32_t ParseHexText(const std::string& text);

/// The number as "%x": lower case, no prefix.
[[nodiscard]] std::string HexText(std::uint32_t number);

/// 32 digits, bit 31 first.
[[nodiscard]] std::string BinaryText(std::uint32_t number);

}  // namespace kolmfluxor
