#include "model/sensor_flaws.h"

#include <algorithm>

#include "model/correction.h"
#include "model/record.h"

namespace kolmsim {
namespace {

constexpr std::uint32_t kGainId = 0;
constexpr std::uint32_t kDsnuId = 32;
constexpr std::uint32_t kBlemishId = 33;
constexpr std::uint32_t kHighSnrId = 41;

constexpr std::uint32_t kGainPerNoiseLevel = 16;
constexpr std::uint32_t kPatternLevels = 8;
constexpr std::uint32_t kPixelsPerBlemish = 512;
constexpr std::uint8_t kWhite = 255;

/// A number without a visible rule, always the same for the same arguments.
constexpr std::uint32_t Scramble(std::uint32_t x, std::uint32_t y, std::uint32_t z) {
    std::uint32_t n = x * 0x9E3779B1U ^ y * 0x85EBCA77U ^ z * 0xC2B2AE3DU;
    n = (n ^ n >> 15) * 0x2C1B3C6DU;
    n = (n ^ n >> 12) * 0x297A2D39U;
    return n ^ n >> 15;
}

/// What a pixel shows too much, 0 to 7 levels: half of it belongs to its column.
std::uint32_t PatternAt(std::uint32_t x, std::uint32_t y) {
    return Scramble(x, 0, 1) % (kPatternLevels / 2) + Scramble(x, y, 2) % (kPatternLevels / 2 + 1);
}

bool IsBlemish(std::uint32_t x, std::uint32_t y) {
    return Scramble(x, y, 3) % kPixelsPerBlemish == 0;
}

Rgb Brighter(const Rgb& light, std::int32_t levels) {
    const auto level = [&](std::uint8_t value) {
        return static_cast<std::uint8_t>(std::clamp(std::int32_t{value} + levels, 0, 255));
    };
    return {level(light.r), level(light.g), level(light.b)};
}

Rgb Gray(std::uint32_t level) {
    const auto gray = static_cast<std::uint8_t>(std::min(level, 255U));
    return {gray, gray, gray};
}

/// Correction data as a picture, bright enough to be seen.
Rgb DataAt(const RenderSettings& settings, std::uint32_t x, std::uint32_t y) {
    if (settings.shownData == ShownData::darkPattern) {
        return Gray(PatternAt(x, y) * (kWhite / (kPatternLevels - 1)));
    }
    return Gray(settings.shownData == ShownData::blemishes && IsBlemish(x, y) ? kWhite : 0);
}

/// The noise of the gain, less what averaging takes away.
std::uint32_t NoiseOf(std::uint32_t gain, std::uint32_t pictures) {
    const std::uint32_t noise = (std::clamp(gain, kNeutralGain, 4095U) - kNeutralGain) / kGainPerNoiseLevel;
    std::uint32_t remaining = noise;  // largest with remaining x square root of pictures <= noise
    while (std::uint64_t{remaining} * remaining * pictures > std::uint64_t{noise} * noise) {
        --remaining;
    }
    return remaining;
}

}  // namespace

void TakeSensorFlaws(RenderSettings& settings, const CameraState& state) {
    const PropertyState& highSnr = state.properties[kHighSnrId];
    const bool averages = highSnr.present != 0 && highSnr.At(kOffsetMode) == kModeManual;
    settings.noise = NoiseOf(state.properties[kGainId].At(kOffsetValue), averages ? highSnr.At(kOffsetValue) : 1);

    const CorrectionStatus dsnu = StatusOfCorrection(state, kDsnuId);
    const CorrectionStatus blemish = StatusOfCorrection(state, kBlemishId);
    settings.darkPattern = !dsnu.corrects;
    settings.blemishes = !blemish.corrects;
    if (dsnu.showsData) {
        settings.shownData = dsnu.hasData ? ShownData::darkPattern : ShownData::nothing;
    } else if (blemish.showsData) {
        settings.shownData = blemish.hasData ? ShownData::blemishes : ShownData::nothing;
    }
}

void AddSensorFlaws(const RenderSettings& settings, std::uint64_t frameNumber, std::uint32_t y, std::span<Rgb> row) {
    if (settings.testImage != 0) {
        return;
    }
    const auto noise = static_cast<std::int32_t>(settings.noise);
    const auto frame = static_cast<std::uint32_t>(frameNumber) + 4;  // 0 to 3 are the numbers of what stands still
    for (std::uint32_t x = 0; x < row.size(); ++x) {
        if (settings.shownData != ShownData::scene) {
            row[x] = DataAt(settings, x, y);
            continue;
        }
        std::int32_t levels = settings.darkPattern ? static_cast<std::int32_t>(PatternAt(x, y)) : 0;
        if (noise != 0) {
            const auto span = static_cast<std::uint32_t>(2 * noise + 1);
            levels += static_cast<std::int32_t>(Scramble(x, y, frame) % span) - noise;
        }
        row[x] = settings.blemishes && IsBlemish(x, y) ? Gray(kWhite) : Brighter(row[x], levels);
    }
}

}  // namespace kolmsim
