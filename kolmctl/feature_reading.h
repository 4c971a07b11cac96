#pragma once
/// @file  Reading features through the property set.

#include <string>
#include <vector>

#include <kolmfluxor/property_set.h>

#include "names.h"
#include "output.h"

namespace kolmctl {

/// What a camera has for a feature right now.
struct FeatureReading {
    const FeatureName* feature;
    ULONG value;
    ULONG mode;  ///< number, 10 when none is known
};

/// The id as the interface takes it.
[[nodiscard]] inline ULONG IdOf(const FeatureName& feature) {
    return static_cast<ULONG>(feature.id);
}

/// The features that the camera has, in the order of their ids.
///
/// Those that it does not answer for are left out, and told on the error stream unless the code means that it lacks
/// them.
/// @throws CallError when it answers for none
[[nodiscard]] std::vector<const FeatureName*> PresentFeatures(kolmfluxor::IKolmFluxorPropertySet& camera);

/// Reads value and mode: one request, never what an earlier one has found.
///
/// @throws CallError when the camera refuses or lacks the feature
[[nodiscard]] FeatureReading ReadFeature(kolmfluxor::IKolmFluxorPropertySet& camera, const FeatureName& feature);

/// The names of the modes that a feature supports; empty when the camera does not tell.
[[nodiscard]] std::vector<std::string> SupportedModes(kolmfluxor::IKolmFluxorPropertySet& camera,
                                                      const FeatureName& feature);

/// Value and mode of features, one a row.
[[nodiscard]] Table ReadingsTable(const std::vector<FeatureReading>& readings);

}  // namespace kolmctl
