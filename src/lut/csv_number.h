#pragma once
/// @file  The number in a cell of a LUT file.

#include <bit>
#include <cstddef>
#include <cstdint>
#include <cstring>
#include <string_view>

namespace kolmfluxor {

/// Converts a cell: leading blanks, an optional sign, decimal digits; the first other character ends the number.
///
/// Any number of digits counts; the result is the value's low 32 bits. Without a digit it is 0.
[[nodiscard]] constexpr std::uint32_t CsvNumber(std::string_view cell) noexcept {
    std::size_t i = 0;
    while (i < cell.size() && (cell[i] == ' ' || (cell[i] >= '\t' && cell[i] <= '\r')))
        ++i;
    const bool negative = i < cell.size() && cell[i] == '-';
    if (i < cell.size() && (cell[i] == '-' || cell[i] == '+')) ++i;
    std::uint32_t value = 0;
    for (; i < cell.size() && cell[i] >= '0' && cell[i] <= '9'; ++i)
        value = value * 10 + static_cast<std::uint32_t>(cell[i] - '0');
    return negative ? 0 - value : value;
}

/// As `CsvNumber`, and quick when the cell is 1 to 8 digits, which may be followed by CR and NUL.
///
/// @param cell  the 8 characters before the cell must be readable
[[nodiscard]] inline std::uint32_t CsvNumberQuick(std::string_view cell) noexcept {
    constexpr std::uint64_t kZeros = 0x3030303030303030;
    constexpr std::uint64_t kHighHalves = 0xF0F0F0F0F0F0F0F0;
    std::size_t length = cell.size();
    if (length != 0 && cell[length - 1] == '\0') --length;
    if (length != 0 && cell[length - 1] == '\r') --length;
    if (std::endian::native != std::endian::little || length - 1 >= sizeof(std::uint64_t)) return CsvNumber(cell);

    // The eight characters up to the end, the first one lowest; those before the cell count as '0'.
    std::uint64_t digits = 0;
    std::memcpy(&digits, cell.data() + length - sizeof digits, sizeof digits);
    const std::uint64_t ours = ~std::uint64_t{0} << (8 * (sizeof digits - length));
    digits = (digits & ours) | (kZeros & ~ours);
    const bool onlyDigits = (digits & kHighHalves) == kZeros && ((digits + 0x0606060606060606) & kHighHalves) == kZeros;
    if (!onlyDigits) return CsvNumber(cell);

    // Neighbors become pairs, pairs fours, fours the number.
    digits -= kZeros;
    digits = digits * 10 + (digits >> 8);
    constexpr std::uint64_t kPairs = 0x000000FF000000FF;
    constexpr std::uint64_t kFirstAndThird = 100 + (std::uint64_t{1'000'000} << 32);
    constexpr std::uint64_t kSecondAndFourth = 1 + (std::uint64_t{10'000} << 32);
    return static_cast<std::uint32_t>(
        ((digits & kPairs) * kFirstAndThird + ((digits >> 16) & kPairs) * kSecondAndFourth) >> 32);
}

}  // namespace kolmfluxor
