#include "pages/common/hit_test_property_page.h"

#include <windowsx.h>

namespace kolmfluxor {

INT_PTR CHitTestPropertyPage::OnReceiveMessage(HWND hwnd, UINT message, WPARAM wParam, LPARAM lParam) {
    if (message != WM_NCHITTEST) return CBasePropertyPage::OnReceiveMessage(hwnd, message, wParam, lParam);
    RECT area{};
    ::GetWindowRect(m_hwnd, &area);
    const POINT point = {.x = GET_X_LPARAM(lParam), .y = GET_Y_LPARAM(lParam)};  // screen coordinates, signed
    ::SetWindowLongPtrA(m_hwnd, DWLP_MSGRESULT, ::PtInRect(&area, point) == TRUE ? HTCLIENT : HTNOWHERE);
    return 1;
}

}  // namespace kolmfluxor
