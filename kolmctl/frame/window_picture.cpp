#include "frame/window_picture.h"

#include <memory>

#include "errors.h"

namespace kolmctl {
namespace {

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

}  // namespace

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

}  // namespace kolmctl
