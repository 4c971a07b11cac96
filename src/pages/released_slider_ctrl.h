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
    /// How the last movement of the trackbar began and ended.
    enum class Drag {
        none,      ///< by a key or a click, or there was none
        moving,    ///< by a thumb that is still held
        released,  ///< by a thumb that was released, whose value is written; lasts until the next movement
    };

    Drag m_drag = Drag::none;
};

}  // namespace kolmfluxor
