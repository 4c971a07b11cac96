#pragma once
/// @file  Fields of a 32-bit register word. No Windows header: this also builds natively.
///
/// Bit 31 is the most significant bit (the one that IIDC documents number 0).

#include <cstdint>

namespace kolmfluxor {

/// A field of a register: bits `msb` down to `lsb`. A range that is none does not compile.
class BitRange {
public:
    consteval BitRange(unsigned msb, unsigned lsb) : m_msb(msb), m_lsb(lsb) {
        if (msb > 31 || lsb > msb) throw "not a range of bits";
    }

    /// The field's bits, in place.
    [[nodiscard]] constexpr std::uint32_t Mask() const {
        return (m_msb - m_lsb == 31 ? 0xFFFFFFFFU : (1U << (m_msb - m_lsb + 1)) - 1) << m_lsb;
    }
    /// The field's value, shifted down.
    [[nodiscard]] constexpr std::uint32_t Of(std::uint32_t word) const { return (word & Mask()) >> m_lsb; }
    /// `word` with `value` in the field; bits of `value` that do not fit are dropped.
    [[nodiscard]] constexpr std::uint32_t Put(std::uint32_t word, std::uint32_t value) const {
        return (word & ~Mask()) | ((value << m_lsb) & Mask());
    }

private:
    unsigned m_msb;
    unsigned m_lsb;
};

}  // namespace kolmfluxor
