#pragma once
/// @file  What of a camera's settings shows in its pictures.

#include <array>
#include <cstdint>

namespace kolmsim {

/// Settings of a picture; a snapshot, so that drawing needs no lock on the camera.
struct RenderSettings {
    std::uint32_t brightness;  ///< added to each pixel, kNeutralBrightness changes nothing
    std::uint32_t gain;        ///< multiplies by (gain + kNeutralGain) / (2 x kNeutralGain)
    std::uint64_t exposureUs;  ///< light grows with it; kNeutralExposureUs multiplies by 1
    bool gammaOn;              ///< lifts the middle tones: output = 255 x sqrt(input / 255)
};

inline constexpr std::uint32_t kNeutralBrightness = 16;
inline constexpr std::uint32_t kNeutralGain = 64;
inline constexpr std::uint64_t kNeutralExposureUs = 10000;

/// Microseconds of one shutter unit for each index of the time base; an index beyond the table counts as the first.
[[nodiscard]] constexpr std::uint32_t TimeBaseUs(std::uint32_t index) {
    constexpr std::array<std::uint32_t, 10> kTimeBasesUs = {1, 2, 5, 10, 20, 50, 100, 200, 500, 1000};
    return kTimeBasesUs[index < kTimeBasesUs.size() ? index : 0];
}

}  // namespace kolmsim
