#include "model/frame_renderer.h"

#include <algorithm>
#include <stdexcept>

namespace kolmsim {
namespace {

constexpr std::uint32_t kSmallestSide = 16;
constexpr std::uint32_t kLargestSide = 4096;

/// Largest integer whose square is not above n.
constexpr std::uint32_t SquareRoot(std::uint32_t n) {
    std::uint32_t root = 0;
    for (std::uint32_t bit = 1U << 15; bit != 0; bit >>= 1) {
        const std::uint32_t next = root | bit;
        if (std::uint64_t{next} * next <= n) {
            root = next;
        }
    }
    return root;
}

/// BT.601 weights in 1/256.
constexpr std::uint8_t Luminance(std::uint32_t r, std::uint32_t g, std::uint32_t b) {
    return static_cast<std::uint8_t>((77 * r + 150 * g + 29 * b) >> 8);
}

}  // namespace

std::array<std::uint8_t, 256> ToneCurve(const RenderSettings& settings) {
    // Anything above this many times the neutral exposure shows white all over; the limit keeps the product in range.
    constexpr std::uint64_t kLongestUs = kNeutralExposureUs * 100'000;
    const std::uint64_t exposureUs = std::min(settings.exposureUs, kLongestUs);
    const std::uint64_t gain = std::uint64_t{std::min(settings.gain, 4095U)} + kNeutralGain;
    const auto offset = std::int64_t{std::min(settings.brightness, 4095U)} - std::int64_t{kNeutralBrightness};

    std::array<std::uint8_t, 256> curve{};
    for (std::uint32_t light = 0; light < curve.size(); ++light) {
        const std::uint64_t exposed = light * exposureUs * gain / (kNeutralExposureUs * 2 * kNeutralGain);
        const std::int64_t level = std::clamp<std::int64_t>(static_cast<std::int64_t>(exposed) + offset, 0, 255);
        const auto linear = static_cast<std::uint32_t>(level);
        curve[light] = static_cast<std::uint8_t>(settings.gammaOn ? SquareRoot(linear * 255) : linear);
    }
    return curve;
}

std::size_t PictureBytes(PixelFormat format, std::uint32_t width, std::uint32_t height) {
    switch (format) {
    case PixelFormat::mono8:
        return std::size_t{width} * height;
    }
    return 0;
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

FrameRenderer::Rgb FrameRenderer::ScenePixel(std::uint32_t x, std::uint32_t y) const {
    constexpr Rgb kBars[] = {{192, 192, 192}, {192, 192, 0}, {0, 192, 192}, {0, 192, 0},
                             {192, 0, 192},   {192, 0, 0},   {0, 0, 192},   {16, 16, 16}};
    constexpr std::uint32_t kGraySteps = 8;

    if (y < m_height / 6) {
        return kBars[x * std::size(kBars) / m_width];
    }
    if (y >= m_height - m_height / 8) {
        const auto gray = static_cast<std::uint8_t>(x * kGraySteps / m_width * 255 / (kGraySteps - 1));
        return {gray, gray, gray};
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

bool FrameRenderer::Render(const RenderSettings& settings, PixelFormat format, std::uint64_t frameNumber,
                           std::span<std::uint8_t> picture) const {
    if (picture.size() != PictureBytes(format, m_width, m_height)) {
        return false;
    }
    constexpr std::uint8_t kDiscLight = 224;
    const auto curve = ToneCurve(settings);
    const Disc disc = DiscAt(frameNumber);

    for (std::size_t i = 0; i < m_scene.size(); ++i) {
        const Rgb& light = m_scene[i];
        picture[i] = Luminance(curve[light.r], curve[light.g], curve[light.b]);
    }
    for (std::int64_t y = disc.y - disc.radius; y <= disc.y + disc.radius; ++y) {
        for (std::int64_t x = disc.x - disc.radius; x <= disc.x + disc.radius; ++x) {
            const std::int64_t dx = x - disc.x;
            const std::int64_t dy = y - disc.y;
            const bool inside = x >= 0 && y >= 0 && x < std::int64_t{m_width} && y < std::int64_t{m_height};
            if (inside && dx * dx + dy * dy <= disc.radius * disc.radius) {
                picture[static_cast<std::size_t>(y * std::int64_t{m_width} + x)] = curve[kDiscLight];
            }
        }
    }
    return true;
}

}  // namespace kolmsim
