#pragma once
/// @file  The GP buffer and the memories behind it: lookup tables and shading data.
///
/// Whatever is written to the GP buffer goes on into the memory that is open for writing, at its address offset, which
/// advances. A memory closes by itself where it has no room. Bytes are in bus order: the highest byte of a word first.

#include <cstdint>
#include <span>

#include "model/camera_state.h"
#include "model/record.h"
#include "model/status.h"

namespace kolmsim {

/// Whether an address is a whole word of the GP buffer.
[[nodiscard]] bool IsInWindow(std::uint32_t address);

[[nodiscard]] std::uint32_t ReadWindowWord(const CameraState& state, std::uint32_t address);
void WriteWindowWord(CameraState& state, std::uint32_t address, std::uint32_t word);

/// Offsets in the record of a block transfer.
inline constexpr std::size_t kOffsetBlockAddress = 24;
inline constexpr std::size_t kOffsetBlockControl = 28;
inline constexpr std::size_t kOffsetBlockBytes = 32;
inline constexpr std::size_t kOffsetBlockData = 36;

/// Answers a block transfer (driver id 62) in place; the record's size has been checked against its count of bytes.
///
/// A SET takes the control word 0x11, a GET takes 0x11 or 0x12 and may add 0x10000; the bytes are the same. Address and
/// count are multiples of 4, and all of the block lies in the GP buffer or on registers, else invalidAddress; nothing
/// is written then. A block of no bytes is answered as it is.
[[nodiscard]] Status AnswerBlock(CameraState& state, Record record);

/// Registers that open the memories and tell what they are.
[[nodiscard]] std::uint32_t ReadLutMemoryControl(const CameraState& state, std::uint32_t address);
void WriteLutMemoryControl(CameraState& state, std::uint32_t address, std::uint32_t word);
[[nodiscard]] std::uint32_t ReadLutInfo(const CameraState& state, std::uint32_t address);
[[nodiscard]] std::uint32_t ReadShadingMemoryControl(const CameraState& state, std::uint32_t address);
void WriteShadingMemoryControl(CameraState& state, std::uint32_t address, std::uint32_t word);

}  // namespace kolmsim
