#pragma once
/// @file  Compares the module's reader of LUT files with the plain one, in everything that a caller can see.

#include <exception>
#include <sstream>
#include <string>
#include <typeinfo>

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

/// What differs between the two readers for this text; empty when nothing does.
inline std::string DifferenceFor(const std::string& text) {
    CCsvTable fast;
    CPlainCsvTable plain;
    std::istringstream stream(text);
    if (fast.Read(std::string_view(text)) != plain.Read(stream)) return "Read";

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
    return {};
}

}  // namespace kolmfluxor::test
