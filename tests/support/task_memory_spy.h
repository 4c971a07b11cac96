#pragma once
/// @file  A spy on COM task memory that lets everything pass: a base for spies that count or fail.

#include <windows.h>

#include <objidl.h>

#include <objbase.h>

namespace kolmfluxor::test {

/// Sees every `CoTaskMemAlloc` and `CoTaskMemFree` of the process as long as it lives. There is one at a time.
class CTaskMemorySpy : public IMallocSpy {
public:
    CTaskMemorySpy() { ::CoRegisterMallocSpy(this); }
    virtual ~CTaskMemorySpy() { ::CoRevokeMallocSpy(); }
    CTaskMemorySpy(const CTaskMemorySpy&) = delete;
    CTaskMemorySpy& operator=(const CTaskMemorySpy&) = delete;

    // IUnknown
    HRESULT STDMETHODCALLTYPE QueryInterface(REFIID riid, void** out) override {
        *out = riid == IID_IUnknown || riid == IID_IMallocSpy ? this : nullptr;
        return *out != nullptr ? S_OK : E_NOINTERFACE;
    }
    ULONG STDMETHODCALLTYPE AddRef() override { return 2; }
    ULONG STDMETHODCALLTYPE Release() override { return 1; }

    // IMallocSpy
    SIZE_T STDMETHODCALLTYPE PreAlloc(SIZE_T size) override { return size; }
    void* STDMETHODCALLTYPE PostAlloc(void* actual) override { return actual; }
    void* STDMETHODCALLTYPE PreFree(void* request, BOOL) override { return request; }
    void STDMETHODCALLTYPE PostFree(BOOL) override {}
    SIZE_T STDMETHODCALLTYPE PreRealloc(void* request, SIZE_T size, void** actual, BOOL) override {
        *actual = request;
        return size;
    }
    void* STDMETHODCALLTYPE PostRealloc(void* actual, BOOL) override { return actual; }
    void* STDMETHODCALLTYPE PreGetSize(void* request, BOOL) override { return request; }
    SIZE_T STDMETHODCALLTYPE PostGetSize(SIZE_T actual, BOOL) override { return actual; }
    void* STDMETHODCALLTYPE PreDidAlloc(void* request, BOOL) override { return request; }
    int STDMETHODCALLTYPE PostDidAlloc(void*, BOOL, int actual) override { return actual; }
    void STDMETHODCALLTYPE PreHeapMinimize() override {}
    void STDMETHODCALLTYPE PostHeapMinimize() override {}
};

}  // namespace kolmfluxor::test
