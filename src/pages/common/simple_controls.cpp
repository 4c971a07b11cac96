#include "pages/common/simple_controls.h"

#include "base/errors.h"

namespace kolmfluxor {

void CCheckBoxCtrl::Check(BOOL checked) const {
    const LRESULT result = Send(m_id, BM_SETCHECK, checked == TRUE ? BST_CHECKED : BST_UNCHECKED);
    if (result == -1 || result == -2) throw CTextException("CCheckBoxCtrl::Check: error set state check box");
}

RECT CPictureCtrl::ClientRect() const {
    RECT area{};
    ::GetClientRect(Handle(), &area);
    return area;
}

void CPictureCtrl::Invalidate(bool erase) const {
    const BOOL withBackground = erase ? TRUE : FALSE;
    ::InvalidateRect(Handle(), nullptr, withBackground);
    RECT area = ClientRect();
    ::MapWindowPoints(Handle(), Dlg(), reinterpret_cast<POINT*>(&area), 2);
    // Compatibility: no window handle, so the desktop repaints this rectangle as a whole. The drawing relies on it.
    ::InvalidateRect(nullptr, &area, withBackground);
}

}  // namespace kolmfluxor
