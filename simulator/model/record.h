#pragma once
/// @file  A driver request as it travels: a header, then 32-bit little-endian words.
///
/// The layout is written down here a second time on purpose. The simulated camera shares no declaration with the module
/// that talks to it, so an offset that is wrong on one side shows.

#include <array>
#include <cstddef>
#include <cstdint>
#include <span>

namespace kolmsim {

/// Bytes of the vendor property set {BE226229-D865-4F2E-AB89-13F359E8F46A} in memory order.
inline constexpr std::array<std::uint8_t, 16> kPropertySet = {0x29, 0x62, 0x22, 0xBE, 0x65, 0xD8, 0x2E, 0x4F,
                                                              0xAB, 0x89, 0x13, 0xF3, 0x59, 0xE8, 0xF4, 0x6A};

/// Direction of a request, the header's Flags word.
enum class Direction : std::uint32_t { get = 1, set = 2 };

/// Offsets in the header, in bytes.
inline constexpr std::size_t kOffsetId = 16;
inline constexpr std::size_t kOffsetFlags = 20;
inline constexpr std::size_t kHeaderBytes = 24;

/// Offsets in the 64-byte feature record, in bytes from its start.
inline constexpr std::size_t kOffsetValue = 24;
inline constexpr std::size_t kOffsetMode = 28;
inline constexpr std::size_t kOffsetModeCaps = 32;
inline constexpr std::size_t kOffsetMin = 36;
inline constexpr std::size_t kOffsetMax = 40;
inline constexpr std::size_t kOffsetAutoOn = 44;
inline constexpr std::size_t kOffsetExtra1 = 48;
inline constexpr std::size_t kOffsetOnePushOn = 52;
inline constexpr std::size_t kOffsetExtra2 = 56;
inline constexpr std::size_t kOffsetExtra3 = 60;
inline constexpr std::size_t kFeatureRecordBytes = 64;

/// Offsets in the 32-byte register record.
inline constexpr std::size_t kOffsetRegisterAddress = 24;
inline constexpr std::size_t kOffsetRegisterValue = 28;
inline constexpr std::size_t kRegisterRecordBytes = 32;

/// Mode bits on the wire.
inline constexpr std::uint32_t kModeManual = 0x2;
inline constexpr std::uint32_t kModeOff = 0x4;
inline constexpr std::uint32_t kModeAuto = 0x8;
inline constexpr std::uint32_t kModeOnePush = 0x10;
inline constexpr std::uint32_t kModeBusy = 0x40;
inline constexpr std::uint32_t kModeShowImage = 0x80;
inline constexpr std::uint32_t kModeLoadData = 0x100;
inline constexpr std::uint32_t kModeSaveData = 0x200;
inline constexpr std::uint32_t kModeClearData = 0x400;

/// The little-endian word at a byte offset; the four bytes must lie inside.
[[nodiscard]] constexpr std::uint32_t ReadWord(std::span<const std::uint8_t> bytes, std::size_t offset) {
    std::uint32_t word = 0;
    for (std::size_t i = 0; i < 4; ++i) {
        word |= std::uint32_t{bytes[offset + i]} << (8 * i);
    }
    return word;
}

/// View of one request's bytes; copying it copies the view.
class Record {
public:
    explicit Record(std::span<std::uint8_t> bytes) : m_bytes(bytes) {}

    [[nodiscard]] std::size_t Size() const { return m_bytes.size(); }
    [[nodiscard]] std::span<std::uint8_t> Bytes() const { return m_bytes; }

    /// The word at a byte offset; the four bytes must lie inside the record.
    [[nodiscard]] std::uint32_t Word(std::size_t offset) const { return ReadWord(m_bytes, offset); }

    void SetWord(std::size_t offset, std::uint32_t word) const {
        for (std::size_t i = 0; i < 4; ++i) {
            m_bytes[offset + i] = static_cast<std::uint8_t>(word >> (8 * i));
        }
    }

    [[nodiscard]] std::uint32_t Id() const { return Word(kOffsetId); }
    [[nodiscard]] std::uint32_t Flags() const { return Word(kOffsetFlags); }
    [[nodiscard]] bool IsSet() const { return Flags() == static_cast<std::uint32_t>(Direction::set); }

private:
    std::span<std::uint8_t> m_bytes;
};

}  // namespace kolmsim
