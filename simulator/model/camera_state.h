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

/// Highest block of shading data that the camera keeps, in bytes: one byte for 2 x 2 pixels of its sensor.
inline constexpr std::size_t kShadingBytes = std::size_t{640} * 480;

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

/// The word behind one register.
struct RegisterCell {
    std::uint32_t word;    ///< what is stored; registers that show something else leave it unused
    std::uint32_t forced;  ///< 1 when `word` is shown in place of what the register would show by itself
};

/// How many registers the memory has room for.
inline constexpr std::size_t kRegisterCells = 512;

/// How many scalable video modes (IIDC Format 7) the camera has.
inline constexpr std::size_t kFormat7Modes = 8;

/// What can be set of one scalable video mode.
struct Format7State {
    std::uint32_t left;
    std::uint32_t top;
    std::uint32_t width;
    std::uint32_t height;
    std::uint32_t colorCoding;  ///< an IIDC color coding id
    std::uint32_t bytesPerPacket;
    std::uint32_t refused;  ///< 1 after a register write that the mode does not allow
};

/// Which memory the camera has open behind its GP buffer.
enum class OpenMemory : std::uint32_t { none = 0, lut = 1, shading = 2 };

/// The window through which blocks reach the larger memories.
struct WindowState {
    std::uint32_t memory;       ///< an OpenMemory that may be written
    std::uint32_t lutNumber;    ///< as last written
    std::uint32_t lutOffset;    ///< bytes; where the next write goes
    std::uint32_t shadingRead;  ///< 1 when reads of the GP buffer give shading data
    std::uint32_t shadingOffset;
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

    std::array<RegisterCell, kRegisterCells> registers;  ///< in the order of the register table

    std::array<Format7State, kFormat7Modes> format7;
    std::uint32_t selectedFormat7Mode;  ///< the driver's own choice; the camera's is in its registers
    std::uint32_t triggeredPictures;    ///< pictures that triggers asked for and that are still to be taken

    WindowState window;
    std::array<std::uint8_t, kGpBufferBytes> gpBuffer;                     ///< from 0xF1001000
    std::array<std::array<std::uint8_t, kLutBytes>, kLutCount> lutMemory;  ///< 16-bit values, big-endian
    std::array<std::uint8_t, kShadingBytes> shadingMemory;                 ///< one byte for 2 x 2 pixels
};

static_assert(std::is_trivially_copyable_v<CameraState>);
static_assert(std::is_standard_layout_v<CameraState>);

inline constexpr std::uint32_t kStateMagic = 0x4D53464B;  // "KFSM"

/// Changes whenever the layout of CameraState or the meaning of a part of it does.
inline constexpr std::uint32_t kStateVersion = 3;

/// Puts a camera into the state in which it leaves the factory, whatever was there before.
void ResetState(CameraState& state, Variant variant);

/// Whether the block was made by this version for this variant; a block that fails must be reset before use.
[[nodiscard]] bool IsUsable(const CameraState& state, Variant variant);

}  // namespace kolmsim
