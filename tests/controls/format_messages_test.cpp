/// @file  Page "Format": which messages it calls handled.

#include <gtest/gtest.h>

#include <windows.h>

#include "base/module_state.h"
#include "pages/format_page.h"
#include "support/own_desktop.h"
#include "support/property_set_test.h"
#include "support/scripted_filter.h"

namespace kolmfluxor::test {
namespace {

class FormatMessages : public PropertySetTest {};

TEST_F(FormatMessages, commands_are_handled_and_scrolls_go_on_to_the_base) {
    COwnDesktop::Enter();
    RecordModule(::GetModuleHandleA(nullptr));
    CScriptedFilter script;
    script.formats = {Format7Mode(0, 640, 480)};
    Object().Filter().Offer(IID_IBaseFilter, script.Filter());
    HWND const frame = ::CreateWindowExA(0, "STATIC", "", WS_OVERLAPPEDWINDOW | WS_VISIBLE, 0, 0, 600, 600, nullptr,
                                         nullptr, nullptr, nullptr);
    HRESULT hr = E_FAIL;
    auto* const page = static_cast<CKolmFluxorPage_Format*>(CKolmFluxorPage_Format::CreateInstance(nullptr, &hr));
    ASSERT_EQ(hr, S_OK);
    page->Inner()->AddRef();
    IUnknown* filter = Object().Filter().Unknown();
    ASSERT_EQ(page->SetObjects(1, &filter), S_OK);
    constexpr RECT place = {0, 0, 500, 500};
    ASSERT_EQ(page->Activate(frame, &place, FALSE), S_OK);
    HWND const dialog = ::GetWindow(frame, GW_CHILD);

    struct Row {
        int id;
        UINT code;
        INT_PTR handled;
    };
    for (const auto& [id, code, handled] : {Row{1068, CBN_SELCHANGE, 1},
                                            {1152, CBN_SELCHANGE, 1},
                                            {1155, CBN_SELCHANGE, 1},
                                            {1045, EN_KILLFOCUS, 1},
                                            {1046, EN_KILLFOCUS, 1},
                                            {1047, EN_KILLFOCUS, 1},
                                            {1048, EN_KILLFOCUS, 1},
                                            {1065, BN_CLICKED, 1},
                                            {1055, BN_CLICKED, 1},
                                            {1068, CBN_DROPDOWN, 0},
                                            {1045, EN_CHANGE, 0},
                                            {1049, EN_KILLFOCUS, 0},
                                            {1050, EN_KILLFOCUS, 0}}) {
        EXPECT_EQ(page->OnReceiveMessage(dialog, WM_COMMAND, MAKEWPARAM(id, code), 0), handled) << id << ' ' << code;
    }
    for (const int id : {1069, 1072, 1073, 1074, 1075}) {
        HWND const control = ::GetDlgItem(dialog, id);
        EXPECT_EQ(page->OnReceiveMessage(dialog, WM_VSCROLL, 0, reinterpret_cast<LPARAM>(control)), 0) << id;
        EXPECT_EQ(page->OnReceiveMessage(dialog, WM_HSCROLL, 0, reinterpret_cast<LPARAM>(control)), 0) << id;
    }

    EXPECT_EQ(page->Deactivate(), S_OK);
    EXPECT_EQ(page->SetObjects(0, nullptr), S_OK);
    EXPECT_EQ(page->Inner()->Release(), 0u);
    ::DestroyWindow(frame);
    EXPECT_EQ(CBaseObject::ObjectsActive(), 0);
}

TEST_F(FormatMessages, without_a_camera_nothing_is_handled_and_nothing_happens) {
    COwnDesktop::Enter();
    RecordModule(::GetModuleHandleA(nullptr));
    HWND const frame = ::CreateWindowExA(0, "STATIC", "", WS_OVERLAPPEDWINDOW | WS_VISIBLE, 0, 0, 600, 600, nullptr,
                                         nullptr, nullptr, nullptr);
    HRESULT hr = E_FAIL;
    auto* const page = static_cast<CKolmFluxorPage_Format*>(CKolmFluxorPage_Format::CreateInstance(nullptr, &hr));
    ASSERT_EQ(hr, S_OK);
    page->Inner()->AddRef();
    COuterObject stranger;
    IUnknown* object = stranger.Unknown();
    EXPECT_EQ(page->SetObjects(1, &object), E_NOINTERFACE);
    constexpr RECT place = {0, 0, 500, 500};
    ASSERT_EQ(page->Activate(frame, &place, FALSE), S_OK);
    HWND const dialog = ::GetWindow(frame, GW_CHILD);

    for (const int id : {1045, 1048, 1069, 1072, 1075})
        EXPECT_FALSE(::IsWindowEnabled(::GetDlgItem(dialog, id))) << id;
    EXPECT_EQ(page->OnReceiveMessage(dialog, WM_COMMAND, MAKEWPARAM(1068, CBN_SELCHANGE), 0), 0);
    EXPECT_EQ(page->OnReceiveMessage(dialog, WM_HSCROLL, 0, reinterpret_cast<LPARAM>(::GetDlgItem(dialog, 1069))), 0);
    EXPECT_EQ(page->IsPageDirty(), S_FALSE);
    for (const int edit : {1049, 1050})
        EXPECT_EQ(::GetDlgItemInt(dialog, edit, nullptr, FALSE), 0u);

    EXPECT_EQ(page->Deactivate(), S_OK);
    EXPECT_EQ(page->SetObjects(0, nullptr), S_OK);
    EXPECT_EQ(page->Inner()->Release(), 0u);
    ::DestroyWindow(frame);
    EXPECT_EQ(CBaseObject::ObjectsActive(), 0);
}

}  // namespace
}  // namespace kolmfluxor::test
