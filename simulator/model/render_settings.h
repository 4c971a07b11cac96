#pragma once
/// @file  What of a camera's settings shows in its pictures.

#include <array>
#include <cstdint>

namespace kolmsim {

inline constexpr std::uint32_t kNeutralBrightness = 16;
inline constexpr std::uint32_t kNeutralGain = 64;
inline constexpr std::uint64_t kNeutralExposureUs = 10000;
inline constexpr std::uint32_t kNeutralWhiteBalanceUb = 284;
inline constexpr std::uint32_t kNeutralWhiteBalanceVr = 300;
inline constexpr std::uint32_t kNeutralHue = 128;
inline constexpr std::uint32_t kNeutralSaturation = 256;

/// What a picture shows: the scene, or the data of a correction in its place.
enum class ShownData : std::uint32_t { scene, nothing, darkPattern, blemishes };

/// Settings of a picture; a snapshot, so that drawing needs no lock on the camera. As it starts it is neutral.
struct RenderSettings {
    std::uint32_t brightness = kNeutralBrightness;  ///< added to each pixel, kNeutralBrightness changes nothing
    std::uint32_t gain = kNeutralGain;              ///< multiplies by (gain + kNeutralGain) / (2 x kNeutralGain)
    std::uint64_t exposureUs = kNeutralExposureUs;  ///< light grows with it; kNeutralExposureUs multiplies by 1
    bool gammaOn = false;                           ///< lifts the middle tones: output = 255 x sqrt(input / 255)

    bool lutOn = false;
    std::array<std::uint8_t, 256> lut{};  ///< what becomes of each level in the end, when `lutOn`

    std::uint32_t testImage = 0;  ///< number of the picture that takes the scene's place; 0 for none
    bool mirrorHorizontal = false;
    bool mirrorVertical = false;

    // What the sensor adds to the light of the scene
    std::uint32_t noise = 0;   ///< largest deviation, up or down, that is another one in each picture; in levels
    bool darkPattern = false;  ///< fixed-pattern noise shows
    bool blemishes = false;    ///< some pixels are white whatever they see
    ShownData shownData = ShownData::scene;

    bool color = false;                                     ///< a color camera; all that follows counts for one only
    std::uint32_t whiteBalanceUb = kNeutralWhiteBalanceUb;  ///< multiplies blue by itself / the neutral value
    std::uint32_t whiteBalanceVr = kNeutralWhiteBalanceVr;  ///< multiplies red likewise
    std::uint32_t hue = kNeutralHue;                        ///< turns colors by itself - the neutral value, in degrees
    std::uint32_t saturation = kNeutralSaturation;          ///< multiplies by itself / the neutral value
    bool matrixOn = false;
    std::array<std::int32_t, 9> matrix{};  ///< red, green, blue from red, green, blue, row by row, in thousandths
};

/// Microseconds of one shutter unit for each index of the time base; an index beyond the table counts as the first.
[[nodiscard]] constexpr std::uint32_t TimeBaseUs(std::uint32_t index) {
    constexpr std::array<std::uint32_t, 10> kTimeBasesUs = {1, 2, 5, 10, 20, 50, 100, 200, 500, 1000};
    return kTimeBasesUs[index < kTimeBasesUs.size() ? index : 0];
}

}  // namespace kolmsim
