#pragma once
/// @file  The sample grabber's callback.

#include <atomic>

#include <windows.h>

#include <strmif.h>

#include <qedit.h>

#include "kolmview/newest_sample.h"

namespace kolmview {

/// Puts each sample that a sample grabber shows where the window finds it. Counted like any COM object; made with one
/// reference, the maker's. The grabber calls it on the stream's thread.
class SampleSink final : public ISampleGrabberCB {
public:
    [[nodiscard]] NewestSample& Newest() { return m_newest; }

    // IUnknown
    HRESULT STDMETHODCALLTYPE QueryInterface(REFIID riid, void** out) override;
    ULONG STDMETHODCALLTYPE AddRef() override { return ++m_references; }
    ULONG STDMETHODCALLTYPE Release() override;

    // ISampleGrabberCB
    HRESULT STDMETHODCALLTYPE SampleCB(double time, IMediaSample* sample) override;
    HRESULT STDMETHODCALLTYPE BufferCB(double time, BYTE* data, LONG bytes) override;

private:
    ~SampleSink() = default;

    std::atomic<ULONG> m_references = 1;
    NewestSample m_newest;
};

}  // namespace kolmview
