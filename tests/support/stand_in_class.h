#pragma once
/// @file  A stand-in for a system class in this process.

#include <gtest/gtest.h>

#include <windows.h>

#include <objbase.h>
#include <unknwn.h>

namespace kolmfluxor::test {

/// As long as it lives, creating a class in this process fails with a code.
///
/// The thread must have initialized COM.
class CStandInClass final : public IClassFactory {
public:
    CStandInClass(REFCLSID classId, HRESULT code) : m_code(code) {
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
    HRESULT STDMETHODCALLTYPE CreateInstance(IUnknown*, REFIID, void** out) override {
        ++m_calls;
        *out = nullptr;
        return m_code;
    }
    HRESULT STDMETHODCALLTYPE LockServer(BOOL) override { return S_OK; }

private:
    HRESULT m_code;
    DWORD m_cookie = 0;
    int m_calls = 0;
};

}  // namespace kolmfluxor::test
