#include "support/scripted_filter.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cstring>

#include <uuids.h>

namespace kolmfluxor::test {
namespace {

constexpr REFERENCE_TIME kFps60 = 166666;
constexpr REFERENCE_TIME kFps30 = 333333;
constexpr REFERENCE_TIME kFps15 = 666666;
constexpr REFERENCE_TIME kFps3_75 = 2666666;
constexpr REFERENCE_TIME kFps1_875 = 5333333;

constexpr GUID SubtypeOf(DWORD fourCc) {
    return {fourCc, 0x0000, 0x0010, {0x80, 0x00, 0x00, 0xAA, 0x00, 0x38, 0x9B, 0x71}};
}

ScriptedFormat VideoFormat(LONG width, LONG height, DWORD fourCc, WORD bits) {
    ScriptedFormat format;
    format.majorType = MEDIATYPE_Video;
    format.subtype = fourCc == 0 ? MEDIASUBTYPE_RGB24 : SubtypeOf(fourCc);
    format.formatType = FORMAT_VideoInfo;
    format.header.AvgTimePerFrame = kFps15;
    format.header.bmiHeader.biSize = sizeof(BITMAPINFOHEADER);
    format.header.bmiHeader.biPlanes = 1;
    format.header.bmiHeader.biBitCount = bits;
    format.header.bmiHeader.biCompression = fourCc;
    SetArea(format, {0, 0, width, height});
    format.caps.MinOutputSize = {width, height};
    format.caps.MaxOutputSize = {width, height};
    format.caps.MinCroppingSize = {width, height};
    format.caps.MaxCroppingSize = {width, height};
    return format;
}

}  // namespace

void SetArea(ScriptedFormat& format, const RECT& area) {
    BITMAPINFOHEADER& bitmap = format.header.bmiHeader;
    bitmap.biWidth = area.right - area.left;
    bitmap.biHeight = area.bottom - area.top;
    bitmap.biSizeImage = static_cast<DWORD>(bitmap.biWidth * bitmap.biHeight * bitmap.biBitCount / 8);
    format.sampleBytes = bitmap.biSizeImage;
    format.header.rcSource = area;
    format.header.rcTarget = {0, 0, bitmap.biWidth, bitmap.biHeight};
}

ScriptedFormat FixedMode(LONG width, LONG height, DWORD fourCc, WORD bits, DWORD mode) {
    ScriptedFormat format = VideoFormat(width, height, fourCc, bits);
    format.header.dwBitErrorRate = mode;
    format.caps.MinFrameInterval = kFps30;
    format.caps.MaxFrameInterval = kFps3_75;
    return format;
}

ScriptedFormat Format7Mode(DWORD mode, LONG sensorWidth, LONG sensorHeight) {
    ScriptedFormat format = VideoFormat(sensorWidth, sensorHeight, FourCc("Y800"), 8);
    format.header.dwBitErrorRate = 7u << 8 | mode;
    format.caps.MinOutputSize = {16, 16};
    format.caps.MinCroppingSize = {16, 16};
    format.caps.CropAlignX = 4;
    format.caps.CropAlignY = 2;
    format.caps.CropGranularityX = 8;
    format.caps.CropGranularityY = 2;
    format.caps.MinFrameInterval = kFps60;
    format.caps.MaxFrameInterval = kFps1_875;
    return format;
}

/// Counts references for one object of the script and notes where they end.
template <class Interface> class CCounted : public Interface {
public:
    CCounted(CScriptedFilter& script, ULONG& count, const char* name)
        : m_script(script), m_count(count), m_name(name) {}
    virtual ~CCounted() = default;

    ULONG STDMETHODCALLTYPE AddRef() override { return ++m_count; }
    ULONG STDMETHODCALLTYPE Release() override {
        if (m_name != nullptr) m_script.Note(m_name);
        return --m_count;
    }

protected:
    /// Gives the object out when its interface was asked for.
    HRESULT Give(REFIID riid, REFIID own, void** out) {
        *out = riid == IID_IUnknown || riid == own ? static_cast<Interface*>(this) : nullptr;
        if (*out == nullptr) return E_NOINTERFACE;
        AddRef();
        return S_OK;
    }

    CScriptedFilter& m_script;

private:
    ULONG& m_count;
    const char* m_name;
};

class CScriptedFilter::CConfig final : public CCounted<IAMStreamConfig> {
public:
    explicit CConfig(CScriptedFilter& script) : CCounted(script, script.references.config, "config") {}

    HRESULT STDMETHODCALLTYPE QueryInterface(REFIID riid, void** out) override {
        return Give(riid, IID_IAMStreamConfig, out);
    }
    HRESULT STDMETHODCALLTYPE SetFormat(AM_MEDIA_TYPE* type) override {
        m_script.calls.emplace_back("SetFormat");
        ScriptedFormat given;
        given.majorType = type->majortype;
        given.subtype = type->subtype;
        given.formatType = type->formattype;
        given.sampleBytes = type->lSampleSize;
        given.blockBytes = type->cbFormat;
        if (type->cbFormat >= sizeof given.header) std::memcpy(&given.header, type->pbFormat, sizeof given.header);
        m_script.set.push_back(given);
        return m_script.setFormat;
    }
    HRESULT STDMETHODCALLTYPE GetFormat(AM_MEDIA_TYPE** type) override {
        m_script.calls.emplace_back("GetFormat");
        *type = nullptr;
        const auto asked = std::ranges::count(m_script.calls, "GetFormat");
        const bool isDry = m_script.noCurrent || (m_script.currents && asked > *m_script.currents);
        if (m_script.getFormat == S_OK && !isDry)
            *type = m_script.NewType(m_script.formats.at(static_cast<std::size_t>(m_script.current)));
        return m_script.getFormat;
    }
    HRESULT STDMETHODCALLTYPE GetNumberOfCapabilities(int* count, int* bytes) override {
        m_script.calls.emplace_back("GetNumberOfCapabilities");
        *count = m_script.claimedCount.value_or(static_cast<int>(m_script.formats.size()));
        *bytes = m_script.recordBytes;
        return m_script.getCount;
    }
    HRESULT STDMETHODCALLTYPE GetStreamCaps(int index, AM_MEDIA_TYPE** type, BYTE* caps) override {
        m_script.calls.push_back("GetStreamCaps " + std::to_string(index));
        *type = nullptr;
        if (static_cast<std::size_t>(index) >= m_script.formats.size()) return S_FALSE;
        const ScriptedFormat& format = m_script.formats[static_cast<std::size_t>(index)];
        if (!format.noType) *type = m_script.NewType(format);
        std::memcpy(caps, &format.caps, sizeof format.caps);
        return format.result;
    }
};

class CScriptedFilter::CPin final : public CCounted<IPin> {
public:
    explicit CPin(CScriptedFilter& script) : CCounted(script, script.references.pin, "pin") {}

    HRESULT STDMETHODCALLTYPE QueryInterface(REFIID riid, void** out) override {
        if (riid != IID_IAMStreamConfig) return Give(riid, IID_IPin, out);
        m_script.calls.emplace_back("query config");
        *out = nullptr;
        return m_script.queryConfig == S_OK ? m_script.m_config->QueryInterface(riid, out) : m_script.queryConfig;
    }
    HRESULT STDMETHODCALLTYPE Connect(IPin*, const AM_MEDIA_TYPE*) override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE ReceiveConnection(IPin*, const AM_MEDIA_TYPE*) override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE Disconnect() override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE ConnectedTo(IPin**) override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE ConnectionMediaType(AM_MEDIA_TYPE*) override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE QueryPinInfo(PIN_INFO*) override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE QueryDirection(PIN_DIRECTION*) override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE QueryId(LPWSTR*) override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE QueryAccept(const AM_MEDIA_TYPE*) override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE EnumMediaTypes(IEnumMediaTypes**) override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE QueryInternalConnections(IPin**, ULONG*) override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE EndOfStream() override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE BeginFlush() override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE EndFlush() override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE NewSegment(REFERENCE_TIME, REFERENCE_TIME, double) override { return E_NOTIMPL; }
};

class CScriptedFilter::CPins final : public CCounted<IEnumPins> {
public:
    explicit CPins(CScriptedFilter& script) : CCounted(script, script.references.pins, "enumerator") {}

    HRESULT STDMETHODCALLTYPE QueryInterface(REFIID riid, void** out) override {
        return Give(riid, IID_IEnumPins, out);
    }
    HRESULT STDMETHODCALLTYPE Next(ULONG count, IPin** pins, ULONG* fetched) override {
        m_script.calls.push_back("Next " + std::to_string(count));
        EXPECT_TRUE(count == 1 || fetched != nullptr);
        *pins = nullptr;
        if (m_script.next != S_OK || m_script.givesNoPin) return m_script.next;
        return m_script.m_pin->QueryInterface(IID_IPin, reinterpret_cast<void**>(pins));
    }
    HRESULT STDMETHODCALLTYPE Skip(ULONG) override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE Reset() override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE Clone(IEnumPins**) override { return E_NOTIMPL; }
};

class CScriptedFilter::CFilter final : public CCounted<IBaseFilter> {
public:
    explicit CFilter(CScriptedFilter& script) : CCounted(script, script.references.filter, "filter") {}

    HRESULT STDMETHODCALLTYPE QueryInterface(REFIID riid, void** out) override {
        *out = nullptr;
        const CallFate fate = FateOf(m_script.faults, "query device", true);
        if (!fate.gives) return fate.code;
        HRESULT hr = Give(riid, IID_IBaseFilter, out);
        if (hr != S_OK && m_script.otherInterfaces) hr = m_script.otherInterfaces(riid, out);
        return hr == S_OK ? fate.code : hr;
    }
    HRESULT STDMETHODCALLTYPE EnumPins(IEnumPins** pins) override {
        m_script.calls.emplace_back("EnumPins");
        *pins = nullptr;
        if (m_script.enumPins != S_OK || m_script.givesNothing) return m_script.enumPins;
        return m_script.m_pins->QueryInterface(IID_IEnumPins, reinterpret_cast<void**>(pins));
    }
    HRESULT STDMETHODCALLTYPE GetClassID(CLSID*) override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE Stop() override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE Pause() override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE Run(REFERENCE_TIME) override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE GetState(DWORD, FILTER_STATE*) override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE SetSyncSource(IReferenceClock*) override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE GetSyncSource(IReferenceClock**) override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE FindPin(LPCWSTR, IPin**) override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE QueryFilterInfo(FILTER_INFO*) override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE JoinFilterGraph(IFilterGraph*, LPCWSTR) override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE QueryVendorInfo(LPWSTR*) override { return E_NOTIMPL; }
};

/// Hangs on every media type that is handed out, so that freeing one shows.
class CScriptedFilter::CTypeMark final : public CCounted<IUnknown> {
public:
    explicit CTypeMark(CScriptedFilter& script) : CCounted(script, script.references.types, nullptr) {}

    HRESULT STDMETHODCALLTYPE QueryInterface(REFIID riid, void** out) override { return Give(riid, IID_IUnknown, out); }
};

CScriptedFilter::CScriptedFilter()
    : m_filter(std::make_unique<CFilter>(*this)),
      m_pins(std::make_unique<CPins>(*this)),
      m_pin(std::make_unique<CPin>(*this)),
      m_config(std::make_unique<CConfig>(*this)),
      m_typeMark(std::make_unique<CTypeMark>(*this)) {}

CScriptedFilter::~CScriptedFilter() {
    EXPECT_EQ(references.filter, 0u) << "references to the filter are left over";
    EXPECT_EQ(references.pins, 0u) << "references to the enumerator are left over";
    EXPECT_EQ(references.pin, 0u) << "references to the pin are left over";
    EXPECT_EQ(references.config, 0u) << "references to the configuration are left over";
    EXPECT_EQ(references.types, 0u) << "media types were not freed";
}

AM_MEDIA_TYPE* CScriptedFilter::NewType(const ScriptedFormat& format) {
    auto* const type = static_cast<AM_MEDIA_TYPE*>(::CoTaskMemAlloc(sizeof(AM_MEDIA_TYPE)));
    *type = {};
    type->majortype = format.majorType;
    type->subtype = format.subtype;
    type->formattype = format.formatType;
    type->bFixedSizeSamples = TRUE;
    type->lSampleSize = format.sampleBytes;
    type->pUnk = m_typeMark.get();
    m_typeMark->AddRef();
    type->cbFormat = format.blockBytes;
    if (format.blockBytes != 0 && !format.noBlock) {
        type->pbFormat = static_cast<BYTE*>(::CoTaskMemAlloc(format.blockBytes));
        std::memset(type->pbFormat, 0, format.blockBytes);
        std::memcpy(type->pbFormat, &format.header, std::min<std::size_t>(format.blockBytes, sizeof format.header));
    }
    return type;
}

void CScriptedFilter::Note(const char* released) {
    calls.push_back(std::string("release ") + released);
    if (onRelease) onRelease(released);
}

IBaseFilter* CScriptedFilter::Filter() {
    return m_filter.get();
}

}  // namespace kolmfluxor::test
