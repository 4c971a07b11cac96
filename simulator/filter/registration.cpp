#include "filter/registration.h"

#include <iterator>
#include <string>

#include <strmif.h>
#include <uuids.h>
#include <wrl/client.h>

#include "base/errors.h"
#include "base/guid_text.h"
#include "base/handles.h"
#include "base/module_state.h"
#include "filter/class_ids.h"

namespace kolmsim {
namespace {

using kolmfluxor::GuidText;
using kolmfluxor::HResultFromWin32;
using kolmfluxor::UniqueRegistryKey;
using Microsoft::WRL::ComPtr;

/// COM on this thread for as long as it lives; a thread that already has COM of another kind serves as well.
class ComScope {
public:
    ComScope() : m_initialized(SUCCEEDED(::CoInitialize(nullptr))) {}
    ~ComScope() {
        if (m_initialized) {
            ::CoUninitialize();
        }
    }
    ComScope(const ComScope&) = delete;
    ComScope& operator=(const ComScope&) = delete;

private:
    bool m_initialized;
};

std::wstring ModulePath() {
    std::wstring path(32768, L'\0');
    path.resize(::GetModuleFileNameW(kolmfluxor::ModuleInstance(), path.data(), static_cast<DWORD>(path.size())));
    return path;
}

/// Makes a key under HKEY_CLASSES_ROOT and sets one text value of it; a null name means the default value.
HRESULT SetText(const std::wstring& path, const wchar_t* name, const std::wstring& text) {
    HKEY opened = nullptr;
    LSTATUS status =
        ::RegCreateKeyExW(HKEY_CLASSES_ROOT, path.c_str(), 0, nullptr, 0, KEY_WRITE, nullptr, &opened, nullptr);
    if (status != ERROR_SUCCESS) {
        return HResultFromWin32(status);
    }
    const UniqueRegistryKey key(opened);
    const auto bytes = static_cast<DWORD>((text.size() + 1) * sizeof(wchar_t));
    status = ::RegSetValueExW(key.get(), name, 0, REG_SZ, reinterpret_cast<const BYTE*>(text.c_str()), bytes);
    return HResultFromWin32(status);
}

HRESULT RegisterClass(const CameraClass& camera) {
    const std::wstring key = L"CLSID\\" + GuidText(*camera.classId);
    HRESULT hr = SetText(key, nullptr, camera.friendlyName);
    if (hr == S_OK) {
        hr = SetText(key + L"\\InprocServer32", nullptr, ModulePath());
    }
    if (hr == S_OK) {
        hr = SetText(key + L"\\InprocServer32", L"ThreadingModel", L"Both");
    }
    return hr;
}

HRESULT OpenMapper(ComPtr<IFilterMapper2>* mapper) {
    return ::CoCreateInstance(CLSID_FilterMapper2, nullptr, CLSCTX_INPROC_SERVER, __uuidof(IFilterMapper2),
                              reinterpret_cast<void**>(mapper->ReleaseAndGetAddressOf()));
}

HRESULT RegisterDevice(IFilterMapper2* mapper, const CameraClass& camera) {
    const REGPINTYPES types[] = {{&MEDIATYPE_Video, &GUID_NULL}};
    REGFILTERPINS2 pin{};
    pin.dwFlags = REG_PINFLAG_B_OUTPUT;
    pin.nMediaTypes = static_cast<UINT>(std::size(types));
    pin.lpMediaType = types;
    pin.clsPinCategory = &PIN_CATEGORY_CAPTURE;

    REGFILTER2 filter{};
    filter.dwVersion = 2;
    filter.dwMerit = MERIT_DO_NOT_USE;  // chosen by name, never by a graph looking for a source
    filter.cPins2 = 1;
    filter.rgPins2 = &pin;
    return mapper->RegisterFilter(*camera.classId, camera.friendlyName, nullptr, &CLSID_VideoInputDeviceCategory,
                                  GuidText(*camera.classId).c_str(), &filter);
}

}  // namespace

HRESULT RegisterCameras() {
    const ComScope com;
    ComPtr<IFilterMapper2> mapper;
    HRESULT hr = OpenMapper(&mapper);
    for (std::size_t i = 0; SUCCEEDED(hr) && i < kCameraClasses.size(); ++i) {
        hr = RegisterClass(kCameraClasses[i]);
        if (SUCCEEDED(hr)) {
            hr = RegisterDevice(mapper.Get(), kCameraClasses[i]);
        }
    }
    return SUCCEEDED(hr) ? S_OK : hr;
}

HRESULT UnregisterCameras() {
    const ComScope com;
    ComPtr<IFilterMapper2> mapper;
    const HRESULT hr = OpenMapper(&mapper);
    for (const CameraClass& camera : kCameraClasses) {
        if (SUCCEEDED(hr)) {
            mapper->UnregisterFilter(&CLSID_VideoInputDeviceCategory, GuidText(*camera.classId).c_str(),
                                     *camera.classId);
        }
        ::RegDeleteTreeW(HKEY_CLASSES_ROOT, (L"CLSID\\" + GuidText(*camera.classId)).c_str());
    }
    return hr;
}

}  // namespace kolmsim
