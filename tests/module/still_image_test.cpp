/// @file  The still-image object of the built module as a COM object: slots, interfaces, aggregation, null arguments.

#include <gtest/gtest.h>

#include <cstring>

#include <kolmfluxor/identifiers.h>
#include <kolmfluxor/still_image.h>

#include <ocidl.h>

#include <strmif.h>

#include <qedit.h>
#include <wrl/client.h>

#include "support/module.h"
#include "support/outer_object.h"
#include "support/slots.h"

namespace kolmfluxor::test {
namespace {

using Microsoft::WRL::ComPtr;

class StillImageObject : public ::testing::Test {
protected:
    StillImageObject() { EXPECT_EQ(::CoInitializeEx(nullptr, COINIT_MULTITHREADED), S_OK); }
    ~StillImageObject() override {
        m_still.Reset();
        EXPECT_EQ(m_module.CanUnloadNow(), S_OK) << "objects were left behind";
        ::CoUninitialize();
    }

    void Create() {
        ASSERT_EQ(m_module.Create(CLSID_KolmStillImage, nullptr, IID_IKolmStillImage,
                                  reinterpret_cast<void**>(m_still.ReleaseAndGetAddressOf())),
                  S_OK);
    }

    const CModule& m_module = CModule::Get();
    ComPtr<IKolmStillImage> m_still;
};

TEST_F(StillImageObject, every_method_has_its_slot) {
    EXPECT_EQ(SlotOf(&IKolmStillImage::SelectDeviceByName), 3);
    EXPECT_EQ(SlotOf(&IKolmStillImage::SelectDeviceByIndex), 4);
    EXPECT_EQ(SlotOf(&IKolmStillImage::Close), 5);
    EXPECT_EQ(SlotOf(&IKolmStillImage::GetBufferSize), 6);
    EXPECT_EQ(SlotOf(&IKolmStillImage::Capture), 7);
    EXPECT_EQ(SlotOf(&IKolmStillImage::GetImageSize), 8);
    EXPECT_EQ(SlotOf(&IKolmStillImage::GetBitmapInfoHeader), 9);
    EXPECT_EQ(SlotOf(&IKolmStillImage::GetBitmapInfo), 10);
    EXPECT_EQ(SlotOf(&IKolmStillImage::GetBuffer), 11);
    EXPECT_EQ(SlotOf(&IKolmStillImage::ShowDevicePropertyPages), 12);
    EXPECT_EQ(SlotOf(&IKolmStillImage::ShowStreamPropertyPages), 13);
    EXPECT_EQ(SlotOf(&IKolmStillImage::GetDeviceUnknown), 14);
    EXPECT_EQ(SlotOf(&IKolmStillImage::GetDevicePath), 15);
    EXPECT_EQ(SlotOf(&IKolmStillImage::SetMediaTypeFile), 16);
}

TEST_F(StillImageObject, has_its_interface_and_no_other) {
    Create();
    EXPECT_EQ(m_module.CanUnloadNow(), S_FALSE);
    constexpr IID kInterface = {0x48AB0603, 0x9373, 0x4E62, {0xBA, 0x8A, 0xA2, 0xDB, 0xF6, 0xCD, 0x38, 0xED}};
    EXPECT_EQ(IID_IKolmStillImage, kInterface);
    EXPECT_EQ(__uuidof(IKolmStillImage), kInterface);
    ComPtr<IUnknown> unknown;
    ComPtr<IKolmStillImage> again;
    ComPtr<IUnknown> unknownAgain;
    ASSERT_EQ(m_still.As(&unknown), S_OK);
    ASSERT_EQ(unknown.As(&again), S_OK);
    ASSERT_EQ(again.As(&unknownAgain), S_OK);
    EXPECT_EQ(unknown.Get(), unknownAgain.Get());
    for (const IID& absent :
         {__uuidof(ISampleGrabberCB), __uuidof(ISpecifyPropertyPages), __uuidof(IPropertyPage), __uuidof(IBaseFilter),
          __uuidof(IDispatch), CLSID_KolmStillImage, IID_IKolmFluxorPropertySet}) {
        void* out = this;
        EXPECT_EQ(m_still->QueryInterface(absent, &out), E_NOINTERFACE);
        EXPECT_EQ(out, nullptr);
    }
    EXPECT_EQ(m_still->QueryInterface(IID_IUnknown, nullptr), E_POINTER);
}

TEST_F(StillImageObject, can_be_aggregated) {
    COuterObject outer;
    ComPtr<IUnknown> inner;
    ASSERT_EQ(m_module.Create(CLSID_KolmStillImage, outer.Unknown(), IID_IUnknown,
                              reinterpret_cast<void**>(inner.GetAddressOf())),
              S_OK);
    outer.Aggregate(inner.Get());
    EXPECT_EQ(outer.References(), 1u);
    {
        ComPtr<IKolmStillImage> still;
        ASSERT_EQ(outer.Unknown()->QueryInterface(IID_PPV_ARGS(&still)), S_OK);
        EXPECT_EQ(outer.References(), 2u);
        ComPtr<IUnknown> unknown;
        ASSERT_EQ(still.As(&unknown), S_OK);
        EXPECT_EQ(unknown.Get(), outer.Unknown());
        LONG bytes = 0;
        EXPECT_EQ(still->GetBufferSize(&bytes), S_OK);
        EXPECT_EQ(bytes, -1);
    }
    EXPECT_EQ(outer.References(), 1u);
    EXPECT_EQ(inner.Reset(), 0u);
}

TEST_F(StillImageObject, null_arguments_give_E_POINTER) {
    Create();
    LONG number = 0xDEAD;
    EXPECT_EQ(m_still->SelectDeviceByName(nullptr), E_POINTER);
    EXPECT_EQ(m_still->GetBufferSize(nullptr), E_POINTER);
    EXPECT_EQ(m_still->GetImageSize(nullptr, &number), E_POINTER);
    EXPECT_EQ(m_still->GetImageSize(&number, nullptr), E_POINTER);
    EXPECT_EQ(m_still->GetImageSize(nullptr, nullptr), E_POINTER);
    EXPECT_EQ(number, 0xDEAD);
    EXPECT_EQ(m_still->GetBitmapInfoHeader(nullptr), E_POINTER);
    EXPECT_EQ(m_still->GetBitmapInfo(nullptr), E_POINTER);
    EXPECT_EQ(m_still->GetBuffer(nullptr), E_POINTER);
    EXPECT_EQ(m_still->ShowDevicePropertyPages(nullptr, nullptr), E_POINTER);
    EXPECT_EQ(m_still->ShowStreamPropertyPages(nullptr, nullptr), E_POINTER);
    EXPECT_EQ(m_still->GetDeviceUnknown(nullptr), E_POINTER);
    EXPECT_EQ(m_still->GetDevicePath(nullptr), E_POINTER);
    EXPECT_EQ(m_still->SetMediaTypeFile(nullptr), S_OK) << "null means none";
}

TEST_F(StillImageObject, without_device_and_picture_tells_so) {
    Create();
    LONG bytes = 0;
    EXPECT_EQ(m_still->GetBufferSize(&bytes), S_OK);
    EXPECT_EQ(bytes, -1);
    LONG width = 0;
    LONG height = 0;
    EXPECT_EQ(m_still->GetImageSize(&width, &height), S_OK);
    EXPECT_EQ(width, -1);
    EXPECT_EQ(height, -1);
    BITMAPINFO info;
    std::memset(&info, 0xEE, sizeof info);
    EXPECT_EQ(m_still->GetBitmapInfo(&info), S_OK);
    BITMAPINFO expected{};
    expected.bmiHeader.biSizeImage = 0xFFFFFFFF;
    EXPECT_EQ(std::memcmp(&info, &expected, 44), 0);
    BITMAPINFOHEADER header;
    std::memset(&header, 0xEE, sizeof header);
    EXPECT_EQ(m_still->GetBitmapInfoHeader(&header), S_OK);
    EXPECT_EQ(std::memcmp(&header, &expected, 40), 0);
    BYTE byte = 0xEE;
    EXPECT_EQ(m_still->GetBuffer(&byte), E_FAIL);
    EXPECT_EQ(byte, 0xEE);
    EXPECT_EQ(m_still->ShowDevicePropertyPages(nullptr, L""), E_FAIL);
    EXPECT_EQ(m_still->ShowStreamPropertyPages(nullptr, L""), E_FAIL);
    auto* device = reinterpret_cast<IUnknown*>(0xDEADBEEF);
    EXPECT_EQ(m_still->GetDeviceUnknown(&device), E_FAIL);
    EXPECT_EQ(device, nullptr);
    BSTR path = nullptr;
    EXPECT_EQ(m_still->GetDevicePath(&path), S_OK);
    EXPECT_STREQ(path, L"");
    ::SysFreeString(path);
    EXPECT_EQ(m_still->Capture(), E_POINTER) << "the filter graph's answer to no filter";
    EXPECT_EQ(m_still->Close(), S_OK);
}

TEST_F(StillImageObject, on_a_machine_without_devices_a_selection_fails) {
    Create();
    EXPECT_EQ(m_still->SelectDeviceByIndex(0), E_FAIL);
    EXPECT_EQ(m_still->SelectDeviceByName(L""), E_FAIL);
}

}  // namespace
}  // namespace kolmfluxor::test
