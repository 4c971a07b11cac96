#pragma once
/// @file  Compares the module's reader of LUT files with the plain one, in everything that a caller can see.

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <exception>
#include <sstream>
#include <string>
#include <typeinfo>
#include <vector>

#include "lut/csv_table.h"
#include "unit/plain_lut_csv.h"

namespace kolmfluxor::test {

/// What a call gave, an exception's type and text included.
template <class F> std::string OutcomeOf(F&& call) {
    try {
        return std::to_string(call());
    } catch (const std::exception& e) {
        return std::string(typeid(e).name()) + ": " + e.what();
    }
}

template <class Value> std::string LutText(const auto& table, std::size_t n) {
    Lut<Value> lut{.name = "old", .values = {1, 2, 3}};
    std::string text;
    try {
        text = table(lut, n) ? "filled" : "not filled";
    } catch (const std::exception& e) {
        text = std::string(typeid(e).name()) + ": " + e.what();
    }
    text += " \"" + lut.name + "\"";
    for (const Value value : lut.values)
        text += ' ' + std::to_string(value);
    return text;
}

/// Whether filling as many LUTs at once gives what filling them one by one with the plain reader does.
template <class Value> bool FillAllAgrees(const CCsvTable& fast, const CPlainCsvTable& plain, std::size_t count) {
    std::vector<Lut<Value>> all(count, {.name = "old", .values = {1, 2, 3}});
    std::vector<Lut<Value>> oneByOne = all;
    const auto fillPlain = [&] {
        bool filled = true;
        for (std::size_t n = 0; n < count; ++n)
            filled = plain.Fill(oneByOne[n], n) && filled;
        return filled;
    };
    const auto same = [](const Lut<Value>& a, const Lut<Value>& b) { return a.name == b.name && a.values == b.values; };
    return OutcomeOf([&] { return fast.FillAll(all); }) == OutcomeOf(fillPlain) &&
           std::ranges::equal(all, oneByOne, same);
}

/// What differs between the two readers for this text; empty when nothing does.
inline std::string DifferenceFor(const std::string& text) {
    CCsvTable fast;
    CPlainCsvTable plain;
    std::istringstream stream(text);
    if (fast.ReadText(text) != plain.Read(stream)) return "Read";

    const auto& rows = plain.Rows();
    if (fast.RowCount() != rows.size()) return "number of rows";
    for (std::size_t row = 0; row < rows.size(); ++row) {
        const std::string where = " of row " + std::to_string(row);
        if (fast.TokenCount(row) != rows[row].size()) return "number of tokens" + where;
        for (std::size_t token = 0; token < rows[row].size(); ++token) {
            if (fast.Token(row, token) != rows[row][token]) return "token " + std::to_string(token) + where;
        }
    }
    if (fast.IsConsistent() != plain.IsConsistent()) return "IsConsistent";
    if (OutcomeOf([&] { return fast.GetLUTCount(); }) != OutcomeOf([&] { return plain.GetLUTCount(); }))
        return "GetLUTCount";
    if (OutcomeOf([&] { return fast.GetElementCount(); }) != OutcomeOf([&] { return plain.GetElementCount(); }))
        return "GetElementCount";

    const std::size_t columns = rows.empty() ? 1 : rows.front().size();
    for (std::size_t n = 0; n <= columns; ++n) {
        const auto fast8 = [&](Lut8Bit& lut, std::size_t i) { return fast.Fill8BitLUT(lut, i); };
        const auto fast16 = [&](Lut16Bit& lut, std::size_t i) { return fast.Fill16BitLUT(lut, i); };
        const auto slow = [&](auto& lut, std::size_t i) { return plain.Fill(lut, i); };
        if (LutText<std::uint8_t>(fast8, n) != LutText<std::uint8_t>(slow, n)) return "8-bit LUT " + std::to_string(n);
        if (LutText<std::uint16_t>(fast16, n) != LutText<std::uint16_t>(slow, n))
            return "16-bit LUT " + std::to_string(n);
    }
    if (!FillAllAgrees<std::uint8_t>(fast, plain, columns - 1)) return "all 8-bit LUTs";
    if (!FillAllAgrees<std::uint16_t>(fast, plain, columns - 1)) return "all 16-bit LUTs";
    return {};
}

}  // namespace kolmfluxor::test
