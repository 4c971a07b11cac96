#pragma once
/// @file  COM task memory that runs out.

#include <windows.h>

#include <objidl.h>

#include <objbase.h>

namespace kolmfluxor::test {

/// As long as it lives, `CoTaskMemAlloc` fails: from the allocation number `first` on (1-based).
class CFailingTaskMemory final : public IMallocSpy {
public:
    explicit CFailingTaskMemory(int first = 1) : m_left(first - 1) { ::CoRegisterMallocSpy(this); }
    ~CFailingTaskMemory() { ::CoRevokeMallocSpy(); }
    CFailingTaskMemory(const CFailingTaskMemory&) = delete;
    CFailingTaskMemory& operator=(const CFailingTaskMemory&) = delete;

    // IUnknown
    HRESULT STDMETHODCALLTYPE QueryInterface(REFIID riid, void** out) override {
        *out = riid == IID_IUnknown || riid == IID_IMallocSpy ? this : nullptr;
        return *out != nullptr ? S_OK : E_NOINTERFACE;
    }
    ULONG STDMETHODCALLTYPE AddRef() override { return 2; }
    ULONG STDMETHODCALLTYPE Release() override { return 1; }

    // IMallocSpy
    SIZE_T STDMETHODCALLTYPE PreAlloc(SIZE_T size) override { return m_left-- > 0 ? size : 0; }
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

private:
    int m_left;
};

}  // namespace kolmfluxor::test
