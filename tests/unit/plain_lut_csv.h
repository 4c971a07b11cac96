#pragma once
/// @file  The rules of LUT files, written down word by word: what the reader of the module is compared with.
///
/// A stack of open delimiters, a list of texts for each row, the C++ library's streams: slow, and easy to check against
/// the rules.

#include <array>
#include <cstddef>
#include <cstdint>
#include <istream>
#include <stdexcept>
#include <string>
#include <string_view>
#include <vector>

#include "lut/lut_set.h"
#include "lut/parser_exception.h"

namespace kolmfluxor::test {

/// The tokens of one line; the line comes with its NUL, if it has one.
inline std::vector<std::string> PlainTokens(std::string_view line) {
    std::vector<char> open;
    std::vector<std::string> tokens;
    std::string token;
    for (const char c : line) {
        switch (c) {
        case '\n':
            break;
        case '"':
            if (open.empty() || open.back() != '"') {
                open.push_back('"');
            } else {
                open.pop_back();
            }
            break;
        case '\'':
            if (open.empty()) {
                open.push_back('\'');
            } else if (open.back() == '\'') {
                open.pop_back();
            }
            break;
        case ',':
        case ';':
            if (open.empty()) {
                tokens.push_back(token);
                token.clear();
                open.push_back(c);
            } else if (open.back() == c) {
                tokens.push_back(token);
                token.clear();
                open.pop_back();
            } else {
                token.push_back(c);
            }
            break;
        default:
            token.push_back(c);
            break;
        }
    }
    if (open.empty() || open.back() == ',' || open.back() == ';') tokens.push_back(token);
    return tokens;
}

/// The number in a cell, its low 32 bits.
inline std::uint32_t PlainNumber(const std::string& cell) {
    std::size_t i = 0;
    while (i < cell.size() && std::string_view(" \t\n\v\f\r").find(cell[i]) != std::string_view::npos)
        ++i;
    bool minus = false;
    if (i < cell.size() && (cell[i] == '+' || cell[i] == '-')) minus = cell[i++] == '-';
    std::uint64_t value = 0;
    while (i < cell.size() && cell[i] >= '0' && cell[i] <= '9')
        value = (value * 10 + static_cast<std::uint64_t>(cell[i++] - '0')) & 0xFFFFFFFFU;
    return static_cast<std::uint32_t>(minus ? 0x100000000U - value : value);
}

class CPlainCsvTable {
public:
    /// Reads rows as long as lines can be got.
    bool Read(std::istream& stream) {
        m_rows.clear();
        while (!stream.fail() && !stream.bad()) {
            std::array<char, 256> line{};
            stream.getline(line.data(), static_cast<std::streamsize>(line.size()));
            const std::streamsize extracted = stream.gcount();
            if (extracted == 0 || stream.fail()) continue;
            std::vector<std::string> tokens = PlainTokens({line.data(), static_cast<std::size_t>(extracted)});
            if (!tokens.empty()) m_rows.push_back(std::move(tokens));
        }
        return IsConsistent();
    }

    [[nodiscard]] bool IsConsistent() const {
        for (const auto& row : m_rows) {
            if (row.size() != m_rows.front().size()) return false;
        }
        return !m_rows.empty();
    }
    [[nodiscard]] std::size_t GetLUTCount() const {
        RequireTokens();
        if (m_rows.size() < 2) throw std::out_of_range("there is no second row");
        return m_rows[1].size() - 1;
    }
    [[nodiscard]] std::size_t GetElementCount() const {
        RequireTokens();
        return m_rows.size() - 1;
    }
    template <class Value> bool Fill(Lut<Value>& lut, std::size_t n) const {
        if (n >= GetLUTCount()) throw std::out_of_range("LUTNr is largeer then the return of GetLUTCount()");
        lut.values.clear();
        lut.name = m_rows[0][n + 1].c_str();  // up to its first NUL
        for (std::size_t row = 1; row < m_rows.size(); ++row)
            lut.values.push_back(static_cast<Value>(PlainNumber(m_rows[row][n + 1])));
        return true;
    }

    [[nodiscard]] const std::vector<std::vector<std::string>>& Rows() const { return m_rows; }

private:
    void RequireTokens() const {
        if (m_rows.empty()) throw std::out_of_range("no tokens read");
        if (!IsConsistent()) throw CParserException(" no valid tokens read");
    }

    std::vector<std::vector<std::string>> m_rows;
};

}  // namespace kolmfluxor::test
