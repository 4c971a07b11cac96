/// @file  Texts, pages, trigger, Format 7, indexed properties, media types.

#include <algorithm>
#include <array>
#include <limits>
#include <string>

#include <sanitizer/allocator_interface.h>

#include <kolmfluxor/identifiers.h>

#include "driver/slots.h"

namespace kolmfluxor::fuzz {
namespace {

// ---- Texts

/// Outputs for texts, each a block of its own; one of them may be null.
class CTexts {
public:
    CTexts(std::size_t count, std::size_t nulled) : m_nulled(nulled) {
        for (std::size_t i = 0; i < count; ++i)
            m_texts.push_back(std::make_unique<char*>(Untouched()));
    }
    ~CTexts() {
        for (const auto& text : m_texts) {
            if (*text != Untouched()) ::CoTaskMemFree(*text);
        }
    }
    CTexts(const CTexts&) = delete;
    CTexts& operator=(const CTexts&) = delete;

    [[nodiscard]] char** At(std::size_t i) const { return i == m_nulled ? nullptr : m_texts[i].get(); }
    [[nodiscard]] bool IsUntouched(std::size_t i) const { return *m_texts[i] == Untouched(); }
    /// Whether an output is this text, in a block that is just as large.
    [[nodiscard]] bool Is(std::size_t i, const std::string& text) const {
        return !IsUntouched(i) && *m_texts[i] != nullptr && *m_texts[i] == text &&
               __sanitizer_get_allocated_size(*m_texts[i]) == text.size() + 1;
    }

private:
    static char* Untouched() {
        static char mark = 0;
        return &mark;
    }
    std::vector<std::unique_ptr<char*>> m_texts;
    std::size_t m_nulled;
};

std::string FieldText(const Request& request, std::size_t field) {
    const auto bytes = std::span(request.answered).subspan(24 + 256 * field, 256);
    const auto* const first = reinterpret_cast<const char*>(bytes.data());
    return {first, std::find(first, first + bytes.size(), '\0')};
}

std::string VersionText(ULONG version) {
    std::string text;
    for (const unsigned shift : {12U, 8U, 4U, 0U})
        text += std::to_string(version >> shift & 0xF) + (shift == 8 ? "." : "");
    return text.substr(0, 5);
}

/// @param memory  how many texts there is memory for
void CheckInfo(const Call& c, const CTexts& texts, const COutputs& number, HRESULT* result, unsigned* memory) {
    const Request& request = c.wire.Get(9, {}, 800);
    *result = request.code;
    if (SUCCEEDED(request.code) && *memory < 3) {
        *memory = 0;
        *result = E_OUTOFMEMORY;
    }
    const bool given = SUCCEEDED(*result);
    if (given) *memory -= 3;
    for (std::size_t i = 0; i < 3; ++i)
        c.wire.Expect(given ? texts.Is(i, FieldText(request, i)) : texts.IsUntouched(i), "a text is the answer's");
    c.wire.Expect(number[0] == (given ? request.Word(792) : kPoison), "the number is the answer's");
}

unsigned LimitMemory(CFuzzInput& input) {
    const std::uint8_t choice = input.Byte();
    const unsigned memory = choice < 6 ? choice : 1000;
    ::PlatformLimitTaskMemory(memory);
    return memory;
}

void CameraInfo(const Call& c) {
    unsigned memory = LimitMemory(c.input);
    const std::size_t nulled = c.input.Byte();
    const CTexts texts(3, nulled);
    const COutputs number(1, nulled - 3);
    const HRESULT hr = c.set.GetCameraInfo(texts.At(0), texts.At(1), texts.At(2), number.W(0));
    if (nulled < 4) return c.Expect(hr, E_POINTER);
    HRESULT expected = S_OK;
    CheckInfo(c, texts, number, &expected, &memory);
    c.Expect(hr, expected);
}

void CameraInfoEx(const Call& c) {
    unsigned memory = LimitMemory(c.input);
    const std::size_t nulled = c.input.Byte();
    const CTexts texts(3, nulled);
    const COutputs number(1, nulled - 3);
    const CTexts versions(2, nulled - 4);
    const HRESULT hr =
        c.set.GetCameraInfoEx(texts.At(0), texts.At(1), texts.At(2), number.W(0), versions.At(0), versions.At(1));
    if (nulled < 6) return c.Expect(hr, E_POINTER);
    HRESULT expected = S_OK;
    CheckInfo(c, texts, number, &expected, &memory);
    const Request& request = c.wire.Get(38);
    if (FAILED(request.code))
        expected = request.code;
    else if (memory < 2)
        expected = E_OUTOFMEMORY;
    const bool given = SUCCEEDED(request.code) && memory >= 2;
    for (std::size_t i = 0; i < 2; ++i) {
        c.wire.Expect(given ? versions.Is(i, VersionText(request.Word(i == 0 ? 24 : 40))) : versions.IsUntouched(i),
                      "a version is the answer's");
    }
    c.Expect(hr, expected);
}

void Property10Block(const Call& c) {
    const COutputs o = c.Outputs(13);
    const HRESULT hr = c.set.GetProperty10Block(o.W(0), o.W(1), o.W(2), o.W(3), o.W(4), o.W(5), o.W(6), o.W(7), o.W(8),
                                                o.W(9), o.W(10), o.W(11), o.W(12));
    std::vector<ULONG> words(13, kPoison);
    if (o.HasNull()) return c.Expect(hr, E_POINTER, o, words);
    const Request& request = c.wire.Get(10, {}, 840);
    if (SUCCEEDED(request.code)) {
        words = {request.Word(612), request.Word(616), request.Word(620), request.Word(624), request.Word(628),
                 request.Word(632), request.Word(612), request.Word(616), request.Word(620), request.Word(624),
                 request.Word(628), request.Word(632), request.Word(24)};
    }
    c.Expect(hr, E_NOTIMPL, o, words);
}

// ---- Pages

void Pages(const Call& c) {
    auto& object = dynamic_cast<ISpecifyPropertyPages&>(c.set);
    const unsigned memory = LimitMemory(c.input);
    if (c.input.Byte() == 1) return c.Expect(object.GetPages(nullptr), E_POINTER);
    const auto pages = std::make_unique<CAUUID>(CAUUID{.cElems = kPoison, .pElems = nullptr});
    const HRESULT hr = object.GetPages(pages.get());
    BOOL color = FALSE;
    c.features.Present(c.wire, 259, &color);
    c.Expect(hr, memory == 0 ? E_OUTOFMEMORY : S_OK);
    if (FAILED(hr)) return c.wire.Expect(pages->cElems == 0 && pages->pElems == nullptr, "no list after a failure");
    const std::vector<CLSID> all = {CLSID_KolmFluxorPage_Format,  CLSID_KolmFluxorPage_Exposure,
                                    CLSID_KolmFluxorPage_Trigger, CLSID_KolmFluxorPage_DirectAccess,
                                    CLSID_KolmFluxorPage_Info,    CLSID_KolmFluxorPage_Lut,
                                    CLSID_KolmFluxorPage_Smart01, CLSID_KolmFluxorPage_Color};
    const auto expected = std::span(all).first(color != FALSE ? 8 : 7);
    c.wire.Expect(std::ranges::equal(std::span(pages->pElems, pages->cElems), expected), "the pages in their order");
    c.wire.Expect(__sanitizer_get_allocated_size(pages->pElems) == expected.size_bytes(), "a list of their size");
    ::CoTaskMemFree(pages->pElems);
}

// ---- Trigger

void TriggerInquiry(const Call& c) {
    const COutputs o = c.Outputs(1);
    const HRESULT hr = c.set.GetTriggerInquiry(o.W(0));
    if (o.HasNull()) return c.Expect(hr, E_POINTER, o, {kPoison});
    const Request& request = c.wire.Get(53);
    c.Expect(hr, request.code, o, {SUCCEEDED(request.code) ? request.Word(32) : 0});
}

void Trigger(const Call& c) {
    const unsigned wanted = c.input.Byte();
    const COutputs o(4, 4);
    const auto output = [&](std::size_t i) { return (wanted >> i & 1) != 0 ? nullptr : o.W(i); };
    const HRESULT hr = c.set.GetTrigger(output(0), output(1), output(2), output(3));
    const Request& request = c.wire.Get(53);
    std::vector<ULONG> words(4, kPoison);
    if (SUCCEEDED(request.code)) {
        const ULONG can = request.Word(32);
        const ULONG is = request.Word(28);
        words[1] = (can & 0x20) != 0 && (is & 0x20) == 0 ? 0 : 1;
        words[2] = (can & is & 0x40) != 0 ? 1 : 0;
        words[3] = (can & is & 0x80) != 0 ? 1 : 0;
        for (const unsigned bit : {31U, 30U, 21U, 20U, 19U, 18U, 17U, 16U}) {
            if ((can & is & 1U << bit) != 0) words[0] = 1U << bit;
        }
        for (std::size_t i = 0; i < 4; ++i) {
            if (output(i) == nullptr) words[i] = kPoison;
        }
    }
    c.Expect(hr, request.code, o, words);
}

// ---- Properties in two requests, or of any number

void SetFormat7Info(const Call& c) {
    std::array<ULONG, 8> a{};
    std::ranges::generate(a, [&] { return c.input.Number(); });
    const HRESULT hr = c.set.SetFormat7Info(a[0], a[1], a[2], a[3], a[4], a[5], a[6], a[7]);
    const Request selection = c.wire.Set(15, {{28, a[0]}}, 96);
    if (FAILED(selection.code)) return c.Expect(hr, selection.code);
    const Request& request =
        c.wire.Set(13, {{28, a[0]}, {48, a[1]}, {52, a[2]}, {56, a[3]}, {60, a[4]}, {68, a[5]}, {32, a[6]}}, 96);
    c.Expect(hr, request.code);
}

void Property18(const Call& c) {
    const ULONG mode = c.input.Number();
    const COutputs o = c.Outputs(2);
    const HRESULT hr = c.set.GetProperty18(mode, o.W(0), o.W(1));
    std::vector<ULONG> words(2, kPoison);
    if (o.HasNull()) return c.Expect(hr, E_POINTER, o, words);
    const Request selection = c.wire.Set(15, {{28, mode}}, 96);
    if (FAILED(selection.code)) return c.Expect(hr, selection.code, o, words);
    const Request& request = c.wire.Get(18, {}, 96);
    if (SUCCEEDED(request.code)) words = {request.Word(88), request.Word(92)};
    c.Expect(hr, request.code, o, words);
}

void GetIndexed(const Call& c) {
    const ULONG index = c.input.Number();
    const COutputs o = c.Outputs(1);
    const HRESULT hr = c.set.GetIndexedProperty34(index, o.W(0));
    if (o.HasNull()) return c.Expect(hr, E_POINTER, o, {kPoison});
    if (index > 3) return c.Expect(hr, E_INVALIDARG, o, {kPoison});
    const Request& request = c.wire.Get(34 + index);
    c.Expect(hr, request.code, o, {SUCCEEDED(request.code) ? request.Word(24) : kPoison});
}

void SetIndexed(const Call& c) {
    const ULONG index = c.input.Number();
    const ULONG value = c.input.Number();
    const HRESULT hr = c.set.SetIndexedProperty34(index, value);
    c.Expect(hr, index > 3 ? E_INVALIDARG : c.wire.Set(34 + index, {{24, value}}).code);
}

void GetById(const Call& c) {
    const ULONG id = c.input.Number();
    const COutputs o = c.Outputs(3);
    const HRESULT hr = c.set.GetPropertyById(id, o.W(0), o.W(1), o.W(2));
    std::vector<ULONG> words(3, kPoison);
    if (o.HasNull()) return c.Expect(hr, E_POINTER, o, words);
    const Request& request = c.wire.Get(id);
    if (SUCCEEDED(request.code)) words = {request.Word(44), request.Word(24), request.Word(48)};
    c.Expect(hr, request.code, o, words);
}

void SetById(const Call& c) {
    const ULONG id = c.input.Number();
    const BOOL a = c.Bool();
    const ULONG value = c.input.Number();
    const BOOL b = c.Bool();
    const HRESULT hr = c.set.SetPropertyById(id, a, value, b);
    const ULONG word = (a != 0 ? 0x10000U : 0U) + (b != 0 ? 0x20000U : 0U);
    c.Expect(hr, c.wire.Set(id, {{24, value}, {28, word}}).code);
}

void Reserved(const Call& c) {
    c.Expect(c.set.Reserved30(), E_NOTIMPL);
}

}  // namespace

std::vector<Slot> InformationSlots() {
    return {
        {"GetCameraInfo", CameraInfo},
        {"GetCameraInfoEx", CameraInfoEx},
        {"GetProperty10Block", Property10Block},
        {"Reserved30", Reserved},
        {"GetPages", Pages},
        {"GetTriggerInquiry", TriggerInquiry},
        {"GetTrigger", Trigger},
        {"SetFormat7Info", SetFormat7Info},
        {"GetProperty18", Property18},
        {"GetIndexedProperty34", GetIndexed},
        {"SetIndexedProperty34", SetIndexed},
        {"GetPropertyById", GetById},
        {"SetPropertyById", SetById},
    };
}

}  // namespace kolmfluxor::fuzz
