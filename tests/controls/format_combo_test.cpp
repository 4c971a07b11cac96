/// @file  The combo boxes of the Format page, and the template that they stand in.

#include "pages/format_combo.h"

#include <gtest/gtest.h>

#include <array>
#include <string>

#include <commctrl.h>

#include "pages/common/kolm_fluxor_exception.h"
#include "support/control_window.h"
#include "support/thrown_text.h"

namespace kolmfluxor::test {
namespace {

constexpr int kCombo = 7;

template <class F> DWORD ThrownCode(F&& run) {
    try {
        run();
    } catch (const CKolmFluxorException& thrown) {
        return thrown.Code();
    }
    return 0;
}

TEST(FormatCombo, finds_its_entries_by_data) {
    CControlWindow window;
    window.Add("COMBOBOX", kCombo, CBS_DROPDOWNLIST);
    const CFormatCombo combo(kCombo, window.Place());
    EXPECT_EQ(combo.Add("a", 0xFFFFFFFF), 0);
    EXPECT_EQ(combo.Add("b", 7), 1);
    EXPECT_EQ(combo.Add("c", 7), 2);

    combo.SelectData(7);
    EXPECT_EQ(combo.SelectedData(), 7u);
    EXPECT_EQ(::SendDlgItemMessageA(window.Handle(), kCombo, CB_GETCURSEL, 0, 0), 1) << "the first of two";
    combo.SelectData(8);
    EXPECT_EQ(combo.SelectedData(), 7u) << "without an entry nothing changes";
    combo.SelectData(0xFFFFFFFF);
    EXPECT_EQ(combo.SelectedData(), 0xFFFFFFFFu);
    combo.Clear();
    EXPECT_EQ(::SendDlgItemMessageA(window.Handle(), kCombo, CB_GETCOUNT, 0, 0), 0);
}

TEST(FormatCombo, without_a_selection_says_so_with_code_1) {
    CControlWindow window;
    window.Add("COMBOBOX", kCombo, CBS_DROPDOWNLIST);
    const CFormatCombo combo(kCombo, window.Place());
    combo.Add("a", 1);
    EXPECT_EQ(ThrownText([&] { static_cast<void>(combo.SelectedData()); }), "unable to retrieve current selection");
    EXPECT_EQ(ThrownCode([&] { static_cast<void>(combo.SelectedData()); }), 1u);
}

TEST(FormatCombo, a_control_that_cannot_count_says_so_with_code_1) {
    CControlWindow window;
    HWND const control = window.Add("COMBOBOX", kCombo, CBS_DROPDOWNLIST);
    const CFormatCombo combo(kCombo, window.Place());
    const CRefusingControl refusing(control, CB_GETCOUNT, CB_ERR);
    EXPECT_EQ(ThrownText([&] { combo.SelectData(1); }), "unable to retrieve item count");
    EXPECT_EQ(ThrownCode([&] { combo.SelectData(1); }), 1u);
}

TEST(FormatCombo, without_a_dialog_every_access_fails) {
    HWND none = nullptr;
    const CFormatCombo combo(kCombo, &none);
    EXPECT_EQ(ThrownText([&] { combo.Clear(); }), "null pointer: pointer to dialog still NULL");
    EXPECT_EQ(ThrownText([&] { combo.Add("a", 1); }), "null pointer: pointer to dialog still NULL");
}

// ---- The template -------------------------------------------------------------------------------------------------

/// Dialog 206 of this program's resources, which are the module's.
class FormatTemplate : public ::testing::Test {
protected:
    FormatTemplate()
        : m_dialog(::CreateDialogParamA(::GetModuleHandleA(nullptr), MAKEINTRESOURCEA(206), m_parent.Handle(),
                                        &Procedure, 0)) {
        EXPECT_NE(m_dialog, nullptr);
    }
    ~FormatTemplate() override { ::DestroyWindow(m_dialog); }

    static INT_PTR CALLBACK Procedure(HWND, UINT, WPARAM, LPARAM) { return FALSE; }
    [[nodiscard]] LONG_PTR Style(int id) const { return ::GetWindowLongPtrA(::GetDlgItem(m_dialog, id), GWL_STYLE); }
    [[nodiscard]] bool HasText(const char* wanted) const {
        for (HWND control = ::GetWindow(m_dialog, GW_CHILD); control != nullptr;
             control = ::GetWindow(control, GW_HWNDNEXT)) {
            std::array<char, 128> text{};
            ::GetWindowTextA(control, text.data(), static_cast<int>(text.size()));
            if (std::string(text.data()) == wanted) return true;
        }
        return false;
    }

    const INITCOMMONCONTROLSEX m_classes = {sizeof m_classes, ICC_BAR_CLASSES};
    const BOOL m_ready = ::InitCommonControlsEx(&m_classes);
    CControlWindow m_parent;
    HWND m_dialog;
};

TEST_F(FormatTemplate, has_its_number_its_title_and_its_captions) {
    std::array<char, 32> title{};
    EXPECT_GT(::LoadStringA(::GetModuleHandleA(nullptr), 207, title.data(), static_cast<int>(title.size())), 0);
    EXPECT_STREQ(title.data(), "Format");
    for (const char* text :
         {"Mode:", "X position:", "Y position:", "Width:", "Height:", "AOI", "FPS", "ISO configuration", "Channel",
          "Speed", "Multi-shot:", " 0\tFree-run\n>0\tPicture count"}) {
        EXPECT_TRUE(HasText(text)) << text;
    }
}

TEST_F(FormatTemplate, controls_have_their_styles) {
    for (const int combo : {1068, 1152, 1155})
        EXPECT_EQ(Style(combo) & 3, CBS_DROPDOWNLIST) << combo;
    constexpr LONG_PTR kUpDown = UDS_SETBUDDYINT | UDS_ALIGNRIGHT | UDS_AUTOBUDDY | UDS_ARROWKEYS | UDS_NOTHOUSANDS;
    for (const int upDown : {1072, 1073, 1074, 1075})
        EXPECT_EQ(Style(upDown) & kUpDown, kUpDown) << upDown;
    EXPECT_EQ(Style(1069) & TBS_VERT, 0);
    EXPECT_NE(Style(1045) & ES_NUMBER, 0);
    EXPECT_NE(Style(1049) & ES_READONLY, 0);
    EXPECT_NE(Style(1050) & WS_DISABLED, 0);
}

}  // namespace
}  // namespace kolmfluxor::test
