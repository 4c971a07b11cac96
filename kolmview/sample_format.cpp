#include "kolmview/sample_format.h"

#include <algorithm>
#include <cstdlib>
#include <cstring>
#include <iterator>
#include <vector>

#include "media/pixel_conversion.h"

namespace kolmview {
namespace {

constexpr std::int32_t kLargest = 16384;
constexpr std::size_t kBgrBytes = 3;

constexpr std::uint32_t FourCc(const char (&text)[5]) {
    std::uint32_t word = 0;
    for (unsigned i = 0; i < 4; ++i) {
        word |= static_cast<std::uint32_t>(static_cast<unsigned char>(text[i])) << (8 * i);
    }
    return word;
}

struct LayoutRow {
    std::uint32_t compression;
    unsigned bitsPerPixel;
    SampleLayout layout;
    std::int32_t group;  ///< pixels that share bytes; a row is made of whole groups
};

// clang-format off
constexpr LayoutRow kLayouts[] = {
    {.compression = FourCc("Y800"), .bitsPerPixel =  8, .layout = SampleLayout::mono8,  .group = 1},
    {.compression = FourCc("ARW8"), .bitsPerPixel =  8, .layout = SampleLayout::mono8,  .group = 1},
    {.compression = FourCc("UYVY"), .bitsPerPixel = 16, .layout = SampleLayout::uyvy,   .group = 2},
    {.compression = FourCc("Y411"), .bitsPerPixel = 12, .layout = SampleLayout::yuv411, .group = 4},
    {.compression = 0,              .bitsPerPixel = 24, .layout = SampleLayout::bgr24,  .group = 1},
};
// clang-format on

constexpr std::size_t PaddedRow(std::size_t width) {
    return (width * kBgrBytes + 3) / 4 * 4;
}

/// The same row with a U and a V for each two pixels instead of each four.
void WidenGroups(const std::uint8_t* row, std::size_t width, std::vector<std::uint8_t>* uyvy) {
    uyvy->resize(2 * width);
    std::uint8_t* out = uyvy->data();
    for (std::size_t x = 0; x < width; x += 4, row += 6, out += 8) {
        const std::uint8_t groups[8] = {row[0], row[1], row[3], row[2], row[0], row[4], row[3], row[5]};
        std::memcpy(out, groups, sizeof groups);
    }
}

}  // namespace

std::optional<SampleFormat> SampleFormat::Of(std::uint32_t compression, unsigned bitsPerPixel, std::int32_t width,
                                             std::int32_t height) {
    const auto* const row = std::ranges::find_if(kLayouts, [&](const LayoutRow& each) {
        return each.compression == compression && each.bitsPerPixel == bitsPerPixel;
    });
    if (row == std::end(kLayouts) || width <= 0 || width > kLargest || height == 0 || height > kLargest ||
        height < -kLargest || width % row->group != 0) {
        return std::nullopt;
    }
    return SampleFormat{.layout = row->layout,
                        .width = static_cast<std::size_t>(width),
                        .height = static_cast<std::size_t>(std::abs(height)),
                        .topDown = row->layout != SampleLayout::bgr24 || height < 0};
}

std::size_t SampleFormat::RowBytes() const {
    switch (layout) {
    case SampleLayout::mono8:
        return width;
    case SampleLayout::uyvy:
        return 2 * width;
    case SampleLayout::yuv411:
        return width / 2 * 3;
    case SampleLayout::bgr24:
        return PaddedRow(width);
    }
    return 0;
}

void ConvertSample(const SampleFormat& format, std::span<const std::uint8_t> sample, std::span<std::uint8_t> picture) {
    const int width = static_cast<int>(format.width);
    std::vector<std::uint8_t> uyvy;
    for (std::size_t y = 0; y < format.height; ++y) {
        const std::size_t from = format.topDown ? y : format.height - 1 - y;
        const std::uint8_t* const row = sample.subspan(from * format.RowBytes(), format.RowBytes()).data();
        std::uint8_t* const out = picture.subspan(y * PaddedRow(format.width), format.width * kBgrBytes).data();
        switch (format.layout) {
        case SampleLayout::mono8:
            kolmfluxor::ConvertMono8ToBgr24(row, out, width, 1);
            break;
        case SampleLayout::uyvy:
            kolmfluxor::ConvertUyvyToBgr24(row, out, width, 1);
            break;
        case SampleLayout::yuv411:
            WidenGroups(row, format.width, &uyvy);
            kolmfluxor::ConvertUyvyToBgr24(uyvy.data(), out, width, 1);
            break;
        case SampleLayout::bgr24:
            std::memcpy(out, row, format.width * kBgrBytes);
            break;
        }
    }
}

}  // namespace kolmview
