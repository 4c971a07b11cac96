#pragma once
/// @file  A bare window with controls, for tests of the control wrappers.

#include <gtest/gtest.h>

#include <array>
#include <functional>
#include <optional>
#include <string>
#include <utility>

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

/// Sees a window's messages before the window does, as long as it lives. One for a window at a time.
class CSeenMessages {
public:
    /// What is done with a message; without a result the window goes on with it.
    using Handler = std::function<std::optional<LRESULT>(UINT message, WPARAM wParam, LPARAM lParam)>;

    CSeenMessages(HWND window, Handler handler) : m_window(window), m_handler(std::move(handler)) {
        EXPECT_EQ(::GetPropA(window, kProperty), nullptr) << "somebody sees them already";
        EXPECT_TRUE(::SetPropA(window, kProperty, this));
        m_original = reinterpret_cast<WNDPROC>(
            ::SetWindowLongPtrA(window, GWLP_WNDPROC, reinterpret_cast<LONG_PTR>(&Procedure)));
    }
    ~CSeenMessages() {
        ::SetWindowLongPtrA(m_window, GWLP_WNDPROC, reinterpret_cast<LONG_PTR>(m_original));
        ::RemovePropA(m_window, kProperty);
    }
    CSeenMessages(const CSeenMessages&) = delete;
    CSeenMessages& operator=(const CSeenMessages&) = delete;

private:
    static LRESULT CALLBACK Procedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
        const auto& self = *static_cast<CSeenMessages*>(::GetPropA(window, kProperty));
        const std::optional<LRESULT> result = self.m_handler(message, wParam, lParam);
        return result.has_value() ? *result : ::CallWindowProcA(self.m_original, window, message, wParam, lParam);
    }

    static constexpr char kProperty[] = "KolmSeenMessages";

    HWND m_window;
    Handler m_handler;
    WNDPROC m_original = nullptr;
};

/// Answers one message of a control with a fixed result, as a control does that fails.
class CRefusingControl {
public:
    CRefusingControl(HWND control, UINT message, LRESULT result)
        : m_seen(control,
                 [=](UINT sent, WPARAM, LPARAM) { return sent == message ? std::optional(result) : std::nullopt; }) {}

private:
    CSeenMessages m_seen;
};

}  // namespace kolmfluxor::test
