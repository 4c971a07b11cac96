/// @file  The reader of LUT files: rows, counts, LUTs, and what it refuses.

#include "lut/csv_table.h"

#include <gtest/gtest.h>

#include <stdexcept>
#include <string>
#include <tuple>
#include <typeinfo>
#include <vector>

#include "lut/lut_loader.h"
#include "unit/lut_csv_compare.h"
#include "unit/lut_csv_rows.h"

namespace kolmfluxor::test {
namespace {

using namespace std::string_literals;

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

}  // namespace
}  // namespace kolmfluxor::test
