#pragma once
/// @file  A media type together with what the pin can do: limits, steps and checked changes.

#include <cstdint>

#include "media/am_media_type.h"
#include "media/area_rules.h"

namespace kolmfluxor {

/// A media type with the capability record that `IAMStreamConfig::GetStreamCaps` returns beside it.
///
/// On a type that is not initialized every accessor throws "CMediaTypeInfo::<accessor> not initialized"; the inherited
/// ones keep the texts of `CAMMediaType`. A mode is *scalable* (IIDC Format 7) or *fixed*: then size and position
/// cannot be changed.
///
/// The record is a driver's and not trusted: a step of zero or less counts as 1 (this module's own rule), and limits
/// may contradict each other.
class CMediaTypeInfo : public CAMMediaType {
public:
    /// Not initialized.
    CMediaTypeInfo() noexcept = default;
    CMediaTypeInfo(const AM_MEDIA_TYPE& type, const VIDEO_STREAM_CONFIG_CAPS& caps);

    [[nodiscard]] const VIDEO_STREAM_CONFIG_CAPS& StreamConfigCaps() const;
    [[nodiscard]] VIDEO_STREAM_CONFIG_CAPS& StreamConfigCaps();

    [[nodiscard]] bool IsScalable() const;  ///< the smallest and the largest output size differ
    [[nodiscard]] LONG MinWidth() const;    ///< the current width when the record says 0
    [[nodiscard]] LONG MinHeight() const;   ///< the current height when the record says 0
    [[nodiscard]] LONG MaxWidth() const;    ///< of the sensor; the current width when the record says 0
    [[nodiscard]] LONG MaxHeight() const;   ///< of the sensor; the current height when the record says 0
    [[nodiscard]] LONG UnitWidth() const;
    [[nodiscard]] LONG UnitHeight() const;
    [[nodiscard]] LONG UnitXPos() const;
    [[nodiscard]] LONG UnitYPos() const;
    [[nodiscard]] REFERENCE_TIME FrameTimeMin() const;
    [[nodiscard]] REFERENCE_TIME FrameTimeMax() const;
    /// The bounds of any area of interest: {0, 0, largest output width, largest output height}.
    [[nodiscard]] RECT AOI() const;

    /// Makes the value one that the mode allows, stores it and returns it.
    ///
    /// On a fixed mode nothing is stored: positions give 0, sizes the current size. Positions and heights are rounded
    /// toward zero to their step and then brought into their limits; widths the other way round.
    LONG XPosChecked(LONG x);
    LONG YPosChecked(LONG y);
    LONG WidthChecked(LONG w);
    /// @param h  negative for a top-down bitmap; the result has its sign (but is positive when it rounds to 0)
    LONG HeightChecked(LONG h);

    /// Brings a frame time into the mode's limits, on a fixed mode after moving it to the closest fixed IIDC rate;
    /// stores and returns it.
    REFERENCE_TIME FrameTimeAvrChecked(REFERENCE_TIME t);
    /// `FrameTimeAvrChecked` in frames per second, with the exceptions of `FpsToFrameTime` and (for a mode whose limits
    /// are 0) `FrameTimeToFps`.
    std::int64_t FpsChecked(std::uint32_t fps);
    /// `FrameTimeAvrChecked` in frames per 1000 seconds, with the exceptions of `FPpsX1000ToFrameTime` and
    /// `FrameTimeToFpms`.
    std::int32_t FpmsChecked(std::int32_t fpms);

    [[nodiscard]] bool IsValidXPos(LONG x) const;
    [[nodiscard]] bool IsValidYPos(LONG y) const;  ///< bounded by the largest width, see the rule's comment
    [[nodiscard]] bool IsValidOffset(LONG x, LONG y) const;
    [[nodiscard]] bool IsValidWidth(LONG w) const;
    [[nodiscard]] bool IsValidHeight(LONG h) const;
    [[nodiscard]] bool IsValidSize(LONG w, LONG h) const;

    /// Sets a whole area of interest if the mode allows it as it stands.
    ///
    /// @return false, always: after success too. Callers see from `SourceRect` what was taken.
    bool AOI(RECT area);

private:
    [[nodiscard]] const VIDEO_STREAM_CONFIG_CAPS& Caps(const Accessor& accessor) const;
    [[nodiscard]] AxisLimits Horizontal() const;
    [[nodiscard]] AxisLimits Vertical() const;
    [[nodiscard]] REFERENCE_TIME FittedFrameTime(REFERENCE_TIME t) const;

    VIDEO_STREAM_CONFIG_CAPS m_caps{};
};

}  // namespace kolmfluxor
