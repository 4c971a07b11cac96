/// @file  What holds for every page of the module: identity, size, layout, and that opening one changes nothing.

#include <gtest/gtest.h>

#include <array>
#include <cstring>
#include <ostream>
#include <string>
#include <utility>
#include <vector>

#include "support/failing_task_memory.h"
#include "support/page_host.h"
#include "support/scripted_filter.h"

#include <commctrl.h>

namespace kolmfluxor::test {
namespace {

struct PageRow {
    const char* name;
    const CLSID& classId;
    int titleId;
    const wchar_t* title;
    SIZE units;  ///< of the template, in dialog units

    friend void PrintTo(const PageRow& row, std::ostream* out) { *out << row.name; }
};

const PageRow kPages[] = {
    {"Color", CLSID_KolmFluxorPage_Color, 204, L"Color", {252, 218}},
    {"Trigger", CLSID_KolmFluxorPage_Trigger, 205, L"Trigger", {252, 218}},
    {"Info", CLSID_KolmFluxorPage_Info, 206, L"Info", {278, 204}},
    {"Format", CLSID_KolmFluxorPage_Format, 207, L"Format", {278, 216}},
    {"DirectAccess", CLSID_KolmFluxorPage_DirectAccess, 208, L"Direct access", {278, 231}},
    {"Exposure", CLSID_KolmFluxorPage_Exposure, 209, L"Exposure", {252, 218}},
    {"Smart01", CLSID_KolmFluxorPage_Smart01, 210, L"Smart feat. 1", {252, 118}},
    {"Lut", CLSID_KolmFluxorPage_Lut, 211, L"LUT", {278, 260}},
};

class EveryPage : public PageTest, public ::testing::WithParamInterface<PageRow> {
protected:
    EveryPage() {
        m_filter.formats = {Format7Mode(0, 1280, 960)};
        Object().Filter().Offer(IID_IBaseFilter, m_filter.Filter());
    }
    /// Another camera in the place of this test's.
    void RenewCamera(const wchar_t* variant) {
        Renew(variant);
        Object().Filter().Offer(IID_IBaseFilter, m_filter.Filter());
    }

    struct Control {
        HWND window;
        int id;
        std::string kind;
        std::string text;
        RECT area;  ///< in the page
    };

    /// The visible controls of a page, in their order.
    static std::vector<Control> Controls(const CPageHost& page) {
        std::vector<Control> controls;
        for (HWND window = ::GetWindow(page.Dialog(), GW_CHILD); window != nullptr;
             window = ::GetWindow(window, GW_HWNDNEXT)) {
            if (!::IsWindowVisible(window)) continue;
            std::array<char, 64> kind{};
            std::array<char, 512> text{};
            ::GetClassNameA(window, kind.data(), static_cast<int>(kind.size()));
            ::GetWindowTextA(window, text.data(), static_cast<int>(text.size()));
            Control control = {window, ::GetDlgCtrlID(window), kind.data(), text.data(), {}};
            ::GetWindowRect(window, &control.area);
            ::MapWindowPoints(nullptr, page.Dialog(), reinterpret_cast<POINT*>(&control.area), 2);
            controls.push_back(control);
        }
        return controls;
    }
    /// What the visible controls show, line by line: text, entries, and whether the user can do anything.
    static std::vector<std::string> Shown(const CPageHost& page) {
        std::vector<std::string> lines;
        for (const Control& control : Controls(page)) {
            const LRESULT entries =
                control.kind == "ComboBox" ? ::SendMessageA(control.window, CB_GETCOUNT, 0, 0) : LRESULT{0};
            lines.push_back(std::to_string(control.id) + ' ' + control.text + ' ' + std::to_string(entries) +
                            (::IsWindowEnabled(control.window) ? " enabled" : " disabled"));
        }
        return lines;
    }
    static bool IsGroupBox(const Control& control) {
        return control.kind == "Button" &&
               (::GetWindowLongPtrA(control.window, GWL_STYLE) & BS_TYPEMASK) == BS_GROUPBOX;
    }
    /// An up-down stands in its edit.
    static bool AreBuddies(const Control& one, const Control& other) {
        return other.kind == UPDOWN_CLASSA &&
               ::SendMessageA(other.window, UDM_GETBUDDY, 0, 0) == reinterpret_cast<LRESULT>(one.window);
    }

    CScriptedFilter m_filter;
};

TEST_P(EveryPage, names_itself_and_tells_its_templates_size_before_it_is_shown) {
    IPropertyPage* fresh = nullptr;
    ASSERT_EQ(CModule::Get().Create(GetParam().classId, nullptr, IID_IPropertyPage, reinterpret_cast<void**>(&fresh)),
              S_OK);
    PROPPAGEINFO info;
    std::memset(&info, 0xCD, sizeof info);
    ASSERT_EQ(fresh->GetPageInfo(&info), S_OK);
    EXPECT_EQ(fresh->GetPageInfo(nullptr), E_POINTER);
    EXPECT_EQ(fresh->Release(), 0u);

    EXPECT_EQ(info.cb, sizeof info);
    EXPECT_EQ(info.pszDocString, nullptr);
    EXPECT_EQ(info.pszHelpFile, nullptr);
    EXPECT_EQ(info.dwHelpContext, 0u);
    EXPECT_STREQ(info.pszTitle, GetParam().title);
    ::CoTaskMemFree(info.pszTitle);
    std::array<wchar_t, 64> title{};
    EXPECT_GT(::LoadStringW(::GetModuleHandleA("kolmfluxor.dll"), static_cast<UINT>(GetParam().titleId), title.data(),
                            static_cast<int>(title.size())),
              0);
    EXPECT_STREQ(title.data(), GetParam().title);
    const CPageHost page(GetParam().classId, Object());
    RECT units = {0, 0, GetParam().units.cx, GetParam().units.cy};
    ASSERT_TRUE(::MapDialogRect(page.Dialog(), &units));
    EXPECT_EQ(info.size.cx, units.right);
    EXPECT_EQ(info.size.cy, units.bottom);
}

TEST_P(EveryPage, tells_nothing_of_itself_when_memory_for_its_title_runs_out) {
    IPropertyPage* page = nullptr;
    ASSERT_EQ(CModule::Get().Create(GetParam().classId, nullptr, IID_IPropertyPage, reinterpret_cast<void**>(&page)),
              S_OK);
    PROPPAGEINFO poisoned;
    std::memset(&poisoned, 0xCD, sizeof poisoned);
    PROPPAGEINFO info = poisoned;
    {
        const CFailingTaskMemory failing;
        EXPECT_EQ(page->GetPageInfo(&info), E_OUTOFMEMORY);
    }
    EXPECT_EQ(std::memcmp(&info, &poisoned, sizeof info), 0);
    EXPECT_EQ(page->Release(), 0u);
}

TEST_P(EveryPage, can_be_aggregated) {
    COuterObject outer;
    IUnknown* inner = nullptr;
    IPropertyPage* page = nullptr;
    IUnknown* identity = nullptr;
    EXPECT_EQ(
        CModule::Get().Create(GetParam().classId, outer.Unknown(), IID_IPropertyPage, reinterpret_cast<void**>(&page)),
        E_NOINTERFACE)
        << "only its own IUnknown can be asked for";
    ASSERT_EQ(
        CModule::Get().Create(GetParam().classId, outer.Unknown(), IID_IUnknown, reinterpret_cast<void**>(&inner)),
        S_OK);

    ASSERT_EQ(inner->QueryInterface(IID_PPV_ARGS(&page)), S_OK);
    ASSERT_EQ(page->QueryInterface(IID_PPV_ARGS(&identity)), S_OK);
    EXPECT_EQ(identity, outer.Unknown());
    EXPECT_EQ(outer.References(), 3u);

    identity->Release();
    page->Release();
    EXPECT_EQ(outer.References(), 1u);
    EXPECT_EQ(inner->Release(), 0u);
}

TEST_P(EveryPage, opening_and_reopening_write_nothing_and_leave_the_page_clean) {
    for (const wchar_t* variant : {L"color", L"mono"}) {
        RenewCamera(variant);
        CPageHost page(GetParam().classId, Object());
        page.Reactivate();

        for (const CWireRequest& request : Object().Sent())
            EXPECT_EQ(request.Word(20), 1u) << "a SET was sent";
        EXPECT_TRUE(page.Site().reports.empty());
        EXPECT_EQ(page.Page()->IsPageDirty(), S_FALSE);
    }
}

TEST_P(EveryPage, stays_usable_on_an_unplugged_camera) {
    const std::vector<std::string> filled = Shown(CPageHost(GetParam().classId, Object()));
    RenewCamera(L"color");
    Camera().Plug(false);
    CPageHost page(GetParam().classId, Object());
    page.Tick();
    EXPECT_EQ(Shown(page) == filled, std::string(GetParam().name) == "DirectAccess") << "which asks nothing by itself";

    Camera().Plug(true);
    page.Reactivate();

    EXPECT_EQ(Shown(page), filled) << "as if it had never been unplugged";
    for (const CWireRequest& request : Object().Sent())
        EXPECT_EQ(request.Word(20), 1u) << "a SET was sent";
}

TEST_P(EveryPage, all_controls_lie_within_the_page_and_none_on_another) {
    const CPageHost page(GetParam().classId, Object());
    RECT units = {0, 0, GetParam().units.cx, GetParam().units.cy};
    ASSERT_TRUE(::MapDialogRect(page.Dialog(), &units));
    const std::vector<Control> controls = Controls(page);
    EXPECT_FALSE(controls.empty());
    for (std::size_t i = 0; i < controls.size(); ++i) {
        const Control& one = controls[i];
        RECT common{};
        EXPECT_TRUE(::IntersectRect(&common, &one.area, &units) && ::EqualRect(&common, &one.area))
            << one.kind << ' ' << one.id << " \"" << one.text << '"';
        if (IsGroupBox(one)) continue;
        for (std::size_t j = i + 1; j < controls.size(); ++j) {
            const Control& other = controls[j];
            EXPECT_TRUE(IsGroupBox(other) || AreBuddies(one, other) ||
                        !::IntersectRect(&common, &one.area, &other.area))
                << one.kind << ' ' << one.id << " and " << other.kind << ' ' << other.id;
        }
    }
}

TEST_P(EveryPage, no_caption_is_clipped) {
    const CPageHost page(GetParam().classId, Object());
    HDC const device = ::GetDC(page.Dialog());
    HGDIOBJ const before =
        ::SelectObject(device, reinterpret_cast<HFONT>(::SendMessageA(page.Dialog(), WM_GETFONT, 0, 0)));
    for (const Control& control : Controls(page)) {
        const bool picture =
            control.kind == "Static" && (::GetWindowLongPtrA(control.window, GWL_STYLE) & SS_TYPEMASK) > SS_RIGHT;
        if (picture || (control.kind != "Static" && control.kind != "Button")) continue;
        RECT needed{};
        ::DrawTextA(device, control.text.c_str(), -1, &needed, DT_CALCRECT | DT_EXPANDTABS);
        EXPECT_LE(needed.right, control.area.right - control.area.left) << control.id << " \"" << control.text << '"';
    }
    ::SelectObject(device, before);
    ::ReleaseDC(page.Dialog(), device);
}

INSTANTIATE_TEST_SUITE_P(Pages, EveryPage, ::testing::ValuesIn(kPages),
                         [](const auto& page) { return std::string(page.param.name); });

}  // namespace
}  // namespace kolmfluxor::test
