#include "feature_change.h"

#include "errors.h"
#include "feature_reading.h"
#include "text.h"

namespace kolmctl {
namespace {

using kolmfluxor::IKolmFluxorPropertySet;

/// The method for value and mode leaves the check of the mode to the driver, so it is made here.
HRESULT SetValueAndMode(IKolmFluxorPropertySet& camera, const FeatureChange& change) {
    BOOL supported = FALSE;
    const HRESULT hr = camera.IsFeatureModeSupported(IdOf(change.feature), change.Mode(), &supported);
    if (hr != S_OK) {
        return hr;
    }
    return supported ? camera.SetFeatureValueAndMode(IdOf(change.feature), *change.value, change.Mode()) : E_NOTIMPL;
}

HRESULT Apply(IKolmFluxorPropertySet& camera, const FeatureChange& change) {
    if (change.mode == nullptr) {
        return camera.SetFeatureValue(IdOf(change.feature), *change.value);
    }
    if (!change.value) {
        return camera.SetFeatureMode(IdOf(change.feature), change.Mode());
    }
    return SetValueAndMode(camera, change);
}

/// What the feature would take; empty when neither range nor modes explain the refusal. Sends no request: the refused
/// call has already read both.
std::string WhatItTakes(IKolmFluxorPropertySet& camera, const FeatureChange& change, HRESULT refusal) {
    const std::string name = change.feature.name;
    ULONG min = 0;
    ULONG max = 0;
    if (refusal == E_INVALIDARG && change.value && camera.GetFeatureRange(IdOf(change.feature), &min, &max) == S_OK &&
        (*change.value < min || *change.value > max)) {
        return name + " takes values from " + std::to_string(min) + " to " + std::to_string(max);
    }
    if (refusal == E_NOTIMPL && change.mode != nullptr) {
        return name + " supports these modes: " + Join(SupportedModes(camera, change.feature), ", ");
    }
    return {};
}

}  // namespace

void ApplyChange(IKolmFluxorPropertySet& camera, const FeatureChange& change, const std::string& intention) {
    if (const HRESULT hr = Apply(camera, change); hr != S_OK) {
        throw CallError(intention, hr, WhatItTakes(camera, change, hr));
    }
}

}  // namespace kolmctl
