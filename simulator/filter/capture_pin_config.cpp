// The pin's configuration interfaces: IAMStreamConfig and IKsPropertySet.

#include "filter/capture_pin.h"

#include <cstring>
#include <utility>

#include <uuids.h>
#include <vfwmsgs.h>

#include "base/boundary.h"
#include "filter/graph_reconnect.h"

namespace kolmsim {

HRESULT CCapturePin::SetFormat(AM_MEDIA_TYPE* type) {
    if (type == nullptr) {
        return E_POINTER;
    }
    const std::scoped_lock lock(m_host.Lock());
    if (!m_host.IsStopped()) {
        return VFW_E_NOT_STOPPED;
    }
    const VideoMode* mode = FindVideoMode(*type);
    if (mode == nullptr) {
        return VFW_E_INVALIDMEDIATYPE;
    }
    return kolmfluxor::AtBoundary([&]() -> HRESULT {
        MediaType wanted = MakeMediaType(*mode, VideoInfo(*type)->AvgTimePerFrame);
        if (m_peer == nullptr) {
            m_format = std::move(wanted);
            return S_OK;
        }
        IFilterGraph* graph = m_host.Graph();
        if (graph == nullptr) {
            return VFW_E_NOT_IN_GRAPH;
        }
        if (m_peer->QueryAccept(&wanted.Get()) != S_OK) {
            return VFW_E_INVALIDMEDIATYPE;
        }
        const MediaType before = m_connectionType;
        const Microsoft::WRL::ComPtr<IPin> peer = m_peer;
        const HRESULT hr = ReconnectDownstream(graph, this, &wanted.Get());
        if (SUCCEEDED(hr)) {
            m_format = std::move(wanted);
        } else if (m_peer == nullptr) {
            graph->ConnectDirect(this, peer.Get(), &before.Get());
        }
        return SUCCEEDED(hr) ? S_OK : hr;
    });
}

HRESULT CCapturePin::GetFormat(AM_MEDIA_TYPE** type) {
    if (type == nullptr) {
        return E_POINTER;
    }
    *type = nullptr;
    const std::scoped_lock lock(m_host.Lock());
    return kolmfluxor::AtBoundary([&] {
        *type = m_peer != nullptr ? m_connectionType.NewCopy() : OfferedTypes().front().NewCopy();
        return *type != nullptr ? S_OK : E_OUTOFMEMORY;
    });
}

HRESULT CCapturePin::GetNumberOfCapabilities(int* count, int* bytes) {
    if (count == nullptr || bytes == nullptr) {
        return E_POINTER;
    }
    *count = static_cast<int>(VideoModes().size());
    *bytes = static_cast<int>(sizeof(VIDEO_STREAM_CONFIG_CAPS));
    return S_OK;
}

HRESULT CCapturePin::GetStreamCaps(int index, AM_MEDIA_TYPE** type, BYTE* caps) {
    if (type == nullptr || caps == nullptr) {
        return E_POINTER;
    }
    *type = nullptr;
    if (index < 0) {
        return E_INVALIDARG;
    }
    const auto position = static_cast<std::size_t>(index);
    if (position >= VideoModes().size()) {
        return S_FALSE;  // IAMStreamConfig's way to say that the list ends before
    }
    return kolmfluxor::AtBoundary([&] {
        const VideoMode& mode = VideoModes()[position];
        *type = MakeMediaType(mode).NewCopy();
        if (*type == nullptr) {
            return E_OUTOFMEMORY;
        }
        const VIDEO_STREAM_CONFIG_CAPS capabilities = MakeCapabilities(mode);
        std::memcpy(caps, &capabilities, sizeof capabilities);
        return S_OK;
    });
}

HRESULT CCapturePin::Set(REFGUID set, DWORD, LPVOID, DWORD, LPVOID, DWORD) {
    return set == AMPROPSETID_Pin ? E_PROP_ID_UNSUPPORTED : E_PROP_SET_UNSUPPORTED;
}

HRESULT CCapturePin::Get(REFGUID set, DWORD id, LPVOID, DWORD, LPVOID data, DWORD dataBytes, DWORD* returned) {
    if (set != AMPROPSETID_Pin) {
        return E_PROP_SET_UNSUPPORTED;
    }
    if (id != AMPROPERTY_PIN_CATEGORY) {
        return E_PROP_ID_UNSUPPORTED;
    }
    if (data == nullptr && returned == nullptr) {
        return E_POINTER;
    }
    if (returned != nullptr) {
        *returned = sizeof(GUID);
    }
    if (data == nullptr) {
        return S_OK;  // asked for the size only
    }
    if (dataBytes < sizeof(GUID)) {
        return E_UNEXPECTED;
    }
    std::memcpy(data, &PIN_CATEGORY_CAPTURE, sizeof(GUID));
    return S_OK;
}

HRESULT CCapturePin::QuerySupported(REFGUID set, DWORD id, DWORD* support) {
    if (set != AMPROPSETID_Pin) {
        return E_PROP_SET_UNSUPPORTED;
    }
    if (id != AMPROPERTY_PIN_CATEGORY) {
        return E_PROP_ID_UNSUPPORTED;
    }
    if (support != nullptr) {
        *support = KSPROPERTY_SUPPORT_GET;
    }
    return S_OK;
}

}  // namespace kolmsim
