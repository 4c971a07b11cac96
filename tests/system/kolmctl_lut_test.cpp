/// @file  kolmctl lut, lut enable, lut disable and lut upload.

#include "system/support_kolmctl.h"

#include <algorithm>
#include <array>
#include <filesystem>
#include <fstream>
#include <functional>

namespace kolmfluxor::test {
namespace {

using ::testing::HasSubstr;

constexpr std::uint32_t kTables = 4;
constexpr std::size_t kValues = 4096;
constexpr std::uint32_t kHighest = 4095;

/// A file in the temporary folder, as long as the object lives.
class CTemporaryFile {
public:
    CTemporaryFile(const wchar_t* ending, const std::string& content) {
        std::array<wchar_t, MAX_PATH> folder{};
        ::GetTempPathW(static_cast<DWORD>(folder.size()), folder.data());
        m_path = std::wstring(folder.data()) + L"look-up table " + std::to_wstring(::GetCurrentProcessId()) + ending;
        std::ofstream file(std::filesystem::path(m_path), std::ios::binary);
        file << content;
        EXPECT_TRUE(file.flush().good());
    }
    ~CTemporaryFile() { EXPECT_TRUE(::DeleteFileW(m_path.c_str())); }
    CTemporaryFile(const CTemporaryFile&) = delete;
    CTemporaryFile& operator=(const CTemporaryFile&) = delete;

    [[nodiscard]] const std::wstring& Path() const { return m_path; }

private:
    std::wstring m_path;
};

std::uint32_t Inverted(std::size_t i) {
    return kHighest - static_cast<std::uint32_t>(i);
}

std::string Text(std::size_t count, const std::function<std::uint32_t(std::size_t)>& value) {
    std::string text;
    for (std::size_t i = 0; i < count; ++i) {
        text += std::to_string(value(i)) + "\n";
    }
    return text;
}

std::string Binary(std::size_t count, const std::function<std::uint32_t(std::size_t)>& value) {
    std::string bytes;
    for (std::size_t i = 0; i < count; ++i) {
        bytes += static_cast<char>(value(i) & 0xFFU);
        bytes += static_cast<char>(value(i) >> 8U);
    }
    return bytes;
}

class KolmctlLut : public KolmctlTest {
protected:
    using Bytes = std::vector<std::uint8_t>;

    [[nodiscard]] Bytes Memory(std::uint32_t lut) const {
        Bytes bytes(2 * kValues);
        EXPECT_EQ(OpenCamera()->ReadLutMemory(lut, bytes.data(), bytes.size()), bytes.size());
        return bytes;
    }

    [[nodiscard]] std::vector<Bytes> AllMemory() const {
        std::vector<Bytes> all;
        for (std::uint32_t lut = 0; lut < kTables; ++lut) {
            all.push_back(Memory(lut));
        }
        return all;
    }

    /// Where the interface and where an upload look for it.
    void SetBitsPerValue(std::uint32_t bits) const {
        constexpr std::uint32_t kBitsPerValue = 63;
        constexpr std::uint32_t kLutInfo = 0xF1000248;
        const UniqueCamera camera = OpenCamera();
        std::uint32_t info = 0;
        ASSERT_TRUE(camera->PeekRegister(kLutInfo, &info));
        ASSERT_TRUE(camera->PokeRegister(kLutInfo, (info & ~0x1F000000U) | bits << 24U));
        ASSERT_TRUE(camera->SetFeatureWord(kBitsPerValue, kValue, bits));
    }

    static ProcessOutcome Upload(const CTemporaryFile& file, const wchar_t* number) {
        return Kolmctl({L"--simulate", L"lut", L"upload", file.Path(), L"--number", number});
    }
};

const std::string kFactory =
    "on                no\n"
    "current table     0\n"
    "tables            4\n"
    "bytes per table   8192\n"
    "values per table  4096\n"
    "bits per value    12\n";

TEST_F(KolmctlLut, shows_state_and_size) {
    EXPECT_THAT(Kolmctl({L"--simulate", L"lut"}), Prints(kFactory));
}

TEST_F(KolmctlLut, prints_one_row_for_programs) {
    EXPECT_THAT(Kolmctl({L"--simulate", L"--tsv", L"lut"}),
                Prints("on\tcurrent\tcount\tsizeBytes\tvalues\tbitsPerValue\nno\t0\t4\t8192\t4096\t12\n"));
    EXPECT_THAT(Kolmctl({L"--simulate", L"--json", L"lut"}), Prints("[\n"
                                                                    "  {\n"
                                                                    "    \"on\": false,\n"
                                                                    "    \"current\": 0,\n"
                                                                    "    \"count\": 4,\n"
                                                                    "    \"sizeBytes\": 8192,\n"
                                                                    "    \"values\": 4096,\n"
                                                                    "    \"bitsPerValue\": 12\n"
                                                                    "  }\n"
                                                                    "]\n"));
}

TEST_F(KolmctlLut, enable_and_disable_are_kept_by_the_camera) {
    const std::string state = "on\tcurrent\tcount\tsizeBytes\tvalues\tbitsPerValue\n";

    EXPECT_THAT(Kolmctl({L"--simulate", L"--tsv", L"lut", L"enable", L"3"}),
                Prints(state + "yes\t3\t4\t8192\t4096\t12\n"));
    EXPECT_THAT(Kolmctl({L"--simulate", L"--tsv", L"lut"}), Prints(state + "yes\t3\t4\t8192\t4096\t12\n"));
    EXPECT_THAT(Kolmctl({L"--simulate", L"--tsv", L"lut", L"disable"}), Prints(state + "no\t3\t4\t8192\t4096\t12\n"))
        << "the current table stays";
    EXPECT_THAT(Kolmctl({L"--simulate", L"--tsv", L"lut"}), Prints(state + "no\t3\t4\t8192\t4096\t12\n"));
}

TEST_F(KolmctlLut, enable_sends_the_number_and_the_on_bit) {
    const ProcessOutcome on = Kolmctl({L"--simulate", L"trace", L"lut", L"enable", L"2"});
    const ProcessOutcome off = Kolmctl({L"--simulate", L"trace", L"lut", L"disable"});

    EXPECT_THAT(on.out,
                HasSubstr("SET  property 31  64 bytes  0x00000000 S_OK\n      24  00000002 00000002 00000000 "));
    EXPECT_THAT(off.out,
                HasSubstr("SET  property 31  64 bytes  0x00000000 S_OK\n      24  00000002 00000004 00000000 "));
}

TEST_F(KolmctlLut, enable_refuses_a_number_that_the_camera_lacks) {
    EXPECT_THAT(Kolmctl({L"--simulate", L"lut", L"enable", L"4"}),
                Fails(kRefused, "cannot enable table 4: 0x80070057 E_INVALIDARG"));
    EXPECT_THAT(Kolmctl({L"--simulate", L"lut", L"enable", L"4"}), Fails(kRefused, "the camera has tables 0 to 3\n"));
    EXPECT_THAT(Kolmctl({L"--simulate", L"lut", L"enable", L"one"}), Fails(kUsage, "not a table number: \"one\""));
    EXPECT_THAT(Kolmctl({L"--simulate", L"lut", L"enable"}), Fails(kUsage, "N is required"));

    EXPECT_THAT(Kolmctl({L"--simulate", L"lut"}), Prints(kFactory));
}

TEST_F(KolmctlLut, upload_of_a_text_fills_the_table_in_the_cameras_byte_order) {
    const std::vector<Bytes> before = AllMemory();
    const CTemporaryFile file(L".txt", Text(kValues, Inverted));

    EXPECT_THAT(Upload(file, L"2"), Prints("table           2\n"
                                           "values          4096\n"
                                           "bits per value  12\n"
                                           "bytes           8192\n"));

    const Bytes after = Memory(2);
    for (std::size_t i = 0; i < kValues; ++i) {
        ASSERT_EQ(after[2 * i], Inverted(i) >> 8U) << "high byte of value " << i;
        ASSERT_EQ(after[2 * i + 1], Inverted(i) & 0xFFU) << "low byte of value " << i;
    }
    for (const std::uint32_t other : {0U, 1U, 3U}) {
        EXPECT_EQ(Memory(other), before[other]) << other;
    }
    EXPECT_THAT(Kolmctl({L"--simulate", L"lut"}), Prints(kFactory)) << "an upload switches nothing";
}

TEST_F(KolmctlLut, upload_of_a_binary_file_is_the_same) {
    const CTemporaryFile text(L".txt", Text(kValues, Inverted));
    const CTemporaryFile binary(L".BIN", Binary(kValues, Inverted));

    EXPECT_EQ(Upload(text, L"0").exitCode, kSuccess);
    EXPECT_EQ(Upload(binary, L"1").exitCode, kSuccess);

    EXPECT_EQ(Memory(1), Memory(0));
    EXPECT_NE(Memory(1), Memory(3));
}

TEST_F(KolmctlLut, upload_takes_hexadecimal_blanks_empty_lines_and_any_line_end) {
    std::string lines = "\n";
    for (std::size_t i = 0; i < kValues; ++i) {
        lines += i % 2 == 0 ? " 0x7b\t\r\n" : "321\n\n";
    }
    lines.pop_back();
    lines.pop_back();  // the last line without an end
    const CTemporaryFile file(L".txt", lines);

    const ProcessOutcome outcome = Upload(file, L"0");

    EXPECT_EQ(outcome.exitCode, kSuccess) << outcome.err;
    const Bytes memory = Memory(0);
    EXPECT_EQ(Bytes(memory.begin(), memory.begin() + 4), (Bytes{0x00, 0x7B, 0x01, 0x41}));
    EXPECT_EQ(Bytes(memory.end() - 4, memory.end()), (Bytes{0x00, 0x7B, 0x01, 0x41}));
}

TEST_F(KolmctlLut, upload_packs_values_of_eight_bits_into_bytes) {
    SetBitsPerValue(8);
    const auto value = [](std::size_t i) { return static_cast<std::uint32_t>((i + 3) % 256); };
    std::string bytes;
    for (std::size_t i = 0; i < 2 * kValues; ++i) {
        bytes += static_cast<char>(value(i));
    }
    const CTemporaryFile text(L".txt", Text(2 * kValues, value));
    const CTemporaryFile binary(L".bin", bytes);

    EXPECT_THAT(Upload(text, L"0"), Prints("table           0\n"
                                           "values          8192\n"
                                           "bits per value  8\n"
                                           "bytes           8192\n"));
    EXPECT_EQ(Upload(binary, L"1").exitCode, kSuccess);

    const Bytes memory = Memory(0);
    EXPECT_EQ(std::string(memory.begin(), memory.end()), bytes) << "in the order of the file, nothing swapped";
    EXPECT_EQ(Memory(1), memory);
}

TEST_F(KolmctlLut, shows_the_code_for_what_the_camera_lacks) {
    constexpr std::uint32_t kBitsPerValue = 63;
    ASSERT_TRUE(OpenCamera()->SetFeaturePresent(kBitsPerValue, false));

    const auto refused = Fails(kRefused, "cannot read the bits per value of the look-up tables: 0x80070490");
    EXPECT_THAT(Kolmctl({L"--simulate", L"lut"}), refused);
    EXPECT_THAT(Kolmctl({L"--simulate", L"lut", L"enable", L"1"}), refused);
}

TEST_F(KolmctlLut, refuses_widths_that_no_table_can_have) {
    SetBitsPerValue(17);
    EXPECT_THAT(Kolmctl({L"--simulate", L"lut"}), Fails(kRefused, "the camera tells 17 bits per value\n"));

    SetBitsPerValue(0);
    EXPECT_THAT(Kolmctl({L"--simulate", L"lut"}), Fails(kRefused, "the camera tells 0 bits per value\n"));
}

TEST_F(KolmctlLut, upload_goes_through_the_buffer_in_blocks) {
    const CTemporaryFile file(L".txt", Text(kValues, Inverted));

    const ProcessOutcome outcome =
        Kolmctl({L"--simulate", L"trace", L"lut", L"upload", file.Path(), L"--number", L"1"});

    EXPECT_EQ(outcome.exitCode, kSuccess) << outcome.err;
    // Address, transfer control, size in bytes, then the first values: 4095, 4094 high byte first.
    EXPECT_THAT(outcome.out, HasSubstr("      24  f1001000 00000011 "));
    EXPECT_THAT(outcome.out, HasSubstr(" fe0fff0f "));
    EXPECT_THAT(outcome.out, HasSubstr("SET  property 62  "));
}

TEST_F(KolmctlLut, upload_refuses_a_file_of_another_size) {
    const std::vector<Bytes> before = AllMemory();
    const CTemporaryFile shortText(L".txt", Text(kValues - 1, Inverted));
    const CTemporaryFile longBinary(L".bin", Binary(kValues, Inverted) + "x");

    EXPECT_THAT(Upload(shortText, L"0"), Fails(kRefused, "cannot upload table 0: 0x80070057 E_INVALIDARG"));
    EXPECT_THAT(Upload(shortText, L"0"), Fails(kRefused,
                                               "holds 4095 values, but the camera's tables take 4096 values of "
                                               "12 bits (8192 bytes)\n"));
    EXPECT_THAT(Upload(longBinary, L"0"),
                Fails(kRefused, "holds 8193 bytes, but the camera's tables take 4096 values"));

    EXPECT_EQ(AllMemory(), before);
}

TEST_F(KolmctlLut, upload_refuses_values_that_have_too_many_bits) {
    const std::vector<Bytes> before = AllMemory();
    const CTemporaryFile file(L".txt", Text(kValues, [](std::size_t i) { return i == 99 ? 4096U : 0U; }));

    const ProcessOutcome outcome = Upload(file, L"0");

    EXPECT_THAT(outcome, Fails(kRefused, "value 100 of \""));
    EXPECT_THAT(outcome.err, HasSubstr("\" is 4096, but the camera's tables take values up to 4095\n"));
    EXPECT_EQ(AllMemory(), before);
}

TEST_F(KolmctlLut, upload_refuses_a_number_that_the_camera_lacks) {
    const std::vector<Bytes> before = AllMemory();
    const CTemporaryFile file(L".txt", Text(kValues, Inverted));

    EXPECT_THAT(Upload(file, L"4"), Fails(kRefused, "the camera has tables 0 to 3\n"));
    EXPECT_THAT(Upload(file, L"x"), Fails(kUsage, "not a table number: \"x\""));
    EXPECT_THAT(Kolmctl({L"--simulate", L"lut", L"upload", file.Path()}), Fails(kUsage, "--number is required"));

    EXPECT_EQ(AllMemory(), before);
}

// ---- Files of several tables, as the page "LUT" loads them

/// Two tables; the second one is inverted.
std::string Csv(std::size_t rows, const char* lineEnd = "\n") {
    std::string text = std::string("In;Linear;In verse") + lineEnd;
    for (std::size_t i = 0; i < rows; ++i) {
        text += std::to_string(i) + ";" + std::to_string(i) + ";" + std::to_string(Inverted(i)) + lineEnd;
    }
    return text;
}

TEST_F(KolmctlLut, show_is_what_lut_alone_shows) {
    EXPECT_THAT(Kolmctl({L"--simulate", L"lut", L"show"}), Prints(kFactory));
}

TEST_F(KolmctlLut, load_lists_the_tables_of_a_file_and_sends_nothing) {
    const std::vector<Bytes> before = AllMemory();
    for (const char* lineEnd : {"\n", "\r\n"}) {
        const CTemporaryFile file(L".csv", Csv(kValues, lineEnd));
        EXPECT_THAT(Kolmctl({L"--simulate", L"lut", L"load", file.Path()}),
                    Prints("TABLE  NAME      VALUES  LOWEST  HIGHEST\n"
                           "    0  Linear      4096       0     4095\n"
                           "    1  In verse    4096       0     4095\n"));
    }
    EXPECT_EQ(AllMemory(), before);
}

TEST_F(KolmctlLut, load_uploads_the_first_table_or_the_one_that_is_named) {
    const CTemporaryFile csv(L".csv", Csv(kValues));
    const CTemporaryFile text(L".txt", Text(kValues, Inverted));
    const Bytes linear = Memory(3);
    EXPECT_EQ(Upload(text, L"0").exitCode, kSuccess);
    const Bytes inverse = Memory(0);

    EXPECT_THAT(Kolmctl({L"--simulate", L"lut", L"load", csv.Path(), L"--upload", L"0"}),
                Prints("table           0\n"
                       "values          4096\n"
                       "bits per value  12\n"
                       "bytes           8192\n"));
    EXPECT_EQ(Memory(0), linear);
    for (const wchar_t* table : {L"1", L"In verse"}) {
        EXPECT_EQ(Kolmctl({L"--simulate", L"lut", L"load", csv.Path(), L"--upload", L"2", L"--table", table}).exitCode,
                  kSuccess);
        EXPECT_EQ(Memory(2), inverse);
        EXPECT_EQ(Kolmctl({L"--simulate", L"lut", L"load", csv.Path(), L"--upload", L"2"}).exitCode, kSuccess);
        EXPECT_EQ(Memory(2), linear);
    }
}

TEST_F(KolmctlLut, load_refuses_tables_that_do_not_fit_the_camera) {
    const std::vector<Bytes> before = AllMemory();
    const CTemporaryFile file(L".csv", Csv(kValues - 1));

    const ProcessOutcome outcome = Kolmctl({L"--simulate", L"lut", L"load", file.Path(), L"--upload", L"0"});

    EXPECT_THAT(outcome, Fails(kRefused, "cannot load \""));
    EXPECT_THAT(outcome.err, HasSubstr("it holds tables of 4095 values, but the camera's tables take 4096\n"));
    EXPECT_EQ(AllMemory(), before);
}

TEST_F(KolmctlLut, load_refuses_what_is_no_file_of_tables) {
    const std::pair<const char*, const char*> rows[] = {
        {"", "is no file of tables: there is no line of text"},
        {"In,A\n", "is no file of tables: there is no line below the names"},
        {"In\n0\n1\n", "is no file of tables: there is no column beside the first"},
        {"In,A\n0,1\n1\n2,3,4\n", "is no file of tables: the first line has 2 cells, line 3 has 1"},
    };
    for (const auto& [content, message] : rows) {
        const CTemporaryFile file(L".csv", content);
        EXPECT_THAT(Kolmctl({L"--simulate", L"lut", L"load", file.Path()}), Fails(kUsage, message)) << content;
    }
    EXPECT_THAT(Kolmctl({L"--simulate", L"lut", L"load", L"Z:\\no such\\file.csv"}), Fails(kUsage, "cannot read \"Z:"));
}

TEST_F(KolmctlLut, load_refuses_wrong_numbers_and_names) {
    const std::vector<Bytes> before = AllMemory();
    const CTemporaryFile file(L".csv", Csv(kValues));
    const auto load = [&](const wchar_t* number, const wchar_t* table) {
        return Kolmctl({L"--simulate", L"lut", L"load", file.Path(), L"--upload", number, L"--table", table});
    };
    EXPECT_THAT(load(L"4", L"0"), Fails(kRefused, "the camera has tables 0 to 3\n"));
    EXPECT_THAT(load(L"x", L"0"), Fails(kUsage, "not a table number: \"x\""));
    EXPECT_THAT(load(L"0", L"2"), Fails(kUsage, "has no table \"2\""));
    EXPECT_THAT(load(L"0", L"Other"), Fails(kUsage, "has no table \"Other\""));
    EXPECT_THAT(Kolmctl({L"--simulate", L"lut", L"load", file.Path(), L"--table", L"0"}), Fails(kUsage, "--upload"));
    EXPECT_EQ(AllMemory(), before);
}

TEST_F(KolmctlLut, load_refuses_values_that_have_too_many_bits) {
    std::string text = "In,A\n";
    for (std::size_t i = 0; i < kValues; ++i) {
        text += i == 7 ? "7,4096\n" : "0,0\n";
    }
    const CTemporaryFile file(L".csv", text);
    const ProcessOutcome outcome = Kolmctl({L"--simulate", L"lut", L"load", file.Path(), L"--upload", L"0"});
    EXPECT_THAT(outcome, Fails(kRefused, "value 8 of \"A\" is 4096, but the camera's tables take values up to 4095\n"));
}

TEST_F(KolmctlLut, upload_refuses_what_is_no_table) {
    const CTemporaryFile noNumber(L".txt", "1\n\ntwo\n");
    const CTemporaryFile otherEnding(L".csv", Text(kValues, Inverted));

    EXPECT_THAT(Upload(noNumber, L"0"), Fails(kUsage, ", line 3: not a number: \"two\"\n"));
    EXPECT_THAT(Upload(otherEnding, L"0"), Fails(kUsage, "is neither a .bin nor a .txt file"));
    EXPECT_THAT(Kolmctl({L"--simulate", L"lut", L"upload", L"Z:\\no such\\file.txt", L"--number", L"0"}),
                Fails(kUsage, "cannot read \"Z:\\no such\\file.txt\": No such file or directory"));
}

}  // namespace
}  // namespace kolmfluxor::test
