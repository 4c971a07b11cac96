#include "system/capture_filter_fixture.h"

#include <uuids.h>

namespace kolmfluxor::test {

using Microsoft::WRL::ComPtr;

HRESULT CallFilterLibrary(const char* entryPoint) {
    static const HMODULE library = ::LoadLibraryW(CModule::BesideTheTests(L"simulator\\kolmsimcam.ax").c_str());
    const auto function = Export<HRESULT(STDMETHODCALLTYPE*)()>(library, entryPoint);
    return function != nullptr ? function() : E_NOTIMPL;
}

ComPtr<IBaseFilter> BindDevice(const std::wstring& friendlyName) {
    ComPtr<ICreateDevEnum> devices;
    ComPtr<IEnumMoniker> monikers;
    ::CoCreateInstance(CLSID_SystemDeviceEnum, nullptr, CLSCTX_INPROC_SERVER, __uuidof(ICreateDevEnum),
                       reinterpret_cast<void**>(devices.GetAddressOf()));
    if (devices == nullptr ||
        devices->CreateClassEnumerator(CLSID_VideoInputDeviceCategory, monikers.GetAddressOf(), 0) != S_OK) {
        return nullptr;
    }
    ComPtr<IMoniker> moniker;
    while (monikers->Next(1, moniker.ReleaseAndGetAddressOf(), nullptr) == S_OK) {
        ComPtr<IPropertyBag> bag;
        VARIANT name;
        ::VariantInit(&name);
        if (moniker->BindToStorage(nullptr, nullptr, __uuidof(IPropertyBag),
                                   reinterpret_cast<void**>(bag.GetAddressOf())) != S_OK ||
            bag->Read(L"FriendlyName", &name, nullptr) != S_OK) {
            continue;
        }
        const bool found = friendlyName == name.bstrVal;
        ::VariantClear(&name);
        ComPtr<IBaseFilter> filter;
        if (found && moniker->BindToObject(nullptr, nullptr, __uuidof(IBaseFilter),
                                           reinterpret_cast<void**>(filter.GetAddressOf())) == S_OK) {
            return filter;
        }
    }
    return nullptr;
}

void CaptureFilterTest::SetUp() {
    ::SetEnvironmentVariableW(L"KOLMSIM_STATE", L"none");
    ASSERT_EQ(::CoInitializeEx(nullptr, COINIT_MULTITHREADED), S_OK);
    ASSERT_EQ(m_module.RegisterServer(), S_OK);
    ASSERT_EQ(CallFilterLibrary("DllRegisterServer"), S_OK);
}

void CaptureFilterTest::TearDown() {
    m_filter.Reset();
    EXPECT_EQ(CallFilterLibrary("DllCanUnloadNow"), S_OK) << "the filter left objects behind";
    EXPECT_EQ(m_module.CanUnloadNow(), S_OK) << "the plug-in left objects behind";
    EXPECT_EQ(CallFilterLibrary("DllUnregisterServer"), S_OK);
    EXPECT_EQ(m_module.UnregisterServer(), S_OK);
    ::CoUninitialize();
}

void CaptureFilterTest::Bind(const wchar_t* name) {
    m_filter = BindDevice(name);
    ASSERT_NE(m_filter, nullptr);
}

ComPtr<IPin> CaptureFilterTest::Pin() {
    ComPtr<IPin> pin;
    EXPECT_EQ(m_filter->FindPin(L"Capture", pin.GetAddressOf()), S_OK);
    return pin;
}

kolmsim::ISimulatedCamera* CaptureFilterTest::Camera() {
    ComPtr<IKsObject> ksObject;
    EXPECT_EQ(m_filter.As(&ksObject), S_OK);
    return m_module.CameraOfHandle(ksObject->KsGetObjectHandle());
}

}  // namespace kolmfluxor::test
