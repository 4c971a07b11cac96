#pragma once
/// @file  Choice of one of the system's video input devices.

#include <functional>
#include <string>

#include <windows.h>

#include <objidl.h>
#include <strmif.h>
#include <wrl/client.h>

namespace kolmfluxor {

/// The device that still pictures are taken from, and the name of the one that was looked at last.
class CStillDevice {
public:
    /// Selects the first device whose friendly name, in the thread's ANSI code page, equals this one, case included.
    ///
    /// @return  `S_OK`; `S_FALSE` when there is none; `E_FAIL` when there is no device at all; a code of the system's
    ///          list or of the binding. A search without a match and every failure keep the device as it was.
    [[nodiscard]] HRESULT SelectByName(const wchar_t* friendlyName);

    /// Selects the device at a position of the enumeration; 0 is the first. Results as above.
    [[nodiscard]] HRESULT SelectByIndex(ULONG position);

    void Release() noexcept { m_filter.Reset(); }

    /// The device's capture filter; null when none is selected. Not counted.
    [[nodiscard]] IBaseFilter* Filter() const noexcept { return m_filter.Get(); }

    /// Display name of the device that a selection looked at last, in the thread's ANSI code page; at most 255
    /// characters.
    [[nodiscard]] const std::string& DisplayName() const noexcept { return m_displayName; }

private:
    /// Whether a device is the wanted one, from its position and its friendly name in ANSI.
    using Test = std::function<bool(ULONG position, const std::string& friendlyName)>;

    HRESULT Select(const Test& wanted);
    HRESULT Bind(IMoniker& moniker);

    Microsoft::WRL::ComPtr<IBaseFilter> m_filter;
    std::string m_displayName;
};

}  // namespace kolmfluxor
