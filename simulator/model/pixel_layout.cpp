#include "model/pixel_layout.h"

#include <algorithm>

namespace kolmsim {
namespace {

void StoreMono(std::span<const Rgb> row, std::span<std::uint8_t> bytes) {
    std::ranges::transform(row, bytes.begin(), Luminance);
}

void StoreMono16(std::span<const Rgb> row, std::span<std::uint8_t> bytes) {
    constexpr std::uint32_t kLargest = 4095;
    for (std::size_t x = 0; x < row.size(); ++x) {
        const std::uint32_t level = Luminance(row[x]) * kLargest / 255;
        bytes[2 * x] = static_cast<std::uint8_t>(level);
        bytes[2 * x + 1] = static_cast<std::uint8_t>(level >> 8);
    }
}

void StoreRaw(std::span<const Rgb> row, std::uint32_t left, std::uint32_t y, std::span<std::uint8_t> bytes) {
    for (std::size_t x = 0; x < row.size(); ++x) {
        const bool oddColumn = (left + x) % 2 != 0;
        const bool oddRow = y % 2 != 0;
        bytes[x] = oddColumn != oddRow ? row[x].g : oddRow ? row[x].b : row[x].r;
    }
}

// BT.601 studio range, in 1/256; the chroma of several pixels is their mean.

std::uint8_t Luma(const Rgb& p) {
    return static_cast<std::uint8_t>(16 + (66 * p.r + 129 * p.g + 25 * p.b + 128) / 256);
}

struct Chroma {
    std::uint8_t u, v;
};

Chroma ChromaOf(std::span<const Rgb> pixels) {
    int r = 0;
    int g = 0;
    int b = 0;
    for (const Rgb& pixel : pixels) {
        r += pixel.r;
        g += pixel.g;
        b += pixel.b;
    }
    const int unit = 256 * static_cast<int>(pixels.size());
    return {static_cast<std::uint8_t>(128 + (-38 * r - 74 * g + 112 * b) / unit),
            static_cast<std::uint8_t>(128 + (112 * r - 94 * g - 18 * b) / unit)};
}

/// Groups of pixels as chroma U, half of the luminances, chroma V, the other half.
void StoreYuv(std::span<const Rgb> row, std::size_t groupPixels, std::span<std::uint8_t> bytes) {
    std::size_t out = 0;
    for (std::size_t x = 0; x + groupPixels <= row.size(); x += groupPixels) {
        const auto group = row.subspan(x, groupPixels);
        const Chroma chroma = ChromaOf(group);
        bytes[out++] = chroma.u;
        for (std::size_t i = 0; i < groupPixels; ++i) {
            if (i == groupPixels / 2) {
                bytes[out++] = chroma.v;
            }
            bytes[out++] = Luma(group[i]);
        }
    }
}

void StoreBgr(std::span<const Rgb> row, std::span<std::uint8_t> bytes) {
    for (std::size_t x = 0; x < row.size(); ++x) {
        bytes[3 * x] = row[x].b;
        bytes[3 * x + 1] = row[x].g;
        bytes[3 * x + 2] = row[x].r;
    }
    std::ranges::fill(bytes.subspan(3 * row.size()), std::uint8_t{0});
}

}  // namespace

std::size_t RowBytes(PixelFormat format, std::uint32_t width) {
    switch (format) {
    case PixelFormat::mono8:
    case PixelFormat::raw8:
        return width;
    case PixelFormat::mono16:
        return std::size_t{width} * 2;
    case PixelFormat::yuv411:
        return width % 4 == 0 ? std::size_t{width} * 3 / 2 : 0;
    case PixelFormat::uyvy:
        return width % 2 == 0 ? std::size_t{width} * 2 : 0;
    case PixelFormat::bgr24:
    case PixelFormat::bgr24TopDown:
        return (std::size_t{width} * 3 + 3) / 4 * 4;
    }
    return 0;
}

std::size_t PictureBytes(PixelFormat format, std::uint32_t width, std::uint32_t height) {
    return RowBytes(format, width) * height;
}

void StoreRow(PixelFormat format, std::span<const Rgb> row, std::uint32_t left, std::uint32_t y,
              std::span<std::uint8_t> bytes) {
    switch (format) {
    case PixelFormat::mono8:
        return StoreMono(row, bytes);
    case PixelFormat::mono16:
        return StoreMono16(row, bytes);
    case PixelFormat::raw8:
        return StoreRaw(row, left, y, bytes);
    case PixelFormat::yuv411:
        return StoreYuv(row, 4, bytes);
    case PixelFormat::uyvy:
        return StoreYuv(row, 2, bytes);
    case PixelFormat::bgr24:
    case PixelFormat::bgr24TopDown:
        return StoreBgr(row, bytes);
    }
}

}  // namespace kolmsim
