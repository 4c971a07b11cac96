#include "support/scripted_graph.h"

#include <gtest/gtest.h>

#include <algorithm>

#include <uuids.h>
#include <wrl/client.h>

extern "C" const CLSID CLSID_SampleGrabber;
extern "C" const CLSID CLSID_NullRenderer;

namespace kolmfluxor::test {

/// An object of the script; the script owns it and counts its references.
template <class Interface> class CGraphPart : public Interface {
public:
    explicit CGraphPart(CScriptedGraph& script) : m_script(script) {}
    virtual ~CGraphPart() = default;

    HRESULT STDMETHODCALLTYPE QueryInterface(REFIID riid, void** out) override {
        *out = nullptr;
        if (riid != IID_IUnknown && riid != __uuidof(Interface)) return Other(riid, out);
        *out = static_cast<Interface*>(this);
        AddRef();
        return S_OK;
    }
    ULONG STDMETHODCALLTYPE AddRef() override { return ++m_script.references; }
    ULONG STDMETHODCALLTYPE Release() override { return --m_script.references; }

protected:
    virtual HRESULT Other(REFIID /*riid*/, void** /*out*/) { return E_NOINTERFACE; }
    HRESULT Call(const std::string& name) { return m_script.Call(name).code; }
    /// The same for a call with an output.
    CallFate CallFor(const std::string& name) { return m_script.Call(name, true); }

    CScriptedGraph& m_script;
};

class CScriptedGraph::CControl final : public CGraphPart<IMediaControl> {
public:
    using CGraphPart::CGraphPart;

    HRESULT STDMETHODCALLTYPE Run() override {
        const HRESULT hr = Call("Run");
        if (FAILED(hr)) return hr;
        for (std::vector<BYTE>& sample : m_script.samples) {
            EXPECT_EQ(m_script.callback->BufferCB(0, sample.data(), static_cast<LONG>(sample.size())), S_OK);
        }
        if (m_script.onRun) m_script.onRun();
        return hr;
    }
    HRESULT STDMETHODCALLTYPE Stop() override { return Call("Stop"); }
    HRESULT STDMETHODCALLTYPE Pause() override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE GetState(LONG, OAFilterState*) override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE RenderFile(BSTR) override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE AddSourceFilter(BSTR, IDispatch**) override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE get_FilterCollection(IDispatch**) override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE get_RegFilterCollection(IDispatch**) override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE StopWhenReady() override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE GetTypeInfoCount(UINT*) override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE GetTypeInfo(UINT, LCID, ITypeInfo**) override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE GetIDsOfNames(REFIID, LPOLESTR*, UINT, LCID, DISPID*) override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE Invoke(DISPID, REFIID, LCID, WORD, DISPPARAMS*, VARIANT*, EXCEPINFO*, UINT*) override {
        return E_NOTIMPL;
    }
};

class CScriptedGraph::CGraph final : public CGraphPart<IGraphBuilder> {
public:
    using CGraphPart::CGraphPart;

    HRESULT STDMETHODCALLTYPE AddFilter(IBaseFilter* filter, LPCWSTR name) override {
        const std::wstring wide = name;
        const HRESULT hr = Call("AddFilter " + std::string(wide.begin(), wide.end()));
        return filter != nullptr ? hr : E_POINTER;
    }
    HRESULT STDMETHODCALLTYPE RemoveFilter(IBaseFilter*) override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE EnumFilters(IEnumFilters**) override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE FindFilterByName(LPCWSTR, IBaseFilter**) override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE ConnectDirect(IPin*, IPin*, const AM_MEDIA_TYPE*) override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE Reconnect(IPin*) override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE Disconnect(IPin*) override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE SetDefaultSyncSource() override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE Connect(IPin*, IPin*) override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE Render(IPin*) override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE RenderFile(LPCWSTR, LPCWSTR) override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE AddSourceFilter(LPCWSTR, LPCWSTR, IBaseFilter**) override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE SetLogFile(DWORD_PTR) override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE Abort() override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE ShouldOperationContinue() override { return E_NOTIMPL; }

private:
    HRESULT Other(REFIID riid, void** out) override {
        if (riid != __uuidof(IMediaControl)) return E_NOINTERFACE;
        const CallFate fate = CallFor("query control");
        const HRESULT hr = fate.gives ? m_script.m_control->QueryInterface(riid, out) : S_OK;
        return FAILED(hr) ? hr : fate.code;
    }
};

/// Numbers the calls and passes them on to the device's configuration.
class CScriptedGraph::CConfig final : public CGraphPart<IAMStreamConfig> {
public:
    explicit CConfig(CScriptedGraph& script) : CGraphPart(script) {}

    HRESULT STDMETHODCALLTYPE GetFormat(AM_MEDIA_TYPE** type) override {
        *type = nullptr;
        const CallFate fate = CallFor("GetFormat " + std::to_string(Count("GetFormat ") + 1));
        const HRESULT hr = fate.gives ? Device()->GetFormat(type) : S_OK;
        return FAILED(hr) ? hr : fate.code;
    }
    HRESULT STDMETHODCALLTYPE SetFormat(AM_MEDIA_TYPE* type) override {
        const HRESULT hr = Call("SetFormat " + std::to_string(Count("SetFormat ") + 1));
        return FAILED(hr) ? hr : Device()->SetFormat(type);
    }
    HRESULT STDMETHODCALLTYPE GetNumberOfCapabilities(int*, int*) override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE GetStreamCaps(int, AM_MEDIA_TYPE**, BYTE*) override { return E_NOTIMPL; }

private:
    HRESULT Other(REFIID riid, void** out) override {
        return m_script.configInterfaces ? m_script.configInterfaces(riid, out) : E_NOINTERFACE;
    }
    [[nodiscard]] std::ptrdiff_t Count(const char* name) const {
        return std::ranges::count_if(m_script.calls, [&](const std::string& call) { return call.starts_with(name); });
    }
    Microsoft::WRL::ComPtr<IAMStreamConfig> Device() {
        Microsoft::WRL::ComPtr<IEnumPins> pins;
        Microsoft::WRL::ComPtr<IPin> pin;
        Microsoft::WRL::ComPtr<IAMStreamConfig> config;
        EXPECT_EQ(m_script.device.Filter()->EnumPins(pins.GetAddressOf()), S_OK);
        EXPECT_EQ(pins->Next(1, pin.GetAddressOf(), nullptr), S_OK);
        EXPECT_EQ(pin.As(&config), S_OK);
        return config;
    }
};

class CScriptedGraph::CBuilder final : public CGraphPart<ICaptureGraphBuilder2> {
public:
    using CGraphPart::CGraphPart;

    HRESULT STDMETHODCALLTYPE SetFiltergraph(IGraphBuilder* graph) override {
        EXPECT_NE(graph, nullptr);
        return Call("SetFiltergraph");
    }
    HRESULT STDMETHODCALLTYPE RenderStream(const GUID* category, const GUID* type, IUnknown* source,
                                           IBaseFilter* middle, IBaseFilter* sink) override {
        EXPECT_TRUE(*category == PIN_CATEGORY_CAPTURE && *type == MEDIATYPE_Video);
        EXPECT_TRUE(source == m_script.device.Filter() && middle == m_script.m_grabberFilter.Filter() &&
                    sink == m_script.m_renderer.Filter());
        return Call("RenderStream");
    }
    HRESULT STDMETHODCALLTYPE FindInterface(const GUID* category, const GUID* type, IBaseFilter* filter, REFIID riid,
                                            void** out) override {
        EXPECT_TRUE(*category == PIN_CATEGORY_CAPTURE && *type == MEDIATYPE_Video);
        EXPECT_EQ(filter, m_script.device.Filter());
        EXPECT_EQ(riid, __uuidof(IAMStreamConfig));
        *out = nullptr;
        const CallFate fate = CallFor("FindInterface");
        if (!fate.gives || m_script.givesNothing) return fate.code;
        const HRESULT hr = m_script.m_config->QueryInterface(riid, out);
        return FAILED(hr) ? hr : fate.code;
    }
    HRESULT STDMETHODCALLTYPE GetFiltergraph(IGraphBuilder**) override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE SetOutputFileName(const GUID*, LPCOLESTR, IBaseFilter**, IFileSinkFilter**) override {
        return E_NOTIMPL;
    }
    HRESULT STDMETHODCALLTYPE ControlStream(const GUID*, const GUID*, IBaseFilter*, REFERENCE_TIME*, REFERENCE_TIME*,
                                            WORD, WORD) override {
        return E_NOTIMPL;
    }
    HRESULT STDMETHODCALLTYPE AllocCapFile(LPCOLESTR, DWORDLONG) override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE CopyCaptureFile(LPOLESTR, LPOLESTR, int, IAMCopyCaptureFileProgress*) override {
        return E_NOTIMPL;
    }
    HRESULT STDMETHODCALLTYPE FindPin(IUnknown*, PIN_DIRECTION, const GUID*, const GUID*, WINBOOL, int,
                                      IPin**) override {
        return E_NOTIMPL;
    }
};

class CScriptedGraph::CGrabber final : public CGraphPart<ISampleGrabber> {
public:
    using CGraphPart::CGraphPart;

    HRESULT STDMETHODCALLTYPE SetOneShot(WINBOOL on) override {
        return Call(on ? "SetOneShot TRUE" : "SetOneShot FALSE");
    }
    HRESULT STDMETHODCALLTYPE SetMediaType(const AM_MEDIA_TYPE* type) override {
        m_script.grabberType = *type;
        return Call("SetMediaType");
    }
    HRESULT STDMETHODCALLTYPE SetBufferSamples(WINBOOL on) override {
        return Call(on ? "SetBufferSamples TRUE" : "SetBufferSamples FALSE");
    }
    HRESULT STDMETHODCALLTYPE SetCallback(ISampleGrabberCB* given, LONG method) override {
        if (given == nullptr) {
            Drop();
            return S_OK;  // not noted: that the callback is given up shows in its references
        }
        const HRESULT hr = Call("SetCallback " + std::to_string(method));
        if (FAILED(hr)) return hr;
        Drop();
        given->AddRef();
        m_script.callback = given;
        return hr;
    }
    HRESULT STDMETHODCALLTYPE GetConnectedMediaType(AM_MEDIA_TYPE*) override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE GetCurrentBuffer(LONG*, LONG*) override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE GetCurrentSample(IMediaSample**) override { return E_NOTIMPL; }

    void Drop() {
        if (m_script.callback != nullptr) m_script.callback->Release();
        m_script.callback = nullptr;
    }
};

CScriptedGraph::CScriptedGraph()
    : m_graph(std::make_unique<CGraph>(*this)),
      m_control(std::make_unique<CControl>(*this)),
      m_builder(std::make_unique<CBuilder>(*this)),
      m_grabber(std::make_unique<CGrabber>(*this)),
      m_config(std::make_unique<CConfig>(*this)) {
    m_grabberFilter.otherInterfaces = [this](REFIID riid, void** out) {
        if (riid != __uuidof(ISampleGrabber)) return E_NOINTERFACE;
        return Make("query grabber", m_grabber.get(), riid, out, true);
    };
    const auto standIn = [this](REFCLSID classId, const char* name, IUnknown* object) {
        m_classes.push_back(std::make_unique<CStandInClass>(
            classId, [this, name, object](REFIID riid, void** out) { return Make(name, object, riid, out); }));
    };
    standIn(CLSID_FilterGraph, "create graph", m_graph.get());
    standIn(CLSID_CaptureGraphBuilder2, "create builder", m_builder.get());
    standIn(CLSID_SampleGrabber, "create grabber", m_grabberFilter.Filter());
    standIn(CLSID_NullRenderer, "create renderer", m_renderer.Filter());
}

CScriptedGraph::~CScriptedGraph() {
    EXPECT_EQ(references, 0u) << "parts of the graph are left over";
    EXPECT_EQ(callback, nullptr) << "the grabber still has its callback";
}

CallFate CScriptedGraph::Call(const std::string& name, bool canBeEmpty) {
    calls.push_back(name);
    const auto found = results.find(name);
    return FateOf(faults, name, canBeEmpty, found != results.end() ? found->second : S_OK);
}

HRESULT CScriptedGraph::Make(const std::string& name, IUnknown* object, REFIID riid, void** out, bool canBeEmpty) {
    const CallFate fate = Call(name, canBeEmpty);
    const HRESULT hr = fate.gives ? object->QueryInterface(riid, out) : S_OK;
    return FAILED(hr) ? hr : fate.code;
}

}  // namespace kolmfluxor::test
