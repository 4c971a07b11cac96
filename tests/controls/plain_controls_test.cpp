/// @file  The wrappers of single controls, at every branch and with every text.

#include <gtest/gtest.h>

#include <array>
#include <string>
#include <tuple>
#include <vector>

#include "pages/common/combo_box_ctrl.h"
#include "pages/common/feature_slider_ctrl.h"
#include "pages/common/kolm_fluxor_exception.h"
#include "pages/common/mode_names.h"
#include "pages/common/number_edit_ctrl.h"
#include "pages/common/simple_controls.h"
#include "support/control_window.h"
#include "support/patched_import.h"
#include "support/thrown_text.h"

extern "C" void* __imp_InvalidateRect;
extern "C" void* __imp_SetDlgItemInt;

namespace kolmfluxor::test {
namespace {

constexpr int kId = 1234;

TEST(ControlWrappers, say_their_texts_when_there_is_no_dialog) {
    HWND none = nullptr;
    for (const HWND* place : {static_cast<const HWND*>(nullptr), static_cast<const HWND*>(&none)}) {
        const CFeatureSliderCtrl slider({}, place);
        EXPECT_EQ(ThrownText([&] { std::ignore = slider.SliderValue(); }), "pointer to dlg still NULL");
        const CKolmNumberEditCtrl edit(kId, place);
        EXPECT_EQ(ThrownText([&] { std::ignore = edit.value(); }), "null pointer: pointer to dialog still NULL");
        const CComboBoxCtrl combo(kId, place);
        EXPECT_EQ(ThrownText([&] { std::ignore = combo.SelectedValue(); }),
                  "CComboBoxCtrl::Dlg: NullPointer: dialog pointer still NULL");
        const CComboBoxFeatureCtrl featureCombo({1, 2, kId}, place);
        EXPECT_EQ(ThrownText([&] { std::ignore = featureCombo.SelectedValue(); }),
                  "CComboBoxFeatureCtrl::Dlg: NullPointer: dialog pointer still NULL");
        const CCheckBoxCtrl box(kId, place);
        EXPECT_EQ(ThrownText([&] { box.Enable(true); }), "CCheckBoxCtrl::Dlg: NullPointer: dialog pointer still NULL");
        const CSimpleCtrl simple(kId, place);
        EXPECT_EQ(ThrownText([&] { simple.SetText("x"); }), "CSimpleCtrl::Dlg: NullPointer: dialog pointer still NULL");
        const CPictureCtrl picture(kId, place);
        EXPECT_EQ(ThrownText([&] { picture.Invalidate(true); }),
                  "CPictureCtrl::Dlg: NullPointer: dialog pointer still NULL");
    }
}

TEST(ControlWrappers, see_the_dialog_once_it_exists) {
    HWND place = nullptr;
    const CSimpleCtrl simple(kId, &place);
    EXPECT_NE(ThrownText([&] { std::ignore = simple.Handle(); }), "(nothing was thrown)");
    CControlWindow window;
    HWND const control = window.Add("STATIC", kId);
    place = window.Handle();
    EXPECT_EQ(simple.Handle(), control);
}

TEST(SimpleCtrl, sets_texts_and_enables) {
    CControlWindow window;
    window.Add("STATIC", kId);
    const CSimpleCtrl simple(kId, window.Place());
    simple.SetText("20\xB5s");
    EXPECT_EQ(window.Text(kId), "20\xB5s");
    simple.Enable(false);
    EXPECT_FALSE(window.IsEnabled(kId));
    simple.Enable(true);
    EXPECT_TRUE(window.IsEnabled(kId));
}

TEST(CheckBoxCtrl, checks_and_tells) {
    CControlWindow window;
    window.Add("BUTTON", kId, BS_AUTOCHECKBOX);
    const CCheckBoxCtrl box(kId, window.Place());
    EXPECT_FALSE(box.IsChecked());
    for (const BOOL notOne : {FALSE, 2, -1}) {
        box.Check(TRUE);
        EXPECT_TRUE(box.IsChecked());
        box.Check(notOne);
        EXPECT_FALSE(box.IsChecked()) << notOne << ": only exactly 1 checks";
    }
    box.Enable(false);
    EXPECT_FALSE(window.IsEnabled(kId));
}

TEST(CheckBoxCtrl, throws_its_text_when_the_control_refuses) {
    CControlWindow window;
    HWND const control = window.Add("BUTTON", kId, BS_AUTOCHECKBOX);
    const CCheckBoxCtrl box(kId, window.Place());
    for (const LRESULT result : {-1, -2}) {
        const CRefusingControl refusing(control, BM_SETCHECK, result);
        EXPECT_EQ(ThrownText([&] { box.Check(TRUE); }), "CCheckBoxCtrl::Check: error set state check box");
    }
    const CRefusingControl other(control, BM_SETCHECK, -3);
    EXPECT_NO_THROW(box.Check(TRUE)) << "other results are no failure";
}

TEST(NumberEditCtrl, reads_and_writes_signed_numbers) {
    CControlWindow window;
    window.Add("EDIT", kId);
    const CKolmNumberEditCtrl edit(kId, window.Place());
    for (const int value : {0, 1, -1, 2147483647, -2147483647}) {
        EXPECT_TRUE(edit.setValue(value));
        EXPECT_EQ(window.Text(kId), std::to_string(value));
        EXPECT_EQ(edit.value(), value);
    }
    ::SetDlgItemTextA(window.Handle(), kId, "12abc");
    EXPECT_EQ(edit.value(), 12);
}

BOOL WINAPI RefuseNumber(HWND, int, UINT, BOOL) {
    return FALSE;
}

TEST(NumberEditCtrl, reports_a_number_that_the_control_did_not_take) {
    CControlWindow window;
    window.Add("EDIT", kId);
    const CKolmNumberEditCtrl edit(kId, window.Place());
    const CPatchedImport patch(&__imp_SetDlgItemInt, reinterpret_cast<void*>(&RefuseNumber));
    EXPECT_FALSE(edit.setValue(1));
}

TEST(NumberEditCtrl, throws_its_text_for_what_is_no_number) {
    CControlWindow window;
    window.Add("EDIT", kId);
    const CKolmNumberEditCtrl edit(kId, window.Place());
    for (const char* text : {"", "-", "x12", "99999999999"}) {
        ::SetDlgItemTextA(window.Handle(), kId, text);
        EXPECT_EQ(ThrownText([&] { std::ignore = edit.value(); }),
                  "CKolmNumberEditCtrl::value: translating edit to int failed")
            << text;
    }
}

TEST(NumberEditCtrl, undoes_and_enables) {
    CControlWindow window;
    HWND const control = window.Add("EDIT", kId);
    const CKolmNumberEditCtrl edit(kId, window.Place());
    ::SendMessageA(control, EM_REPLACESEL, TRUE, reinterpret_cast<LPARAM>("5"));
    ASSERT_EQ(window.Text(kId), "5");
    edit.undo();
    EXPECT_EQ(window.Text(kId), "");
    edit.enable(false);
    EXPECT_FALSE(window.IsEnabled(kId));
}

TEST(NumberEditCtrl, tells_empty_and_minus) {
    CControlWindow window;
    window.Add("EDIT", kId, ES_AUTOHSCROLL);
    const CKolmNumberEditCtrl edit(kId, window.Place());
    const auto type = [&](const std::string& text) { ::SetDlgItemTextA(window.Handle(), kId, text.c_str()); };
    type("");
    EXPECT_TRUE(edit.isEmpty());
    EXPECT_FALSE(edit.isMinus());
    type("-");
    EXPECT_FALSE(edit.isEmpty());
    EXPECT_TRUE(edit.isMinus());
    type("-1");
    EXPECT_FALSE(edit.isMinus());
    type(std::string(300, '-'));
    EXPECT_FALSE(edit.isMinus());
}

TEST(NumberEditCtrl, copies_texts_that_fit) {
    CControlWindow window;
    window.Add("EDIT", kId, ES_AUTOHSCROLL);
    const CKolmNumberEditCtrl edit(kId, window.Place());
    std::array<char, 400> buffer{};
    buffer.fill('#');
    ::SetDlgItemTextA(window.Handle(), kId, "123");
    EXPECT_EQ(edit.text(buffer.data(), 3), static_cast<DWORD>(ERROR_MORE_DATA)) << "no place for the NUL";
    EXPECT_EQ(buffer[0], '#');
    EXPECT_EQ(edit.text(buffer.data(), 4), static_cast<DWORD>(ERROR_SUCCESS));
    EXPECT_STREQ(buffer.data(), "123");
    EXPECT_EQ(buffer[4], '#');
    ::SetDlgItemTextA(window.Handle(), kId, std::string(255, '7').c_str());
    EXPECT_EQ(edit.text(buffer.data(), 400), static_cast<DWORD>(ERROR_SUCCESS));
    ::SetDlgItemTextA(window.Handle(), kId, std::string(256, '7').c_str());
    EXPECT_EQ(edit.text(buffer.data(), 400), static_cast<DWORD>(ERROR_MORE_DATA)) << "fewer characters were copied";
}

template <class Combo> struct ComboNames;
template <> struct ComboNames<CComboBoxCtrl> {
    static constexpr char kClass[] = "CComboBoxCtrl";
    static CComboBoxCtrl Make(const HWND* place) { return {kId, place}; }
};
template <> struct ComboNames<CComboBoxFeatureCtrl> {
    static constexpr char kClass[] = "CComboBoxFeatureCtrl";
    static CComboBoxFeatureCtrl Make(const HWND* place) { return {{1, 2, kId}, place}; }
};

template <class Combo> class ComboBoxes : public ::testing::Test {
protected:
    ComboBoxes()
        : m_control(m_window.Add("COMBOBOX", kId, CBS_DROPDOWNLIST)),
          m_combo(ComboNames<Combo>::Make(m_window.Place())) {}

    /// What `run` throws while the control answers a message with a result.
    template <class F> std::string Refused(UINT message, LRESULT result, F&& run) {
        const CRefusingControl refusing(m_control, message, result);
        return ThrownText(run);
    }
    static std::string Text(const char* text) { return std::string(ComboNames<Combo>::kClass) + text; }

    CControlWindow m_window;
    HWND m_control;
    Combo m_combo;
};
using ComboTypes = ::testing::Types<CComboBoxCtrl, CComboBoxFeatureCtrl>;
TYPED_TEST_SUITE(ComboBoxes, ComboTypes);

TYPED_TEST(ComboBoxes, add_and_select_by_data) {
    ::EnableWindow(this->m_control, FALSE);
    this->m_combo.AddValue("one", 1);
    this->m_combo.AddValue("many", 0xF0F00800);
    this->m_combo.AddValue("one again", 1);
    EXPECT_TRUE(this->m_window.IsEnabled(kId)) << "an entry enables the combo";

    this->m_combo.SelectValue(0xF0F00800);
    EXPECT_EQ(this->m_combo.SelectedValue(), 0xF0F00800u);
    this->m_combo.SelectValue(1);
    EXPECT_EQ(::SendMessageA(this->m_control, CB_GETCURSEL, 0, 0), 0) << "the first one with this data";
    this->m_combo.SelectValue(99);
    EXPECT_EQ(this->m_combo.SelectedValue(), 1u) << "none: the selection stays";
}

TYPED_TEST(ComboBoxes, say_what_failed_in_these_spellings) {
    auto& combo = this->m_combo;
    const auto add = [&] { combo.AddValue("x", 1); };
    const auto select = [&] { combo.SelectValue(1); };
    const auto selected = [&] { std::ignore = combo.SelectedValue(); };
    EXPECT_EQ(this->Refused(CB_ADDSTRING, CB_ERR, add), this->Text("::AddValue: error adding string to combobox"));
    EXPECT_EQ(this->Refused(CB_ADDSTRING, CB_ERRSPACE, add), this->Text("::AddValue: error adding string to combobox"));
    EXPECT_EQ(this->Refused(CB_SETITEMDATA, CB_ERR, add), this->Text("::AddValue: error seting item data to combobox"));
    EXPECT_EQ(this->Refused(CB_GETCOUNT, CB_ERR, select),
              this->Text("::SelectValue: error retriving combo box element count"));
    EXPECT_EQ(this->Refused(CB_GETITEMDATA, CB_ERR, select),
              this->Text("::SelectValue: error retriving item data from combobox"));
    EXPECT_EQ(ThrownText(selected), this->Text("::SelectedValue: error getting current selection from combobox"));
    combo.AddValue("y", 1);
    combo.SelectValue(1);
    EXPECT_EQ(this->Refused(CB_GETITEMDATA, CB_ERR, selected),
              this->Text("::SelectedValue: error retriving item data from combo box"));
}

TEST(ComboBoxFeatureCtrl, has_a_group_box_and_a_label) {
    CControlWindow window;
    window.Add("BUTTON", 1, BS_GROUPBOX);
    window.Add("STATIC", 2);
    window.Add("COMBOBOX", kId, CBS_DROPDOWNLIST);
    const CComboBoxFeatureCtrl combo({1, 2, kId}, window.Place());
    combo.SetCaption("caption");
    combo.SetLabel("label");
    EXPECT_EQ(window.Text(1), "caption");
    EXPECT_EQ(window.Text(2), "label");
    for (const bool enable : {false, true}) {
        combo.Enable(enable);
        for (const int id : {1, 2, kId})
            EXPECT_EQ(window.IsEnabled(id), enable) << id;
    }
}

struct Invalidation {
    HWND window;
    bool whole;
    RECT area;
    BOOL erase;
};
std::vector<Invalidation> g_invalidations;

BOOL WINAPI RecordInvalidation(HWND window, const RECT* area, BOOL erase) {
    g_invalidations.push_back({window, area == nullptr, area != nullptr ? *area : RECT{}, erase});
    return TRUE;
}

TEST(PictureCtrl, tells_its_client_rectangle) {
    CControlWindow window;
    HWND const control = window.Add("STATIC", kId);
    const CPictureCtrl picture(kId, window.Place());
    const RECT area = picture.ClientRect();
    const RECT expected = {0, 0, 120, 100};
    EXPECT_TRUE(::EqualRect(&area, &expected));
    picture.Enable(false);
    EXPECT_FALSE(window.IsEnabled(kId));
    EXPECT_EQ(picture.Handle(), control);
}

TEST(PictureCtrl, has_itself_and_then_the_desktop_painted) {
    CControlWindow window;
    HWND const control = window.Add("STATIC", kId);  // at 10, 10; 120 x 100
    const CPictureCtrl picture(kId, window.Place());
    const CPatchedImport patch(&__imp_InvalidateRect, reinterpret_cast<void*>(&RecordInvalidation));
    for (const BOOL erase : {TRUE, FALSE}) {
        g_invalidations.clear();
        picture.Invalidate(erase == TRUE);
        ASSERT_EQ(g_invalidations.size(), 2u);
        EXPECT_EQ(g_invalidations[0].window, control);
        EXPECT_TRUE(g_invalidations[0].whole);
        EXPECT_EQ(g_invalidations[0].erase, erase);
        EXPECT_EQ(g_invalidations[1].window, nullptr) << "no window: the desktop as a whole";
        const RECT inDialog = {10, 10, 130, 110};
        EXPECT_TRUE(::EqualRect(&g_invalidations[1].area, &inDialog));
        EXPECT_EQ(g_invalidations[1].erase, erase);
    }
}

TEST(ModeNames, name_the_modes) {
    const std::vector<std::string> names = {"Off",       "Manual",   "OnePush",  "Auto",      "Busy",
                                            "ShowImage", "LoadData", "SaveData", "ClearData", "Error"};
    for (std::uint32_t mode = 0; mode < 10; ++mode)
        EXPECT_EQ(ModeName(mode), names[mode]);
    EXPECT_STREQ(ModeName(10), "unknown");
    EXPECT_STREQ(ModeName(0xFFFFFFFF), "unknown");
}

TEST(KolmFluxorException, carries_text_and_code_and_copies_both) {
    const CKolmFluxorException original("unable to retrieve item count", 1);
    const CKolmFluxorException copy = original;  // NOLINT(performance-unnecessary-copy-initialization): it is the test
    EXPECT_STREQ(copy.what(), "unable to retrieve item count");
    EXPECT_EQ(copy.Code(), 1u);
}

}  // namespace
}  // namespace kolmfluxor::test
