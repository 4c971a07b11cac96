#pragma once
/// @file  The control group of the camera's color correction: a 3 x 3 matrix and its switch.

#include <array>
#include <cstddef>

#include <kolmfluxor/property_set.h>

#include "driver/lockable.h"
#include "pages/common/number_edit_ctrl.h"

namespace kolmfluxor {

inline constexpr std::size_t kColorCoefficients = 9;

/// The controls of the color correction group.
struct ColorCorrectionIds {
    struct Coefficient {
        int edit;
        int upDown;
    };

    int groupBox;
    std::array<Coefficient, kColorCoefficients> coefficients;  ///< column by column
    int modeCombo;
};

/// What the group's list offers; the numbers are the entries' data.
enum class ColorCorrectionMode : ULONG { off = 0, manual = 1, reset = 2 };

/// Shows the matrix of the color correction, writes each coefficient as it is typed, and switches the correction.
///
/// The camera keeps the matrix in nine registers, row by row, as signed thousandths. The group does not hold the
/// interface: the page passes it on each call.
class CColorCorrectionCtrl final : public CDialogControl {
public:
    CColorCorrectionCtrl(const ColorCorrectionIds& ids, const HWND* dialog);
    ~CColorCorrectionCtrl() noexcept = default;  // its lock was made valid, so its destructor has nothing to say

    void SetCaption(const char* text) const { SetItemText(m_ids.groupBox, text); }
    /// Adds "Manual", "Off" and "Reset" to the list.
    void FillModes() const;
    /// Enables or disables all controls of the group.
    void Enable(bool enable) const;
    /// Enables or disables the nine edits and their up-downs.
    void EnableCoefficients(bool enable) const;
    /// Sets the range of the coefficients, for the up-downs and for what is typed.
    void SetRange(int min, int max);
    [[nodiscard]] bool InRange(int value) const noexcept { return m_min <= value && value <= m_max; }
    [[nodiscard]] int Clamp(int value) const noexcept;

    /// Shows what the camera has; writes nothing to it.
    ///
    /// @return  the presence call's failure, or `E_NOTIMPL` for a camera without the feature: no control is touched
    ///          then. The failure of the first coefficient's read: the coefficients are disabled. Else `S_OK`: other
    ///          failures are not reported
    HRESULT Refresh(IKolmFluxorPropertySet* camera);

    /// The data of the selected entry, a `ColorCorrectionMode`; 0xFFFFFFFF without a selection.
    [[nodiscard]] ULONG SelectedMode() const { return SelectedEntry(m_ids.modeCombo); }
    /// False, with the selection left as it is, when there is no such entry.
    bool SelectMode(ULONG mode) const { return SelectEntry(m_ids.modeCombo, mode); }

    [[nodiscard]] int ModeCombo() const noexcept { return m_ids.modeCombo; }
    /// The user chose an entry of the list; the group carries it out.
    void OnModeChosen(IKolmFluxorPropertySet* camera);
    /// The text of a control changed, or it lost the focus; the group writes the coefficient.
    ///
    /// @return  whether the control is one of the nine edits
    bool OnEdited(int id, IKolmFluxorPropertySet* camera);

private:
    void WriteCoefficient(std::size_t order, IKolmFluxorPropertySet* camera);

    CLockable m_lock;  // one of the group's own, as each group has; neither refresh nor writes take it
    const ColorCorrectionIds m_ids;
    const std::array<CKolmNumberEditCtrl, kColorCoefficients> m_edits;  ///< in the order of the ids
    int m_min = 0;
    int m_max = 0;
    bool m_filling = false;  ///< changes of the edits are the group's own, not the user's
    bool m_undoing = false;
    bool m_clamping = false;
};

}  // namespace kolmfluxor
