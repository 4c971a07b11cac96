/// @file  The quick reader of LUT files against the plain one.

#include <gtest/gtest.h>

#include <iterator>
#include <random>
#include <string>
#include <string_view>

#include "lut/csv_number.h"
#include "lut/csv_scan.h"
#include "unit/lut_csv_compare.h"
#include "unit/plain_lut_csv.h"

namespace kolmfluxor::test {
namespace {

using namespace std::string_literals;

TEST(LutCsvQuick, reads_as_the_plain_rules_do) {
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
TEST(LutCsvQuick, reads_random_texts_as_the_plain_rules_do) {
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
TEST(LutCsvQuick, reads_random_tables_as_the_plain_rules_do) {
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

TEST(LutCsvQuick, finds_marks_as_character_by_character) {
    std::mt19937 random(3);
    for (int i = 0; i < 2000; ++i) {
        char text[kCsvBlock];
        for (char& c : text)
            c = random() % 2 == 0 ? ",;\"'\n"[random() % 5] : static_cast<char>(random());
        ASSERT_EQ(CsvMarks(text), CsvMarksPlain(text));
    }
}

TEST(LutCsvQuick, quick_numbers_are_the_plain_ones) {
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

TEST(LutCsvQuick, all_six_blanks_may_lead_a_number) {
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

}  // namespace
}  // namespace kolmfluxor::test
