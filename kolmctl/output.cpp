#include "output.h"

#include <algorithm>
#include <iterator>
#include <ostream>
#include <stdexcept>

#include "text.h"

namespace kolmctl {
namespace {

constexpr std::size_t kGap = 2;  // blanks between two columns

std::string CellText(const Json& value, const Column& column) {
    if (value.is_boolean()) {
        return value.get<bool>() ? "yes" : "no";
    }
    if (value.is_string()) {
        return value.get<std::string>();
    }
    if (value.is_array()) {
        std::vector<std::string> texts;
        std::ranges::transform(value, std::back_inserter(texts),
                               [&](const Json& element) { return CellText(element, column); });
        return Join(texts, column.separator);
    }
    return value.is_null() ? "" : value.dump();
}

/// A cell must not end its line or column.
std::string TsvText(const Json& value, const Column& column) {
    std::string text = CellText(value, column);
    std::ranges::replace_if(
        text, [](char c) { return c == '\t' || c == '\n' || c == '\r'; }, ' ');
    return text;
}

std::string Padded(const std::string& text, std::size_t width, Align align) {
    const std::string blanks(width - std::min(width, CountCharacters(text)), ' ');
    return align == Align::left ? text + blanks : blanks + text;
}

void TrimRight(std::string* line) {
    line->erase(line->find_last_not_of(' ') + 1);
}

/// One line of a table with padded columns. @param cellOf  gives the text of a column by its index
template <class CellOf>
std::string AlignedLine(const std::vector<Column>& columns, const std::vector<std::size_t>& widths, CellOf&& cellOf) {
    std::string line;
    for (std::size_t i = 0; i < columns.size(); ++i) {
        line += std::string(i == 0 ? 0 : kGap, ' ') + Padded(cellOf(i), widths[i], columns[i].align);
    }
    TrimRight(&line);
    return line + "\n";
}

/// The widths of columns that hold nothing but their headings.
std::vector<std::size_t> WidthsOf(const std::vector<Column>& columns) {
    std::vector<std::size_t> widths;
    for (const Column& column : columns) {
        widths.push_back(std::max(CountCharacters(column.heading), column.width));
    }
    return widths;
}

std::string HeadingLine(const std::vector<Column>& columns, const std::vector<std::size_t>& widths) {
    return AlignedLine(columns, widths, [&](std::size_t i) -> std::string { return columns[i].heading; });
}

std::string RowLine(const std::vector<Column>& columns, const std::vector<std::size_t>& widths,
                    const std::vector<Json>& row) {
    return AlignedLine(columns, widths, [&](std::size_t i) { return CellText(row[i], columns[i]); });
}

std::string TsvHeading(const std::vector<Column>& columns) {
    std::vector<std::string> keys;
    std::ranges::transform(columns, std::back_inserter(keys), &Column::key);
    return Join(keys, "\t") + "\n";
}

std::string TsvRow(const std::vector<Column>& columns, const std::vector<Json>& row) {
    std::vector<std::string> cells(columns.size());
    std::ranges::transform(row, columns, cells.begin(), TsvText);
    return Join(cells, "\t") + "\n";
}

Json RowObject(const std::vector<Column>& columns, const std::vector<Json>& row) {
    Json object = Json::object();
    for (std::size_t i = 0; i < columns.size(); ++i) {
        object[columns[i].key] = row[i];
    }
    return object;
}

std::string JsonText(const Json& value, int indent) {
    return value.dump(indent, ' ', false, Json::error_handler_t::replace) + "\n";
}

constexpr int kDocument = 2;  // indentation
constexpr int kOneLine = -1;

void CheckRow(const std::vector<Column>& columns, const std::vector<Json>& row) {
    if (row.size() != columns.size()) {
        throw std::logic_error("Table: a row needs one value for each column");
    }
}

}  // namespace

void Table::Add(std::vector<Json> row) {
    CheckRow(m_columns, row);
    m_rows.push_back(std::move(row));
}

Json Table::AsJson() const {
    Json rows = Json::array();
    for (const auto& row : m_rows) {
        rows.push_back(RowObject(m_columns, row));
    }
    return rows;
}

std::string Table::AsText() const {
    return m_layout == Layout::rows ? RowsText() : RecordsText();
}

std::string Table::RecordsText() const {
    std::size_t width = 0;
    for (const Column& column : m_columns) {
        width = std::max(width, CountCharacters(column.heading));
    }
    std::string text;
    for (const auto& row : m_rows) {
        text += text.empty() ? "" : "\n";
        for (std::size_t i = 0; i < m_columns.size(); ++i) {
            std::string line = Padded(m_columns[i].heading, width, Align::left) + std::string(kGap, ' ') +
                               CellText(row[i], m_columns[i]);
            TrimRight(&line);
            text += line + "\n";
        }
    }
    return text;
}

std::string Table::RowsText() const {
    std::vector<std::size_t> widths = WidthsOf(m_columns);
    for (const auto& row : m_rows) {
        for (std::size_t i = 0; i < widths.size(); ++i) {
            widths[i] = std::max(widths[i], CountCharacters(CellText(row[i], m_columns[i])));
        }
    }
    std::string text = HeadingLine(m_columns, widths);
    for (const auto& row : m_rows) {
        text += RowLine(m_columns, widths, row);
    }
    return text;
}

std::string Table::AsTsv() const {
    std::string text = TsvHeading(m_columns);
    for (const auto& row : m_rows) {
        text += TsvRow(m_columns, row);
    }
    return text;
}

void Output::Print(const Table& table) {
    switch (m_format) {
    case OutputFormat::text:
        m_stream << table.AsText();
        break;
    case OutputFormat::tsv:
        m_stream << (m_anyTsv ? "\n" : "") << table.AsTsv();
        m_anyTsv = true;
        break;
    case OutputFormat::json:
        m_tables[table.Name()] = table.AsJson();
        break;
    }
}

void Output::StartRows(std::vector<Column> columns) {
    m_liveColumns = std::move(columns);
    switch (m_format) {
    case OutputFormat::text:
        m_stream << HeadingLine(m_liveColumns, WidthsOf(m_liveColumns));
        break;
    case OutputFormat::tsv:
        m_stream << (m_anyTsv ? "\n" : "") << TsvHeading(m_liveColumns);
        m_anyTsv = true;
        break;
    case OutputFormat::json:
        break;
    }
    m_stream.flush();
}

void Output::PrintRow(const std::vector<Json>& row) {
    CheckRow(m_liveColumns, row);
    switch (m_format) {
    case OutputFormat::text:
        m_stream << RowLine(m_liveColumns, WidthsOf(m_liveColumns), row);
        break;
    case OutputFormat::tsv:
        m_stream << TsvRow(m_liveColumns, row);
        break;
    case OutputFormat::json:
        m_stream << JsonText(RowObject(m_liveColumns, row), kOneLine);
        break;
    }
    m_stream.flush();
}

bool Output::TakesMore() const {
    return m_stream.good();
}

void Output::PrintText(const std::string& text) {
    if (m_format == OutputFormat::text) {
        m_stream << text;
    }
}

void Output::Finish() {
    if (m_format == OutputFormat::json && !m_tables.empty()) {
        const bool single = m_tables.size() == 1 && !m_named;
        const Json& document = single ? m_tables.front() : m_tables;
        m_stream << JsonText(document, kDocument);
    }
    m_stream.flush();
}

}  // namespace kolmctl
