#pragma once
/// @file  The decoders' data: the types of a row, its audit at compile time, and the tables.

#include <cstddef>
#include <cstdint>
#include <span>
#include <string_view>

#include "base/bit_field.h"

namespace kolmfluxor {

/// What a field's line shows.
enum class FieldKind : std::uint8_t {
    number,       ///< the bits as an unsigned number
    address,      ///< the bits times 4: registers hold addresses in quadlets
    thousandths,  ///< the bits as a signed number divided by 1000.0; of the whole word only
    frameRate,    ///< the rate of a frame-rate number; the row's text is for numbers that have none
};

/// A field of a register: one line.
struct RegisterField {
    const char* text;  ///< printf format with one conversion: %d or %x, %lf for thousandths
    BitRange bits;
    FieldKind kind = FieldKind::number;
};

/// How the registers at first, first + 4, ..., last are decoded. No other address between them matches.
struct RegisterDecoder {
    std::uint32_t first;
    std::uint32_t last;
    const char* heading;  ///< printf format with one %x, for the address
    std::span<const RegisterField> fields;
};

inline constexpr std::size_t kLineSize = 255;  ///< of the buffer in which a line is formatted, with its NUL

inline constexpr BitRange kWholeWord{31, 0};

/// The layout of every address that no table names.
// Compatibility: Auto stands before OnePush, against the order of their bits.
inline constexpr RegisterField kDefaultFields[] = {
    {"Presents: %d", {31, 31}}, {"Auto: %d", {24, 24}}, {"OnePush: %d", {26, 26}},
    {"OnOff: %d", {25, 25}},    {"Value: %d", {11, 0}},
};

/// IIDC registers, by address.
[[nodiscard]] std::span<const RegisterDecoder> IidcDecoders();
/// The maker's registers, by address.
[[nodiscard]] std::span<const RegisterDecoder> KolmDecoders();
/// The registers of a Format 7 mode, by their offset in the mode's block.
[[nodiscard]] std::span<const RegisterDecoder> Format7Decoders();

/// The registers of the Format 7 modes: a block for each of the eight modes, one behind the other.
inline constexpr std::uint32_t kFormat7First = 0xF0F08000;
inline constexpr std::uint32_t kFormat7BlockSize = 0x1000;
inline constexpr std::uint32_t kFormat7Modes = 8;

/// Whether an address lies in one of these blocks.
[[nodiscard]] constexpr bool IsFormat7(std::uint32_t address) {
    return address >= kFormat7First && address - kFormat7First < kFormat7Modes * kFormat7BlockSize;
}

/// The row that decodes an address, the default one where no table has it; null for an address in a Format 7 block
/// that no register of such a block is decoded at.
[[nodiscard]] const RegisterDecoder* DecoderOf(std::uint32_t address);

/// Whether a format has exactly this conversion, and room for what it makes of any value.
consteval bool HasOneConversion(std::string_view format, std::string_view conversion) {
    constexpr std::size_t kLongestNumber = 20;  // "-2147483.648000" and then some
    const std::size_t place = format.find('%');
    return place != std::string_view::npos && format.find('%', place + 1) == std::string_view::npos &&
           format.substr(place).starts_with(conversion) && format.size() + kLongestNumber < kLineSize;
}

consteval bool WellFormed(const RegisterField& field) {
    switch (field.kind) {
    case FieldKind::number:
    case FieldKind::address:
        return HasOneConversion(field.text, "%d") || HasOneConversion(field.text, "%x");
    case FieldKind::thousandths:
        return HasOneConversion(field.text, "%lf") && field.bits.Mask() == kWholeWord.Mask();
    case FieldKind::frameRate:
        return HasOneConversion(field.text, "%d");
    }
    return false;
}

/// Whether ranges ascend without overlap and begin and end at registers, headings and fields have their formats.
consteval bool WellFormed(std::span<const RegisterDecoder> rows) {
    std::uint64_t free = 0;  // the first address behind the rows so far
    for (const RegisterDecoder& row : rows) {
        if (row.first % 4 != 0 || row.last % 4 != 0 || row.first > row.last || row.first < free) return false;
        if (!HasOneConversion(row.heading, "%x") || row.fields.empty()) return false;
        for (const RegisterField& field : row.fields) {
            if (!WellFormed(field)) return false;
        }
        free = std::uint64_t{row.last} + 1;
    }
    return true;
}

}  // namespace kolmfluxor
