/// @file  Entry points of kolmsimcam.ax.

#include <windows.h>

#include "base/boundary.h"
#include "base/class_factory.h"
#include "base/module_state.h"
#include "filter/capture_filter.h"
#include "filter/class_ids.h"
#include "filter/registration.h"

namespace {

using namespace kolmsim;

template <std::size_t index> kolmfluxor::CUnknown* CreateCamera(IUnknown* outer, HRESULT* hr) {
    return new CCaptureFilter(outer, kCameraClasses[index], hr);
}

constexpr kolmfluxor::CFactoryTemplate kClasses[] = {
    {.name = kCameraClasses[0].friendlyName, .classId = kCameraClasses[0].classId, .create = CreateCamera<0>},
    {.name = kCameraClasses[1].friendlyName, .classId = kCameraClasses[1].classId, .create = CreateCamera<1>},
};
static_assert(std::size(kClasses) == kCameraClasses.size());

}  // namespace

extern "C" BOOL WINAPI DllMain(HINSTANCE instance, DWORD reason, LPVOID) {
    if (reason == DLL_PROCESS_ATTACH) {
        ::DisableThreadLibraryCalls(instance);
        kolmfluxor::RecordModule(instance);
    }
    return TRUE;
}

STDAPI DllGetClassObject(REFCLSID classId, REFIID riid, LPVOID* out) {
    return kolmfluxor::GetClassObject(kClasses, classId, riid, out);
}

STDAPI DllCanUnloadNow() {
    return kolmfluxor::CanUnload() ? S_OK : S_FALSE;
}

STDAPI DllRegisterServer() {
    return kolmfluxor::AtBoundary(RegisterCameras);
}

STDAPI DllUnregisterServer() {
    return kolmfluxor::AtBoundary(UnregisterCameras);
}
