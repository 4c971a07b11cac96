#pragma once
/// @file  Scripted video input devices: a stand-in for the system device enumerator.

#include <memory>
#include <string>
#include <vector>

#include <windows.h>

#include <strmif.h>

#include "support/call_faults.h"
#include "support/stand_in_class.h"

namespace kolmfluxor::test {

/// A device as a moniker tells it.
struct ScriptedDevice {
    std::wstring displayName;
    std::wstring friendlyName;
    IBaseFilter* filter = nullptr;  ///< what it binds to; null: nothing
    HRESULT display = S_OK;         ///< results of the calls; a failing one gives nothing
    HRESULT storage = S_OK;
    HRESULT read = S_OK;
    HRESULT bind = S_OK;
    bool isNumber = false;  ///< the friendly name is no string
};

/// As long as it lives, these are this process's video input devices. The thread must have initialized COM.
class CScriptedDevices {
public:
    CScriptedDevices();
    ~CScriptedDevices();
    CScriptedDevices(const CScriptedDevices&) = delete;
    CScriptedDevices& operator=(const CScriptedDevices&) = delete;

    // The script
    std::vector<ScriptedDevice> devices;
    HRESULT create = S_OK;          ///< of the enumerator's class
    HRESULT enumerate = S_OK;       ///< of CreateClassEnumerator
    bool givesNothing = false;      ///< CreateClassEnumerator gives no enumerator
    HRESULT end = S_FALSE;          ///< of Next behind the last device, which gives none whatever it says
    CCallFaults* faults = nullptr;  ///< counts the calls, if there is one

    // What was seen
    std::vector<std::string> calls;
    ULONG references = 0;  ///< of enumerators, monikers and bags that are not released

private:
    /// Notes a call, and tells what becomes of it.
    CallFate Call(const char* name, HRESULT sound) {
        calls.emplace_back(name);
        return FateOf(faults, name, true, sound);
    }

    class CDeviceEnum;
    class CMonikers;
    class CMoniker;
    class CBag;
    template <class Interface> friend class CDevicePart;

    std::unique_ptr<CStandInClass> m_class;
};

}  // namespace kolmfluxor::test
