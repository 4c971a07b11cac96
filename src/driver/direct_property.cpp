#include "driver/direct_property.h"

#include <algorithm>
#include <cassert>
#include <cstring>

namespace kolmfluxor {
namespace {

constexpr std::size_t kLargestRecord = 840;
constexpr ULONG kFlagWord = 28;
constexpr ULONG kAutoOn = 44;
constexpr ULONG kOnePushOn = 52;

/// A record as words at byte offsets.
class CRecord {
public:
    explicit CRecord(ULONG sizeBytes) : m_size(sizeBytes) { assert(sizeBytes <= kLargestRecord); }

    [[nodiscard]] std::span<std::byte> Bytes() { return std::span(m_bytes).first(m_size); }
    [[nodiscard]] ULONG Word(ULONG offset) const {
        ULONG word = 0;
        std::memcpy(&word, m_bytes.data() + offset, sizeof word);
        return word;
    }
    void SetWord(ULONG offset, ULONG word) { std::memcpy(m_bytes.data() + offset, &word, sizeof word); }

private:
    std::array<std::byte, kLargestRecord> m_bytes{};
    ULONG m_size;
};

template <class Pointers> bool HasNull(Pointers pointers) {
    return std::ranges::find(pointers, nullptr) != pointers.end();
}

}  // namespace

HRESULT CDirectProperties::Get(const DirectProperty& property, Outputs outputs, Inputs inputs) const {
    return Send(RequestKind::get, property, inputs, {}, outputs);
}

HRESULT CDirectProperties::GetFlags(const DirectProperty& property, Flags flags, Outputs outputs) const {
    return Send(RequestKind::get, property, {}, flags, outputs);
}

HRESULT CDirectProperties::Set(const DirectProperty& property, Inputs inputs, Outputs outputs) const {
    return Send(RequestKind::set, property, inputs, {}, outputs);
}

HRESULT CDirectProperties::Send(RequestKind kind, const DirectProperty& property, Inputs inputs, Flags flags,
                                Outputs outputs) const {
    assert(inputs.size() <= property.in.Count() && flags.size() <= property.flags.size() &&
           outputs.size() <= property.out.Count());
    if (HasNull(flags) || HasNull(outputs)) return E_POINTER;

    CRecord record(property.sizeBytes);
    for (std::size_t i = 0; i < inputs.size(); ++i)
        record.SetWord(property.in[i], inputs.begin()[i]);

    const HRESULT hr = m_transport.Send(kind, property.id, record.Bytes());
    if (FAILED(hr)) return hr;

    for (std::size_t i = 0; i < flags.size(); ++i) {
        const bool set =
            IsFlagSet(property.flags[i], record.Word(kFlagWord), record.Word(kAutoOn), record.Word(kOnePushOn));
        *flags.begin()[i] = set ? TRUE : FALSE;
    }
    for (std::size_t i = 0; i < outputs.size(); ++i)
        *outputs.begin()[i] = record.Word(property.out[i]);
    return hr;
}

}  // namespace kolmfluxor
