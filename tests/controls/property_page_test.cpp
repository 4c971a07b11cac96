/// @file  The page base: the frame's calls, the hooks and their order, and where exceptions end.

#include "base/property_page.h"

#include <gtest/gtest.h>

#include <stdexcept>
#include <string>
#include <utility>
#include <vector>

#include "controls/page_frame.h"
#include "pages/common/hit_test_property_page.h"
#include "support/page_site.h"

namespace kolmfluxor::test {
namespace {

constexpr RECT kPlace = {5, 6, 205, 156};
constexpr int kDialog = 107;
constexpr int kTitle = 209;

/// Notes which hook is called, and fails or throws on demand.
class CNotingPage final : public CHitTestPropertyPage {
public:
    explicit CNotingPage(int dialogId = kDialog, int titleId = kTitle)
        : CHitTestPropertyPage(nullptr, dialogId, titleId) {
        Inner()->AddRef();
    }

    std::vector<std::string> calls;
    HRESULT result = S_OK;
    bool throws = false;
    UINT throwingMessage = 0;

    using CHitTestPropertyPage::m_bDirty;
    using CHitTestPropertyPage::m_bObjectSet;
    using CHitTestPropertyPage::m_hwnd;
    using CHitTestPropertyPage::m_pPageSite;

    INT_PTR OnReceiveMessage(HWND hwnd, UINT message, WPARAM wParam, LPARAM lParam) override {
        if (throwingMessage != 0 && message == throwingMessage) throw std::runtime_error("in a message");
        return CHitTestPropertyPage::OnReceiveMessage(hwnd, message, wParam, lParam);
    }

protected:
    HRESULT OnConnect(IUnknown*) override {
        calls.push_back(m_bObjectSet ? "connect" : "connect too early");
        return Outcome();
    }
    HRESULT OnDisconnect() override { return Note("disconnect"); }
    HRESULT OnActivate() override { return Note(m_hwnd != nullptr ? "activate" : "activate too early"); }
    HRESULT OnDeactivate() override { return Note(m_hwnd != nullptr ? "deactivate" : "deactivate too late"); }
    HRESULT OnApplyChanges() override { return Note("apply"); }

private:
    HRESULT Note(const char* call) {
        calls.push_back(call);
        return Outcome();
    }
    HRESULT Outcome() const {
        if (throws) throw std::runtime_error("in a hook");
        return result;
    }
};

class PropertyPage : public ::testing::Test {
protected:
    ~PropertyPage() override {
        EXPECT_EQ(m_page->Inner()->Release(), 0u);
        EXPECT_EQ(m_frame.Dialog(), nullptr) << "the dialog was left behind";
        EXPECT_EQ(m_site.references, 1u);
    }
    HRESULT Connect() { return m_page->SetObjects(1, &m_object); }

    CPageFrame m_frame;
    CPageSite m_site;
    IUnknown* m_object = &m_site;  // any object will do
    CNotingPage* m_page = new CNotingPage;
};

TEST_F(PropertyPage, has_its_interfaces_and_no_others) {
    for (const IID& present : {IID_IUnknown, IID_IPropertyPage}) {
        IUnknown* found = nullptr;
        ASSERT_EQ(m_page->QueryInterface(present, reinterpret_cast<void**>(&found)), S_OK);
        found->Release();
    }
    for (const IID& absent : {IID_IDispatch, IID_IPropertyPage2, IID_ISpecifyPropertyPages}) {
        auto* out = reinterpret_cast<void*>(0xDEADBEEF);
        EXPECT_EQ(m_page->QueryInterface(absent, &out), E_NOINTERFACE);
        EXPECT_EQ(out, nullptr);
    }
}

TEST_F(PropertyPage, runs_its_hooks_in_order) {
    EXPECT_EQ(m_page->SetPageSite(&m_site), S_OK);
    EXPECT_EQ(Connect(), S_OK);
    EXPECT_EQ(m_page->Activate(m_frame.Window(), &kPlace, FALSE), S_OK);
    m_page->m_bDirty = TRUE;
    EXPECT_EQ(m_page->Apply(), S_OK);
    EXPECT_EQ(m_page->Deactivate(), S_OK);
    EXPECT_EQ(m_page->SetObjects(0, nullptr), S_OK);
    EXPECT_EQ(m_page->SetPageSite(nullptr), S_OK);

    EXPECT_EQ(m_page->calls, (std::vector<std::string>{"connect", "activate", "apply", "deactivate", "disconnect"}));
    EXPECT_EQ(m_page->m_hwnd, nullptr);
    EXPECT_FALSE(m_page->m_bObjectSet);
}

TEST_F(PropertyPage, takes_one_object_or_none) {
    IUnknown* nothing = nullptr;
    IUnknown* two[] = {m_object, m_object};
    EXPECT_EQ(m_page->SetObjects(1, nullptr), E_POINTER);
    EXPECT_EQ(m_page->SetObjects(1, &nothing), E_POINTER);
    EXPECT_FALSE(m_page->m_bObjectSet);
    EXPECT_EQ(m_page->SetObjects(2, two), E_UNEXPECTED);
    EXPECT_TRUE(m_page->calls.empty());
    EXPECT_EQ(m_page->SetObjects(0, nullptr), S_OK) << "disconnecting what was never connected";
    EXPECT_EQ(m_page->calls, std::vector<std::string>{"disconnect"});
}

TEST_F(PropertyPage, passes_the_connections_result_on) {
    m_page->result = E_NOINTERFACE;
    EXPECT_EQ(Connect(), E_NOINTERFACE);
    EXPECT_TRUE(m_page->m_bObjectSet);
    m_page->result = S_OK;
}

TEST_F(PropertyPage, does_not_pass_the_activations_result_on) {
    EXPECT_EQ(Connect(), S_OK);
    m_page->result = E_FAIL;
    EXPECT_EQ(m_page->Activate(m_frame.Window(), &kPlace, FALSE), S_OK);
    EXPECT_TRUE(::IsWindowVisible(m_page->m_hwnd));
    EXPECT_EQ(m_page->Deactivate(), S_OK) << "the dialog goes whatever the hook says";
    EXPECT_EQ(m_page->m_hwnd, nullptr);
}

TEST_F(PropertyPage, is_activated_once_and_only_with_an_object) {
    EXPECT_EQ(m_page->Activate(m_frame.Window(), &kPlace, FALSE), E_UNEXPECTED) << "no object yet";
    EXPECT_EQ(Connect(), S_OK);
    EXPECT_EQ(m_page->Activate(m_frame.Window(), nullptr, FALSE), E_POINTER);
    EXPECT_EQ(m_page->Activate(m_frame.Window(), &kPlace, FALSE), S_OK);
    EXPECT_EQ(m_page->Activate(m_frame.Window(), &kPlace, FALSE), E_UNEXPECTED);
    EXPECT_EQ(m_page->Deactivate(), S_OK);
    EXPECT_EQ(m_page->Deactivate(), E_UNEXPECTED);
}

TEST_F(PropertyPage, stands_where_it_is_put) {
    const RECT other = {20, 30, 120, 90};
    EXPECT_EQ(m_page->Move(&kPlace), E_UNEXPECTED) << "no dialog yet";
    EXPECT_EQ(m_page->Show(SW_SHOW), E_UNEXPECTED);
    EXPECT_EQ(Connect(), S_OK);
    EXPECT_EQ(m_page->Activate(m_frame.Window(), &kPlace, FALSE), S_OK);
    const auto place = [&] {
        RECT area{};
        ::GetWindowRect(m_page->m_hwnd, &area);
        ::MapWindowPoints(nullptr, m_frame.Window(), reinterpret_cast<POINT*>(&area), 2);
        return area;
    };
    const RECT first = place();
    EXPECT_TRUE(::EqualRect(&kPlace, &first));
    EXPECT_EQ(m_page->Move(nullptr), E_POINTER);
    EXPECT_EQ(m_page->Move(&other), S_OK);
    const RECT moved = place();
    EXPECT_TRUE(::EqualRect(&other, &moved));
    EXPECT_EQ(m_page->Show(SW_HIDE), S_OK);
    EXPECT_FALSE(::IsWindowVisible(m_page->m_hwnd));
    EXPECT_EQ(m_page->Show(SW_SHOWNORMAL), S_OK);
    EXPECT_TRUE(::IsWindowVisible(m_page->m_hwnd));
    EXPECT_EQ(m_page->Show(SW_MAXIMIZE), E_INVALIDARG);
    EXPECT_EQ(m_page->Deactivate(), S_OK);
}

TEST_F(PropertyPage, takes_a_site_once_and_gives_it_back_once) {
    EXPECT_EQ(m_page->SetPageSite(nullptr), E_UNEXPECTED);
    EXPECT_EQ(m_page->SetPageSite(&m_site), S_OK);
    EXPECT_EQ(m_site.references, 2u);
    EXPECT_EQ(m_page->SetPageSite(&m_site), E_UNEXPECTED);
    EXPECT_EQ(m_page->SetPageSite(nullptr), S_OK);
    EXPECT_EQ(m_site.references, 1u);
}

TEST_F(PropertyPage, applies_only_what_is_dirty_and_stays_dirty_when_that_fails) {
    EXPECT_EQ(m_page->IsPageDirty(), S_FALSE);
    EXPECT_EQ(m_page->Apply(), E_UNEXPECTED) << "no object";
    EXPECT_EQ(Connect(), S_OK);
    EXPECT_EQ(m_page->Apply(), E_UNEXPECTED) << "no site";
    EXPECT_EQ(m_page->SetPageSite(&m_site), S_OK);
    m_page->calls.clear();
    EXPECT_EQ(m_page->Apply(), S_OK);
    EXPECT_TRUE(m_page->calls.empty()) << "not dirty: nothing to apply";

    m_page->m_bDirty = TRUE;
    EXPECT_EQ(m_page->IsPageDirty(), S_OK);
    m_page->result = E_ACCESSDENIED;
    EXPECT_EQ(m_page->Apply(), E_ACCESSDENIED);
    EXPECT_TRUE(m_page->m_bDirty);
    m_page->result = S_OK;
    EXPECT_EQ(m_page->Apply(), S_OK);
    EXPECT_FALSE(m_page->m_bDirty);
    EXPECT_EQ(m_page->SetPageSite(nullptr), S_OK);
}

TEST_F(PropertyPage, has_no_help_and_no_accelerators) {
    MSG message{};
    EXPECT_EQ(m_page->Help(L""), E_NOTIMPL);
    EXPECT_EQ(m_page->TranslateAccelerator(&message), E_NOTIMPL);
}

TEST_F(PropertyPage, turns_exceptions_of_hooks_into_codes) {
    m_page->throws = true;
    EXPECT_EQ(Connect(), E_UNEXPECTED);
    EXPECT_EQ(m_page->Activate(m_frame.Window(), &kPlace, FALSE), S_OK);
    EXPECT_EQ(m_page->SetPageSite(&m_site), S_OK);
    m_page->m_bDirty = TRUE;
    EXPECT_EQ(m_page->Apply(), E_UNEXPECTED);
    EXPECT_TRUE(m_page->m_bDirty);
    EXPECT_EQ(m_page->Deactivate(), S_OK);
    EXPECT_EQ(m_page->SetObjects(0, nullptr), E_UNEXPECTED);
    EXPECT_EQ(m_page->SetPageSite(nullptr), S_OK);
}

TEST_F(PropertyPage, swallows_exceptions_of_messages) {
    EXPECT_EQ(Connect(), S_OK);
    EXPECT_EQ(m_page->Activate(m_frame.Window(), &kPlace, FALSE), S_OK);
    m_page->throwingMessage = WM_APP + 1;
    EXPECT_NO_THROW(::SendMessageA(m_page->m_hwnd, WM_APP + 1, 0, 0));
    EXPECT_THROW(m_page->OnReceiveMessage(m_page->m_hwnd, WM_APP + 1, 0, 0), std::runtime_error)
        << "the hook itself may throw";
    EXPECT_EQ(m_page->Deactivate(), S_OK);
}

TEST_F(PropertyPage, without_template_or_title_fails_cleanly) {
    for (const auto& [dialog, title] : {std::pair{9999, 9999}, {9999, kTitle}, {kDialog, 9999}}) {
        auto* const page = new CNotingPage(dialog, title);
        PROPPAGEINFO info{};
        EXPECT_TRUE(FAILED(page->GetPageInfo(&info)));
        EXPECT_EQ(info.pszTitle, nullptr);
        EXPECT_EQ(page->SetObjects(1, &m_object), S_OK);
        if (dialog == 9999) {
            EXPECT_EQ(page->Activate(m_frame.Window(), &kPlace, FALSE), E_OUTOFMEMORY);
            EXPECT_EQ(page->m_hwnd, nullptr);
        }
        EXPECT_EQ(page->Inner()->Release(), 0u);
    }
}

TEST_F(PropertyPage, loses_its_dialog_with_the_frame_and_ignores_being_closed) {
    EXPECT_EQ(Connect(), S_OK);
    HWND const other = ::CreateWindowExA(0, "STATIC", "", WS_OVERLAPPEDWINDOW | WS_VISIBLE, 0, 0, 400, 300, nullptr,
                                         nullptr, nullptr, nullptr);
    EXPECT_EQ(m_page->Activate(other, &kPlace, FALSE), S_OK);
    ::SendMessageA(m_page->m_hwnd, WM_CLOSE, 0, 0);
    EXPECT_NE(m_page->m_hwnd, nullptr);
    ::DestroyWindow(other);
    EXPECT_EQ(m_page->m_hwnd, nullptr);
    EXPECT_EQ(m_page->Deactivate(), E_UNEXPECTED);
    EXPECT_EQ(m_page->Activate(m_frame.Window(), &kPlace, FALSE), S_OK) << "it can be shown again";
    EXPECT_EQ(m_page->Deactivate(), S_OK);
}

TEST_F(PropertyPage, counts_any_success_of_applying_as_applied) {
    EXPECT_EQ(Connect(), S_OK);
    EXPECT_EQ(m_page->SetPageSite(&m_site), S_OK);
    m_page->m_bDirty = TRUE;
    m_page->result = S_FALSE;
    EXPECT_EQ(m_page->Apply(), S_FALSE);
    EXPECT_FALSE(m_page->m_bDirty);
    EXPECT_EQ(m_page->SetPageSite(nullptr), S_OK);
}

TEST_F(PropertyPage, released_while_active_takes_its_dialog_along) {
    auto* const page = new CNotingPage;
    EXPECT_EQ(page->SetObjects(1, &m_object), S_OK);
    EXPECT_EQ(page->Activate(m_frame.Window(), &kPlace, FALSE), S_OK);
    EXPECT_EQ(page->Inner()->Release(), 0u);
    EXPECT_EQ(m_frame.Dialog(), nullptr);
}

TEST_F(PropertyPage, hit_test_takes_the_page_without_its_right_and_bottom_edge) {
    EXPECT_EQ(Connect(), S_OK);
    EXPECT_EQ(m_page->Activate(m_frame.Window(), &kPlace, FALSE), S_OK);
    RECT area{};
    ::GetWindowRect(m_page->m_hwnd, &area);
    const auto hit = [&](LONG x, LONG y) { return ::SendMessageA(m_page->m_hwnd, WM_NCHITTEST, 0, MAKELPARAM(x, y)); };
    EXPECT_EQ(hit(area.left, area.top), HTCLIENT);
    EXPECT_EQ(hit(area.right - 1, area.bottom - 1), HTCLIENT);
    EXPECT_EQ(hit(area.right, area.top), HTNOWHERE);
    EXPECT_EQ(hit(area.left, area.bottom), HTNOWHERE);
    EXPECT_EQ(hit(area.left - 1, area.top), HTNOWHERE);
    ::SetWindowPos(m_frame.Window(), nullptr, -100, -100, 0, 0, SWP_NOSIZE | SWP_NOZORDER);
    ::GetWindowRect(m_page->m_hwnd, &area);
    ASSERT_LT(area.left, 0);
    EXPECT_EQ(hit(area.left, area.top), HTCLIENT) << "coordinates are signed";
    EXPECT_EQ(m_page->OnReceiveMessage(m_page->m_hwnd, WM_NCHITTEST, 0, 0), 1) << "handled";
    EXPECT_EQ(m_page->Deactivate(), S_OK);
}

}  // namespace
}  // namespace kolmfluxor::test
