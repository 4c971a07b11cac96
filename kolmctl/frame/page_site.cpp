#include "frame/page_site.h"

namespace kolmctl {

HRESULT PageSite::QueryInterface(REFIID riid, void** out) {
    if (out == nullptr) {
        return E_POINTER;
    }
    if (riid != __uuidof(IUnknown) && riid != __uuidof(IPropertyPageSite)) {
        *out = nullptr;
        return E_NOINTERFACE;
    }
    *out = static_cast<IPropertyPageSite*>(this);
    AddRef();
    return S_OK;
}

ULONG PageSite::Release() {
    const ULONG left = --m_references;
    if (left == 0) {
        delete this;
    }
    return left;
}

HRESULT PageSite::OnStatusChange(DWORD flags) {
    if (m_listener) {
        m_listener(flags);
    }
    return S_OK;
}

HRESULT PageSite::GetLocaleID(LCID* locale) {
    if (locale == nullptr) {
        return E_POINTER;
    }
    *locale = ::GetUserDefaultLCID();
    return S_OK;
}

HRESULT PageSite::GetPageContainer(IUnknown** container) {
    if (container == nullptr) {
        return E_POINTER;
    }
    *container = nullptr;
    return E_NOTIMPL;
}

HRESULT PageSite::TranslateAccelerator(MSG* /*message*/) {
    return S_FALSE;  // the frame handles the keys that it knows after the page has seen them
}

}  // namespace kolmctl
