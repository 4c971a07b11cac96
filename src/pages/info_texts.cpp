#include "pages/info_texts.h"

#include <algorithm>
#include <cstddef>
#include <cstdio>

namespace kolmfluxor {

void FormatDecimal(std::span<char> buffer, std::uint32_t figure) {
    std::snprintf(buffer.data(), buffer.size(), "%d", static_cast<int>(figure));
}

void FormatSerialNumber(std::span<char> buffer, std::uint32_t figure) {
    std::snprintf(buffer.data(), buffer.size(), "%08d", static_cast<int>(figure));
}

void FormatVersion(std::span<char> buffer, std::uint32_t figure) {
    const auto nibble = [figure](unsigned bit) { return (figure >> bit) & 15U; };
    // Compatibility: bits 20 to 23 and 28 to 31 are not shown; the dotted form has three pairs of digits.
    std::snprintf(buffer.data(), buffer.size(), "%x%x.%x%x.%x%x", nibble(24), nibble(16), nibble(12), nibble(8),
                  nibble(4), nibble(0));
}

void FormatBits(std::span<char> buffer, std::uint32_t figure) {
    constexpr std::size_t kBits = 32;
    if (buffer.size() < kBits + 1) return;
    std::ranges::fill(buffer, '\0');
    for (std::size_t i = 0; i < kBits; ++i)
        buffer[i] = ((figure >> (kBits - 1 - i)) & 1U) != 0 ? '1' : '0';
}

}  // namespace kolmfluxor
