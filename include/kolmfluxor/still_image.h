#pragma once
/// @file  `IKolmStillImage`: single pictures of a video capture device, without a filter graph of one's own.
///
/// ```cpp
/// #include <kolmfluxor/identifiers.h>
/// #include <kolmfluxor/still_image.h>
///
/// ComPtr<kolmfluxor::IKolmStillImage> still;  // the calling thread has initialized COM
/// ::CoCreateInstance(kolmfluxor::CLSID_KolmStillImage, nullptr, CLSCTX_INPROC_SERVER, IID_PPV_ARGS(&still));
/// LONG bytes = 0;
/// BITMAPINFOHEADER header{};
/// if (still->SelectDeviceByIndex(0) == S_OK && still->Capture() == S_OK && still->GetBufferSize(&bytes) == S_OK) {
///     std::vector<BYTE> pixels(static_cast<std::size_t>(bytes));
///     still->GetBuffer(pixels.data());
///     // Rows are not padded; where the width is no multiple of 4, a BMP file needs that. They are bottom-up whatever
///     // the sign of the header's height.
///     still->GetBitmapInfoHeader(&header);
/// }
/// ```
///
/// The order of the methods is a binary contract; slots 0 to 2 are those of `IUnknown`, so the first method here is
/// slot 3. Rules that hold for every method:
/// - The result is an `HRESULT`. A null output, device name or caption gives `E_POINTER` before anything is done.
///   What DirectShow and the device answer is passed through unchanged. Treat any non-zero result, `S_FALSE` too, as a
///   failure.
/// - Wide names pass through the thread's ANSI code page; characters that it lacks become others.
/// - An object is for one caller at a time: calls from several threads must not overlap. Different objects are
///   independent of each other.

#include <windows.h>

#include <oleauto.h>
#include <unknwn.h>

namespace kolmfluxor {

MIDL_INTERFACE("48AB0603-9373-4E62-BA8A-A2DBF6CD38ED")
IKolmStillImage : public IUnknown {
    // ---- The device ----------------------------------------------------------------------------------------------

    /// Slot 3. Selects the first video input device whose friendly name equals `friendlyName`, case included.
    ///
    /// Devices that cannot be read are passed over. A selection that fails keeps the device selected before.
    /// @return  `S_OK`; `S_FALSE` when no device has that name; `E_FAIL` when there is no device at all; else the code
    ///          of the enumeration or of the device that could not be opened
    virtual HRESULT STDMETHODCALLTYPE SelectDeviceByName(const wchar_t* friendlyName) = 0;
    /// Slot 4. Selects a device by its position in the system's list; 0 is the first. Results as above.
    virtual HRESULT STDMETHODCALLTYPE SelectDeviceByIndex(ULONG position) = 0;
    /// Slot 5. Releases the device and frees the picture. Dimensions, header, path and file name stay. `S_OK`.
    virtual HRESULT STDMETHODCALLTYPE Close() = 0;

    // ---- The picture ---------------------------------------------------------------------------------------------

    /// Slot 6. Size of the picture in bytes; -1 when there is none.
    virtual HRESULT STDMETHODCALLTYPE GetBufferSize(LONG * bytes) = 0;
    /// Slot 7. Takes a picture at 3.75 frames per second, and waits for it as long as it takes.
    ///
    /// 8-bit mono (FOURCC "Y800") and "UYVY" become 24-bit BGR, whose first row is the last row of the sensor; rows are
    /// not padded. All other formats stay as the device delivers them.
    ///
    /// A failure before the device's stream is set up keeps the picture taken before; a later one leaves none.
    /// @return  `S_OK`; -1 when the device's format cannot be read again just before the picture; `E_POINTER` without a
    ///          device; `E_FAIL` when all that the device delivered was unusable; `E_OUTOFMEMORY`; else the code of the
    ///          call that failed
    virtual HRESULT STDMETHODCALLTYPE Capture() = 0;
    /// Slot 8. Dimensions of the last capture whose format had a bitmap header, in pixels; -1 before the first one. The
    /// height is that of the header, negative for a device that says it delivers top-down.
    virtual HRESULT STDMETHODCALLTYPE GetImageSize(LONG * width, LONG * height) = 0;
    /// Slot 9. Header of the last capture whose format had one; biSizeImage is the size that `GetBufferSize` tells.
    virtual HRESULT STDMETHODCALLTYPE GetBitmapInfoHeader(BITMAPINFOHEADER * header) = 0;
    /// Slot 10. The same header, followed by one color entry of zeros.
    virtual HRESULT STDMETHODCALLTYPE GetBitmapInfo(BITMAPINFO * info) = 0;
    /// Slot 11. Copies the picture. `E_FAIL` when there is none.
    ///
    /// @param buffer  the caller's, as large as `GetBufferSize` tells
    virtual HRESULT STDMETHODCALLTYPE GetBuffer(BYTE * buffer) = 0;

    // ---- Property pages and particulars --------------------------------------------------------------------------

    /// Slot 12. Shows the device's property pages and returns when the user has closed them.
    ///
    /// @param parent   owner of the frame; null for the desktop window
    /// @param caption  of the frame
    /// @return  `E_FAIL` when no device is selected or it has no page; else the code of what failed
    virtual HRESULT STDMETHODCALLTYPE ShowDevicePropertyPages(HWND parent, const wchar_t* caption) = 0;
    /// Slot 13. Shows the property pages of the device's capture stream in the same way.
    ///
    /// @param parent  null for the shell's window
    virtual HRESULT STDMETHODCALLTYPE ShowStreamPropertyPages(HWND parent, const wchar_t* caption) = 0;
    /// Slot 14. The selected device's filter; released by the caller. `E_FAIL`, and null, when no device is selected.
    virtual HRESULT STDMETHODCALLTYPE GetDeviceUnknown(IUnknown * *device) = 0;
    /// Slot 15. Display name of the device that the last selection looked at last, whether it was selected or not, cut
    /// to 255 characters; empty before the first selection. Freed by the caller with `SysFreeString`.
    virtual HRESULT STDMETHODCALLTYPE GetDevicePath(BSTR * path) = 0;
    /// Slot 16. Names a file that changes the device's media type at each capture; null: none. `S_OK`.
    ///
    /// The file holds an `AM_MEDIA_TYPE` and a `VIDEOINFOHEADER`, 88 bytes each, and is read in text mode: CR LF counts
    /// as LF, and byte 0x1A ends it. Of the first record, major type, subtype, the two flags, sample size and format
    /// type count; the second one replaces the header. A file that cannot be opened changes nothing, one that is too
    /// short what it holds.
    virtual HRESULT STDMETHODCALLTYPE SetMediaTypeFile(const char* fileName) = 0;

protected:
    ~IKolmStillImage() = default;  // lifetime is Release()'s; not virtual: it must take no slot
};

}  // namespace kolmfluxor

#ifdef __CRT_UUID_DECL
__CRT_UUID_DECL(kolmfluxor::IKolmStillImage, 0x48AB0603, 0x9373, 0x4E62, 0xBA, 0x8A, 0xA2, 0xDB, 0xF6, 0xCD, 0x38, 0xED)
#endif
