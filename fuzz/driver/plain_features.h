#pragma once
/// @file  The feature operations in plain words, played against what went through the driver's door.

#include <map>
#include <optional>

#include "driver/driver_door.h"

namespace kolmfluxor::fuzz {

/// What a mode number is on the wire, 0 for none.
[[nodiscard]] ULONG WireOf(ULONG mode);

/// Ids of all features, and one of none.
inline constexpr ULONG kFeatureIds[] = {256, 257, 258, 259, 260, 261, 262, 263, 264, 265, 266, 512, 514,  515,
                                        516, 517, 520, 521, 523, 526, 527, 528, 539, 542, 543, 544, 1032, 513};

/// Results and outputs that the operations must have. `wire` is the call's conversation; the cache stays over calls.
class CPlainFeatures {
public:
    struct Limits {
        ULONG min = 0;
        ULONG max = 0;
    };
    struct State {
        ULONG value = 0;
        ULONG mode = 10;
    };

    HRESULT Present(CConversation& wire, ULONG feature, BOOL* present);
    HRESULT Range(CConversation& wire, ULONG feature, Limits* limits);
    HRESULT Value(CConversation& wire, ULONG feature, State* state);
    HRESULT SetValue(CConversation& wire, ULONG feature, ULONG value);
    HRESULT SetValueAndMode(CConversation& wire, ULONG feature, ULONG value, ULONG mode);
    HRESULT Supported(CConversation& wire, ULONG feature, ULONG mode, BOOL* supported);
    HRESULT SetMode(CConversation& wire, ULONG feature, ULONG mode);

private:
    HRESULT Fresh(CConversation& wire, ULONG feature, Request* answer);
    HRESULT Cached(CConversation& wire, ULONG feature, Request* answer);

    std::map<ULONG, Request> m_first;
};

}  // namespace kolmfluxor::fuzz
