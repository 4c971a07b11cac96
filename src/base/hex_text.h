#pragma once
/// @file  Numbers as hexadecimal and binary text, as edits show and take them. No Windows header.

#include <cstdint>
#include <string>
#include <string_view>

namespace kolmfluxor {

/// A typed text up to its last hexadecimal digit before the first other character.
///
/// This module's own rule for what is left of a text: of one that does not begin with a digit, its first character.
[[nodiscard]] std::string_view CutHexText(std::string_view text);

/// The number that "%x" reads from a text: after blanks, a sign and "0x", which may be there, come the digits.
///
/// @return  0 when there is no digit; the low 32 bits of a longer number
[[nodiscard]] std::uint32_t ParseHexText(const std::string& text);

/// The number as "%x": lower case, no prefix.
[[nodiscard]] std::string HexText(std::uint32_t number);

/// 32 digits, bit 31 first.
[[nodiscard]] std::string BinaryText(std::uint32_t number);

}  // namespace kolmfluxor
