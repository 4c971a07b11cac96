#pragma once
/// @file  Pages that are linked with the test: how they come, where they stand, and how they go.

#include <gtest/gtest.h>

#include <array>
#include <string>

#include <windows.h>

#include <ocidl.h>

#include "base/module_state.h"
#include "support/own_desktop.h"

namespace kolmfluxor::test {

/// The window that a page's dialog stands in. Where it ends, every page has to be gone.
class CPageFrame {
public:
    CPageFrame() {
        COwnDesktop::Enter();
        RecordModule(::GetModuleHandleA(nullptr));
        m_window = ::CreateWindowExA(0, "STATIC", "", WS_OVERLAPPEDWINDOW | WS_VISIBLE, 0, 0, 700, 700, nullptr,
                                     nullptr, nullptr, nullptr);
        EXPECT_NE(m_window, nullptr);
    }
    ~CPageFrame() {
        ::DestroyWindow(m_window);
        EXPECT_EQ(CBaseObject::ObjectsActive(), 0) << "a page is left";
    }
    CPageFrame(const CPageFrame&) = delete;
    CPageFrame& operator=(const CPageFrame&) = delete;

    [[nodiscard]] HWND Window() const { return m_window; }
    /// The dialog of the active page; null without one.
    [[nodiscard]] HWND Dialog() const { return ::GetWindow(m_window, GW_CHILD); }
    [[nodiscard]] HWND Control(int id) const { return ::GetDlgItem(Dialog(), id); }
    [[nodiscard]] std::string Text(int id) const {
        EXPECT_NE(Control(id), nullptr) << id;
        std::array<char, 1024> text{};
        ::GetDlgItemTextA(Dialog(), id, text.data(), static_cast<int>(text.size()));
        return text.data();
    }

    /// Activates a page where pages stand.
    [[nodiscard]] HRESULT Activate(IPropertyPage& page) const { return page.Activate(m_window, &kPlace, FALSE); }

private:
    static constexpr RECT kPlace = {0, 0, 500, 500};

    HWND m_window;
};

/// A new page, of which the test has the one reference.
template <class Page> [[nodiscard]] Page* NewPage() {
    HRESULT hr = E_FAIL;
    auto* const page = static_cast<Page*>(Page::CreateInstance(nullptr, &hr));
    EXPECT_EQ(hr, S_OK);
    page->Inner()->AddRef();
    return page;
}

/// Takes an active page down and its last reference away.
inline void EndPage(IPropertyPage* page) {
    EXPECT_EQ(page->Deactivate(), S_OK);
    EXPECT_EQ(page->SetObjects(0, nullptr), S_OK);
    EXPECT_EQ(page->Release(), 0u);
}

}  // namespace kolmfluxor::test
