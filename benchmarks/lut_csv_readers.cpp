#include "lut_csv_readers.h"

#include <array>
#include <charconv>
#include <cmath>
#include <cstdio>
#include <filesystem>
#include <fstream>
#include <random>
#include <tuple>
#include <utility>

#include <libfccp/csv.h>
#ifdef KOLM_BENCH_LIBCSV
#include <csv.h>
#endif

#include "lut/lut_loader.h"
#include "unit/plain_lut_csv.h"

namespace kolmfluxor::bench {
namespace {

std::vector<Lut16Bit> ReadOurs(const std::string& path, const FileShape&) {
    CCsvTable table;
    CLutSet set;
    if (table.Read(path.c_str())) LoadLutSet(set, table, 2);
    return std::move(set.Luts16Bit());
}

std::vector<Lut16Bit> ReadPlain(const std::string& path, const FileShape&) {
    std::ifstream stream(path, std::ios::binary);
    test::CPlainCsvTable table;
    if (!table.Read(stream)) return {};
    std::vector<Lut16Bit> luts(table.GetLUTCount());
    for (std::size_t n = 0; n < luts.size(); ++n)
        table.Fill(luts[n], n);
    return luts;
}

/// fast-cpp-csv-parser with the cheapest of its policies that reads the file: it checks nothing that we do not.
template <class Quotes, std::size_t... Column>
std::vector<Lut16Bit> ReadFccp(const std::string& path, std::index_sequence<Column...>) {
    constexpr std::size_t kColumns = sizeof...(Column);
    io::CSVReader<kColumns, io::trim_chars<>, Quotes, io::ignore_overflow> reader(path);
    std::vector<Lut16Bit> luts(kColumns - 1);
    std::array<std::string, kColumns> names;
    reader.set_header(std::to_string(Column)...);
    reader.read_row(names[Column]...);
    for (std::size_t n = 0; n + 1 < kColumns; ++n)
        luts[n].name = names[n + 1];
    std::array<unsigned, kColumns> cells{};
    while (reader.read_row(cells[Column]...)) {
        for (std::size_t n = 0; n + 1 < kColumns; ++n)
            luts[n].values.push_back(static_cast<std::uint16_t>(cells[n + 1]));
    }
    return luts;
}

template <class Quotes> std::vector<Lut16Bit> ReadFccp(const std::string& path, std::size_t columns) {
    return columns == kFewColumns ? ReadFccp<Quotes>(path, std::make_index_sequence<kFewColumns>())
                                  : ReadFccp<Quotes>(path, std::make_index_sequence<kManyColumns>());
}

std::vector<Lut16Bit> ReadFccp(const std::string& path, const FileShape& shape) {
    return shape.quoted ? ReadFccp<io::double_quote_escape<',', '"'>>(path, shape.columns)
                        : ReadFccp<io::no_quote_escape<','>>(path, shape.columns);
}

#ifdef KOLM_BENCH_LIBCSV
struct Columns {
    std::vector<Lut16Bit> luts;
    std::size_t row = 0;
    std::size_t column = 0;
};

void OnCell(void* data, std::size_t length, void* to) {
    auto& columns = *static_cast<Columns*>(to);
    const char* const text = static_cast<const char*>(data);
    const std::size_t column = columns.column++;
    if (column == 0) return;
    if (columns.row == 0) {
        columns.luts.push_back({.name = std::string(text, length), .values = {}});
        return;
    }
    unsigned value = 0;
    std::from_chars(text, text + length, value);
    columns.luts[column - 1].values.push_back(static_cast<std::uint16_t>(value));
}

void OnRow(int, void* to) {
    auto& columns = *static_cast<Columns*>(to);
    ++columns.row;
    columns.column = 0;
}

std::vector<Lut16Bit> ReadLibcsv(const std::string& path, const FileShape&) {
    csv_parser parser{};
    csv_init(&parser, 0);
    Columns columns;
    std::vector<char> piece(64 * 1024);
    std::FILE* const file = std::fopen(path.c_str(), "rb");
    for (std::size_t count = 1; count != 0;) {
        count = std::fread(piece.data(), 1, piece.size(), file);
        csv_parse(&parser, piece.data(), count, OnCell, OnRow, &columns);
    }
    csv_fini(&parser, OnCell, OnRow, &columns);
    std::fclose(file);
    csv_free(&parser);
    return std::move(columns.luts);
}
#endif

constexpr Reader kReaders[] = {
    {"ours", ReadOurs},
    {"plain", ReadPlain},
    {"fast-cpp-csv-parser", ReadFccp},
#ifdef KOLM_BENCH_LIBCSV
    {"libcsv", ReadLibcsv},
#endif
};

bool Equal(const std::vector<Lut16Bit>& a, const std::vector<Lut16Bit>& b) {
    if (a.size() != b.size()) return false;
    for (std::size_t n = 0; n < a.size(); ++n) {
        if (a[n].name != b[n].name || a[n].values != b[n].values) return false;
    }
    return true;
}

}  // namespace

std::span<const Reader> Readers() {
    return kReaders;
}

std::string MakeText(const FileShape& shape) {
    const std::string quote = shape.quoted ? "\"" : "";
    std::string text = quote + "In" + quote;
    for (std::size_t n = 1; n < shape.columns; ++n)
        text += ',' + quote + "Gamma" + std::to_string(n) + quote;
    text += '\n';
    for (std::size_t row = 0; row < shape.rows; ++row) {
        text += quote + std::to_string(row) + quote;
        const double in = static_cast<double>(row) / static_cast<double>(shape.rows - 1);
        for (std::size_t n = 1; n < shape.columns; ++n) {
            const double out = std::pow(in, 0.4 + 0.1 * static_cast<double>(n));
            text +=
                ',' + quote + std::to_string(static_cast<unsigned>(out * static_cast<double>(shape.rows - 1))) + quote;
        }
        text += '\n';
    }
    return text;
}

std::string MakeFile(const FileShape& shape) {
    const auto path =
        (std::filesystem::temp_directory_path() / ("kolm-bench-" + std::to_string(std::random_device{}()) + ".csv"))
            .string();
    std::ofstream(path, std::ios::binary) << MakeText(shape);
    const std::vector<Lut16Bit> expected = Readers().front().read(path, shape);
    for (const Reader& reader : Readers()) {
        if (expected.size() == shape.columns - 1 && Equal(reader.read(path, shape), expected)) continue;
        std::fprintf(stderr, "%s reads something else\n", reader.name);
        std::filesystem::remove(path);
        return {};
    }
    return path;
}

}  // namespace kolmfluxor::bench
