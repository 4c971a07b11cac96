#include "driver/feature_access.h"

#include "driver/feature_table.h"

namespace kolmfluxor {
namespace {

constexpr ULONG kModeUnknown = static_cast<ULONG>(FeatureMode::unknown);

ULONG ModeOf(const KSPROPERTY_KOLM_FEATURE_ACCESS& record) {
    return static_cast<ULONG>(ModeOfWireBit(record.Mode).value_or(FeatureMode::unknown));
}

ULONG MinOf(ULONG featureId, const KSPROPERTY_KOLM_FEATURE_ACCESS& record) {
    // Compatibility: feature 515 starts at 0 whatever the driver says. Callers count its entries from there.
    return FeatureId{featureId} == FeatureId::feature515 ? 0 : record.Min;
}

}  // namespace

HRESULT CFeatureAccess::ReadFresh(ULONG featureId, Record& record) {
    record = {};
    const auto driverId = DriverIdOf(featureId);
    if (!driverId) return E_FAIL;
    const HRESULT hr = m_transport.Send(RequestKind::get, *driverId, record);
    if (SUCCEEDED(hr)) m_cache.insert(featureId, record);
    return hr;
}

HRESULT CFeatureAccess::ReadCached(ULONG featureId, Record& record) {
    return m_cache.find(featureId, &record) ? S_OK : ReadFresh(featureId, record);
}

HRESULT CFeatureAccess::CheckValue(ULONG featureId, ULONG value) {
    ULONG min = 0;
    ULONG max = 0;
    const HRESULT hr = GetFeatureRange(featureId, &min, &max);
    if (FAILED(hr)) return hr;
    return value < min || value > max ? E_INVALIDARG : S_OK;
}

HRESULT CFeatureAccess::Write(ULONG featureId, Record& record) {
    const auto driverId = DriverIdOf(featureId);
    return driverId ? m_transport.Send(RequestKind::set, *driverId, record) : E_FAIL;
}

HRESULT CFeatureAccess::IsFeaturePresent(ULONG featureId, BOOL* present) {
    if (present == nullptr) return E_POINTER;
    *present = FALSE;
    if (!DriverIdOf(featureId)) return S_OK;
    Record record;
    const HRESULT hr = ReadCached(featureId, record);
    if (SUCCEEDED(hr)) *present = TRUE;
    return hr;
}

HRESULT CFeatureAccess::GetFeatureMin(ULONG featureId, ULONG* min) {
    ULONG max = 0;
    return GetFeatureRange(featureId, min, &max);
}

HRESULT CFeatureAccess::GetFeatureMax(ULONG featureId, ULONG* max) {
    ULONG min = 0;
    return GetFeatureRange(featureId, &min, max);
}

HRESULT CFeatureAccess::GetFeatureRange(ULONG featureId, ULONG* min, ULONG* max) {
    if (min == nullptr || max == nullptr) return E_POINTER;
    *min = 0;
    *max = 0;
    Record record;
    const HRESULT hr = ReadCached(featureId, record);
    if (FAILED(hr)) return hr;
    *min = MinOf(featureId, record);
    *max = record.Max;
    return hr;
}

HRESULT CFeatureAccess::GetFeatureValue(ULONG featureId, ULONG* value) {
    if (value == nullptr) return E_POINTER;
    *value = 0;
    Record record;
    const HRESULT hr = ReadFresh(featureId, record);
    if (SUCCEEDED(hr)) *value = record.Value;
    return hr;
}

HRESULT CFeatureAccess::GetFeatureValueAndMode(ULONG featureId, ULONG* value, ULONG* mode) {
    if (value == nullptr || mode == nullptr) return E_POINTER;
    *value = 0;
    *mode = kModeUnknown;
    Record record;
    const HRESULT hr = ReadFresh(featureId, record);
    if (FAILED(hr)) return hr;
    *value = record.Value;
    *mode = ModeOf(record);
    return hr;
}

HRESULT CFeatureAccess::SetFeatureValue(ULONG featureId, ULONG value) {
    Record record;
    HRESULT hr = ReadFresh(featureId, record);
    if (FAILED(hr)) return hr;
    hr = CheckValue(featureId, value);
    if (FAILED(hr)) return hr;
    record.Value = value;
    return Write(featureId, record);
}

HRESULT CFeatureAccess::SetFeatureValueAndMode(ULONG featureId, ULONG value, ULONG mode) {
    const HRESULT hr = CheckValue(featureId, value);
    if (FAILED(hr)) return hr;
    const auto wireBit = WireBitOf(mode);
    if (!wireBit) return E_FAIL;
    Record record{};
    record.Value = value;
    record.Mode = *wireBit;
    return Write(featureId, record);
}

HRESULT CFeatureAccess::IsFeatureModeSupported(ULONG featureId, ULONG mode, BOOL* supported) {
    if (supported == nullptr) return E_POINTER;
    *supported = FALSE;
    const auto wireBit = WireBitOf(mode);
    if (!wireBit) return E_FAIL;
    Record record;
    const HRESULT hr = ReadCached(featureId, record);
    if (SUCCEEDED(hr) && (record.ModeCaps & *wireBit) != 0) *supported = TRUE;
    return hr;
}

HRESULT CFeatureAccess::SetFeatureMode(ULONG featureId, ULONG mode) {
    Record record;
    const HRESULT hr = ReadFresh(featureId, record);
    if (FAILED(hr)) return hr;
    const auto wireBit = WireBitOf(mode);
    if (!wireBit) return E_FAIL;

    // The read above filled the cache, so this asks the driver for nothing and cannot fail.
    BOOL supported = FALSE;
    if (FAILED(IsFeatureModeSupported(featureId, mode, &supported)) || !supported) return E_NOTIMPL;

    record.Mode = *wireBit;
    record.AutoOn = *wireBit == wire::kAuto ? 1 : 0;
    record.OnePushOn = *wireBit == wire::kOnePush ? 1 : 0;
    return Write(featureId, record);
}

HRESULT CFeatureAccess::GetFeatureMode(ULONG featureId, ULONG* mode) {
    ULONG value = 0;
    return GetFeatureValueAndMode(featureId, &value, mode);
}

}  // namespace kolmfluxor
