#include "kolmview/sample_sink.h"

#include <chrono>
#include <new>

namespace kolmview {

HRESULT SampleSink::QueryInterface(REFIID riid, void** out) {
    if (out == nullptr) {
        return E_POINTER;
    }
    if (riid != __uuidof(IUnknown) && riid != __uuidof(ISampleGrabberCB)) {
        *out = nullptr;
        return E_NOINTERFACE;
    }
    *out = static_cast<ISampleGrabberCB*>(this);
    AddRef();
    return S_OK;
}

ULONG SampleSink::Release() {
    const ULONG left = --m_references;
    if (left == 0) {
        delete this;
    }
    return left;
}

HRESULT SampleSink::SampleCB(double /*time*/, IMediaSample* /*sample*/) {
    return E_NOTIMPL;  // the grabber is told to call the other one
}

HRESULT SampleSink::BufferCB(double /*time*/, BYTE* data, LONG bytes) {
    if (data == nullptr || bytes < 0) {
        return E_INVALIDARG;
    }
    try {
        m_newest.Put({data, static_cast<std::size_t>(bytes)}, std::chrono::steady_clock::now());
    } catch (const std::bad_alloc&) {
        return E_OUTOFMEMORY;  // this sample is lost, the stream goes on
    }
    return S_OK;
}

}  // namespace kolmview
