#include "devices.h"

#include <oaidl.h>
#include <oleauto.h>
#include <strmif.h>
#include <uuids.h>

#include "errors.h"
#include "text.h"

namespace kolmctl {
namespace {

using Microsoft::WRL::ComPtr;

/// A text of the device's property bag; empty when it has none of that name.
std::wstring DeviceProperty(IMoniker* moniker, const wchar_t* name) {
    ComPtr<IPropertyBag> bag;
    if (moniker->BindToStorage(nullptr, nullptr, __uuidof(IPropertyBag),
                               reinterpret_cast<void**>(bag.GetAddressOf())) != S_OK) {
        return {};
    }
    VARIANT value;
    ::VariantInit(&value);
    std::wstring text;
    if (bag->Read(name, &value, nullptr) == S_OK && value.vt == VT_BSTR && value.bstrVal != nullptr) {
        text = value.bstrVal;
    }
    ::VariantClear(&value);
    return text;
}

std::wstring DisplayName(IMoniker* moniker) {
    LPOLESTR name = nullptr;
    if (moniker->GetDisplayName(nullptr, nullptr, &name) != S_OK || name == nullptr) {
        return {};
    }
    std::wstring text = name;
    ::CoTaskMemFree(name);
    return text;
}

std::string Lines(const std::vector<const Device*>& devices) {
    std::string lines;
    for (const Device* device : devices) {
        lines +=
            (lines.empty() ? "" : "\n") + ("  " + ToUtf8(device->friendlyName)) + "  " + ToUtf8(device->displayName);
    }
    return lines;
}

template <class Test> std::vector<const Device*> Matches(const std::vector<Device>& devices, Test&& test) {
    std::vector<const Device*> matches;
    for (const Device& device : devices) {
        if (test(device)) {
            matches.push_back(&device);
        }
    }
    return matches;
}

}  // namespace

std::vector<Device> EnumerateDevices() {
    ComPtr<ICreateDevEnum> enumerator;
    Check(::CoCreateInstance(CLSID_SystemDeviceEnum, nullptr, CLSCTX_INPROC_SERVER, __uuidof(ICreateDevEnum),
                             reinterpret_cast<void**>(enumerator.GetAddressOf())),
          "cannot create the system device enumerator");

    std::vector<Device> devices;
    ComPtr<IEnumMoniker> monikers;
    const HRESULT hr = enumerator->CreateClassEnumerator(CLSID_VideoInputDeviceCategory, monikers.GetAddressOf(), 0);
    if (hr == S_FALSE) {
        return devices;  // an empty category
    }
    Check(hr, "cannot enumerate the video input devices");

    ComPtr<IMoniker> moniker;
    while (monikers->Next(1, moniker.ReleaseAndGetAddressOf(), nullptr) == S_OK) {
        Device device{moniker, DeviceProperty(moniker.Get(), L"FriendlyName"), DisplayName(moniker.Get())};
        if (device.friendlyName.empty()) {
            device.friendlyName = device.displayName;
        }
        devices.push_back(std::move(device));
    }
    return devices;
}

const Device& ChooseDevice(const std::vector<Device>& devices, const std::wstring& name) {
    auto matches = Matches(devices, [&](const Device& device) {
        return EqualWithoutCase(device.friendlyName, name) || EqualWithoutCase(device.displayName, name);
    });
    if (matches.empty()) {
        // A number beyond the list may still be a part of a name.
        if (const auto position = ParseNumber(ToUtf8(name)); position && *position < devices.size()) {
            return devices[*position];
        }
        matches =
            Matches(devices, [&](const Device& device) { return ContainsWithoutCase(device.friendlyName, name); });
    }
    if (matches.empty()) {
        throw DeviceError("no capture device is called \"" + ToUtf8(name) + "\"",
                          "\"kolmctl list\" shows the devices that there are");
    }
    if (matches.size() > 1) {
        throw DeviceError("several capture devices match \"" + ToUtf8(name) + "\":\n" + Lines(matches),
                          "give more of the name, or the display name at the end of the line");
    }
    return *matches.front();
}

}  // namespace kolmctl
