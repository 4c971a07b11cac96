/// @file  Page "Format": which messages it calls handled.

#include <gtest/gtest.h>

#include <windows.h>

#include "controls/page_frame.h"
#include "pages/format_page.h"
#include "support/property_set_test.h"
#include "support/scripted_filter.h"

namespace kolmfluxor::test {
namespace {

class FormatMessages : public PropertySetTest {};

TEST_F(FormatMessages, commands_are_handled_and_scrolls_go_on_to_the_base) {
    const CPageFrame frame;
    CScriptedFilter script;
    script.formats = {Format7Mode(0, 640, 480)};
    Object().Filter().Offer(IID_IBaseFilter, script.Filter());
    auto* const page = NewPage<CKolmFluxorPage_Format>();
    IUnknown* filter = Object().Filter().Unknown();
    ASSERT_EQ(page->SetObjects(1, &filter), S_OK);
    ASSERT_EQ(frame.Activate(*page), S_OK);
    HWND const dialog = frame.Dialog();

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

    EndPage(page);
}

TEST_F(FormatMessages, without_a_camera_nothing_is_handled_and_nothing_happens) {
    const CPageFrame frame;
    auto* const page = NewPage<CKolmFluxorPage_Format>();
    COuterObject stranger;
    IUnknown* object = stranger.Unknown();
    EXPECT_EQ(page->SetObjects(1, &object), E_NOINTERFACE);
    ASSERT_EQ(frame.Activate(*page), S_OK);
    HWND const dialog = frame.Dialog();

    for (const int id : {1045, 1048, 1069, 1072, 1075})
        EXPECT_FALSE(::IsWindowEnabled(::GetDlgItem(dialog, id))) << id;
    EXPECT_EQ(page->OnReceiveMessage(dialog, WM_COMMAND, MAKEWPARAM(1068, CBN_SELCHANGE), 0), 0);
    EXPECT_EQ(page->OnReceiveMessage(dialog, WM_HSCROLL, 0, reinterpret_cast<LPARAM>(::GetDlgItem(dialog, 1069))), 0);
    EXPECT_EQ(page->IsPageDirty(), S_FALSE);
    for (const int edit : {1049, 1050})
        EXPECT_EQ(::GetDlgItemInt(dialog, edit, nullptr, FALSE), 0u);

    EndPage(page);
}

}  // namespace
}  // namespace kolmfluxor::test
