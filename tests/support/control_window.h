#pragma once
/// @file  A bare window with controls, for tests of the control wrappers.

#include <gtest/gtest.h>

#include <array>
#include <string>

#include <windows.h>

#include "support/own_desktop.h"

namespace kolmfluxor::test {

/// Stands in for a page's dialog; controls are added by class and id.
class CControlWindow {
public:
    CControlWindow() {
        COwnDesktop::Enter();
        m_window = ::CreateWindowExA(0, "STATIC", "", WS_OVERLAPPEDWINDOW | WS_VISIBLE, 0, 0, 400, 400, nullptr,
                                     nullptr, nullptr, nullptr);
        EXPECT_NE(m_window, nullptr);
    }
    ~CControlWindow() { ::DestroyWindow(m_window); }
    CControlWindow(const CControlWindow&) = delete;
    CControlWindow& operator=(const CControlWindow&) = delete;

    HWND Add(const char* windowClass, int id, DWORD style = 0) {
        HWND const control =
            ::CreateWindowExA(0, windowClass, "", WS_CHILD | WS_VISIBLE | style, 10, 10, 120, 100, m_window,
                              reinterpret_cast<HMENU>(static_cast<INT_PTR>(id)), nullptr, nullptr);
        EXPECT_NE(control, nullptr) << windowClass;
        return control;
    }
    /// What a wrapper is given: the place of a page's window handle.
    [[nodiscard]] const HWND* Place() const { return &m_window; }
    [[nodiscard]] HWND Handle() const { return m_window; }
    [[nodiscard]] std::string Text(int id) const {
        std::array<char, 512> text{};
        ::GetDlgItemTextA(m_window, id, text.data(), static_cast<int>(text.size()));
        return text.data();
    }
    [[nodiscard]] bool IsEnabled(int id) const { return ::IsWindowEnabled(::GetDlgItem(m_window, id)) != FALSE; }

private:
    HWND m_window = nullptr;
};

/// Answers chosen messages of a control with a fixed result, as a control does that fails.
class CRefusingControl {
public:
    CRefusingControl(HWND control, UINT message, LRESULT result) : m_control(control) {
        s_message = message;
        s_result = result;
        s_original = reinterpret_cast<WNDPROC>(
            ::SetWindowLongPtrA(control, GWLP_WNDPROC, reinterpret_cast<LONG_PTR>(&Procedure)));
    }
    ~CRefusingControl() { ::SetWindowLongPtrA(m_control, GWLP_WNDPROC, reinterpret_cast<LONG_PTR>(s_original)); }
    CRefusingControl(const CRefusingControl&) = delete;
    CRefusingControl& operator=(const CRefusingControl&) = delete;

private:
    static LRESULT CALLBACK Procedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
        if (message == s_message) return s_result;
        return ::CallWindowProcA(s_original, window, message, wParam, lParam);
    }

    static inline UINT s_message = 0;
    static inline LRESULT s_result = 0;
    static inline WNDPROC s_original = nullptr;

    HWND m_control;
};

}  // namespace kolmfluxor::test
