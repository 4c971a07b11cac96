#pragma once
/// @file  A desktop of the test's own, so that tests with windows do not disturb one another.

#include <gtest/gtest.h>

#include <cstdio>
#include <string>

#include <windows.h>

namespace kolmfluxor::test {

/// Puts the calling thread on a new desktop; do so before it has any window. One for the whole process.
class COwnDesktop {
public:
    static void Enter() { static const COwnDesktop desktop; }

private:
    COwnDesktop() {
        const std::string name = "KolmFluxorTests" + std::to_string(::GetCurrentProcessId());
        m_desktop = ::CreateDesktopA(name.c_str(), nullptr, nullptr, 0, GENERIC_ALL, nullptr);
        EXPECT_NE(m_desktop, nullptr);
        EXPECT_TRUE(::SetThreadDesktop(m_desktop));
        RequireWindows();
    }

    /// Under load Wine now and then starts a desktop on which this process can never make a window. No test has looked
    /// at anything by then; the runner starts the program anew when it ends with this code.
    static void RequireWindows() {
        constexpr UINT kStartAnew = 75;
        HWND const probe = ::CreateWindowExA(0, "STATIC", "", WS_POPUP, 0, 0, 1, 1, nullptr, nullptr, nullptr, nullptr);
        if (probe == nullptr) {
            std::fputs("no window can be made on the new desktop\n", stderr);
            std::fflush(stderr);
            ::ExitProcess(kStartAnew);
        }
        ::DestroyWindow(probe);
    }

    HDESK m_desktop;
};

}  // namespace kolmfluxor::test
