#pragma once
/// @file  The built module and the simulated driver, loaded as a host loads them.

#include <string>

#include <windows.h>

#include <unknwn.h>

#include "ksproxy/simulator_control.h"

namespace kolmfluxor::test {

/// The module under test: kolmfluxor.dll from the folder of the test program, with the stand-in ksproxy.ax before it.
///
/// Loaded once in a process and kept. A file that is missing ends the test program with a message.
class CModule {
public:
    static const CModule& Get();

    [[nodiscard]] HRESULT GetClassObject(REFCLSID classId, REFIID riid, void** out) const;
    [[nodiscard]] HRESULT CanUnloadNow() const;
    [[nodiscard]] HRESULT RegisterServer() const;
    [[nodiscard]] HRESULT UnregisterServer() const;

    /// Creates an object of a class through its class factory.
    [[nodiscard]] HRESULT Create(REFCLSID classId, IUnknown* outer, REFIID riid, void** out) const;

    /// A private simulated camera in its factory state. @param variant  L"mono" or L"color"
    [[nodiscard]] kolmsim::ISimulatedCamera* OpenCamera(const wchar_t* variant) const;
    /// The camera behind a device handle, or null.
    [[nodiscard]] kolmsim::ISimulatedCamera* CameraOfHandle(HANDLE handle) const;

    /// Full path of the DLL.
    [[nodiscard]] const std::wstring& Path() const { return m_path; }

    /// Full path of a file in the folder of the test program.
    [[nodiscard]] static std::wstring BesideTheTests(const std::wstring& name);

private:
    CModule();

    std::wstring m_path;
    HMODULE m_simulator;
    HMODULE m_module;
};

}  // namespace kolmfluxor::test
