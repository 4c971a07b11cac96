#include "model/format7_registers.h"

#include <bit>

#include "model/bits.h"
#include "model/format7.h"
#include "model/register_map.h"

namespace kolmsim {
namespace {

/// Offsets inside a mode's registers.
namespace offset {
enum : std::uint32_t {
    kMaxImageSize = 0x00,
    kUnitSize = 0x04,
    kImagePosition = 0x08,
    kImageSize = 0x0C,
    kColorCodingId = 0x10,
    kColorCodingInquiry = 0x14,
    kPixelNumber = 0x34,
    kTotalBytesHigh = 0x38,
    kTotalBytesLow = 0x3C,
    kPacketInquiry = 0x40,
    kPacketBytes = 0x44,
    kPacketsPerFrame = 0x48,
    kUnitPosition = 0x4C,
    kFrameInterval = 0x50,
    kDataDepth = 0x54,
    kValueSetting = 0x7C,
};
}  // namespace offset

constexpr unsigned kErrorFlag = 23;

std::uint32_t ModeOf(std::uint32_t address) {
    return (address - kFormat7Base) / 0x1000;
}

std::uint32_t Halves(std::uint32_t high, std::uint32_t low) {
    return Place(high, 31, 16) | Place(low, 15, 0);
}

/// IIDC: seconds as a 32-bit floating-point number; a packet goes out each 125 us.
std::uint32_t FrameInterval(const Format7State& mode) {
    return std::bit_cast<std::uint32_t>(static_cast<float>(PacketsPerFrame(mode)) * 125e-6F);
}

std::uint32_t CodingInquiry(std::uint32_t mode, Variant variant) {
    std::uint32_t word = 0;
    for (const std::uint32_t coding : ColorCodings(mode, variant)) {
        word |= BitIf(true, 31 - coding);
    }
    return word;
}

}  // namespace

std::uint32_t ReadFormat7Address(const CameraState& /*state*/, std::uint32_t address) {
    constexpr std::uint32_t kSpace = 0xF0000000;
    const std::uint32_t mode = (address - kFormat7Address) / 4;
    return mode < kFormat7Modes ? (kFormat7Base + 0x1000 * mode - kSpace) / 4 : 0;
}

std::uint32_t ReadFormat7(const CameraState& state, std::uint32_t address) {
    if (ModeOf(address) >= kFormat7Modes) {
        return 0;
    }
    const Format7State& mode = state.format7[ModeOf(address)];
    const Format7Limits& limits = Format7LimitsOf(ModeOf(address));
    switch (address & 0xFFF) {
    case offset::kMaxImageSize:
        return Halves(limits.maxWidth, limits.maxHeight);
    case offset::kUnitSize:
        return Halves(limits.unitWidth, limits.unitHeight);
    case offset::kImagePosition:
        return Halves(mode.left, mode.top);
    case offset::kImageSize:
        return Halves(mode.width, mode.height);
    case offset::kColorCodingId:
        return Place(mode.colorCoding, 31, 24);
    case offset::kColorCodingInquiry:
        return CodingInquiry(ModeOf(address), static_cast<Variant>(state.variant));
    case offset::kPixelNumber:
        return mode.width * mode.height;
    case offset::kTotalBytesHigh:
        return static_cast<std::uint32_t>(Format7FrameBytes(mode) >> 32);
    case offset::kTotalBytesLow:
        return static_cast<std::uint32_t>(Format7FrameBytes(mode));
    case offset::kPacketInquiry:
        return Halves(kPacketUnitBytes, kLargestPacketBytes);
    case offset::kPacketBytes:
        return Halves(mode.bytesPerPacket, RecommendedPacketBytes(mode));
    case offset::kPacketsPerFrame:
        return PacketsPerFrame(mode);
    case offset::kUnitPosition:
        return Halves(limits.unitLeft, limits.unitTop);
    case offset::kFrameInterval:
        return FrameInterval(mode);
    case offset::kDataDepth:
        return Place(Format7DataDepth(mode), 31, 24);
    case offset::kValueSetting:
        return BitIf(true, kPresence) | BitIf(mode.refused != 0, kErrorFlag);
    default:
        return 0;
    }
}

void WriteFormat7(CameraState& state, std::uint32_t address, std::uint32_t word) {
    const std::uint32_t mode = ModeOf(address);
    if (mode >= kFormat7Modes) {
        return;
    }
    Format7State& settings = state.format7[mode];
    const auto variant = static_cast<Variant>(state.variant);
    Format7State wanted = settings;
    wanted.refused = 0;
    switch (address & 0xFFF) {
    case offset::kImagePosition:
        wanted.left = Field(word, 31, 16);
        wanted.top = Field(word, 15, 0);
        break;
    case offset::kImageSize: {
        wanted.width = Field(word, 31, 16);
        wanted.height = Field(word, 15, 0);
        const Format7State fitted = Nearest(wanted, mode, variant);
        wanted.left = fitted.left;
        wanted.top = fitted.top;
        wanted.bytesPerPacket = fitted.bytesPerPacket;
        break;
    }
    case offset::kColorCodingId:
        wanted.colorCoding = Field(word, 31, 24);
        wanted.bytesPerPacket = Nearest(wanted, mode, variant).bytesPerPacket;
        break;
    case offset::kPacketBytes:
        wanted.bytesPerPacket = Field(word, 31, 16);
        break;
    default:
        return;
    }
    if (IsPossible(wanted, mode, variant)) {
        settings = wanted;
    } else {
        settings.refused = 1;
    }
}

}  // namespace kolmsim
