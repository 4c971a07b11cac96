/// @file  The reader of LUT files: files as they come from a disk.

#include <gtest/gtest.h>

#include <cstdio>
#include <filesystem>
#include <fstream>
#include <random>
#include <string>
#include <tuple>

#include "lut/csv_table.h"
#include "unit/lut_csv_rows.h"

namespace kolmfluxor::test {
namespace {

using namespace std::string_literals;

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

TEST(LutCsvFile, a_file_is_read_as_the_same_text_is) {
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

TEST(LutCsvFile, files_around_the_size_of_one_read) {
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

TEST(LutCsvFile, a_line_end_at_the_very_end_of_a_file_adds_no_row) {
    const CTemporaryFile file("a,b\n1,2\n");
    CCsvTable table;
    EXPECT_TRUE(table.Read(file.Path()));
    EXPECT_EQ(table.RowCount(), 2u);
}

TEST(LutCsvFile, an_empty_file_is_not_consistent) {
    const CTemporaryFile file("");
    CCsvTable table;
    EXPECT_FALSE(table.Read(file.Path()));
}

TEST(LutCsvFile, a_file_that_another_has_open_for_writing_is_read) {
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

TEST(LutCsvFile, a_folder_is_no_file) {
    CCsvTable table;
    EXPECT_FALSE(table.Read(std::filesystem::temp_directory_path().string().c_str()));
    EXPECT_EQ(table.RowCount(), 0u);
}

}  // namespace
}  // namespace kolmfluxor::test
