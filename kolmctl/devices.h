#pragma once
/// @file  The system's video input devices.

#include <string>
#include <vector>

#include <windows.h>

#include <objidl.h>
#include <wrl/client.h>

namespace kolmctl {

/// A capture device as the system device enumerator tells it; nothing is opened yet.
struct Device {
    Microsoft::WRL::ComPtr<IMoniker> moniker;
    std::wstring friendlyName;
    std::wstring displayName;  ///< unique, stable for one machine
};

/// All video input devices in the system's order. Devices without a readable friendly name go by their display name.
///
/// @throws CallError when the device enumerator fails
[[nodiscard]] std::vector<Device> EnumerateDevices();

/// The one device that a name means: an exact friendly or display name, else a position in the list, counted from 0,
/// else a part of a friendly name; without case.
///
/// @throws DeviceError when there is none, or several
[[nodiscard]] const Device& ChooseDevice(const std::vector<Device>& devices, const std::wstring& name);

}  // namespace kolmctl
