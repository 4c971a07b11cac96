#pragma once
/// @file  The base of every property page: `IPropertyPage` around a dialog, with hooks for what is the page's own.

#include <windows.h>

#include <ocidl.h>

#include <wrl/client.h>

#include "base/unknown.h"

namespace kolmfluxor {

/// A property page made of a dialog template and a title string of the module.
///
/// The frame calls the `IPropertyPage` methods; they call the hooks in this order: `OnConnect`, `OnActivate`,
/// `OnReceiveMessage` for each message of the dialog, `OnApplyChanges` when a dirty page is applied, `OnDeactivate`,
/// `OnDisconnect`. A page may be activated and deactivated several times while it is connected.
///
/// Hooks may throw. Exceptions end here: the methods turn them into a code; the dialog procedure, `Activate` and
/// `Deactivate`, which do not pass their hook's result on, swallow them.
/// Everything runs on the window thread of the property frame.
class CBasePropertyPage : public Implements<IPropertyPage> {
public:
    /// @param outer     the object that aggregates the page, or null
    /// @param dialogId  dialog template in the module's resources
    /// @param titleId   title in the module's string table
    CBasePropertyPage(IUnknown* outer, int dialogId, int titleId) noexcept;
    ~CBasePropertyPage() override;

    // IPropertyPage
    HRESULT STDMETHODCALLTYPE SetPageSite(IPropertyPageSite* site) override;
    HRESULT STDMETHODCALLTYPE Activate(HWND parent, LPCRECT rectangle, BOOL modal) override;
    HRESULT STDMETHODCALLTYPE Deactivate() override;
    HRESULT STDMETHODCALLTYPE GetPageInfo(PROPPAGEINFO* info) override;
    HRESULT STDMETHODCALLTYPE SetObjects(ULONG count, IUnknown** objects) override;
    HRESULT STDMETHODCALLTYPE Show(UINT command) override;
    HRESULT STDMETHODCALLTYPE Move(LPCRECT rectangle) override;
    HRESULT STDMETHODCALLTYPE IsPageDirty() override;
    HRESULT STDMETHODCALLTYPE Apply() override;
    HRESULT STDMETHODCALLTYPE Help(LPCOLESTR directory) override;
    HRESULT STDMETHODCALLTYPE TranslateAccelerator(MSG* message) override;

    /// Handles a message of the page's dialog. May throw.
    ///
    /// @return  what the dialog procedure returns; overrides end in their base's, this one in `DefWindowProc`
    virtual INT_PTR OnReceiveMessage(HWND hwnd, UINT message, WPARAM wParam, LPARAM lParam);

protected:
    // Hooks
    virtual HRESULT OnConnect(IUnknown* object) = 0;  ///< `object` is not null
    virtual HRESULT OnDisconnect() = 0;
    virtual HRESULT OnActivate() = 0;  ///< the dialog exists; the result is not passed on
    virtual HRESULT OnDeactivate() = 0;
    virtual HRESULT OnApplyChanges() = 0;

    /// `Apply` for pages that have something to do in it without changes of their own, too.
    HRESULT ApplyNow();

    HWND m_hwnd = nullptr;      ///< the dialog between `Activate` and `Deactivate`
    BOOL m_bDirty = FALSE;      ///< there are unapplied changes
    BOOL m_bObjectSet = FALSE;  ///< between `SetObjects(1, …)` and `SetObjects(0, …)`
    Microsoft::WRL::ComPtr<IPropertyPageSite> m_pPageSite;

private:
    static INT_PTR CALLBACK DialogProc(HWND hwnd, UINT message, WPARAM wParam, LPARAM lParam);

    const int m_dialogId;
    const int m_titleId;
};

}  // namespace kolmfluxor
