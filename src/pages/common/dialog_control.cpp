#include "pages/common/dialog_control.h"

#include <array>
#include <cstdio>

#include "base/errors.h"

namespace kolmfluxor {

HWND CDialogControl::Dlg() const {
    if (m_dialog == nullptr || *m_dialog == nullptr) throw CTextException(m_noDialogText);
    return *m_dialog;
}

HWND CDialogControl::Item(int id) const {
    return ::GetDlgItem(Dlg(), id);
}

LRESULT CDialogControl::Send(int id, UINT message, WPARAM wParam, LPARAM lParam) const {
    return ::SendDlgItemMessageA(Dlg(), id, message, wParam, lParam);
}

void CDialogControl::EnableItem(int id, bool enable) const {
    ::EnableWindow(Item(id), enable ? TRUE : FALSE);
}

void CDialogControl::SetItemText(int id, const char* text) const {
    ::SetDlgItemTextA(Dlg(), id, text);
}

void CDialogControl::SetItemNumber(int id, ULONG number) const {
    std::array<char, 16> text{};
    std::snprintf(text.data(), text.size(), "%d", static_cast<int>(number));
    SetItemText(id, text.data());
}

}  // namespace kolmfluxor
