#pragma once
/// @file  A set of look-up tables (LUTs) in memory, as they are read from one file.

#include <cstddef>
#include <cstdint>
#include <string>
#include <vector>

namespace kolmfluxor {

/// One LUT: the output level of each input level, in input order.
template <class Value> struct Lut {
    std::string name;
    std::vector<Value> values;
};
using Lut8Bit = Lut<std::uint8_t>;
using Lut16Bit = Lut<std::uint16_t>;

/// Which LUTs of a set count; any other number is invalid.
enum class LutType : std::uint32_t { bits8 = 0, bits16 = 1 };

/// The LUTs of one file, all of one type.
///
/// Texts of exceptions are fixed, their spelling included. Misuse raises `CTextException`, a number out of range
/// `std::out_of_range`.
///
/// Compatibility: a number equal to the count of LUTs is not out of range; callers keep their numbers below the count
/// themselves. There is no such LUT, so it counts as one without name and values.
class CLutSet {
public:
    [[nodiscard]] bool IsValid() const noexcept { return m_valid; }
    [[nodiscard]] LutType Type() const noexcept { return m_type; }
    /// The number of LUTs of the current type.
    ///
    /// @throws CTextException  "LUT not valid", "unknown LUT type"
    [[nodiscard]] std::size_t GetLUTCount() const;
    /// @throws CTextException    "can not access 8 bit LUT type incompatible"
    /// @throws std::out_of_range  "LUT number larger then size of LUT vector"
    [[nodiscard]] const Lut8Bit& Get8BitLUT(std::size_t n) const;
    /// As `Get8BitLUT`, with "can not access 16 bit LUT type incompatible".
    [[nodiscard]] const Lut16Bit& Get16BitLUT(std::size_t n) const;
    /// A LUT's name; empty when the type is unknown. @throws std::out_of_range  as `Get8BitLUT`
    [[nodiscard]] std::string GetLUTName(std::size_t n) const;
    /// The size of a LUT's values in bytes.
    ///
    /// @throws CTextException    "LUTs not initialized" (the set is not valid), "lUT not initialized" (unknown type)
    /// @throws std::out_of_range  "lUT number larger then lUT vector size"
    [[nodiscard]] std::size_t GetLUTByteSize(std::size_t n) const;

    void SetValid(bool valid) noexcept { m_valid = valid; }
    void SetType(LutType type) noexcept { m_type = type; }
    void Resize8Bit(std::size_t count) { m_luts8.resize(count); }
    void Resize16Bit(std::size_t count) { m_luts16.resize(count); }
    /// The LUTs themselves, to be filled.
    [[nodiscard]] std::vector<Lut8Bit>& Luts8Bit() noexcept { return m_luts8; }
    [[nodiscard]] std::vector<Lut16Bit>& Luts16Bit() noexcept { return m_luts16; }

private:
    bool m_valid = false;  ///< a file has been loaded completely
    LutType m_type = LutType::bits8;
    std::vector<Lut8Bit> m_luts8;
    std::vector<Lut16Bit> m_luts16;
};

}  // namespace kolmfluxor
