#include "feature_reading.h"

#include "errors.h"

namespace kolmctl {

std::vector<const FeatureName*> PresentFeatures(kolmfluxor::IKolmFluxorPropertySet& camera) {
    std::vector<const FeatureName*> features;
    HRESULT refusal = S_OK;
    for (const FeatureName& feature : FeatureNames()) {
        // A failure means that the camera does not answer for the feature.
        BOOL present = FALSE;
        if (const HRESULT hr = camera.IsFeaturePresent(IdOf(feature), &present); hr != S_OK) {
            refusal = hr;
        } else if (present) {
            features.push_back(&feature);
        }
    }
    if (features.empty()) {
        throw CallError("the camera answers for no feature", refusal);
    }
    return features;
}

FeatureReading ReadFeature(kolmfluxor::IKolmFluxorPropertySet& camera, const FeatureName& feature) {
    FeatureReading reading{&feature, 0, 0};
    Check(camera.GetFeatureValueAndMode(IdOf(feature), &reading.value, &reading.mode),
          std::string("cannot read ") + feature.name);
    return reading;
}

std::vector<std::string> SupportedModes(kolmfluxor::IKolmFluxorPropertySet& camera, const FeatureName& feature) {
    std::vector<std::string> modes;
    for (const ModeName& mode : ModeNames()) {
        BOOL supported = FALSE;
        if (camera.IsFeatureModeSupported(IdOf(feature), static_cast<ULONG>(mode.mode), &supported) == S_OK &&
            supported) {
            modes.emplace_back(mode.name);
        }
    }
    return modes;
}

Table ReadingsTable(const std::vector<FeatureReading>& readings) {
    Table table("features", {{"feature", "FEATURE", Align::left},
                             {"id", "ID", Align::right},
                             {"value", "VALUE", Align::right},
                             {"mode", "MODE", Align::left}});
    for (const FeatureReading& reading : readings) {
        table.Add({reading.feature->name, IdOf(*reading.feature), reading.value, ModeText(reading.mode)});
    }
    return table;
}

}  // namespace kolmctl
