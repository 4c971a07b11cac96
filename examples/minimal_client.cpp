/// @file  The smallest client: finds a camera, shows what it is, moves its gain by one step and back.
///
/// It needs the headers in include/kolmfluxor and the platform's, and links with strmiids, ole32 and uuid. The module
/// must be registered (regsvr32 kolmfluxor.dll); nothing of it is linked: the capture filter brings the interface
/// along.

#include <cstdio>

#include <windows.h>

#include <objbase.h>
#include <strmif.h>
#include <uuids.h>
#include <wrl/client.h>

#include <kolmfluxor/identifiers.h>
#include <kolmfluxor/property_set.h>

namespace {

using kolmfluxor::IKolmFluxorPropertySet;
using Microsoft::WRL::ComPtr;

/// Reports a call that failed.
///
/// With this interface every result but S_OK is a failure, S_FALSE too: do not test it with FAILED().
bool Succeeded(HRESULT hr, const char* call) {
    if (hr != S_OK) {
        std::fprintf(stderr, "%s: 0x%08lX\n", call, static_cast<unsigned long>(hr));
    }
    return hr == S_OK;
}

/// The property set of the first capture device that offers it; null when none does.
///
/// It is an interface of the capture filter, so it keeps the filter, and with it the camera, open.
ComPtr<IKolmFluxorPropertySet> FindCamera() {
    ComPtr<ICreateDevEnum> devices;
    ComPtr<IEnumMoniker> monikers;
    if (!Succeeded(::CoCreateInstance(CLSID_SystemDeviceEnum, nullptr, CLSCTX_INPROC_SERVER, __uuidof(ICreateDevEnum),
                                      reinterpret_cast<void**>(devices.GetAddressOf())),
                   "CoCreateInstance") ||
        devices->CreateClassEnumerator(CLSID_VideoInputDeviceCategory, monikers.GetAddressOf(), 0) != S_OK) {
        return nullptr;  // S_FALSE with a null enumerator: there is no device at all
    }
    ComPtr<IMoniker> moniker;
    while (monikers->Next(1, moniker.ReleaseAndGetAddressOf(), nullptr) == S_OK) {
        ComPtr<IBaseFilter> filter;
        ComPtr<IKolmFluxorPropertySet> camera;
        if (moniker->BindToObject(nullptr, nullptr, __uuidof(IBaseFilter),
                                  reinterpret_cast<void**>(filter.GetAddressOf())) == S_OK &&
            filter->QueryInterface(kolmfluxor::IID_IKolmFluxorPropertySet,
                                   reinterpret_cast<void**>(camera.GetAddressOf())) == S_OK) {
            return camera;
        }  // else a webcam or the like, or a device in use
    }
    return nullptr;
}

bool ShowCameraInfo(IKolmFluxorPropertySet& camera) {
    char* texts[3] = {};
    ULONG serialNumber = 0;
    const HRESULT hr = camera.GetCameraInfo(&texts[0], &texts[1], &texts[2], &serialNumber);
    if (hr == S_OK) {
        std::printf("camera: %s %s\ndriver: %s\nserial number: %lu\n", texts[0], texts[1], texts[2], serialNumber);
    }
    for (char* text : texts) {
        ::CoTaskMemFree(text);  // texts are the caller's; freeing null does nothing
    }
    return Succeeded(hr, "GetCameraInfo");
}

/// Moves the gain to another value and back. Values are in the camera's own units.
bool MoveGain(IKolmFluxorPropertySet& camera) {
    ULONG min = 0;
    ULONG max = 0;
    ULONG before = 0;
    BOOL autoOn = FALSE;
    BOOL onePush = FALSE;
    if (!Succeeded(camera.GetGainRange(&min, &max, &autoOn, &onePush), "GetGainRange") ||
        !Succeeded(camera.GetGain(&before, &autoOn, &onePush), "GetGain")) {
        return false;
    }
    std::printf("gain: %lu (%lu to %lu)\n", before, min, max);

    const ULONG other = before < max ? before + 1 : min;
    ULONG after = 0;
    BOOL autoAfter = FALSE;
    BOOL onePushAfter = FALSE;
    const bool moved = Succeeded(camera.SetGain(other, FALSE, FALSE), "SetGain") &&
                       Succeeded(camera.GetGain(&after, &autoAfter, &onePushAfter), "GetGain");
    if (moved) {
        std::printf("gain: %lu\n", after);
    }
    // Back to what the user had, the automatic mode included, whatever happened in between.
    const bool restored = Succeeded(camera.SetGain(before, autoOn, onePush), "SetGain");
    if (restored) {
        std::printf("gain: %lu again\n", before);
    }
    return moved && restored;
}

}  // namespace

int main() {
    if (FAILED(::CoInitializeEx(nullptr, COINIT_APARTMENTTHREADED))) {
        return 1;
    }
    bool done = false;
    if (const ComPtr<IKolmFluxorPropertySet> camera = FindCamera(); camera == nullptr) {
        std::fprintf(stderr, "no capture device offers the property set: is the module registered?\n");
    } else {
        done = ShowCameraInfo(*camera.Get()) && MoveGain(*camera.Get());
    }
    ::CoUninitialize();  // after the last interface is released
    return done ? 0 : 1;
}
