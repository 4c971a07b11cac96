#pragma once
/// @file  Arguments that several subcommands take.

#include <cstdint>
#include <string>

namespace kolmctl {

/// A value from 0 to 4294967295, decimal or 0x...
///
/// @throws UsageError when the text is anything else
[[nodiscard]] std::uint32_t ParseValue(const std::string& text);

/// As ParseValue, for a number with a name of its own. @param what  such as "LUT number", for the message
[[nodiscard]] std::uint32_t ParseNumberOf(const char* what, const std::string& text);

}  // namespace kolmctl
