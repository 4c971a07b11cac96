#include "model/frame_renderer.h"

#include <algorithm>
#include <stdexcept>

namespace kolmsim {
namespace {

constexpr std::uint32_t kSmallestSide = 16;
constexpr std::uint32_t kLargestSide = 4096;

constexpr Rgb kBars[] = {{192, 192, 192}, {192, 192, 0}, {0, 192, 192}, {0, 192, 0},
                         {192, 0, 192},   {192, 0, 0},   {0, 0, 192},   {16, 16, 16}};

constexpr std::uint8_t kDiscLight = 224;

Rgb Gray(std::uint64_t level) {
    const auto gray = static_cast<std::uint8_t>(level);
    return {gray, gray, gray};
}

std::size_t RowBytes(PixelFormat format, std::uint32_t width) {
    switch (format) {
    case PixelFormat::mono8:
        return width;
    case PixelFormat::uyvy:
        return width % 2 == 0 ? std::size_t{width} * 2 : 0;
    case PixelFormat::bgr24:
        return (std::size_t{width} * 3 + 3) / 4 * 4;
    }
    return 0;
}

void StoreMono(std::span<const Rgb> row, std::span<std::uint8_t> bytes) {
    std::ranges::transform(row, bytes.begin(), Luminance);
}

/// BT.601 studio range, in 1/256; the chroma of two pixels is their mean.
void StoreUyvy(std::span<const Rgb> row, std::span<std::uint8_t> bytes) {
    const auto luma = [](const Rgb& p) {
        return static_cast<std::uint8_t>(16 + (66 * p.r + 129 * p.g + 25 * p.b + 128) / 256);
    };
    for (std::size_t x = 0; x + 1 < row.size(); x += 2) {
        const int r = row[x].r + row[x + 1].r;
        const int g = row[x].g + row[x + 1].g;
        const int b = row[x].b + row[x + 1].b;
        bytes[2 * x] = static_cast<std::uint8_t>(128 + (-38 * r - 74 * g + 112 * b) / 512);
        bytes[2 * x + 1] = luma(row[x]);
        bytes[2 * x + 2] = static_cast<std::uint8_t>(128 + (112 * r - 94 * g - 18 * b) / 512);
        bytes[2 * x + 3] = luma(row[x + 1]);
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

void Store(PixelFormat format, std::span<const Rgb> row, std::span<std::uint8_t> bytes) {
    switch (format) {
    case PixelFormat::mono8:
        return StoreMono(row, bytes);
    case PixelFormat::uyvy:
        return StoreUyvy(row, bytes);
    case PixelFormat::bgr24:
        return StoreBgr(row, bytes);
    }
}

}  // namespace

std::size_t PictureBytes(PixelFormat format, std::uint32_t width, std::uint32_t height) {
    return RowBytes(format, width) * height;
}

bool FrameRenderer::IsDrawable(std::uint32_t width, std::uint32_t height) {
    return std::min(width, height) >= kSmallestSide && std::max(width, height) <= kLargestSide;
}

FrameRenderer::FrameRenderer(std::uint32_t width, std::uint32_t height) : m_width(width), m_height(height) {
    if (!IsDrawable(width, height)) {
        throw std::invalid_argument("FrameRenderer: size out of range");
    }
    m_scene.reserve(std::size_t{width} * height);
    for (std::uint32_t y = 0; y < height; ++y) {
        for (std::uint32_t x = 0; x < width; ++x) {
            m_scene.push_back(ScenePixel(x, y));
        }
    }
}

Rgb FrameRenderer::ScenePixel(std::uint32_t x, std::uint32_t y) const {
    constexpr std::uint32_t kGraySteps = 8;

    if (y < m_height / 6) {
        return kBars[x * std::size(kBars) / m_width];
    }
    if (y >= m_height - m_height / 8) {
        return Gray(x * kGraySteps / m_width * 255 / (kGraySteps - 1));
    }

    const std::int64_t dx = std::int64_t{x} * 2 - m_width;
    const std::int64_t dy = std::int64_t{y} * 2 - m_height;
    const std::int64_t unit = std::min(m_width, m_height) / 8;
    const std::int64_t ring = (dx * dx + dy * dy) / (unit * unit * 4);
    const std::uint32_t slope = 40 + (x * 120 / m_width) + (y * 40 / m_height);
    if (ring < 6 && ring % 2 == 0) {
        return {static_cast<std::uint8_t>(slope + 48), static_cast<std::uint8_t>(slope + 16),
                static_cast<std::uint8_t>(slope - 24)};
    }
    return {static_cast<std::uint8_t>(slope - 16), static_cast<std::uint8_t>(slope),
            static_cast<std::uint8_t>(slope + 24)};
}

FrameRenderer::Disc FrameRenderer::DiscAt(std::uint64_t frameNumber) const {
    constexpr std::uint64_t kPixelsPerFrame = 4;
    const std::int64_t radius = std::min(m_width, m_height) / 12;
    const auto way = static_cast<std::uint64_t>(std::int64_t{m_width} - 2 * radius);
    const std::uint64_t travelled = (frameNumber % (2 * way)) * kPixelsPerFrame % (2 * way);
    const std::uint64_t position = travelled < way ? travelled : 2 * way - travelled;
    return {radius + static_cast<std::int64_t>(position), std::int64_t{m_height} * 3 / 4, radius};
}

void FrameRenderer::DrawRow(const RenderSettings& settings, std::uint64_t frameNumber, std::uint32_t y,
                            std::span<Rgb> row) const {
    if (settings.testImage != 0) {
        for (std::uint32_t x = 0; x < m_width; ++x) {
            switch (settings.testImage) {
            case 1:
                row[x] = Gray(x * 256 / m_width);
                break;
            case 2:
                row[x] = Gray((x + y + frameNumber) % 256);
                break;
            default:
                row[x] = kBars[x * std::size(kBars) / m_width];
            }
        }
        return;
    }
    std::copy_n(m_scene.begin() + std::ptrdiff_t{y} * m_width, m_width, row.begin());
    const Disc disc = DiscAt(frameNumber);
    const std::int64_t dy = y - disc.y;
    if (dy < -disc.radius || dy > disc.radius) {
        return;
    }
    const std::int64_t first = std::max<std::int64_t>(0, disc.x - disc.radius);
    const std::int64_t last = std::min<std::int64_t>(m_width - 1, disc.x + disc.radius);
    for (std::int64_t x = first; x <= last; ++x) {
        const std::int64_t dx = x - disc.x;
        if (dx * dx + dy * dy <= disc.radius * disc.radius) {
            row[static_cast<std::size_t>(x)] = Gray(kDiscLight);
        }
    }
}

bool FrameRenderer::Render(const RenderSettings& settings, PixelFormat format, std::uint64_t frameNumber,
                           std::span<std::uint8_t> picture) const {
    const std::size_t rowBytes = RowBytes(format, m_width);
    if (rowBytes == 0 || picture.size() != rowBytes * m_height) {
        return false;
    }
    const PixelPipeline pipeline(settings);
    std::vector<Rgb> row(m_width);
    for (std::uint32_t y = 0; y < m_height; ++y) {
        DrawRow(settings, frameNumber, settings.mirrorVertical ? m_height - 1 - y : y, row);
        if (settings.mirrorHorizontal) {
            std::ranges::reverse(row);
        }
        std::ranges::transform(row, row.begin(), pipeline);
        const std::uint32_t line = format == PixelFormat::bgr24 ? m_height - 1 - y : y;
        Store(format, row, picture.subspan(line * rowBytes, rowBytes));
    }
    return true;
}

}  // namespace kolmsim
