#pragma once
/// @file  What stands in a table that the reader of LUT files has made.

#include <cstddef>
#include <string>
#include <tuple>
#include <vector>

#include "lut/csv_table.h"

namespace kolmfluxor::test {

using Tokens = std::vector<std::string>;

inline std::vector<Tokens> RowsOf(const CCsvTable& table) {
    std::vector<Tokens> rows;
    for (std::size_t row = 0; row < table.RowCount(); ++row) {
        rows.emplace_back();
        for (std::size_t token = 0; token < table.TokenCount(row); ++token)
            rows.back().emplace_back(table.Token(row, token));
    }
    return rows;
}

inline CCsvTable TableOf(const std::string& text) {
    CCsvTable table;
    std::ignore = table.ReadText(text);
    return table;
}

}  // namespace kolmfluxor::test
