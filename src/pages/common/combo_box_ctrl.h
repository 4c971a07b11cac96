#pragma once
/// @file  Combo boxes whose entries carry a number.

#include "pages/common/dialog_control.h"

namespace kolmfluxor {

/// What a combo box wrapper says when something fails; each class has these texts with its own name in front.
struct ComboBoxTexts {
    const char* noDialog;
    const char* addString;
    const char* addData;
    const char* selectCount;
    const char* selectData;
    const char* selectedIndex;
    const char* selectedData;
};

/// A combo box; every failure throws `CTextException` with a text of its class.
class CComboBoxBase : public CDialogControl {
public:
    /// Adds an entry and enables the combo.
    void AddValue(const char* text, ULONG data) const;
    /// Selects the first entry with this data; without one the selection stays as it is.
    void SelectValue(ULONG data) const;
    /// The data of the selected entry.
    [[nodiscard]] ULONG SelectedValue() const;
    /// The number of entries.
    [[nodiscard]] ULONG Count() const { return static_cast<ULONG>(Send(m_id, CB_GETCOUNT)); }
    void Clear() const { Send(m_id, CB_RESETCONTENT); }
    void Enable(bool enable) const { EnableItem(m_id, enable); }

protected:
    CComboBoxBase(int id, const HWND* dialog, const ComboBoxTexts& texts) noexcept
        : CDialogControl(dialog, texts.noDialog), m_id(id), m_texts(texts) {}
    ~CComboBoxBase() = default;

private:
    int m_id;
    const ComboBoxTexts& m_texts;
};

/// The combo box of the register and LUT pages.
class CComboBoxCtrl final : public CComboBoxBase {
public:
    CComboBoxCtrl(int id, const HWND* dialog) noexcept;
};

/// The controls of a feature that is chosen from a list.
struct ComboBoxFeatureIds {
    int groupBox;
    int label;
    int combo;
};

/// The combo box of the smart features page, with its group box and label.
class CComboBoxFeatureCtrl : public CComboBoxBase {
public:
    CComboBoxFeatureCtrl(const ComboBoxFeatureIds& ids, const HWND* dialog) noexcept;

    void SetCaption(const char* text) const { SetItemText(m_ids.groupBox, text); }
    void SetLabel(const char* text) const { SetItemText(m_ids.label, text); }
    /// Enables or disables group box, label and combo box.
    void Enable(bool enable) const;

private:
    ComboBoxFeatureIds m_ids;
};

}  // namespace kolmfluxor
