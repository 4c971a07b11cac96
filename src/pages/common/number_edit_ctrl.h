#pragma once
/// @file  An edit for signed whole numbers.

#include "pages/common/dialog_control.h"

namespace kolmfluxor {

class CKolmNumberEditCtrl : public CDialogControl {
public:
    CKolmNumberEditCtrl(int id, const HWND* dialog) noexcept
        : CDialogControl(dialog, "null pointer: pointer to dialog still NULL"), m_id(id) {}

    /// The number in the edit; "12abc" counts as 12. @throws CTextException  when the text does not begin with one
    [[nodiscard]] int value() const;
    /// @return  false when the edit did not take it
    [[nodiscard]] bool setValue(int value) const;
    /// Copies the text.
    ///
    /// @param size  of `buffer` in characters, the NUL included
    /// @return  `ERROR_SUCCESS`; `ERROR_MORE_DATA` when the text does not fit, or is longer than 255 characters
    [[nodiscard]] DWORD text(char* buffer, int size) const;
    [[nodiscard]] bool isEmpty() const;
    /// Whether the text is just "-", as somebody leaves it who has only begun to type.
    [[nodiscard]] bool isMinus() const;
    void undo() const { Send(m_id, EM_UNDO); }
    void enable(bool enable) const { EnableItem(m_id, enable); }

private:
    int m_id;
};

}  // namespace kolmfluxor
