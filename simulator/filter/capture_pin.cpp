#include "filter/capture_pin.h"

#include <cstring>
#include <cwchar>
#include <iterator>
#include <utility>

#include <uuids.h>
#include <vfwmsgs.h>

#include "base/boundary.h"
#include "filter/allocator_negotiation.h"
#include "filter/enumerators.h"

namespace kolmsim {
namespace {

constexpr wchar_t kPinName[] = L"Capture";

/// Whether pictures come at the pace of the frame time; without KOLMSIM_PACED=1 they come as fast as they are taken.
bool IsPaced() {
    wchar_t value[4] = L"";
    return ::GetEnvironmentVariableW(L"KOLMSIM_PACED", value, static_cast<DWORD>(std::size(value))) == 1 &&
           value[0] == L'1';
}

}  // namespace

CCapturePin::CCapturePin(IPinHost& host) : m_host(host) {}

HRESULT CCapturePin::Activate() {
    if (m_peer == nullptr || m_thread != nullptr) {
        return S_OK;
    }
    if (const HRESULT hr = PrepareCamera(); FAILED(hr)) {
        return hr;
    }
    if (const HRESULT hr = m_allocator->Commit(); FAILED(hr)) {
        return hr;
    }
    const HRESULT hr = kolmfluxor::AtBoundary([&] {
        StreamSetup setup{};
        setup.camera = m_host.Camera();
        setup.format = m_connected.video;
        setup.picture.topDown = m_connected.topDown;
        setup.picture.sizeBytes = m_connectionType.Get().lSampleSize;
        setup.paceTime = IsPaced() ? PresentFormat().video.frameTime : 0;
        setup.allocator = m_allocator;
        setup.receiver = m_receiver;
        m_thread = std::make_unique<StreamThread>(std::move(setup));
        return S_OK;
    });
    if (FAILED(hr)) {
        m_allocator->Decommit();
    }
    return hr;
}

void CCapturePin::SetRunning(bool running) {
    if (m_thread != nullptr) {
        m_host.Camera()->SetStreaming(running);
        m_thread->SetRunning(running);
    }
}

void CCapturePin::Deactivate() {
    if (m_thread != nullptr) {
        m_allocator->Decommit();
        m_thread.reset();
        m_host.Camera()->SetStreaming(false);
    }
}

HRESULT CCapturePin::QueryInterface(REFIID riid, void** out) {
    if (out == nullptr) {
        return E_POINTER;
    }
    *out = nullptr;
    if (riid == __uuidof(IUnknown) || riid == __uuidof(IPin)) {
        *out = static_cast<IPin*>(this);
    } else if (riid == __uuidof(IAMStreamConfig)) {
        *out = static_cast<IAMStreamConfig*>(this);
    } else if (riid == __uuidof(IKsPropertySet)) {
        *out = static_cast<IKsPropertySet*>(this);
    } else {
        return E_NOINTERFACE;
    }
    AddRef();
    return S_OK;
}

ULONG CCapturePin::AddRef() {
    return m_host.Filter()->AddRef();
}

ULONG CCapturePin::Release() {
    return m_host.Filter()->Release();
}

bool CCapturePin::Meets(const AM_MEDIA_TYPE& offered, const AM_MEDIA_TYPE* asked) {
    const auto meets = [](const GUID& has, const GUID& wants) { return wants == GUID_NULL || wants == has; };
    return asked == nullptr || (meets(offered.majortype, asked->majortype) && meets(offered.subtype, asked->subtype) &&
                                meets(offered.formattype, asked->formattype));
}

HRESULT CCapturePin::Connect(IPin* receiver, const AM_MEDIA_TYPE* type) {
    if (receiver == nullptr) {
        return E_POINTER;
    }
    const std::scoped_lock lock(m_host.Lock());
    if (m_peer != nullptr) {
        return VFW_E_ALREADY_CONNECTED;
    }
    if (!m_host.IsStopped()) {
        return VFW_E_NOT_STOPPED;
    }
    return kolmfluxor::AtBoundary([&]() -> HRESULT {
        HRESULT hr = VFW_E_NO_ACCEPTABLE_TYPES;
        if (type != nullptr && type->formattype != GUID_NULL && type->cbFormat != 0) {
            const std::optional<StreamFormat> format = Accept(*type, &hr);
            return format ? TryConnect(receiver, *format) : hr == VFW_E_INVALIDMEDIATYPE ? VFW_E_TYPE_NOT_ACCEPTED : hr;
        }
        for (const StreamFormat& offered : OfferedStreams()) {
            if (!Meets(MakeMediaType(offered).Get(), type)) {
                continue;
            }
            hr = TryConnect(receiver, offered);
            if (SUCCEEDED(hr)) {
                return hr;
            }
        }
        return hr;
    });
}

HRESULT CCapturePin::TryConnect(IPin* receiver, StreamFormat format) {
    if (const HRESULT hr = m_host.Camera()->CheckVideoFormat(m_geometry, &format.video); FAILED(hr)) {
        return hr;
    }
    // The peer may ask for this pin's connection while it is being made.
    m_peer = receiver;
    m_connectionType = MakeMediaType(format);
    m_connected = format;
    HRESULT hr = receiver->ReceiveConnection(this, &m_connectionType.Get());
    if (SUCCEEDED(hr)) {
        hr = FAILED(m_peer.As(&m_receiver)) ? VFW_E_NO_TRANSPORT : S_OK;
        if (SUCCEEDED(hr)) {
            const auto bytes = static_cast<LONG>(m_connectionType.Get().lSampleSize);
            hr = AgreeOnAllocator(m_receiver.Get(), bytes, &m_allocator);
        }
        if (SUCCEEDED(hr)) {
            hr = m_host.Camera()->SetVideoFormat(m_geometry, &format.video);
        }
        if (FAILED(hr)) {
            receiver->Disconnect();
        }
    }
    if (FAILED(hr)) {
        Forget();
    } else {
        m_topDown = format.topDown;
    }
    return hr;
}

void CCapturePin::Forget() {
    m_receiver.Reset();
    m_allocator.Reset();
    m_connectionType = MediaType();
    m_connected = {};
    m_peer.Reset();
}

HRESULT CCapturePin::ReceiveConnection(IPin*, const AM_MEDIA_TYPE*) {
    return E_UNEXPECTED;
}

HRESULT CCapturePin::Disconnect() {
    const std::scoped_lock lock(m_host.Lock());
    if (!m_host.IsStopped()) {
        return VFW_E_NOT_STOPPED;
    }
    if (m_peer == nullptr) {
        return S_FALSE;
    }
    Forget();
    return S_OK;
}

HRESULT CCapturePin::ConnectedTo(IPin** pin) {
    if (pin == nullptr) {
        return E_POINTER;
    }
    *pin = nullptr;
    const std::scoped_lock lock(m_host.Lock());
    return m_peer != nullptr ? m_peer.CopyTo(pin) : VFW_E_NOT_CONNECTED;
}

HRESULT CCapturePin::ConnectionMediaType(AM_MEDIA_TYPE* type) {
    if (type == nullptr) {
        return E_POINTER;
    }
    *type = {};
    const std::scoped_lock lock(m_host.Lock());
    if (m_peer == nullptr) {
        return VFW_E_NOT_CONNECTED;
    }
    return m_connectionType.CopyTo(type);
}

HRESULT CCapturePin::QueryPinInfo(PIN_INFO* info) {
    if (info == nullptr) {
        return E_POINTER;
    }
    *info = {};
    info->pFilter = m_host.Filter();
    info->pFilter->AddRef();
    info->dir = PINDIR_OUTPUT;
    static_assert(std::size(kPinName) <= std::size(PIN_INFO{}.achName));
    std::wmemcpy(info->achName, kPinName, std::size(kPinName));
    return S_OK;
}

HRESULT CCapturePin::QueryDirection(PIN_DIRECTION* direction) {
    if (direction == nullptr) {
        return E_POINTER;
    }
    *direction = PINDIR_OUTPUT;
    return S_OK;
}

HRESULT CCapturePin::QueryId(LPWSTR* id) {
    if (id == nullptr) {
        return E_POINTER;
    }
    *id = static_cast<LPWSTR>(::CoTaskMemAlloc(sizeof kPinName));
    if (*id == nullptr) {
        return E_OUTOFMEMORY;
    }
    std::memcpy(*id, kPinName, sizeof kPinName);
    return S_OK;
}

HRESULT CCapturePin::QueryAccept(const AM_MEDIA_TYPE* type) {
    if (type == nullptr) {
        return E_POINTER;
    }
    return kolmfluxor::AtBoundary([&] {
        HRESULT hr = S_OK;
        return Accept(*type, &hr) ? S_OK : S_FALSE;
    });
}

HRESULT CCapturePin::EnumMediaTypes(IEnumMediaTypes** out) {
    if (out == nullptr) {
        return E_POINTER;
    }
    *out = nullptr;
    const std::scoped_lock lock(m_host.Lock());
    return kolmfluxor::AtBoundary([&] {
        std::vector<MediaType> list;
        for (const StreamFormat& format : OfferedStreams()) {
            list.push_back(MakeMediaType(format));
        }
        auto* types = new CEnumMediaTypes(std::move(list));
        types->AddRef();
        *out = types;
        return S_OK;
    });
}

HRESULT CCapturePin::QueryInternalConnections(IPin**, ULONG*) {
    return E_NOTIMPL;
}

HRESULT CCapturePin::EndOfStream() {
    return E_UNEXPECTED;
}

HRESULT CCapturePin::BeginFlush() {
    return E_UNEXPECTED;
}

HRESULT CCapturePin::EndFlush() {
    return E_UNEXPECTED;
}

HRESULT CCapturePin::NewSegment(REFERENCE_TIME, REFERENCE_TIME, double) {
    return E_UNEXPECTED;
}

}  // namespace kolmsim
