/// @file  The capture pin's list of formats, and setting one on an open pin.

#include <cstdint>
#include <set>
#include <string>
#include <tuple>
#include <utility>

#include "system/capture_filter_fixture.h"  // first: the platform headers below need its windows.h

#include <vfwmsgs.h>

#include "kolmfluxor/property_set.h"
#include "system/pin_formats.h"

namespace kolmfluxor::test {
namespace {

using Microsoft::WRL::ComPtr;

constexpr DWORD kY800 = 0x30303859;
constexpr DWORD kAy16 = 0x36315941;

class CaptureFormat : public CaptureFilterTest {
protected:
    void Open(const wchar_t* name = kColorCameraName) {
        Bind(name);
        ASSERT_EQ(Pin().As(&m_config), S_OK);
        ASSERT_EQ(m_filter.As(&m_camera), S_OK);
    }
    void TearDown() override {
        m_config.Reset();
        m_camera.Reset();
        CaptureFilterTest::TearDown();
    }

    std::uint32_t Register(std::uint32_t address) {
        ULONG value = 0;
        EXPECT_EQ(m_camera->ReadRegister(address, &value), S_OK);
        return value;
    }
    PinCapability Scalable(WORD bits = 8) { return CapabilityOf(m_config.Get(), 0x0700, bits); }

    ComPtr<IAMStreamConfig> m_config;
    ComPtr<IKolmFluxorPropertySet> m_camera;
};

TEST_F(CaptureFormat, each_listed_type_can_be_set_and_is_then_the_pins_and_the_cameras) {
    Open();
    std::set<std::tuple<DWORD, DWORD>> different;
    for (PinCapability& each : Capabilities(m_config.Get())) {
        const DWORD iidc = each.type.Video().dwBitErrorRate;
        SCOPED_TRACE(testing::Message() << std::hex << iidc << " " << each.type.Bitmap().biCompression);
        different.emplace(iidc, each.type.Bitmap().biCompression);

        ASSERT_EQ(m_config->SetFormat(each.type.Type()), S_OK);

        EXPECT_TRUE(PresentType(m_config.Get()) == each.type);
        EXPECT_EQ(Register(0xF0F00608), (iidc >> 8) << 29);
        EXPECT_EQ(Register(0xF0F00604), (iidc & 0xFF) << 29);
        EXPECT_EQ(Register(0xF0F00628), 0U) << "no mode error";
    }
    EXPECT_EQ(different.size(), Capabilities(m_config.Get()).size()) << "no entry twice";
    EXPECT_GE(different.size(), 30U);
}

TEST_F(CaptureFormat, capability_records_tell_fixed_modes_from_scalable_ones) {
    Open();
    for (PinCapability& each : Capabilities(m_config.Get())) {
        SCOPED_TRACE(testing::Message() << std::hex << each.type.Video().dwBitErrorRate);
        const VIDEO_STREAM_CONFIG_CAPS& caps = each.caps;
        EXPECT_EQ(each.IsScalable(), each.type.Video().dwBitErrorRate >> 8 == 7);
        EXPECT_TRUE(caps.guid == FORMAT_VideoInfo);
        EXPECT_GT(caps.CropGranularityX, 0);
        EXPECT_GT(caps.CropGranularityY, 0);
        EXPECT_GT(caps.CropAlignX, 0);
        EXPECT_GT(caps.CropAlignY, 0);
        EXPECT_LE(caps.MinFrameInterval, each.type.Video().AvgTimePerFrame);
        EXPECT_GE(caps.MaxFrameInterval, each.type.Video().AvgTimePerFrame);
        EXPECT_EQ(caps.MaxCroppingSize.cx, each.type.Bitmap().biWidth) << "as it leaves the factory";
        EXPECT_EQ(caps.MaxCroppingSize.cy, each.type.Bitmap().biHeight);
        EXPECT_EQ(each.type.Type()->lSampleSize, each.type.Bitmap().biSizeImage);
        if (each.IsScalable()) {
            const std::uint32_t base = 0xF0F08000 + 0x1000 * (each.type.Video().dwBitErrorRate & 0xFF);
            EXPECT_EQ(Register(base), static_cast<std::uint32_t>(caps.MaxOutputSize.cx << 16 | caps.MaxOutputSize.cy));
            EXPECT_EQ(Register(base + 4),
                      static_cast<std::uint32_t>(caps.CropGranularityX << 16 | caps.CropGranularityY));
            EXPECT_EQ(Register(base + 0x4C), static_cast<std::uint32_t>(caps.CropAlignX << 16 | caps.CropAlignY));
        }
    }
    EXPECT_EQ(Scalable().caps.MaxCroppingSize.cx, 1280);
    EXPECT_EQ(Scalable().caps.MaxCroppingSize.cy, 960);
}

TEST_F(CaptureFormat, a_mono_camera_offers_mono_alone) {
    Open(kMonoCameraName);
    auto list = Capabilities(m_config.Get());
    EXPECT_GE(list.size(), 15U);
    for (PinCapability& each : list) {
        const DWORD compression = each.type.Bitmap().biCompression;
        EXPECT_TRUE(compression == kY800 || compression == kAy16) << std::hex << compression;
        EXPECT_EQ(m_config->SetFormat(each.type.Type()), S_OK);
    }
}

TEST_F(CaptureFormat, what_the_camera_cannot_do_is_refused_and_changes_nothing) {
    Open();
    ASSERT_EQ(m_camera->SetProperty61(1), S_OK);
    const CPinType before = PresentType(m_config.Get());
    const auto refuse = [&](const char* what, CPinType type, auto change) {
        change(type);
        EXPECT_EQ(m_config->SetFormat(type.Type()), VFW_E_INVALIDMEDIATYPE) << what;
        EXPECT_EQ(Pin()->QueryAccept(type.Type()), S_FALSE) << what;
        EXPECT_TRUE(PresentType(m_config.Get()) == before) << what;
    };
    const CPinType fixed = before;
    const CPinType scalable = Scalable().type;
    refuse("audio", fixed, [](CPinType& t) { t.Type()->majortype = MEDIATYPE_Audio; });
    refuse("short block", fixed, [](CPinType& t) { t.Type()->cbFormat = sizeof(VIDEOINFOHEADER) - 1; });
    refuse("subtype", fixed, [](CPinType& t) { t.Type()->subtype = MEDIASUBTYPE_RGB24; });
    refuse("compression", fixed, [](CPinType& t) { t.Bitmap().biCompression = 0x32595559; });
    refuse("bits", fixed, [](CPinType& t) { t.Bitmap().biBitCount = 24; });
    refuse("width", fixed, [](CPinType& t) { t.Bitmap().biWidth = 641; });
    refuse("no width", fixed, [](CPinType& t) { t.Bitmap().biWidth = 0; });
    refuse("negative width", fixed, [](CPinType& t) { t.Bitmap().biWidth = -640; });
    refuse("lowest height", fixed, [](CPinType& t) { t.Bitmap().biHeight = LONG_MIN; });
    refuse("mode 0", fixed, [](CPinType& t) { t.Video().dwBitErrorRate = 0x0001; });
    refuse("format 3", fixed, [](CPinType& t) { t.Video().dwBitErrorRate = 0x0305; });
    refuse("negative time", fixed, [](CPinType& t) { t.Video().AvgTimePerFrame = -1; });
    refuse("a part of a fixed mode", fixed, [](CPinType& t) { t.Video().rcSource = {0, 0, 320, 240}; });
    refuse("position unit", scalable, [](CPinType& t) { t.SetArea(2, 0, 320, 240); });
    refuse("size unit", scalable, [](CPinType& t) { t.SetArea(0, 0, 324, 240); });
    refuse("beyond the sensor", scalable, [](CPinType& t) { t.SetArea(1000, 0, 320, 240); });
    refuse("larger than the sensor", scalable, [](CPinType& t) { t.SetArea(0, 0, 2560, 1920); });
    refuse("a corner beyond the sensor", scalable, [](CPinType& t) {
        t.SetArea(0, 0, 320, 240);
        t.Video().rcSource.right = 1281;
    });
    refuse("negative position", scalable, [](CPinType& t) { t.SetArea(-8, 0, 320, 240); });
    refuse("upside down", scalable, [](CPinType& t) { t.Video().rcSource = {0, 480, 640, 0}; });
    refuse("too slow", scalable, [](CPinType& t) { t.Video().AvgTimePerFrame = 5'333'334; });
    EXPECT_EQ(m_config->SetFormat(nullptr), E_POINTER);
}

TEST_F(CaptureFormat, a_rate_that_a_fixed_mode_lacks_becomes_its_nearest) {
    Open();
    CPinType fixed = CapabilityOf(m_config.Get(), 0x102, 8).type;  // 7.5 to 60 frames per second
    constexpr std::pair<REFERENCE_TIME, REFERENCE_TIME> kTimes[] = {
        {2'666'666, 1'333'333}, {5'333'334, 1'333'333}, {600'000, 666'666}, {166'665, 166'666}, {1, 166'666}};
    for (const auto& [asked, given] : kTimes) {
        fixed.Video().AvgTimePerFrame = asked;
        EXPECT_EQ(Pin()->QueryAccept(fixed.Type()), S_OK) << asked;
        EXPECT_EQ(m_config->SetFormat(fixed.Type()), S_OK) << asked;
        EXPECT_EQ(PresentType(m_config.Get()).Video().AvgTimePerFrame, given) << asked;
    }
}

TEST_F(CaptureFormat, an_area_is_taken_through_the_property_set_and_refused_without_its_switch) {
    Open();
    PinCapability wanted = Scalable(16);
    wanted.type.SetArea(16, 8, 320, 240);
    EXPECT_EQ(m_config->SetFormat(wanted.type.Type()), VFW_E_INVALIDMEDIATYPE);

    ASSERT_EQ(m_camera->ApplyMediaTypeComposite(Pin().Get(), wanted.type.Type(), &wanted.caps), S_OK);

    CPinType present = PresentType(m_config.Get());
    EXPECT_EQ(present.Video().rcSource.left, 16);
    EXPECT_EQ(present.Video().rcSource.bottom, 248);
    EXPECT_EQ(present.Bitmap().biWidth, 320);
    EXPECT_EQ(present.Type()->lSampleSize, 320U * 240 * 2);
    ULONG on = 1;
    EXPECT_EQ(m_camera->GetProperty61(&on), S_OK);
    EXPECT_EQ(on, 0U);
    EXPECT_EQ(Register(0xF0F08008), 16U << 16 | 8);
    EXPECT_EQ(Register(0xF0F0800C), 320U << 16 | 240);
    EXPECT_EQ(Register(0xF0F08010), 2U << 24);
    EXPECT_TRUE(Scalable(16).type == present) << "the list follows";
    EXPECT_EQ(m_config->SetFormat(present.Type()), S_OK) << "its present area needs no switch";
}

TEST_F(CaptureFormat, the_corner_of_the_rectangle_may_stay_behind) {
    Open();
    ASSERT_EQ(m_camera->SetProperty61(1), S_OK);
    CPinType type = Scalable().type;
    type.SetArea(0, 0, 320, 240);
    type.Video().rcSource.left = 16;  // the right edge stays where it was

    ASSERT_EQ(m_config->SetFormat(type.Type()), S_OK);

    EXPECT_EQ(Register(0xF0F08008), 16U << 16);
    EXPECT_EQ(Register(0xF0F0800C), 320U << 16 | 240) << "the size is the bitmap's";
}

TEST_F(CaptureFormat, registers_and_the_position_property_show_in_the_types) {
    Open();
    ASSERT_EQ(m_camera->WriteRegister(0xF0F00608, 7U << 29), S_OK);
    ASSERT_EQ(m_camera->WriteRegister(0xF0F00604, 3U << 29), S_OK);
    ASSERT_EQ(m_camera->WriteRegister(0xF0F0B00C, 64U << 16 | 32), S_OK);
    CPinType type = PresentType(m_config.Get());
    EXPECT_EQ(type.Video().dwBitErrorRate, 0x0703U);
    EXPECT_EQ(type.Bitmap().biWidth, 64);

    ASSERT_EQ(m_camera->SetImagePositionForMediaType(40, 30, type.Type()), S_OK);
    EXPECT_EQ(PresentType(m_config.Get()).Video().rcSource.left, 40);
    EXPECT_EQ(PresentType(m_config.Get()).Video().rcSource.bottom, 62);
    EXPECT_EQ(CapabilityOf(m_config.Get(), 0x0703, 8).type.Video().rcSource.top, 30);

    ASSERT_EQ(m_camera->WriteRegister(0xF0F00608, 4U << 29), S_OK);
    EXPECT_EQ(PresentType(m_config.Get()).Video().dwBitErrorRate, 0x0005U) << "no such format: the first of the list";
}

TEST_F(CaptureFormat, rgb_may_be_top_down_and_others_are_so_anyhow) {
    Open();
    CPinType rgb = CapabilityOf(m_config.Get(), 0x0004, 24).type;
    EXPECT_EQ(rgb.Bitmap().biHeight, 480) << "bottom-up unless asked otherwise";
    rgb.Bitmap().biHeight = -480;
    ASSERT_EQ(m_config->SetFormat(rgb.Type()), S_OK);
    EXPECT_EQ(PresentType(m_config.Get()).Bitmap().biHeight, -480);
    CPinType mono = CapabilityOf(m_config.Get(), 0x0005, 8).type;
    mono.Bitmap().biHeight = -480;
    ASSERT_EQ(m_config->SetFormat(mono.Type()), S_OK);
    EXPECT_EQ(PresentType(m_config.Get()).Bitmap().biHeight, 480);
}

TEST_F(CaptureFormat, a_type_that_names_no_mode_is_found_by_its_size) {
    Open();
    for (const DWORD noMode : {0UL, 0xFFFFFFFFUL, 0x0905UL, 0x0009UL}) {
        CPinType type = CapabilityOf(m_config.Get(), 0x0202, 8).type;
        type.Video().dwBitErrorRate = noMode;
        ASSERT_EQ(m_config->SetFormat(type.Type()), S_OK) << std::hex << noMode;
        EXPECT_EQ(PresentType(m_config.Get()).Video().dwBitErrorRate, 0x0202U);
    }
}

TEST_F(CaptureFormat, a_slow_bus_refuses_with_a_code_of_its_own) {
    Open();
    ASSERT_EQ(m_camera->SetIsoSpeed(0), S_OK);
    CPinType type = PresentType(m_config.Get());
    EXPECT_EQ(m_config->SetFormat(type.Type()), HRESULT_FROM_WIN32(ERROR_NO_SYSTEM_RESOURCES));
    type.Video().AvgTimePerFrame = 666'666;
    EXPECT_EQ(m_config->SetFormat(type.Type()), S_OK);
}

TEST_F(CaptureFormat, an_unplugged_camera_takes_no_format) {
    Open();
    CPinType type = PresentType(m_config.Get());
    Camera()->Plug(false);
    EXPECT_EQ(m_config->SetFormat(type.Type()), HRESULT_FROM_WIN32(ERROR_DEVICE_NOT_CONNECTED));
    Camera()->Plug(true);
}

TEST_F(CaptureFormat, a_camera_that_stays_powered_keeps_its_format) {
    wchar_t folder[MAX_PATH] = L"";
    ::GetTempPathW(MAX_PATH, folder);
    const std::wstring file = std::wstring(folder) + L"capture-format-test.camera";
    ::SetEnvironmentVariableW(L"KOLMSIM_STATE", file.c_str());
    Open();
    CPinType chosen = CapabilityOf(m_config.Get(), 0x0703, 12).type;
    EXPECT_EQ(m_config->SetFormat(chosen.Type()), S_OK);
    m_config.Reset();
    m_camera.Reset();
    m_filter.Reset();

    Open();

    EXPECT_TRUE(PresentType(m_config.Get()) == chosen);
    m_config.Reset();
    m_camera.Reset();
    m_filter.Reset();
    EXPECT_TRUE(::DeleteFileW(file.c_str()));
}

}  // namespace
}  // namespace kolmfluxor::test
