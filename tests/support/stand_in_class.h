#pragma once
/// @file  A stand-in for a system class in this process.

#include <gtest/gtest.h>

#include <functional>
#include <utility>

#include <windows.h>

#include <objbase.h>
#include <unknwn.h>

namespace kolmfluxor::test {

/// As long as it lives, creating a class in this process fails with a code, or gives an object of the test's.
///
/// The thread must have initialized COM.
class CStandInClass final : public IClassFactory {
public:
    /// Gives an object of the test's; called with the interface asked for.
    using MakeFunction = std::function<HRESULT(REFIID riid, void** out)>;

    CStandInClass(REFCLSID classId, HRESULT code) : CStandInClass(classId, [code](REFIID, void**) { return code; }) {}
    CStandInClass(REFCLSID classId, MakeFunction make) : m_make(std::move(make)) {
        EXPECT_EQ(::CoRegisterClassObject(classId, this, CLSCTX_INPROC_SERVER, REGCLS_MULTIPLEUSE, &m_cookie), S_OK);
    }
    ~CStandInClass() { EXPECT_EQ(::CoRevokeClassObject(m_cookie), S_OK); }
    CStandInClass(const CStandInClass&) = delete;
    CStandInClass& operator=(const CStandInClass&) = delete;

    /// How often the class was asked for an object.
    [[nodiscard]] int Calls() const { return m_calls; }

    // IUnknown
    HRESULT STDMETHODCALLTYPE QueryInterface(REFIID riid, void** out) override {
        *out = riid == IID_IUnknown || riid == IID_IClassFactory ? static_cast<IClassFactory*>(this) : nullptr;
        return *out != nullptr ? S_OK : E_NOINTERFACE;
    }
    ULONG STDMETHODCALLTYPE AddRef() override { return 2; }
    ULONG STDMETHODCALLTYPE Release() override { return 1; }

    // IClassFactory
    HRESULT STDMETHODCALLTYPE CreateInstance(IUnknown*, REFIID riid, void** out) override {
        ++m_calls;
        *out = nullptr;
        return m_make(riid, out);
    }
    HRESULT STDMETHODCALLTYPE LockServer(BOOL) override { return S_OK; }

private:
    MakeFunction m_make;
    DWORD m_cookie = 0;
    int m_calls = 0;
};

}  // namespace kolmfluxor::test
