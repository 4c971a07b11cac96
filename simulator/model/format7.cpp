#include "model/format7.h"

#include <algorithm>
#include <array>
#include <iterator>

namespace kolmsim {
namespace {

constexpr std::array<Format7Limits, kFormat7Modes> kLimits = {{
    {.maxWidth = 640, .maxHeight = 480, .unitWidth = 8, .unitHeight = 2, .unitLeft = 4, .unitTop = 2},
    {.maxWidth = 320, .maxHeight = 240, .unitWidth = 4, .unitHeight = 2, .unitLeft = 2, .unitTop = 1},  // 2 x 2 pixels
    {.maxWidth = 640, .maxHeight = 240, .unitWidth = 8, .unitHeight = 1, .unitLeft = 8, .unitTop = 1},  // 2 lines
}};

struct Coding {
    std::uint32_t id;
    std::uint32_t bitsPerPixel;
    std::uint32_t dataDepth;
};

constexpr std::uint32_t kMono8 = 0;
constexpr std::uint32_t kYuv422 = 2;
constexpr std::uint32_t kRgb8 = 4;
constexpr std::uint32_t kMono16 = 5;
constexpr std::uint32_t kRaw8 = 9;

constexpr Coding kCodings[] = {
    {.id = kMono8, .bitsPerPixel = 8, .dataDepth = 8}, {.id = kYuv422, .bitsPerPixel = 16, .dataDepth = 8},
    {.id = kRgb8, .bitsPerPixel = 24, .dataDepth = 8}, {.id = kMono16, .bitsPerPixel = 16, .dataDepth = 12},
    {.id = kRaw8, .bitsPerPixel = 8, .dataDepth = 8},
};
constexpr std::uint32_t kMonoCodings[] = {kMono8, kMono16};
constexpr std::uint32_t kColorCodings[] = {kMono8, kYuv422, kRgb8, kRaw8};

const Coding* FindCoding(std::uint32_t id) {
    const auto found = std::ranges::find(kCodings, id, &Coding::id);
    return found != std::end(kCodings) ? found : nullptr;
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

std::span<const std::uint32_t> ColorCodings(Variant variant) {
    return variant == Variant::color ? std::span<const std::uint32_t>(kColorCodings) : kMonoCodings;
}

std::uint32_t ColorCodingBits(std::uint32_t colorCoding) {
    const Coding* coding = FindCoding(colorCoding);
    return coding != nullptr ? coding->bitsPerPixel : 0;
}

std::uint32_t Format7BitsPerPixel(const Format7State& mode) {
    return ColorCodingBits(mode.colorCoding);
}

std::uint32_t Format7DataDepth(const Format7State& mode) {
    const Coding* coding = FindCoding(mode.colorCoding);
    return coding != nullptr ? coding->dataDepth : 0;
}

std::uint64_t Format7FrameBytes(const Format7State& mode) {
    return std::uint64_t{mode.width} * mode.height * Format7BitsPerPixel(mode) / 8;
}

std::uint32_t RecommendedPacketBytes(const Format7State& mode) {
    constexpr std::uint64_t kPacketsAt30Fps = 8000 / 30;  // one packet each 125 us
    const std::uint64_t exact = (Format7FrameBytes(mode) + kPacketsAt30Fps - 1) / kPacketsAt30Fps;
    const std::uint64_t whole = (exact + kPacketUnitBytes - 1) / kPacketUnitBytes * kPacketUnitBytes;
    return static_cast<std::uint32_t>(std::clamp<std::uint64_t>(whole, kPacketUnitBytes, kLargestPacketBytes));
}

std::uint32_t PacketsPerFrame(const Format7State& mode) {
    if (mode.bytesPerPacket == 0) {
        return 0;
    }
    return static_cast<std::uint32_t>((Format7FrameBytes(mode) + mode.bytesPerPacket - 1) / mode.bytesPerPacket);
}

bool IsPossible(const Format7State& wanted, std::uint32_t mode, Variant variant) {
    const Format7State fitted = Nearest(wanted, mode, variant);
    return fitted.left == wanted.left && fitted.top == wanted.top && fitted.width == wanted.width &&
           fitted.height == wanted.height && fitted.colorCoding == wanted.colorCoding &&
           fitted.bytesPerPacket == wanted.bytesPerPacket;
}

Format7State Nearest(const Format7State& wanted, std::uint32_t mode, Variant variant) {
    const Format7Limits& limits = kLimits[mode];
    const std::span<const std::uint32_t> codings = ColorCodings(variant);
    Format7State fitted{};
    fitted.width = FitSize(wanted.width, limits.unitWidth, limits.maxWidth);
    fitted.height = FitSize(wanted.height, limits.unitHeight, limits.maxHeight);
    fitted.left = FitPosition(wanted.left, limits.unitLeft, limits.maxWidth - fitted.width);
    fitted.top = FitPosition(wanted.top, limits.unitTop, limits.maxHeight - fitted.height);
    const bool offered = std::ranges::find(codings, wanted.colorCoding) != codings.end();
    fitted.colorCoding = offered ? wanted.colorCoding : codings.front();
    fitted.bytesPerPacket = wanted.bytesPerPacket == 0
                                ? RecommendedPacketBytes(fitted)
                                : FitSize(wanted.bytesPerPacket, kPacketUnitBytes, kLargestPacketBytes);
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
