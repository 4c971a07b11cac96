#pragma once
/// @file  The property frame's side of a page.

#include <vector>

#include <windows.h>

#include <ocidl.h>

namespace kolmfluxor::test {

/// Notes what a page reports.
class CPageSite final : public IPropertyPageSite {
public:
    std::vector<DWORD> reports;
    ULONG references = 1;

    // IUnknown
    HRESULT STDMETHODCALLTYPE QueryInterface(REFIID riid, void** out) override;
    ULONG STDMETHODCALLTYPE AddRef() override { return ++references; }
    ULONG STDMETHODCALLTYPE Release() override { return --references; }

    // IPropertyPageSite
    HRESULT STDMETHODCALLTYPE OnStatusChange(DWORD flags) override;
    HRESULT STDMETHODCALLTYPE GetLocaleID(LCID* locale) override;
    HRESULT STDMETHODCALLTYPE GetPageContainer(IUnknown** container) override;
    HRESULT STDMETHODCALLTYPE TranslateAccelerator(MSG*) override { return S_FALSE; }
};

}  // namespace kolmfluxor::test
