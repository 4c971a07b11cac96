/// @file  Pictures in each of the capture pin's formats, areas, triggers, and what holds a stream back.

#include <algorithm>
#include <cstdint>
#include <vector>

#include "system/streaming_fixture.h"  // first: the platform headers below need its windows.h

#include <vfwmsgs.h>

#include "kolmfluxor/property_set.h"
#include "system/pin_formats.h"

namespace kolmfluxor::test {
namespace {

using Frame = std::vector<std::uint8_t>;
using Microsoft::WRL::ComPtr;

class StreamFormats : public StreamingFilter {
protected:
    void Build(std::size_t wanted, const wchar_t* name = kColorCameraName) {
        BuildGraph(wanted, name);
        ASSERT_EQ(Pin().As(&m_config), S_OK);
        ASSERT_EQ(m_filter.As(&m_camera), S_OK);
    }
    void TearDown() override {
        m_config.Reset();
        m_camera.Reset();
        StreamingFilter::TearDown();
    }

    /// The first picture after the start of the stream: the same for the same settings.
    Frame FirstPicture() {
        m_collector->Restart(1);
        RunUntilCollected();
        const auto frames = m_collector->Frames();
        return frames.empty() ? Frame() : frames.front();
    }

    std::uint32_t Register(std::uint32_t address) {
        std::uint32_t word = 0;
        EXPECT_TRUE(Camera()->PeekRegister(address, &word));
        return word;
    }
    bool Streams() { return Register(0xF0F00614) != 0; }
    std::size_t Collected() { return m_collector->Frames().size(); }

    ComPtr<IAMStreamConfig> m_config;
    ComPtr<IKolmFluxorPropertySet> m_camera;
};

/// Cuts an area out of a whole picture.
Frame Cut(const Frame& whole, const BITMAPINFOHEADER& bitmap, const RECT& area) {
    const auto bits = static_cast<std::size_t>(bitmap.biBitCount);
    const std::size_t stride = static_cast<std::size_t>(bitmap.biWidth) * bits / 8;
    const std::size_t row = static_cast<std::size_t>(area.right - area.left) * bits / 8;
    Frame part;
    for (LONG y = area.top; y < area.bottom; ++y) {
        // Uncompressed RGB with a positive height is bottom-up: its lines come from the lower edge of the area on.
        const bool bottomUp = bitmap.biCompression == BI_RGB;
        const LONG line = bottomUp ? bitmap.biHeight - area.bottom + (y - area.top) : y;
        const auto first = whole.begin() + static_cast<std::ptrdiff_t>(static_cast<std::size_t>(line) * stride +
                                                                       static_cast<std::size_t>(area.left) * bits / 8);
        part.insert(part.end(), first, first + static_cast<std::ptrdiff_t>(row));
    }
    return part;
}

TEST_F(StreamFormats, each_listed_type_streams_pictures_of_its_size) {
    for (const wchar_t* camera : {kColorCameraName, kMonoCameraName}) {
        Build(1, camera);
        for (PinCapability& each : Capabilities(m_config.Get())) {
            SCOPED_TRACE(testing::Message()
                         << std::hex << each.type.Video().dwBitErrorRate << " " << each.type.Bitmap().biCompression);
            ASSERT_EQ(m_config->SetFormat(each.type.Type()), S_OK);
            ComPtr<ISampleGrabber> grabber;
            ASSERT_EQ(m_grabberFilter.As(&grabber), S_OK);
            AM_MEDIA_TYPE connected{};
            ASSERT_EQ(grabber->GetConnectedMediaType(&connected), S_OK);
            EXPECT_TRUE(connected.subtype == each.type.Type()->subtype) << "the graph has been connected anew";
            ::CoTaskMemFree(connected.pbFormat);

            const Frame frame = FirstPicture();

            EXPECT_EQ(frame.size(), each.type.Type()->lSampleSize);
            EXPECT_FALSE(std::ranges::all_of(frame, [&](std::uint8_t level) { return level == frame[0]; }));
        }
        m_config.Reset();
        m_camera.Reset();
        m_control.Reset();
        m_grabberFilter.Reset();
        m_graph.Reset();
    }
}

TEST_F(StreamFormats, a_change_of_format_leaves_no_reference_on_the_filters_behind) {
    Build(1);
    std::vector<ComPtr<IBaseFilter>> filters;
    {
        ComPtr<IEnumFilters> all;
        ASSERT_EQ(m_graph->EnumFilters(all.GetAddressOf()), S_OK);
        ComPtr<IBaseFilter> filter;
        while (all->Next(1, filter.ReleaseAndGetAddressOf(), nullptr) == S_OK) {
            if (filter.Get() != m_filter.Get()) {
                filters.push_back(filter);
            }
        }
    }
    EXPECT_GE(filters.size(), 2u);
    for (PinCapability& each : Capabilities(m_config.Get())) {
        ASSERT_EQ(m_config->SetFormat(each.type.Type()), S_OK);
    }
    EXPECT_FALSE(FirstPicture().empty());

    m_config.Reset();
    m_control.Reset();
    m_grabberFilter.Reset();
    EXPECT_EQ(m_graph.Reset(), 0u);

    for (std::size_t i = 0; i < filters.size(); ++i) {
        EXPECT_EQ(filters[i].Reset(), 0u) << i;
    }
}

TEST_F(StreamFormats, an_area_is_cut_out_of_the_whole_picture_pixel_by_pixel) {
    Build(1);
    ASSERT_EQ(m_camera->SetProperty61(1), S_OK);
    ASSERT_EQ(m_camera->SetFeatureValue(265, 100), S_OK);  // gain: settings show in areas too
    for (PinCapability& each : Capabilities(m_config.Get())) {
        if (!each.IsScalable()) {
            continue;
        }
        SCOPED_TRACE(testing::Message() << std::hex << each.type.Video().dwBitErrorRate << " "
                                        << each.type.Bitmap().biCompression);
        CPinType whole = each.type;
        whole.SetArea(0, 0, each.caps.MaxOutputSize.cx, each.caps.MaxOutputSize.cy);
        ASSERT_EQ(m_config->SetFormat(whole.Type()), S_OK);
        const Frame full = FirstPicture();
        CPinType part = each.type;
        part.SetArea(3 * each.caps.CropAlignX, 5 * each.caps.CropAlignY, 4 * each.caps.CropGranularityX,
                     3 * each.caps.CropGranularityY);
        ASSERT_EQ(m_config->SetFormat(part.Type()), S_OK);

        EXPECT_EQ(FirstPicture(), Cut(full, whole.Bitmap(), part.Video().rcSource));
    }
}

TEST_F(StreamFormats, top_down_rgb_is_bottom_up_turned_over) {
    Build(1);
    CPinType rgb = CapabilityOf(m_config.Get(), 0x0004, 24).type;
    ASSERT_EQ(m_config->SetFormat(rgb.Type()), S_OK);
    const Frame up = FirstPicture();
    rgb.Bitmap().biHeight = -480;
    ASSERT_EQ(m_config->SetFormat(rgb.Type()), S_OK);

    const Frame down = FirstPicture();

    ASSERT_EQ(down.size(), up.size());
    EXPECT_TRUE(std::equal(down.begin(), down.begin() + 640 * 3, up.end() - 640 * 3)) << "first line";
    EXPECT_NE(down, up);
}

TEST_F(StreamFormats, the_area_moves_while_the_camera_streams) {
    Build(1);
    ASSERT_EQ(m_camera->SetProperty61(1), S_OK);
    ASSERT_EQ(m_camera->SetTestImage(1), S_OK);  // a ramp that stands still
    CPinType type = CapabilityOf(m_config.Get(), 0x0700, 8).type;
    type.SetArea(640, 0, 320, 240);
    ASSERT_EQ(m_config->SetFormat(type.Type()), S_OK);
    const Frame there = FirstPicture();
    type.SetArea(0, 0, 320, 240);
    ASSERT_EQ(m_config->SetFormat(type.Type()), S_OK);
    const Frame here = FirstPicture();
    ASSERT_NE(here, there);

    m_collector->Restart(1'000'000);
    ASSERT_GE(m_control->Run(), 0);
    ASSERT_TRUE(Await([&] { return Collected() > 0; }));
    EXPECT_EQ(m_collector->Frames().front(), here);
    EXPECT_EQ(m_camera->SetImagePositionForMediaType(640, 0, type.Type()), S_OK);

    EXPECT_TRUE(Await([&] { return m_collector->Frames().back() == there; }));
    EXPECT_EQ(m_control->Stop(), S_OK);
    EXPECT_EQ(PresentType(m_config.Get()).Video().rcSource.left, 640);
}

TEST_F(StreamFormats, transmission_is_enabled_while_the_graph_runs) {
    Build(1);
    EXPECT_FALSE(Streams());
    RunUntilCollected();
    EXPECT_FALSE(Streams()) << "stopped";
    ASSERT_GE(m_control->Run(), 0);
    EXPECT_TRUE(Await([&] { return Streams(); }));
    EXPECT_EQ(m_camera->SetIsoSpeed(1), HRESULT_FROM_WIN32(ERROR_BUSY));
    EXPECT_EQ(m_camera->SetFeatureValue(1032, 9), HRESULT_FROM_WIN32(ERROR_BUSY));
    ASSERT_GE(m_control->Pause(), 0);
    EXPECT_TRUE(Await([&] { return !Streams(); })) << "paused";
    ASSERT_EQ(m_control->Stop(), S_OK);
    EXPECT_EQ(m_camera->SetIsoSpeed(1), S_OK);
    ASSERT_EQ(m_camera->SetIsoSpeed(2), S_OK);
    ASSERT_EQ(m_filter->Run(0), S_OK);
    EXPECT_TRUE(Streams());
    ASSERT_EQ(m_filter->Stop(), S_OK);
    EXPECT_FALSE(Streams()) << "stopped without a pause before";
}

TEST_F(StreamFormats, pictures_wait_for_triggers) {
    Build(3);
    ASSERT_EQ(m_camera->SetTrigger(0x10000, 1, 0, 1), S_OK);
    ASSERT_GE(m_control->Run(), 0);
    ASSERT_TRUE(Await([&] { return Streams(); }));
    EXPECT_EQ(m_camera->WriteRegister(0xF0F0062C, 0x80000000), S_OK);
    EXPECT_TRUE(Await([&] { return Collected() == 1; }));
    EXPECT_TRUE(Camera()->PulseTriggerInput());
    EXPECT_TRUE(Await([&] { return Collected() == 2; }));
    EXPECT_EQ(Register(0xF1000274), 2U) << "no picture more than triggers";

    EXPECT_EQ(m_control->Stop(), S_OK) << "the stream ends while it waits";
    EXPECT_EQ(Collected(), 2U);
    EXPECT_EQ(m_camera->SetTrigger(0x10000, 0, 0, 1), S_OK);
    RunUntilCollected();
}

TEST_F(StreamFormats, another_mode_in_the_registers_holds_the_stream_back_until_it_is_undone) {
    Build(1'000'000);
    ASSERT_GE(m_control->Run(), 0);
    ASSERT_TRUE(Await([&] { return Collected() > 0; }));
    kolmsim::VideoFormat stream;
    ASSERT_TRUE(Camera()->CurrentVideoFormat(&stream));
    Frame room(640 * 480);
    const kolmsim::SimPicture picture{.topDown = false, .number = 0, .data = room.data(), .sizeBytes = room.size()};
    EXPECT_TRUE(Camera()->TakeStreamPicture(stream, picture));
    for (const auto& [address, word] : {std::pair{0xF0F00608U, 7U << 29}, {0xF0F00608U, 5U << 29}, {0xF0F00604U, 0U}}) {
        const std::uint32_t before = Register(address);
        ASSERT_EQ(m_camera->WriteRegister(address, word), S_OK);
        const std::uint32_t taken = Register(0xF1000274);
        EXPECT_FALSE(Camera()->TakeStreamPicture(stream, picture));
        EXPECT_EQ(Register(0xF1000274), taken);
        ASSERT_EQ(m_camera->WriteRegister(address, before), S_OK);
        EXPECT_TRUE(Await([&] { return Register(0xF1000274) > taken; }));
    }
    EXPECT_EQ(m_camera->WriteRegister(0xF0F00000, 0x80000000), S_OK);  // factory state under the stream
    EXPECT_FALSE(Streams());
    EXPECT_FALSE(Camera()->TakeStreamPicture(stream, picture));
    EXPECT_EQ(m_control->Stop(), S_OK);
}

TEST_F(StreamFormats, a_stream_starts_in_what_was_agreed_whatever_the_registers_say) {
    Build(1);
    ASSERT_EQ(m_camera->WriteRegister(0xF0F00604, 1U << 29), S_OK);

    EXPECT_EQ(FirstPicture().size(), 640U * 480);

    EXPECT_EQ(Register(0xF0F00604), 5U << 29);
}

TEST_F(StreamFormats, a_bus_that_became_too_slow_is_reported_at_the_start) {
    Build(1);
    ASSERT_EQ(m_camera->SetIsoSpeed(0), S_OK);
    EXPECT_EQ(m_filter->Pause(), HRESULT_FROM_WIN32(ERROR_NO_SYSTEM_RESOURCES));
    EXPECT_FALSE(Streams());
    ASSERT_EQ(m_camera->SetIsoSpeed(2), S_OK);
    RunUntilCollected();
}

TEST_F(StreamFormats, paced_pictures_take_their_frame_time) {
    ::SetEnvironmentVariableW(L"KOLMSIM_PACED", L"1");
    Build(3);
    CPinType type = PresentType(m_config.Get());
    type.Video().AvgTimePerFrame = 666'666;
    ASSERT_EQ(m_config->SetFormat(type.Type()), S_OK);
    const ULONGLONG start = ::GetTickCount64();
    RunUntilCollected();
    EXPECT_GE(::GetTickCount64() - start, 110U) << "two times 67 ms, less what the clock's steps hide";
    ::SetEnvironmentVariableW(L"KOLMSIM_PACED", nullptr);
}

}  // namespace
}  // namespace kolmfluxor::test
