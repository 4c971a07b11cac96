#pragma once
/// @file  The generic operations on a camera feature, and the cache of what does not change at run time.

#include "driver/map_multithreaded.h"
#include "driver/property_record.h"
#include "driver/property_transport.h"

namespace kolmfluxor {

/// The eleven generic feature operations; see `IKolmFluxorPropertySet` for what each does for a caller.
///
/// The first record that the driver gives for a feature is kept while the object lives: presence, modes and range come
/// from it. Values and current modes are read afresh each time. Any thread may call; two threads may both read a
/// feature for the first time, the first to store it then wins.
class CFeatureAccess {
public:
    /// @param transport  must outlive this object
    explicit CFeatureAccess(const CPropertyTransport& transport) : m_transport(transport) {}

    HRESULT IsFeaturePresent(ULONG featureId, BOOL* present);
    HRESULT GetFeatureMin(ULONG featureId, ULONG* min);
    HRESULT GetFeatureMax(ULONG featureId, ULONG* max);
    HRESULT GetFeatureRange(ULONG featureId, ULONG* min, ULONG* max);
    HRESULT GetFeatureValue(ULONG featureId, ULONG* value);
    HRESULT GetFeatureValueAndMode(ULONG featureId, ULONG* value, ULONG* mode);
    HRESULT SetFeatureValue(ULONG featureId, ULONG value);
    HRESULT SetFeatureValueAndMode(ULONG featureId, ULONG value, ULONG mode);
    HRESULT IsFeatureModeSupported(ULONG featureId, ULONG mode, BOOL* supported);
    HRESULT SetFeatureMode(ULONG featureId, ULONG mode);
    HRESULT GetFeatureMode(ULONG featureId, ULONG* mode);

private:
    using Record = KSPROPERTY_KOLM_FEATURE_ACCESS;

    /// Reads the feature from the driver; on success its record is cached, unless there is one already.
    HRESULT ReadFresh(ULONG featureId, Record& record);
    /// The cached record, or else a fresh one.
    HRESULT ReadCached(ULONG featureId, Record& record);
    /// `E_INVALIDARG` for a value outside the feature's range.
    HRESULT CheckValue(ULONG featureId, ULONG value);
    /// Sends `record` as the feature's new state.
    HRESULT Write(ULONG featureId, Record& record);

    const CPropertyTransport& m_transport;
    map_multithreaded<ULONG, Record> m_cache;
};

}  // namespace kolmfluxor
