/// @file  Pages of feature groups linked with the test: the captions that they set, and which messages end with them.

#include "pages/common/feature_page.h"

#include <gtest/gtest.h>

#include <array>
#include <initializer_list>
#include <string>
#include <utility>
#include <vector>

#include <commctrl.h>

#include "controls/page_frame.h"
#include "pages/color_page.h"
#include "pages/exposure_page.h"
#include "pages/smart01_page.h"
#include "pages/trigger_page.h"
#include "support/page_site.h"
#include "support/patched_import.h"
#include "support/property_set_test.h"
#include "support/recorded_default.h"

extern "C" void* __imp_InitCommonControlsEx;

namespace kolmfluxor::test {
namespace {

const CPageFrame* g_frame = nullptr;
HWND Dialog() {
    return g_frame->Dialog();
}

/// Stands in for the call that a page makes when its dialog is there and nothing is filled: empties all captions of
/// groups, which the templates hold too.
BOOL WINAPI BlankGroups(const INITCOMMONCONTROLSEX*) {
    for (HWND control = ::GetWindow(Dialog(), GW_CHILD); control != nullptr;
         control = ::GetWindow(control, GW_HWNDNEXT)) {
        std::array<char, 16> kind{};
        ::GetClassNameA(control, kind.data(), static_cast<int>(kind.size()));
        const bool isGroup =
            std::string(kind.data()) == "Button" && (::GetWindowLongA(control, GWL_STYLE) & BS_TYPEMASK) == BS_GROUPBOX;
        if (isGroup) ::SetWindowTextA(control, "");
    }
    return TRUE;
}

class PageAnswers : public PropertySetTest {
protected:
    PageAnswers() { g_frame = &m_frame; }
    ~PageAnswers() override { Close(); }

    /// @param object  what the page is connected to; without the camera's interface the page is a dead one
    template <class Page> void Open(IUnknown* object) {
        m_page = NewPage<Page>();
        m_page->SetObjects(1, &object);
        ASSERT_EQ(m_frame.Activate(*m_page), S_OK);
    }
    template <class Page> void Open() { Open<Page>(Object().Filter().Unknown()); }
    void Close() {
        if (m_page != nullptr) EndPage(std::exchange(m_page, nullptr));
    }

    using Captions = std::vector<std::pair<int, std::string>>;
    static void ExpectCaptions(const Captions& captions) {
        for (const auto& [id, expected] : captions) {
            EXPECT_EQ(g_frame->Text(id), expected) << id;
        }
    }
    /// Opens a page whose template has no captions, with a camera and without one.
    template <class Page> void ExpectSets(const Captions& connected, const Captions& dead) {
        const CPatchedImport patch(&__imp_InitCommonControlsEx, reinterpret_cast<void*>(&BlankGroups));
        Open<Page>();
        ExpectCaptions(connected);
        Close();
        CPageSite stranger;
        Open<Page>(&stranger);
        ExpectCaptions(dead);
        Close();
    }

    using Notifications = std::initializer_list<std::pair<int, int>>;
    /// The page answers each of these itself.
    void ExpectHandled(const Notifications& notifications) {
        for (const auto& [id, code] : notifications)
            EXPECT_EQ(Notify(id, code), 1) << id << ", code " << code;
    }
    /// The base answers each of these.
    void ExpectPassedOn(const Notifications& notifications) {
        for (const auto& [id, code] : notifications) {
            EXPECT_EQ(Notify(id, code), CRecordedDefault::kAnswer) << id << ", code " << code;
            EXPECT_EQ(CRecordedDefault::Messages(), std::vector<UINT>{WM_COMMAND}) << id << ", code " << code;
        }
    }
    /// The page handles the messages of these trackbars, and of no other control.
    void ExpectHandledTrackbars(std::initializer_list<int> trackbars, int noTrackbar) {
        for (const int id : trackbars)
            EXPECT_EQ(Scroll(::GetDlgItem(Dialog(), id)), 1) << id;
        ASSERT_NE(::GetDlgItem(Dialog(), noTrackbar), nullptr);
        EXPECT_EQ(Scroll(::GetDlgItem(Dialog(), noTrackbar)), CRecordedDefault::kAnswer);
        EXPECT_EQ(Scroll(nullptr), CRecordedDefault::kAnswer);
    }

private:
    INT_PTR Notify(int id, int code) {
        HWND const control = ::GetDlgItem(Dialog(), id);
        EXPECT_NE(control, nullptr) << id;
        return Receive(WM_COMMAND, MAKEWPARAM(id, code), reinterpret_cast<LPARAM>(control));
    }
    INT_PTR Scroll(HWND trackbar) { return Receive(WM_HSCROLL, TB_LINEDOWN, reinterpret_cast<LPARAM>(trackbar)); }
    INT_PTR Receive(UINT message, WPARAM wParam, LPARAM lParam) {
        const CRecordedDefault base;
        return m_page->OnReceiveMessage(Dialog(), message, wParam, lParam);
    }

    CPageFrame m_frame;
    CFeaturePage* m_page = nullptr;
};

// ---- Captions -----------------------------------------------------------------------------------------------------

TEST_F(PageAnswers, the_exposure_page_sets_its_captions) {
    const Captions captions = {
        {1075, "Brightness"}, {1084, "Gain"}, {1090, "Shutter"}, {1098, "Gamma"}, {1104, "Auto exposure"}};
    ExpectSets<CKolmFluxorPage_Exposure>(captions, captions);
}

TEST_F(PageAnswers, the_color_page_sets_its_captions) {
    const Captions captions = {{1100, "Color correction"},
                               {1094, "White balance UB"},
                               {1084, "White balance VR"},
                               {1090, "Hue"},
                               {1107, "Saturation"}};
    ExpectSets<CKolmFluxorPage_Color>(captions, captions);
}

TEST_F(PageAnswers, the_trigger_page_sets_its_captions) {
    ASSERT_TRUE(Camera().SetFeatureWord(53, 28, 0x00040120));  // Mode2, which brings no caption of its own
    const Captions captions = {{1118, "Trigger"}, {1120, "Trigger delay"}, {1131, "Delayed integration enable"}};
    ExpectSets<CKolmFluxorPage_Trigger>(captions, captions);
}

TEST_F(PageAnswers, the_smart_features_page_sets_its_captions) {
    const Captions captions = {{1134, "Test image"}, {1146, "High snr"}, {1157, "DSNU correction"}};
    ExpectSets<CKolmFluxorPage_Smart01>(captions, captions);
}

// ---- Messages -----------------------------------------------------------------------------------------------------

TEST_F(PageAnswers, the_color_page_returns_1_for_its_own_messages_only) {
    Open<CKolmFluxorPage_Color>();
    ExpectHandled({{1099, CBN_SELCHANGE},
                   {1083, CBN_SELCHANGE},
                   {1089, CBN_SELCHANGE},
                   {1106, CBN_SELCHANGE},
                   {1093, CBN_SELCHANGE}});
    for (const int edit : {1101, 1102, 1103, 1060, 1061, 1064, 1065, 1066, 1067}) {
        ExpectHandled({{edit, EN_CHANGE}, {edit, EN_KILLFOCUS}});
        ExpectPassedOn({{edit, EN_UPDATE}});
    }
    ExpectPassedOn({{1093, CBN_DROPDOWN}, {1099, CBN_CLOSEUP}, {1101, EN_SETFOCUS}, {1108, EN_CHANGE}});
    ExpectPassedOn({{1098, EN_CHANGE}, {1098, EN_KILLFOCUS}, {1101, CBN_SELCHANGE}});
    ExpectHandledTrackbars({1096, 1079, 1085, 1091}, 1098);
}

TEST_F(PageAnswers, the_trigger_page_returns_1_for_its_own_messages_only) {
    Open<CKolmFluxorPage_Trigger>();
    ExpectHandled(
        {{1125, CBN_SELCHANGE}, {1130, CBN_SELCHANGE}, {1110, CBN_SELCHANGE}, {1055, BN_CLICKED}, {1056, BN_CLICKED}});
    ExpectPassedOn({{1111, CBN_SELCHANGE}, {1110, CBN_DROPDOWN}, {1055, BN_SETFOCUS}, {1057, EN_CHANGE}});
    ExpectHandledTrackbars({1121, 1126}, 1124);
}

TEST_F(PageAnswers, the_smart_features_page_returns_1_for_its_own_messages_only) {
    Open<CKolmFluxorPage_Smart01>();
    ExpectHandled({{1136, CBN_SELCHANGE}, {1150, CBN_SELCHANGE}, {1156, CBN_SELCHANGE}});
    ExpectPassedOn({{1136, CBN_CLOSEUP}, {1150, CBN_DROPDOWN}, {1149, EN_CHANGE}});
    ExpectHandledTrackbars({1151, 1152}, 1149);
}

}  // namespace
}  // namespace kolmfluxor::test
