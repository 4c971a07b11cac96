#include "model/frame_renderer.h"

#include <algorithm>
#include <stdexcept>

#include "model/sensor_flaws.h"

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

}  // namespace

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
    // NOLINTNEXTLINE(clang-analyzer-core.DivideZero): no scene is narrower than kSmallestSide
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
                           const Area& area, std::span<std::uint8_t> picture) const {
    const std::size_t rowBytes = RowBytes(format, area.width);
    const bool inside = area.width <= m_width && area.left <= m_width - area.width && area.height <= m_height &&
                        area.top <= m_height - area.height;
    if (!inside || rowBytes == 0 || area.height == 0 || picture.size() != rowBytes * area.height) {
        return false;
    }
    const PixelPipeline pipeline(settings);
    std::vector<Rgb> whole(m_width);
    const std::span<Rgb> row = std::span(whole).subspan(area.left, area.width);
    for (std::uint32_t line = 0; line < area.height; ++line) {
        const std::uint32_t y = area.top + line;
        DrawRow(settings, frameNumber, settings.mirrorVertical ? m_height - 1 - y : y, whole);
        AddSensorFlaws(settings, frameNumber, settings.mirrorVertical ? m_height - 1 - y : y, whole);
        if (settings.mirrorHorizontal) {
            std::ranges::reverse(whole);
        }
        std::ranges::transform(row, row.begin(), pipeline);
        const std::uint32_t place = format == PixelFormat::bgr24 ? area.height - 1 - line : line;
        StoreRow(format, row, area.left, y, picture.subspan(place * rowBytes, rowBytes));
    }
    return true;
}

}  // namespace kolmsim
