#pragma once
/// @file  The frame's side of a property page.

#include <functional>

#include <windows.h>

#include <ocidl.h>

namespace kolmctl {

/// Tells a page's reports to its frame. Counted like any COM object; made with one reference, the maker's.
class PageSite final : public IPropertyPageSite {
public:
    /// Who hears the page's reports (`PROPPAGESTATUS_…`); an empty function for nobody.
    void SetListener(std::function<void(DWORD)> listener) { m_listener = std::move(listener); }

    // IUnknown
    HRESULT STDMETHODCALLTYPE QueryInterface(REFIID riid, void** out) override;
    ULONG STDMETHODCALLTYPE AddRef() override { return ++m_references; }
    ULONG STDMETHODCALLTYPE Release() override;

    // IPropertyPageSite
    HRESULT STDMETHODCALLTYPE OnStatusChange(DWORD flags) override;
    HRESULT STDMETHODCALLTYPE GetLocaleID(LCID* locale) override;
    HRESULT STDMETHODCALLTYPE GetPageContainer(IUnknown** container) override;
    HRESULT STDMETHODCALLTYPE TranslateAccelerator(MSG* message) override;

private:
    ~PageSite() = default;

    ULONG m_references = 1;  // pages and frame live on one thread
    std::function<void(DWORD)> m_listener;
};

}  // namespace kolmctl
