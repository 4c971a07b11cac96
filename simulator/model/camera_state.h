#pragma once
/// @file  All memory of one simulated camera, as one block that can live in a file.

#include <array>
#include <cstddef>
#include <cstdint>
#include <span>
#include <type_traits>

#include "model/feature_table.h"
#include "model/record.h"

namespace kolmsim {

/// Driver property ids are below this number.
inline constexpr std::size_t kPropertyIds = 66;

/// Size of the memory window through which blocks are transferred, in bytes.
inline constexpr std::size_t kGpBufferBytes = 2048;

/// Highest block of shading data that the camera keeps, in bytes: one byte per pixel of its sensor.
inline constexpr std::size_t kShadingBytes = 640 * 480;

/// One property with a 64-byte record: the record's words as the camera would answer them, and what moves them.
struct PropertyState {
    /// Words of the record behind its header, from byte offset 24 on.
    std::array<std::uint32_t, (kFeatureRecordBytes - kHeaderBytes) / 4> words;

    std::uint32_t present;       ///< 1 when this camera has the property, else 0
    std::uint32_t descends;      ///< an automatic mode is on its way down (1) or up (0)
    std::uint32_t onePushLooks;  ///< how many more looks a one-push adjustment takes

    [[nodiscard]] std::uint32_t& At(std::size_t recordOffset) { return words[(recordOffset - kHeaderBytes) / 4]; }
    [[nodiscard]] std::uint32_t At(std::size_t recordOffset) const { return words[(recordOffset - kHeaderBytes) / 4]; }
};

/// All memory of one camera.
///
/// Trivially copyable and without pointers, so that it can be mapped from a file and shared between processes; whoever
/// shares it brings the lock. Settings outlive a process as they would in a camera that stays powered.
struct CameraState {
    std::uint32_t magic;      ///< kStateMagic
    std::uint32_t version;    ///< kStateVersion
    std::uint32_t sizeBytes;  ///< sizeof(CameraState)
    std::uint32_t variant;    ///< a Variant

    std::array<PropertyState, kPropertyIds> properties;  ///< by driver id

    std::array<std::uint32_t, 0x1000 / 4> iidcRegisters;     ///< from 0xF0F00000
    std::array<std::uint32_t, 0x8000 / 4> format7Registers;  ///< from 0xF0F08000, 0x1000 bytes for each mode
    std::array<std::uint32_t, 0x1000 / 4> vendorRegisters;   ///< from 0xF1000000

    std::array<std::uint8_t, kGpBufferBytes> gpBuffer;                     ///< from 0xF1001000
    std::array<std::array<std::uint8_t, kLutBytes>, kLutCount> lutMemory;  ///< 16-bit values, big-endian
    std::array<std::uint8_t, kShadingBytes> shadingMemory;                 ///< one byte per pixel
};

static_assert(std::is_trivially_copyable_v<CameraState>);
static_assert(std::is_standard_layout_v<CameraState>);

inline constexpr std::uint32_t kStateMagic = 0x4D53464B;  // "KFSM"

/// Changes whenever the layout of CameraState or the meaning of a part of it does.
inline constexpr std::uint32_t kStateVersion = 1;

/// Puts a camera into the state in which it leaves the factory, whatever was there before.
void ResetState(CameraState& state, Variant variant);

/// Whether the block was made by this version for this variant; a block that fails must be reset before use.
[[nodiscard]] bool IsUsable(const CameraState& state, Variant variant);

}  // namespace kolmsim
