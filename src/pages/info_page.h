#pragma once
/// @file  Property page "Info": what camera, driver and bus say about themselves.

#include "pages/common/feature_page.h"

namespace kolmfluxor {

/// Shows texts and figures, changes nothing, and reads all of it again on every `Apply`.
class CKolmFluxorPage_Info final : public CFeaturePage {
public:
    /// Creation function of the class table.
    static CUnknown* CreateInstance(IUnknown* outer, HRESULT* hr);

    // IPropertyPage
    HRESULT STDMETHODCALLTYPE Apply() override { return ApplyNow(); }  // the page has no changes of its own

protected:
    // Hooks of CBasePropertyPage
    HRESULT OnApplyChanges() override;

    // Hook of CFeaturePage
    void OnFill() override;

private:
    explicit CKolmFluxorPage_Info(IUnknown* outer);

    void ShowCameraInfo();
    void ShowFigures();
    void ShowText(int id, const char* text);
};

}  // namespace kolmfluxor
