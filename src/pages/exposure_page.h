#pragma once
/// @file  Property page "Exposure": brightness, gain, shutter, gamma, auto exposure.

#include "pages/common/feature_page.h"
#include "pages/shutter_ctrl.h"

namespace kolmfluxor {

/// Five feature groups; the shutter's shows times. Every change goes to the camera at once.
class CKolmFluxorPage_Exposure final : public CFeaturePage {
public:
    /// Creation function of the class table.
    static CUnknown* CreateInstance(IUnknown* outer, HRESULT* hr);

protected:
    bool OnCommand(int id, UINT code) override;

private:
    explicit CKolmFluxorPage_Exposure(IUnknown* outer);

    void OnTimeBase();
    void OnExtended();

    static const PageCommand<CKolmFluxorPage_Exposure> kCommands[];

    CFeatureSliderCtrl m_brightness;
    CFeatureSliderCtrl m_gain;
    CKolmShutterCtrl m_shutter;
    CFeatureSliderCtrl m_gamma;
    CFeatureSliderCtrl m_autoExposure;
    const FeatureGroup m_table[5];
};

}  // namespace kolmfluxor
