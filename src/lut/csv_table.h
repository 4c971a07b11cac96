#pragma once
/// @file  A LUT file as rows of tokens.

#include <cstddef>
#include <cstdint>
#include <cstdio>
#include <span>
#include <string_view>
#include <vector>

#include "lut/csv_tokenizer.h"
#include "lut/lut_set.h"

namespace kolmfluxor {

/// The rows of a LUT file: a header with the LUTs' names, then one row an input level; cell k of a row belongs to LUT
/// k - 1.
///
/// A row is a line of at most 255 characters; a longer one ends the reading, and what was read before it stays. A line
/// is taken with a NUL in place of its line feed, so the last token of a row ends in NUL, and an empty line is a row of
/// one token. The last line of a file may lack its line feed and then has no NUL. A line whose first token is cut off
/// by an open quote is no row.
///
/// Tokens stay where the file's text lies, so that no token is copied.
class CCsvTable {
public:
    /// Reads a file; others may have it open for reading and writing.
    ///
    /// @param path  in the code page of the C library
    /// @return  false when it can't be opened; otherwise `IsConsistent`
    [[nodiscard]] bool Read(const char* path);
    /// Reads a text in memory. @return  `IsConsistent`
    [[nodiscard]] bool ReadText(std::string_view text);

    /// Whether there are rows, all with as many tokens as the first one.
    [[nodiscard]] bool IsConsistent() const noexcept { return !m_rows.empty() && m_equalLengths; }
    /// The number of tokens in the second row, less 1.
    ///
    /// @throws std::out_of_range   "no tokens read" for an empty table; another text when there is no second row
    /// @throws CParserException  " no valid tokens read" when the table is not consistent
    [[nodiscard]] std::size_t GetLUTCount() const;
    /// The number of rows, less 1. @throws as `GetLUTCount`, but for the second row
    [[nodiscard]] std::size_t GetElementCount() const;

    /// Makes `lut` the LUT in column n + 1: its name, and the low bits of its numbers.
    ///
    /// @return  true
    /// @throws std::out_of_range  "LUTNr is largeer then the return of GetLUTCount()"; and as `GetLUTCount`
    bool Fill8BitLUT(Lut8Bit& lut, std::size_t n) const { return Fill(lut, n); }
    bool Fill16BitLUT(Lut16Bit& lut, std::size_t n) const { return Fill(lut, n); }
    /// Fills as many LUTs as there are in `luts` with the first columns, as the functions above do one by one.
    template <class Value> bool FillAll(std::vector<Lut<Value>>& luts) const;

    [[nodiscard]] std::size_t RowCount() const noexcept { return m_rows.size(); }
    /// The number of tokens of a row that exists.
    [[nodiscard]] std::size_t TokenCount(std::size_t row) const noexcept { return m_rows[row].tokens; }
    /// A token that exists.
    [[nodiscard]] std::string_view Token(std::size_t row, std::size_t token) const noexcept;

private:
    struct Row {
        std::size_t line;      ///< where its line begins in `m_text`
        std::size_t places;    ///< where its tokens' places begin in `m_places`
        std::uint16_t tokens;  ///< how many
        std::uint16_t end;     ///< one behind the last token, from the beginning of the line
        bool hasUnused;        ///< there are `CsvLine::unused` behind the `CsvLine::begins`
    };

    void Clear();
    /// Reads from where an opened file stands. The caller closes it.
    [[nodiscard]] bool Read(std::FILE* file);
    /// @throws  what `GetElementCount` does
    void RequireTokens() const;
    /// Makes rows of all whole lines from `m_taken` on. @return  false when a line is too long
    bool TakeLines();
    /// Makes a row of the text from `m_taken` up to `end`, if there is any, whatever is in it.
    void TakeTokens(std::size_t end);
    /// Adds a row unless it has no tokens. The arguments are those of `CsvLine`; the line begins at `m_taken`.
    ///
    /// @param unused  may be empty when there are none
    void AddRow(std::span<const std::uint8_t> begins, std::span<const std::uint8_t> unused, std::size_t end);

    template <class Value> bool Fill(Lut<Value>& lut, std::size_t n) const;
    template <class Value> void Start(Lut<Value>& lut, std::size_t n) const;
    template <class Value>
    void Convert(Lut<Value>& lut, std::size_t n, std::size_t firstRow, std::size_t lastRow) const;

    std::vector<char> m_text;  ///< with room to look before its beginning and behind its end
    std::size_t m_end = 0;     ///< of the file's text in `m_text`
    std::size_t m_taken = 0;   ///< up to here lines have become rows
    std::vector<Row> m_rows;
    std::vector<std::uint8_t> m_places;  ///< `CsvLine::begins` of each row, and for some `CsvLine::unused`
    bool m_equalLengths = true;
};

inline std::string_view CCsvTable::Token(std::size_t row, std::size_t token) const noexcept {
    const Row& place = m_rows[row];
    const std::uint8_t* const begin = &m_places[place.places + token];
    std::size_t end = place.end;
    if (token + 1 < place.tokens) {
        end = begin[1] - std::size_t{1};
        if (place.hasUnused) end -= begin[place.tokens];
    }
    return {m_text.data() + place.line + *begin, end - *begin};
}

}  // namespace kolmfluxor
