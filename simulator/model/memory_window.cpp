#include "model/memory_window.h"

#include <algorithm>

#include "model/bits.h"
#include "model/register_map.h"
#include "model/register_memory.h"

namespace kolmsim {
namespace {

constexpr std::uint32_t kLutNumberId = 31;
constexpr std::uint32_t kLutBitsId = 63;

constexpr unsigned kEnableWrite = 26;
constexpr unsigned kEnableRead = 25;

constexpr std::uint32_t kBlockTransfer = 0x11;
constexpr std::uint32_t kOtherBlockTransfer = 0x12;
constexpr std::uint32_t kBlockReadFlag = 0x10000;

bool IsOpen(const CameraState& state, OpenMemory memory) {
    return state.window.memory == static_cast<std::uint32_t>(memory);
}

void Open(CameraState& state, OpenMemory memory) {
    state.window.memory = static_cast<std::uint32_t>(memory);
}

/// Stores what fits behind `offset`, which advances, and tells whether all did.
bool Append(std::span<std::uint8_t> memory, std::uint32_t& offset, std::span<const std::uint8_t> bytes) {
    const std::size_t room = offset < memory.size() ? memory.size() - offset : 0;
    const std::size_t count = std::min(room, bytes.size());
    std::copy_n(bytes.begin(), count, memory.begin() + static_cast<std::ptrdiff_t>(memory.size() - room));
    offset += static_cast<std::uint32_t>(count);
    return count == bytes.size();
}

/// Bytes on their way into the memory that is open.
void PassOn(CameraState& state, std::span<const std::uint8_t> bytes) {
    WindowState& window = state.window;
    bool fits = true;
    if (IsOpen(state, OpenMemory::lut)) {
        fits = window.lutNumber < kLutCount && Append(state.lutMemory[window.lutNumber], window.lutOffset, bytes);
    } else if (IsOpen(state, OpenMemory::shading)) {
        fits = Append(state.shadingMemory, window.shadingOffset, bytes);
    }
    if (!fits) {
        Open(state, OpenMemory::none);
    }
}

/// Fills the GP buffer with the shading data that a read of `count` bytes fetches.
void FetchShading(CameraState& state, std::size_t count) {
    std::uint32_t& offset = state.window.shadingOffset;
    if (state.window.shadingRead == 0 || offset >= kShadingBytes) {
        return;
    }
    const std::size_t fetched = std::min({count, kShadingBytes - offset, kGpBufferBytes});
    std::copy_n(state.shadingMemory.begin() + static_cast<std::ptrdiff_t>(offset), fetched, state.gpBuffer.begin());
    offset += static_cast<std::uint32_t>(fetched);
}

std::uint32_t FromBusOrder(std::span<const std::uint8_t> bytes) {
    return std::uint32_t{bytes[0]} << 24 | std::uint32_t{bytes[1]} << 16 | std::uint32_t{bytes[2]} << 8 | bytes[3];
}

void ToBusOrder(std::uint32_t word, std::span<std::uint8_t> bytes) {
    for (std::size_t i = 0; i < 4; ++i) {
        bytes[i] = static_cast<std::uint8_t>(word >> (24 - 8 * i));
    }
}

/// Whether a block lies on the GP buffer alone.
bool LiesInWindow(std::uint32_t address, std::size_t count) {
    return address >= kGpBuffer && address - kGpBuffer <= kGpBufferBytes &&
           count <= kGpBufferBytes - (address - kGpBuffer);
}

bool LiesOnRegisters(const CameraState& state, std::uint32_t address, std::size_t count) {
    // No run of registers is longer than this, so no address can wrap around.
    constexpr std::size_t kLongestRun = 0x1000;
    if (count > kLongestRun) {
        return false;
    }
    for (std::uint32_t i = 0; i < count; i += 4) {
        if (!ReadRegister(state, address + i)) {
            return false;
        }
    }
    return true;
}

bool IsControlWord(std::uint32_t word, bool isSet) {
    if (isSet) {
        return word == kBlockTransfer;
    }
    const std::uint32_t kind = word & ~kBlockReadFlag;
    return kind == kBlockTransfer || kind == kOtherBlockTransfer;
}

}  // namespace

bool IsInWindow(std::uint32_t address) {
    return address % 4 == 0 && address >= kGpBuffer && address - kGpBuffer < kGpBufferBytes;
}

std::uint32_t ReadWindowWord(const CameraState& state, std::uint32_t address) {
    return FromBusOrder(std::span(state.gpBuffer).subspan(address - kGpBuffer, 4));
}

void WriteWindowWord(CameraState& state, std::uint32_t address, std::uint32_t word) {
    const auto bytes = std::span(state.gpBuffer).subspan(address - kGpBuffer, 4);
    ToBusOrder(word, bytes);
    PassOn(state, bytes);
}

Status AnswerBlock(CameraState& state, Record record) {
    const std::uint32_t address = record.Word(kOffsetBlockAddress);
    const std::span<std::uint8_t> data = record.Bytes().subspan(kOffsetBlockData);
    if (!IsControlWord(record.Word(kOffsetBlockControl), record.IsSet()) || data.size() % 4 != 0) {
        return Status::invalidParameter;
    }
    if (address % 4 != 0) {
        return Status::invalidAddress;
    }
    if (LiesInWindow(address, data.size())) {
        const auto buffer = std::span(state.gpBuffer).subspan(address - kGpBuffer, data.size());
        if (record.IsSet()) {
            std::ranges::copy(data, buffer.begin());
            PassOn(state, data);
        } else {
            FetchShading(state, data.size());
            std::ranges::copy(buffer, data.begin());
        }
        return Status::ok;
    }
    if (!LiesOnRegisters(state, address, data.size())) {
        return Status::invalidAddress;
    }
    for (std::uint32_t i = 0; i < data.size(); i += 4) {
        const auto bytes = data.subspan(i, 4);
        if (record.IsSet()) {
            WriteRegister(state, address + i, FromBusOrder(bytes));
        } else {
            LookAtRegister(state, address + i);
            ToBusOrder(*ReadRegister(state, address + i), bytes);
        }
    }
    return Status::ok;
}

std::uint32_t ReadLutMemoryControl(const CameraState& state, std::uint32_t /*address*/) {
    return BitIf(true, kPresence) | BitIf(IsOpen(state, OpenMemory::lut), kEnableWrite) |
           Place(state.window.lutNumber, 23, 16) | Place(state.window.lutOffset, 15, 0);
}

void WriteLutMemoryControl(CameraState& state, std::uint32_t /*address*/, std::uint32_t word) {
    WindowState& window = state.window;
    window.lutNumber = Field(word, 23, 16);
    window.lutOffset = Field(word, 15, 0);
    const bool exists = window.lutNumber < kLutCount && window.lutOffset < kLutBytes;
    if (Bit(word, kEnableWrite) && exists) {
        Open(state, OpenMemory::lut);
    } else if (IsOpen(state, OpenMemory::lut)) {
        Open(state, OpenMemory::none);
    }
}

std::uint32_t ReadLutInfo(const CameraState& state, std::uint32_t /*address*/) {
    const PropertyState& luts = state.properties[kLutNumberId];
    return BitIf(true, kPresence) | Place(state.properties[kLutBitsId].At(kOffsetValue), 28, 24) |
           Place(luts.At(kOffsetMax), 23, 16) | Place(luts.At(kOffsetMin), 15, 0);
}

std::uint32_t ReadShadingMemoryControl(const CameraState& state, std::uint32_t /*address*/) {
    return BitIf(true, kPresence) | BitIf(IsOpen(state, OpenMemory::shading), kEnableWrite) |
           BitIf(state.window.shadingRead != 0, kEnableRead) | Place(state.window.shadingOffset, 23, 0);
}

void WriteShadingMemoryControl(CameraState& state, std::uint32_t /*address*/, std::uint32_t word) {
    WindowState& window = state.window;
    window.shadingOffset = Field(word, 23, 0);
    const bool exists = window.shadingOffset < kShadingBytes;
    window.shadingRead = Bit(word, kEnableRead) && exists ? 1 : 0;
    if (Bit(word, kEnableWrite) && exists) {
        Open(state, OpenMemory::shading);
    } else if (IsOpen(state, OpenMemory::shading)) {
        Open(state, OpenMemory::none);
    }
}

}  // namespace kolmsim
