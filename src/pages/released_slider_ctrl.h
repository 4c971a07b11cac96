#pragma once
/// @file  A feature group that writes what is dragged only when the thumb is released.

#include "pages/common/feature_slider_ctrl.h"

namespace kolmfluxor {

/// The feature group of features that take the camera long: a drag is one write. After each write the group shows value
/// and mode as the camera has them.
class CReleasedSliderCtrl final : public CFeatureSliderCtrl {
public:
    using CFeatureSliderCtrl::CFeatureSliderCtrl;

    // CFeatureSliderCtrl
    void OnModeChosen(FeatureId feature, IKolmFluxorPropertySet* camera) override;
    void OnTrackbarMoved(FeatureId feature, UINT code, IKolmFluxorPropertySet* camera) override;

private:
    enum class Drag { none, moving, released };

    Drag m_drag = Drag::none;
};

}  // namespace kolmfluxor
