#pragma once
/// @file  A tree view of texts.

#include "pages/common/dialog_control.h"

#include <commctrl.h>

namespace kolmfluxor {

class CTreeViewCtrl final : public CDialogControl {
public:
    CTreeViewCtrl(int id, const HWND* dialog) noexcept
        : CDialogControl(dialog, "CTreeViewCtrl::Dlg: NullPointer: dialog pointer still NULL"), m_id(id) {}

    /// Appends an item to a parent's children.
    ///
    /// @param parent  an item, or `TVI_ROOT`
    /// @return        null when the control refuses
    [[nodiscard]] HTREEITEM Insert(HTREEITEM parent, const char* text) const;
    /// Deletes what is below an item; the item stays.
    void DeleteChildren(HTREEITEM item) const;
    /// Expands an item and all its descendants.
    void ExpandAll(HTREEITEM item) const;
    void SetBackground(COLORREF color) const;
    /// Has the control painted again, with its background.
    void Invalidate() const { ::InvalidateRect(Item(m_id), nullptr, TRUE); }

private:
    [[nodiscard]] HTREEITEM Neighbor(HTREEITEM item, UINT which) const;

    int m_id;
};

}  // namespace kolmfluxor
