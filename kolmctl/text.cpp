#include "text.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cmath>
#include <cstdio>

#include <windows.h>

namespace kolmctl {
namespace {

std::wstring FromCodePage(UINT codePage, std::string_view text) {
    const int length = static_cast<int>(text.size());
    const int needed = ::MultiByteToWideChar(codePage, 0, text.data(), length, nullptr, 0);
    std::wstring utf16(static_cast<std::size_t>(std::max(needed, 0)), L'\0');
    ::MultiByteToWideChar(codePage, 0, text.data(), length, utf16.data(), needed);
    return utf16;
}

}  // namespace

std::string ToUtf8(std::wstring_view text) {
    const int length = static_cast<int>(text.size());
    const int needed = ::WideCharToMultiByte(CP_UTF8, 0, text.data(), length, nullptr, 0, nullptr, nullptr);
    std::string utf8(static_cast<std::size_t>(std::max(needed, 0)), '\0');
    ::WideCharToMultiByte(CP_UTF8, 0, text.data(), length, utf8.data(), needed, nullptr, nullptr);
    return utf8;
}

std::wstring ToUtf16(std::string_view text) {
    return FromCodePage(CP_UTF8, text);
}

std::string AnsiToUtf8(std::string_view text) {
    return ToUtf8(FromCodePage(CP_ACP, text));
}

std::string Windows1252ToUtf8(std::string_view text) {
    return ToUtf8(FromCodePage(1252, text));
}

bool EqualWithoutCase(std::wstring_view a, std::wstring_view b) {
    return ::CompareStringOrdinal(a.data(), static_cast<int>(a.size()), b.data(), static_cast<int>(b.size()), TRUE) ==
           CSTR_EQUAL;
}

bool ContainsWithoutCase(std::wstring_view text, std::wstring_view part) {
    for (std::size_t start = 0; start + part.size() <= text.size(); ++start) {
        if (EqualWithoutCase(text.substr(start, part.size()), part)) {
            return true;
        }
    }
    return false;
}

std::optional<std::uint32_t> ParseNumber(std::string_view text) {
    const bool hexadecimal = text.starts_with("0x") || text.starts_with("0X");
    const std::string_view digits = hexadecimal ? text.substr(2) : text;
    std::uint32_t value = 0;
    const auto [end, error] =
        std::from_chars(digits.data(), digits.data() + digits.size(), value, hexadecimal ? 16 : 10);
    if (error != std::errc() || end != digits.data() + digits.size()) {
        return std::nullopt;
    }
    return value;
}

std::optional<std::int64_t> ParseThousandths(std::string_view text) {
    constexpr double kLargest = 1e6;
    double number = 0;
    const char* const textEnd = text.data() + text.size();
    const auto [end, error] = std::from_chars(text.data(), textEnd, number, std::chars_format::fixed);
    // Written so that it refuses "nan" as well.
    const bool possible = error == std::errc() && end == textEnd && number > 0 && number <= kLargest;
    const std::int64_t thousandths = possible ? std::llround(number * 1000) : 0;
    return thousandths != 0 ? std::optional(thousandths) : std::nullopt;
}

std::string Hex32(std::uint32_t value) {
    std::array<char, 16> text{};
    std::snprintf(text.data(), text.size(), "0x%08X", value);
    return text.data();
}

std::string Join(const std::vector<std::string>& texts, std::string_view separator) {
    std::string joined;
    for (std::size_t i = 0; i < texts.size(); ++i) {
        joined += (i == 0 ? "" : std::string(separator)) + texts[i];
    }
    return joined;
}

std::string Wrap(std::string_view text, std::size_t width) {
    std::string wrapped;
    std::size_t column = 0;
    while (!text.empty()) {
        const std::size_t end = std::min(text.find(' '), text.size());
        const std::string_view word = text.substr(0, end);
        text.remove_prefix(std::min(end + 1, text.size()));
        if (column != 0 && column + 1 + word.size() > width) {
            wrapped += "\n";
            column = 0;
        } else if (column != 0) {
            wrapped += " ";
            ++column;
        }
        wrapped += word;
        column += word.size();
    }
    return wrapped;
}

std::size_t CountCharacters(std::string_view utf8) {
    // Every byte but the continuation bytes, which are 10xxxxxx, starts a character.
    const auto starts = [](char byte) { return (static_cast<unsigned char>(byte) & 0xC0U) != 0x80U; };
    return static_cast<std::size_t>(std::ranges::count_if(utf8, starts));
}

}  // namespace kolmctl
