#include "media/still_graph.h"

#include <tuple>

#include <uuids.h>

#include "media/in_turn.h"

// In the library of identifiers only; no header of the platform declares them.
extern "C" const CLSID CLSID_SampleGrabber;
extern "C" const CLSID CLSID_NullRenderer;

namespace kolmfluxor {
namespace {

constexpr long kCallBufferCb = 1;  // the callback's method that gets the bytes, not the sample

/// Queries for the interface that `out` points to.
template <class From, class To> HRESULT Query(From& object, To& out) {
    return Obtain(out, [&] { return object.As(&out); });
}

}  // namespace

HRESULT CStillGraph::Build(IBaseFilter* device) {
    Release();
    m_device = device;
    return InTurn([&] { return CreateInProcess(CLSID_FilterGraph, m_graph); },
                  [&] { return CreateInProcess(CLSID_CaptureGraphBuilder2, m_builder); },
                  [&] { return Query(m_graph, m_control); },
                  [&] { return CreateInProcess(CLSID_SampleGrabber, m_grabberFilter); },
                  [&] { return Query(m_grabberFilter, m_grabber); },
                  [&] {
                      AM_MEDIA_TYPE anyVideo{};
                      anyVideo.majortype = MEDIATYPE_Video;
                      return m_grabber->SetMediaType(&anyVideo);
                  },
                  [&] { return CreateInProcess(CLSID_NullRenderer, m_renderer); },
                  [&] { return m_builder->SetFiltergraph(m_graph.Get()); },
                  [&] { return m_graph->AddFilter(m_device.Get(), L"Video Capture"); },
                  [&] { return m_graph->AddFilter(m_grabberFilter.Get(), L"Sample Grabber"); },
                  [&] { return m_graph->AddFilter(m_renderer.Get(), L"Null Renderer"); });
}

HRESULT CStillGraph::Render() {
    return m_builder->RenderStream(&PIN_CATEGORY_CAPTURE, &MEDIATYPE_Video, m_device.Get(), m_grabberFilter.Get(),
                                   m_renderer.Get());
}

HRESULT CStillGraph::FindConfig() {
    return Obtain(m_config, [&] {
        return m_builder->FindInterface(&PIN_CATEGORY_CAPTURE, &MEDIATYPE_Video, m_device.Get(),
                                        __uuidof(IAMStreamConfig),
                                        reinterpret_cast<void**>(m_config.ReleaseAndGetAddressOf()));
    });
}

HRESULT CStillGraph::Grab(ISampleGrabberCB* callback) {
    return InTurn([&] { return m_grabber->SetOneShot(FALSE); }, [&] { return m_grabber->SetBufferSamples(TRUE); },
                  [&] {
                      const HRESULT hr = m_grabber->SetCallback(callback, kCallBufferCb);
                      m_grabs = SUCCEEDED(hr);
                      return hr;
                  });
}

void CStillGraph::Release() noexcept {
    // Should anybody keep the grabber, it keeps no callback: that counts for the object which owns this graph.
    if (m_grabs) std::ignore = m_grabber->SetCallback(nullptr, kCallBufferCb);
    m_grabs = false;
    m_config.Reset();
    m_control.Reset();
    m_grabber.Reset();
    m_grabberFilter.Reset();
    m_renderer.Reset();
    m_builder.Reset();
    m_graph.Reset();
    m_device.Reset();
}

}  // namespace kolmfluxor
