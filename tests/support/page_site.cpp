#include "support/page_site.h"

namespace kolmfluxor::test {

HRESULT CPageSite::QueryInterface(REFIID riid, void** out) {
    *out = riid == IID_IUnknown || riid == IID_IPropertyPageSite ? this : nullptr;
    if (*out == nullptr) return E_NOINTERFACE;
    AddRef();
    return S_OK;
}

HRESULT CPageSite::OnStatusChange(DWORD flags) {
    reports.push_back(flags);
    return S_OK;
}

HRESULT CPageSite::GetLocaleID(LCID* locale) {
    *locale = LOCALE_USER_DEFAULT;
    return S_OK;
}

HRESULT CPageSite::GetPageContainer(IUnknown** container) {
    *container = nullptr;
    return E_NOTIMPL;
}

}  // namespace kolmfluxor::test
