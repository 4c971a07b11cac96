#include "names.h"

#include <algorithm>
#include <cctype>
#include <cstdint>
#include <iterator>
#include <vector>

#include "errors.h"
#include "text.h"

namespace kolmctl {
namespace {

using kolmfluxor::FeatureId;
using kolmfluxor::FeatureMode;

constexpr std::size_t kHintWidth = 100;

constexpr FeatureName kFeatures[] = {
    {FeatureId::brightness, "brightness"},
    {FeatureId::autoExposure, "auto-exposure"},
    {FeatureId::sharpness, "sharpness"},
    {FeatureId::whiteBalanceUB, "white-balance-ub"},
    {FeatureId::whiteBalanceVR, "white-balance-vr"},
    {FeatureId::hue, "hue"},
    {FeatureId::saturation, "saturation"},
    {FeatureId::gamma, "gamma"},
    {FeatureId::shutter, "shutter"},
    {FeatureId::gain, "gain"},
    {FeatureId::triggerDelay, "trigger-delay"},
    {FeatureId::timeBase, "time-base"},
    {FeatureId::extendedShutter, "extended-shutter"},
    {FeatureId::feature515, "feature-515"},
    {FeatureId::lut, "lut"},
    {FeatureId::feature517, "feature-517"},
    {FeatureId::feature520, "feature-520"},
    {FeatureId::colorCorrection, "color-correction"},
    {FeatureId::feature523, "feature-523"},
    {FeatureId::dsnuCorrection, "dsnu-correction"},
    {FeatureId::feature527, "feature-527"},
    {FeatureId::delayedIntegration, "delayed-integration"},
    {FeatureId::highSnr, "high-snr"},
    {FeatureId::feature542, "feature-542"},
    {FeatureId::feature543, "feature-543"},
    {FeatureId::feature544, "feature-544"},
    {FeatureId::isoChannel, "iso-channel"},
};

constexpr ModeName kModes[] = {
    {FeatureMode::off, "off"},
    {FeatureMode::manual, "manual"},
    {FeatureMode::onePush, "one-push"},
    {FeatureMode::automatic, "auto"},
    {FeatureMode::busy, "busy"},
    {FeatureMode::showImage, "show-image"},
    {FeatureMode::loadData, "load-data"},
    {FeatureMode::saveData, "save-data"},
    {FeatureMode::clearData, "clear-data"},
    {FeatureMode::error, "error"},
};

static_assert(std::ranges::is_sorted(kFeatures, {}, &FeatureName::id));
static_assert(std::ranges::is_sorted(kModes, {}, &ModeName::mode));

/// The row that a text names, or whose number it is; null when there is none.
template <class Row, class Number>
const Row* Find(std::span<const Row> rows, Number Row::*number, std::string_view text) {
    std::string name(text);
    std::ranges::transform(name, name.begin(), [](char c) {
        return c == '_' ? '-' : static_cast<char>(std::tolower(static_cast<unsigned char>(c)));
    });
    const auto value = ParseNumber(text);
    const auto found = std::ranges::find_if(rows, [&](const Row& row) {
        return name == row.name || (value && static_cast<std::uint32_t>(row.*number) == *value);
    });
    return found != rows.end() ? &*found : nullptr;
}

template <class Row> std::string KnownNames(std::span<const Row> rows) {
    std::vector<std::string> names;
    for (const Row& row : rows) {
        names.emplace_back(row.name);
    }
    return Wrap("known are " + Join(names, ", "), kHintWidth);
}

}  // namespace

std::span<const FeatureName> FeatureNames() {
    return kFeatures;
}

std::span<const ModeName> ModeNames() {
    return kModes;
}

const FeatureName& ParseFeature(std::string_view text) {
    const FeatureName* const found = Find(FeatureNames(), &FeatureName::id, text);
    if (found == nullptr) {
        throw UsageError("unknown feature \"" + std::string(text) + "\"", KnownNames(FeatureNames()));
    }
    return *found;
}

const ModeName& ParseMode(std::string_view text) {
    const ModeName* const found = Find(ModeNames(), &ModeName::mode, text);
    if (found == nullptr) {
        throw UsageError("unknown mode \"" + std::string(text) + "\"", KnownNames(ModeNames()));
    }
    return *found;
}

std::string ModeText(unsigned long mode) {
    const auto* const found = std::ranges::find(kModes, static_cast<FeatureMode>(mode), &ModeName::mode);
    return found != std::end(kModes) ? found->name : "unknown";
}

}  // namespace kolmctl
