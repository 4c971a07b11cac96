#pragma once
/// @file  Property page "Direct access": any camera register by name or address, and the fields of its value.

#include "pages/common/combo_box_ctrl.h"
#include "pages/common/feature_page.h"
#include "pages/common/hex_edit_ctrl.h"
#include "pages/common/simple_controls.h"
#include "pages/common/tree_view_ctrl.h"

namespace kolmfluxor {

/// Reads and writes registers, each on a click or a hot key only.
///
/// The tree shows the value edit's number under the address edit's layout, whether or not it comes from the camera.
/// A failed read shows ffffffff; a failed write shows nothing. The hot keys are system-wide while the page is active.
class CKolmFluxorPage_DirectAccess final : public CFeaturePage {
public:
    /// Creation function of the class table.
    static CUnknown* CreateInstance(IUnknown* outer, HRESULT* hr);

    INT_PTR OnReceiveMessage(HWND hwnd, UINT message, WPARAM wParam, LPARAM lParam) override;

protected:
    // Hooks of CBasePropertyPage
    HRESULT OnActivate() override;
    HRESULT OnDeactivate() override;

private:
    explicit CKolmFluxorPage_DirectAccess(IUnknown* outer);

    void FillCatalogue();
    void Read();
    void Write();
    /// Decodes the value edit's number anew.
    void Refresh();
    void OnRegisterChosen();
    void OnValueChanged();
    void OnHotKey(UINT modifiers, UINT key);

    struct HotKey {
        UINT key;
        void (CKolmFluxorPage_DirectAccess::*run)();
    };
    static const HotKey kHotKeys[2];  ///< each with Ctrl; the index is its id
    static const PageCommand<CKolmFluxorPage_DirectAccess> kCommands[];

    CComboBoxCtrl m_names;
    CHexEditCtrl m_address;
    CHexEditCtrl m_value;
    CSimpleCtrl m_bits;
    CTreeViewCtrl m_tree;
    HTREEITEM m_current = nullptr;  ///< the root item "Current"; null until the page is activated
    int m_hotKeyCount = 0;          ///< ids to give back; set on activation, granted or not
};

}  // namespace kolmfluxor
