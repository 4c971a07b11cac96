#pragma once
/// @file  All 117 methods of `IKolmFluxorPropertySet` as rows: how to call each, what it sends, what it gives back.

#include <functional>
#include <vector>

#include "support/property_set_test.h"

namespace kolmfluxor::test {

/// The output arguments of a call; one of them may be null instead.
class COutputs {
public:
    explicit COutputs(int nulled = -1) : m_nulled(nulled) { m_words.fill(kPoison); }
    ULONG* W(int i) { return i == m_nulled ? nullptr : &m_words[static_cast<std::size_t>(i)]; }
    BOOL* B(int i) { return reinterpret_cast<BOOL*>(W(i)); }
    [[nodiscard]] ULONG operator[](std::size_t i) const { return m_words[i]; }

private:
    std::array<ULONG, 13> m_words{};
    int m_nulled;
};

/// Where an output comes from.
struct Output {
    enum class Kind { word, flag, mode, modeNumber, constant };
    Kind kind;
    ULONG at;            ///< offset of a word, bit of a flag or mode, or the constant itself
    ULONG afterFailure;  ///< kPoison: left alone
};

/// The word at an offset of the last answer.
constexpr Output Word(ULONG offset, ULONG afterFailure = kPoison) {
    return {Output::Kind::word, offset, afterFailure};
}
/// A flag of the word at 28.
constexpr Output Flag(ULONG bit) {
    return {Output::Kind::flag, bit, kPoison};
}
/// Whether the word at 28 is exactly this mode bit.
constexpr Output ModeIs(ULONG bit, ULONG afterFailure = FALSE) {
    return {Output::Kind::mode, bit, afterFailure};
}
/// The mode number of the word at 28, 10 when it is none.
constexpr Output ModeNumber() {
    return {Output::Kind::modeNumber, 0, 10};
}
constexpr Output Constant(ULONG value, ULONG afterFailure) {
    return {Output::Kind::constant, value, afterFailure};
}

/// The word that the scripted driver answers at an offset: every word of an answer differs.
constexpr ULONG Scripted(ULONG offset) {
    return 0xC0DE0000 + offset;
}

/// How the walk treats a row.
enum class Walk {
    all,        ///< calls, sends, outputs, null outputs, failures
    range,      ///< the same for two limits, then two flags that only a success of exactly S_OK writes
    elsewhere,  ///< has tests of its own, named in `note`
};

struct SlotCase {
    int slot;
    const char* name;
    std::function<HRESULT(IKolmFluxorPropertySet&, COutputs&)> call{};
    std::vector<Output> outputs{};
    Wire sent{};  ///< on a new object, every request answered with the scripted words
    HRESULT result = S_OK;
    Walk walk = Walk::all;
    const char* note = nullptr;
};

/// One row a slot, in slot order.
[[nodiscard]] const std::vector<SlotCase>& SlotCases();

}  // namespace kolmfluxor::test
