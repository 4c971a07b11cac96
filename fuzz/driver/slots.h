#pragma once
/// @file  Calls of `IKolmFluxorPropertySet` with arguments from the input, each judged by a plain transcription.

#include <cstddef>
#include <functional>
#include <memory>
#include <vector>

#include <kolmfluxor/property_set.h>

#include "driver/driver_door.h"
#include "driver/plain_features.h"
#include "fuzz_input.h"

namespace kolmfluxor::fuzz {

inline constexpr ULONG kPoison = 0xDEADBEEF;

/// Output arguments, each a block of its own, so that a write beside it is seen; one of them may be null.
class COutputs {
public:
    COutputs(std::size_t count, std::size_t nulled) : m_nulled(nulled) {
        for (std::size_t i = 0; i < count; ++i)
            m_words.push_back(std::make_unique<ULONG>(kPoison));
    }
    [[nodiscard]] ULONG* W(std::size_t i) const { return i == m_nulled ? nullptr : m_words[i].get(); }
    [[nodiscard]] BOOL* B(std::size_t i) const { return reinterpret_cast<BOOL*>(W(i)); }
    [[nodiscard]] bool HasNull() const { return m_nulled < m_words.size(); }
    [[nodiscard]] std::size_t Count() const { return m_words.size(); }
    [[nodiscard]] ULONG operator[](std::size_t i) const { return *m_words[i]; }

private:
    std::vector<std::unique_ptr<ULONG>> m_words;
    std::size_t m_nulled;
};

/// What a call works with.
struct Call {
    IKolmFluxorPropertySet& set;
    CFuzzInput& input;
    CConversation& wire;
    CPlainFeatures& features;

    /// Outputs of which, as the input wants it, one is null.
    [[nodiscard]] COutputs Outputs(std::size_t count) const { return {count, input.Byte() % std::size_t{64}}; }
    [[nodiscard]] BOOL Bool() const { return static_cast<BOOL>(input.Number()); }
    /// The result and all outputs must be these, and the conversation must be at its end.
    void Expect(HRESULT result, HRESULT expected, const COutputs& outputs, const std::vector<ULONG>& words) const;
    void Expect(HRESULT result, HRESULT expected) const;
};

/// A method, or two with one name and purpose.
struct Slot {
    const char* name;
    std::function<void(const Call&)> run;
};

/// The methods that are one request.
[[nodiscard]] std::vector<Slot> DirectSlots();
/// Generic feature operations, families, switches.
[[nodiscard]] std::vector<Slot> FeatureSlots();
/// Information, pages, trigger, and what takes two requests.
[[nodiscard]] std::vector<Slot> InformationSlots();
/// What is bound to a media type.
[[nodiscard]] std::vector<Slot> MediaTypeSlots();
/// Registers, blocks, uploads.
[[nodiscard]] std::vector<Slot> MemorySlots();

}  // namespace kolmfluxor::fuzz
