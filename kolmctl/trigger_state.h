#pragma once
/// @file  The camera's trigger: modes by number, capabilities, current state.

#include <cstdint>
#include <string>
#include <vector>

#include <kolmfluxor/property_set.h>

#include "output.h"

namespace kolmctl {

/// Everything about the trigger that the interface tells, and the parameter, which it only takes.
struct TriggerState {
    ULONG inquiry;  ///< mask of capabilities
    ULONG mode;     ///< a mode's mask; 0 when the camera reports none
    bool on;
    bool activeHigh;
    bool inputHigh;  ///< level of the trigger input; false also where the camera does not tell
    ULONG parameter;

    [[nodiscard]] bool CanSwitch() const { return (inquiry & 0x20U) != 0; }
    [[nodiscard]] bool CanChangePolarity() const { return (inquiry & 0x40U) != 0; }
    [[nodiscard]] bool TellsInput() const { return (inquiry & 0x80U) != 0; }

    /// The numbers of the modes that the camera has, in ascending order.
    [[nodiscard]] std::vector<std::uint32_t> Modes() const;
};

/// The mask of a mode number.
///
/// @throws UsageError for anything but 0 to 5, 14 and 15
[[nodiscard]] ULONG ParseTriggerMode(const std::string& text);

/// "high" for active high, "low" for active low.
[[nodiscard]] const char* PolarityText(bool high);

/// @throws CallError when the camera refuses
[[nodiscard]] TriggerState ReadTrigger(kolmfluxor::IKolmFluxorPropertySet& camera);

/// State and capabilities in one record.
[[nodiscard]] Table TriggerTable(const TriggerState& state);

}  // namespace kolmctl
