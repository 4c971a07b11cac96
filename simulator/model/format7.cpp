#include "model/format7.h"

#include <algorithm>
#include <array>

#include "model/color_coding.h"

namespace kolmsim {
namespace {

constexpr std::uint32_t kMono = CodingBit(kMono8) | CodingBit(kMono16);
constexpr std::uint32_t kYuv = kMono | CodingBit(kYuv422);
constexpr std::uint32_t kColors = kYuv | CodingBit(kYuv411) | CodingBit(kRgb8);
constexpr std::uint32_t kRaw = CodingBit(kRaw8);

/// A sensor of 1280 x 960 pixels: 1 to 4 put pixels together (2 x 1, 1 x 2, 2 x 2, 4 x 4), 5 goes in coarse steps, 6
/// leaves out each second pixel and line, 7 is the middle of the sensor.
// clang-format off
constexpr std::array<Format7Limits, kFormat7Modes> kLimits = {{
    {.maxWidth = 1280, .maxHeight = 960, .unitWidth =  8, .unitHeight =  2, .unitLeft =  4, .unitTop = 2, .codings = kColors | kRaw},
    {.maxWidth =  640, .maxHeight = 960, .unitWidth =  8, .unitHeight =  2, .unitLeft =  2, .unitTop = 2, .codings = kYuv},
    {.maxWidth = 1280, .maxHeight = 480, .unitWidth =  8, .unitHeight =  1, .unitLeft =  8, .unitTop = 1, .codings = kYuv},
    {.maxWidth =  640, .maxHeight = 480, .unitWidth =  4, .unitHeight =  2, .unitLeft =  4, .unitTop = 1, .codings = kColors},
    {.maxWidth =  320, .maxHeight = 240, .unitWidth =  4, .unitHeight =  1, .unitLeft =  2, .unitTop = 1, .codings = kYuv | CodingBit(kRgb8)},
    {.maxWidth = 1280, .maxHeight = 960, .unitWidth = 32, .unitHeight = 16, .unitLeft = 16, .unitTop = 8, .codings = kMono | kRaw},
    {.maxWidth =  640, .maxHeight = 480, .unitWidth = 16, .unitHeight =  4, .unitLeft =  8, .unitTop = 4, .codings = kMono | CodingBit(kYuv411)},
    {.maxWidth = 1024, .maxHeight = 768, .unitWidth =  2, .unitHeight =  2, .unitLeft =  2, .unitTop = 2, .codings = kYuv | kRaw},
}};
// clang-format on

/// A part of a picture shows the same bytes as the whole one, and each picture has as many bytes as pixels x bits / 8:
/// groups of pixels that share chroma or a place in the filter are never torn, and rows need no padding.
consteval bool WellFormed(const Format7Limits& limits) {
    const auto divides = [&](std::uint32_t coding, std::uint32_t pixels) {
        return !HasCoding(limits.codings, coding) || (limits.unitWidth % pixels == 0 && limits.unitLeft % pixels == 0);
    };
    const bool filter = !HasCoding(limits.codings, kRaw8) || limits.unitTop % 2 == 0;
    const bool padding = !HasCoding(limits.codings, kRgb8) || limits.unitWidth % 4 == 0;
    return divides(kYuv411, 4) && divides(kYuv422, 2) && divides(kRaw8, 2) && filter && padding &&
           HasCoding(limits.codings, kMono8) && limits.maxWidth % limits.unitWidth == 0 &&
           limits.maxHeight % limits.unitHeight == 0;
}
consteval bool WellFormed() {
    for (const Format7Limits& limits : kLimits) {
        if (!WellFormed(limits)) {
            return false;
        }
    }
    return true;
}
static_assert(WellFormed());

std::uint32_t DividedUp(std::uint64_t number, std::uint32_t by) {
    return static_cast<std::uint32_t>((number + by - 1) / by);
}

/// A size of packets in whole units, up to the largest, with which a frame takes at most so many.
std::uint32_t PacketBytesForCount(const Format7State& mode, std::uint32_t packets) {
    const std::uint32_t units = DividedUp(DividedUp(Format7FrameBytes(mode), packets), kPacketUnitBytes);
    return std::clamp(units * kPacketUnitBytes, kPacketUnitBytes, kLargestPacketBytes);
}

/// A size inside 1 unit to `max`, in whole units.
std::uint32_t FitSize(std::uint32_t size, std::uint32_t unit, std::uint32_t max) {
    return std::max(unit, std::min(size, max) / unit * unit);
}

std::uint32_t FitPosition(std::uint32_t position, std::uint32_t unit, std::uint32_t room) {
    return std::min(position, room) / unit * unit;
}

}  // namespace

const Format7Limits& Format7LimitsOf(std::uint32_t mode) {
    return kLimits[mode];
}

std::uint32_t CodingSet(std::uint32_t mode, Variant variant) {
    return kLimits[mode].codings & CodingsOf(variant);
}

std::vector<std::uint32_t> ColorCodings(std::uint32_t mode, Variant variant) {
    std::vector<std::uint32_t> ids;
    for (const ColorCoding& coding : AllColorCodings()) {
        if (HasCoding(CodingSet(mode, variant), coding.id)) {
            ids.push_back(coding.id);
        }
    }
    return ids;
}

std::uint32_t Format7BitsPerPixel(const Format7State& mode) {
    const ColorCoding* coding = FindColorCoding(mode.colorCoding);
    return coding != nullptr ? coding->bitsPerPixel : 0;
}

std::uint32_t Format7DataDepth(const Format7State& mode) {
    const ColorCoding* coding = FindColorCoding(mode.colorCoding);
    return coding != nullptr ? coding->dataDepth : 0;
}

std::uint64_t Format7FrameBytes(const Format7State& mode) {
    return std::uint64_t{mode.width} * mode.height * Format7BitsPerPixel(mode) / 8;
}

std::uint32_t RecommendedPacketBytes(const Format7State& mode) {
    constexpr std::uint32_t kPacketsAt30Fps = 8000 / 30;
    return PacketBytesForCount(mode, kPacketsAt30Fps);
}

std::uint32_t PacketBytesFor(const Format7State& mode, std::int64_t frameTime) {
    const std::int64_t packets = std::clamp<std::int64_t>(frameTime / kPacketTime, 1, kMostPackets);
    return PacketBytesForCount(mode, static_cast<std::uint32_t>(packets));
}

std::uint32_t PacketsPerFrame(const Format7State& mode) {
    return mode.bytesPerPacket != 0 ? DividedUp(Format7FrameBytes(mode), mode.bytesPerPacket) : 0;
}

std::int64_t Format7FrameTime(const Format7State& mode) {
    const std::int64_t time = PacketsPerFrame(mode) * kPacketTime;
    return time != 0 ? std::max(time, kShortestFrameTime) : 0;
}

bool IsPossible(const Format7State& wanted, std::uint32_t mode, Variant variant) {
    const Format7State fitted = Nearest(wanted, mode, variant);
    return fitted.left == wanted.left && fitted.top == wanted.top && fitted.width == wanted.width &&
           fitted.height == wanted.height && fitted.colorCoding == wanted.colorCoding &&
           fitted.bytesPerPacket == wanted.bytesPerPacket;
}

Format7State Nearest(const Format7State& wanted, std::uint32_t mode, Variant variant) {
    const Format7Limits& limits = kLimits[mode];
    const std::uint32_t codings = CodingSet(mode, variant);
    Format7State fitted{};
    fitted.width = FitSize(wanted.width, limits.unitWidth, limits.maxWidth);
    fitted.height = FitSize(wanted.height, limits.unitHeight, limits.maxHeight);
    fitted.left = FitPosition(wanted.left, limits.unitLeft, limits.maxWidth - fitted.width);
    fitted.top = FitPosition(wanted.top, limits.unitTop, limits.maxHeight - fitted.height);
    fitted.colorCoding = HasCoding(codings, wanted.colorCoding) ? wanted.colorCoding : kMono8;
    const std::uint32_t asked = wanted.bytesPerPacket == 0
                                    ? RecommendedPacketBytes(fitted)
                                    : FitSize(wanted.bytesPerPacket, kPacketUnitBytes, kLargestPacketBytes);
    fitted.bytesPerPacket = std::max(asked, PacketBytesForCount(fitted, kMostPackets));
    return fitted;
}

void ResetFormat7(CameraState& state) {
    for (std::uint32_t mode = 0; mode < kFormat7Modes; ++mode) {
        const Format7State whole = {.left = 0,
                                    .top = 0,
                                    .width = kLimits[mode].maxWidth,
                                    .height = kLimits[mode].maxHeight,
                                    .colorCoding = kMono8,
                                    .bytesPerPacket = 0,
                                    .refused = 0};
        state.format7[mode] = Nearest(whole, mode, static_cast<Variant>(state.variant));
    }
    state.selectedFormat7Mode = 0;
}

}  // namespace kolmsim
