/// @file  The reader of LUT files: rows, counts, LUTs, and what it refuses.

#include "lut/csv_table.h"

#include <gtest/gtest.h>

#include <cstdio>
#include <filesystem>
#include <fstream>
#include <random>
#include <string>
#include <vector>

#include "lut/csv_number.h"
#include "lut/csv_scan.h"
#include "lut/lut_loader.h"
#include "unit/lut_csv_compare.h"

namespace kolmfluxor::test {
namespace {

using namespace std::string_literals;
using Tokens = std::vector<std::string>;

std::vector<Tokens> RowsOf(const CCsvTable& table) {
    std::vector<Tokens> rows;
    for (std::size_t row = 0; row < table.RowCount(); ++row) {
        rows.emplace_back();
        for (std::size_t token = 0; token < table.TokenCount(row); ++token)
            rows.back().emplace_back(table.Token(row, token));
    }
    return rows;
}

CCsvTable TableOf(const std::string& text) {
    CCsvTable table;
    std::ignore = table.ReadText(text);
    return table;
}

/// A file with this content, as long as the object lives.
class CTemporaryFile {
public:
    explicit CTemporaryFile(const std::string& content) {
        static int number = 0;
        const auto unique = std::to_string(std::random_device{}()) + "-" + std::to_string(++number);
        m_path = (std::filesystem::temp_directory_path() / ("kolm-lut-" + unique + ".csv")).string();
        std::ofstream(m_path, std::ios::binary) << content;
    }
    ~CTemporaryFile() { std::filesystem::remove(m_path); }
    CTemporaryFile(const CTemporaryFile&) = delete;
    CTemporaryFile& operator=(const CTemporaryFile&) = delete;

    [[nodiscard]] const char* Path() const { return m_path.c_str(); }

private:
    std::string m_path;
};

TEST(LutCsvTable, lines_become_rows_with_a_NUL_in_place_of_the_line_feed) {
    EXPECT_EQ(RowsOf(TableOf("In,A\n0,1\n")), (std::vector<Tokens>{{"In", "A\0"s}, {"0", "1\0"s}}));
}

TEST(LutCsvTable, a_CR_stays_in_the_last_token_and_out_of_the_numbers) {
    const CCsvTable table = TableOf("In,A\r\n0,12\r\n");
    EXPECT_EQ(RowsOf(table), (std::vector<Tokens>{{"In", "A\r\0"s}, {"0", "12\r\0"s}}));

    Lut8Bit lut;
    EXPECT_TRUE(table.Fill8BitLUT(lut, 0));
    EXPECT_EQ(lut.name, "A\r");
    EXPECT_EQ(lut.values, std::vector<std::uint8_t>{12});
}

TEST(LutCsvTable, a_last_line_without_a_line_feed_has_no_NUL) {
    EXPECT_EQ(RowsOf(TableOf("a,b\n1,2")), (std::vector<Tokens>{{"a", "b\0"s}, {"1", "2"}}));
    EXPECT_EQ(TableOf("a,b\n1,2\n").RowCount(), 2u) << "a line end at the very end adds no row";
}

TEST(LutCsvTable, an_empty_line_is_a_row_of_one_NUL_token) {
    CCsvTable table;
    EXPECT_FALSE(table.ReadText("a,b\n\n1,2\n"));
    EXPECT_EQ(RowsOf(table), (std::vector<Tokens>{{"a", "b\0"s}, {"\0"s}, {"1", "2\0"s}}));
    EXPECT_TRUE(table.ReadText("\n\n")) << "rows of one token are equally long";
}

TEST(LutCsvTable, a_separator_at_the_end_makes_one_more_column) {
    const CCsvTable table = TableOf("x,y,\n1,2,\n");
    EXPECT_EQ(RowsOf(table)[1], (Tokens{"1", "2", "\0"s}));
    EXPECT_EQ(table.GetLUTCount(), 2u);
    Lut16Bit lut;
    EXPECT_TRUE(table.Fill16BitLUT(lut, 1));
    EXPECT_EQ(lut.name, "");
    EXPECT_EQ(lut.values, std::vector<std::uint16_t>{0});
}

TEST(LutCsvTable, a_line_whose_first_token_is_cut_off_by_an_open_quote_is_no_row) {
    for (const std::string& line : {"\"broken"s, "a\"b"s, "'"s, "a'b,c"s, "\"x\"y'"s}) {
        CCsvTable table;
        EXPECT_TRUE(table.ReadText("a,b\n" + line + "\n1,2\n")) << line;
        EXPECT_EQ(RowsOf(table), (std::vector<Tokens>{{"a", "b\0"s}, {"1", "2\0"s}})) << line;
        EXPECT_EQ(table.GetElementCount(), 1u) << line;
    }
}

TEST(LutCsvTable, counts_of_an_empty_table_raise_out_of_range) {
    for (const char* text : {"", "\"", "'x\n\"y"}) {
        const CCsvTable table = TableOf(text);
        EXPECT_FALSE(table.IsConsistent());
        for (const auto& count :
             {OutcomeOf([&] { return table.GetLUTCount(); }), OutcomeOf([&] { return table.GetElementCount(); })}) {
            EXPECT_EQ(count, std::string(typeid(std::out_of_range).name()) + ": no tokens read") << text;
        }
    }
}

TEST(LutCsvTable, counts_of_rows_of_unequal_length_raise_CParserException) {
    CCsvTable table;
    EXPECT_FALSE(table.ReadText("a,b\n1,2,3\n"));
    const std::string raised = std::string(typeid(CParserException).name()) + ":  no valid tokens read";
    EXPECT_EQ(OutcomeOf([&] { return table.GetLUTCount(); }), raised);
    EXPECT_EQ(OutcomeOf([&] { return table.GetElementCount(); }), raised);
    Lut8Bit lut;
    EXPECT_EQ(OutcomeOf([&] { return table.Fill8BitLUT(lut, 0); }), raised);
}

TEST(LutCsvTable, a_header_alone_has_no_elements_and_no_second_row) {
    CCsvTable table;
    EXPECT_TRUE(table.ReadText("In,A,B\n"));
    EXPECT_EQ(table.GetElementCount(), 0u);
    EXPECT_THROW(std::ignore = table.GetLUTCount(), std::out_of_range);
}

TEST(LutCsvTable, a_LUT_number_beyond_the_columns_raises_out_of_range_and_leaves_the_LUT) {
    const CCsvTable table = TableOf("In,A\n0,1\n");
    Lut8Bit lut{.name = "kept", .values = {7}};
    for (const std::size_t n : {std::size_t{1}, std::size_t{2}, ~std::size_t{0}}) {
        EXPECT_EQ(
            OutcomeOf([&] { return table.Fill8BitLUT(lut, n); }),
            std::string(typeid(std::out_of_range).name()) + ": LUTNr is largeer then the return of GetLUTCount()");
    }
    EXPECT_EQ(lut.name, "kept");
    EXPECT_EQ(lut.values, std::vector<std::uint8_t>{7});
}

TEST(LutCsvTable, values_keep_their_low_bits) {
    const CCsvTable table = TableOf("In,A\n0,300\n1,-1\n2,65536\n3,65537\n4,99999999999999999999999\n");
    Lut8Bit lut8{.name = "old", .values = {1, 2}};
    Lut16Bit lut16;
    EXPECT_TRUE(table.Fill8BitLUT(lut8, 0));
    EXPECT_TRUE(table.Fill16BitLUT(lut16, 0));

    EXPECT_EQ(lut8.name, "A");
    EXPECT_EQ(lut8.values, (std::vector<std::uint8_t>{44, 255, 0, 1, 0xFF}));
    EXPECT_EQ(lut16.values, (std::vector<std::uint16_t>{300, 0xFFFF, 0, 1, 0xFFFF}));
}

TEST(LutCsvTable, names_end_at_their_first_NUL) {
    Lut8Bit lut;
    EXPECT_TRUE(TableOf("In,A\0B\n0,1\n"s).Fill8BitLUT(lut, 0));
    EXPECT_EQ(lut.name, "A");
}

TEST(LutCsvTable, reading_again_forgets_what_was_there) {
    CCsvTable table = TableOf("a,b,c\n1\n");
    EXPECT_FALSE(table.IsConsistent());
    EXPECT_TRUE(table.ReadText("a,b\n1,2\n"));
    EXPECT_EQ(table.GetLUTCount(), 1u);
    EXPECT_FALSE(table.Read("/no such folder/no such file.csv"));
    EXPECT_EQ(table.RowCount(), 0u);
}

// -- Lines that are too long

TEST(LutCsvTable, a_line_of_255_characters_is_read_and_one_of_256_ends_the_reading) {
    for (const std::string& end : {"\n"s, ""s}) {
        for (const std::size_t length : {254u, 255u, 256u, 257u, 400u}) {
            SCOPED_TRACE(std::to_string(length) + (end.empty() ? " at the end" : ""));
            const std::string text = "a,b\n" + std::string(length - 2, 'x') + ",y" + end;
            const CCsvTable table = TableOf(text + (end.empty() ? "" : "c,d\n"));
            EXPECT_EQ(table.RowCount(), length > 255 ? 1u : end.empty() ? 2u : 3u);
            EXPECT_TRUE(table.IsConsistent()) << "the rows read so far stay";
            EXPECT_EQ(DifferenceFor(text), "");
        }
    }
}

TEST(LutCsvTable, the_CR_counts_among_the_255_characters) {
    EXPECT_EQ(TableOf("a\n" + std::string(254, 'x') + "\r\nb\n").RowCount(), 3u);
    EXPECT_EQ(TableOf("a\n" + std::string(255, 'x') + "\r\nb\n").RowCount(), 1u);
}

TEST(LutCsvTable, long_lines_of_separators_and_quotes_are_no_danger) {
    for (const char c : {',', ';', '"', '\'', '\0', 'x'}) {
        for (std::size_t length = 250; length < 260; ++length) {
            for (const std::string& end : {"\n"s, ""s, "\"\n"s, ",\n"s})
                EXPECT_EQ(DifferenceFor("a\n" + std::string(length, c) + end + "b\n"), "") << length << c << end;
        }
        EXPECT_EQ(DifferenceFor(std::string(100'000, c)), "");
    }
}

// -- Files

TEST(LutCsvTable, a_file_is_read_as_the_same_text_is) {
    // Longer than one read, with each length of a line at the seams; a quoted line now and then.
    std::string text;
    for (std::size_t i = 0; text.size() < 900'000; ++i) {
        text += std::to_string(i * 7919 % 65536) + ',' + std::string(i % 97, '1');
        text += i % 13 == 0 ? ",\"x,y\"\r\n" : ",z\n";
    }
    for (const std::string& end : {""s, "1,2,3"s, std::string(256, 'x') + "\n1,2,3\n"}) {
        const CTemporaryFile file(text + end);
        CCsvTable fromFile;
        CCsvTable fromText;
        EXPECT_TRUE(fromFile.Read(file.Path()));
        EXPECT_TRUE(fromText.ReadText(text + end));
        EXPECT_TRUE(RowsOf(fromFile) == RowsOf(fromText)) << "ending " << end;
    }
}

TEST(LutCsvTable, files_around_the_size_of_one_read) {
    constexpr std::size_t kPiece = 64 * 1024;
    for (const std::size_t size : {kPiece - 1, kPiece, kPiece + 1, 2 * kPiece}) {
        std::string text;
        while (text.size() + 16 <= size)
            text += "1234567,1234567\n";
        text += std::string(size - text.size(), ',');
        const CTemporaryFile file(text);
        CCsvTable table;
        std::ignore = table.Read(file.Path());
        EXPECT_TRUE(RowsOf(table) == RowsOf(TableOf(text))) << size;
    }
}

TEST(LutCsvTable, a_line_end_at_the_very_end_of_a_file_adds_no_row) {
    const CTemporaryFile file("a,b\n1,2\n");
    CCsvTable table;
    EXPECT_TRUE(table.Read(file.Path()));
    EXPECT_EQ(table.RowCount(), 2u);
}

TEST(LutCsvTable, an_empty_file_is_not_consistent) {
    const CTemporaryFile file("");
    CCsvTable table;
    EXPECT_FALSE(table.Read(file.Path()));
}

TEST(LutCsvTable, a_file_that_another_has_open_for_writing_is_read) {
    const CTemporaryFile file("");
    std::FILE* const other = std::fopen(file.Path(), "r+b");
    ASSERT_NE(other, nullptr);
    std::fputs("a,b\n1,2\n", other);
    std::fflush(other);

    CCsvTable table;
    EXPECT_TRUE(table.Read(file.Path()));
    EXPECT_EQ(table.GetElementCount(), 1u);
    std::fclose(other);
}

TEST(LutCsvTable, a_folder_is_no_file) {
    CCsvTable table;
    EXPECT_FALSE(table.Read(std::filesystem::temp_directory_path().string().c_str()));
    EXPECT_EQ(table.RowCount(), 0u);
}

// -- The quick reader against the plain one

TEST(LutCsvTable, reads_as_the_plain_rules_do) {
    const std::string texts[] = {
        "",
        "\n",
        "\r\n",
        "a",
        "a\n",
        "a,b\n1,2\n",
        "a;b\r\n1;2\r\n",
        "a,b;c\n1,2;3\n",
        "\"a,b\",c\n1,2\n",
        "a,b\n1,\"2\"\n",
        "a,b\n'1',2\n",
        "a,b,'c,d'\n1,2,3\n",
        "\"\n\"\n",
        "'\n",
        "a\"b\n1\n",
        "a,b\n1, 2\n2,\t-3\n3,+4\n",
        "a,b\n0,12345678\n1,123456789\n2,0000000012\n3,4294967296\n4,4294967295\n5,1e3\n6,0x10\n7,1.9\n",
        "a,b\n0,--1\n1,+-1\n2,-\n",
        "a,b\n0,\v\f 5\n1,\v\f\n2,5\v\f\n",
        "\0,\0\n\0,\0\n"s,
        "a,b\n\0001,1\0002\n"s,
        "a,b\n1,2\r",
        "a,b\n1,\r\r\n",
        ",\n,\n",
        ",,;;,,\n1,2;;,3\n",
        "a,b\n1,2/3\n2,2:3\n3,/12\n4,12:\n5,:\n",
    };
    for (const std::string& text : texts)
        EXPECT_EQ(DifferenceFor(text), "") << text;
}

/// Texts of characters that matter, in lengths around the limits.
TEST(LutCsvTable, reads_random_texts_as_the_plain_rules_do) {
    std::mt19937 random(20240229);
    const std::string alphabets[] = {",;\"'\n\r 0129x-"s, ",\n019"s, ",;\n5"s, "\",\n1"s, "',;\n\"\0"s, ",\n7\r"s};
    for (int i = 0; i < 2500; ++i) {
        const std::string& alphabet = alphabets[random() % std::size(alphabets)];
        std::string text(random() % (i % 50 == 0 ? 3000 : 200), '\0');
        // In some texts line feeds are so rare that lines reach their limit.
        const unsigned rare = random() % 3 == 0 ? 40 : 1;
        for (char& c : text) {
            do {
                c = alphabet[random() % alphabet.size()];
            } while (c == '\n' && random() % rare != 0);
        }
        const std::string difference = DifferenceFor(text);
        ASSERT_EQ(difference, "") << testing::PrintToString(text);
    }
}

/// Proper tables, some with one cell that is odd.
TEST(LutCsvTable, reads_random_tables_as_the_plain_rules_do) {
    std::mt19937 random(7);
    const std::string oddCells[] = {"",  "\"",  "'",   "\"5\"", "-3",  " 9", "70000", "123456789012",
                                    "x", "1;2", "1,2", "\n",    "1\0"s};
    for (int i = 0; i < 700; ++i) {
        const std::size_t columns = 1 + random() % 17;
        const std::size_t rows = 1 + random() % 40;
        const std::size_t odd = random() % 4 == 0 ? ~std::size_t{0} : random() % (columns * rows);
        const char separator = random() % 2 == 0 ? ',' : ';';
        std::string text;
        for (std::size_t cell = 0; cell < columns * rows; ++cell) {
            text += cell == odd ? oddCells[random() % std::size(oddCells)] : std::to_string(random() % 70000);
            if ((cell + 1) % columns != 0) {
                text += separator;
            } else {
                text += i % 2 == 0 ? "\n" : "\r\n";
            }
        }
        if (random() % 3 == 0) text.resize(text.size() - 1);
        ASSERT_EQ(DifferenceFor(text), "") << testing::PrintToString(text);
    }
}

TEST(LutCsvTable, finds_marks_as_character_by_character) {
    std::mt19937 random(3);
    for (int i = 0; i < 2000; ++i) {
        char text[kCsvBlock];
        for (char& c : text)
            c = random() % 2 == 0 ? ",;\"'\n"[random() % 5] : static_cast<char>(random());
        ASSERT_EQ(CsvMarks(text), CsvMarksPlain(text));
    }
}

TEST(LutCsvTable, quick_numbers_are_the_plain_ones) {
    std::mt19937 random(11);
    for (int i = 0; i < 60'000; ++i) {
        std::string cell = "########";
        const std::size_t length = random() % 11;
        for (std::size_t j = 0; j < length; ++j)
            cell += random() % 20 != 0 ? static_cast<char>('0' + random() % 10) : " -+/:\r\0x09"[random() % 10];
        for (const char* end : {"", "\r"}) {
            const std::string whole = cell + end + (random() % 2 == 0 ? "\0"s : ""s);
            const std::string_view view = std::string_view(whole).substr(8);
            ASSERT_EQ(CsvNumberQuick(view), PlainNumber(std::string(view))) << testing::PrintToString(whole);
            ASSERT_EQ(CsvNumber(view), PlainNumber(std::string(view))) << testing::PrintToString(whole);
        }
    }
}

TEST(LutCsvTable, all_six_blanks_may_lead_a_number) {
    const std::string before = "########";
    for (const std::string& cell : {"\v\f 5"s, " \t\n\v\f\r5"s, "\f+5"s, "\v5\v6"s}) {
        EXPECT_EQ(CsvNumber(cell), 5u) << testing::PrintToString(cell);
        EXPECT_EQ(PlainNumber(cell), 5u) << testing::PrintToString(cell);
        const std::string whole = before + cell;
        EXPECT_EQ(CsvNumberQuick(std::string_view(whole).substr(before.size())), 5u) << testing::PrintToString(cell);
    }
    for (const std::string& cell : {"\b5"s,
                                    "\x0E"
                                    "5"s,
                                    "\x1F"
                                    "5"s,
                                    "\v\f "s})
        EXPECT_EQ(CsvNumber(cell), 0u) << testing::PrintToString(cell);
}

TEST(LutCsvTable, fills_all_LUTs_as_one_by_one) {
    std::string text = "In";
    for (std::size_t i = 0; i < 5; ++i)
        text += ",LUT " + std::to_string(i);
    for (std::size_t row = 0; row < 700; ++row) {
        text += "\n" + std::to_string(row);
        for (std::size_t i = 0; i < 5; ++i)
            text += ',' + std::to_string(row * 31 + i);
    }
    const CCsvTable table = TableOf(text);
    std::vector<Lut16Bit> all(5);
    all[3].values = {1, 2, 3};

    EXPECT_TRUE(table.FillAll(all));

    for (std::size_t i = 0; i < 5; ++i) {
        Lut16Bit one;
        EXPECT_TRUE(table.Fill16BitLUT(one, i));
        EXPECT_EQ(one.values.size(), 700u);
        EXPECT_EQ(all[i].name, one.name);
        EXPECT_EQ(all[i].values, one.values);
    }
    std::vector<Lut16Bit> tooMany(6);
    EXPECT_THROW(table.FillAll(tooMany), std::out_of_range);
}

}  // namespace
}  // namespace kolmfluxor::test
