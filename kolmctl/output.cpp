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

}  // namespace

void Table::Add(std::vector<Json> row) {
    if (row.size() != m_columns.size()) {
        throw std::logic_error("Table::Add: a row needs one value for each column");
    }
    m_rows.push_back(std::move(row));
}

Json Table::AsJson() const {
    Json rows = Json::array();
    for (const auto& row : m_rows) {
        Json object = Json::object();
        for (std::size_t i = 0; i < m_columns.size(); ++i) {
            object[m_columns[i].key] = row[i];
        }
        rows.push_back(std::move(object));
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
    std::vector<std::size_t> widths;
    for (std::size_t i = 0; i < m_columns.size(); ++i) {
        std::size_t width = CountCharacters(m_columns[i].heading);
        for (const auto& row : m_rows) {
            width = std::max(width, CountCharacters(CellText(row[i], m_columns[i])));
        }
        widths.push_back(width);
    }
    std::string text;
    const auto addLine = [&](const auto& cellOf) {
        std::string line;
        for (std::size_t i = 0; i < m_columns.size(); ++i) {
            line += std::string(i == 0 ? 0 : kGap, ' ') + Padded(cellOf(i), widths[i], m_columns[i].align);
        }
        TrimRight(&line);
        text += line + "\n";
    };
    addLine([&](std::size_t i) -> std::string { return m_columns[i].heading; });
    for (const auto& row : m_rows) {
        addLine([&](std::size_t i) { return CellText(row[i], m_columns[i]); });
    }
    return text;
}

std::string Table::AsTsv() const {
    std::vector<std::string> cells;
    for (const Column& column : m_columns) {
        cells.emplace_back(column.key);
    }
    std::string text = Join(cells, "\t") + "\n";
    for (const auto& row : m_rows) {
        std::ranges::transform(row, m_columns, cells.begin(), TsvText);
        text += Join(cells, "\t") + "\n";
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

void Output::PrintText(const std::string& text) {
    if (m_format == OutputFormat::text) {
        m_stream << text;
    }
}

void Output::Finish() {
    if (m_format == OutputFormat::json && !m_tables.empty()) {
        const bool single = m_tables.size() == 1 && !m_named;
        const Json& document = single ? m_tables.front() : m_tables;
        m_stream << document.dump(2, ' ', false, Json::error_handler_t::replace) << "\n";
    }
    m_stream.flush();
}

}  // namespace kolmctl
