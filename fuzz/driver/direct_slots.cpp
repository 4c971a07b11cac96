/// @file  The methods that are one request: which property, where the arguments travel.

#include <algorithm>
#include <array>
#include <memory>

#include "driver/slots.h"

namespace kolmfluxor::fuzz {
namespace {

constexpr ULONG kGet = 1;
constexpr ULONG kSet = 2;

/// Where an output comes from: a word at an offset, or a flag of the word at 28.
struct Source {
    bool isFlag;
    ULONG at;
};
constexpr Source W(ULONG offset) {
    return {false, offset};
}
constexpr Source F(ULONG bit) {
    return {true, bit};
}

using Arguments = std::array<ULONG, 16>;

struct DirectSlot {
    const char* name;
    HRESULT (*call)(IKolmFluxorPropertySet& set, const Arguments& a, const COutputs& o);
    ULONG flags;
    ULONG id;
    std::vector<ULONG> in{};    ///< places of the first arguments
    std::vector<Source> out{};  ///< in the order of the outputs
    ULONG size = 64;
    ULONG (*word)(const Arguments& a) = nullptr;  ///< the word at 28, made of the arguments after those
};

ULONG FromAnswer(const Request& answer, const Source& source) {
    if (!source.isFlag) return answer.Word(source.at);
    const ULONG word = answer.Word(28);
    if (source.at == 0x8) return (word & 0x8) != 0 || answer.Word(44) == 1 ? 1 : 0;
    if (source.at == 0x40000000) return (word & 0x800) != 0 ? 1 : 0;
    return (word & source.at) != 0 ? 1 : 0;
}

void Run(const DirectSlot& slot, const Call& call) {
    Arguments a{};
    const std::size_t count = slot.in.size() + (slot.word != nullptr ? 6 : 3);
    for (std::size_t i = 0; i < count; ++i)
        a.at(i) = call.input.Number();
    const COutputs outputs = call.Outputs(slot.out.size());

    const HRESULT hr = slot.call(call.set, a, outputs);

    std::vector<ULONG> expected(slot.out.size(), kPoison);
    if (outputs.HasNull()) return call.Expect(hr, E_POINTER, outputs, expected);
    std::vector<std::byte> payload(slot.size - sizeof(KSPROPERTY));
    const auto put = [&payload](ULONG offset, ULONG word) {
        std::memcpy(payload.data() + offset - sizeof(KSPROPERTY), &word, sizeof word);
    };
    for (std::size_t i = 0; i < slot.in.size(); ++i)
        put(slot.in[i], a.at(i));
    if (slot.word != nullptr) put(28, slot.word(a));
    const Request& request = call.wire.Next(slot.flags, slot.id, payload);
    if (SUCCEEDED(request.code)) {
        std::ranges::transform(slot.out, expected.begin(),
                               [&](const Source& source) { return FromAnswer(request, source); });
    }
    call.Expect(hr, request.code, outputs, expected);
}

/// On, a second flag and one of three actions: each counts when exactly 1.
ULONG SwitchWord(const Arguments& a) {
    ULONG word = a[1] == 1 ? 0x2 : 0x4;
    if (a[2] == 1) word |= 0x80;
    if (a[3] == 1) return word | 0x8000;
    if (a[4] == 1) return word | 0x100;
    if (a[5] == 1) return word | 0x800;
    return word;
}

ULONG Word30(const Arguments& a) {
    return (a[1] != 0 ? 0x2U : 0x4U) | (a[2] != 0 ? 0x80U : 0U) | (a[3] != 0 ? 0x2000U : 0U);
}

ULONG LutControlWord(const Arguments& a) {
    return a[1] != 0 ? 0x2 : 0x4;
}

ULONG TriggerWord(const Arguments& a) {
    return a[1] | (a[2] == 1 ? 0x20U : 0U) | (a[3] == 1 ? 0x40U : 0U);
}

BOOL B(ULONG argument) {
    return static_cast<BOOL>(argument);
}

#define CALL(...)                                                                                            \
    [](IKolmFluxorPropertySet& s, [[maybe_unused]] const Arguments& a, [[maybe_unused]] const COutputs& o) { \
        return s.__VA_ARGS__;                                                                                \
    }

// clang-format off
const DirectSlot kSlots[] = {
    {"GetTestImage", CALL(GetTestImage(o.W(0))), kGet, 3, {}, {W(24)}},
    {"SetTestImage", CALL(SetTestImage(a[0])), kSet, 3, {24}},
    {"GetTestImageInquiry", CALL(GetTestImageInquiry(o.W(0))), kGet, 3, {}, {W(32)}},
    {"WriteRegister", CALL(WriteRegister(a[0], a[1])), kSet, 11, {24, 28}, {}, 32},
    {"GetProperty12Value", CALL(GetProperty12Value(o.W(0))), kGet, 12, {}, {W(28)}, 32},
    {"GetFormat7Info", CALL(GetFormat7Info(a[0], o.W(0), o.W(1), o.W(2), o.W(3), o.W(4), o.W(5), o.W(6), o.W(7), o.W(8), o.W(9), o.W(10))), kGet, 13, {28}, {W(48), W(52), W(56), W(60), W(64), W(72), W(76), W(80), W(84), W(68), W(32)}, 96},
    {"SetProperty14", CALL(SetProperty14(a[0])), kSet, 14, {28}, {}, 96},
    {"GetProperty14", CALL(GetProperty14(o.W(0), o.W(1))), kGet, 14, {}, {W(28), W(44)}, 96},
    {"SelectFormat7Mode", CALL(SelectFormat7Mode(a[0])), kSet, 15, {28}, {}, 96},
    {"SetProperty16", CALL(SetProperty16(a[0])), kSet, 16, {24}, {}, 32},
    {"GetProperty16", CALL(GetProperty16(o.W(0))), kGet, 16, {}, {W(24)}, 32},
    {"SetProperty17", CALL(SetProperty17(a[0], a[1], a[2], a[3], a[4], a[5], a[6], a[7], a[8])), kSet, 17, {28, 48, 52, 56, 60, 68, 32, 64}, {}, 96},
    {"CalculateProperty20", CALL(CalculateProperty20(a[0], a[1], a[2], a[3], a[4], a[5], o.W(0), o.W(1))), kSet, 20, {28, 68, 48, 52, 56, 60}, {W(88), W(92)}, 96},
    {"GetProperty24", CALL(GetProperty24(o.W(0), o.W(1))), kGet, 24, {}, {W(36), W(40)}},
    {"SetProperty24", CALL(SetProperty24(a[0], a[1])), kSet, 24, {36, 40}},
    {"GetProperty25", CALL(GetProperty25(o.W(0), o.W(1))), kGet, 25, {}, {W(36), W(40)}},
    {"SetProperty25", CALL(SetProperty25(a[0], a[1])), kSet, 25, {36, 40}},
    {"GetProperty26", CALL(GetProperty26(o.W(0), o.W(1), o.W(2), o.W(3), o.W(4), o.W(5))), kGet, 26, {}, {W(28), W(24), W(32), W(36), W(40), W(44)}, 48},
    {"SetProperty26", CALL(SetProperty26(a[0], a[1], a[2], a[3], a[4], a[5])), kSet, 26, {28, 24, 32, 36, 40, 44}, {}, 48},
    {"GetProperty28", CALL(GetProperty28(o.W(0))), kGet, 28, {}, {W(24)}},
    {"ExecuteProperty28", CALL(ExecuteProperty28()), kSet, 28},
    {"ExecuteProperty29", CALL(ExecuteProperty29()), kSet, 29},
    {"GetProperty30", CALL(GetProperty30(o.B(0), o.B(1), o.B(2), o.B(3), o.B(4), o.W(5))), kGet, 30, {}, {F(0x2), F(0x80), F(0x2000), F(0x1000), F(0x40), W(24)}},
    {"SetProperty30", CALL(SetProperty30(B(a[1]), B(a[2]), B(a[3]), a[4], a[5], a[0])), kSet, 30, {24}, {}, 64, Word30},
    {"GetLutControl", CALL(GetLutControl(o.B(0), o.W(1), o.W(2), o.W(3))), kGet, 31, {}, {F(0x2), W(24), W(40), W(36)}},
    {"SetLutControl", CALL(SetLutControl(a[1], a[0])), kSet, 31, {24}, {}, 64, LutControlWord},
    {"SetProperty32", CALL(SetProperty32(B(a[1]), B(a[2]), B(a[3]), B(a[4]), B(a[5]), a[0])), kSet, 32, {24}, {}, 64, SwitchWord},
    {"GetProperty32", CALL(GetProperty32(o.B(0), o.B(1), o.B(2), o.B(3), o.W(4))), kGet, 32, {}, {F(0x2), F(0x80), F(0x4000), F(0x40), W(24)}},
    {"SetProperty33", CALL(SetProperty33(B(a[1]), B(a[2]), B(a[3]), B(a[4]), B(a[5]), a[0])), kSet, 33, {24}, {}, 64, SwitchWord},
    {"GetProperty33", CALL(GetProperty33(o.B(0), o.B(1), o.B(2), o.B(3), o.W(4))), kGet, 33, {}, {F(0x2), F(0x80), F(0x4000), F(0x40), W(24)}},
    {"SetProperty34", CALL(SetProperty34(a[1], a[0])), kSet, 34, {24}},
    {"GetProperty34", CALL(GetProperty34(o.B(0), o.W(1), o.W(2))), kGet, 34, {}, {F(0x2), W(24), W(40)}},
    {"SetProperty39", CALL(SetProperty39(a[1], a[0])), kSet, 39, {24}},
    {"GetProperty39", CALL(GetProperty39(o.B(0), o.W(1))), kGet, 39, {}, {F(0x2), W(24)}},
    {"SetProperty40", CALL(SetProperty40(a[1], a[0])), kSet, 40, {24}},
    {"GetProperty40", CALL(GetProperty40(o.B(0), o.W(1))), kGet, 40, {}, {F(0x2), W(24)}},
    {"SetProperty41", CALL(SetProperty41(a[1], a[0])), kSet, 41, {24}},
    {"GetProperty41", CALL(GetProperty41(o.B(0), o.W(1))), kGet, 41, {}, {F(0x2), W(24)}},
    {"SetProperty42", CALL(SetProperty42(a[1], a[2], a[3], a[0])), kSet, 42, {24}},
    {"GetProperty42", CALL(GetProperty42(o.B(0), o.B(1), o.B(2), o.W(3), o.W(4))), kGet, 42, {}, {F(0x8), F(0x40000000), F(0x80000000), W(24), W(36)}},
    {"GetProperty51", CALL(GetProperty51(o.W(0))), kGet, 51, {}, {W(24)}},
    {"GetProperty52", CALL(GetProperty52(a[0], o.W(0), o.W(1), o.W(2), o.W(3))), kGet, 52, {24}, {W(28), W(36), W(40), W(44)}, 48},
    {"SetTrigger", CALL(SetTrigger(a[1], a[2], a[3], a[0])), kSet, 53, {24}, {}, 64, TriggerWord},
    {"GetIsoSpeed", CALL(GetIsoSpeed(o.W(0))), kGet, 54, {}, {W(24)}},
    {"GetIsoSpeedRange", CALL(GetIsoSpeedRange(o.W(0), o.W(1))), kGet, 54, {}, {W(36), W(40)}},
    {"SetIsoSpeed", CALL(SetIsoSpeed(a[0])), kSet, 54, {24}},
    {"GetProperty61", CALL(GetProperty61(o.W(0))), kGet, 61, {}, {W(24)}},
    {"SetProperty61", CALL(SetProperty61(a[0])), kSet, 61, {24}},
};
// clang-format on

}  // namespace

std::vector<Slot> DirectSlots() {
    std::vector<Slot> slots;
    for (const DirectSlot& slot : kSlots)
        slots.push_back({slot.name, [&slot](const Call& call) { Run(slot, call); }});
    return slots;
}

}  // namespace kolmfluxor::fuzz
