#include "model/video_format.h"

#include <algorithm>

#include "model/bits.h"
#include "model/color_coding.h"
#include "model/feature_behavior.h"
#include "model/fixed_mode.h"
#include "model/format7.h"
#include "model/register_map.h"
#include "model/register_table.h"
#include "model/trigger.h"
#include "model/video_mode.h"

namespace kolmsim {
namespace {

constexpr std::uint32_t kScalable = 7;
constexpr std::uint32_t kGeometrySwitchId = 61;
constexpr std::uint32_t kUsualRate = 4;  // 30 frames per second

/// A frame time outside of these is no frame time of any scalable mode.
constexpr std::int64_t kLongestFrameTime = kRateFrameTimes[0];

Variant VariantOf(const CameraState& state) {
    return static_cast<Variant>(state.variant);
}

/// The settings of a scalable mode; damaged ones count as the nearest possible.
Format7State Settings(const CameraState& state, std::uint32_t mode) {
    return Nearest(state.format7[mode], mode, VariantOf(state));
}

VideoFormat FormatOf(const Format7State& settings, std::uint32_t mode) {
    return {.format = kScalable,
            .mode = mode,
            .colorCoding = settings.colorCoding,
            .left = settings.left,
            .top = settings.top,
            .width = settings.width,
            .height = settings.height,
            .frameTime = Format7FrameTime(settings)};
}

VideoFormat FormatOf(const FixedMode& mode, std::uint32_t rate) {
    return {.format = mode.format,
            .mode = mode.mode,
            .colorCoding = mode.colorCoding,
            .left = 0,
            .top = 0,
            .width = mode.width,
            .height = mode.height,
            .frameTime = kRateFrameTimes[rate]};
}

/// The rate of a mode whose frame time is nearest, however far that is; no frame time is as near to two of them.
///
/// @param frameTime  not negative
std::uint32_t NearestRate(const FixedMode& mode, std::int64_t frameTime) {
    const auto distance = [&](std::uint32_t rate) {
        const std::int64_t apart = kRateFrameTimes[rate] - frameTime;
        return apart < 0 ? -apart : apart;
    };
    std::optional<std::uint32_t> nearest;
    for (std::uint32_t rate = 0; rate < kRateFrameTimes.size(); ++rate) {
        if (mode.HasRate(rate) && (!nearest || distance(rate) < distance(*nearest))) {
            nearest = rate;
        }
    }
    return nearest.value_or(0);
}

OfferedFormat Offer(const FixedMode& mode) {
    OfferedFormat offer;
    offer.usual = FormatOf(mode, NearestRate(mode, kRateFrameTimes[kUsualRate]));
    offer.limits.minWidth = offer.limits.maxWidth = mode.width;
    offer.limits.minHeight = offer.limits.maxHeight = mode.height;
    offer.limits.shortestFrameTime = FormatOf(mode, NearestRate(mode, 0)).frameTime;
    offer.limits.longestFrameTime = FormatOf(mode, NearestRate(mode, kLongestFrameTime)).frameTime;
    return offer;
}

OfferedFormat Offer(const CameraState& state, std::uint32_t mode, std::uint32_t coding) {
    Format7State settings = Settings(state, mode);
    if (settings.colorCoding != coding) {
        settings.colorCoding = coding;
        settings.bytesPerPacket = RecommendedPacketBytes(settings);
    }
    const Format7Limits& limits = Format7LimitsOf(mode);
    const auto timeWith = [&](std::uint32_t packetBytes) {
        Format7State other = settings;
        other.bytesPerPacket = packetBytes;
        return Format7FrameTime(Nearest(other, mode, VariantOf(state)));
    };
    OfferedFormat offer;
    offer.usual = FormatOf(settings, mode);
    offer.limits = {.scalable = true,
                    .minWidth = limits.unitWidth,
                    .minHeight = limits.unitHeight,
                    .maxWidth = limits.maxWidth,
                    .maxHeight = limits.maxHeight,
                    .unitWidth = limits.unitWidth,
                    .unitHeight = limits.unitHeight,
                    .unitLeft = limits.unitLeft,
                    .unitTop = limits.unitTop,
                    .shortestFrameTime = timeWith(kLargestPacketBytes),
                    .longestFrameTime = timeWith(kPacketUnitBytes)};
    return offer;
}

/// What a format comes to in the camera's own terms.
struct Resolved {
    Status status = Status::invalidParameter;
    std::uint32_t rate = 0;      ///< of a fixed mode
    Format7State settings = {};  ///< of a scalable one
    std::uint32_t packetBytes = 0;
    std::int64_t frameTime = 0;
};

Resolved ResolveFixed(const CameraState& state, const VideoFormat& wanted) {
    Resolved resolved;
    const FixedMode* fixed = FindFixedMode(VariantOf(state), wanted.format, wanted.mode);
    if (fixed == nullptr) {
        return resolved;
    }
    const OfferedFormat offer = Offer(*fixed);
    const std::int64_t time = wanted.frameTime != 0 ? wanted.frameTime : offer.usual.frameTime;
    if (!offer.usual.SameLayout(wanted) || wanted.left != 0 || wanted.top != 0 || time < 0) {
        return resolved;
    }
    resolved.status = Status::ok;
    resolved.rate = NearestRate(*fixed, time);
    resolved.packetBytes = fixed->PacketBytes(resolved.rate);
    resolved.frameTime = kRateFrameTimes[resolved.rate];
    return resolved;
}

Resolved ResolveScalable(const CameraState& state, Geometry geometry, const VideoFormat& wanted) {
    Resolved resolved;
    if (wanted.mode >= kFormat7Modes ||
        (wanted.frameTime != 0 && (wanted.frameTime < kShortestFrameTime || wanted.frameTime > kLongestFrameTime))) {
        return resolved;
    }
    Format7State settings = {.left = wanted.left,
                             .top = wanted.top,
                             .width = wanted.width,
                             .height = wanted.height,
                             .colorCoding = wanted.colorCoding,
                             .bytesPerPacket = 0,
                             .refused = 0};
    const Format7State present = Settings(state, wanted.mode);
    const bool sameArea = settings.left == present.left && settings.top == present.top &&
                          settings.width == present.width && settings.height == present.height;
    const bool ownArea = geometry == Geometry::agreed || state.properties[kGeometrySwitchId].At(kOffsetValue) == 1;
    settings.bytesPerPacket =
        wanted.frameTime == 0 ? RecommendedPacketBytes(settings) : PacketBytesFor(settings, wanted.frameTime);
    if ((!sameArea && !ownArea) || !IsPossible(settings, wanted.mode, VariantOf(state))) {
        return resolved;
    }
    resolved.status = Status::ok;
    resolved.settings = settings;
    resolved.packetBytes = settings.bytesPerPacket;
    resolved.frameTime = Format7FrameTime(settings);
    return resolved;
}

Resolved Resolve(const CameraState& state, Geometry geometry, const VideoFormat& wanted) {
    Resolved resolved =
        wanted.format == kScalable ? ResolveScalable(state, geometry, wanted) : ResolveFixed(state, wanted);
    if (resolved.status == Status::ok && resolved.packetBytes > BusCapacity(state)) {
        resolved.status = Status::noBandwidth;
    }
    return resolved;
}

}  // namespace

std::vector<OfferedFormat> OfferedFormats(const CameraState& state) {
    std::vector<OfferedFormat> offers;
    for (const FixedMode& mode : FixedModes()) {
        if (IsOffered(mode, VariantOf(state))) {
            offers.push_back(Offer(mode));
        }
    }
    for (std::uint32_t mode = 0; mode < kFormat7Modes; ++mode) {
        for (const std::uint32_t coding : ColorCodings(mode, VariantOf(state))) {
            offers.push_back(Offer(state, mode, coding));
        }
    }
    return offers;
}

std::optional<VideoFormat> CurrentFormat(const CameraState& state) {
    const CurrentMode current = ReadCurrentMode(state);
    if (!IsOffered(state, current)) {
        return std::nullopt;
    }
    if (current.format == kScalable) {
        return FormatOf(Settings(state, current.mode), current.mode);
    }
    return FormatOf(*FindFixedMode(VariantOf(state), current.format, current.mode), current.rate);
}

Status CheckFormat(const CameraState& state, Geometry geometry, VideoFormat& wanted) {
    const Resolved resolved = Resolve(state, geometry, wanted);
    if (resolved.status == Status::ok) {
        wanted.frameTime = resolved.frameTime;
    }
    return resolved.status;
}

Status ApplyFormat(CameraState& state, Geometry geometry, VideoFormat& wanted) {
    const Resolved resolved = Resolve(state, geometry, wanted);
    if (resolved.status != Status::ok) {
        return resolved.status;
    }
    if (wanted.format == kScalable) {
        state.format7[wanted.mode] = resolved.settings;
        state.selectedFormat7Mode = wanted.mode;
    } else {
        StoredWord(state, kCurrentRate) = Place(resolved.rate, 31, 29);
    }
    StoredWord(state, kCurrentMode) = Place(wanted.mode, 31, 29);
    StoredWord(state, kCurrentFormat) = Place(wanted.format, 31, 29);
    wanted.frameTime = resolved.frameTime;
    return Status::ok;
}

std::optional<VideoFormat> TakePicture(CameraState& state, const VideoFormat& stream) {
    const std::optional<VideoFormat> current = CurrentFormat(state);
    if (!IsStreaming(state) || !current || !current->SameLayout(stream) || !PassTrigger(state)) {
        return std::nullopt;
    }
    ++StoredWord(state, kFrameCounter);
    return current;
}

}  // namespace kolmsim
