#pragma once
/// @file  A test on the simulated camera's capture filter in a filter graph.

#include <cstdint>
#include <mutex>
#include <optional>
#include <vector>

#include "system/capture_filter_fixture.h"  // first: the platform headers below need its windows.h

#include <control.h>
#include <qedit.h>
#include <uuids.h>

extern "C" const CLSID CLSID_SampleGrabber;
extern "C" const CLSID CLSID_NullRenderer;

namespace kolmfluxor::test {

/// Keeps the first samples that a sample grabber shows and signals when there are enough.
class FrameCollector final : public ISampleGrabberCB {
public:
    explicit FrameCollector(std::size_t wanted)
        : m_wanted(wanted), m_enough(::CreateEventW(nullptr, TRUE, FALSE, nullptr)) {}
    ~FrameCollector() { ::CloseHandle(m_enough); }
    FrameCollector(const FrameCollector&) = delete;
    FrameCollector& operator=(const FrameCollector&) = delete;

    /// Forgets all and collects anew; only while nothing streams.
    void Restart(std::size_t wanted) {
        const std::scoped_lock lock(m_lock);
        m_wanted = wanted;
        m_frames.clear();
        ::ResetEvent(m_enough);
    }

    [[nodiscard]] bool Wait() const { return ::WaitForSingleObject(m_enough, 10'000) == WAIT_OBJECT_0; }
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
    std::size_t m_wanted;
    const HANDLE m_enough;
    std::mutex m_lock;
    std::vector<std::vector<std::uint8_t>> m_frames;
};

/// A graph: camera, sample grabber, null renderer.
class StreamingFilter : public CaptureFilterTest {
protected:
    /// @param wanted  how many pictures to collect
    void BuildGraph(std::size_t wanted, const wchar_t* name = kColorCameraName) {
        m_collector.emplace(wanted);
        Bind(name);
        m_graph = Create<IGraphBuilder>(CLSID_FilterGraph);
        m_grabberFilter = Create<IBaseFilter>(CLSID_SampleGrabber);
        const auto builder = Create<ICaptureGraphBuilder2>(CLSID_CaptureGraphBuilder2);
        const auto renderer = Create<IBaseFilter>(CLSID_NullRenderer);
        ASSERT_TRUE(m_graph && m_grabberFilter && builder && renderer);
        Microsoft::WRL::ComPtr<ISampleGrabber> grabber;
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

    template <class T> static Microsoft::WRL::ComPtr<T> Create(REFCLSID classId) {
        Microsoft::WRL::ComPtr<T> object;
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
    Microsoft::WRL::ComPtr<IGraphBuilder> m_graph;
    Microsoft::WRL::ComPtr<IBaseFilter> m_grabberFilter;
    Microsoft::WRL::ComPtr<IMediaControl> m_control;
};

}  // namespace kolmfluxor::test
