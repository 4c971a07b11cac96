#include "base/hex_text.h"

#include <algorithm>
#include <array>
#include <bitset>
#include <charconv>
#include <cstddef>
#include <cstdlib>
#include <locale>

namespace kolmfluxor {

std::optional<std::string_view> CutHexText(std::string_view text) {
    const auto isDigit = [](char c) { return std::isxdigit(c, std::locale::classic()); };
    const auto stranger = std::ranges::find_if_not(text, isDigit);
    if (stranger == text.end()) return std::nullopt;
    // Compatibility: a first character that is no digit stays, so that somebody sees what was wrong.
    const auto length = std::max<std::ptrdiff_t>(stranger - text.begin(), 1);
    return text.substr(0, static_cast<std::size_t>(length));
}

std::uint32_t ParseHexText(const std::string& text) {
    return static_cast<std::uint32_t>(std::strtoull(text.c_str(), nullptr, 16));
}

std::string HexText(std::uint32_t number) {
    std::array<char, 8> digits{};
    const auto end = std::to_chars(digits.data(), digits.data() + digits.size(), number, 16).ptr;
    return {digits.data(), end};
}

std::string BinaryText(std::uint32_t number) {
    return std::bitset<32>(number).to_string();
}

}  // namespace kolmfluxor
