#include "media/media_type_info.h"

#include <algorithm>

#include "media/area_rules.h"
#include "media/frame_time.h"
#include "media/pixel_rect.h"

namespace kolmfluxor {
namespace {

static_assert(sizeof(VIDEO_STREAM_CONFIG_CAPS) == 128);

template <FixedText Name> constexpr const Accessor& kOf = kAccessor<"CMediaTypeInfo", Name>;

// What each accessor is called in its texts; all overloads of one share a row.
constexpr const Accessor& kStreamConfigCaps = kOf<"StreamConfigCaps">;
constexpr const Accessor& kIsScalable = kOf<"IsScalable">;
constexpr const Accessor& kMinWidth = kOf<"MinWidth">;
constexpr const Accessor& kMinHeight = kOf<"MinHeight">;
constexpr const Accessor& kMaxWidth = kOf<"MaxWidth">;
constexpr const Accessor& kMaxHeight = kOf<"MaxHeight">;
constexpr const Accessor& kUnitWidth = kOf<"UnitWidth">;
constexpr const Accessor& kUnitHeight = kOf<"UnitHeight">;
constexpr const Accessor& kUnitXPos = kOf<"UnitXPos">;
constexpr const Accessor& kUnitYPos = kOf<"UnitYPos">;
constexpr const Accessor& kFrameTimeMin = kOf<"FrameTimeMin">;
constexpr const Accessor& kFrameTimeMax = kOf<"FrameTimeMax">;
constexpr const Accessor& kXPosChecked = kOf<"XPosChecked">;
constexpr const Accessor& kYPosChecked = kOf<"YPosChecked">;
constexpr const Accessor& kWidthChecked = kOf<"WidthChecked">;
constexpr const Accessor& kHeightChecked = kOf<"HeightChecked">;
constexpr const Accessor& kFrameTimeAvrChecked = kOf<"FrameTimeAvrChecked">;
constexpr const Accessor& kFpsChecked = kOf<"FpsChecked">;
constexpr const Accessor& kFpmsChecked = kOf<"FpmsChecked">;
constexpr const Accessor& kIsValidXPos = kOf<"IsValidXPos">;
constexpr const Accessor& kIsValidYPos = kOf<"IsValidYPos">;
constexpr const Accessor& kIsValidOffset = kOf<"IsValidOffset">;
constexpr const Accessor& kIsValidWidth = kOf<"IsValidWidth">;
constexpr const Accessor& kIsValidHeight = kOf<"IsValidHeight">;
constexpr const Accessor& kIsValidSize = kOf<"IsValidSize">;
constexpr const Accessor& kAoi = kOf<"AOI">;

}  // namespace

CMediaTypeInfo::CMediaTypeInfo(const AM_MEDIA_TYPE& type, const VIDEO_STREAM_CONFIG_CAPS& caps)
    : CAMMediaType(type), m_caps(caps) {}

// -- The record

const VIDEO_STREAM_CONFIG_CAPS& CMediaTypeInfo::StreamConfigCaps() const {
    return Caps(kStreamConfigCaps);
}

VIDEO_STREAM_CONFIG_CAPS& CMediaTypeInfo::StreamConfigCaps() {
    RequireInitialized(kStreamConfigCaps);
    return m_caps;
}

const VIDEO_STREAM_CONFIG_CAPS& CMediaTypeInfo::Caps(const Accessor& accessor) const {
    RequireInitialized(accessor);
    return m_caps;
}

bool CMediaTypeInfo::IsScalable() const {
    const VIDEO_STREAM_CONFIG_CAPS& caps = Caps(kIsScalable);
    return caps.MinOutputSize.cx != caps.MaxOutputSize.cx || caps.MinOutputSize.cy != caps.MaxOutputSize.cy;
}

LONG CMediaTypeInfo::MinWidth() const {
    const LONG width = Caps(kMinWidth).MinCroppingSize.cx;
    return width != 0 ? width : Width();
}

LONG CMediaTypeInfo::MinHeight() const {
    const LONG height = Caps(kMinHeight).MinCroppingSize.cy;
    return height != 0 ? height : Height();
}

LONG CMediaTypeInfo::MaxWidth() const {
    const LONG width = Caps(kMaxWidth).MaxCroppingSize.cx;
    return width != 0 ? width : Width();
}

LONG CMediaTypeInfo::MaxHeight() const {
    const LONG height = Caps(kMaxHeight).MaxCroppingSize.cy;
    return height != 0 ? height : Height();
}

LONG CMediaTypeInfo::UnitWidth() const {
    return Caps(kUnitWidth).CropGranularityX;
}

LONG CMediaTypeInfo::UnitHeight() const {
    return Caps(kUnitHeight).CropGranularityY;
}

LONG CMediaTypeInfo::UnitXPos() const {
    return Caps(kUnitXPos).CropAlignX;
}

LONG CMediaTypeInfo::UnitYPos() const {
    return Caps(kUnitYPos).CropAlignY;
}

REFERENCE_TIME CMediaTypeInfo::FrameTimeMin() const {
    return Caps(kFrameTimeMin).MinFrameInterval;
}

REFERENCE_TIME CMediaTypeInfo::FrameTimeMax() const {
    return Caps(kFrameTimeMax).MaxFrameInterval;
}

RECT CMediaTypeInfo::AOI() const {
    const SIZE& largest = Caps(kAoi).MaxOutputSize;
    return {0, 0, largest.cx, largest.cy};
}

AxisLimits CMediaTypeInfo::Horizontal() const {
    return {.minSize = MinWidth(), .maxSize = MaxWidth(), .sizeUnit = UnitWidth(), .positionUnit = UnitXPos()};
}

AxisLimits CMediaTypeInfo::Vertical() const {
    return {.minSize = MinHeight(), .maxSize = MaxHeight(), .sizeUnit = UnitHeight(), .positionUnit = UnitYPos()};
}

// -- Checked changes

LONG CMediaTypeInfo::XPosChecked(LONG x) {
    RequireInitialized(kXPosChecked);
    if (!IsScalable()) return 0;
    const LONG fitted = FittedPosition(x, Horizontal(), Width());
    XPos(fitted);
    return fitted;
}

LONG CMediaTypeInfo::YPosChecked(LONG y) {
    RequireInitialized(kYPosChecked);
    if (!IsScalable()) return 0;
    const LONG fitted = FittedPosition(y, Vertical(), Height());
    YPos(fitted);
    return fitted;
}

LONG CMediaTypeInfo::WidthChecked(LONG w) {
    RequireInitialized(kWidthChecked);
    if (!IsScalable()) return Width();
    const LONG fitted = FittedWidth(w, Horizontal(), XPos());
    Width(fitted);
    return fitted;
}

LONG CMediaTypeInfo::HeightChecked(LONG h) {
    RequireInitialized(kHeightChecked);
    if (!IsScalable()) return Height();
    const LONG fitted = FittedHeight(h, Vertical(), YPos());
    Height(fitted);
    return fitted;
}

REFERENCE_TIME CMediaTypeInfo::FittedFrameTime(REFERENCE_TIME t) const {
    const REFERENCE_TIME wanted = IsScalable() ? t : SnapFrameTimeNearest(t);
    // Not std::clamp: the limits of a driver may cross, and the shortest frame time then wins.
    if (wanted < FrameTimeMin()) return FrameTimeMin();
    return std::min(wanted, FrameTimeMax());
}

REFERENCE_TIME CMediaTypeInfo::FrameTimeAvrChecked(REFERENCE_TIME t) {
    RequireInitialized(kFrameTimeAvrChecked);
    const REFERENCE_TIME fitted = FittedFrameTime(t);
    FrameTimeAvg(fitted);
    return fitted;
}

std::int64_t CMediaTypeInfo::FpsChecked(std::uint32_t fps) {
    RequireInitialized(kFpsChecked);
    const REFERENCE_TIME fitted = FittedFrameTime(FpsToFrameTime(fps));
    const std::int64_t stored = FrameTimeToFps(fitted);  // throws before anything is stored
    FrameTimeAvg(fitted);
    return stored;
}

std::int32_t CMediaTypeInfo::FpmsChecked(std::int32_t fpms) {
    RequireInitialized(kFpmsChecked);
    const REFERENCE_TIME fitted = FittedFrameTime(FPpsX1000ToFrameTime(fpms));
    const std::int32_t stored = FrameTimeToFpms(fitted);  // throws before anything is stored
    FrameTimeAvg(fitted);
    return stored;
}

// -- Tests

bool CMediaTypeInfo::IsValidXPos(LONG x) const {
    RequireInitialized(kIsValidXPos);
    return IsScalable() ? IsValidPosition(x, Horizontal(), MaxWidth()) : x == 0;
}

bool CMediaTypeInfo::IsValidYPos(LONG y) const {
    RequireInitialized(kIsValidYPos);
    // Compatibility: the Y position is bounded by the maximum *width*. Hosts store values this rule accepts.
    return IsScalable() ? IsValidPosition(y, Vertical(), MaxWidth()) : y == 0;
}

bool CMediaTypeInfo::IsValidOffset(LONG x, LONG y) const {
    RequireInitialized(kIsValidOffset);
    return IsValidXPos(x) && IsValidYPos(y);
}

bool CMediaTypeInfo::IsValidWidth(LONG w) const {
    RequireInitialized(kIsValidWidth);
    return IsScalable() ? IsValidExtent(w, Horizontal(), XPos()) : w == MaxWidth();
}

bool CMediaTypeInfo::IsValidHeight(LONG h) const {
    RequireInitialized(kIsValidHeight);
    const LONG height = WrappedMagnitude(h);
    return IsScalable() ? IsValidExtent(height, Vertical(), YPos()) : height == MaxHeight();
}

bool CMediaTypeInfo::IsValidSize(LONG w, LONG h) const {
    RequireInitialized(kIsValidSize);
    return IsValidWidth(w) && IsValidHeight(h);
}

bool CMediaTypeInfo::AOI(RECT area) {
    // Compatibility: the result is false on every path, after success too. Callers go by what is stored.
    constexpr bool kResult = false;
    const PixelRect bounds = ToPixelRect(AOI());
    if (!IsScalable()) return kResult;

    const PixelRect rect = Normalized(ToPixelRect(area));
    if (!LiesIn(bounds, rect)) return kResult;
    const LONG width = WrappedDifference(rect.right, rect.left);
    const LONG height = WrappedDifference(rect.bottom, rect.top);
    if (!IsValidOffset(rect.left, rect.top) || !IsValidSize(width, height)) return kResult;

    Width(width);
    Height(IsRGB() ? -height : height);  // uncompressed RGB is stored top-down
    SourceRect() = ToRect(rect);
    return kResult;
}

}  // namespace kolmfluxor
