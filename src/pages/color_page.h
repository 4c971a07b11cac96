#pragma once
/// @file  Property page "Color": white balance, hue, saturation, color correction.

#include "pages/color_correction_ctrl.h"
#include "pages/common/feature_page.h"

namespace kolmfluxor {

/// Four feature groups and the color correction. Every change goes to the camera at once.
class CKolmFluxorPage_Color final : public CFeaturePage {
public:
    /// Creation function of the class table.
    static CUnknown* CreateInstance(IUnknown* outer, HRESULT* hr);

protected:
    void OnPrepare() override;
    void OnPoll() override;
    bool OnCommand(int id, UINT code) override;

private:
    explicit CKolmFluxorPage_Color(IUnknown* outer);

    CFeatureSliderCtrl m_whiteBalanceUb;
    CFeatureSliderCtrl m_whiteBalanceVr;
    CFeatureSliderCtrl m_hue;
    CFeatureSliderCtrl m_saturation;
    CColorCorrectionCtrl m_correction;
    const FeatureGroup m_table[4];
};

}  // namespace kolmfluxor
