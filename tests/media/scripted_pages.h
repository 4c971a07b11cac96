#pragma once
/// @file  Property pages as an object names them.

#include <algorithm>

#include <windows.h>

#include <ocidl.h>

#include "support/call_faults.h"

namespace kolmfluxor::test {

inline constexpr GUID kSpecifiedPages[] = {{1, 2, 3, {4}}, {5, 6, 7, {8}}};

class CSpecifiedPages final : public ISpecifyPropertyPages {
public:
    HRESULT result = S_OK;
    ULONG count = 2;
    CCallFaults* faults = nullptr;  ///< counts the calls, if there is one
    ULONG references = 0;

    HRESULT STDMETHODCALLTYPE QueryInterface(REFIID riid, void** out) override {
        if (riid != __uuidof(ISpecifyPropertyPages)) return E_NOINTERFACE;
        const CallFate fate = FateOf(faults, "query pages", true);
        if (!fate.gives) return fate.code;
        AddRef();
        *out = this;
        return fate.code;
    }
    ULONG STDMETHODCALLTYPE AddRef() override { return ++references; }
    ULONG STDMETHODCALLTYPE Release() override { return --references; }
    HRESULT STDMETHODCALLTYPE GetPages(CAUUID* pages) override {
        *pages = {0, nullptr};
        const CallFate fate = FateOf(faults, "GetPages", true, result);
        if (!fate.gives) return fate.code;
        pages->cElems = count;
        pages->pElems = static_cast<GUID*>(::CoTaskMemAlloc(sizeof kSpecifiedPages));
        std::copy_n(kSpecifiedPages, count, pages->pElems);
        return fate.code;
    }
};

}  // namespace kolmfluxor::test
