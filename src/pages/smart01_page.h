#pragma once
/// @file  Property page "Smart feat. 1": test images, high SNR, DSNU correction.

#include "pages/common/feature_page.h"
#include "pages/released_slider_ctrl.h"
#include "pages/test_image_ctrl.h"

namespace kolmfluxor {

/// The test images and two feature groups. It has no timer: it shows the camera as it was found, and what each change
/// made of it. The only page that shows what the camera's interface threw, in a message box.
class CKolmFluxorPage_Smart01 final : public CFeaturePage {
public:
    /// Creation function of the class table.
    static CUnknown* CreateInstance(IUnknown* outer, HRESULT* hr);

protected:
    void OnPrepare() override;
    bool OnCommand(int id, UINT code) override;

private:
    explicit CKolmFluxorPage_Smart01(IUnknown* outer);

    CTestImageCtrl m_testImage;
    CReleasedSliderCtrl m_highSnr;
    CReleasedSliderCtrl m_dsnuCorrection;
    const FeatureGroup m_table[2];
};

}  // namespace kolmfluxor
