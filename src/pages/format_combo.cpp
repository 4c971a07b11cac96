#include "pages/format_combo.h"

#include "pages/common/kolm_fluxor_exception.h"

namespace kolmfluxor {

void CFormatCombo::Clear() const {
    Send(m_id, CB_RESETCONTENT);
}

LRESULT CFormatCombo::Add(const char* text, ULONG data) const {
    const LRESULT position = Send(m_id, CB_ADDSTRING, 0, reinterpret_cast<LPARAM>(text));
    if (position >= 0) Send(m_id, CB_SETITEMDATA, static_cast<WPARAM>(position), static_cast<LPARAM>(data));
    return position;
}

void CFormatCombo::SelectPosition(LRESULT position) const {
    Send(m_id, CB_SETCURSEL, static_cast<WPARAM>(position));
}

void CFormatCombo::SelectData(ULONG data) const {
    const LRESULT count = Send(m_id, CB_GETCOUNT);
    if (count == CB_ERR) throw CKolmFluxorException("unable to retrieve item count", 1);
    for (LRESULT position = 0; position < count; ++position) {
        if (static_cast<ULONG>(Send(m_id, CB_GETITEMDATA, static_cast<WPARAM>(position))) != data) continue;
        if (Send(m_id, CB_GETCURSEL) != position) SelectPosition(position);
        return;
    }
}

ULONG CFormatCombo::SelectedData() const {
    const LRESULT position = Send(m_id, CB_GETCURSEL);
    if (position == CB_ERR) throw CKolmFluxorException("unable to retrieve current selection", 1);
    return static_cast<ULONG>(Send(m_id, CB_GETITEMDATA, static_cast<WPARAM>(position)));
}

}  // namespace kolmfluxor
