// NOLINTNEXTLINE(bugprone-reserved-identifier): the platform's own name
#define __STREAMS__  // the platform's header hides IKsObject without it

#include "simulated_camera.h"

#include <cstring>

#include <ks.h>

#include <ksproxy.h>
#include <wrl/client.h>

#include "errors.h"
#include "hresult_text.h"
#include "text.h"

namespace kolmctl {
namespace {

constexpr wchar_t kStandIn[] = L"simulator\\ksproxy.ax";

/// Full path of a file in this program's folder.
std::wstring BesideTheProgram(std::wstring_view name) {
    std::wstring path(32768, L'\0');  // the longest path there is
    path.resize(::GetModuleFileNameW(nullptr, path.data(), static_cast<DWORD>(path.size())));
    return path.substr(0, path.find_last_of(L'\\') + 1).append(name);
}

}  // namespace

std::string HowToRegister() {
    return "register the module and the simulated camera, once:\n"
           "  regsvr32 \"" +
           ToUtf8(BesideTheProgram(L"kolmfluxor.dll")) + "\"\n  regsvr32 \"" +
           ToUtf8(BesideTheProgram(L"simulator\\kolmsimcam.ax")) + "\"";
}

std::wstring SimulatedCameraName(std::string_view variant) {
    return L"KolmFluxor simulated camera (" + ToUtf16(variant) + L")";
}

void PreloadSimulator() {
    const std::wstring path = BesideTheProgram(kStandIn);
    if (::LoadLibraryW(path.c_str()) == nullptr) {
        const HRESULT hr = HRESULT_FROM_WIN32(::GetLastError());
        throw DeviceError("cannot load the simulated camera: " + HResultText(hr),
                          "it is expected in \"" + ToUtf8(path) + "\"");
    }
    // Never freed: the module's import binds to it for as long as the process lives.
}

kolmsim::ISimulatedCamera* SimulatedCameraOf(IBaseFilter& filter) {
    const HMODULE library = ::GetModuleHandleW(L"ksproxy.ax");
    const FARPROC address = library != nullptr ? ::GetProcAddress(library, "KolmSimCameraOfHandle") : nullptr;
    Microsoft::WRL::ComPtr<IKsObject> device;
    if (address == nullptr ||
        filter.QueryInterface(__uuidof(IKsObject), reinterpret_cast<void**>(device.GetAddressOf())) != S_OK) {
        return nullptr;
    }
    kolmsim::KolmSimCameraOfHandleFunction cameraOfHandle = nullptr;
    static_assert(sizeof cameraOfHandle == sizeof address);
    std::memcpy(&cameraOfHandle, &address, sizeof cameraOfHandle);
    return cameraOfHandle(device->KsGetObjectHandle());
}

}  // namespace kolmctl
