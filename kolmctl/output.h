#pragma once
/// @file  What commands print: tables, as aligned text for people, as TSV or as JSON for programs.

#include <cstddef>
#include <iosfwd>
#include <string>
#include <vector>

#include <nlohmann/json.hpp>

namespace kolmctl {

using Json = nlohmann::ordered_json;

enum class OutputFormat { text, tsv, json };

enum class Align { left, right };

struct Column {
    const char* key;      ///< name of the value in JSON, heading in TSV
    const char* heading;  ///< heading for people
    Align align;
    const char* separator = ",";  ///< between the values of an array, outside of JSON
    std::size_t width = 0;        ///< at least so many characters wide for people, where rows are yet to come
};

/// How a table looks to people; programs get the same of both.
enum class Layout {
    rows,    ///< a heading line, then one line a row
    records  ///< one line a value, with its heading before it
};

/// Rows of values: texts, numbers, booleans, arrays of these, or null for what is not known.
class Table {
public:
    /// @param name  what the rows are, as in "features"
    Table(std::string name, std::vector<Column> columns, Layout layout = Layout::rows)
        : m_name(std::move(name)), m_columns(std::move(columns)), m_layout(layout) {}

    /// @param row  one value a column
    void Add(std::vector<Json> row);

    [[nodiscard]] const std::string& Name() const { return m_name; }
    [[nodiscard]] Json AsJson() const;
    [[nodiscard]] std::string AsText() const;
    [[nodiscard]] std::string AsTsv() const;

private:
    [[nodiscard]] std::string RowsText() const;
    [[nodiscard]] std::string RecordsText() const;

    std::string m_name;
    std::vector<Column> m_columns;
    Layout m_layout;
    std::vector<std::vector<Json>> m_rows;
};

/// The program's standard output.
class Output {
public:
    Output(OutputFormat format, std::ostream& stream) : m_format(format), m_stream(stream) {}

    [[nodiscard]] OutputFormat Format() const { return m_format; }

    /// Prints a table; in JSON it is kept until Finish, so that the output is one document.
    void Print(const Table& table);

    /// Begins a table whose rows come one by one: prints its heading, for programs in TSV only.
    void StartRows(std::vector<Column> columns);

    /// Prints a row of it at once: in JSON an object on a line of its own, outside of the document that Finish prints.
    void PrintRow(const std::vector<Json>& row);

    /// Prints a line or a block for people; ignored in the other formats.
    void PrintText(const std::string& text);

    /// In JSON: prints an object with one member for each table, even if there is but one.
    void NameTables() { m_named = true; }

    /// Ends the output: in JSON, prints what was kept. One table is an array of its rows.
    void Finish();

    /// False once something could not be written, as to a closed pipe or a full disk.
    [[nodiscard]] bool TakesMore() const;

private:
    OutputFormat m_format;
    std::ostream& m_stream;
    Json m_tables = Json::object();
    std::vector<Column> m_liveColumns;
    bool m_named = false;
    bool m_anyTsv = false;
};

}  // namespace kolmctl
