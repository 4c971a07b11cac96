/// @file  Still pictures of the simulated cameras through the real filter graph.

#include <algorithm>
#include <atomic>
#include <memory>
#include <thread>
#include <tuple>
#include <utility>
#include <vector>

#include <gmock/gmock.h>

#include "system/still_image_fixture.h"

#include <commctrl.h>
#include <uuids.h>
#include <vfwmsgs.h>

#include <kolmfluxor/property_set.h>

#include "frame/frame_page.h"
#include "frame/property_frame.h"
#include "frame/resource.h"
#include "support/own_desktop.h"

extern "C" const CLSID CLSID_NullRenderer;

namespace kolmfluxor::test {
namespace {

using Microsoft::WRL::ComPtr;

constexpr REFERENCE_TIME kFrameTime = 2'666'666;  // 3.75 fps

class StillImages : public StillImageTest {
protected:
    /// Sets the camera to a format, takes a picture, and checks every pixel.
    void ExpectExactPicture(CPinType type) {
        ASSERT_EQ(Config()->SetFormat(type.Type()), S_OK);
        const BITMAPINFOHEADER format = PresentType(Config().Get()).Bitmap();
        const DWORD y800 = MAKEFOURCC('Y', '8', '0', '0');
        const DWORD uyvy = MAKEFOURCC('U', 'Y', 'V', 'Y');
        const bool converts = format.biCompression == y800 || format.biCompression == uyvy;

        const Still still = Capture();

        EXPECT_EQ(still.width, format.biWidth);
        EXPECT_EQ(still.height, format.biHeight);
        EXPECT_EQ(still.header.biSize, sizeof(BITMAPINFOHEADER));
        EXPECT_EQ(still.header.biWidth, format.biWidth);
        EXPECT_EQ(still.header.biHeight, format.biHeight);
        EXPECT_EQ(still.header.biBitCount, converts ? 24 : format.biBitCount);
        EXPECT_EQ(still.header.biCompression, converts ? BI_RGB : format.biCompression);
        EXPECT_EQ(still.header.biSizeImage, still.pixels.size());
        EXPECT_TRUE(IsOneOfTheFirst(still.pixels, format, [&](const Bytes& sample) {
            if (format.biCompression == y800) return MonoAsBgr(sample, format.biWidth, format.biHeight);
            if (format.biCompression == uyvy) return UyvyAsBgr(sample, format.biWidth, format.biHeight);
            return sample;
        }));
    }

    void ExpectExactPictureOfEveryFormat() {
        const auto capabilities = Capabilities(Config().Get());
        EXPECT_GT(capabilities.size(), 10u);
        std::size_t slowest = 0;  // modes that do not go as slowly as a still picture asks for
        for (std::size_t i = 0; i < capabilities.size(); ++i) {
            CPinType type = capabilities[i].type;
            SCOPED_TRACE(::testing::Message() << "format " << i << ", " << std::hex << type.Video().dwBitErrorRate
                                              << ", fourcc " << type.Bitmap().biCompression);
            slowest += capabilities[i].caps.MaxFrameInterval < kFrameTime ? 1u : 0u;
            ExpectExactPicture(type);
        }
        EXPECT_GT(slowest, 0u);
    }
};

TEST_F(StillImages, a_Y800_picture_of_640x480_is_921600_bytes_of_BGR_whose_last_row_is_the_sensors_first) {
    Select();
    const BITMAPINFOHEADER format = PresentType(Config().Get()).Bitmap();
    ASSERT_EQ(format.biCompression, MAKEFOURCC('Y', '8', '0', '0'));

    const Still still = Capture();

    ASSERT_EQ(still.pixels.size(), 921600u);
    EXPECT_EQ(still.header.biBitCount, 24);
    EXPECT_EQ(still.header.biCompression, static_cast<DWORD>(BI_RGB));
    EXPECT_EQ(still.header.biSizeImage, 921600u);
    // The disc that travels does not come near the first row.
    const Bytes sample = Sample(format, 0);
    for (std::size_t x = 0; x < 640; ++x) {
        for (std::size_t channel = 0; channel < 3; ++channel) {
            ASSERT_EQ(still.pixels[(479 * 640 + x) * 3 + channel], sample[x]) << "column " << x;
        }
    }
}

TEST_F(StillImages, every_format_of_the_color_camera_comes_out_exactly) {
    Select();
    ExpectExactPictureOfEveryFormat();
}

TEST_F(StillImages, every_format_of_the_mono_camera_comes_out_exactly) {
    Select(kMonoCameraName);
    ExpectExactPictureOfEveryFormat();
}

TEST_F(StillImages, small_areas_of_the_sensor_come_out_exactly) {
    constexpr LONG kLeft = 8;
    constexpr LONG kTop = 4;
    constexpr LONG kHeight = 6;
    Select();
    ASSERT_TRUE(Camera()->SetFeatureWord(61, 24, 1));  // the driver accepts areas
    for (const WORD bits : {WORD{8}, WORD{16}}) {
        CPinType type = CapabilityOf(Config().Get(), 0x703, bits).type;
        BITMAPINFOHEADER whole = type.Bitmap();
        whole.biWidth = 640;
        whole.biHeight = 480;
        whole.biSizeImage = DWORD{640 * 480} * bits / 8;
        for (const LONG width : {4, 12, 36}) {
            SCOPED_TRACE(::testing::Message() << bits << " bits, width " << width);
            type.SetArea(kLeft, kTop, width, kHeight);
            ASSERT_EQ(Config()->SetFormat(type.Type()), S_OK);

            const Still still = Capture();

            EXPECT_EQ(still.width, width);
            EXPECT_EQ(still.height, kHeight);
            EXPECT_TRUE(IsOneOfTheFirst(still.pixels, whole, [&](const Bytes& sensor) {
                Bytes area;
                for (LONG y = kTop; y < kTop + kHeight; ++y) {
                    const auto row = sensor.begin() + (y * whole.biWidth + kLeft) * bits / 8;
                    area.insert(area.end(), row, row + width * bits / 8);
                }
                return bits == 8 ? MonoAsBgr(area, width, kHeight) : UyvyAsBgr(area, width, kHeight);
            }));
        }
    }
}

TEST_F(StillImages, the_stream_runs_at_3_75_frames_per_second) {
    Select();
    EXPECT_NE(PresentType(Config().Get()).Video().AvgTimePerFrame, kFrameTime);

    Capture();

    EXPECT_EQ(PresentType(Config().Get()).Video().AvgTimePerFrame, kFrameTime);
}

TEST_F(StillImages, a_setting_shows_in_the_next_picture) {
    Select();
    Capture();
    ASSERT_TRUE(Camera()->SetFeatureWord(0, 24, 0));    // gain
    ASSERT_TRUE(Camera()->SetFeatureWord(4, 24, 255));  // brightness: 239 above neutral
    ASSERT_TRUE(Camera()->SetFeatureWord(5, 24, 1));    // shutter

    const Still still = Capture();

    EXPECT_THAT(still.pixels, ::testing::Each(::testing::Ge(239)));
}

TEST_F(StillImages, what_is_dragged_on_a_page_shows_in_the_next_picture) {
    constexpr int kSliders[] = {1073, 1079};  // brightness, gain
    COwnDesktop::Enter();
    Select();
    const Still before = Capture();
    {
        std::vector<std::unique_ptr<kolmctl::FramePage>> pages;
        pages.push_back(std::make_unique<kolmctl::FramePage>(CLSID_KolmFluxorPage_Exposure));
        pages.back()->Connect(*m_filter.Get());
        kolmctl::PropertyFrame frame(L"frame", std::move(pages));
        frame.Show();
        frame.Settle();
        HWND const dialog = ::GetWindow(::GetDlgItem(frame.Window(), IDC_PAGE_AREA), GW_CHILD);
        for (const int slider : kSliders) {
            HWND const bar = ::GetDlgItem(dialog, slider);
            const LRESULT highest = ::SendMessageA(bar, TBM_GETRANGEMAX, 0, 0);
            ::SendMessageA(bar, TBM_SETPOS, TRUE, highest);
            ::SendMessageA(dialog, WM_HSCROLL, MAKEWPARAM(TB_THUMBTRACK, highest), reinterpret_cast<LPARAM>(bar));
        }
    }

    const Still after = Capture();

    ASSERT_EQ(after.pixels.size(), before.pixels.size());
    for (std::size_t i = 0; i < after.pixels.size(); ++i) {
        ASSERT_GE(after.pixels[i], std::max<int>(before.pixels[i], 200)) << "byte " << i;
    }
}

TEST_F(StillImages, a_UYVY_picture_without_color_is_gray) {
    Select();
    CPinType type = CapabilityOf(Config().Get(), 0x001, 16).type;
    ASSERT_EQ(Config()->SetFormat(type.Type()), S_OK);
    ASSERT_TRUE(Camera()->SetFeatureWord(3, 24, 1));  // test image 1, a ramp of grays
    const Bytes sample = Sample(type.Bitmap(), 0);
    ASSERT_EQ(sample[0], 128);
    ASSERT_EQ(sample[2], 128);

    const Still still = Capture();

    for (std::size_t pixel = 0; pixel < 320 * 240; ++pixel) {
        const std::size_t out = ((239 - pixel / 320) * 320 + pixel % 320) * 3;
        const std::uint8_t gray = sample[pixel * 2 + 1];
        ASSERT_TRUE(still.pixels[out] == gray && still.pixels[out + 1] == gray && still.pixels[out + 2] == gray)
            << "pixel " << pixel;
    }
}

TEST_F(StillImages, the_graph_is_gone_after_a_picture) {
    Select();
    Capture();

    ComPtr<IPin> other;
    EXPECT_EQ(Pin()->ConnectedTo(other.GetAddressOf()), VFW_E_NOT_CONNECTED);
    FILTER_INFO info{};
    ASSERT_EQ(m_filter->QueryFilterInfo(&info), S_OK);
    EXPECT_EQ(info.pGraph, nullptr);
}

TEST_F(StillImages, the_host_that_has_the_device_in_a_graph_gets_the_codes_of_the_second_graph) {
    Select();
    Capture();
    ComPtr<IGraphBuilder> graph;
    ASSERT_EQ(::CoCreateInstance(CLSID_FilterGraph, nullptr, CLSCTX_INPROC_SERVER, IID_PPV_ARGS(&graph)), S_OK);
    ASSERT_EQ(graph->AddFilter(m_filter.Get(), L"mine"), S_OK);
    ComPtr<IBaseFilter> renderer;
    ASSERT_EQ(::CoCreateInstance(CLSID_NullRenderer, nullptr, CLSCTX_INPROC_SERVER, IID_PPV_ARGS(&renderer)), S_OK);
    ASSERT_EQ(graph->AddFilter(renderer.Get(), L"renderer"), S_OK);
    ComPtr<IPin> in;
    ASSERT_EQ(renderer->FindPin(L"In", in.GetAddressOf()), S_OK);
    ASSERT_EQ(graph->ConnectDirect(Pin().Get(), in.Get(), nullptr), S_OK);

    EXPECT_TRUE(FAILED(m_still->Capture()));

    LONG bytes = 0;
    EXPECT_EQ(m_still->GetBufferSize(&bytes), S_OK);
    EXPECT_EQ(bytes, 921600) << "a failure before the picture keeps the one before";
}

TEST_F(StillImages, positions_are_those_of_the_enumeration) {
    for (const ULONG position : {0ul, 1ul}) {
        ASSERT_EQ(m_still->SelectDeviceByIndex(position), S_OK);
        BSTR path = nullptr;
        ASSERT_EQ(m_still->GetDevicePath(&path), S_OK);
        const std::wstring byIndex = path;
        ::SysFreeString(path);
        EXPECT_TRUE(byIndex.starts_with(L"@device:")) << position;
        const auto other = NewStillImage();
        EXPECT_EQ(other->SelectDeviceByIndex(1 - position), S_OK);
        ASSERT_EQ(other->GetDevicePath(&path), S_OK);
        EXPECT_NE(byIndex, path);
        ::SysFreeString(path);
    }
    EXPECT_EQ(m_still->SelectDeviceByIndex(2), S_FALSE);
    EXPECT_EQ(m_still->SelectDeviceByIndex(0xFFFFFFFF), S_FALSE);
}

TEST_F(StillImages, a_name_that_matches_nothing_keeps_the_device_and_reports_the_path_of_the_last_one) {
    ASSERT_EQ(m_still->SelectDeviceByIndex(1), S_OK);
    BSTR last = nullptr;
    ASSERT_EQ(m_still->GetDevicePath(&last), S_OK);
    ASSERT_EQ(m_still->SelectDeviceByIndex(0), S_OK);
    ComPtr<IUnknown> before;
    ASSERT_EQ(m_still->GetDeviceUnknown(before.GetAddressOf()), S_OK);

    for (const wchar_t* name : {L"no such camera", L"", L"kolmfluxor simulated camera (color)", L"KolmFluxor"}) {
        EXPECT_EQ(m_still->SelectDeviceByName(name), S_FALSE);
    }

    BSTR path = nullptr;
    ASSERT_EQ(m_still->GetDevicePath(&path), S_OK);
    EXPECT_STREQ(path, last);
    ::SysFreeString(path);
    ::SysFreeString(last);
    ComPtr<IUnknown> after;
    ASSERT_EQ(m_still->GetDeviceUnknown(after.GetAddressOf()), S_OK);
    EXPECT_EQ(before.Get(), after.Get());
}

TEST_F(StillImages, a_picture_comes_with_the_trigger_and_not_before) {
    constexpr std::uint32_t kIsoEnable = 0xF0F00614;
    constexpr std::uint32_t kPictures = 0xF1000274;  // counts what the camera has taken
    Select();
    const BITMAPINFOHEADER format = PresentType(Config().Get()).Bitmap();
    const Bytes first = MonoAsBgr(Sample(format, 0), format.biWidth, format.biHeight);
    const auto read = [this](std::uint32_t address) {
        std::uint32_t word = 0;
        EXPECT_TRUE(Camera()->PeekRegister(address, &word));
        return word;
    };
    ComPtr<IKolmFluxorPropertySet> camera;
    ASSERT_EQ(m_filter.As(&camera), S_OK);
    ASSERT_EQ(camera->SetTrigger(0x10000, 1, 0, 1), S_OK);  // on, mode 0
    const std::uint32_t before = read(kPictures);
    std::uint32_t triggers = 0;
    for (const bool bySoftware : {true, false}) {
        SCOPED_TRACE(bySoftware ? "software" : "input");
        std::atomic<HRESULT> result = E_PENDING;
        std::thread capture([&] {
            const HRESULT com = ::CoInitializeEx(nullptr, COINIT_MULTITHREADED);
            result = m_still->Capture();
            if (SUCCEEDED(com)) ::CoUninitialize();
        });
        EXPECT_TRUE(Await([&] { return read(kIsoEnable) != 0; })) << "the stream does not start";
        EXPECT_EQ(read(kPictures), before + triggers);
        EXPECT_EQ(result, E_PENDING) << "a picture without a trigger";

        if (bySoftware) {
            EXPECT_EQ(camera->WriteRegister(0xF0F0062C, 0x80000000), S_OK);
        } else {
            EXPECT_TRUE(Camera()->PulseTriggerInput());
        }

        if (!Await([&] { return result != E_PENDING; })) {
            ADD_FAILURE() << "the trigger brings no picture";
            std::ignore = camera->SetTrigger(0x10000, 0, 0, 1);  // lets the capture end
        }
        capture.join();
        EXPECT_EQ(result, S_OK);
        EXPECT_EQ(read(kPictures), before + ++triggers) << "one picture for each trigger";
        LONG bytes = 0;
        ASSERT_EQ(m_still->GetBufferSize(&bytes), S_OK);
        Bytes picture(static_cast<std::size_t>(std::max(bytes, 0L)));
        ASSERT_EQ(m_still->GetBuffer(picture.data()), S_OK);
        EXPECT_TRUE(picture == first);
    }
    EXPECT_EQ(camera->SetTrigger(0x10000, 0, 0, 1), S_OK);
    EXPECT_EQ(m_still->Capture(), S_OK) << "without the trigger again";
}

TEST_F(StillImages, two_objects_take_pictures_at_once) {
    const auto other = NewStillImage();
    Select();
    ASSERT_EQ(other->SelectDeviceByName(kMonoCameraName), S_OK);
    HRESULT otherResult = E_PENDING;
    LONG otherBytes = 0;

    std::thread thread([&] {
        const HRESULT com = ::CoInitializeEx(nullptr, COINIT_MULTITHREADED);
        for (int i = 0; i < 10; ++i) {
            otherResult = other->Capture();
            if (otherResult != S_OK) break;
        }
        std::ignore = other->GetBufferSize(&otherBytes);
        if (SUCCEEDED(com)) ::CoUninitialize();
    });
    for (int i = 0; i < 10; ++i) {
        EXPECT_EQ(Capture().pixels.size(), 921600u);
    }
    thread.join();

    EXPECT_EQ(otherResult, S_OK);
    EXPECT_EQ(otherBytes, 921600);
}

}  // namespace
}  // namespace kolmfluxor::test
