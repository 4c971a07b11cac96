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
#include "filter/video_modes.h"

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

/// Offers the camera's video modes and delivers its pictures. A part of the filter: its references count on the
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
    /// The types that the pin offers now: the one chosen by SetFormat alone, else the usual type of each mode.
    [[nodiscard]] std::vector<MediaType> OfferedTypes() const;

    /// Connects with one complete type; on failure the pin is open again.
    HRESULT TryConnect(IPin* receiver, const MediaType& type);

    /// Whether an offered type meets what the other side asks for; null fields of it ask for nothing.
    [[nodiscard]] static bool Meets(const AM_MEDIA_TYPE& offered, const AM_MEDIA_TYPE* asked);

    IPinHost& m_host;
    std::optional<MediaType> m_format;  ///< chosen by SetFormat

    // While connected
    Microsoft::WRL::ComPtr<IPin> m_peer;
    Microsoft::WRL::ComPtr<IMemInputPin> m_receiver;
    Microsoft::WRL::ComPtr<IMemAllocator> m_allocator;
    MediaType m_connectionType;

    std::unique_ptr<StreamThread> m_thread;  ///< while paused or running
};

}  // namespace kolmsim
