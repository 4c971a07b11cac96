#include "feature_reading.h"

#include <iostream>
#include <map>

#include "errors.h"

namespace kolmctl {

std::vector<const FeatureName*> PresentFeatures(kolmfluxor::IKolmFluxorPropertySet& camera) {
    std::vector<const FeatureName*> features;
    HRESULT refusal = S_OK;
    std::map<HRESULT, std::string> unanswered;
    for (const FeatureName& feature : FeatureNames()) {
        BOOL present = FALSE;
        if (const HRESULT hr = camera.IsFeaturePresent(IdOf(feature), &present); hr != S_OK) {
            refusal = hr;
            std::string& names = unanswered[hr];
            names += (names.empty() ? "" : ", ") + std::string(feature.name);
        } else if (present) {
            features.push_back(&feature);
        }
    }
    if (features.empty()) {
        throw CallError("the camera answers for no feature", refusal);
    }
    for (const auto& [hr, names] : unanswered) {
        if (!TellsAbsence(hr)) {
            std::cerr << "kolmctl: " << CallError("the camera does not answer for " + names, hr).what() << "\n";
        }
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
