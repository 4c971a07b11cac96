/// @file  Pictures from the simulated camera through a filter graph.

#include <algorithm>
#include <cstdint>
#include <mutex>
#include <optional>
#include <vector>

#include "system/capture_filter_fixture.h"  // first: the platform headers below need its windows.h

#include <amvideo.h>
#include <control.h>
#include <qedit.h>
#include <uuids.h>
#include <vfwmsgs.h>

extern "C" const CLSID CLSID_SampleGrabber;
extern "C" const CLSID CLSID_NullRenderer;

namespace kolmfluxor::test {
namespace {

using kolmsim::ISimulatedCamera;
using Microsoft::WRL::ComPtr;

constexpr DWORD kDeadlineMs = 10'000;

/// Keeps the first samples that a sample grabber shows and signals when there are enough.
class FrameCollector final : public ISampleGrabberCB {
public:
    explicit FrameCollector(std::size_t wanted)
        : m_wanted(wanted), m_enough(::CreateEventW(nullptr, TRUE, FALSE, nullptr)) {}
    ~FrameCollector() { ::CloseHandle(m_enough); }
    FrameCollector(const FrameCollector&) = delete;
    FrameCollector& operator=(const FrameCollector&) = delete;

    [[nodiscard]] bool Wait() const { return ::WaitForSingleObject(m_enough, kDeadlineMs) == WAIT_OBJECT_0; }
    std::vector<std::vector<std::uint8_t>> Frames() {
        const std::scoped_lock lock(m_lock);
        return m_frames;
    }

    // IUnknown; the fixture's, not counted
    HRESULT STDMETHODCALLTYPE QueryInterface(REFIID riid, void** out) override {
        const bool known = riid == __uuidof(IUnknown) || riid == __uuidof(ISampleGrabberCB);
        *out = known ? this : nullptr;
        return known ? S_OK : E_NOINTERFACE;
    }
    ULONG STDMETHODCALLTYPE AddRef() override { return 2; }
    ULONG STDMETHODCALLTYPE Release() override { return 1; }

    // ISampleGrabberCB
    HRESULT STDMETHODCALLTYPE SampleCB(double, IMediaSample*) override { return S_OK; }
    HRESULT STDMETHODCALLTYPE BufferCB(double, BYTE* data, LONG bytes) override {
        const std::scoped_lock lock(m_lock);
        if (m_frames.size() < m_wanted) {
            m_frames.emplace_back(data, data + bytes);
        }
        if (m_frames.size() == m_wanted) {
            ::SetEvent(m_enough);
        }
        return S_OK;
    }

private:
    const std::size_t m_wanted;
    const HANDLE m_enough;
    std::mutex m_lock;
    std::vector<std::vector<std::uint8_t>> m_frames;
};

/// A graph: camera, sample grabber, null renderer.
class StreamingFilter : public CaptureFilterTest {
protected:
    /// @param wanted  how many pictures to collect
    void BuildGraph(std::size_t wanted) {
        m_collector.emplace(wanted);
        Bind();
        m_graph = Create<IGraphBuilder>(CLSID_FilterGraph);
        m_grabberFilter = Create<IBaseFilter>(CLSID_SampleGrabber);
        const auto builder = Create<ICaptureGraphBuilder2>(CLSID_CaptureGraphBuilder2);
        const auto renderer = Create<IBaseFilter>(CLSID_NullRenderer);
        ASSERT_TRUE(m_graph && m_grabberFilter && builder && renderer);
        ComPtr<ISampleGrabber> grabber;
        ASSERT_EQ(m_grabberFilter.As(&grabber), S_OK);
        ASSERT_EQ(grabber->SetBufferSamples(FALSE), S_OK);
        ASSERT_EQ(grabber->SetCallback(&*m_collector, 1), S_OK);
        ASSERT_EQ(builder->SetFiltergraph(m_graph.Get()), S_OK);
        ASSERT_EQ(m_graph->AddFilter(m_filter.Get(), L"Video Capture"), S_OK);
        ASSERT_EQ(m_graph->AddFilter(m_grabberFilter.Get(), L"Sample Grabber"), S_OK);
        ASSERT_EQ(m_graph->AddFilter(renderer.Get(), L"Null Renderer"), S_OK);
        ASSERT_EQ(builder->RenderStream(&PIN_CATEGORY_CAPTURE, &MEDIATYPE_Video, m_filter.Get(), m_grabberFilter.Get(),
                                        renderer.Get()),
                  S_OK);
        ASSERT_EQ(m_graph.As(&m_control), S_OK);
    }

    void TearDown() override {
        m_control.Reset();
        m_grabberFilter.Reset();
        m_graph.Reset();
        CaptureFilterTest::TearDown();
    }

    template <class T> static ComPtr<T> Create(REFCLSID classId) {
        ComPtr<T> object;
        EXPECT_EQ(::CoCreateInstance(classId, nullptr, CLSCTX_INPROC_SERVER, __uuidof(T),
                                     reinterpret_cast<void**>(object.GetAddressOf())),
                  S_OK);
        return object;
    }

    void RunUntilCollected() {
        ASSERT_GE(m_control->Run(), 0);
        EXPECT_TRUE(m_collector->Wait()) << "the pictures did not come";
        EXPECT_EQ(m_control->Stop(), S_OK);
    }

    std::optional<FrameCollector> m_collector;  // outlives the graph, which holds it
    ComPtr<IGraphBuilder> m_graph;
    ComPtr<IBaseFilter> m_grabberFilter;
    ComPtr<IMediaControl> m_control;
};

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
