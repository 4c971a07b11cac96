#pragma once
/// @file  The control group of the camera's test images.

#include <kolmfluxor/property_set.h>

#include "pages/common/combo_box_ctrl.h"

namespace kolmfluxor {

/// Lists the pictures that the camera makes up by itself, and switches between them.
class CTestImageCtrl final : public CComboBoxFeatureCtrl {
public:
    using CComboBoxFeatureCtrl::CComboBoxFeatureCtrl;

    /// Lists the camera's test images by number and selects the current one.
    ///
    /// @param camera  null: like a camera without test images, or one whose inquiry fails, it leaves the group
    ///                disabled and the list empty
    /// @throws CTextException  as the combo box
    void Init(IKolmFluxorPropertySet* camera) const;
    /// The user chose an entry; writes its number. A refusal is not reported. @throws CTextException  as the combo box
    void OnChosen(IKolmFluxorPropertySet* camera) const;
};

}  // namespace kolmfluxor
