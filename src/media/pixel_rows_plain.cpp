#include <algorithm>
#include <array>

#include "media/pixel_rows.h"

namespace kolmfluxor {
namespace {

constexpr std::size_t kBgrBytes = 3;

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

void Mono8(const std::uint8_t* source, std::uint8_t* destination, std::size_t pixels) {
    for (std::size_t x = 0; x < pixels; ++x)
        destination = std::fill_n(destination, kBgrBytes, source[x]);
}

void Uyvy(const std::uint8_t* source, std::uint8_t* destination, std::size_t pixels) {
    for (std::size_t x = 0; x < pixels; x += 2, source += 4) {
        const std::int32_t blue = kTb[source[0]];
        const std::int32_t green = kTgu[source[0]] + kTgv[source[2]];
        const std::int32_t red = kTr[source[2]];
        for (const std::int32_t y : {source[1], source[3]}) {
            *destination++ = Clamped(y + blue);
            *destination++ = Clamped(y + green);
            *destination++ = Clamped(y + red);
        }
    }
}

}  // namespace

constinit const PixelRows kPlainRows = {.name = "plain", .mono8 = Mono8, .uyvy = Uyvy};

}  // namespace kolmfluxor
