#pragma once
/// @file  The direct properties of the driver contract, one row each, by driver id.
///
/// Inputs and outputs are in the order of the methods' arguments. A row serves both directions where they use the same
/// places; a getter's inputs (a selector, an address, a mode) come first.

#include "driver/direct_property.h"

namespace kolmfluxor::property {

// clang-format off
inline constexpr DirectProperty kTestImage         = {.id =  3, .in = {24}, .out = {24}};
inline constexpr DirectProperty kTestImageInquiry  = {.id =  3, .out = {32}};
inline constexpr DirectProperty kProperty10        = {.id = 10, .sizeBytes = 840, .out = {612, 616, 620, 624, 628, 632, 24}};
inline constexpr DirectProperty kRegister          = {.id = 11, .sizeBytes = 32, .in = {24, 28}, .out = {28}};  // address, value
inline constexpr DirectProperty kProperty12        = {.id = 12, .sizeBytes = 32, .out = {28}};
inline constexpr DirectProperty kGetFormat7        = {.id = 13, .sizeBytes = 96, .in = {28}, .out = {48, 52, 56, 60, 64, 72, 76, 80, 84, 68, 32}};
inline constexpr DirectProperty kSetFormat7        = {.id = 13, .sizeBytes = 96, .in = {28, 48, 52, 56, 60, 68, 32}};
inline constexpr DirectProperty kProperty14        = {.id = 14, .sizeBytes = 96, .in = {28}, .out = {28, 44}};
inline constexpr DirectProperty kFormat7Mode       = {.id = 15, .sizeBytes = 96, .in = {28}};
inline constexpr DirectProperty kProperty16        = {.id = 16, .sizeBytes = 32, .in = {24}, .out = {24}};
inline constexpr DirectProperty kProperty17        = {.id = 17, .sizeBytes = 96, .in = {28, 48, 52, 56, 60, 68, 32, 64}};
inline constexpr DirectProperty kProperty18        = {.id = 18, .sizeBytes = 96, .out = {88, 92}};
inline constexpr DirectProperty kProperty20        = {.id = 20, .sizeBytes = 96, .in = {28, 68, 48, 52, 56, 60}, .out = {88, 92}};
inline constexpr DirectProperty kProperty24        = {.id = 24, .in = {36, 40}, .out = {36, 40}};
inline constexpr DirectProperty kProperty25        = {.id = 25, .in = {36, 40}, .out = {36, 40}};
inline constexpr DirectProperty kProperty26        = {.id = 26, .sizeBytes = 48, .in = {28, 24, 32, 36, 40, 44}, .out = {28, 24, 32, 36, 40, 44}};
inline constexpr DirectProperty kProperty28        = {.id = 28, .out = {24}};
inline constexpr DirectProperty kProperty29        = {.id = 29};
inline constexpr DirectProperty kProperty30        = {.id = 30, .in = {24, 28}, .out = {24}, .flags = {flag::kOn, 0x80, 0x2000, 0x1000, 0x40}};
inline constexpr DirectProperty kLutControl        = {.id = 31, .in = {24, 28}, .out = {24, 40, 36}, .flags = {flag::kOn}};
inline constexpr DirectProperty kProperty32        = {.id = 32, .in = {24, 28}, .out = {24}, .flags = {flag::kOn, 0x80, 0x4000, 0x40}};
inline constexpr DirectProperty kProperty33        = {.id = 33, .in = {24, 28}, .out = {24}, .flags = {flag::kOn, 0x80, 0x4000, 0x40}};
inline constexpr DirectProperty kProperty34        = {.id = 34, .in = {24}, .out = {24, 40}, .flags = {flag::kOn}};
inline constexpr DirectProperty kDriverVersion     = {.id = 38, .out = {24, 40}};
inline constexpr DirectProperty kProperty39        = {.id = 39, .in = {24}, .out = {24}, .flags = {flag::kOn}};
inline constexpr DirectProperty kProperty40        = {.id = 40, .in = {24}, .out = {24}, .flags = {flag::kOn}};
inline constexpr DirectProperty kProperty41        = {.id = 41, .in = {24}, .out = {24}, .flags = {flag::kOn}};
inline constexpr DirectProperty kProperty42        = {.id = 42, .in = {24}, .out = {24, 36}, .flags = {flag::kAuto, flag::kBit800, 0x80000000}};
inline constexpr DirectProperty kProperty51        = {.id = 51, .out = {24}};
inline constexpr DirectProperty kProperty52        = {.id = 52, .sizeBytes = 48, .in = {24}, .out = {28, 36, 40, 44}};
inline constexpr DirectProperty kTrigger           = {.id = 53, .in = {24, 28}, .out = {32, 28}};  // parameter, state; inquiry, state
inline constexpr DirectProperty kIsoSpeed          = {.id = 54, .in = {24}, .out = {24}};
inline constexpr DirectProperty kIsoSpeedRange     = {.id = 54, .out = {36, 40}};
inline constexpr DirectProperty kProperty56        = {.id = 56, .in = {24, 36, 40, 44}, .out = {28}};  // selector, three register words
inline constexpr DirectProperty kProperty61        = {.id = 61, .in = {24}, .out = {24}};
inline constexpr DirectProperty kImagePosition     = {.id = 65, .sizeBytes = 40, .in = {24, 28, 32}, .out = {28, 32}};  // mode, x, y
// clang-format on

/// Any other property that uses the 64-byte record.
[[nodiscard]] constexpr DirectProperty Any(ULONG id) {
    return {.id = id, .in = {24, 28}, .out = {44, 24, 48}};
}

/// The record size that the driver contract gives an id of this table.
[[nodiscard]] consteval ULONG RecordSizeOf(ULONG id) {
    switch (id) {
    case 11:
    case 12:
    case 16:
        return 32;
    case 65:
        return 40;
    case 26:
    case 52:
        return 48;
    case 13:
    case 14:
    case 15:
    case 17:
    case 18:
    case 20:
        return 96;
    case 10:
        return 840;
    default:
        return 64;
    }
}

/// Each row has its id's record size, and each place lies inside the record, behind the header, on a word.
[[nodiscard]] consteval bool WellFormed(std::initializer_list<DirectProperty> rows) {
    for (const DirectProperty& row : rows) {
        if (row.sizeBytes != RecordSizeOf(row.id)) return false;
        for (const Offsets& places : {row.in, row.out}) {
            for (std::size_t i = 0; i < places.Count(); ++i) {
                if (places[i] < sizeof(KSPROPERTY) || places[i] % 4 != 0 || places[i] + 4 > row.sizeBytes) return false;
            }
        }
    }
    return true;
}

static_assert(WellFormed({kTestImage,  kTestImageInquiry, kProperty10,    kRegister,   kProperty12, kGetFormat7,
                          kSetFormat7, kProperty14,       kFormat7Mode,   kProperty16, kProperty17, kProperty18,
                          kProperty20, kProperty24,       kProperty25,    kProperty26, kProperty28, kProperty29,
                          kProperty30, kLutControl,       kProperty32,    kProperty33, kProperty34, kDriverVersion,
                          kProperty39, kProperty40,       kProperty41,    kProperty42, kProperty51, kProperty52,
                          kTrigger,    kIsoSpeed,         kIsoSpeedRange, kProperty56, kProperty61, kImagePosition}));

}  // namespace kolmfluxor::property
