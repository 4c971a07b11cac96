#pragma once
/// @file  Isochronous transfer: bus speeds by name, the current settings.

#include <string>

#include <kolmfluxor/property_set.h>

#include "output.h"

namespace kolmctl {

/// The name of a speed index, as in "S400".
[[nodiscard]] std::string SpeedText(ULONG index);

/// The index of a speed named as in "S400" or "400".
///
/// @throws UsageError when there is none
[[nodiscard]] ULONG ParseSpeed(const std::string& text);

/// Speed and channel with their limits, as the camera has them now.
///
/// @throws CallError when the camera refuses one of them
[[nodiscard]] Table IsoTable(kolmfluxor::IKolmFluxorPropertySet& camera);

}  // namespace kolmctl
