#pragma once
/// @file  The combo boxes of the Format page.

#include "pages/common/dialog_control.h"

namespace kolmfluxor {

/// A drop-down list whose entries carry a number: a capability index, a speed index, a channel.
class CFormatCombo final : public CDialogControl {
public:
    CFormatCombo(int id, const HWND* dialog) noexcept
        : CDialogControl(dialog, "null pointer: pointer to dialog still NULL"), m_id(id) {}

    void Clear() const;
    /// Adds an entry behind the others. @return  its position; negative when the control did not take it
    LRESULT Add(const char* text, ULONG data) const;
    /// Selects by position; one that does not exist leaves nothing selected.
    void SelectPosition(LRESULT position) const;
    /// Selects the first entry with this data, unless it is selected already; without one nothing changes.
    ///
    /// @throws CKolmFluxorException  code 1, "unable to retrieve item count"
    void SelectData(ULONG data) const;
    /// The data of the selected entry. @throws CKolmFluxorException  code 1, "unable to retrieve current selection"
    [[nodiscard]] ULONG SelectedData() const;

private:
    int m_id;
};

}  // namespace kolmfluxor
