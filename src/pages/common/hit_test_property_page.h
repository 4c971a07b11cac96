#pragma once
/// @file  What all pages of the module add to the page base.

#include "base/property_page.h"

namespace kolmfluxor {

/// A page whose whole area counts as client area, so that the property frame sends it every click.
class CHitTestPropertyPage : public CBasePropertyPage {
public:
    using CBasePropertyPage::CBasePropertyPage;

    INT_PTR OnReceiveMessage(HWND hwnd, UINT message, WPARAM wParam, LPARAM lParam) override;

protected:
    // Hooks of CBasePropertyPage
    HRESULT OnConnect(IUnknown*) override { return S_OK; }
    HRESULT OnDisconnect() override { return S_OK; }
    HRESULT OnDeactivate() override { return S_OK; }
    HRESULT OnApplyChanges() override { return S_OK; }
};

}  // namespace kolmfluxor
