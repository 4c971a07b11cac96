/// @file  Pictures from the simulated camera through a filter graph.

#include <algorithm>
#include <cstdint>

#include "system/streaming_fixture.h"  // first: the platform headers below need its windows.h

#include <amvideo.h>
#include <vfwmsgs.h>

namespace kolmfluxor::test {
namespace {

using kolmsim::ISimulatedCamera;
using Microsoft::WRL::ComPtr;

TEST_F(StreamingFilter, five_pictures_arrive_and_each_differs_from_the_last) {
    BuildGraph(5);

    RunUntilCollected();

    const auto frames = m_collector->Frames();
    ASSERT_EQ(frames.size(), 5U);
    for (std::size_t i = 0; i < frames.size(); ++i) {
        EXPECT_EQ(frames[i].size(), 640U * 480U) << i;
        EXPECT_TRUE(i == 0 || frames[i] != frames[i - 1]) << i;
    }
}

TEST_F(StreamingFilter, a_setting_shows_in_the_picture) {
    BuildGraph(1);
    ISimulatedCamera* camera = Camera();
    ASSERT_NE(camera, nullptr);
    ASSERT_TRUE(camera->SetFeatureWord(0, 24, 0));    // gain
    ASSERT_TRUE(camera->SetFeatureWord(4, 24, 255));  // brightness: 239 above neutral
    ASSERT_TRUE(camera->SetFeatureWord(5, 24, 1));    // shutter

    RunUntilCollected();

    const auto frames = m_collector->Frames();
    ASSERT_EQ(frames.size(), 1U);
    EXPECT_TRUE(std::ranges::all_of(frames[0], [](std::uint8_t level) { return level >= 239; }));
}

TEST_F(StreamingFilter, it_starts_and_stops_many_times) {
    BuildGraph(1);
    for (int round = 0; round < 20; ++round) {
        SCOPED_TRACE(round);
        ASSERT_GE(m_control->Run(), 0);
        if (round % 2 == 0) {
            ASSERT_GE(m_control->Pause(), 0);
        }
        ASSERT_EQ(m_control->Stop(), S_OK);
    }
    RunUntilCollected();
}

TEST_F(StreamingFilter, it_delivers_nothing_while_paused) {
    BuildGraph(1);

    ASSERT_GE(m_control->Pause(), 0);

    FILTER_STATE state = State_Stopped;
    EXPECT_EQ(m_filter->GetState(0, &state), VFW_S_CANT_CUE);
    EXPECT_EQ(state, State_Paused);
    EXPECT_TRUE(m_collector->Frames().empty());
    ASSERT_EQ(m_control->Stop(), S_OK);
}

TEST_F(StreamingFilter, pictures_stop_while_the_camera_is_unplugged) {
    BuildGraph(3);
    ISimulatedCamera* camera = Camera();
    ASSERT_NE(camera, nullptr);
    camera->Plug(false);
    ASSERT_GE(m_control->Run(), 0);
    EXPECT_TRUE(m_collector->Frames().empty());

    camera->Plug(true);

    EXPECT_TRUE(m_collector->Wait());
    EXPECT_EQ(m_control->Stop(), S_OK);
}

TEST_F(StreamingFilter, a_running_pin_keeps_its_format_and_connection) {
    BuildGraph(1);
    ComPtr<IAMStreamConfig> config;
    ASSERT_EQ(Pin().As(&config), S_OK);
    AM_MEDIA_TYPE* type = nullptr;
    ASSERT_EQ(config->GetFormat(&type), S_OK);
    ASSERT_GE(m_control->Run(), 0);

    EXPECT_EQ(config->SetFormat(type), VFW_E_NOT_STOPPED);
    EXPECT_EQ(Pin()->Disconnect(), VFW_E_NOT_STOPPED);

    EXPECT_EQ(m_control->Stop(), S_OK);
    ::CoTaskMemFree(type->pbFormat);
    ::CoTaskMemFree(type);
}

TEST_F(StreamingFilter, a_new_format_reaches_the_whole_connected_graph) {
    BuildGraph(2);
    ComPtr<IAMStreamConfig> config;
    ASSERT_EQ(Pin().As(&config), S_OK);
    AM_MEDIA_TYPE* type = nullptr;
    ASSERT_EQ(config->GetFormat(&type), S_OK);
    reinterpret_cast<VIDEOINFOHEADER*>(type->pbFormat)->AvgTimePerFrame = 2'666'666;  // 3.75 fps

    ASSERT_EQ(config->SetFormat(type), S_OK);

    ComPtr<ISampleGrabber> grabber;
    ASSERT_EQ(m_grabberFilter.As(&grabber), S_OK);
    AM_MEDIA_TYPE connected{};
    ASSERT_EQ(grabber->GetConnectedMediaType(&connected), S_OK);
    EXPECT_EQ(reinterpret_cast<const VIDEOINFOHEADER*>(connected.pbFormat)->AvgTimePerFrame, 2'666'666);
    ::CoTaskMemFree(connected.pbFormat);
    ::CoTaskMemFree(type->pbFormat);
    ::CoTaskMemFree(type);
    RunUntilCollected();
}

TEST_F(StreamingFilter, releasing_a_running_graph_ends_the_stream) {
    BuildGraph(1);
    ASSERT_GE(m_control->Run(), 0);
    ASSERT_TRUE(m_collector->Wait());
    // TearDown releases everything and asks whether anything is left.
}

}  // namespace
}  // namespace kolmfluxor::test
