#include "media/still_device.h"

#include <optional>

#include <oaidl.h>
#include <oleauto.h>
#include <uuids.h>

#include "base/handles.h"
#include "media/ansi_text.h"
#include "media/in_turn.h"

namespace kolmfluxor {
namespace {

using Microsoft::WRL::ComPtr;

constexpr std::size_t kDisplayNameCharacters = 255;  // 256 with the NUL

std::optional<std::string> ReadDisplayName(IMoniker& moniker) {
    LPOLESTR text = nullptr;
    const HRESULT hr = moniker.GetDisplayName(nullptr, nullptr, &text);
    const UniqueCoTaskMem<OLECHAR> owned(text);
    if (FAILED(hr) || text == nullptr) return std::nullopt;
    return ToThreadAnsi(text).substr(0, kDisplayNameCharacters);
}

std::optional<std::string> ReadFriendlyName(IMoniker& moniker) {
    ComPtr<IPropertyBag> bag;
    HRESULT hr =
        moniker.BindToStorage(nullptr, nullptr, __uuidof(IPropertyBag), reinterpret_cast<void**>(bag.GetAddressOf()));
    if (FAILED(hr) || bag == nullptr) return std::nullopt;

    VARIANT value;
    ::VariantInit(&value);
    const ScopeExit clear([&] { ::VariantClear(&value); });
    value.vt = VT_BSTR;  // read as a string
    value.bstrVal = nullptr;
    hr = bag->Read(L"FriendlyName", &value, nullptr);
    if (FAILED(hr) || value.vt != VT_BSTR) return std::nullopt;
    return ToThreadAnsi(value.bstrVal != nullptr ? value.bstrVal : L"");
}

}  // namespace

HRESULT CStillDevice::SelectByName(const wchar_t* friendlyName) {
    return Select([wanted = ToThreadAnsi(friendlyName)](ULONG, const std::string& name) { return name == wanted; });
}

HRESULT CStillDevice::SelectByIndex(ULONG position) {
    return Select([position](ULONG at, const std::string&) { return at == position; });
}

HRESULT CStillDevice::Select(const Test& wanted) {
    ComPtr<ICreateDevEnum> devices;
    HRESULT hr = CreateInProcess(CLSID_SystemDeviceEnum, devices);
    if (FAILED(hr)) return hr;
    ComPtr<IEnumMoniker> monikers;
    hr = devices->CreateClassEnumerator(CLSID_VideoInputDeviceCategory, monikers.GetAddressOf(), 0);
    if (FAILED(hr)) return hr;
    if (monikers == nullptr) return E_FAIL;

    ComPtr<IMoniker> moniker;
    for (ULONG position = 0;; ++position) {
        hr = monikers->Next(1, moniker.ReleaseAndGetAddressOf(), nullptr);
        if (hr != S_OK) return hr;
        if (moniker == nullptr) return E_UNEXPECTED;
        std::optional<std::string> displayName = ReadDisplayName(*moniker.Get());
        if (!displayName) continue;
        m_displayName = std::move(*displayName);
        const std::optional<std::string> friendlyName = ReadFriendlyName(*moniker.Get());
        if (friendlyName && wanted(position, *friendlyName)) return Bind(*moniker.Get());
    }
}

HRESULT CStillDevice::Bind(IMoniker& moniker) {
    ComPtr<IBaseFilter> filter;
    const HRESULT hr = Obtain(filter, [&] {
        return moniker.BindToObject(nullptr, nullptr, __uuidof(IBaseFilter),
                                    reinterpret_cast<void**>(filter.GetAddressOf()));
    });
    if (SUCCEEDED(hr)) m_filter = std::move(filter);
    return hr;
}

}  // namespace kolmfluxor
