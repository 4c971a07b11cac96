#include "lut/csv_table.h"

#include <algorithm>
#include <bit>
#include <cstring>
#include <memory>
#include <stdexcept>

#include "lut/csv_number.h"
#include "lut/csv_scan.h"
#include "lut/parser_exception.h"

namespace kolmfluxor {
namespace {

constexpr std::size_t kBefore = 8;                      // CsvNumberQuick looks so far back
constexpr std::size_t kBehind = kCsvBlock;              // the scan looks so far ahead
constexpr std::size_t kPiece = std::size_t{64} * 1024;  // read at once: small enough to stay in the cache
constexpr std::size_t kRowsAtOnce = 256;                // converted for all LUTs: these rows stay in the cache too

struct FileCloser {
    void operator()(std::FILE* file) const noexcept { std::fclose(file); }
};

}  // namespace

bool CCsvTable::Read(const char* path) {
    Clear();
    // The C library opens files such that others may read and write them at the same time.
    const std::unique_ptr<std::FILE, FileCloser> file(std::fopen(path, "rb"));
    return file != nullptr && Read(file.get());
}

bool CCsvTable::Read(std::FILE* file) {
    Clear();
    for (std::size_t count = kPiece; count == kPiece;) {
        m_text.resize(m_end + kPiece + kBehind);
        count = std::fread(m_text.data() + m_end, 1, kPiece, file);
        m_end += count;
        if (!TakeLines()) return IsConsistent();
    }
    if (std::ferror(file) == 0) TakeTokens(m_end);  // a line that broke off is none
    return IsConsistent();
}

bool CCsvTable::ReadText(std::string_view text) {
    Clear();
    m_text.resize(kBefore + text.size() + kBehind);
    std::ranges::copy(text, m_text.begin() + kBefore);
    m_end += text.size();
    if (TakeLines()) TakeTokens(m_end);
    return IsConsistent();
}

void CCsvTable::Clear() {
    m_text.clear();
    m_text.resize(kBefore);
    m_end = m_taken = kBefore;
    m_rows.clear();
    m_places.clear();
    m_equalLengths = true;
}

bool CCsvTable::TakeLines() {
    char* const text = m_text.data();
    std::size_t end = m_end;
    while (end != m_taken && text[end - 1] != '\n')
        --end;

    // What `CsvTokenize` does, for lines without quotes: there at most one separator is open, and nothing is dropped.
    std::uint8_t begins[CsvLine::kMostCharacters + 2] = {};
    std::size_t count = 0;
    char open = '\0';
    for (std::size_t block = m_taken, next = 0; block < end; block = next) {
        next = block + kCsvBlock;
        for (std::uint64_t marks = CsvMarks(text + block, end - block); marks != 0; marks &= marks - 1) {
            const std::size_t at = block + static_cast<std::size_t>(std::countr_zero(marks));
            const std::size_t length = at - m_taken;
            if (length > CsvLine::kMostCharacters) return false;
            const char mark = text[at];
            if (mark == ',' || mark == ';') {
                if (open != '\0' && open != mark) continue;
                open = open == '\0' ? mark : '\0';
                begins[++count] = static_cast<std::uint8_t>(length + 1);
                continue;
            }
            const std::size_t tokens = count + 1;
            count = 0;
            open = '\0';
            if (mark == '\n') {
                text[at] = '\0';
                AddRow({begins, tokens}, {}, length + 1);
                m_taken = at + 1;
                continue;
            }
            const auto* const found = static_cast<const char*>(std::memchr(text + at, '\n', end - at));
            const auto lineFeed = static_cast<std::size_t>(found - text);
            if (lineFeed - m_taken > CsvLine::kMostCharacters) return false;
            text[lineFeed] = '\0';
            TakeTokens(lineFeed + 1);
            next = lineFeed + 1;
            break;
        }
    }
    return m_end - m_taken <= CsvLine::kMostCharacters;
}

void CCsvTable::TakeTokens(std::size_t end) {
    if (end == m_taken) return;
    CsvLine line;
    CsvTokenize(m_text.data() + m_taken, end - m_taken, &line);
    AddRow({line.begins.data(), line.count}, {line.unused.data(), line.count}, line.end);
    m_taken = end;
}

void CCsvTable::AddRow(std::span<const std::uint8_t> begins, std::span<const std::uint8_t> unused, std::size_t end) {
    if (begins.empty()) return;
    m_equalLengths = m_equalLengths && (m_rows.empty() || begins.size() == TokenCount(0));
    m_rows.push_back({.line = m_taken,
                      .places = m_places.size(),
                      .tokens = static_cast<std::uint16_t>(begins.size()),
                      .end = static_cast<std::uint16_t>(end),
                      .hasUnused = !unused.empty()});
    m_places.insert(m_places.end(), begins.begin(), begins.end());
    m_places.insert(m_places.end(), unused.begin(), unused.end());
}

std::size_t CCsvTable::GetLUTCount() const {
    RequireTokens();
    if (m_rows.size() < 2) throw std::out_of_range("there is no second row");
    return TokenCount(1) - 1;
}

std::size_t CCsvTable::GetElementCount() const {
    RequireTokens();
    return m_rows.size() - 1;
}

void CCsvTable::RequireTokens() const {
    if (m_rows.empty()) throw std::out_of_range("no tokens read");
    if (!IsConsistent()) throw CParserException(" no valid tokens read");
}

template <class Value> void CCsvTable::Start(Lut<Value>& lut, std::size_t n) const {
    if (n >= GetLUTCount()) throw std::out_of_range("LUTNr is largeer then the return of GetLUTCount()");
    const std::string_view name = Token(0, n + 1);
    lut.name = name.substr(0, name.find('\0'));
    lut.values.clear();
    lut.values.reserve(GetElementCount());
}

template <class Value>
void CCsvTable::Convert(Lut<Value>& lut, std::size_t n, std::size_t firstRow, std::size_t lastRow) const {
    lut.values.resize(lastRow - 1);
    for (std::size_t row = firstRow; row < lastRow; ++row)
        lut.values[row - 1] = static_cast<Value>(CsvNumberQuick(Token(row, n + 1)));
}

template <class Value> bool CCsvTable::Fill(Lut<Value>& lut, std::size_t n) const {
    Start(lut, n);
    Convert(lut, n, 1, m_rows.size());
    return true;
}

template <class Value> bool CCsvTable::FillAll(std::vector<Lut<Value>>& luts) const {
    for (std::size_t n = 0; n < luts.size(); ++n)
        Start(luts[n], n);
    for (std::size_t row = 1; row < m_rows.size(); row += kRowsAtOnce) {
        for (std::size_t n = 0; n < luts.size(); ++n)
            Convert(luts[n], n, row, std::min(row + kRowsAtOnce, m_rows.size()));
    }
    return true;
}

template bool CCsvTable::Fill(Lut8Bit&, std::size_t) const;
template bool CCsvTable::Fill(Lut16Bit&, std::size_t) const;
template bool CCsvTable::FillAll(std::vector<Lut8Bit>&) const;
template bool CCsvTable::FillAll(std::vector<Lut16Bit>&) const;

}  // namespace kolmfluxor
