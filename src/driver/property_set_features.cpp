/// @file  `IKolmFluxorPropertySet` on features: the generic operations, the standard families, the switched features.

#include "driver/property_set.h"
#include "driver/standard_feature.h"

namespace kolmfluxor {

// ---- Generic feature operations -----------------------------------------------------------------------------------

HRESULT CKolmFluxorPropertySet::IsFeaturePresent(ULONG featureId, BOOL* present) {
    return m_features.IsFeaturePresent(featureId, present);
}

HRESULT CKolmFluxorPropertySet::GetFeatureMin(ULONG featureId, ULONG* min) {
    return m_features.GetFeatureMin(featureId, min);
}

HRESULT CKolmFluxorPropertySet::GetFeatureMax(ULONG featureId, ULONG* max) {
    return m_features.GetFeatureMax(featureId, max);
}

HRESULT CKolmFluxorPropertySet::GetFeatureRange(ULONG featureId, ULONG* min, ULONG* max) {
    return m_features.GetFeatureRange(featureId, min, max);
}

HRESULT CKolmFluxorPropertySet::GetFeatureValue(ULONG featureId, ULONG* value) {
    return m_features.GetFeatureValue(featureId, value);
}

HRESULT CKolmFluxorPropertySet::GetFeatureValueAndMode(ULONG featureId, ULONG* value, ULONG* mode) {
    return m_features.GetFeatureValueAndMode(featureId, value, mode);
}

HRESULT CKolmFluxorPropertySet::SetFeatureValue(ULONG featureId, ULONG value) {
    return m_features.SetFeatureValue(featureId, value);
}

HRESULT CKolmFluxorPropertySet::SetFeatureValueAndMode(ULONG featureId, ULONG value, ULONG mode) {
    return m_features.SetFeatureValueAndMode(featureId, value, mode);
}

HRESULT CKolmFluxorPropertySet::IsFeatureModeSupported(ULONG featureId, ULONG mode, BOOL* supported) {
    return m_features.IsFeatureModeSupported(featureId, mode, supported);
}

HRESULT CKolmFluxorPropertySet::SetFeatureMode(ULONG featureId, ULONG mode) {
    return m_features.SetFeatureMode(featureId, mode);
}

HRESULT CKolmFluxorPropertySet::GetFeatureMode(ULONG featureId, ULONG* mode) {
    return m_features.GetFeatureMode(featureId, mode);
}

// ---- Standard feature families ------------------------------------------------------------------------------------

HRESULT CKolmFluxorPropertySet::GetGain(ULONG* value, BOOL* autoOn, BOOL* onePush) {
    return StandardFeature{m_features, FeatureId::gain}.Get(value, autoOn, onePush);
}

HRESULT CKolmFluxorPropertySet::SetGain(ULONG value, BOOL autoOn, BOOL onePush) {
    return StandardFeature{m_features, FeatureId::gain}.Set(value, autoOn, onePush);
}

HRESULT CKolmFluxorPropertySet::GetGainRange(ULONG* min, ULONG* max, BOOL* autoOn, BOOL* onePush) {
    return StandardFeature{m_features, FeatureId::gain}.GetRange(min, max, autoOn, onePush);
}

HRESULT CKolmFluxorPropertySet::GetWhiteBalanceUB(ULONG* value, BOOL* autoOn, BOOL* onePush) {
    return StandardFeature{m_features, FeatureId::whiteBalanceUB}.Get(value, autoOn, onePush);
}

HRESULT CKolmFluxorPropertySet::SetWhiteBalanceUB(ULONG value, BOOL autoOn, BOOL onePush) {
    return StandardFeature{m_features, FeatureId::whiteBalanceUB}.Set(value, autoOn, onePush);
}

HRESULT CKolmFluxorPropertySet::GetWhiteBalanceUBRange(ULONG* min, ULONG* max, BOOL* autoOn, BOOL* onePush) {
    return StandardFeature{m_features, FeatureId::whiteBalanceUB}.GetRange(min, max, autoOn, onePush);
}

HRESULT CKolmFluxorPropertySet::GetWhiteBalanceVR(ULONG* value, BOOL* autoOn, BOOL* onePush) {
    return StandardFeature{m_features, FeatureId::whiteBalanceVR}.Get(value, autoOn, onePush);
}

HRESULT CKolmFluxorPropertySet::SetWhiteBalanceVR(ULONG value, BOOL autoOn, BOOL onePush) {
    return StandardFeature{m_features, FeatureId::whiteBalanceVR}.Set(value, autoOn, onePush);
}

HRESULT CKolmFluxorPropertySet::GetWhiteBalanceVRRange(ULONG* min, ULONG* max, BOOL* autoOn, BOOL* onePush) {
    return StandardFeature{m_features, FeatureId::whiteBalanceVR}.GetRange(min, max, autoOn, onePush);
}

HRESULT CKolmFluxorPropertySet::GetBrightness(ULONG* value, BOOL* autoOn, BOOL* onePush) {
    return StandardFeature{m_features, FeatureId::brightness}.Get(value, autoOn, onePush);
}

HRESULT CKolmFluxorPropertySet::SetBrightness(ULONG value, BOOL autoOn, BOOL onePush) {
    return StandardFeature{m_features, FeatureId::brightness}.Set(value, autoOn, onePush);
}

HRESULT CKolmFluxorPropertySet::GetBrightnessRange(ULONG* min, ULONG* max, BOOL* autoOn, BOOL* onePush) {
    return StandardFeature{m_features, FeatureId::brightness}.GetRange(min, max, autoOn, onePush);
}

HRESULT CKolmFluxorPropertySet::GetShutter(ULONG* value, BOOL* autoOn, BOOL* onePush) {
    return StandardFeature{m_features, FeatureId::shutter}.Get(value, autoOn, onePush);
}

HRESULT CKolmFluxorPropertySet::SetShutter(ULONG value, BOOL autoOn, BOOL onePush) {
    return StandardFeature{m_features, FeatureId::shutter}.Set(value, autoOn, onePush);
}

HRESULT CKolmFluxorPropertySet::GetShutterRange(ULONG* min, ULONG* max, BOOL* autoOn, BOOL* onePush) {
    return StandardFeature{m_features, FeatureId::shutter}.GetRange(min, max, autoOn, onePush);
}

HRESULT CKolmFluxorPropertySet::GetSharpness(ULONG* value, BOOL* autoOn, BOOL* onePush) {
    return StandardFeature{m_features, FeatureId::sharpness}.Get(value, autoOn, onePush);
}

HRESULT CKolmFluxorPropertySet::SetSharpness(ULONG value, BOOL autoOn, BOOL onePush) {
    return StandardFeature{m_features, FeatureId::sharpness}.Set(value, autoOn, onePush);
}

HRESULT CKolmFluxorPropertySet::GetSharpnessRange(ULONG* min, ULONG* max, BOOL* autoOn, BOOL* onePush) {
    return StandardFeature{m_features, FeatureId::sharpness}.GetRange(min, max, autoOn, onePush);
}

HRESULT CKolmFluxorPropertySet::GetHue(ULONG* value, BOOL* autoOn, BOOL* onePush) {
    return StandardFeature{m_features, FeatureId::hue}.Get(value, autoOn, onePush);
}

HRESULT CKolmFluxorPropertySet::SetHue(ULONG value, BOOL autoOn, BOOL onePush) {
    return StandardFeature{m_features, FeatureId::hue}.Set(value, autoOn, onePush);
}

HRESULT CKolmFluxorPropertySet::GetHueRange(ULONG* min, ULONG* max, BOOL* autoOn, BOOL* onePush) {
    return StandardFeature{m_features, FeatureId::hue}.GetRange(min, max, autoOn, onePush);
}

HRESULT CKolmFluxorPropertySet::GetSaturation(ULONG* value, BOOL* autoOn, BOOL* onePush) {
    return StandardFeature{m_features, FeatureId::saturation}.Get(value, autoOn, onePush);
}

HRESULT CKolmFluxorPropertySet::SetSaturation(ULONG value, BOOL autoOn, BOOL onePush) {
    return StandardFeature{m_features, FeatureId::saturation}.Set(value, autoOn, onePush);
}

HRESULT CKolmFluxorPropertySet::GetSaturationRange(ULONG* min, ULONG* max, BOOL* autoOn, BOOL* onePush) {
    return StandardFeature{m_features, FeatureId::saturation}.GetRange(min, max, autoOn, onePush);
}

// ---- Features without a mode --------------------------------------------------------------------------------------

HRESULT CKolmFluxorPropertySet::GetExtendedShutter(ULONG* value) {
    return m_features.GetFeatureValue(static_cast<ULONG>(FeatureId::extendedShutter), value);
}

HRESULT CKolmFluxorPropertySet::SetExtendedShutter(ULONG value) {
    return m_features.SetFeatureValue(static_cast<ULONG>(FeatureId::extendedShutter), value);
}

HRESULT CKolmFluxorPropertySet::GetExtendedShutterRange(ULONG* min, ULONG* max) {
    return m_features.GetFeatureRange(static_cast<ULONG>(FeatureId::extendedShutter), min, max);
}

HRESULT CKolmFluxorPropertySet::GetTimeBase(ULONG* value) {
    return m_features.GetFeatureValue(static_cast<ULONG>(FeatureId::timeBase), value);
}

HRESULT CKolmFluxorPropertySet::SetTimeBase(ULONG value) {
    return m_features.SetFeatureValue(static_cast<ULONG>(FeatureId::timeBase), value);
}

// ---- Features that are switched on or off -------------------------------------------------------------------------

HRESULT CKolmFluxorPropertySet::GetGammaOnOff(BOOL* on) {
    return SwitchedFeature{m_features, FeatureId::gamma}.GetOnOff(on);
}

HRESULT CKolmFluxorPropertySet::SetGammaOnOff(BOOL on) {
    return SwitchedFeature{m_features, FeatureId::gamma}.SetOnOff(on);
}

HRESULT CKolmFluxorPropertySet::IsFeature523Present(BOOL* present) {
    return m_features.IsFeaturePresent(static_cast<ULONG>(FeatureId::feature523), present);
}

HRESULT CKolmFluxorPropertySet::GetFeature523OnOff(BOOL* on) {
    return SwitchedFeature{m_features, FeatureId::feature523}.GetOnOff(on);
}

HRESULT CKolmFluxorPropertySet::SetFeature523OnOff(BOOL on) {
    return SwitchedFeature{m_features, FeatureId::feature523}.SetOnOff(on);
}

HRESULT CKolmFluxorPropertySet::GetColorCorrectionOnOff(BOOL* on) {
    // Compatibility: unlike the other switches this one leaves its output alone in any mode but Off and Manual.
    return SwitchedFeature{m_features, FeatureId::colorCorrection}.GetOnOffIfKnown(on);
}

HRESULT CKolmFluxorPropertySet::SetColorCorrectionOnOff(BOOL on) {
    return SwitchedFeature{m_features, FeatureId::colorCorrection}.SetOnOff(on);
}

}  // namespace kolmfluxor
