#pragma once
/// @file  The shutter group: a feature group whose value is shown as a time.

#include "pages/common/feature_slider_ctrl.h"

namespace kolmfluxor {

/// The shutter, with its time base and an "Extd" box.
///
/// In standard display the trackbar works in shutter units, and labels and edit show them multiplied by the time base,
/// in microseconds. In extended display ("Extd" checked) all of it shows the extended shutter, which is in
/// microseconds.
class CKolmShutterCtrl final : public CFeatureSliderCtrl {
public:
    CKolmShutterCtrl(const FeatureSliderIds& ids, int extendedBox, int timeBaseCombo, const HWND* dialog);

    [[nodiscard]] bool IsExtended() const;
    /// Microseconds of the current time base.
    [[nodiscard]] ULONG TimeBaseUs() const;
    /// Adds the ten time bases to their combo.
    void FillTimeBases() const;
    /// Makes the entry with this index current; changes nothing when there is none.
    void SelectTimeBase(ULONG index);
    /// Takes the combo's selection over; the labels follow. @throws CTextException  without a selection or its data
    void OnTimeBaseChanged();
    void ShowStandard(ULONG timeBaseIndex, ULONG min, ULONG max, ULONG value);
    void ShowExtended(ULONG min, ULONG max, ULONG value);

    /// The user chose a time base: the exposure time stays, the shutter value changes.
    void OnTimeBaseChosen(IKolmFluxorPropertySet* camera);
    /// The user clicked "Extd".
    void OnExtendedClicked(IKolmFluxorPropertySet* camera);

    // CFeatureSliderCtrl
    void EnableValueControls(bool enable) override;
    void SetRange(ULONG min, ULONG max) override;
    void SetValue(ULONG value) override;
    void SliderToEdit() override;
    void OnModeChosen(FeatureId feature, IKolmFluxorPropertySet* camera) override;
    void OnTrackbarMoved(FeatureId feature, UINT code, IKolmFluxorPropertySet* camera) override;

protected:
    void InitExtras(IKolmFluxorPropertySet* camera) override;
    HRESULT ReadValueAndMode(FeatureId feature, IKolmFluxorPropertySet* camera, ULONG* value, ULONG* mode) override;

private:
    /// A raw value as it is displayed.
    [[nodiscard]] ULONG Displayed(ULONG raw) const;
    /// Inside the stored range; the minimum wins where the camera's limits are crossed.
    [[nodiscard]] ULONG Clamped(ULONG value) const;

    int m_extendedBox;
    int m_timeBaseCombo;
    ULONG m_timeBaseIndex = 0;
    ULONG m_min = 0;  ///< raw, of whichever feature is shown
    ULONG m_max = 0;
};

}  // namespace kolmfluxor
