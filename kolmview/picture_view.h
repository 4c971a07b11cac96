#pragma once
/// @file  A control that shows a picture, and a text over it.

#include <string>

#include <windows.h>

#include "picture.h"

namespace kolmview {

/// A window of this class in a dialog, and what it shows. Paints only when Windows asks for it: pictures may come
/// faster.
class PictureView {
public:
    static constexpr wchar_t kClass[] = L"KolmViewPicture";

    /// Registers the class; for dialogs to be made after that.
    static void RegisterClass();

    PictureView() = default;
    ~PictureView() { Detach(); }
    PictureView(const PictureView&) = delete;
    PictureView& operator=(const PictureView&) = delete;

    /// Paints this window from now on. @param window  of the class above
    void Attach(HWND window);
    /// The window paints nothing from now on.
    void Detach();

    /// What is shown; change it in place, then call Changed.
    [[nodiscard]] kolmctl::Picture& Shown() { return m_picture; }
    void Changed() { ::InvalidateRect(m_window, nullptr, FALSE); }

    /// Shows a text over the picture; an empty one for none.
    void SetText(const std::wstring& text);
    [[nodiscard]] const std::wstring& Text() const { return m_text; }

    /// The window's size in pixels.
    [[nodiscard]] SIZE Size() const;

private:
    static LRESULT CALLBACK WindowProc(HWND window, UINT message, WPARAM wParam, LPARAM lParam);
    void Paint(HDC dc) const;
    void PaintText(HDC dc) const;

    HWND m_window = nullptr;
    kolmctl::Picture m_picture;
    std::wstring m_text;
};

}  // namespace kolmview
