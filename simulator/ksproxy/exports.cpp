/// @file  The stand-in's exports: the driver door, and the door for those who control the simulation.

#include <cstdint>
#include <new>
#include <span>

#include <windows.h>

#include <winioctl.h>

#include <ks.h>

#include "ksproxy/camera_registry.h"
#include "ksproxy/simulator_control.h"

namespace {

using namespace kolmsim;

/// Which rule of the driver contract a call breaks before its record is even looked at; null when none.
const char* Objection(ULONG ioControl, const void* in, ULONG inBytes, const void* out, ULONG outBytes,
                      const ULONG* returned) {
    if (ioControl != IOCTL_KS_PROPERTY) {
        return "not a property request";
    }
    if (in == nullptr || in != out) {
        return "property and data are not one buffer";
    }
    if (inBytes != outBytes) {
        return "property and data differ in size";
    }
    if (returned == nullptr) {
        return "no place for the count of returned bytes";
    }
    return nullptr;
}

/// Runs `body`; an exception must not cross the exported functions.
template <class Result, class Body> Result AtBoundary(Result onException, Body&& body) noexcept {
    try {
        return body();
    } catch (...) {
        ::SetLastError(ERROR_NOT_ENOUGH_MEMORY);
        return onException;
    }
}

}  // namespace

// Declared by name only: the platform's header would make it an import.
extern "C" HRESULT WINAPI KsSynchronousDeviceControl(HANDLE handle, ULONG ioControl, PVOID in, ULONG inBytes, PVOID out,
                                                     ULONG outBytes, PULONG returned) {
    if (returned != nullptr) {
        *returned = 0;
    }
    return AtBoundary<HRESULT>(E_OUTOFMEMORY, [&] {
        const auto camera = CameraOfHandle(handle);
        if (camera == nullptr) {
            return HResultOf(Status::invalidHandle);
        }
        const char* objection = Objection(ioControl, in, inBytes, out, outBytes, returned);
        const std::size_t bytes = in != nullptr ? inBytes : 0;
        return camera->Perform(std::span(static_cast<std::uint8_t*>(in), bytes), objection, returned);
    });
}

extern "C" ISimulatedCamera* __cdecl KolmSimOpenCamera(const wchar_t* variant, const wchar_t* stateFile) {
    return AtBoundary<ISimulatedCamera*>(nullptr, [&] { return OpenCamera(variant, stateFile); });
}

extern "C" ISimulatedCamera* __cdecl KolmSimCameraOfHandle(HANDLE handle) {
    return AtBoundary<ISimulatedCamera*>(nullptr, [&] { return CameraOfHandle(handle).get(); });
}
