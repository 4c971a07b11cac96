/// @file  The simulated camera's capture filter as a host meets it: listed, bound, asked, released.

#include <cstdint>
#include <cstring>
#include <iterator>
#include <string>
#include <utility>

#include "system/capture_filter_fixture.h"  // first: the platform headers below need its windows.h

#include <amvideo.h>
#include <ocidl.h>
#include <uuids.h>

#include "kolmfluxor/identifiers.h"

namespace kolmfluxor::test {
namespace {

using kolmsim::ISimulatedCamera;
using Microsoft::WRL::ComPtr;

class CaptureFilter : public CaptureFilterTest {};

TEST_F(CaptureFilter, both_cameras_are_video_input_devices) {
    EXPECT_NE(BindDevice(kColorCameraName), nullptr);
    EXPECT_NE(BindDevice(kMonoCameraName), nullptr);
}

TEST_F(CaptureFilter, unregistering_takes_the_devices_away) {
    ASSERT_EQ(CallFilterLibrary("DllUnregisterServer"), S_OK);

    EXPECT_EQ(BindDevice(kColorCameraName), nullptr);
    EXPECT_EQ(BindDevice(kMonoCameraName), nullptr);
}

TEST_F(CaptureFilter, it_has_the_interfaces_of_the_proxy_and_no_others) {
    Bind();
    const IID present[] = {__uuidof(IUnknown),           __uuidof(IPersist),        __uuidof(IMediaFilter),
                           __uuidof(IBaseFilter),        __uuidof(IKsObject),       __uuidof(ISpecifyPropertyPages),
                           __uuidof(IAMFilterMiscFlags), IID_IKolmFluxorPropertySet};
    const IID absent[] = {__uuidof(IPin),
                          __uuidof(IDispatch),
                          __uuidof(IPropertyPage),
                          __uuidof(IAMStreamConfig),
                          __uuidof(IFileSourceFilter),
                          IID_IKolmStillImage};
    ComPtr<IUnknown> identity;
    ASSERT_EQ(m_filter.As(&identity), S_OK);

    for (std::size_t i = 0; i < std::size(present); ++i) {
        ComPtr<IUnknown> found;
        ASSERT_EQ(m_filter->QueryInterface(present[i], reinterpret_cast<void**>(found.GetAddressOf())), S_OK) << i;
        ComPtr<IUnknown> again;
        ASSERT_EQ(found->QueryInterface(__uuidof(IUnknown), reinterpret_cast<void**>(again.GetAddressOf())), S_OK) << i;
        EXPECT_EQ(again.Get(), identity.Get()) << i;
    }
    for (std::size_t i = 0; i < std::size(absent); ++i) {
        void* out = this;
        EXPECT_EQ(m_filter->QueryInterface(absent[i], &out), E_NOINTERFACE) << i;
        EXPECT_EQ(out, nullptr) << i;
    }
}

TEST_F(CaptureFilter, the_last_release_returns_zero) {
    Bind();
    EXPECT_EQ(m_filter.Detach()->Release(), 0U);
}

TEST_F(CaptureFilter, its_handle_reaches_a_simulated_camera) {
    Bind();
    ISimulatedCamera* camera = Camera();
    ASSERT_NE(camera, nullptr);

    std::uint8_t record[64] = {};
    std::memcpy(record, &PROPSETID_KolmFluxor, 16);
    record[20] = 1;  // GET of id 0, the gain
    using DeviceControl = HRESULT(WINAPI*)(HANDLE, ULONG, PVOID, ULONG, PVOID, ULONG, PULONG);
    const auto control = Export<DeviceControl>(::GetModuleHandleW(L"ksproxy.ax"), "KsSynchronousDeviceControl");
    ASSERT_NE(control, nullptr);
    ULONG returned = 0;
    camera->ClearLog();

    EXPECT_EQ(control(camera->Handle(), IOCTL_KS_PROPERTY, record, 64, record, 64, &returned), S_OK);

    EXPECT_EQ(returned, 64U);
    EXPECT_EQ(record[24], 64);  // factory gain
    EXPECT_EQ(camera->RequestCount(), 1U);
}

TEST_F(CaptureFilter, pages_are_those_of_the_plug_in) {
    const std::pair<const wchar_t*, ULONG> cameras[] = {{kColorCameraName, 8}, {kMonoCameraName, 7}};
    for (const auto& [name, count] : cameras) {
        Bind(name);
        ComPtr<ISpecifyPropertyPages> specify;
        ASSERT_EQ(m_filter.As(&specify), S_OK);
        CAUUID pages{};

        ASSERT_EQ(specify->GetPages(&pages), S_OK);

        ASSERT_EQ(pages.cElems, count);
        EXPECT_TRUE(pages.pElems[0] == CLSID_KolmFluxorPage_Format);
        ::CoTaskMemFree(pages.pElems);
    }
}

TEST_F(CaptureFilter, it_works_without_a_plug_in) {
    ASSERT_EQ(m_module.UnregisterServer(), S_OK);

    Bind();

    ComPtr<IUnknown> plugIn;
    EXPECT_EQ(m_filter->QueryInterface(IID_IKolmFluxorPropertySet, reinterpret_cast<void**>(plugIn.GetAddressOf())),
              E_NOINTERFACE);
    EXPECT_NE(Camera(), nullptr);
    ComPtr<ISpecifyPropertyPages> specify;
    ASSERT_EQ(m_filter.As(&specify), S_OK);
    CAUUID pages{};
    EXPECT_EQ(specify->GetPages(&pages), S_OK);
    EXPECT_EQ(pages.cElems, 0U);
    EXPECT_EQ(pages.pElems, nullptr);
}

TEST_F(CaptureFilter, a_plug_in_that_cannot_be_created_is_skipped_and_its_pages_come_from_the_registry) {
    wchar_t id[64] = L"";
    ::StringFromGUID2(CLSID_KolmFluxorPropertySet, id, 64);
    ASSERT_EQ(::RegDeleteTreeW(HKEY_CLASSES_ROOT, (std::wstring(L"CLSID\\") + id).c_str()), ERROR_SUCCESS);

    Bind();

    ComPtr<ISpecifyPropertyPages> specify;
    ASSERT_EQ(m_filter.As(&specify), S_OK);
    CAUUID pages{};
    ASSERT_EQ(specify->GetPages(&pages), S_OK);
    EXPECT_EQ(pages.cElems, 8U);
    ::CoTaskMemFree(pages.pElems);
}

TEST_F(CaptureFilter, its_pin_is_a_capture_output) {
    Bind();
    ComPtr<IEnumPins> pins;
    ASSERT_EQ(m_filter->EnumPins(pins.GetAddressOf()), S_OK);
    ComPtr<IPin> pin;
    ComPtr<IPin> more;
    ASSERT_EQ(pins->Next(1, pin.GetAddressOf(), nullptr), S_OK);
    EXPECT_EQ(pins->Next(1, more.GetAddressOf(), nullptr), S_FALSE);

    PIN_INFO info{};
    ASSERT_EQ(pin->QueryPinInfo(&info), S_OK);
    EXPECT_STREQ(info.achName, L"Capture");
    EXPECT_EQ(info.dir, PINDIR_OUTPUT);
    EXPECT_EQ(info.pFilter, m_filter.Get());
    info.pFilter->Release();

    ComPtr<IKsPropertySet> properties;
    GUID category{};
    DWORD returned = 0;
    ASSERT_EQ(pin.As(&properties), S_OK);
    ASSERT_EQ(
        properties->Get(AMPROPSETID_Pin, AMPROPERTY_PIN_CATEGORY, nullptr, 0, &category, sizeof category, &returned),
        S_OK);
    EXPECT_TRUE(category == PIN_CATEGORY_CAPTURE);
    EXPECT_EQ(returned, sizeof category);
}

TEST_F(CaptureFilter, its_formats_carry_the_iidc_mode) {
    Bind();
    ComPtr<IAMStreamConfig> config;
    ASSERT_EQ(Pin().As(&config), S_OK);
    int count = 0;
    int bytes = 0;
    ASSERT_EQ(config->GetNumberOfCapabilities(&count, &bytes), S_OK);
    ASSERT_GE(count, 1);
    ASSERT_EQ(bytes, static_cast<int>(sizeof(VIDEO_STREAM_CONFIG_CAPS)));

    VIDEO_STREAM_CONFIG_CAPS caps{};
    AM_MEDIA_TYPE* type = nullptr;
    ASSERT_EQ(config->GetStreamCaps(0, &type, reinterpret_cast<BYTE*>(&caps)), S_OK);

    ASSERT_EQ(type->cbFormat, sizeof(VIDEOINFOHEADER));
    const auto* video = reinterpret_cast<const VIDEOINFOHEADER*>(type->pbFormat);
    EXPECT_EQ(video->dwBitErrorRate, 0x0005U);  // format 0, mode 5: 640 x 480 mono
    EXPECT_EQ(video->bmiHeader.biWidth, 640);
    EXPECT_EQ(video->bmiHeader.biHeight, 480);
    EXPECT_EQ(type->lSampleSize, 640U * 480U);
    EXPECT_EQ(caps.MaxOutputSize.cx, 640);
    EXPECT_EQ(config->SetFormat(type), S_OK);
    ::CoTaskMemFree(type->pbFormat);
    ::CoTaskMemFree(type);
    EXPECT_EQ(config->GetStreamCaps(count, &type, reinterpret_cast<BYTE*>(&caps)), S_FALSE);
    EXPECT_EQ(type, nullptr);
}
}  // namespace
}  // namespace kolmfluxor::test
