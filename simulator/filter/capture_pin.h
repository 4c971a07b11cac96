#pragma once
/// @file  The filter's one output pin, "Capture".

#include <memory>
#include <mutex>
#include <optional>
#include <vector>

#include <windows.h>

#include <strmif.h>
#include <wrl/client.h>

#include "filter/media_type.h"
#include "filter/stream_thread.h"
#include "filter/video_types.h"

namespace kolmsim {

/// What the pin asks of the filter that it belongs to.
struct IPinHost {
    /// The filter as callers see it; not counted. The pin lives and dies with it.
    virtual IBaseFilter* Filter() = 0;
    virtual bool IsStopped() = 0;
    /// The graph that the filter has joined, or null; not counted.
    virtual IFilterGraph* Graph() = 0;
    virtual ISimulatedCamera* Camera() = 0;
    /// Guards the state of filter and pin; the streaming thread never takes it.
    virtual std::recursive_mutex& Lock() = 0;

protected:
    ~IPinHost() = default;
};

/// Offers the camera's video formats and delivers its pictures. An open pin keeps no format of its own: it is set to
/// what the camera is set to. A part of the filter: its references count on the
/// filter, its interfaces are its own. Any thread may call.
class CCapturePin final : public IPin, public IAMStreamConfig, public IKsPropertySet {
public:
    explicit CCapturePin(IPinHost& host);
    CCapturePin(const CCapturePin&) = delete;
    CCapturePin& operator=(const CCapturePin&) = delete;

    /// Makes ready to stream: commits the buffers and starts the thread, held. Nothing happens on an open pin.
    HRESULT Activate();
    /// Lets the thread deliver, or holds it.
    void SetRunning(bool running);
    /// Decommits the buffers, then waits for the thread to end.
    void Deactivate();

    // IUnknown
    HRESULT STDMETHODCALLTYPE QueryInterface(REFIID riid, void** out) override;
    ULONG STDMETHODCALLTYPE AddRef() override;
    ULONG STDMETHODCALLTYPE Release() override;

    // IPin
    HRESULT STDMETHODCALLTYPE Connect(IPin* receiver, const AM_MEDIA_TYPE* type) override;
    HRESULT STDMETHODCALLTYPE ReceiveConnection(IPin* connector, const AM_MEDIA_TYPE* type) override;
    HRESULT STDMETHODCALLTYPE Disconnect() override;
    HRESULT STDMETHODCALLTYPE ConnectedTo(IPin** pin) override;
    HRESULT STDMETHODCALLTYPE ConnectionMediaType(AM_MEDIA_TYPE* type) override;
    HRESULT STDMETHODCALLTYPE QueryPinInfo(PIN_INFO* info) override;
    HRESULT STDMETHODCALLTYPE QueryDirection(PIN_DIRECTION* direction) override;
    HRESULT STDMETHODCALLTYPE QueryId(LPWSTR* id) override;
    HRESULT STDMETHODCALLTYPE QueryAccept(const AM_MEDIA_TYPE* type) override;
    HRESULT STDMETHODCALLTYPE EnumMediaTypes(IEnumMediaTypes** out) override;
    HRESULT STDMETHODCALLTYPE QueryInternalConnections(IPin** pins, ULONG* count) override;
    HRESULT STDMETHODCALLTYPE EndOfStream() override;
    HRESULT STDMETHODCALLTYPE BeginFlush() override;
    HRESULT STDMETHODCALLTYPE EndFlush() override;
    HRESULT STDMETHODCALLTYPE NewSegment(REFERENCE_TIME start, REFERENCE_TIME stop, double rate) override;

    // IAMStreamConfig
    HRESULT STDMETHODCALLTYPE SetFormat(AM_MEDIA_TYPE* type) override;
    HRESULT STDMETHODCALLTYPE GetFormat(AM_MEDIA_TYPE** type) override;
    HRESULT STDMETHODCALLTYPE GetNumberOfCapabilities(int* count, int* bytes) override;
    HRESULT STDMETHODCALLTYPE GetStreamCaps(int index, AM_MEDIA_TYPE** type, BYTE* caps) override;

    // IKsPropertySet
    HRESULT STDMETHODCALLTYPE Set(REFGUID set, DWORD id, LPVOID instance, DWORD instanceBytes, LPVOID data,
                                  DWORD dataBytes) override;
    HRESULT STDMETHODCALLTYPE Get(REFGUID set, DWORD id, LPVOID instance, DWORD instanceBytes, LPVOID data,
                                  DWORD dataBytes, DWORD* returned) override;
    HRESULT STDMETHODCALLTYPE QuerySupported(REFGUID set, DWORD id, DWORD* support) override;

private:
    /// The camera's list of formats as it is now.
    [[nodiscard]] std::vector<OfferedFormat> Offers();

    /// What the pin is set to: the connection's format, otherwise the camera's. Where the camera is set to the same
    /// layout, position and frame time are the camera's of this moment.
    [[nodiscard]] StreamFormat PresentFormat();

    /// The formats that the pin connects with: the one chosen by SetFormat alone, else the present one and then all.
    [[nodiscard]] std::vector<StreamFormat> OfferedStreams();

    /// The format that a media type asks for, as the camera takes it; nothing with a failure in `*hr`.
    [[nodiscard]] std::optional<StreamFormat> Accept(const AM_MEDIA_TYPE& type, HRESULT* hr);

    /// Connects with one format and sets the camera to it; on failure the pin is open again and the camera as it was.
    HRESULT TryConnect(IPin* receiver, StreamFormat format);

    /// Forgets the connection.
    void Forget();

    /// Connects anew with a format, and all that follows in the graph; on failure as it was before.
    HRESULT Reconnect(const StreamFormat& format);

    /// Makes sure that the camera is set to what was agreed with the next filter.
    HRESULT PrepareCamera();

    /// Whether an offered type meets what the other side asks for; null fields of it ask for nothing.
    [[nodiscard]] static bool Meets(const AM_MEDIA_TYPE& offered, const AM_MEDIA_TYPE* asked);

    IPinHost& m_host;
    bool m_chosen = false;   ///< SetFormat has chosen what the camera is set to
    bool m_topDown = false;  ///< of uncompressed RGB, while the pin is open
    Geometry m_geometry = Geometry::bySwitch;

    // While connected
    Microsoft::WRL::ComPtr<IPin> m_peer;
    Microsoft::WRL::ComPtr<IMemInputPin> m_receiver;
    Microsoft::WRL::ComPtr<IMemAllocator> m_allocator;
    MediaType m_connectionType;
    StreamFormat m_connected;

    std::unique_ptr<StreamThread> m_thread;  ///< while paused or running
};

}  // namespace kolmsim
