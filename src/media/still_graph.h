#pragma once
/// @file  The filter graph that a still picture is taken with.

#include <windows.h>

#include <strmif.h>

#include <control.h>
#include <qedit.h>
#include <wrl/client.h>

namespace kolmfluxor {

/// "Video Capture" -> "Sample Grabber" -> "Null Renderer". Every method passes the code of the call that fails through.
class CStillGraph {
public:
    /// Makes a new graph and puts the three filters into it, not connected. What was made before a failure stays until
    /// `Release`.
    ///
    /// @param device  the capture filter; the graph itself refuses null, with `E_POINTER`
    [[nodiscard]] HRESULT Build(IBaseFilter* device);

    /// Connects the device's capture pin through the grabber to the renderer.
    [[nodiscard]] HRESULT Render();

    /// Finds `Config` on the device's capture pin.
    [[nodiscard]] HRESULT FindConfig();

    /// Has every sample shown to `callback`. @param callback  held until `Release`
    [[nodiscard]] HRESULT Grab(ISampleGrabberCB* callback);

    /// The capture stream's configuration, after `FindConfig`; not counted.
    [[nodiscard]] IAMStreamConfig* Config() const noexcept { return m_config.Get(); }
    /// After `Build`; not counted.
    [[nodiscard]] IMediaControl* Control() const noexcept { return m_control.Get(); }

    /// Releases all of it; the device leaves the graph unharmed.
    void Release() noexcept;

private:
    Microsoft::WRL::ComPtr<IGraphBuilder> m_graph;
    Microsoft::WRL::ComPtr<ICaptureGraphBuilder2> m_builder;
    Microsoft::WRL::ComPtr<IMediaControl> m_control;
    Microsoft::WRL::ComPtr<IBaseFilter> m_grabberFilter;
    Microsoft::WRL::ComPtr<ISampleGrabber> m_grabber;
    Microsoft::WRL::ComPtr<IBaseFilter> m_renderer;
    Microsoft::WRL::ComPtr<IBaseFilter> m_device;
    Microsoft::WRL::ComPtr<IAMStreamConfig> m_config;
    bool m_grabs = false;  ///< the grabber has the callback
};

}  // namespace kolmfluxor
