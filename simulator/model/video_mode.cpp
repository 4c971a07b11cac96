#include "model/video_mode.h"

#include <algorithm>
#include <tuple>

#include "model/bits.h"
#include "model/color_coding.h"
#include "model/feature_behavior.h"
#include "model/fixed_mode.h"
#include "model/format7.h"
#include "model/register_map.h"
#include "model/register_table.h"

namespace kolmsim {
namespace {

constexpr std::uint32_t kSpeedId = 54;
constexpr std::uint32_t kChannelId = 55;

Variant VariantOf(const CameraState& state) {
    return static_cast<Variant>(state.variant);
}

/// The fixed mode that the camera is set to, or null.
const FixedMode* Fixed(const CameraState& state, const CurrentMode& mode) {
    const FixedMode* fixed = FindFixedMode(VariantOf(state), mode.format, mode.mode);
    return fixed != nullptr && fixed->HasRate(mode.rate) ? fixed : nullptr;
}

std::uint32_t Channel(const CameraState& state) {
    return state.properties[kChannelId].At(kOffsetValue);
}

std::uint32_t Speed(const CameraState& state) {
    return state.properties[kSpeedId].At(kOffsetValue);
}

}  // namespace

CurrentMode ReadCurrentMode(const CameraState& state) {
    return {.format = Field(StoredWord(state, kCurrentFormat), 31, 29),
            .mode = Field(StoredWord(state, kCurrentMode), 31, 29),
            .rate = Field(StoredWord(state, kCurrentRate), 31, 29)};
}

bool IsOffered(const CameraState& state, const CurrentMode& mode) {
    return mode.format == 7 ? mode.mode < kFormat7Modes : Fixed(state, mode) != nullptr;
}

std::uint32_t BitsPerPixel(const CameraState& state, const CurrentMode& mode) {
    if (!IsOffered(state, mode)) {
        return 0;
    }
    return mode.format == 7 ? Format7BitsPerPixel(state.format7[mode.mode])
                            : FindColorCoding(Fixed(state, mode)->colorCoding)->bitsPerPixel;
}

std::uint32_t PacketBytes(const CameraState& state, const CurrentMode& mode) {
    if (!IsOffered(state, mode)) {
        return 0;
    }
    return mode.format == 7 ? state.format7[mode.mode].bytesPerPacket : Fixed(state, mode)->PacketBytes(mode.rate);
}

std::uint32_t BusCapacity(const CameraState& state) {
    constexpr std::uint32_t kS100PacketBytes = 1024;
    return kS100PacketBytes << std::min(Speed(state), 5U);
}

bool IsStreaming(const CameraState& state) {
    return Bit(StoredWord(state, kIsoEnable), 31);
}

void SetStreaming(CameraState& state, bool on) {
    StoredWord(state, kIsoEnable) = BitIf(on, 31);
    state.triggeredPictures = 0;
}

bool IsIsoSetting(std::uint32_t propertyId) {
    return propertyId == kChannelId || propertyId == kSpeedId;
}

BusFigures ReadBusFigures(const CameraState& state) {
    constexpr std::uint32_t kBroadcastChannel = 1;  // channel 31
    const std::uint32_t capacity = BusCapacity(state);
    BusFigures figures = {
        .packetBytesUsed = 0, .packetBytesFree = 0, .channelsHigh = kBroadcastChannel, .channelsLow = 0};
    if (IsStreaming(state)) {
        const std::uint32_t channel = Channel(state) % 64;
        figures.packetBytesUsed = std::min(PacketBytes(state, ReadCurrentMode(state)), capacity);
        (channel < 32 ? figures.channelsHigh : figures.channelsLow) |= BitIf(true, 31 - channel % 32);
    }
    figures.packetBytesFree = capacity - figures.packetBytesUsed;
    return figures;
}

std::uint32_t ReadModeInquiry(const CameraState& state, std::uint32_t address) {
    const std::uint32_t format = (address - kModeInquiry) / 4;
    std::uint32_t word = 0;
    for (std::uint32_t mode = 0; mode < 8; ++mode) {
        const bool offered =
            (format == 7 && mode < kFormat7Modes) || FindFixedMode(VariantOf(state), format, mode) != nullptr;
        word |= BitIf(offered, 31 - mode);
    }
    return word;
}

std::uint32_t ReadRateInquiry(const CameraState& state, std::uint32_t address) {
    const std::uint32_t format = (address - kRateInquiry) / 0x20;
    const FixedMode* fixed = FindFixedMode(VariantOf(state), format, (address - kRateInquiry) % 0x20 / 4);
    return fixed != nullptr ? fixed->rates : 0;
}

std::uint32_t ReadModeError(const CameraState& state, std::uint32_t /*address*/) {
    return BitIf(!IsOffered(state, ReadCurrentMode(state)), 31);
}

std::uint32_t ReadDataDepth(const CameraState& state, std::uint32_t /*address*/) {
    const CurrentMode mode = ReadCurrentMode(state);
    if (!IsOffered(state, mode)) {
        return 0;
    }
    return Place(mode.format == 7 ? Format7DataDepth(state.format7[mode.mode])
                                  : FindColorCoding(Fixed(state, mode)->colorCoding)->dataDepth,
                 31, 24);
}

std::uint32_t ReadIsoEnable(const CameraState& state, std::uint32_t address) {
    return StoredWord(state, address);
}

void WriteIsoEnable(CameraState& state, std::uint32_t /*address*/, std::uint32_t word) {
    SetStreaming(state, Bit(word, 31));
}

std::uint32_t ReadIsoControl(const CameraState& state, std::uint32_t address) {
    const std::uint32_t operation = StoredWord(state, address) & BitIf(true, 15);
    return operation | Place(Channel(state) % 16, 31, 28) | Place(Speed(state), 25, 24) | Place(Channel(state), 13, 8) |
           Place(Speed(state), 2, 0);
}

void WriteIsoControl(CameraState& state, std::uint32_t address, std::uint32_t word) {
    if (IsStreaming(state)) {
        return;
    }
    const bool wide = Bit(word, 15);
    StoredWord(state, address) = word & BitIf(true, 15);
    const std::uint32_t channel = wide ? Field(word, 13, 8) : Field(word, 31, 28);
    const std::uint32_t speed = wide ? Field(word, 2, 0) : Field(word, 25, 24);
    std::ignore = SetFeature(state, *FindAdjustable(kChannelId), channel, 0);
    std::ignore = SetFeature(state, *FindAdjustable(kSpeedId), speed, 0);
}

}  // namespace kolmsim
