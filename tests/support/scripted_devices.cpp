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
    CallFate Call(const char* name, HRESULT sound) { return m_script.Call(name, sound); }

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
        const CallFate fate = Call("Read", m_device.read);
        if (!fate.gives) return fate.code;
        if (m_device.isNumber) {
            value->vt = VT_I4;
            value->lVal = 1;
        } else {
            value->vt = VT_BSTR;
            value->bstrVal = ::SysAllocString(m_device.friendlyName.c_str());
        }
        return fate.code;
    }
    HRESULT STDMETHODCALLTYPE Write(LPCOLESTR, VARIANT*) override { return E_NOTIMPL; }

private:
    const ScriptedDevice& m_device;
};

class CScriptedDevices::CMoniker final : public CDevicePart<IMoniker> {
public:
    CMoniker(CScriptedDevices& script, const ScriptedDevice& device) : CDevicePart(script), m_device(device) {}

    HRESULT STDMETHODCALLTYPE BindToObject(IBindCtx*, IMoniker*, REFIID riid, void** out) override {
        const CallFate fate = Call("BindToObject", m_device.bind);
        *out = nullptr;
        if (!fate.gives || m_device.filter == nullptr) return fate.code;
        const HRESULT hr = m_device.filter->QueryInterface(riid, out);
        return FAILED(hr) ? hr : fate.code;
    }
    HRESULT STDMETHODCALLTYPE BindToStorage(IBindCtx*, IMoniker*, REFIID riid, void** out) override {
        const CallFate fate = Call("BindToStorage", m_device.storage);
        *out = nullptr;
        if (!fate.gives) return fate.code;
        const HRESULT hr = (new CBag(m_script, m_device))->QueryInterface(riid, out);
        return FAILED(hr) ? hr : fate.code;
    }
    HRESULT STDMETHODCALLTYPE GetDisplayName(IBindCtx*, IMoniker*, LPOLESTR* name) override {
        const CallFate fate = Call("GetDisplayName", m_device.display);
        *name = nullptr;
        if (!fate.gives) return fate.code;
        const std::size_t bytes = (m_device.displayName.size() + 1) * sizeof(wchar_t);
        *name = static_cast<LPOLESTR>(::CoTaskMemAlloc(bytes));
        std::wmemcpy(*name, m_device.displayName.c_str(), m_device.displayName.size() + 1);
        return fate.code;
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
        const bool isEnd = m_at == m_script.devices.size();
        const CallFate fate = Call("Next", isEnd ? m_script.end : S_OK);
        *monikers = nullptr;
        if (isEnd || !fate.gives) return fate.code;
        const HRESULT hr = (new CMoniker(m_script, m_script.devices[m_at++]))
                               ->QueryInterface(__uuidof(IMoniker), reinterpret_cast<void**>(monikers));
        return FAILED(hr) ? hr : fate.code;
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
        const CallFate fate = Call("CreateClassEnumerator", m_script.enumerate);
        *monikers = nullptr;
        if (!fate.gives || m_script.givesNothing) return fate.code;
        const HRESULT hr =
            (new CMonikers(m_script))->QueryInterface(__uuidof(IEnumMoniker), reinterpret_cast<void**>(monikers));
        return FAILED(hr) ? hr : fate.code;
    }
};

CScriptedDevices::CScriptedDevices()
    : m_class(std::make_unique<CStandInClass>(CLSID_SystemDeviceEnum, [this](REFIID riid, void** out) {
          // Not noted among the calls, but counted. The system's creation function takes an object for granted.
          const CallFate fate = FateOf(faults, "create enumerator", false, create);
          return fate.gives ? (new CDeviceEnum(*this))->QueryInterface(riid, out) : fate.code;
      })) {}

CScriptedDevices::~CScriptedDevices() {
    EXPECT_EQ(references, 0u) << "parts of the enumeration are left over";
}

}  // namespace kolmfluxor::test
