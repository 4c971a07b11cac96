#pragma once
/// @file  What the standard feature families and the on/off features share, on top of the generic operations.

#include <kolmfluxor/features.h>

#include "driver/feature_access.h"

namespace kolmfluxor {

/// One of the eight families with a getter, a setter and a range method; see `IKolmFluxorPropertySet`.
struct StandardFeature {
    CFeatureAccess& features;
    FeatureId id;

    HRESULT Get(ULONG* value, BOOL* autoOn, BOOL* onePush) const;
    HRESULT Set(ULONG value, BOOL autoOn, BOOL onePush) const;
    HRESULT GetRange(ULONG* min, ULONG* max, BOOL* autoOn, BOOL* onePush) const;
};

/// A feature that is only switched on (mode Manual) or off (mode Off).
struct SwitchedFeature {
    CFeatureAccess& features;
    FeatureId id;

    /// TRUE when the mode is Manual; FALSE otherwise, after a failure too.
    HRESULT GetOnOff(BOOL* on) const;
    /// TRUE for Manual, FALSE for Off; anything else leaves `*on` alone.
    HRESULT GetOnOffIfKnown(BOOL* on) const;
    /// Manual when `on` is exactly 1, else Off.
    HRESULT SetOnOff(BOOL on) const;
};

}  // namespace kolmfluxor
