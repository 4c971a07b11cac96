#pragma once
/// @file  A still-image object on scripted devices and a scripted graph.

#include <gtest/gtest.h>

#include <algorithm>
#include <optional>
#include <string>
#include <vector>

#include "media/still_image.h"
#include "support/scripted_devices.h"
#include "support/scripted_graph.h"

#include <uuids.h>
#include <vfwmsgs.h>
#include <wrl/client.h>

namespace kolmfluxor::test {

/// One device, "camera", that delivers two pictures of 3 x 2 pixels in Y800.
class StillFixture : public ::testing::Test {
protected:
    StillFixture() {
        EXPECT_EQ(::CoInitializeEx(nullptr, COINIT_MULTITHREADED), S_OK);
        m_devices.emplace();
        m_graph.emplace();
        m_devices->devices.push_back({.displayName = L"path", .friendlyName = L"camera", .filter = Device().Filter()});
        Device().formats = {FixedMode(3, 2, FourCc("Y800"), 8, 5)};
        m_graph->samples = {{1, 2, 3, 4, 5, 6}, {7, 8, 9, 10, 11, 12}};
        m_still = NewStillImage();
    }
    ~StillFixture() override {
        m_still.Reset();
        EXPECT_EQ(CBaseObject::ObjectsActive(), 0);
        m_graph.reset();
        m_devices.reset();
        ::CoUninitialize();
    }

    static Microsoft::WRL::ComPtr<IKolmStillImage> NewStillImage() {
        HRESULT hr = S_OK;
        CUnknown* const object = CKolmStillImage::CreateInstance(nullptr, &hr);
        EXPECT_EQ(hr, S_OK);
        Microsoft::WRL::ComPtr<IKolmStillImage> still;
        EXPECT_EQ(
            object->Inner()->QueryInterface(__uuidof(IKolmStillImage), reinterpret_cast<void**>(still.GetAddressOf())),
            S_OK);
        return still;
    }

    CScriptedFilter& Device() { return m_graph->device; }
    void Select() { ASSERT_EQ(m_still->SelectDeviceByName(L"camera"), S_OK); }

    /// The picture's bytes; empty when there is none.
    std::vector<BYTE> Picture() {
        LONG bytes = -2;
        EXPECT_EQ(m_still->GetBufferSize(&bytes), S_OK);
        std::vector<BYTE> picture(static_cast<std::size_t>(std::max(bytes, 0L)) + 1, 0xEE);
        EXPECT_EQ(m_still->GetBuffer(picture.data()), bytes >= 0 ? S_OK : E_FAIL);
        EXPECT_EQ(picture.back(), 0xEE);
        picture.pop_back();
        return picture;
    }

    std::wstring Path() {
        auto* path = reinterpret_cast<BSTR>(0xDEADBEEF);
        EXPECT_EQ(m_still->GetDevicePath(&path), S_OK);
        const std::wstring text(path, ::SysStringLen(path));
        ::SysFreeString(path);
        return text;
    }

    std::optional<CScriptedDevices> m_devices;
    std::optional<CScriptedGraph> m_graph;
    Microsoft::WRL::ComPtr<IKolmStillImage> m_still;
};

}  // namespace kolmfluxor::test
