#pragma once
/// @file  The filter graph that a camera's running picture comes from.

#include <optional>
#include <string>
#include <vector>

#include <windows.h>

#include <strmif.h>

#include <control.h>
#include <qedit.h>
#include <wrl/client.h>

#include "camera.h"
#include "kolmview/sample_format.h"
#include "kolmview/sample_sink.h"

namespace kolmview {

/// "Video Capture" -> "Sample Grabber" -> "Null Renderer", running for as long as it lives. No clock, so that pictures
/// pass as they come. On the thread that made it.
class LiveGraph {
public:
    /// Connects the capture pin in the format that it is set to, and starts.
    ///
    /// @throws CallError; Error for a pixel format that cannot be shown
    explicit LiveGraph(const kolmctl::Camera& camera);
    /// Stops; no sample comes after that, and the camera's filter stays as it was.
    ~LiveGraph();
    LiveGraph(const LiveGraph&) = delete;
    LiveGraph& operator=(const LiveGraph&) = delete;

    [[nodiscard]] const SampleFormat& Format() const { return m_format; }
    /// As in "Mono8".
    [[nodiscard]] const std::string& PixelText() const { return m_pixelText; }
    [[nodiscard]] NewestSample& Newest() const { return m_sink->Newest(); }

    /// Whether the graph has reported since the last call that the stream has broken off: the code, `S_FALSE` for a
    /// device that is gone.
    [[nodiscard]] std::optional<HRESULT> TakeBreak();

private:
    LiveGraph();
    void Build(const kolmctl::Camera& camera);
    void ReadFormat();

    Microsoft::WRL::ComPtr<SampleSink> m_sink;
    Microsoft::WRL::ComPtr<IGraphBuilder> m_graph;
    Microsoft::WRL::ComPtr<ISampleGrabber> m_grabber;
    Microsoft::WRL::ComPtr<IMediaControl> m_control;
    Microsoft::WRL::ComPtr<IMediaEvent> m_events;
    SampleFormat m_format{};
    std::string m_pixelText;
};

}  // namespace kolmview
