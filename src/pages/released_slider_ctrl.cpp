#include "pages/released_slider_ctrl.h"

#include <tuple>

#include <commctrl.h>

namespace kolmfluxor {

void CReleasedSliderCtrl::OnModeChosen(FeatureId feature, IKolmFluxorPropertySet* camera) {
    // A refusal is not reported: the poll shows what the camera has.
    std::ignore = Apply(feature, camera);
    std::ignore = Poll(feature, camera);
}

void CReleasedSliderCtrl::OnTrackbarMoved(FeatureId feature, UINT code, IKolmFluxorPropertySet* camera) {
    SliderToEdit();
    if (code == TB_THUMBTRACK) {
        m_drag = Drag::moving;
        return;
    }
    // Compatibility: a released thumb reports its position and after it the end of the movement, the latter twice at
    // times. The first of them writes and the others do not, however late they come, so that a drag is one write.
    const bool ends = code == TB_THUMBPOSITION || code == TB_ENDTRACK;
    if (code == TB_ENDTRACK && m_drag == Drag::released) return;
    m_drag = ends && m_drag == Drag::moving ? Drag::released : Drag::none;
    OnModeChosen(feature, camera);
}

}  // namespace kolmfluxor
