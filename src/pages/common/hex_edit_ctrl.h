#pragma once
/// @file  An edit for 32-bit numbers in hexadecimal.

#include <cstdint>

#include "pages/common/dialog_control.h"

namespace kolmfluxor {

class CHexEditCtrl final : public CDialogControl {
public:
    CHexEditCtrl(int id, const HWND* dialog) noexcept
        : CDialogControl(dialog, "CHexEditCtrl::Dlg: NullPointer: dialog pointer still NULL"), m_id(id) {}

    /// The number in the edit, whose first 255 characters count; 0 without a digit. See `ParseHexText`.
    [[nodiscard]] std::uint32_t Value() const;
    /// Shows a number as "%x"; the edit notifies of it as of typing.
    void SetValue(std::uint32_t value) const;
    /// Cuts the edit's text, of which the first 255 characters count, as `CutHexText` says, and writes back what is
    /// left, even if that is the same; the edit notifies of it. An edit of digits only is left alone.
    void Cut() const;

private:
    int m_id;
};

}  // namespace kolmfluxor
