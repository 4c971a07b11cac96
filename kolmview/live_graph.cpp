#include "kolmview/live_graph.h"

#include <tuple>

#include <amvideo.h>
#include <evcode.h>
#include <uuids.h>

#include "errors.h"
#include "pixel_format.h"

// In the library of identifiers only; no header of the platform declares them.
extern "C" const CLSID CLSID_SampleGrabber;
extern "C" const CLSID CLSID_NullRenderer;

namespace kolmview {
namespace {

using kolmctl::Check;
using Microsoft::WRL::ComPtr;

constexpr long kCallBufferCb = 1;  // the callback's method that gets the bytes, not the sample

template <class T> ComPtr<T> Create(REFCLSID classId, const char* what) {
    ComPtr<T> object;
    Check(::CoCreateInstance(classId, nullptr, CLSCTX_INPROC_SERVER, __uuidof(T),
                             reinterpret_cast<void**>(object.GetAddressOf())),
          std::string("cannot create the ") + what);
    return object;
}

/// A media type that another object fills in.
struct MediaType : AM_MEDIA_TYPE {
    MediaType() : AM_MEDIA_TYPE{} {}
    ~MediaType() {
        ::CoTaskMemFree(pbFormat);
        if (pUnk != nullptr) {
            pUnk->Release();
        }
    }
    MediaType(const MediaType&) = delete;
    MediaType& operator=(const MediaType&) = delete;
};

}  // namespace

LiveGraph::LiveGraph() {
    m_sink.Attach(new SampleSink);
}

// The object is complete with the delegated constructor, so the destructor cleans up after a failure below.
LiveGraph::LiveGraph(const kolmctl::Camera& camera) : LiveGraph() {
    Build(camera);
    ReadFormat();
    const HRESULT hr = m_control->Run();
    if (FAILED(hr)) {  // S_FALSE says that it is under way
        throw kolmctl::CallError("cannot start the stream", hr);
    }
}

LiveGraph::~LiveGraph() {
    // Results are of no use here: the rest is to be taken back whatever comes.
    if (m_control != nullptr) {
        std::ignore = m_control->Stop();
    }
    if (m_grabber != nullptr) {
        std::ignore = m_grabber->SetCallback(nullptr, kCallBufferCb);
    }
}

void LiveGraph::Build(const kolmctl::Camera& camera) {
    m_graph = Create<IGraphBuilder>(CLSID_FilterGraph, "filter graph");
    Check(m_graph.As(&m_control), "the filter graph cannot be started");
    // (The platform's header gives this interface no __uuidof.)
    Check(m_graph->QueryInterface(IID_IMediaEvent, reinterpret_cast<void**>(m_events.GetAddressOf())),
          "the filter graph tells no events");
    const auto builder = Create<ICaptureGraphBuilder2>(CLSID_CaptureGraphBuilder2, "capture graph builder");
    const auto grabberFilter = Create<IBaseFilter>(CLSID_SampleGrabber, "sample grabber");
    const auto renderer = Create<IBaseFilter>(CLSID_NullRenderer, "null renderer");

    Check(grabberFilter.As(&m_grabber), "the sample grabber is none");
    AM_MEDIA_TYPE wanted{};
    wanted.majortype = MEDIATYPE_Video;
    wanted.formattype = FORMAT_VideoInfo;
    Check(m_grabber->SetMediaType(&wanted), "cannot set up the sample grabber");
    Check(m_grabber->SetOneShot(FALSE), "cannot set up the sample grabber");
    Check(m_grabber->SetBufferSamples(FALSE), "cannot set up the sample grabber");
    Check(m_grabber->SetCallback(m_sink.Get(), kCallBufferCb), "cannot set up the sample grabber");

    Check(builder->SetFiltergraph(m_graph.Get()), "cannot build the filter graph");
    Check(m_graph->AddFilter(&camera.Filter(), L"Video Capture"), "cannot build the filter graph");
    Check(m_graph->AddFilter(grabberFilter.Get(), L"Sample Grabber"), "cannot build the filter graph");
    Check(m_graph->AddFilter(renderer.Get(), L"Null Renderer"), "cannot build the filter graph");
    ComPtr<IMediaFilter> clocked;
    Check(m_graph.As(&clocked), "cannot build the filter graph");
    Check(clocked->SetSyncSource(nullptr), "cannot take the clock from the filter graph");
    Check(builder->RenderStream(&PIN_CATEGORY_CAPTURE, &MEDIATYPE_Video, &camera.Filter(), grabberFilter.Get(),
                                renderer.Get()),
          "cannot connect the camera's capture pin");
}

void LiveGraph::ReadFormat() {
    MediaType type;
    Check(m_grabber->GetConnectedMediaType(&type), "cannot read the stream's format");
    m_pixelText = kolmctl::PixelFormatText(type.subtype);
    if (type.formattype != FORMAT_VideoInfo || type.cbFormat < sizeof(VIDEOINFOHEADER) || type.pbFormat == nullptr) {
        throw kolmctl::Error(kolmctl::ExitCode::refused, "the stream has a format without a bitmap header");
    }
    const BITMAPINFOHEADER& bitmap = reinterpret_cast<const VIDEOINFOHEADER*>(type.pbFormat)->bmiHeader;
    const auto format = SampleFormat::Of(bitmap.biCompression, bitmap.biBitCount, bitmap.biWidth, bitmap.biHeight);
    if (!format) {
        throw kolmctl::Error(kolmctl::ExitCode::refused,
                             "pictures of " + std::to_string(bitmap.biWidth) + " x " + std::to_string(bitmap.biHeight) +
                                 " " + m_pixelText + " cannot be shown",
                             "Mono8, Raw8, UYVY(YUV422), YUV411 and RGB24 can;\nchoose one on the page \"Format\"");
    }
    m_format = *format;
}

std::optional<HRESULT> LiveGraph::TakeBreak() {
    std::optional<HRESULT> broken;
    long code = 0;
    LONG_PTR first = 0;
    LONG_PTR second = 0;
    while (m_events->GetEvent(&code, &first, &second, 0) == S_OK) {
        if (code == EC_ERRORABORT || code == EC_STREAM_ERROR_STOPPED) {
            broken = static_cast<HRESULT>(first);
        } else if (code == EC_DEVICE_LOST && second == 0) {  // 1: it is back
            broken = S_FALSE;
        }
        std::ignore = m_events->FreeEventParams(code, first, second);
    }
    return broken;
}

}  // namespace kolmview
