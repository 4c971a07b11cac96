/// @file  The common part of the pages: connection, timer, dirty reports, and who handles which message.

#include "pages/common/feature_page.h"

#include <gtest/gtest.h>

#include <functional>
#include <string>
#include <utility>
#include <vector>

#include <commctrl.h>

#include "controls/page_frame.h"
#include "pages/color_page.h"
#include "pages/color_page_fixture.h"
#include "pages/exposure_page.h"
#include "pages/smart01_page.h"
#include "pages/trigger_page.h"
#include "support/page_site.h"
#include "support/patched_import.h"
#include "support/property_set_test.h"

extern "C" void* __imp_SetTimer;
extern "C" void* __imp_KillTimer;
extern "C" void* __imp_InitCommonControlsEx;

namespace kolmfluxor::test {
namespace {

/// A page without groups of its own, with everything in reach.
class CBarePage final : public CFeaturePage {
public:
    explicit CBarePage(UINT periodMs) : CFeaturePage(nullptr, 107, 209, periodMs) { Inner()->AddRef(); }

    using CFeaturePage::m_bDirty;
    using CFeaturePage::m_dirtySkips;
    using CFeaturePage::OnActivate;
    using CFeaturePage::OnConnect;
    using CFeaturePage::OnDisconnect;
    using CFeaturePage::SetDirty;

    int polls = 0;

protected:
    void OnPoll() override { ++polls; }
    bool OnCommand(int id, UINT code) override { return id == 77 && code == BN_CLICKED; }
};

std::vector<std::string> g_timerCalls;
HWND g_timerWindow = nullptr;

UINT_PTR WINAPI RecordSetTimer(HWND window, UINT_PTR id, UINT milliseconds, TIMERPROC procedure) {
    EXPECT_EQ(procedure, nullptr);
    g_timerWindow = window;
    g_timerCalls.push_back("set " + std::to_string(id) + " " + std::to_string(milliseconds));
    return id;
}

BOOL WINAPI RecordKillTimer(HWND window, UINT_PTR id) {
    g_timerWindow = window;
    g_timerCalls.push_back("kill " + std::to_string(id));
    return TRUE;
}

int g_initCalls = 0;
INITCOMMONCONTROLSEX g_initClasses{};

BOOL WINAPI RefuseControls(const INITCOMMONCONTROLSEX* classes) {
    ++g_initCalls;
    g_initClasses = *classes;
    return FALSE;
}

class FeaturePage : public PropertySetTest {
protected:
    FeaturePage()
        : m_setTimer(&__imp_SetTimer, reinterpret_cast<void*>(&RecordSetTimer)),
          m_killTimer(&__imp_KillTimer, reinterpret_cast<void*>(&RecordKillTimer)) {
        g_timerCalls.clear();
    }

    HRESULT Connect(IPropertyPage& page) {
        IUnknown* filter = Object().Filter().Unknown();
        return page.SetObjects(1, &filter);
    }
    [[nodiscard]] HWND Dialog() const { return m_frame.Dialog(); }

    CPageFrame m_frame;

private:
    CPatchedImport m_setTimer;
    CPatchedImport m_killTimer;
};

using Calls = std::vector<std::string>;

TEST_F(FeaturePage, timer_runs_from_activation_to_disconnection_and_anew_after_each_poll) {
    auto* const page = new CBarePage(500);
    ASSERT_EQ(Connect(*page), S_OK);
    ASSERT_EQ(m_frame.Activate(*page), S_OK);
    EXPECT_EQ(g_timerCalls, Calls{"set 1 500"});
    EXPECT_EQ(g_timerWindow, Dialog());
    g_timerCalls.clear();

    EXPECT_EQ(page->OnReceiveMessage(Dialog(), WM_TIMER, 1, 0), 1) << "handled";
    EXPECT_EQ(page->polls, 1);
    EXPECT_EQ(g_timerCalls, (Calls{"kill 1", "set 1 500"}));
    g_timerCalls.clear();

    page->OnReceiveMessage(Dialog(), WM_TIMER, 2, 0);
    EXPECT_EQ(page->polls, 1);
    EXPECT_EQ(g_timerCalls, Calls{});

    EXPECT_EQ(page->SetObjects(0, nullptr), S_OK);
    EXPECT_EQ(g_timerCalls, Calls{"kill 1"});
    EXPECT_EQ(page->Deactivate(), S_OK);
    EXPECT_EQ(page->Inner()->Release(), 0u);
}

TEST_F(FeaturePage, pages_have_their_timer_or_none) {
    struct Row {
        CUnknown* (*create)(IUnknown*, HRESULT*);
        Calls opened, ticked, closed;
    };
    const Row kRows[] = {
        {CKolmFluxorPage_Exposure::CreateInstance, {"set 1 500"}, {"kill 1", "set 1 500"}, {"kill 1"}},
        {CKolmFluxorPage_Color::CreateInstance, {"set 1 500"}, {"kill 1", "set 1 500"}, {"kill 1"}},
        {CKolmFluxorPage_Smart01::CreateInstance, {}, {}, {}},
    };
    for (const Row& row : kRows) {
        HRESULT hr = E_FAIL;
        IPropertyPage* page = nullptr;
        ASSERT_EQ(row.create(nullptr, &hr)->Inner()->QueryInterface(IID_PPV_ARGS(&page)), S_OK);
        ASSERT_EQ(hr, S_OK);
        ASSERT_EQ(Connect(*page), S_OK);
        for (const auto& [run, calls] : {std::pair<std::function<void()>, const Calls&>{
                                             [&] { EXPECT_EQ(m_frame.Activate(*page), S_OK); }, row.opened},
                                         {[&] { ::SendMessageA(Dialog(), WM_TIMER, 1, 0); }, row.ticked},
                                         {[&] { EXPECT_EQ(page->SetObjects(0, nullptr), S_OK); }, row.closed}}) {
            g_timerCalls.clear();
            run();
            EXPECT_EQ(g_timerCalls, calls);
        }
        EXPECT_EQ(page->Deactivate(), S_OK);
        EXPECT_EQ(page->Release(), 0u);
    }
}

TEST_F(FeaturePage, without_a_period_there_is_no_timer) {
    auto* const page = new CBarePage(0);
    ASSERT_EQ(Connect(*page), S_OK);
    ASSERT_EQ(m_frame.Activate(*page), S_OK);
    page->OnReceiveMessage(Dialog(), WM_TIMER, 1, 0);
    EXPECT_EQ(page->polls, 0);
    EXPECT_EQ(page->Deactivate(), S_OK);
    EXPECT_EQ(page->SetObjects(0, nullptr), S_OK);
    EXPECT_EQ(g_timerCalls, Calls{});
    EXPECT_EQ(page->Inner()->Release(), 0u);
}

TEST_F(FeaturePage, connecting_to_nothing_is_refused) {
    auto* const page = new CBarePage(0);
    EXPECT_EQ(page->OnConnect(nullptr), E_POINTER);
    EXPECT_EQ(page->Inner()->Release(), 0u);
}

TEST_F(FeaturePage, disconnecting_without_a_window_touches_no_timer_of_the_host) {
    auto* const page = new CBarePage(500);
    EXPECT_EQ(page->OnDisconnect(), S_OK) << "never connected";
    EXPECT_EQ(g_timerCalls, Calls{});
    EXPECT_EQ(page->Inner()->Release(), 0u);
}

TEST_F(FeaturePage, handles_its_own_messages_only) {
    auto* const page = new CBarePage(500);
    ASSERT_EQ(Connect(*page), S_OK);
    ASSERT_EQ(m_frame.Activate(*page), S_OK);
    EXPECT_EQ(page->OnReceiveMessage(Dialog(), WM_COMMAND, MAKEWPARAM(77, BN_CLICKED), 0), 1);
    EXPECT_EQ(page->OnReceiveMessage(Dialog(), WM_COMMAND, MAKEWPARAM(78, BN_CLICKED), 0), 0);
    EXPECT_EQ(page->OnReceiveMessage(Dialog(), WM_HSCROLL, 0, 0), 0);
    EndPage(page);
}

TEST_F(FeaturePage, handles_what_its_groups_send) {
    auto* const page = NewPage<CKolmFluxorPage_Exposure>();
    ASSERT_EQ(Connect(*page), S_OK);
    ASSERT_EQ(m_frame.Activate(*page), S_OK);
    const auto scroll = [&](int id) {
        return page->OnReceiveMessage(Dialog(), WM_HSCROLL, TB_THUMBTRACK,
                                      reinterpret_cast<LPARAM>(::GetDlgItem(Dialog(), id)));
    };
    for (const int combo : {1074, 1083, 1089, 1097, 1103})
        EXPECT_EQ(page->OnReceiveMessage(Dialog(), WM_COMMAND, MAKEWPARAM(combo, CBN_SELCHANGE), 0), 1) << combo;
    EXPECT_EQ(page->OnReceiveMessage(Dialog(), WM_COMMAND, MAKEWPARAM(1089, CBN_DROPDOWN), 0), 0);
    for (const int trackbar : {1073, 1079, 1085, 1093, 1099})
        EXPECT_EQ(scroll(trackbar), 1) << trackbar;
    EXPECT_EQ(scroll(1081), 0) << "no trackbar";
    EndPage(page);
}

TEST_F(FeaturePage, swallows_as_many_reports_as_it_was_told_to) {
    auto* const page = new CBarePage(0);
    CPageSite site;
    page->m_dirtySkips = 2;
    page->SetDirty();
    page->SetDirty();
    EXPECT_FALSE(page->m_bDirty);
    EXPECT_EQ(page->m_dirtySkips, 0);
    page->SetDirty();
    EXPECT_TRUE(page->m_bDirty) << "without a site too";

    ASSERT_EQ(page->SetPageSite(&site), S_OK);
    page->m_dirtySkips = -3;
    page->SetDirty();
    EXPECT_EQ(page->m_dirtySkips, -3);
    page->m_dirtySkips = 1;
    page->SetDirty();
    EXPECT_EQ(site.reports, std::vector<DWORD>{PROPPAGESTATUS_DIRTY}) << "one of the two was swallowed";
    ASSERT_EQ(page->SetPageSite(nullptr), S_OK);
    EXPECT_EQ(page->Inner()->Release(), 0u);
}

TEST_F(FeaturePage, fails_without_the_common_controls) {
    auto* const page = new CBarePage(500);
    {
        const CPatchedImport patch(&__imp_InitCommonControlsEx, reinterpret_cast<void*>(&RefuseControls));
        g_initCalls = 0;

        EXPECT_EQ(page->OnActivate(), E_FAIL);
    }
    EXPECT_EQ(g_initCalls, 1);
    EXPECT_EQ(g_initClasses.dwSize, 8u);
    EXPECT_EQ(g_initClasses.dwICC, static_cast<DWORD>(ICC_BAR_CLASSES));
    EXPECT_EQ(g_timerCalls, Calls{});
    EXPECT_EQ(page->Inner()->Release(), 0u);
}

TEST_F(FeaturePage, an_object_without_the_interface_leaves_a_dead_page_that_does_no_harm) {
    auto* const page = NewPage<CKolmFluxorPage_Exposure>();
    CPageSite stranger;
    IUnknown* object = &stranger;

    EXPECT_EQ(page->SetObjects(1, &object), E_NOINTERFACE);
    EXPECT_EQ(m_frame.Activate(*page), S_OK);
    for (const int id : {1073, 1074, 1079, 1085, 1089, 1091, 1092, 1093, 1099}) {
        EXPECT_FALSE(::IsWindowEnabled(::GetDlgItem(Dialog(), id))) << id;
    }
    ::SendMessageA(Dialog(), WM_TIMER, 1, 0);
    ::SendMessageA(Dialog(), WM_COMMAND, MAKEWPARAM(1092, BN_CLICKED), 0);
    ::SendMessageA(Dialog(), WM_HSCROLL, 0, reinterpret_cast<LPARAM>(::GetDlgItem(Dialog(), 1073)));
    EXPECT_EQ(Object().Sent(), Wire{});
    EndPage(page);
}

TEST_F(FeaturePage, a_color_page_without_a_camera_is_disabled_and_does_no_harm) {
    auto* const page = NewPage<CKolmFluxorPage_Color>();
    CPageSite stranger;
    IUnknown* object = &stranger;
    const auto control = [&](int id) { return ::GetDlgItem(Dialog(), id); };
    const auto notify = [&](int id, UINT code) {
        ::SendMessageA(Dialog(), WM_COMMAND, MAKEWPARAM(id, code), reinterpret_cast<LPARAM>(control(id)));
    };

    EXPECT_EQ(page->SetObjects(1, &object), E_NOINTERFACE);
    EXPECT_EQ(m_frame.Activate(*page), S_OK);

    for (const int id : {kMatrixGroup, kMatrixMode, 1094, 1096, 1099, 1079, 1083, 1085, 1089, 1091, 1106})
        EXPECT_FALSE(::IsWindowEnabled(control(id))) << id;
    EXPECT_EQ(::SendMessageA(control(kMatrixMode), CB_GETCOUNT, 0, 0), 3);
    for (LRESULT entry = 0; entry < 3; ++entry) {
        ::SendMessageA(control(kMatrixMode), CB_SETCURSEL, static_cast<WPARAM>(entry), 0);
        notify(kMatrixMode, CBN_SELCHANGE);
        EXPECT_EQ(::SendMessageA(control(kMatrixMode), CB_GETCURSEL, 0, 0), entry);
    }
    for (const CoefficientRow& row : kCoefficients) {
        EXPECT_FALSE(::IsWindowEnabled(control(row.edit))) << row.edit;
        EXPECT_FALSE(::IsWindowEnabled(control(row.upDown))) << row.upDown;
        ::SetWindowTextA(control(row.edit), "7000");
        notify(row.edit, EN_KILLFOCUS);
        EXPECT_EQ(::GetDlgItemInt(Dialog(), row.edit, nullptr, TRUE), 7000u) << "nobody looks at it";
    }
    notify(1099, CBN_SELCHANGE);
    ::SendMessageA(Dialog(), WM_HSCROLL, 0, reinterpret_cast<LPARAM>(control(1096)));
    ::SendMessageA(Dialog(), WM_TIMER, 1, 0);
    EXPECT_EQ(g_timerCalls, Calls{});
    EXPECT_EQ(Object().Sent(), Wire{});
    EndPage(page);
}

TEST_F(FeaturePage, the_trigger_page_runs_a_timer_whose_ticks_do_nothing) {
    auto* const page = NewPage<CKolmFluxorPage_Trigger>();
    ASSERT_EQ(Connect(*page), S_OK);
    ASSERT_EQ(m_frame.Activate(*page), S_OK);
    EXPECT_EQ(g_timerCalls, Calls{"set 1 500"});
    Object().Forget();

    EXPECT_EQ(page->OnReceiveMessage(Dialog(), WM_TIMER, 1, 0), 0);

    EXPECT_EQ(g_timerCalls, Calls{"set 1 500"}) << "not even started anew";
    EXPECT_EQ(Object().Sent(), Wire{});
    EXPECT_EQ(page->SetObjects(0, nullptr), S_OK);
    EXPECT_EQ(g_timerCalls, (Calls{"set 1 500", "kill 1"}));
    EXPECT_EQ(page->Deactivate(), S_OK);
    EXPECT_EQ(page->Inner()->Release(), 0u);
}

TEST_F(FeaturePage, the_trigger_page_asks_nothing_without_the_common_controls) {
    auto* const page = NewPage<CKolmFluxorPage_Trigger>();
    ASSERT_EQ(Connect(*page), S_OK);
    {
        const CPatchedImport patch(&__imp_InitCommonControlsEx, reinterpret_cast<void*>(&RefuseControls));
        EXPECT_EQ(m_frame.Activate(*page), S_OK);
    }
    EXPECT_EQ(Object().Sent(), Wire{});
    EndPage(page);
}

TEST_F(FeaturePage, a_trigger_page_without_a_camera_is_disabled_and_does_no_harm) {
    auto* const page = NewPage<CKolmFluxorPage_Trigger>();
    CPageSite site;
    IUnknown* stranger = &site;

    EXPECT_EQ(page->SetPageSite(&site), S_OK);
    EXPECT_EQ(page->SetObjects(1, &stranger), E_NOINTERFACE);
    EXPECT_EQ(m_frame.Activate(*page), S_OK);
    for (const int id : {1118, 1110, 1111, 1055, 1056, 1057, 1060, 1120, 1121, 1125, 1126, 1130, 1131})
        EXPECT_FALSE(::IsWindowEnabled(::GetDlgItem(Dialog(), id))) << id;
    ::SendMessageA(Dialog(), WM_TIMER, 1, 0);
    ::SendMessageA(Dialog(), WM_COMMAND, MAKEWPARAM(1110, CBN_SELCHANGE), 0);
    ::SendMessageA(Dialog(), WM_COMMAND, MAKEWPARAM(1055, BN_CLICKED), 0);
    EXPECT_EQ(page->Apply(), S_OK);
    EXPECT_EQ(page->Deactivate(), S_OK);
    EXPECT_EQ(page->SetObjects(0, nullptr), S_OK);
    EXPECT_EQ(page->SetPageSite(nullptr), S_OK);
    EXPECT_EQ(page->Inner()->Release(), 0u);
}

TEST_F(FeaturePage, released_while_connected_keeps_its_reference_on_the_camera) {
    auto* const page = new CBarePage(0);
    const ULONG before = Object().Filter().References();
    ASSERT_EQ(Connect(*page), S_OK);
    EXPECT_EQ(Object().Filter().References(), before + 1);

    EXPECT_EQ(page->Inner()->Release(), 0u);

    EXPECT_EQ(Object().Filter().References(), before + 1) << "only a disconnection gives it back";
    Object()->Release();
}

TEST_F(FeaturePage, connecting_again_gives_the_earlier_camera_back) {
    auto* const page = new CBarePage(0);
    const ULONG before = Object().Filter().References();
    ASSERT_EQ(Connect(*page), S_OK);
    ASSERT_EQ(Connect(*page), S_OK);
    EXPECT_EQ(Object().Filter().References(), before + 1);
    EXPECT_EQ(page->SetObjects(0, nullptr), S_OK);
    EXPECT_EQ(Object().Filter().References(), before);
    EXPECT_EQ(page->Inner()->Release(), 0u);
}

}  // namespace
}  // namespace kolmfluxor::test
