#pragma once
/// @file  Wrappers of single controls: anything with a text, a check box, a picture.

#include "pages/common/dialog_control.h"

namespace kolmfluxor {

/// Any control, as far as it can be enabled and shows a text.
class CSimpleCtrl : public CDialogControl {
public:
    CSimpleCtrl(int id, const HWND* dialog) noexcept
        : CDialogControl(dialog, "CSimpleCtrl::Dlg: NullPointer: dialog pointer still NULL"), m_id(id) {}

    [[nodiscard]] HWND Handle() const { return Item(m_id); }
    void Enable(bool enable) const { EnableItem(m_id, enable); }
    void SetText(const char* text) const { SetItemText(m_id, text); }

private:
    int m_id;
};

/// A check box.
class CCheckBoxCtrl : public CDialogControl {
public:
    CCheckBoxCtrl(int id, const HWND* dialog) noexcept
        : CDialogControl(dialog, "CCheckBoxCtrl::Dlg: NullPointer: dialog pointer still NULL"), m_id(id) {}

    /// @param checked  checks the box when exactly 1
    /// @throws CTextException  when the control refuses
    void Check(BOOL checked) const;
    [[nodiscard]] bool IsChecked() const { return Send(m_id, BM_GETCHECK) == BST_CHECKED; }
    void Enable(bool enable) const { EnableItem(m_id, enable); }

private:
    int m_id;
};

/// A static control that the page draws itself.
class CPictureCtrl : public CDialogControl {
public:
    CPictureCtrl(int id, const HWND* dialog) noexcept
        : CDialogControl(dialog, "CPictureCtrl::Dlg: NullPointer: dialog pointer still NULL"), m_id(id) {}

    [[nodiscard]] HWND Handle() const { return Item(m_id); }
    void Enable(bool enable) const { EnableItem(m_id, enable); }
    /// The control's client rectangle, in its own coordinates.
    [[nodiscard]] RECT ClientRect() const;
    /// Has the control painted again, and the desktop below it. @param erase  with its background
    void Invalidate(bool erase) const;

private:
    int m_id;
};

}  // namespace kolmfluxor
