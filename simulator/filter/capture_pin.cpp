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

StreamSetup MakeSetup(ISimulatedCamera* camera, const AM_MEDIA_TYPE& type) {
    const VIDEOINFOHEADER* video = VideoInfo(type);
    const BITMAPINFOHEADER& bitmap = video->bmiHeader;
    StreamSetup setup{};
    setup.camera = camera;
    setup.frame.compression = bitmap.biCompression;
    setup.frame.bitsPerPixel = bitmap.biBitCount;
    setup.frame.width = static_cast<std::uint32_t>(bitmap.biWidth);
    setup.frame.height = static_cast<std::uint32_t>(bitmap.biHeight);
    setup.frame.sizeBytes = bitmap.biSizeImage;
    setup.pauseMs = IsPaced() ? static_cast<DWORD>(video->AvgTimePerFrame / 10'000) : 0;
    return setup;
}

}  // namespace

CCapturePin::CCapturePin(IPinHost& host) : m_host(host) {}

HRESULT CCapturePin::Activate() {
    if (m_peer == nullptr || m_thread != nullptr) {
        return S_OK;
    }
    if (const HRESULT hr = m_allocator->Commit(); FAILED(hr)) {
        return hr;
    }
    const HRESULT hr = kolmfluxor::AtBoundary([&] {
        StreamSetup setup = MakeSetup(m_host.Camera(), m_connectionType.Get());
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
        m_thread->SetRunning(running);
    }
}

void CCapturePin::Deactivate() {
    if (m_thread != nullptr) {
        m_allocator->Decommit();
        m_thread.reset();
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

std::vector<MediaType> CCapturePin::OfferedTypes() const {
    if (m_format) {
        return {*m_format};
    }
    std::vector<MediaType> types;
    for (const VideoMode& mode : VideoModes()) {
        types.push_back(MakeMediaType(mode));
    }
    return types;
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
        if (type != nullptr && type->formattype != GUID_NULL && type->cbFormat != 0) {
            const VideoMode* mode = FindVideoMode(*type);
            return mode == nullptr ? VFW_E_TYPE_NOT_ACCEPTED
                                   : TryConnect(receiver, MakeMediaType(*mode, VideoInfo(*type)->AvgTimePerFrame));
        }
        HRESULT hr = VFW_E_NO_ACCEPTABLE_TYPES;
        for (const MediaType& offered : OfferedTypes()) {
            if (!Meets(offered.Get(), type)) {
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

HRESULT CCapturePin::TryConnect(IPin* receiver, const MediaType& type) {
    // The peer may ask for this pin's connection while it is being made.
    m_peer = receiver;
    m_connectionType = type;
    HRESULT hr = receiver->ReceiveConnection(this, &type.Get());
    if (SUCCEEDED(hr)) {
        hr = FAILED(m_peer.As(&m_receiver)) ? VFW_E_NO_TRANSPORT : S_OK;
        if (SUCCEEDED(hr)) {
            hr = AgreeOnAllocator(m_receiver.Get(), static_cast<LONG>(type.Get().lSampleSize), &m_allocator);
        }
        if (FAILED(hr)) {
            receiver->Disconnect();
        }
    }
    if (FAILED(hr)) {
        m_peer.Reset();
        m_receiver.Reset();
        m_allocator.Reset();
        m_connectionType = MediaType();
    }
    return hr;
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
    m_receiver.Reset();
    m_allocator.Reset();
    m_connectionType = MediaType();
    m_peer.Reset();
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
    return m_peer != nullptr ? m_connectionType.CopyTo(type) : VFW_E_NOT_CONNECTED;
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
    return FindVideoMode(*type) != nullptr ? S_OK : S_FALSE;
}

HRESULT CCapturePin::EnumMediaTypes(IEnumMediaTypes** out) {
    if (out == nullptr) {
        return E_POINTER;
    }
    *out = nullptr;
    const std::scoped_lock lock(m_host.Lock());
    return kolmfluxor::AtBoundary([&] {
        auto* types = new CEnumMediaTypes(OfferedTypes());
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
