#include "frame/window_picture.h"

#include <cstring>
#include <memory>

#include <objbase.h>

#include <wincodec.h>
#include <wrl/client.h>

#include "errors.h"
#include "text.h"

namespace kolmctl {
namespace {

using Microsoft::WRL::ComPtr;

struct WindowDcRelease {
    using pointer = HDC;
    HWND window;
    void operator()(HDC dc) const { ::ReleaseDC(window, dc); }
};
struct DcDelete {
    using pointer = HDC;
    void operator()(HDC dc) const { ::DeleteDC(dc); }
};
struct BitmapDelete {
    using pointer = HBITMAP;
    void operator()(HBITMAP bitmap) const { ::DeleteObject(bitmap); }
};
using WindowDc = std::unique_ptr<HDC, WindowDcRelease>;
using MemoryDc = std::unique_ptr<HDC, DcDelete>;
using OwnedBitmap = std::unique_ptr<HBITMAP, BitmapDelete>;

[[noreturn]] void ThrowLastError(const char* failed) {
    throw CallError(failed, HRESULT_FROM_WIN32(::GetLastError()));
}

BITMAPINFO FormatOf(const Picture& picture) {
    BITMAPINFO format{};
    format.bmiHeader.biSize = sizeof format.bmiHeader;
    format.bmiHeader.biWidth = static_cast<LONG>(picture.width);
    format.bmiHeader.biHeight = -static_cast<LONG>(picture.height);  // negative: top row first
    format.bmiHeader.biPlanes = 1;
    format.bmiHeader.biBitCount = 24;
    return format;
}

ComPtr<IWICBitmapFrameEncode> OpenPng(IWICImagingFactory* factory, IWICBitmapEncoder* encoder,
                                      const std::wstring& file) {
    ComPtr<IWICStream> stream;
    Check(factory->CreateStream(stream.GetAddressOf()), "cannot make a stream");
    const std::string failed = "cannot write \"" + ToUtf8(file) + "\"";
    Check(stream->InitializeFromFilename(file.c_str(), GENERIC_WRITE), failed);
    Check(encoder->Initialize(stream.Get(), WICBitmapEncoderNoCache), failed);
    ComPtr<IWICBitmapFrameEncode> frame;
    Check(encoder->CreateNewFrame(frame.GetAddressOf(), nullptr), failed);
    Check(frame->Initialize(nullptr), failed);
    return frame;
}

}  // namespace

bool Picture::IsBlank() const {
    for (std::size_t y = 0; y < height; ++y) {
        const BYTE* const row = pixels.data() + y * RowBytes();
        for (std::size_t x = 0; x < width; ++x) {
            if (std::memcmp(row + 3 * x, pixels.data(), 3) != 0) {
                return false;
            }
        }
    }
    return true;
}

Picture TakePicture(HWND window) {
    RECT client{};
    ::GetClientRect(window, &client);
    Picture picture;
    picture.width = static_cast<UINT>(client.right);
    picture.height = static_cast<UINT>(client.bottom);

    // A cached context takes the children's windows in, whatever the window's styles are.
    const WindowDc source(::GetDCEx(window, nullptr, DCX_CACHE), {window});
    const MemoryDc memory(::CreateCompatibleDC(source.get()));
    const BITMAPINFO format = FormatOf(picture);
    void* bits = nullptr;
    const OwnedBitmap bitmap(::CreateDIBSection(memory.get(), &format, DIB_RGB_COLORS, &bits, nullptr, 0));
    if (source == nullptr || memory == nullptr || bitmap == nullptr) {
        ThrowLastError("cannot make a bitmap");
    }
    HGDIOBJ const before = ::SelectObject(memory.get(), bitmap.get());
    const BOOL copied =
        ::BitBlt(memory.get(), 0, 0, client.right, client.bottom, source.get(), 0, 0, SRCCOPY | CAPTUREBLT);
    ::GdiFlush();
    ::SelectObject(memory.get(), before);
    if (!copied) {
        ThrowLastError("cannot read the window's pixels");
    }
    const auto* const first = static_cast<const BYTE*>(bits);
    picture.pixels.assign(first, first + picture.RowBytes() * picture.height);
    return picture;
}

void WritePng(const Picture& picture, const std::wstring& file) {
    ComPtr<IWICImagingFactory> factory;
    Check(::CoCreateInstance(CLSID_WICImagingFactory, nullptr, CLSCTX_INPROC_SERVER, __uuidof(IWICImagingFactory),
                             reinterpret_cast<void**>(factory.GetAddressOf())),
          "the system's imaging component is not there");
    ComPtr<IWICBitmapEncoder> encoder;
    Check(factory->CreateEncoder(GUID_ContainerFormatPng, nullptr, encoder.GetAddressOf()), "cannot write PNG");
    const ComPtr<IWICBitmapFrameEncode> frame = OpenPng(factory.Get(), encoder.Get(), file);

    const std::string failed = "cannot write \"" + ToUtf8(file) + "\"";
    WICPixelFormatGUID format = GUID_WICPixelFormat24bppBGR;
    Check(frame->SetSize(picture.width, picture.height), failed);
    Check(frame->SetPixelFormat(&format), failed);
    if (format != GUID_WICPixelFormat24bppBGR) {
        throw CallError(failed, WINCODEC_ERR_UNSUPPORTEDPIXELFORMAT);
    }
    std::vector<BYTE> pixels = picture.pixels;  // the encoder's parameter is not const
    Check(frame->WritePixels(picture.height, static_cast<UINT>(picture.RowBytes()), static_cast<UINT>(pixels.size()),
                             pixels.data()),
          failed);
    Check(frame->Commit(), failed);
    Check(encoder->Commit(), failed);
}

}  // namespace kolmctl
