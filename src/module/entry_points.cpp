/// @file  The module's entry points: `DllMain` and the four exports of a COM server.

#include <tuple>

#include "base/boundary.h"
#include "module/class_registration.h"
#include "module/class_table.h"
#include "module/media_registration.h"

using namespace kolmfluxor;

extern "C" BOOL WINAPI DllMain(HINSTANCE instance, DWORD reason, LPVOID /*reserved*/) {
    switch (reason) {
    case DLL_PROCESS_ATTACH:
        ::DisableThreadLibraryCalls(instance);
        RecordModule(instance);
        InitializeClasses(ClassTable(), TRUE);
        break;
    case DLL_PROCESS_DETACH:
        InitializeClasses(ClassTable(), FALSE);
        break;
    default:
        break;
    }
    return TRUE;
}

STDAPI DllGetClassObject(REFCLSID classId, REFIID riid, LPVOID* out) {
    return GetClassObject(ClassTable(), classId, riid, out);
}

STDAPI DllCanUnloadNow() {
    return CanUnload() ? S_OK : S_FALSE;
}

STDAPI DllRegisterServer() {
    return AtBoundary([] {
        const HRESULT hr = RegisterClasses(ClassTable());
        return hr != S_OK ? hr : RegisterMediaInterfaces();
    });
}

STDAPI DllUnregisterServer() {
    return AtBoundary([] {
        const HRESULT hr = UnregisterClasses(ClassTable());
        // Without the filter mapper DirectShow itself is not there, and the media keys are left as they are.
        if (hr == REGDB_E_CLASSNOTREG) return S_OK;
        std::ignore = UnregisterMediaInterfaces();  // keys that are gone already are no reason to fail
        return hr;
    });
}
