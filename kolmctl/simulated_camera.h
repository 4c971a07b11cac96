#pragma once
/// @file  The simulated camera: its files beside this program, its device names, and its request log.

#include <string>
#include <string_view>

#include <windows.h>

#include <strmif.h>

#include "ksproxy/simulator_control.h"

namespace kolmctl {

/// The commands that register the module and the simulated camera, one a line, for an error's hint.
[[nodiscard]] std::string HowToRegister();

/// The friendly name of the simulated camera of a variant, "mono" or "color".
[[nodiscard]] std::wstring SimulatedCameraName(std::string_view variant);

/// Loads the stand-in driver that comes with this program, so that the module binds to it and to no other.
///
/// @throws DeviceError when it is not there or cannot be loaded
void PreloadSimulator();

/// The simulated camera behind a capture filter; null for any other device.
///
/// It belongs to the filter: do not close it.
[[nodiscard]] kolmsim::ISimulatedCamera* SimulatedCameraOf(IBaseFilter& filter);

}  // namespace kolmctl
