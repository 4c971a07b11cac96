#pragma once
/// @file  Changing features through the property set.

#include <cstdint>
#include <optional>
#include <string>

#include <kolmfluxor/property_set.h>

#include "names.h"

namespace kolmctl {

/// A change of a feature: a value, a mode, or both.
struct FeatureChange {
    const FeatureName& feature;
    std::optional<std::uint32_t> value;
    const ModeName* mode;  ///< null for none

    [[nodiscard]] ULONG Mode() const { return static_cast<ULONG>(mode->mode); }
};

/// Makes a change; a mode that the feature lacks is refused before anything is set.
///
/// @param intention  what is refused, as in "cannot set gain to 300"
/// @throws CallError when the camera refuses; its hint tells what the feature takes where that explains it
void ApplyChange(kolmfluxor::IKolmFluxorPropertySet& camera, const FeatureChange& change, const std::string& intention);

}  // namespace kolmctl
