/// @file  The methods that are bound to a media type.

#include <algorithm>
#include <cstring>
#include <memory>

#include "driver/slots.h"

namespace kolmfluxor::fuzz {
namespace {

/// A media type with a format block of any size, at the end of its heap block; or no media type.
class CAnyType {
public:
    explicit CAnyType(CFuzzInput& input) {
        const std::uint8_t choice = input.Byte();
        const ULONG size = choice < 128 ? 88 : choice - 128;
        m_block.resize(size);
        m_block.shrink_to_fit();
        input.Take(std::as_writable_bytes(std::span(m_block)));
        const std::uint8_t format = input.Byte();
        if (format < 128 && size >= 40) m_block[37] = 7;
        if (format < 64 && size >= 40) m_block[38] = m_block[39] = 0;
        m_there = input.Byte() != 1;
        m_type.cbFormat = input.Byte() == 1 ? input.Number() : size;
        m_type.pbFormat = m_type.cbFormat > size ? nullptr : m_block.data();
    }
    [[nodiscard]] AM_MEDIA_TYPE* Get() { return m_there ? &m_type : nullptr; }
    /// Whether there is a block of at least 88 bytes.
    [[nodiscard]] bool HasHeader() const { return m_type.cbFormat >= 88 && m_type.pbFormat != nullptr; }
    [[nodiscard]] ULONG Word() const {
        ULONG word = 0;
        std::memcpy(&word, m_block.data() + 36, sizeof word);
        return word;
    }

private:
    std::vector<BYTE> m_block;
    bool m_there = true;
    AM_MEDIA_TYPE m_type{};
};

void GetPosition(const Call& c) {
    CAnyType type(c.input);
    const COutputs o = c.Outputs(2);
    const HRESULT hr = c.set.GetImagePositionForMediaType(o.W(0), o.W(1), type.Get());
    std::vector<ULONG> words(2, kPoison);
    if (o.HasNull() || type.Get() == nullptr) return c.Expect(hr, E_POINTER, o, words);
    if (!type.HasHeader() || type.Word() >> 8 != 7) return c.Expect(hr, E_INVALIDARG, o, words);
    const Request& request = c.wire.Get(65, {{24, type.Word() % 16}}, 40);
    if (SUCCEEDED(request.code)) words = {request.Word(28), request.Word(32)};
    c.Expect(hr, request.code, o, words);
}

void SetPosition(const Call& c) {
    CAnyType type(c.input);
    const ULONG x = c.input.Number();
    const ULONG y = c.input.Number();
    const HRESULT hr = c.set.SetImagePositionForMediaType(x, y, type.Get());
    if (type.Get() == nullptr) return c.Expect(hr, E_POINTER);
    if (!type.HasHeader() || type.Word() >> 8 != 7) return c.Expect(hr, E_INVALIDARG);
    const Request& request = c.wire.Set(65, {{24, type.Word() % 16}, {28, x}, {32, y}}, 40);
    const bool corrected = SUCCEEDED(request.code) && (request.Word(28) != x || request.Word(32) != y);
    c.Expect(hr, corrected ? E_INVALIDARG : request.code);
}

/// A pin on which a format can be set, if the input wants it.
class CPin final : public IAMStreamConfig {
public:
    explicit CPin(CFuzzInput& input) : m_query(Code(input)), m_set(Code(input)) {}

    HRESULT QueryInterface(REFIID riid, void** out) override {
        *out = nullptr;
        if (riid != __uuidof(IAMStreamConfig)) return E_NOINTERFACE;
        if (FAILED(m_query)) return m_query;
        *out = static_cast<IAMStreamConfig*>(this);
        AddRef();
        return m_query;
    }
    ULONG AddRef() override { return ++m_references; }
    ULONG Release() override { return --m_references; }
    HRESULT SetFormat(AM_MEDIA_TYPE* type) override {
        m_type = type;
        m_requestsBefore = Requests().size();
        return m_set;
    }
    HRESULT GetFormat(AM_MEDIA_TYPE** /*type*/) override { return E_NOTIMPL; }
    HRESULT GetNumberOfCapabilities(int* /*count*/, int* /*size*/) override { return E_NOTIMPL; }
    HRESULT GetStreamCaps(int /*index*/, AM_MEDIA_TYPE** /*type*/, BYTE* /*caps*/) override { return E_NOTIMPL; }

    [[nodiscard]] HRESULT QueryResult() const { return m_query; }
    [[nodiscard]] HRESULT SetResult() const { return m_set; }
    [[nodiscard]] ULONG References() const { return m_references; }
    /// The type that was set, after so many requests; null when none was.
    [[nodiscard]] const AM_MEDIA_TYPE* Type() const { return m_type; }
    [[nodiscard]] std::size_t RequestsBefore() const { return m_requestsBefore; }

private:
    static HRESULT Code(CFuzzInput& input) { return input.Byte() < 200 ? S_OK : static_cast<HRESULT>(input.Word()); }

    HRESULT m_query;
    HRESULT m_set;
    ULONG m_references = 0;
    const AM_MEDIA_TYPE* m_type = nullptr;
    std::size_t m_requestsBefore = 0;
};

/// The result that the call must have; `*reached` when the format must have been set.
HRESULT PlainApply(CConversation& wire, const CPin& pin, const CAnyType& type, bool* reached) {
    if (!type.HasHeader()) return E_INVALIDARG;
    if (FAILED(pin.QueryResult())) return pin.QueryResult();
    const bool scalable = (type.Word() >> 8 & 0xFF) == 7;
    ULONG before = 0;
    if (scalable) {
        const Request& request = wire.Get(61);
        if (FAILED(request.code)) return request.code;
        before = request.Word(24);
        const Request& change = wire.Set(61, {{24, 1}});
        if (FAILED(change.code)) return change.code;
    }
    *reached = true;
    wire.Expect(pin.RequestsBefore() == wire.Told(), "the format is set at the right time");
    if (scalable) wire.Set(61, {{24, before}});
    return pin.SetResult();
}

void Apply(const Call& c) {
    CAnyType type(c.input);
    CPin pin(c.input);
    VIDEO_STREAM_CONFIG_CAPS caps{};
    const unsigned nulled = c.input.Byte();
    IUnknown* const anyPin = nulled == 1 ? nullptr : &pin;
    const HRESULT hr = c.set.ApplyMediaTypeComposite(anyPin, type.Get(), nulled == 2 ? nullptr : &caps);
    bool reached = false;
    const bool null = nulled == 1 || nulled == 2 || type.Get() == nullptr;
    const HRESULT expected = null ? E_POINTER : PlainApply(c.wire, pin, type, &reached);
    c.wire.Expect(pin.Type() == (reached ? type.Get() : nullptr), "the format is set, or is not");
    c.wire.Expect(pin.References() == 0, "the pin's references are given back");
    c.Expect(hr, expected);
}

}  // namespace

std::vector<Slot> MediaTypeSlots() {
    return {
        {"GetImagePositionForMediaType", GetPosition},
        {"SetImagePositionForMediaType", SetPosition},
        {"ApplyMediaTypeComposite", Apply},
    };
}

}  // namespace kolmfluxor::fuzz
