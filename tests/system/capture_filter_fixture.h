#pragma once
/// @file  A test on the simulated camera's capture filter, registered and bound as a host does it.

// NOLINTNEXTLINE(bugprone-reserved-identifier): the platform's own name
#define __STREAMS__  // the platform's header hides IKsObject without it

#include <string>

#include <windows.h>

#include <strmif.h>
#include <winioctl.h>

#include <ks.h>
#include <ksproxy.h>
#include <wrl/client.h>

#include <gtest/gtest.h>

#include "ksproxy/simulator_control.h"
#include "support/module.h"

namespace kolmfluxor::test {

inline constexpr wchar_t kColorCameraName[] = L"KolmFluxor simulated camera (color)";
inline constexpr wchar_t kMonoCameraName[] = L"KolmFluxor simulated camera (mono)";

/// An export of a loaded library, or null.
template <class Function> Function Export(HMODULE library, const char* name) {
    return reinterpret_cast<Function>(reinterpret_cast<void*>(::GetProcAddress(library, name)));
}

/// Calls an entry point of the simulator's filter library, which is loaded once and stays; E_NOTIMPL when it lacks it.
HRESULT CallFilterLibrary(const char* entryPoint);

/// A video input device by its friendly name, bound to its filter; null when none is listed.
Microsoft::WRL::ComPtr<IBaseFilter> BindDevice(const std::wstring& friendlyName);

/// Registers module and capture filters, and fails when anything is left alive at the end.
class CaptureFilterTest : public ::testing::Test {
protected:
    void SetUp() override;
    void TearDown() override;

    /// Binds the filter under test, with a private camera in its factory state.
    void Bind(const wchar_t* name = kColorCameraName);

    /// The filter's one pin.
    Microsoft::WRL::ComPtr<IPin> Pin();

    /// The camera behind the filter.
    kolmsim::ISimulatedCamera* Camera();

    /// Waits until something holds, at most ten seconds; false when it does not.
    template <class Condition> static bool Await(Condition condition) {
        for (int round = 0; round < 2'000; ++round) {
            if (condition()) {
                return true;
            }
            ::Sleep(5);
        }
        return false;
    }

    const CModule& m_module = CModule::Get();
    Microsoft::WRL::ComPtr<IBaseFilter> m_filter;
};

}  // namespace kolmfluxor::test
