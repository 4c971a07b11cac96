#pragma once
/// @file  Message boxes answered as soon as they come, on the thread that shows them.

#include <gtest/gtest.h>

#include <array>
#include <string_view>

#include <windows.h>

namespace kolmfluxor::test {

/// Presses OK in every message box of this thread as long as it lives. There is one at a time.
///
/// Cheaper than a second thread that looks for boxes; one that wants to see texts, or dialogs of other kinds, is
/// `CModalUser`.
class CBoxAnswerer {
public:
    CBoxAnswerer() : m_hook(::SetWindowsHookExA(WH_CBT, &Answer, nullptr, ::GetCurrentThreadId())) {
        EXPECT_NE(m_hook, nullptr);
        s_answered = 0;
    }
    ~CBoxAnswerer() { ::UnhookWindowsHookEx(m_hook); }
    CBoxAnswerer(const CBoxAnswerer&) = delete;
    CBoxAnswerer& operator=(const CBoxAnswerer&) = delete;

    [[nodiscard]] int Answered() const { return s_answered; }

private:
    static LRESULT CALLBACK Answer(int code, WPARAM wParam, LPARAM lParam) {
        HWND const window = reinterpret_cast<HWND>(wParam);
        if (code == HCBT_ACTIVATE && IsBox(window)) {
            ++s_answered;
            ::PostMessageA(window, WM_COMMAND, IDOK, 0);
        }
        return ::CallNextHookEx(nullptr, code, wParam, lParam);
    }
    static bool IsBox(HWND window) {
        constexpr int kMessageText = 0xFFFF;
        std::array<char, 16> name{};
        ::GetClassNameA(window, name.data(), static_cast<int>(name.size()));
        return std::string_view(name.data()) == "#32770" && ::GetDlgItem(window, kMessageText) != nullptr;
    }

    static inline int s_answered = 0;
    HHOOK m_hook;
};

}  // namespace kolmfluxor::test
