#pragma once
/// @file  The records that travel to the driver: a `KSPROPERTY` header and a payload, answered in place.
///
/// All words are 32-bit, little-endian; offsets count from the start of the header.

#include <cstddef>
#include <type_traits>

#include "driver/kernel_streaming.h"

namespace kolmfluxor {

static_assert(sizeof(KSPROPERTY) == 24 && offsetof(KSPROPERTY, Id) == 16 && offsetof(KSPROPERTY, Flags) == 20);

/// The record of a camera feature, the same for all of them.
struct KSPROPERTY_KOLM_FEATURE_ACCESS {
    KSPROPERTY Property;
    ULONG Value;       ///< the current value (GET), the new one (SET)
    ULONG Mode;        ///< one mode bit: the current mode (GET), the requested one (SET)
    ULONG ModeCaps;    ///< OR of the mode bits that the feature supports
    ULONG Min;         ///< lowest allowed value
    ULONG Max;         ///< highest allowed value
    ULONG AutoOn;      ///< 1 in a change to Auto, else 0
    ULONG Word48;      ///< the driver's own; carried unchanged
    ULONG OnePushOn;   ///< 1 in a change to OnePush, else 0
    ULONG Words56[2];  ///< the driver's own; carried unchanged
};
static_assert(sizeof(KSPROPERTY_KOLM_FEATURE_ACCESS) == 64);
static_assert(offsetof(KSPROPERTY_KOLM_FEATURE_ACCESS, Value) == 24);
static_assert(offsetof(KSPROPERTY_KOLM_FEATURE_ACCESS, Mode) == 28);
static_assert(offsetof(KSPROPERTY_KOLM_FEATURE_ACCESS, ModeCaps) == 32);
static_assert(offsetof(KSPROPERTY_KOLM_FEATURE_ACCESS, Min) == 36);
static_assert(offsetof(KSPROPERTY_KOLM_FEATURE_ACCESS, Max) == 40);
static_assert(offsetof(KSPROPERTY_KOLM_FEATURE_ACCESS, AutoOn) == 44);
static_assert(offsetof(KSPROPERTY_KOLM_FEATURE_ACCESS, OnePushOn) == 52);
static_assert(std::is_trivially_copyable_v<KSPROPERTY_KOLM_FEATURE_ACCESS>);

}  // namespace kolmfluxor
