#pragma once
/// @file  A desktop of the test's own, so that tests with windows do not disturb one another.

#include <gtest/gtest.h>

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
    }

    HDESK m_desktop;
};

}  // namespace kolmfluxor::test
