#include "media/still_image.h"

#include <new>
#include <tuple>

#include <uuids.h>

#include "base/boundary.h"
#include "base/errors.h"
#include "base/handles.h"
#include "base/media_type.h"
#include "media/ansi_text.h"
#include "media/in_turn.h"
#include "media/media_type_file.h"
#include "media/property_frame.h"

namespace kolmfluxor {
namespace {

constexpr REFERENCE_TIME kFrameTime = 2666666;  // 10'000'000 / 3.75 fps, in 100 ns
constexpr HRESULT kNoFormat = -1;

/// The header of a type that is FORMAT_VideoInfo and has a whole one; else null.
VIDEOINFOHEADER* VideoInfo(const AM_MEDIA_TYPE& type) noexcept {
    const bool whole = type.pbFormat != nullptr && type.cbFormat >= sizeof(VIDEOINFOHEADER);
    return type.formattype == FORMAT_VideoInfo && whole ? reinterpret_cast<VIDEOINFOHEADER*>(type.pbFormat) : nullptr;
}

HRESULT GetFormat(IAMStreamConfig& config, UniqueMediaType& type) {
    AM_MEDIA_TYPE* given = nullptr;
    const HRESULT hr = Obtain(given, [&] { return config.GetFormat(&given); });
    type.reset(given);
    return hr;
}

}  // namespace

CUnknown* CKolmStillImage::CreateInstance(IUnknown* outer, HRESULT* hr) {
    auto* const object = new (std::nothrow) CKolmStillImage(outer);
    if (object == nullptr || !object->m_picture.IsUsable()) *hr = E_OUTOFMEMORY;
    return object;
}

CKolmStillImage::CKolmStillImage(IUnknown* outer) noexcept : Implements(outer), m_callback(*this) {}

CKolmStillImage::~CKolmStillImage() {
    std::ignore = CKolmStillImage::Close();
}

HRESULT CKolmStillImage::SelectDeviceByName(const wchar_t* friendlyName) {
    if (friendlyName == nullptr) return E_POINTER;
    return AtBoundary([&] { return m_device.SelectByName(friendlyName); });
}

HRESULT CKolmStillImage::SelectDeviceByIndex(ULONG position) {
    return AtBoundary([&] { return m_device.SelectByIndex(position); });
}

HRESULT CKolmStillImage::Close() {
    m_graph.Release();
    m_device.Release();
    m_picture.Free();
    return S_OK;
}

HRESULT CKolmStillImage::GetBufferSize(LONG* bytes) {
    if (bytes == nullptr) return E_POINTER;
    *bytes = m_picture.SizeBytes();
    return S_OK;
}

HRESULT CKolmStillImage::Capture() {
    return AtBoundary([&] {
        const ScopeExit end([&] { m_graph.Release(); });
        return CaptureWithGraph();
    });
}

HRESULT CKolmStillImage::GetImageSize(LONG* width, LONG* height) {
    if (width == nullptr || height == nullptr) return E_POINTER;
    *width = m_picture.Width();
    *height = m_picture.Height();
    return S_OK;
}

HRESULT CKolmStillImage::GetBitmapInfoHeader(BITMAPINFOHEADER* header) {
    if (header == nullptr) return E_POINTER;
    *header = m_picture.Header();
    return S_OK;
}

HRESULT CKolmStillImage::GetBitmapInfo(BITMAPINFO* info) {
    if (info == nullptr) return E_POINTER;
    *info = {m_picture.Header(), {}};
    return S_OK;
}

HRESULT CKolmStillImage::GetBuffer(BYTE* buffer) {
    if (buffer == nullptr) return E_POINTER;
    return m_picture.CopyTo(buffer) ? S_OK : E_FAIL;
}

HRESULT CKolmStillImage::ShowDevicePropertyPages(HWND parent, const wchar_t* caption) {
    if (caption == nullptr) return E_POINTER;
    if (m_device.Filter() == nullptr) return E_FAIL;
    const Microsoft::WRL::ComPtr<IUnknown> held(Owner());  // the host may release it while the frame is open
    return AtBoundary([&] {
        return ShowPropertyFrame(*m_device.Filter(), parent != nullptr ? parent : ::GetDesktopWindow(), caption);
    });
}

HRESULT CKolmStillImage::ShowStreamPropertyPages(HWND parent, const wchar_t* caption) {
    if (caption == nullptr) return E_POINTER;
    if (m_device.Filter() == nullptr) return E_FAIL;
    const Microsoft::WRL::ComPtr<IUnknown> held(Owner());
    return AtBoundary([&] {
        const ScopeExit end([&] { m_graph.Release(); });
        return InTurn([&] { return m_graph.Build(m_device.Filter()); }, [&] { return m_graph.FindConfig(); },
                      [&] {
                          // Compatibility: another fall-back than that of the device's pages. Hosts arrange their
                          // windows around the two.
                          HWND const owner = parent != nullptr ? parent : ::GetShellWindow();
                          return ShowPropertyFrame(*m_graph.Config(), owner, caption);
                      });
    });
}

HRESULT CKolmStillImage::GetDeviceUnknown(IUnknown** device) {
    if (device == nullptr) return E_POINTER;
    *device = nullptr;
    if (m_device.Filter() == nullptr) return E_FAIL;
    return Obtain(*device, [&] {
        return m_device.Filter()->QueryInterface(__uuidof(IUnknown), reinterpret_cast<void**>(device));
    });
}

HRESULT CKolmStillImage::GetDevicePath(BSTR* path) {
    if (path == nullptr) return E_POINTER;
    *path = nullptr;
    return AtBoundary([&] {
        *path = ::SysAllocString(FromThreadAnsi(m_device.DisplayName()).c_str());
        return *path != nullptr ? S_OK : E_OUTOFMEMORY;
    });
}

HRESULT CKolmStillImage::SetMediaTypeFile(const char* fileName) {
    return AtBoundary([&] {
        m_mediaTypeFile = fileName != nullptr ? fileName : "";
        return S_OK;
    });
}

HRESULT CKolmStillImage::CaptureWithGraph() {
    HRESULT hr = InTurn([&] { return m_graph.Build(m_device.Filter()); }, [&] { return m_graph.Render(); },
                        [&] { return m_graph.FindConfig(); }, [&] { return LimitFrameRate(); });
    if (FAILED(hr)) return hr;

    hr = TakePicture();
    if (FAILED(hr)) m_picture.Abandon();
    return hr;
}

HRESULT CKolmStillImage::LimitFrameRate() {
    UniqueMediaType type;
    const HRESULT hr = GetFormat(*m_graph.Config(), type);
    if (FAILED(hr)) return hr;
    VIDEOINFOHEADER* const video = VideoInfo(*type);
    if (video == nullptr) return S_OK;
    video->AvgTimePerFrame = kFrameTime;
    return m_graph.Config()->SetFormat(type.get());
}

HRESULT CKolmStillImage::TakePicture() {
    m_picture.Begin();
    // The picture decides about the code of a success: that a graph starts slowly is none of the caller's business.
    return InTurn([&] { return m_graph.Grab(&m_callback); }, [&] { return PrepareFormat(); },
                  [&] { return RunUntilDelivered(); }, [&] { return m_picture.Finish(); });
}

HRESULT CKolmStillImage::PrepareFormat() {
    UniqueMediaType type;
    if (FAILED(GetFormat(*m_graph.Config(), type))) return kNoFormat;
    if (!m_mediaTypeFile.empty()) ReadMediaTypeFile(m_mediaTypeFile.c_str(), *type);

    VIDEOINFOHEADER* const video = VideoInfo(*type);
    if (video == nullptr) return S_OK;  // not known to be a bitmap: the samples stay as they are
    m_picture.Describe(*type, *video);
    video->AvgTimePerFrame = kFrameTime;
    return m_graph.Config()->SetFormat(type.get());
}

HRESULT CKolmStillImage::RunUntilDelivered() {
    m_picture.ExpectSample();
    const HRESULT hr = InTurn([&] { return m_graph.Control()->Run(); }, [&] { return m_picture.Wait(); });
    // Compatibility: the stream runs on between the first sample and here, so that the picture may be a newer one.
    const HRESULT stopped = m_graph.Control()->Stop();
    return FAILED(hr) ? hr : stopped;
}

HRESULT CKolmStillImage::CGrabberCallback::QueryInterface(REFIID riid, void** out) {
    return m_object.Owner()->QueryInterface(riid, out);
}

ULONG CKolmStillImage::CGrabberCallback::AddRef() {
    return m_object.Owner()->AddRef();
}

ULONG CKolmStillImage::CGrabberCallback::Release() {
    return m_object.Owner()->Release();
}

HRESULT CKolmStillImage::CGrabberCallback::SampleCB(double, IMediaSample*) {
    return E_NOTIMPL;
}

HRESULT CKolmStillImage::CGrabberCallback::BufferCB(double, BYTE* buffer, LONG bytes) {
    m_object.m_picture.Deliver(buffer, bytes);
    return S_OK;
}

}  // namespace kolmfluxor
