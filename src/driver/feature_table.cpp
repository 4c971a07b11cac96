#include "driver/feature_table.h"

#include <algorithm>
#include <functional>

namespace kolmfluxor {
namespace {

using enum FeatureId;

/// A feature and the driver property that carries it.
struct FeatureRow {
    FeatureId feature;
    std::uint32_t driverId;
};

/// A mode and its bit on the wire.
struct ModeRow {
    FeatureMode mode;
    std::uint32_t wireBit;
};

constexpr FeatureRow kFeatures[] = {
    {.feature = brightness, .driverId = 4},
    {.feature = autoExposure, .driverId = 60},
    {.feature = sharpness, .driverId = 21},
    {.feature = whiteBalanceUB, .driverId = 1},
    {.feature = whiteBalanceVR, .driverId = 2},
    {.feature = hue, .driverId = 22},
    {.feature = saturation, .driverId = 23},
    {.feature = gamma, .driverId = 8},
    {.feature = shutter, .driverId = 5},
    {.feature = gain, .driverId = 0},
    {.feature = triggerDelay, .driverId = 40},
    {.feature = timeBase, .driverId = 6},
    {.feature = extendedShutter, .driverId = 7},
    {.feature = feature515, .driverId = 31},
    {.feature = lut, .driverId = 63},
    {.feature = feature517, .driverId = 64},
    {.feature = feature520, .driverId = 28},
    {.feature = colorCorrection, .driverId = 27},
    {.feature = feature523, .driverId = 19},
    {.feature = dsnuCorrection, .driverId = 32},
    {.feature = feature527, .driverId = 33},
    {.feature = delayedIntegration, .driverId = 39},
    {.feature = highSnr, .driverId = 41},
    {.feature = feature542, .driverId = 35},
    {.feature = feature543, .driverId = 36},
    {.feature = feature544, .driverId = 37},
    {.feature = isoChannel, .driverId = 55},
};

constexpr ModeRow kModes[] = {
    {.mode = FeatureMode::off, .wireBit = wire::kOff},
    {.mode = FeatureMode::manual, .wireBit = wire::kManual},
    {.mode = FeatureMode::onePush, .wireBit = wire::kOnePush},
    {.mode = FeatureMode::automatic, .wireBit = wire::kAuto},
    {.mode = FeatureMode::busy, .wireBit = 0x40},
    {.mode = FeatureMode::showImage, .wireBit = 0x80},
    {.mode = FeatureMode::loadData, .wireBit = 0x100},
    {.mode = FeatureMode::saveData, .wireBit = 0x200},
    {.mode = FeatureMode::clearData, .wireBit = 0x400},
    {.mode = FeatureMode::error, .wireBit = 0x1000},
};

static_assert(std::size(kFeatures) == 27 && std::size(kModes) == 10);
static_assert(std::ranges::adjacent_find(kFeatures, std::greater_equal{}, &FeatureRow::feature) ==
                  std::ranges::end(kFeatures),
              "features ascend, so that none stands twice");
static_assert(std::ranges::adjacent_find(kModes, std::greater_equal{}, &ModeRow::mode) == std::ranges::end(kModes),
              "modes ascend, so that none stands twice");

}  // namespace

std::optional<std::uint32_t> DriverIdOf(std::uint32_t featureId) noexcept {
    const auto row = std::ranges::find(kFeatures, FeatureId{featureId}, &FeatureRow::feature);
    if (row == std::ranges::end(kFeatures)) return std::nullopt;
    return row->driverId;
}

std::optional<std::uint32_t> WireBitOf(std::uint32_t mode) noexcept {
    const auto row = std::ranges::find(kModes, FeatureMode{mode}, &ModeRow::mode);
    if (row == std::ranges::end(kModes)) return std::nullopt;
    return row->wireBit;
}

std::optional<FeatureMode> ModeOfWireBit(std::uint32_t bit) noexcept {
    const auto row = std::ranges::find(kModes, bit, &ModeRow::wireBit);
    if (row == std::ranges::end(kModes)) return std::nullopt;
    return row->mode;
}

}  // namespace kolmfluxor
