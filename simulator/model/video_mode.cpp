#include "model/video_mode.h"

#include <algorithm>
#include <iterator>
#include <tuple>

#include "model/bits.h"
#include "model/feature_behavior.h"
#include "model/format7.h"
#include "model/register_map.h"
#include "model/register_table.h"

namespace kolmsim {
namespace {

constexpr std::uint32_t kSpeedId = 54;
constexpr std::uint32_t kChannelId = 55;

/// One mode of format 0: 640 x 480 pixels, two lines in each packet at 30 frames per second.
struct FixedMode {
    std::uint32_t mode;
    std::uint32_t bitsPerPixel;
    std::uint32_t rates;  ///< b31 for index 0, b30 for index 1, ...
    bool colorOnly;
};

constexpr FixedMode kFixedModes[] = {
    {.mode = 3, .bitsPerPixel = 16, .rates = 0xF8000000, .colorOnly = true},
    {.mode = 4, .bitsPerPixel = 24, .rates = 0xF8000000, .colorOnly = true},
    {.mode = 5, .bitsPerPixel = 8, .rates = 0xFC000000, .colorOnly = false},
};

const FixedMode* FindFixedMode(const CameraState& state, std::uint32_t mode) {
    const auto found = std::ranges::find(kFixedModes, mode, &FixedMode::mode);
    const bool isColor = state.variant == static_cast<std::uint32_t>(Variant::color);
    return found != std::end(kFixedModes) && (isColor || !found->colorOnly) ? found : nullptr;
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
    if (mode.format == 7) {
        return mode.mode < kFormat7Modes;
    }
    const FixedMode* fixed = mode.format == 0 ? FindFixedMode(state, mode.mode) : nullptr;
    return fixed != nullptr && Bit(fixed->rates, 31 - mode.rate);
}

std::uint32_t BitsPerPixel(const CameraState& state, const CurrentMode& mode) {
    if (!IsOffered(state, mode)) {
        return 0;
    }
    return mode.format == 7 ? Format7BitsPerPixel(state.format7[mode.mode])
                            : FindFixedMode(state, mode.mode)->bitsPerPixel;
}

std::uint32_t PacketBytes(const CameraState& state, const CurrentMode& mode) {
    constexpr std::uint32_t kPacketPixels = 80;  // at 1.875 frames per second; each next rate doubles it
    if (!IsOffered(state, mode)) {
        return 0;
    }
    return mode.format == 7 ? state.format7[mode.mode].bytesPerPacket
                            : (kPacketPixels << mode.rate) * BitsPerPixel(state, mode) / 8;
}

BusFigures ReadBusFigures(const CameraState& state) {
    constexpr std::uint32_t kS100PacketBytes = 1024;
    constexpr std::uint32_t kBroadcastChannel = 1;  // channel 31
    const std::uint32_t capacity = kS100PacketBytes << std::min(Speed(state), 5U);
    BusFigures figures = {
        .packetBytesUsed = 0, .packetBytesFree = 0, .channelsHigh = kBroadcastChannel, .channelsLow = 0};
    if (Bit(StoredWord(state, kIsoEnable), 31)) {
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
            (format == 7 && mode < kFormat7Modes) || (format == 0 && FindFixedMode(state, mode) != nullptr);
        word |= BitIf(offered, 31 - mode);
    }
    return word;
}

std::uint32_t ReadRateInquiry(const CameraState& state, std::uint32_t address) {
    const std::uint32_t format = (address - kRateInquiry) / 0x20;
    const FixedMode* fixed = FindFixedMode(state, (address - kRateInquiry) % 0x20 / 4);
    return format == 0 && fixed != nullptr ? fixed->rates : 0;
}

std::uint32_t ReadModeError(const CameraState& state, std::uint32_t /*address*/) {
    return BitIf(!IsOffered(state, ReadCurrentMode(state)), 31);
}

std::uint32_t ReadDataDepth(const CameraState& state, std::uint32_t /*address*/) {
    const CurrentMode mode = ReadCurrentMode(state);
    if (!IsOffered(state, mode)) {
        return 0;
    }
    return Place(mode.format == 7 ? Format7DataDepth(state.format7[mode.mode]) : 8, 31, 24);
}

std::uint32_t ReadIsoControl(const CameraState& state, std::uint32_t address) {
    const std::uint32_t operation = StoredWord(state, address) & BitIf(true, 15);
    return operation | Place(Channel(state) % 16, 31, 28) | Place(Speed(state), 25, 24) | Place(Channel(state), 13, 8) |
           Place(Speed(state), 2, 0);
}

void WriteIsoControl(CameraState& state, std::uint32_t address, std::uint32_t word) {
    const bool wide = Bit(word, 15);
    StoredWord(state, address) = word & BitIf(true, 15);
    const std::uint32_t channel = wide ? Field(word, 13, 8) : Field(word, 31, 28);
    const std::uint32_t speed = wide ? Field(word, 2, 0) : Field(word, 25, 24);
    std::ignore = SetFeature(state, *FindAdjustable(kChannelId), channel, 0);
    std::ignore = SetFeature(state, *FindAdjustable(kSpeedId), speed, 0);
}

}  // namespace kolmsim
