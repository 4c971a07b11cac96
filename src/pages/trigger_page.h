#pragma once
/// @file  Property page "Trigger": the external trigger, its delay, and the delayed integration.

#include "pages/common/feature_page.h"
#include "pages/trigger_ctrl.h"

namespace kolmfluxor {

/// The trigger group and two feature groups.
///
/// Nothing is polled. A trigger changed elsewhere shows after `Apply`; the groups only after a new activation.
class CKolmFluxorPage_Trigger final : public CFeaturePage {
public:
    /// Creation function of the class table.
    static CUnknown* CreateInstance(IUnknown* outer, HRESULT* hr);

    // IPropertyPage
    HRESULT STDMETHODCALLTYPE Apply() override { return ApplyNow(); }  // also without changes of its own

    INT_PTR OnReceiveMessage(HWND hwnd, UINT message, WPARAM wParam, LPARAM lParam) override;

protected:
    // Hooks of CBasePropertyPage
    HRESULT OnApplyChanges() override;

    // Hooks of CFeaturePage
    void OnPrepare() override;
    void OnFill() override;
    bool OnCommand(int id, UINT code) override;

private:
    explicit CKolmFluxorPage_Trigger(IUnknown* outer);

    void OnMode();
    void OnSwitch();

    static const PageCommand<CKolmFluxorPage_Trigger> kCommands[];

    const CIIDCTriggerCtrl m_trigger;
    CFeatureSliderCtrl m_delay;
    CFeatureSliderCtrl m_delayedIntegration;
    const FeatureGroup m_table[2];
};

}  // namespace kolmfluxor
