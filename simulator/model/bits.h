#pragma once
/// @file  Bit fields of 32-bit register words. Bit 31 is the most significant one (the bit that IIDC calls number 0).

#include <algorithm>
#include <cstdint>

namespace kolmsim {

/// All bits of a field `msb` down to `lsb`.
[[nodiscard]] constexpr std::uint32_t FieldMask(unsigned msb, unsigned lsb) {
    return (0xFFFFFFFFU >> (31 - msb)) & (0xFFFFFFFFU << lsb);
}

/// The field's value, shifted down.
[[nodiscard]] constexpr std::uint32_t Field(std::uint32_t word, unsigned msb, unsigned lsb) {
    return (word & FieldMask(msb, lsb)) >> lsb;
}

[[nodiscard]] constexpr bool Bit(std::uint32_t word, unsigned bit) {
    return (word >> bit & 1) != 0;
}

/// A word with this bit set, or 0.
[[nodiscard]] constexpr std::uint32_t BitIf(bool set, unsigned bit) {
    return set ? 1U << bit : 0;
}

/// A value in its field; one that is too large for the field shows as the largest that fits.
[[nodiscard]] constexpr std::uint32_t Place(std::uint32_t value, unsigned msb, unsigned lsb) {
    const std::uint32_t largest = FieldMask(msb, lsb) >> lsb;
    return std::min(value, largest) << lsb;
}

}  // namespace kolmsim
