#pragma once
/// @file  Every register's layout as a table of its own, and a second way to read it, in plain words.

#include <cstddef>
#include <cstdint>
#include <sstream>
#include <string>
#include <vector>

namespace kolmfluxor::test {

// ---- The expected layouts -----------------------------------------------------------------------------------------

enum class Rule { plain, times4, thousandths, rate };

struct GoldenField {
    std::string format;
    unsigned high, low;
    Rule rule = Rule::plain;
};

struct GoldenLayout {
    std::uint32_t first, last;
    std::string heading;
    std::vector<GoldenField> fields;
};

// clang-format off
inline const GoldenLayout kLayouts[] = {
#include "unit/data/register_decoders.inc"
};
inline const GoldenLayout kFormat7Layouts[] = {
#include "unit/data/register_decoders_format7.inc"
};
// clang-format on

inline const GoldenLayout kDefaultLayout = {
    0,
    0,
    "Default: 0x%x",
    {{"Presents: %d", 31, 31},
     {"Auto: %d", 24, 24},
     {"OnePush: %d", 26, 26},
     {"OnOff: %d", 25, 25},
     {"Value: %d", 11, 0}},
};

inline const std::string kRates[] = {"1.875 [0]", "3.75 [1]", "7.5 [2]", "15 [3]",
                                     "30 [4]",    "60 [5]",   "120 [6]", "240 [7]"};

// ---- A reader of them ---------------------------------------------------------------------------------------------

inline std::string Hex(std::uint64_t number) {
    std::ostringstream text;
    text << std::hex << number;
    return text.str();
}

inline std::string Decimal(std::uint64_t number) {
    // As printf's %d shows 32 bits.
    return std::to_string(number < 0x80000000U ? static_cast<std::int64_t>(number)
                                               : static_cast<std::int64_t>(number) - 0x100000000);
}

inline std::string Thousandths(std::uint64_t number) {
    const std::string whole = Decimal(number);
    const bool negative = whole.front() == '-';
    std::string digits = negative ? whole.substr(1) : whole;
    digits.insert(0, digits.size() < 4 ? 4 - digits.size() : 0, '0');
    digits.insert(digits.size() - 3, ".");
    return (negative ? "-" : "") + digits + "000";
}

inline std::string Filled(const std::string& format, const char* conversion, const std::string& number) {
    const std::size_t place = format.find(conversion);
    if (place == std::string::npos) return "no " + std::string(conversion) + " in " + format;
    return format.substr(0, place) + number + format.substr(place + std::string(conversion).size());
}

inline std::string FieldText(const GoldenField& field, std::uint64_t value) {
    std::uint64_t number = 0;
    for (unsigned bit = field.high + 1; bit-- > field.low;)
        number = 2 * number + (value >> bit) % 2;
    switch (field.rule) {
    case Rule::rate:
        return "FPS: " + kRates[number];
    case Rule::thousandths:
        return Filled(field.format, "%lf", Thousandths(number));
    case Rule::times4:
        number = number * 4 % 0x100000000;
        break;
    case Rule::plain:
        break;
    }
    const bool hex = field.format.find("%x") != std::string::npos;
    return hex ? Filled(field.format, "%x", Hex(number)) : Filled(field.format, "%d", Decimal(number));
}

/// The texts of the lines, as CLineList gives them.
///
/// @param shown  the address that the heading names
inline std::vector<std::string> Expected(const GoldenLayout& layout, std::uint32_t shown, std::uint32_t value) {
    std::vector<std::string> texts = {"Value: 0x" + Hex(value), Filled(layout.heading, "%x", Hex(shown))};
    for (const GoldenField& field : layout.fields)
        texts.push_back("  " + FieldText(field, value));
    return texts;
}

/// What the decoder must make of an address and a value; of an offset that is no Format 7 register only the value.
inline std::vector<std::string> PlainDecoded(std::uint32_t address, std::uint32_t value) {
    const bool isFormat7 = address >= 0xF0F08000 && address <= 0xF0F0FFFF;
    const std::uint32_t shown = isFormat7 ? address % 0x100 : address;
    const auto holds = [shown](const GoldenLayout& layout) {
        return shown >= layout.first && shown <= layout.last && shown % 4 == 0;
    };
    if (isFormat7) {
        for (const GoldenLayout& layout : kFormat7Layouts) {
            if (holds(layout)) return Expected(layout, shown, value);
        }
        return {"Value: 0x" + Hex(value)};
    }
    for (const GoldenLayout& layout : kLayouts) {
        if (holds(layout)) return Expected(layout, shown, value);
    }
    return Expected(kDefaultLayout, shown, value);
}

}  // namespace kolmfluxor::test
