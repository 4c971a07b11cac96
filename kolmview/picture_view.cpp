#include "kolmview/picture_view.h"

#include "kolmview/fit.h"

namespace kolmview {
namespace {

constexpr COLORREF kAround = RGB(32, 32, 32);
constexpr COLORREF kTextColor = RGB(255, 255, 255);
constexpr int kTextMargin = 8;  // pixels

HBRUSH Brush() {
    // One for all, until the process ends.
    static HBRUSH const brush = ::CreateSolidBrush(kAround);
    return brush;
}

}  // namespace

void PictureView::RegisterClass() {
    WNDCLASSEXW windowClass{};
    windowClass.cbSize = sizeof windowClass;
    windowClass.style = CS_HREDRAW | CS_VREDRAW;
    windowClass.lpfnWndProc = WindowProc;
    windowClass.hInstance = ::GetModuleHandleW(nullptr);
    windowClass.hCursor = ::LoadCursorW(nullptr, reinterpret_cast<LPCWSTR>(IDC_ARROW));
    windowClass.lpszClassName = kClass;
    ::RegisterClassExW(&windowClass);  // a second time it is there already
}

void PictureView::Attach(HWND window) {
    Detach();
    m_window = window;
    ::SetWindowLongPtrW(window, GWLP_USERDATA, reinterpret_cast<LONG_PTR>(this));
}

void PictureView::Detach() {
    if (m_window != nullptr) {
        ::SetWindowLongPtrW(m_window, GWLP_USERDATA, 0);
        m_window = nullptr;
    }
}

void PictureView::SetText(const std::wstring& text) {
    if (text != m_text) {
        m_text = text;
        Changed();
    }
}

SIZE PictureView::Size() const {
    RECT area{};
    ::GetClientRect(m_window, &area);
    return {area.right, area.bottom};
}

LRESULT CALLBACK PictureView::WindowProc(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
    auto* const view = reinterpret_cast<PictureView*>(::GetWindowLongPtrW(window, GWLP_USERDATA));
    if (view == nullptr) {
        return ::DefWindowProcW(window, message, wParam, lParam);
    }
    switch (message) {
    case WM_PAINT: {
        PAINTSTRUCT paint{};
        view->Paint(::BeginPaint(window, &paint));
        ::EndPaint(window, &paint);
        return 0;
    }
    case WM_ERASEBKGND:
        return 1;  // all of it is painted
    case WM_NCDESTROY:
        view->Detach();
        break;
    default:
        break;
    }
    return ::DefWindowProcW(window, message, wParam, lParam);
}

void PictureView::Paint(HDC dc) const {
    const SIZE size = Size();
    const Box place = FitInside(m_picture.width, m_picture.height, size.cx, size.cy);
    if (place.width > 0) {
        const BITMAPINFO format = kolmctl::FormatOf(m_picture);
        ::SetStretchBltMode(dc, COLORONCOLOR);  // fast, and each pixel shown is one of the camera's
        ::StretchDIBits(dc, place.left, place.top, place.width, place.height, 0, 0, static_cast<int>(m_picture.width),
                        static_cast<int>(m_picture.height), m_picture.pixels.data(), &format, DIB_RGB_COLORS, SRCCOPY);
        ::ExcludeClipRect(dc, place.left, place.top, place.left + place.width, place.top + place.height);
    }
    const RECT all = {0, 0, size.cx, size.cy};
    ::FillRect(dc, &all, Brush());
    ::SelectClipRgn(dc, nullptr);
    if (!m_text.empty()) {
        PaintText(dc);
    }
}

void PictureView::PaintText(HDC dc) const {
    const SIZE size = Size();
    auto* const font = reinterpret_cast<HFONT>(::SendMessageW(::GetParent(m_window), WM_GETFONT, 0, 0));
    HGDIOBJ const before = font != nullptr ? ::SelectObject(dc, font) : nullptr;
    constexpr UINT kFormat = DT_CENTER | DT_WORDBREAK | DT_NOPREFIX | DT_EDITCONTROL;
    RECT text = {0, 0, size.cx - 4 * kTextMargin, 0};
    ::DrawTextW(dc, m_text.c_str(), -1, &text, kFormat | DT_CALCRECT);
    ::OffsetRect(&text, (size.cx - text.right) / 2, (size.cy - text.bottom) / 2);

    RECT band = text;
    ::InflateRect(&band, kTextMargin, kTextMargin);
    ::FillRect(dc, &band, Brush());
    ::SetBkMode(dc, TRANSPARENT);
    ::SetTextColor(dc, kTextColor);
    ::DrawTextW(dc, m_text.c_str(), -1, &text, kFormat);
    if (before != nullptr) {
        ::SelectObject(dc, before);
    }
}

}  // namespace kolmview
