#pragma once
/// @file  The control group of one camera feature: trackbar, number, limits and mode.

#include <kolmfluxor/features.h>
#include <kolmfluxor/property_set.h>

#include "driver/lockable.h"
#include "pages/common/dialog_control.h"

namespace kolmfluxor {

/// The controls of a feature group. An extra control, 0 for none, is enabled together with the value controls.
struct FeatureSliderIds {
    int groupBox;
    int minLabel;
    int maxLabel;
    int trackbar;
    int edit;
    int modeCombo;
    int extra = 0;
};

/// Shows one feature, writes what the user changes, and follows the camera while the feature runs by itself.
///
/// The trackbar works in the camera's raw units; the edit mirrors it. The group does not hold the interface: the page
/// passes it on each call. It owns the lock that its camera round trips take.
class CFeatureSliderCtrl : public CDialogControl {
public:
    CFeatureSliderCtrl(const FeatureSliderIds& ids, const HWND* dialog);
    virtual ~CFeatureSliderCtrl() noexcept = default;  // its lock was made valid, so its destructor has nothing to say

    [[nodiscard]] const FeatureSliderIds& Ids() const noexcept { return m_ids; }

    /// Fills the group from the camera.
    ///
    /// @return  `E_NOTIMPL` when the camera lacks the feature, a failed mode query's code, or `E_UNEXPECTED` when a
    ///          value could not be read; the group then stays disabled until an `Init` succeeds
    HRESULT Init(FeatureId feature, IKolmFluxorPropertySet* camera);
    /// Writes trackbar position and selected mode, and shows the value that the camera made of it.
    HRESULT Apply(FeatureId feature, IKolmFluxorPropertySet* camera);
    /// Reads value and mode and shows what has changed; a group whose `Init` failed shows nothing.
    HRESULT Poll(FeatureId feature, IKolmFluxorPropertySet* camera);
    /// Whether a timer tick is to poll: the selected mode moves by itself, and the list of modes is not open.
    [[nodiscard]] bool WantsPoll() const;

    /// The user chose a mode; the group writes it.
    virtual void OnModeChosen(FeatureId feature, IKolmFluxorPropertySet* camera);
    /// The user moved the trackbar; the group shows and writes the value.
    ///
    /// @param code  how: one of the `TB_` codes of a scroll message
    virtual void OnTrackbarMoved(FeatureId feature, UINT code, IKolmFluxorPropertySet* camera);

    void SetCaption(const char* text) const { SetItemText(m_ids.groupBox, text); }
    /// Enables or disables group box and value controls; the mode combo follows its entries alone.
    void Enable(bool enable);
    virtual void EnableValueControls(bool enable);
    virtual void SetRange(ULONG min, ULONG max);
    /// Moves the trackbar; the edit shows where it came to stand.
    virtual void SetValue(ULONG value);
    [[nodiscard]] ULONG SliderValue() const;
    /// Shows the trackbar's position in the edit.
    virtual void SliderToEdit();

    /// Adds a mode; a combo of fewer than two entries is disabled.
    void AddMode(ULONG mode) const;
    void ClearModes() const;
    /// Selects a mode; false, with the selection left as it is, when there is no such entry.
    bool SelectMode(ULONG mode) const;
    /// The selected mode; 0xFFFFFFFF without a selection.
    [[nodiscard]] ULONG SelectedMode() const;
    /// Whether the list of modes is open.
    [[nodiscard]] bool IsDropped() const;

    /// Enables the value controls for a mode in which the value is the user's: neither Off, OnePush nor Auto. Those of
    /// a group whose `Init` failed stay disabled.
    void EnableForMode(ULONG mode);

protected:
    /// Fills what a derived group has beside the modes; called by `Init` once the modes are there.
    virtual void InitExtras(IKolmFluxorPropertySet* /*camera*/) {}
    /// Reads the value to show in a poll, in the units of the trackbar.
    virtual HRESULT ReadValueAndMode(FeatureId feature, IKolmFluxorPropertySet* camera, ULONG* value, ULONG* mode);

    /// Sets limits and step sizes of the trackbar.
    void SetTrackbarRange(ULONG min, ULONG max) const;
    void SetTrackbarPosition(ULONG value) const;

private:
    FeatureSliderIds m_ids;
    CLockable m_lock;
    bool m_initFailed = false;  ///< the group is closed to polls and to the user
};

}  // namespace kolmfluxor
