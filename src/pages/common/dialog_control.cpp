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

void CDialogControl::AddEntry(int combo, const char* text, ULONG data) const {
    const LRESULT index = Send(combo, CB_ADDSTRING, 0, reinterpret_cast<LPARAM>(text));
    Send(combo, CB_SETITEMDATA, static_cast<WPARAM>(index), static_cast<LPARAM>(data));
}

bool CDialogControl::SelectEntry(int combo, ULONG data) const {
    const LRESULT count = Send(combo, CB_GETCOUNT);
    for (LRESULT i = 0; i < count; ++i) {  // a failed count is negative
        const auto index = static_cast<WPARAM>(i);
        if (static_cast<ULONG>(Send(combo, CB_GETITEMDATA, index)) != data) continue;
        Send(combo, CB_SETCURSEL, index);
        return true;
    }
    return false;
}

ULONG CDialogControl::SelectedEntry(int combo) const {
    const LRESULT index = Send(combo, CB_GETCURSEL);
    return static_cast<ULONG>(Send(combo, CB_GETITEMDATA, static_cast<WPARAM>(index)));
}

}  // namespace kolmfluxor
