#include "support/scripted_devices.h"

#include <cwchar>

#include <oaidl.h>
#include <oleauto.h>
#include <uuids.h>

namespace kolmfluxor::test {

/// An object with a count of its own, which the script adds up.
template <class Interface> class CDevicePart : public Interface {
public:
    explicit CDevicePart(CScriptedDevices& script) : m_script(script) {}
    virtual ~CDevicePart() = default;

    HRESULT STDMETHODCALLTYPE QueryInterface(REFIID riid, void** out) override {
        *out = riid == IID_IUnknown || riid == __uuidof(Interface) ? this : nullptr;
        if (*out == nullptr) return E_NOINTERFACE;
        AddRef();
        return S_OK;
    }
    ULONG STDMETHODCALLTYPE AddRef() override {
        ++m_script.references;
        return ++m_count;
    }
    ULONG STDMETHODCALLTYPE Release() override {
        --m_script.references;
        const ULONG left = --m_count;
        if (left == 0) delete this;
        return left;
    }

protected:
    void Note(std::string call) { m_script.calls.push_back(std::move(call)); }

    CScriptedDevices& m_script;

private:
    ULONG m_count = 0;
};

class CScriptedDevices::CBag final : public CDevicePart<IPropertyBag> {
public:
    CBag(CScriptedDevices& script, const ScriptedDevice& device) : CDevicePart(script), m_device(device) {}

    HRESULT STDMETHODCALLTYPE Read(LPCOLESTR name, VARIANT* value, IErrorLog*) override {
        EXPECT_STREQ(name, L"FriendlyName");
        EXPECT_EQ(value->vt, VT_BSTR);
        Note("Read");
        if (FAILED(m_device.read)) return m_device.read;
        if (m_device.isNumber) {
            value->vt = VT_I4;
            value->lVal = 1;
        } else {
            value->vt = VT_BSTR;
            value->bstrVal = ::SysAllocString(m_device.friendlyName.c_str());
        }
        return m_device.read;
    }
    HRESULT STDMETHODCALLTYPE Write(LPCOLESTR, VARIANT*) override { return E_NOTIMPL; }

private:
    const ScriptedDevice& m_device;
};

class CScriptedDevices::CMoniker final : public CDevicePart<IMoniker> {
public:
    CMoniker(CScriptedDevices& script, const ScriptedDevice& device) : CDevicePart(script), m_device(device) {}

    HRESULT STDMETHODCALLTYPE BindToObject(IBindCtx*, IMoniker*, REFIID riid, void** out) override {
        Note("BindToObject");
        *out = nullptr;
        if (FAILED(m_device.bind) || m_device.filter == nullptr) return m_device.bind;
        const HRESULT hr = m_device.filter->QueryInterface(riid, out);
        return FAILED(hr) ? hr : m_device.bind;
    }
    HRESULT STDMETHODCALLTYPE BindToStorage(IBindCtx*, IMoniker*, REFIID riid, void** out) override {
        Note("BindToStorage");
        *out = nullptr;
        return FAILED(m_device.storage) ? m_device.storage : (new CBag(m_script, m_device))->QueryInterface(riid, out);
    }
    HRESULT STDMETHODCALLTYPE GetDisplayName(IBindCtx*, IMoniker*, LPOLESTR* name) override {
        Note("GetDisplayName");
        *name = nullptr;
        if (FAILED(m_device.display)) return m_device.display;
        const std::size_t bytes = (m_device.displayName.size() + 1) * sizeof(wchar_t);
        *name = static_cast<LPOLESTR>(::CoTaskMemAlloc(bytes));
        std::wmemcpy(*name, m_device.displayName.c_str(), m_device.displayName.size() + 1);
        return S_OK;
    }
    HRESULT STDMETHODCALLTYPE GetClassID(CLSID*) override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE IsDirty() override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE Load(IStream*) override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE Save(IStream*, WINBOOL) override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE GetSizeMax(ULARGE_INTEGER*) override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE Reduce(IBindCtx*, DWORD, IMoniker**, IMoniker**) override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE ComposeWith(IMoniker*, WINBOOL, IMoniker**) override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE Enum(WINBOOL, IEnumMoniker**) override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE IsEqual(IMoniker*) override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE Hash(DWORD*) override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE IsRunning(IBindCtx*, IMoniker*, IMoniker*) override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE GetTimeOfLastChange(IBindCtx*, IMoniker*, FILETIME*) override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE Inverse(IMoniker**) override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE CommonPrefixWith(IMoniker*, IMoniker**) override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE RelativePathTo(IMoniker*, IMoniker**) override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE ParseDisplayName(IBindCtx*, IMoniker*, LPOLESTR, ULONG*, IMoniker**) override {
        return E_NOTIMPL;
    }
    HRESULT STDMETHODCALLTYPE IsSystemMoniker(DWORD*) override { return E_NOTIMPL; }

private:
    const ScriptedDevice& m_device;
};

class CScriptedDevices::CMonikers final : public CDevicePart<IEnumMoniker> {
public:
    using CDevicePart::CDevicePart;

    HRESULT STDMETHODCALLTYPE Next(ULONG count, IMoniker** monikers, ULONG*) override {
        EXPECT_EQ(count, 1u);
        Note("Next");
        *monikers = nullptr;
        if (m_at == m_script.devices.size()) return m_script.end;
        return (new CMoniker(m_script, m_script.devices[m_at++]))
            ->QueryInterface(__uuidof(IMoniker), reinterpret_cast<void**>(monikers));
    }
    HRESULT STDMETHODCALLTYPE Skip(ULONG) override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE Reset() override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE Clone(IEnumMoniker**) override { return E_NOTIMPL; }

private:
    std::size_t m_at = 0;
};

class CScriptedDevices::CDeviceEnum final : public CDevicePart<ICreateDevEnum> {
public:
    using CDevicePart::CDevicePart;

    HRESULT STDMETHODCALLTYPE CreateClassEnumerator(REFCLSID category, IEnumMoniker** monikers, DWORD flags) override {
        EXPECT_EQ(category, CLSID_VideoInputDeviceCategory);
        EXPECT_EQ(flags, 0u);
        Note("CreateClassEnumerator");
        *monikers = nullptr;
        if (FAILED(m_script.enumerate) || m_script.givesNothing) return m_script.enumerate;
        return (new CMonikers(m_script))->QueryInterface(__uuidof(IEnumMoniker), reinterpret_cast<void**>(monikers));
    }
};

CScriptedDevices::CScriptedDevices()
    : m_class(std::make_unique<CStandInClass>(CLSID_SystemDeviceEnum, [this](REFIID riid, void** out) {
          return FAILED(create) ? create : (new CDeviceEnum(*this))->QueryInterface(riid, out);
      })) {}

CScriptedDevices::~CScriptedDevices() {
    EXPECT_EQ(references, 0u) << "parts of the enumeration are left over";
}

}  // namespace kolmfluxor::test
