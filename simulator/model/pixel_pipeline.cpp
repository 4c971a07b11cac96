#include "model/pixel_pipeline.h"

#include <algorithm>
#include <cstdlib>

namespace kolmsim {
namespace {

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

/// Sine in 1/1024 for 0 to 180 degrees, by Bhaskara's formula; off by less than 2.
constexpr std::int32_t SineOf(std::int32_t degrees) {
    const std::int32_t product = degrees * (180 - degrees);
    return 1024 * 4 * product / (40500 - product);
}

constexpr std::int32_t kUnit = 1024;

std::uint8_t Level(std::int32_t value) {
    return static_cast<std::uint8_t>(std::clamp(value, 0, 255));
}

std::array<std::uint8_t, 256> Identity() {
    std::array<std::uint8_t, 256> levels{};
    for (std::uint32_t level = 0; level < levels.size(); ++level) {
        levels[level] = static_cast<std::uint8_t>(level);
    }
    return levels;
}

std::array<std::uint8_t, 256> Multiplied(std::uint32_t factor, std::uint32_t neutral) {
    std::array<std::uint8_t, 256> levels{};
    for (std::uint32_t level = 0; level < levels.size(); ++level) {
        const std::uint64_t product = std::uint64_t{level} * factor / neutral;
        levels[level] = static_cast<std::uint8_t>(std::min<std::uint64_t>(product, 255));
    }
    return levels;
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
        const std::uint32_t toned = settings.gammaOn ? SquareRoot(linear * 255) : linear;
        curve[light] = settings.lutOn ? settings.lut[toned] : static_cast<std::uint8_t>(toned);
    }
    return curve;
}

PixelPipeline::PixelPipeline(const RenderSettings& settings)
    : m_curve(ToneCurve(settings)),
      m_red(Multiplied(settings.whiteBalanceVr, kNeutralWhiteBalanceVr)),
      m_blue(Multiplied(settings.whiteBalanceUb, kNeutralWhiteBalanceUb)),
      m_color(settings.color),
      m_matrixOn(settings.color && settings.matrixOn),
      m_matrix(settings.matrix),
      m_turns(settings.color && (settings.hue != kNeutralHue || settings.saturation != kNeutralSaturation)) {
    constexpr std::int32_t kNeutral = kNeutralHue;
    const std::int32_t degrees =
        std::clamp(static_cast<std::int32_t>(std::min(settings.hue, 1000U)) - kNeutral, -90, 90);
    const auto saturation = static_cast<std::int32_t>(std::min(settings.saturation, 1023U));
    const std::int32_t sine = degrees < 0 ? -SineOf(-degrees) : SineOf(degrees);
    m_alongU = SineOf(90 - std::abs(degrees)) * saturation / static_cast<std::int32_t>(kNeutralSaturation);
    m_acrossU = sine * saturation / static_cast<std::int32_t>(kNeutralSaturation);

    if (settings.testImage != 0) {
        m_curve = settings.lutOn ? settings.lut : Identity();
        m_red = m_blue = Identity();
        m_matrixOn = m_turns = false;
    }
    std::ranges::transform(m_matrix, m_matrix.begin(), [](std::int32_t c) { return std::clamp(c, -100'000, 100'000); });
}

Rgb PixelPipeline::operator()(const Rgb& light) const {
    if (!m_color) {
        const std::uint8_t gray = Luminance({m_curve[light.r], m_curve[light.g], m_curve[light.b]});
        return {gray, gray, gray};
    }
    const Rgb corrected = Corrected({m_red[light.r], light.g, m_blue[light.b]});
    const Rgb toned = {m_curve[corrected.r], m_curve[corrected.g], m_curve[corrected.b]};
    return m_turns ? Turned(toned) : toned;
}

Rgb PixelPipeline::Corrected(const Rgb& light) const {
    if (!m_matrixOn) {
        return light;
    }
    const auto row = [&](std::size_t first) {
        return Level((m_matrix[first] * light.r + m_matrix[first + 1] * light.g + m_matrix[first + 2] * light.b) /
                     1000);
    };
    return {row(0), row(3), row(6)};
}

Rgb PixelPipeline::Turned(const Rgb& color) const {
    // BT.601, full range, in 1/256.
    const std::int32_t y = Luminance(color);
    const std::int32_t u = (-43 * color.r - 85 * color.g + 128 * color.b) / 256;
    const std::int32_t v = (128 * color.r - 107 * color.g - 21 * color.b) / 256;
    const std::int32_t turnedU = (u * m_alongU - v * m_acrossU) / kUnit;
    const std::int32_t turnedV = (u * m_acrossU + v * m_alongU) / kUnit;
    return {Level(y + 359 * turnedV / 256), Level(y - (88 * turnedU + 183 * turnedV) / 256),
            Level(y + 454 * turnedU / 256)};
}

}  // namespace kolmsim
