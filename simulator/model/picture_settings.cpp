#include "model/picture_settings.h"

#include <algorithm>

#include "model/bits.h"
#include "model/register_map.h"
#include "model/register_memory.h"
#include "model/sensor_flaws.h"
#include "model/test_image.h"

namespace kolmsim {
namespace {

constexpr std::uint32_t kGainId = 0;
constexpr std::uint32_t kWhiteBalanceUbId = 1;
constexpr std::uint32_t kWhiteBalanceVrId = 2;
constexpr std::uint32_t kBrightnessId = 4;
constexpr std::uint32_t kExposureId = 7;
constexpr std::uint32_t kGammaId = 8;
constexpr std::uint32_t kMirrorId = 19;
constexpr std::uint32_t kHueId = 22;
constexpr std::uint32_t kSaturationId = 23;
constexpr std::uint32_t kColorCorrectionId = 27;
constexpr std::uint32_t kLutId = 31;
constexpr std::uint32_t kLutBitsId = 63;

constexpr unsigned kVerticalMirror = 24;

void TakeColor(RenderSettings& settings, const CameraState& state) {
    const auto value = [&](std::uint32_t id, std::uint32_t neutral) {
        const PropertyState& property = state.properties[id];
        const bool works = property.present != 0 && property.At(kOffsetMode) != kModeOff;
        return works ? property.At(kOffsetValue) : neutral;
    };
    const PropertyState& correction = state.properties[kColorCorrectionId];
    settings.color = true;
    settings.whiteBalanceUb = value(kWhiteBalanceUbId, kNeutralWhiteBalanceUb);
    settings.whiteBalanceVr = value(kWhiteBalanceVrId, kNeutralWhiteBalanceVr);
    settings.hue = value(kHueId, kNeutralHue);
    settings.saturation = value(kSaturationId, kNeutralSaturation);
    settings.matrixOn = correction.present != 0 && correction.At(kOffsetMode) == kModeManual;
    for (std::uint32_t i = 0; i < settings.matrix.size(); ++i) {
        settings.matrix[i] = static_cast<std::int32_t>(ReadRegister(state, kColorMatrix + 4 * i).value_or(0));
    }
}

}  // namespace

RenderSettings SettingsOf(const CameraState& state) {
    const auto value = [&](std::uint32_t id) { return state.properties[id].At(kOffsetValue); };
    const auto isOn = [&](std::uint32_t id) { return state.properties[id].At(kOffsetMode) == kModeManual; };

    RenderSettings settings;
    settings.brightness = value(kBrightnessId);
    settings.gain = value(kGainId);
    settings.exposureUs = value(kExposureId);
    settings.gammaOn = isOn(kGammaId);
    settings.lutOn = isOn(kLutId) && value(kLutId) < kLutCount;
    if (settings.lutOn) {
        settings.lut = LevelsOf(state.lutMemory[value(kLutId)], value(kLutBitsId));
    }
    settings.testImage = CurrentTestImage(state);
    settings.mirrorHorizontal = isOn(kMirrorId);
    settings.mirrorVertical = Bit(ReadRegister(state, kMirror).value_or(0), kVerticalMirror);
    TakeSensorFlaws(settings, state);
    if (state.variant == static_cast<std::uint32_t>(Variant::color)) {
        TakeColor(settings, state);
    }
    return settings;
}

std::array<std::uint8_t, 256> LevelsOf(std::span<const std::uint8_t> bytes, std::uint32_t bitsPerValue) {
    std::array<std::uint8_t, 256> levels{};
    const std::size_t bytesPerValue = bitsPerValue <= 8 ? 1 : 2;
    const std::size_t count = bytes.size() / bytesPerValue;
    const bool usable = bitsPerValue >= 1 && bitsPerValue <= 16 && count != 0;
    const std::uint32_t largest = usable ? (1U << bitsPerValue) - 1 : 255;

    for (std::uint32_t level = 0; level < levels.size(); ++level) {
        std::uint32_t value = level;
        if (usable) {
            const std::size_t at = level * (count - 1) / 255 * bytesPerValue;
            value = bytesPerValue == 1 ? bytes[at] : std::uint32_t{bytes[at]} << 8 | bytes[at + 1];
        }
        levels[level] = static_cast<std::uint8_t>((std::min(value, largest) * 255 + largest / 2) / largest);
    }
    return levels;
}

}  // namespace kolmsim
