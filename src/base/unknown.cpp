#include "base/unknown.h"

namespace kolmfluxor {

CUnknown::CUnknown(IUnknown* outer) noexcept : m_inner(*this), m_owner(outer != nullptr ? outer : &m_inner) {}

CUnknown::~CUnknown() = default;

HRESULT CUnknown::NonDelegatingQueryInterface(REFIID riid, void** out) {
    if (out == nullptr) return E_POINTER;
    *out = nullptr;
    if (riid != IID_IUnknown) return E_NOINTERFACE;
    m_inner.AddRef();
    *out = &m_inner;
    return S_OK;
}

HRESULT CUnknown::CInnerUnknown::QueryInterface(REFIID riid, void** out) {
    return m_object.NonDelegatingQueryInterface(riid, out);
}

ULONG CUnknown::CInnerUnknown::AddRef() {
    return ++m_references;
}

ULONG CUnknown::CInnerUnknown::Release() {
    const ULONG left = --m_references;
    if (left == 0) {
        // A destructor may count the object itself up and down once more: that must not delete it a second time.
        m_references = 1;
        delete &m_object;
    }
    return left;
}

}  // namespace kolmfluxor
