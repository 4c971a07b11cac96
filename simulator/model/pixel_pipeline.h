#pragma once
/// @file  What becomes of the light of one pixel under a camera's settings.

#include <array>
#include <cstdint>

#include "model/render_settings.h"

namespace kolmsim {

struct Rgb {
    std::uint8_t r, g, b;
};

/// BT.601 weights in 1/256.
[[nodiscard]] constexpr std::uint8_t Luminance(const Rgb& color) {
    return static_cast<std::uint8_t>((77 * color.r + 150 * color.g + 29 * color.b) >> 8);
}

/// The tone curve of a camera's settings: what becomes of each level of light, 0 to 255. The LUT comes last.
[[nodiscard]] std::array<std::uint8_t, 256> ToneCurve(const RenderSettings& settings);

/// White balance, color correction, tone curve, saturation and hue, in this order; a test image sees the LUT alone.
///
/// Integer arithmetic throughout. Neutral settings give back the light as it is.
class PixelPipeline {
public:
    explicit PixelPipeline(const RenderSettings& settings);

    [[nodiscard]] Rgb operator()(const Rgb& light) const;

private:
    [[nodiscard]] Rgb Corrected(const Rgb& light) const;
    [[nodiscard]] Rgb Turned(const Rgb& color) const;

    std::array<std::uint8_t, 256> m_curve;
    std::array<std::uint8_t, 256> m_red;  ///< white balance
    std::array<std::uint8_t, 256> m_blue;
    bool m_color;
    bool m_matrixOn;
    std::array<std::int32_t, 9> m_matrix;
    bool m_turns;                ///< saturation or hue is not neutral
    std::int32_t m_alongU = 0;   ///< saturation x cosine of the angle, in 1/1024
    std::int32_t m_acrossU = 0;  ///< saturation x sine
};

}  // namespace kolmsim
