#include "media/pixel_conversion.h"

#include <algorithm>
#include <array>
#include <cstddef>

namespace kolmfluxor {
namespace {

constexpr std::size_t kBgrBytes = 3;
constexpr std::size_t kGroupBytes = 4;  // U, Y0, V, Y1

using ChromaTable = std::array<std::int32_t, 256>;

/// thousandths / 1000 x (c - 128), fraction dropped.
consteval ChromaTable ChromaTerms(std::int32_t thousandths) {
    ChromaTable table{};
    for (std::int32_t c = 0; c < 256; ++c)
        table[static_cast<std::size_t>(c)] = thousandths * (c - 128) / 1000;
    return table;
}

consteval ChromaTable MirroredRedTerms() {
    ChromaTable table = ChromaTerms(1402);
    for (std::size_t c = 0; c < 128; ++c)
        table[c] = -table[255 - c];
    return table;
}

constexpr ChromaTable kTr = MirroredRedTerms();
constexpr ChromaTable kTgu = ChromaTerms(-344);
constexpr ChromaTable kTgv = ChromaTerms(-714);
constexpr ChromaTable kTb = ChromaTerms(1772);
static_assert(kTr[0] == -178 && kTr[127] == 0 && kTr[128] == 0 && kTr[255] == 178);
static_assert(kTgu[0] == 44 && kTgu[255] == -43);
static_assert(kTgv[0] == 91 && kTgv[255] == -90);
static_assert(kTb[0] == -226 && kTb[255] == 225);

std::uint8_t Clamped(std::int32_t value) {
    return static_cast<std::uint8_t>(std::clamp(value, 0, 255));
}

bool IsEmpty(const std::uint8_t* source, const std::uint8_t* destination, int width, int height) {
    return !source || !destination || width <= 0 || height <= 0;
}

}  // namespace

void ConvertMono8ToBgr24(const std::uint8_t* source, std::uint8_t* destination, int width, int height) {
    if (IsEmpty(source, destination, width, height)) return;
    const auto columns = static_cast<std::size_t>(width);
    for (auto row = static_cast<std::size_t>(height); row-- > 0; source += columns) {
        std::uint8_t* out = destination + row * columns * kBgrBytes;
        for (std::size_t x = 0; x < columns; ++x)
            out = std::fill_n(out, kBgrBytes, source[x]);
    }
}

void ConvertUyvyToBgr24(const std::uint8_t* source, std::uint8_t* destination, int width, int height) {
    if (IsEmpty(source, destination, width, height)) return;
    const auto columns = static_cast<std::size_t>(width);
    const auto rows = static_cast<std::size_t>(height);
    const std::size_t convertible = columns * rows / 2 * 2;
    for (std::size_t row = 0; row < rows; ++row) {
        std::uint8_t* out = destination + (rows - 1 - row) * columns * kBgrBytes;
        const std::size_t first = row * columns;
        const std::size_t end = std::min(first + columns, convertible);
        for (std::size_t pixel = first; pixel < end; ++pixel) {
            const std::uint8_t* const group = source + pixel / 2 * kGroupBytes;
            const std::int32_t y = group[pixel % 2 == 0 ? 1 : 3];
            const std::uint8_t u = group[0];
            const std::uint8_t v = group[2];
            *out++ = Clamped(y + kTb[u]);
            *out++ = Clamped(y + kTgu[u] + kTgv[v]);
            *out++ = Clamped(y + kTr[v]);
        }
    }
}

}  // namespace kolmfluxor
