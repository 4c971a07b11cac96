#include "pages/common/tree_view_ctrl.h"

namespace kolmfluxor {

HTREEITEM CTreeViewCtrl::Insert(HTREEITEM parent, const char* text) const {
    TVINSERTSTRUCTA place{};
    place.hParent = parent;
    place.hInsertAfter = TVI_LAST;
    place.item.mask = TVIF_TEXT | TVIF_PARAM;
    // NOLINTNEXTLINE(cppcoreguidelines-pro-type-const-cast): the control only reads it
    place.item.pszText = const_cast<char*>(text);
    place.item.lParam = -1;
    return reinterpret_cast<HTREEITEM>(Send(m_id, TVM_INSERTITEMA, 0, reinterpret_cast<LPARAM>(&place)));
}

void CTreeViewCtrl::DeleteChildren(HTREEITEM item) const {
    // A control that refuses would give the same child again and again.
    while (HTREEITEM const child = Neighbor(item, TVGN_CHILD)) {
        if (!Send(m_id, TVM_DELETEITEM, 0, reinterpret_cast<LPARAM>(child))) return;
    }
}

void CTreeViewCtrl::ExpandAll(HTREEITEM item) const {
    Send(m_id, TVM_EXPAND, TVE_EXPAND, reinterpret_cast<LPARAM>(item));
    for (HTREEITEM child = Neighbor(item, TVGN_CHILD); child != nullptr; child = Neighbor(child, TVGN_NEXT))
        ExpandAll(child);
}

void CTreeViewCtrl::SetBackground(COLORREF color) const {
    Send(m_id, TVM_SETBKCOLOR, 0, static_cast<LPARAM>(color));
}

HTREEITEM CTreeViewCtrl::Neighbor(HTREEITEM item, UINT which) const {
    return reinterpret_cast<HTREEITEM>(Send(m_id, TVM_GETNEXTITEM, which, reinterpret_cast<LPARAM>(item)));
}

}  // namespace kolmfluxor
