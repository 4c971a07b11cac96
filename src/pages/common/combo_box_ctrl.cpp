#include "pages/common/combo_box_ctrl.h"

#include <initializer_list>

#include "base/errors.h"

namespace kolmfluxor {
namespace {

// Compatibility: the spellings "seting" and "retriving" are known to callers and to support.
#define KOLM_COMBO_BOX_TEXTS(className)                                                              \
    {                                                                                                \
        .noDialog = className "::Dlg: NullPointer: dialog pointer still NULL",                       \
        .addString = className "::AddValue: error adding string to combobox",                        \
        .addData = className "::AddValue: error seting item data to combobox",                       \
        .selectCount = className "::SelectValue: error retriving combo box element count",           \
        .selectData = className "::SelectValue: error retriving item data from combobox",            \
        .selectedIndex = className "::SelectedValue: error getting current selection from combobox", \
        .selectedData = className "::SelectedValue: error retriving item data from combo box",       \
    }

constexpr ComboBoxTexts kComboBoxTexts = KOLM_COMBO_BOX_TEXTS("CComboBoxCtrl");
constexpr ComboBoxTexts kComboBoxFeatureTexts = KOLM_COMBO_BOX_TEXTS("CComboBoxFeatureCtrl");

#undef KOLM_COMBO_BOX_TEXTS

}  // namespace

CComboBoxCtrl::CComboBoxCtrl(int id, const HWND* dialog) noexcept : CComboBoxBase(id, dialog, kComboBoxTexts) {}

CComboBoxFeatureCtrl::CComboBoxFeatureCtrl(const ComboBoxFeatureIds& ids, const HWND* dialog) noexcept
    : CComboBoxBase(ids.combo, dialog, kComboBoxFeatureTexts), m_ids(ids) {}

void CComboBoxFeatureCtrl::Enable(bool enable) const {
    for (const int id : {m_ids.groupBox, m_ids.label, m_ids.combo})
        EnableItem(id, enable);
}

void CComboBoxBase::AddValue(const char* text, ULONG data) const {
    const LRESULT index = Send(m_id, CB_ADDSTRING, 0, reinterpret_cast<LPARAM>(text));
    if (index == CB_ERR || index == CB_ERRSPACE) throw CTextException(m_texts.addString);
    const LRESULT result = Send(m_id, CB_SETITEMDATA, static_cast<WPARAM>(index), static_cast<LPARAM>(data));
    if (result == CB_ERR) throw CTextException(m_texts.addData);
    EnableItem(m_id, true);
}

void CComboBoxBase::SelectValue(ULONG data) const {
    const LRESULT count = Send(m_id, CB_GETCOUNT);
    if (count == CB_ERR) throw CTextException(m_texts.selectCount);
    for (WPARAM i = 0; i < static_cast<WPARAM>(count); ++i) {
        const LRESULT itemData = Send(m_id, CB_GETITEMDATA, i);
        if (itemData == CB_ERR) throw CTextException(m_texts.selectData);
        if (static_cast<ULONG>(itemData) != data) continue;
        Send(m_id, CB_SETCURSEL, i);
        return;
    }
}

ULONG CComboBoxBase::SelectedValue() const {
    const LRESULT index = Send(m_id, CB_GETCURSEL);
    if (index == CB_ERR) throw CTextException(m_texts.selectedIndex);
    const LRESULT data = Send(m_id, CB_GETITEMDATA, static_cast<WPARAM>(index));
    if (data == CB_ERR) throw CTextException(m_texts.selectedData);
    return static_cast<ULONG>(data);
}

}  // namespace kolmfluxor
