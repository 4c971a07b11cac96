#pragma once
/// @file  Property page "LUT": the camera's look-up tables, and files to load into them.

#include "lut/csv_table.h"
#include "lut/lut_info.h"
#include "lut/lut_set.h"
#include "pages/common/combo_box_ctrl.h"
#include "pages/common/feature_page.h"
#include "pages/common/simple_controls.h"

namespace kolmfluxor {

/// Switches the camera's look-up table (LUT) on and off and chooses it, loads LUTs from a file, draws one of them, and
/// uploads it.
///
/// The loaded LUTs live as long as the page: they are still there when it is activated again.
class CKolmFluxorPage_Lut final : public CFeaturePage {
public:
    /// Creation function of the class table.
    static CUnknown* CreateInstance(IUnknown* outer, HRESULT* hr);

    INT_PTR OnReceiveMessage(HWND hwnd, UINT message, WPARAM wParam, LPARAM lParam) override;

protected:
    void OnFill() override;
    bool OnCommand(int id, UINT code) override;

private:
    explicit CKolmFluxorPage_Lut(IUnknown* outer);

    void OnControlChanged();
    void OnLoadCsv();
    void OnToCamera();
    void OnLoadedChosen();

    void FillLutNumbers();
    void FillLoadedLuts();
    /// Loads a file that the user chooses. @return  what went wrong; null when nothing did
    const char* LoadFromFile();
    /// Whether the camera's LUTs are as long as those of the table, of which there is at least one.
    [[nodiscard]] bool FitsCamera(const CCsvTable& table) const;
    void DrawCurve() const;

    static const PageCommand<CKolmFluxorPage_Lut> kAnswered[];
    static const PageCommand<CKolmFluxorPage_Lut> kPassedOn[];

    CSimpleCtrl m_controlGroup;
    CCheckBoxCtrl m_enable;
    CComboBoxCtrl m_number;
    CSimpleCtrl m_editorGroup;
    CSimpleCtrl m_load;
    CComboBoxCtrl m_loaded;
    CSimpleCtrl m_toCamera;
    CPictureCtrl m_picture;
    CSimpleCtrl m_function;

    LutInfo m_info;
    CLutSet m_luts;
};

}  // namespace kolmfluxor
