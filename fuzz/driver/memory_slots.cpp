/// @file  Registers, blocks, and uploads through the GP buffer.

#include <algorithm>

#include "driver/slots.h"

namespace kolmfluxor::fuzz {
namespace {

constexpr ULONG kRegister = 11;
constexpr ULONG kBlock = 62;
constexpr ULONG kBlockHeader = 36;
constexpr ULONG kEnableWrite = 1U << 26;

/// A register's value as a read tells it: all ones after a failure.
struct Value {
    HRESULT hr;
    ULONG word;
};

Value ReadRegister(CConversation& wire, ULONG address) {
    const Request& request = wire.Get(kRegister, {{24, address}}, 32);
    return {request.code, SUCCEEDED(request.code) ? request.Word(28) : 0xFFFFFFFF};
}

HRESULT WriteRegister(CConversation& wire, ULONG address, ULONG word) {
    return wire.Set(kRegister, {{24, address}, {28, word}}, 32).code;
}

void ReadRegisterSlot(const Call& c) {
    const ULONG address = c.input.Number();
    const COutputs o = c.Outputs(1);
    const HRESULT hr = c.set.ReadRegister(address, o.W(0));
    if (o.HasNull()) return c.Expect(hr, E_POINTER, o, {kPoison});
    const Value value = ReadRegister(c.wire, address);
    c.Expect(hr, value.hr, o, {value.word});
}

// ---- Blocks

/// The payload of a block request.
std::vector<std::byte> BlockPayload(ULONG address, ULONG control, std::span<const std::byte> data) {
    const ULONG words[] = {address, control, static_cast<ULONG>(data.size())};
    const auto head = std::as_bytes(std::span(words));
    std::vector<std::byte> payload(head.begin(), head.end());
    payload.insert(payload.end(), data.begin(), data.end());
    return payload;
}

std::vector<std::byte> Swapped(std::span<const std::byte> data, std::size_t elementBytes) {
    std::vector<std::byte> swapped(data.begin(), data.end());
    for (std::size_t i = 0; i < swapped.size(); ++i)
        swapped[i] = data[i / elementBytes * elementBytes + elementBytes - 1 - i % elementBytes];
    return swapped;
}

/// A count of quadlets that is small, or whose record has no size in 32 bits.
ULONG BlockCount(CFuzzInput& input) {
    const std::uint8_t choice = input.Byte();
    if (choice < 240) return choice;
    return choice < 250 ? (choice - 239U) * 400 : std::max(input.Word(), 0x3FFFFFF7U);
}

/// Words that differ, as many as there are, but no more than any block may have.
std::vector<ULONG> Data(CFuzzInput& input, ULONG quadlets) {
    constexpr ULONG kMost = 16'384;
    std::vector<ULONG> data(std::min(quadlets, kMost));
    data.shrink_to_fit();
    ULONG word = input.Byte() * 0x01010101U;
    for (ULONG& one : data)
        one = word += 0x01030507;
    return data;
}

/// Where the data are; a valid place for none, too.
ULONG* PlaceOf(std::vector<ULONG>& data) {
    static ULONG nothing = 0;
    return data.empty() ? &nothing : data.data();
}

void WriteBlock(const Call& c) {
    const ULONG address = c.input.Number();
    const ULONG quadlets = BlockCount(c.input);
    std::vector<ULONG> data = Data(c.input, quadlets);
    const ULONG widths[] = {8, 16, 32, c.input.Number()};
    const ULONG bits = widths[c.input.Byte() % 4];
    const ULONG mode = c.input.Number();
    const bool null = c.input.Byte() > 250;

    const HRESULT hr = c.set.WriteBlock(address, null ? nullptr : PlaceOf(data), quadlets, bits, mode);

    if (null) return c.Expect(hr, E_POINTER);
    if (quadlets > 0x3FFFFFF6) return c.Expect(hr, E_INVALIDARG);
    const auto bytes = std::as_bytes(std::span(data));
    const std::size_t element = mode == 1 && (bits == 16 || bits == 32) ? bits / 8 : 1;
    c.Expect(hr, c.wire.Next(2, kBlock, BlockPayload(address, 17, Swapped(bytes, element))).code);
}

void ReadBlock(const Call& c) {
    const ULONG address = c.input.Number();
    const ULONG quadlets = BlockCount(c.input);
    std::vector<ULONG> data = Data(c.input, quadlets);
    const std::vector<ULONG> before = data;
    const ULONG bits = c.input.Number();
    const ULONG mode = c.input.Number();
    const ULONG flag = c.input.Number();
    const bool null = c.input.Byte() > 250;

    const HRESULT hr = c.set.ReadBlock(address, null ? nullptr : PlaceOf(data), quadlets, bits, mode, flag);

    if (null) return c.Expect(hr, E_POINTER);
    if (quadlets > 0x3FFFFFF6) return c.Expect(hr, E_INVALIDARG);
    const ULONG control = (mode == 1 ? 18 : 17) + (flag == 1 ? 0x10000 : 0);
    const std::vector<std::byte> nothing(quadlets * std::size_t{4});
    const Request& request = c.wire.Next(1, kBlock, BlockPayload(address, control, nothing));
    const auto answered = std::span(request.answered).subspan(kBlockHeader);
    c.wire.Expect(
        SUCCEEDED(request.code) ? std::ranges::equal(std::as_bytes(std::span(data)), answered) : data == before,
        "the data are the answer's, or untouched after a failure");
    c.Expect(hr, request.code);
}

// ---- Uploads

struct Memory {
    ULONG control;  ///< address of the register
    std::size_t elementBytes;
};

HRESULT PlainUpload(CConversation& wire, const Memory& memory, ULONG control, std::span<const ULONG> data,
                    ULONG blockQuadlets) {
    HRESULT hr = WriteRegister(wire, memory.control, control | kEnableWrite);
    if (FAILED(hr)) return hr;
    while (!data.empty()) {
        const auto block = data.first(std::min<std::size_t>(blockQuadlets, data.size()));
        data = data.subspan(block.size());
        const auto bytes = Swapped(std::as_bytes(block), memory.elementBytes);
        wire.Next(2, kBlock, BlockPayload(0xF1001000, 17, bytes));
        const Value state = ReadRegister(wire, memory.control);
        if (FAILED(state.hr)) return state.hr;
        if ((state.word & kEnableWrite) == 0) break;
    }
    return WriteRegister(wire, memory.control, control & ~kEnableWrite);
}

HRESULT PlainUploadLut(CConversation& wire, std::span<const ULONG> data, ULONG quadlets, ULONG number) {
    const Value buffer = ReadRegister(wire, 0xF1000FFC);
    if (FAILED(buffer.hr)) return buffer.hr;
    const ULONG blockQuadlets = buffer.word % 0x10000 / 4;
    if (blockQuadlets == 0) return E_FAIL;
    const Value lutControl = ReadRegister(wire, 0xF1000240);
    if (FAILED(lutControl.hr)) return lutControl.hr;
    const Value info = ReadRegister(wire, 0xF1000248);
    if (FAILED(info.hr)) return info.hr;
    if (quadlets > info.word % 0x10000 / 4) return E_INVALIDARG;
    if (number > info.word / 0x10000 % 0x100) return E_INVALIDARG;
    const ULONG bits = info.word / 0x1000000 % 0x20;
    if (bits > 16) return E_FAIL;

    const Value before = ReadRegister(wire, 0xF1000244);
    const ULONG control = (before.word & 0xFF000000) | number << 16;
    const Memory memory{.control = 0xF1000244, .elementBytes = bits > 8 ? std::size_t{2} : std::size_t{1}};
    const HRESULT hr = PlainUpload(wire, memory, control, data.first(quadlets), blockQuadlets);
    return FAILED(hr) ? hr : WriteRegister(wire, 0xF1000240, lutControl.word);
}

HRESULT PlainUploadShading(CConversation& wire, std::span<const ULONG> data, ULONG quadlets) {
    const Value buffer = ReadRegister(wire, 0xF1000FFC);
    if (FAILED(buffer.hr)) return buffer.hr;
    const ULONG blockQuadlets = buffer.word % 0x10000 / 4;
    if (blockQuadlets == 0) return E_FAIL;
    const Value info = ReadRegister(wire, 0xF1000258);
    if (FAILED(info.hr)) return info.hr;
    if (quadlets > info.word % 0x1000000 / 4) return E_INVALIDARG;
    const Value before = ReadRegister(wire, 0xF1000254);
    const Memory memory{.control = 0xF1000254, .elementBytes = 1};
    return PlainUpload(wire, memory, before.word & 0xFF000000, data.first(quadlets), blockQuadlets);
}

/// A count of quadlets that is small, as large as a table can be, or larger than any camera's memory; some of these
/// have a size in bytes that looks small in 32 bits.
ULONG UploadCount(CFuzzInput& input) {
    const std::uint8_t choice = input.Byte();
    if (choice < 250) return choice;
    if (choice == 250) return 16'383;
    return choice < 253 ? 0x40000000U + input.Byte() : std::max(input.Word(), 0x400000U);
}

void UploadLut(const Call& c) {
    const ULONG quadlets = UploadCount(c.input);
    std::vector<ULONG> data = Data(c.input, quadlets);
    const ULONG number = c.input.Number();
    const bool null = c.input.Byte() > 250;
    const HRESULT hr = c.set.UploadLut(null ? nullptr : PlaceOf(data), quadlets, number);
    c.Expect(hr, null ? E_POINTER : PlainUploadLut(c.wire, data, quadlets, number));
}

void UploadShading(const Call& c) {
    const ULONG quadlets = UploadCount(c.input);
    std::vector<ULONG> data = Data(c.input, quadlets);
    const std::vector<ULONG> before = data;
    const bool null = c.input.Byte() > 250;
    const HRESULT hr = c.set.SetRegisterComposite73(null ? nullptr : PlaceOf(data), quadlets);
    c.Expect(hr, null ? E_POINTER : PlainUploadShading(c.wire, data, quadlets));
    c.wire.Expect(data == before, "an upload leaves the caller's data alone");
}

void ShadingInfo(const Call& c) {
    const COutputs o = c.Outputs(2);
    const HRESULT hr = c.set.GetRegisterComposite72(o.W(0), o.W(1));
    if (o.HasNull()) return c.Expect(hr, E_POINTER, o, {kPoison, kPoison});
    const Value info = ReadRegister(c.wire, 0xF1000258);
    if (FAILED(info.hr)) return c.Expect(hr, info.hr, o, {kPoison, kPoison});
    c.Expect(hr, info.hr, o, {info.word >> 24 & 0xF, info.word % 0x1000000 / 4});
}

/// One word of several: the selector's, with what three registers tell.
void Composite56(const Call& c) {
    const ULONG selector = c.input.Number();
    const COutputs o = c.Outputs(1);
    const HRESULT hr = c.set.GetProperty56Composite(selector, o.W(0));
    if (o.HasNull()) return c.Expect(hr, E_POINTER, o, {kPoison});
    const ULONG features = ReadRegister(c.wire, 0xF1000040).word;
    const ULONG version1 = ReadRegister(c.wire, 0xF1000010).word;
    const ULONG version3 = ReadRegister(c.wire, 0xF1000018).word;
    const Request& request = c.wire.Get(56, {{24, selector}, {36, features}, {40, version1}, {44, version3}});
    c.Expect(hr, request.code, o, {SUCCEEDED(request.code) ? request.Word(28) : kPoison});
}

}  // namespace

std::vector<Slot> MemorySlots() {
    return {
        {"ReadRegister", ReadRegisterSlot},
        {"WriteBlock", WriteBlock},
        {"ReadBlock", ReadBlock},
        {"UploadLut", UploadLut},
        {"SetRegisterComposite73", UploadShading},
        {"GetRegisterComposite72", ShadingInfo},
        {"GetProperty56Composite", Composite56},
    };
}

}  // namespace kolmfluxor::fuzz
