/// @file  Every subcommand of kolmctl: its help, its example as it stands there, and its output for programs.

#include <algorithm>
#include <iterator>
#include <set>
#include <sstream>

#include <nlohmann/json.hpp>

#include "system/support_kolmctl_help.h"

namespace kolmfluxor::test {
namespace {

using Json = nlohmann::ordered_json;
using ::testing::EndsWith;
using ::testing::HasSubstr;
using ::testing::StartsWith;

class KolmctlExamples : public KolmctlTest {
protected:
    static void SetUpTestSuite() {
        KolmctlTest::SetUpTestSuite();
        s_pages = AllHelpPages();
    }

    /// Runs an example on a camera in its factory state. @param format  an option that is added, or nothing
    [[nodiscard]] ProcessOutcome RunExample(const HelpPage& page, const wchar_t* format = nullptr) const {
        OpenCamera()->Reset();
        std::vector<std::wstring> arguments = page.ExampleArguments();
        if (format != nullptr) {
            arguments.emplace_back(format);
        }
        return Kolmctl(arguments);
    }

    static std::vector<HelpPage> s_pages;
};

std::vector<HelpPage> KolmctlExamples::s_pages;

TEST_F(KolmctlExamples, help_of_every_subcommand_ends_with_an_example_of_it) {
    EXPECT_GE(s_pages.size(), 30U);

    for (const HelpPage& page : s_pages) {
        EXPECT_EQ(page.outcome.exitCode, kSuccess) << page.Name();
        EXPECT_EQ(page.outcome.err, "") << page.Name();
        EXPECT_THAT(page.outcome.out, HasSubstr("\nUsage: kolmctl " + page.Name())) << page.Name();
        EXPECT_THAT(page.outcome.out, HasSubstr("\nExample:\n  " + page.example + "\n")) << page.Name();
        EXPECT_THAT(page.example, StartsWith("kolmctl ")) << page.Name();
        EXPECT_THAT(page.example, HasSubstr(" " + page.Name())) << page.Name();
    }
}

TEST_F(KolmctlExamples, work_as_they_stand_in_the_help) {
    const CExampleFolder folder;

    for (const HelpPage& page : s_pages) {
        const ProcessOutcome outcome = RunExample(page);

        EXPECT_EQ(outcome.exitCode, kSuccess) << page.example << "\n" << ::testing::PrintToString(outcome);
        EXPECT_EQ(outcome.err, "") << page.example;
    }
}

TEST_F(KolmctlExamples, of_all_subcommands_stand_in_the_help_of_the_program) {
    const std::string help = Kolmctl({L"--help"}).out;

    for (const HelpPage& page : s_pages) {
        const bool group = page.example.ends_with(" --help");  // its members have examples of their own
        EXPECT_EQ(help.find("\n  " + page.example + "\n") == std::string::npos, group) << page.Name();
    }
}

// What has no result to print.
constexpr const char* kSilent[] = {"pages", "save"};

/// A table as a program gets it: the names of its columns, and the cells of its rows.
struct Rows {
    std::vector<std::string> keys;
    std::vector<std::vector<std::string>> cells;
};

std::vector<std::string> Split(const std::string& text, char separator) {
    std::vector<std::string> parts;
    std::size_t start = 0;
    for (std::size_t end = 0; (end = text.find(separator, start)) != std::string::npos; start = end + 1) {
        parts.push_back(text.substr(start, end - start));
    }
    parts.push_back(text.substr(start));
    return parts;
}

/// Tables of tab-separated values, an empty line between two of them.
std::vector<Rows> TsvTables(const std::string& text) {
    std::vector<Rows> tables(1);
    EXPECT_THAT(text, EndsWith("\n"));
    std::istringstream lines(text);
    for (std::string line; std::getline(lines, line);) {
        Rows& table = tables.back();
        if (line.empty()) {
            tables.emplace_back();
        } else if (table.keys.empty()) {
            table.keys = Split(line, '\t');
        } else {
            table.cells.push_back(Split(line, '\t'));
            EXPECT_EQ(table.cells.back().size(), table.keys.size()) << line;
        }
    }
    return tables;
}

/// What a value looks like in a cell; "*" for what has no single form.
std::string CellOf(const std::string& key, const Json& value) {
    if (value.is_array() || key == "time") {
        return "*";
    }
    if (value.is_boolean()) {
        return value.get<bool>() ? "yes" : "no";
    }
    return value.is_string() ? value.get<std::string>() : value.is_null() ? "" : value.dump();
}

void AddObject(Rows* table, const Json& object) {
    std::vector<std::string> keys;
    std::vector<std::string> cells;
    for (const auto& [key, value] : object.items()) {
        keys.push_back(key);
        cells.push_back(CellOf(key, value));
    }
    if (!table->cells.empty()) {
        EXPECT_EQ(keys, table->keys);
    }
    table->keys = keys;
    table->cells.push_back(cells);
}

Rows ArrayTable(const Json& array) {
    Rows table;
    for (const Json& object : array) {
        AddObject(&table, object);
    }
    return table;
}

/// The tables of one document (an array of rows, or an object with such an array for each table) or of one row a line.
std::vector<Rows> JsonTables(const std::string& text) {
    const Json document = Json::parse(text, nullptr, false);
    if (document.is_array()) {
        return {ArrayTable(document)};
    }
    std::vector<Rows> tables;
    if (document.is_object() && document.begin()->is_array()) {
        std::ranges::transform(document, std::back_inserter(tables), ArrayTable);
        return tables;
    }
    tables.emplace_back();
    for (const std::string& line : Split(text.substr(0, text.size() - 1), '\n')) {
        const Json row = Json::parse(line, nullptr, false);
        EXPECT_TRUE(row.is_object()) << line;
        if (row.is_object()) {
            AddObject(&tables.front(), row);
        }
    }
    return tables;
}

void ExpectSameTables(const std::vector<Rows>& json, const std::vector<Rows>& tsv) {
    ASSERT_EQ(json.size(), tsv.size());
    for (std::size_t t = 0; t < json.size(); ++t) {
        ASSERT_EQ(json[t].cells.size(), tsv[t].cells.size());
        if (!json[t].cells.empty()) {  // an empty array has no names
            EXPECT_EQ(json[t].keys, tsv[t].keys);
        }
        const std::set<std::string> keys(tsv[t].keys.begin(), tsv[t].keys.end());
        EXPECT_EQ(keys.size(), tsv[t].keys.size()) << "a name twice";
        for (std::size_t r = 0; r < json[t].cells.size(); ++r) {
            ASSERT_EQ(json[t].cells[r].size(), tsv[t].cells[r].size());
            for (std::size_t c = 0; c < json[t].cells[r].size(); ++c) {
                const std::string& cell = tsv[t].cells[r][c];
                EXPECT_TRUE(json[t].cells[r][c] == "*" || json[t].cells[r][c] == cell) << cell;
                EXPECT_FALSE(cell.starts_with(' ') || cell.ends_with(' ')) << "padded: \"" << cell << "\"";
            }
        }
    }
}

TEST_F(KolmctlExamples, print_the_same_tables_as_json_and_as_tab_separated_values) {
    const CExampleFolder folder;

    for (const HelpPage& page : s_pages) {
        SCOPED_TRACE(page.example);
        if (page.example.ends_with(" --help")) {
            continue;
        }
        const ProcessOutcome json = RunExample(page, L"--json");
        const ProcessOutcome tsv = RunExample(page, L"--tsv");

        EXPECT_EQ(json.exitCode, kSuccess) << json.err;
        EXPECT_EQ(tsv.exitCode, kSuccess) << tsv.err;
        if (std::ranges::find(kSilent, page.Name()) != std::end(kSilent)) {
            EXPECT_EQ(json.out + tsv.out, "");
        } else {
            ExpectSameTables(JsonTables(json.out), TsvTables(tsv.out));
        }
    }
}

}  // namespace
}  // namespace kolmfluxor::test
