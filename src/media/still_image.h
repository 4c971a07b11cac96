#pragma once
/// @file  The still-image grabber.

#include <string>

#include <kolmfluxor/still_image.h>

#include "base/unknown.h"
#include "media/still_device.h"
#include "media/still_graph.h"
#include "media/still_picture.h"

namespace kolmfluxor {

/// Takes single pictures with a graph that exists only inside `Capture` and `ShowStreamPropertyPages`.
///
/// For one caller at a time; only the grabber's callback comes on another thread.
class CKolmStillImage final : public Implements<IKolmStillImage> {
public:
    /// Creation function of the class table.
    static CUnknown* CreateInstance(IUnknown* outer, HRESULT* hr);

    ~CKolmStillImage() override;

    // IKolmStillImage
    HRESULT STDMETHODCALLTYPE SelectDeviceByName(const wchar_t* friendlyName) override;
    HRESULT STDMETHODCALLTYPE SelectDeviceByIndex(ULONG position) override;
    HRESULT STDMETHODCALLTYPE Close() override;
    HRESULT STDMETHODCALLTYPE GetBufferSize(LONG* bytes) override;
    HRESULT STDMETHODCALLTYPE Capture() override;
    HRESULT STDMETHODCALLTYPE GetImageSize(LONG* width, LONG* height) override;
    HRESULT STDMETHODCALLTYPE GetBitmapInfoHeader(BITMAPINFOHEADER* header) override;
    HRESULT STDMETHODCALLTYPE GetBitmapInfo(BITMAPINFO* info) override;
    HRESULT STDMETHODCALLTYPE GetBuffer(BYTE* buffer) override;
    HRESULT STDMETHODCALLTYPE ShowDevicePropertyPages(HWND parent, const wchar_t* caption) override;
    HRESULT STDMETHODCALLTYPE ShowStreamPropertyPages(HWND parent, const wchar_t* caption) override;
    HRESULT STDMETHODCALLTYPE GetDeviceUnknown(IUnknown** device) override;
    HRESULT STDMETHODCALLTYPE GetDevicePath(BSTR* path) override;
    HRESULT STDMETHODCALLTYPE SetMediaTypeFile(const char* fileName) override;

private:
    /// What the sample grabber calls. Counts for the object; a query does not find it.
    class CGrabberCallback final : public ISampleGrabberCB {
    public:
        explicit CGrabberCallback(CKolmStillImage& object) noexcept : m_object(object) {}

        // IUnknown
        HRESULT STDMETHODCALLTYPE QueryInterface(REFIID riid, void** out) override;
        ULONG STDMETHODCALLTYPE AddRef() override;
        ULONG STDMETHODCALLTYPE Release() override;

        // ISampleGrabberCB
        HRESULT STDMETHODCALLTYPE SampleCB(double time, IMediaSample* sample) override;
        HRESULT STDMETHODCALLTYPE BufferCB(double time, BYTE* buffer, LONG bytes) override;

    private:
        CKolmStillImage& m_object;
    };

    explicit CKolmStillImage(IUnknown* outer) noexcept;

    HRESULT CaptureWithGraph();
    HRESULT LimitFrameRate();
    HRESULT TakePicture();
    HRESULT PrepareFormat();
    HRESULT RunUntilDelivered();

    CStillDevice m_device;
    CStillPicture m_picture;
    CStillGraph m_graph;
    CGrabberCallback m_callback;
    std::string m_mediaTypeFile;  // ANSI; empty: none
};

}  // namespace kolmfluxor
