#include "driver/standard_feature.h"

namespace kolmfluxor {
namespace {

constexpr ULONG Number(FeatureId id) {
    return static_cast<ULONG>(id);
}

constexpr ULONG Number(FeatureMode mode) {
    return static_cast<ULONG>(mode);
}

void TellMode(ULONG mode, BOOL* autoOn, BOOL* onePush) {
    *autoOn = mode == Number(FeatureMode::automatic) ? TRUE : FALSE;
    *onePush = mode == Number(FeatureMode::onePush) ? TRUE : FALSE;
}

}  // namespace

HRESULT StandardFeature::Get(ULONG* value, BOOL* autoOn, BOOL* onePush) const {
    if (value == nullptr || autoOn == nullptr || onePush == nullptr) return E_POINTER;
    ULONG mode = 0;
    const HRESULT hr = features.GetFeatureValueAndMode(Number(id), value, &mode);
    TellMode(mode, autoOn, onePush);
    return hr;
}

HRESULT StandardFeature::Set(ULONG value, BOOL autoOn, BOOL onePush) const {
    if (autoOn && onePush) return E_INVALIDARG;
    const FeatureMode mode = autoOn ? FeatureMode::automatic : onePush ? FeatureMode::onePush : FeatureMode::manual;
    return features.SetFeatureValueAndMode(Number(id), value, Number(mode));
}

HRESULT StandardFeature::GetRange(ULONG* min, ULONG* max, BOOL* autoOn, BOOL* onePush) const {
    if (min == nullptr || max == nullptr || autoOn == nullptr || onePush == nullptr) return E_POINTER;
    HRESULT hr = features.GetFeatureRange(Number(id), min, max);
    if (hr != S_OK) return hr;
    ULONG mode = 0;
    hr = features.GetFeatureMode(Number(id), &mode);
    TellMode(mode, autoOn, onePush);
    return hr;
}

HRESULT SwitchedFeature::GetOnOff(BOOL* on) const {
    if (on == nullptr) return E_POINTER;
    *on = FALSE;
    return GetOnOffIfKnown(on);
}

HRESULT SwitchedFeature::GetOnOffIfKnown(BOOL* on) const {
    if (on == nullptr) return E_POINTER;
    ULONG mode = 0;
    const HRESULT hr = features.GetFeatureMode(Number(id), &mode);
    if (mode == Number(FeatureMode::off)) *on = FALSE;
    if (mode == Number(FeatureMode::manual)) *on = TRUE;
    return hr;
}

HRESULT SwitchedFeature::SetOnOff(BOOL on) const {
    // Compatibility: only exactly 1 switches on. Callers pass other numbers to switch off.
    return features.SetFeatureMode(Number(id), Number(on == 1 ? FeatureMode::manual : FeatureMode::off));
}

}  // namespace kolmfluxor
