#include "pages/test_image_ctrl.h"

#include <array>
#include <cstdio>
#include <tuple>

namespace kolmfluxor {

void CTestImageCtrl::Init(IKolmFluxorPropertySet* camera) const {
    Enable(false);
    SetLabel("Image Nr.");
    ULONG mask = 0;
    if (camera == nullptr || camera->GetTestImageInquiry(&mask) != S_OK || mask == 0) return;

    AddValue("Off", 0);
    // Compatibility: every number up to the highest bit of the mask is listed, gaps included: image numbers are the
    // entries' positions for whoever drives this list.
    for (int number = 1; mask != 0; ++number, mask >>= 1) {
        std::array<char, 24> text{};
        std::snprintf(text.data(), text.size(), "Image %d", number);
        AddValue(text.data(), static_cast<ULONG>(number));
    }

    ULONG current = 0;
    if (camera->GetTestImage(&current) == S_OK) SelectValue(current);
    Enable(true);
}

void CTestImageCtrl::OnChosen(IKolmFluxorPropertySet* camera) const {
    std::ignore = camera->SetTestImage(SelectedValue());
}

}  // namespace kolmfluxor
