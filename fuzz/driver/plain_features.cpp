#include "driver/plain_features.h"

#include <cstring>

namespace kolmfluxor::fuzz {
namespace {

const std::map<ULONG, ULONG> kDriverIds = {
    {256, 4},  {257, 60}, {258, 21}, {259, 1},  {260, 2},  {261, 22}, {262, 23}, {263, 8},  {264, 5},
    {265, 0},  {266, 40}, {512, 6},  {514, 7},  {515, 31}, {516, 63}, {517, 64}, {520, 28}, {521, 27},
    {523, 19}, {526, 32}, {527, 33}, {528, 39}, {539, 41}, {542, 35}, {543, 36}, {544, 37}, {1032, 55},
};
constexpr ULONG kModes[] = {0x4, 0x2, 0x10, 0x8, 0x40, 0x80, 0x100, 0x200, 0x400, 0x1000};

constexpr ULONG kValue = 24;
constexpr ULONG kMode = 28;
constexpr ULONG kModeCaps = 32;
constexpr ULONG kMin = 36;
constexpr ULONG kMax = 40;
constexpr ULONG kAutoOn = 44;
constexpr ULONG kOnePushOn = 52;

/// A payload: an answer's, with some words changed.
std::vector<std::byte> Changed(const Request& answer, CConversation::Words words) {
    std::vector<std::byte> payload(answer.answered.begin() + sizeof(KSPROPERTY), answer.answered.end());
    for (const auto& [offset, word] : words)
        std::memcpy(payload.data() + offset - sizeof(KSPROPERTY), &word, sizeof word);
    return payload;
}

}  // namespace

ULONG WireOf(ULONG mode) {
    return mode < std::size(kModes) ? kModes[mode] : 0;
}

HRESULT CPlainFeatures::Fresh(CConversation& wire, ULONG feature, Request* answer) {
    const auto id = kDriverIds.find(feature);
    if (id == kDriverIds.end()) return E_FAIL;
    *answer = wire.Get(id->second);
    if (SUCCEEDED(answer->code)) m_first.emplace(feature, *answer);
    return answer->code;
}

HRESULT CPlainFeatures::Cached(CConversation& wire, ULONG feature, Request* answer) {
    const auto found = m_first.find(feature);
    if (found == m_first.end()) return Fresh(wire, feature, answer);
    *answer = found->second;
    return S_OK;
}

HRESULT CPlainFeatures::Present(CConversation& wire, ULONG feature, BOOL* present) {
    *present = FALSE;
    if (!kDriverIds.contains(feature)) return S_OK;
    Request answer;
    const HRESULT hr = Cached(wire, feature, &answer);
    *present = SUCCEEDED(hr) ? TRUE : FALSE;
    return hr;
}

HRESULT CPlainFeatures::Range(CConversation& wire, ULONG feature, Limits* limits) {
    *limits = {};
    Request answer;
    const HRESULT hr = Cached(wire, feature, &answer);
    if (SUCCEEDED(hr)) *limits = {.min = feature == 515 ? 0 : answer.Word(kMin), .max = answer.Word(kMax)};
    return hr;
}

HRESULT CPlainFeatures::Value(CConversation& wire, ULONG feature, State* state) {
    *state = {};
    Request answer;
    const HRESULT hr = Fresh(wire, feature, &answer);
    if (FAILED(hr)) return hr;
    state->value = answer.Word(kValue);
    for (ULONG mode = 0; mode < 10; ++mode) {
        if (answer.Word(kMode) == WireOf(mode)) state->mode = mode;
    }
    return hr;
}

HRESULT CPlainFeatures::SetValue(CConversation& wire, ULONG feature, ULONG value) {
    Request answer;
    HRESULT hr = Fresh(wire, feature, &answer);
    if (FAILED(hr)) return hr;
    Limits limits;
    hr = Range(wire, feature, &limits);
    if (FAILED(hr)) return hr;
    if (value < limits.min || value > limits.max) return E_INVALIDARG;
    return wire.Next(2, kDriverIds.at(feature), Changed(answer, {{kValue, value}})).code;
}

HRESULT CPlainFeatures::SetValueAndMode(CConversation& wire, ULONG feature, ULONG value, ULONG mode) {
    Limits limits;
    const HRESULT hr = Range(wire, feature, &limits);
    if (FAILED(hr)) return hr;
    if (value < limits.min || value > limits.max) return E_INVALIDARG;
    if (WireOf(mode) == 0) return E_FAIL;
    return wire.Set(kDriverIds.at(feature), {{kValue, value}, {kMode, WireOf(mode)}}).code;
}

HRESULT CPlainFeatures::Supported(CConversation& wire, ULONG feature, ULONG mode, BOOL* supported) {
    *supported = FALSE;
    if (WireOf(mode) == 0) return E_FAIL;
    Request answer;
    const HRESULT hr = Cached(wire, feature, &answer);
    if (SUCCEEDED(hr) && (answer.Word(kModeCaps) & WireOf(mode)) != 0) *supported = TRUE;
    return hr;
}

HRESULT CPlainFeatures::SetMode(CConversation& wire, ULONG feature, ULONG mode) {
    Request answer;
    const HRESULT hr = Fresh(wire, feature, &answer);
    if (FAILED(hr)) return hr;
    if (WireOf(mode) == 0) return E_FAIL;
    if ((m_first.at(feature).Word(kModeCaps) & WireOf(mode)) == 0) return E_NOTIMPL;
    const auto payload =
        Changed(answer, {{kMode, WireOf(mode)}, {kAutoOn, mode == 3 ? 1 : 0}, {kOnePushOn, mode == 2 ? 1 : 0}});
    return wire.Next(2, kDriverIds.at(feature), payload).code;
}

}  // namespace kolmfluxor::fuzz
