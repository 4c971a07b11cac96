// The pin's configuration interfaces: IAMStreamConfig and IKsPropertySet.

#include "filter/capture_pin.h"

#include <cstring>
#include <utility>

#include <uuids.h>
#include <vfwmsgs.h>

#include "base/boundary.h"
#include "filter/graph_reconnect.h"
#include "model/color_coding.h"

namespace kolmsim {

std::vector<OfferedFormat> CCapturePin::Offers() {
    std::vector<OfferedFormat> offers;
    for (OfferedFormat offer; m_host.Camera()->OfferedVideoFormat(offers.size(), &offer);) {
        offers.push_back(offer);
    }
    return offers;
}

StreamFormat CCapturePin::PresentFormat() {
    VideoFormat current;
    const bool works = m_host.Camera()->CurrentVideoFormat(&current);
    if (m_peer != nullptr) {
        StreamFormat connected = m_connected;
        if (works && current.SameLayout(connected.video)) {
            connected.video = current;
        }
        return connected;
    }
    if (!works) {
        current = Offers().front().usual;
    }
    return {.video = current, .topDown = m_topDown && current.colorCoding == kRgb8};
}

std::vector<StreamFormat> CCapturePin::OfferedStreams() {
    std::vector<StreamFormat> streams = {PresentFormat()};
    if (m_chosen) {
        return streams;
    }
    const VideoFormat present = streams.front().video;
    for (const OfferedFormat& offer : Offers()) {
        if (!offer.usual.SameLayout(present)) {
            streams.push_back({.video = offer.usual, .topDown = false});
        }
    }
    return streams;
}

std::optional<StreamFormat> CCapturePin::Accept(const AM_MEDIA_TYPE& type, HRESULT* hr) {
    std::optional<StreamFormat> format = ParseMediaType(type, Offers());
    *hr = format ? m_host.Camera()->CheckVideoFormat(m_geometry, &format->video) : E_INVALIDARG;
    if (*hr == E_INVALIDARG) {
        *hr = VFW_E_INVALIDMEDIATYPE;
    }
    return SUCCEEDED(*hr) ? format : std::nullopt;
}

HRESULT CCapturePin::PrepareCamera() {
    StreamFormat present = PresentFormat();
    VideoFormat current;
    const bool isSet = m_host.Camera()->CurrentVideoFormat(&current) && current.SameLayout(present.video);
    const HRESULT hr = isSet ? m_host.Camera()->CheckVideoFormat(Geometry::agreed, &present.video)
                             : m_host.Camera()->SetVideoFormat(Geometry::agreed, &present.video);
    // Without a camera there is nothing to prepare: a stream without pictures, until one comes back.
    return hr == HRESULT_FROM_WIN32(ERROR_DEVICE_NOT_CONNECTED) ? S_OK : hr;
}

HRESULT CCapturePin::SetFormat(AM_MEDIA_TYPE* type) {
    if (type == nullptr) {
        return E_POINTER;
    }
    const std::scoped_lock lock(m_host.Lock());
    if (!m_host.IsStopped()) {
        return VFW_E_NOT_STOPPED;
    }
    return kolmfluxor::AtBoundary([&]() -> HRESULT {
        HRESULT hr = S_OK;
        std::optional<StreamFormat> wanted = Accept(*type, &hr);
        if (!wanted) {
            return hr;
        }
        hr = m_peer != nullptr ? Reconnect(*wanted) : m_host.Camera()->SetVideoFormat(m_geometry, &wanted->video);
        if (SUCCEEDED(hr)) {
            m_chosen = true;
            m_topDown = wanted->topDown;
        }
        return SUCCEEDED(hr) ? S_OK : hr;
    });
}

HRESULT CCapturePin::Reconnect(const StreamFormat& format) {
    IFilterGraph* graph = m_host.Graph();
    if (graph == nullptr) {
        return VFW_E_NOT_IN_GRAPH;
    }
    const MediaType wanted = MakeMediaType(format);
    if (m_peer->QueryAccept(&wanted.Get()) != S_OK) {
        return VFW_E_INVALIDMEDIATYPE;
    }
    const MediaType before = MakeMediaType(PresentFormat());
    const Microsoft::WRL::ComPtr<IPin> peer = m_peer;
    m_geometry = Geometry::agreed;  // both formats have been accepted
    const HRESULT hr = ReconnectDownstream(graph, this, &wanted.Get());
    if (FAILED(hr) && m_peer == nullptr) {
        graph->ConnectDirect(this, peer.Get(), &before.Get());
    } else if (FAILED(hr)) {
        ReconnectDownstream(graph, this, &before.Get());
    }
    m_geometry = Geometry::bySwitch;
    return hr;
}

HRESULT CCapturePin::GetFormat(AM_MEDIA_TYPE** type) {
    if (type == nullptr) {
        return E_POINTER;
    }
    *type = nullptr;
    const std::scoped_lock lock(m_host.Lock());
    return kolmfluxor::AtBoundary([&] {
        *type = MakeMediaType(PresentFormat()).NewCopy();
        return *type != nullptr ? S_OK : E_OUTOFMEMORY;
    });
}

HRESULT CCapturePin::GetNumberOfCapabilities(int* count, int* bytes) {
    if (count == nullptr || bytes == nullptr) {
        return E_POINTER;
    }
    return kolmfluxor::AtBoundary([&] {
        *count = static_cast<int>(Offers().size());
        *bytes = static_cast<int>(sizeof(VIDEO_STREAM_CONFIG_CAPS));
        return S_OK;
    });
}

HRESULT CCapturePin::GetStreamCaps(int index, AM_MEDIA_TYPE** type, BYTE* caps) {
    if (type == nullptr || caps == nullptr) {
        return E_POINTER;
    }
    *type = nullptr;
    if (index < 0) {
        return E_INVALIDARG;
    }
    return kolmfluxor::AtBoundary([&] {
        OfferedFormat offer;
        if (!m_host.Camera()->OfferedVideoFormat(static_cast<std::size_t>(index), &offer)) {
            return S_FALSE;  // IAMStreamConfig's way to say that the list ends before
        }
        *type = MakeMediaType({.video = offer.usual, .topDown = false}).NewCopy();
        if (*type == nullptr) {
            return E_OUTOFMEMORY;
        }
        const VIDEO_STREAM_CONFIG_CAPS capabilities = MakeCapabilities(offer);
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
