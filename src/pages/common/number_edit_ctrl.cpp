#include "pages/common/number_edit_ctrl.h"

#include <array>
#include <cstring>

#include "base/errors.h"

namespace kolmfluxor {

int CKolmNumberEditCtrl::value() const {
    BOOL translated = FALSE;
    const UINT value = ::GetDlgItemInt(Dlg(), m_id, &translated, TRUE);
    if (!translated) throw CTextException("CKolmNumberEditCtrl::value: translating edit to int failed");
    return static_cast<int>(value);
}

bool CKolmNumberEditCtrl::setValue(int value) const {
    return ::SetDlgItemInt(Dlg(), m_id, static_cast<UINT>(value), TRUE) != FALSE;
}

DWORD CKolmNumberEditCtrl::text(char* buffer, int size) const {
    const int length = ::GetWindowTextLengthA(Item(m_id));
    if (length >= size) return ERROR_MORE_DATA;
    std::array<char, 256> text{};
    const int copied = ::GetWindowTextA(Item(m_id), text.data(), static_cast<int>(text.size()));
    if (copied < length) return ERROR_MORE_DATA;
    std::memcpy(buffer, text.data(), static_cast<std::size_t>(copied) + 1);
    return ERROR_SUCCESS;
}

bool CKolmNumberEditCtrl::isEmpty() const {
    return ::GetWindowTextLengthA(Item(m_id)) == 0;
}

bool CKolmNumberEditCtrl::isMinus() const {
    std::array<char, 256> buffer{};
    return text(buffer.data(), static_cast<int>(buffer.size())) == ERROR_SUCCESS &&
           std::strcmp(buffer.data(), "-") == 0;
}

}  // namespace kolmfluxor
