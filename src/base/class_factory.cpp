#include "base/class_factory.h"

#include <algorithm>
#include <memory>
#include <new>

namespace kolmfluxor {
namespace {

/// The row's creation function with its exceptions turned into a code in `hr`.
std::unique_ptr<CUnknown> Create(const CFactoryTemplate& row, IUnknown* outer, HRESULT* hr) noexcept {
    try {
        return std::unique_ptr<CUnknown>(row.create(outer, hr));
    } catch (const std::bad_alloc&) {
        *hr = E_OUTOFMEMORY;
    } catch (...) {
        *hr = E_FAIL;
    }
    return nullptr;
}

}  // namespace

HRESULT CreateObject(const CFactoryTemplate& row, IUnknown* outer, REFIID riid, void** out) noexcept {
    if (out == nullptr) return E_POINTER;
    *out = nullptr;
    if (outer != nullptr && riid != IID_IUnknown) return E_NOINTERFACE;

    HRESULT hr = S_OK;
    std::unique_ptr<CUnknown> object = Create(row, outer, &hr);
    if (FAILED(hr)) return hr;
    if (object == nullptr) return E_OUTOFMEMORY;

    IUnknown* const inner = object.release()->Inner();
    inner->AddRef();
    hr = inner->QueryInterface(riid, out);
    inner->Release();
    return hr;
}

HRESULT GetClassObject(std::span<const CFactoryTemplate> classes, REFCLSID classId, REFIID riid, void** out) noexcept {
    if (out == nullptr) return E_POINTER;
    *out = nullptr;
    if (riid != IID_IUnknown && riid != IID_IClassFactory) return E_NOINTERFACE;

    const auto row = std::ranges::find_if(classes, [&](const auto& each) { return *each.classId == classId; });
    if (row == classes.end()) return CLASS_E_CLASSNOTAVAILABLE;

    auto* const factory = new (std::nothrow) CClassFactory(*row);
    if (factory == nullptr) return E_OUTOFMEMORY;
    factory->AddRef();
    *out = static_cast<IClassFactory*>(factory);
    return S_OK;
}

void InitializeClasses(std::span<const CFactoryTemplate> classes, BOOL loading) noexcept {
    for (const CFactoryTemplate& row : classes) {
        if (row.initialize != nullptr) row.initialize(loading, row.classId);
    }
}

HRESULT CClassFactory::QueryInterface(REFIID riid, void** out) {
    if (out == nullptr) return E_POINTER;
    *out = nullptr;
    if (riid != IID_IUnknown && riid != IID_IClassFactory) return E_NOINTERFACE;
    AddRef();
    *out = static_cast<IClassFactory*>(this);
    return S_OK;
}

ULONG CClassFactory::AddRef() {
    return ++m_references;
}

ULONG CClassFactory::Release() {
    const ULONG left = --m_references;
    if (left == 0) delete this;
    return left;
}

HRESULT CClassFactory::CreateInstance(IUnknown* outer, REFIID riid, void** out) {
    return CreateObject(m_row, outer, riid, out);
}

HRESULT CClassFactory::LockServer(BOOL lock) {
    ChangeServerLocks(lock ? +1 : -1);
    return S_OK;
}

}  // namespace kolmfluxor
