#pragma once
/// @file  A video format that a capture pin offers: a DirectShow media type with its capability record, and what the
/// two mean on IIDC cameras.

#include <cstdint>
#include <memory>
#include <optional>
#include <string>

#include <windows.h>

#include <strmif.h>

#include <amvideo.h>  // needs strmif.h before it

#include "frame_rate.h"

namespace kolmctl {

struct MediaTypeFree {
    void operator()(AM_MEDIA_TYPE* type) const noexcept;
};
/// A media type in task memory with its format block, as IAMStreamConfig hands it out.
using UniqueMediaType = std::unique_ptr<AM_MEDIA_TYPE, MediaTypeFree>;

/// An IIDC mode. Drivers pass it where DirectShow has the bit error rate: the second byte is the format, the low byte
/// the mode.
struct IidcMode {
    std::uint32_t format;
    std::uint32_t mode;

    friend bool operator==(const IidcMode&, const IidcMode&) = default;
};

/// A part of the sensor's picture, in pixels.
struct Area {
    std::int64_t x;
    std::int64_t y;
    std::int64_t width;
    std::int64_t height;

    [[nodiscard]] bool SameSize(const Area& other) const { return width == other.width && height == other.height; }
    /// As in "320x240 at 8,4".
    [[nodiscard]] std::string Text() const;

    friend bool operator==(const Area&, const Area&) = default;
};

/// What a scalable format allows as an area, in pixels: everything in whole steps.
struct AreaLimits {
    std::int64_t xStep;
    std::int64_t yStep;
    std::int64_t widthStep;
    std::int64_t heightStep;
    std::int64_t minWidth;
    std::int64_t minHeight;
    std::int64_t maxWidth;  ///< of the whole picture; an area lies inside
    std::int64_t maxHeight;

    [[nodiscard]] bool Allow(const Area& area) const;
    /// What Allow asks for, in words.
    [[nodiscard]] std::string Text() const;
};

/// The slowest and the fastest frame rate.
struct RateLimits {
    MilliFps slowest;
    MilliFps fastest;
};

/// One entry of a pin's list.
class CaptureFormat {
public:
    /// @param index  its number in the pin's list
    /// @param type   one that IsVideo accepts
    CaptureFormat(int index, UniqueMediaType type, const VIDEO_STREAM_CONFIG_CAPS& caps);

    /// Whether a type describes video by a VIDEOINFOHEADER.
    [[nodiscard]] static bool IsVideo(const AM_MEDIA_TYPE& type);

    [[nodiscard]] int Index() const { return m_index; }
    [[nodiscard]] AM_MEDIA_TYPE& Type() const { return *m_type; }
    [[nodiscard]] VIDEO_STREAM_CONFIG_CAPS& Caps() { return m_caps; }

    /// Nothing when the driver does not tell it.
    [[nodiscard]] std::optional<IidcMode> Mode() const;
    /// As in "Format 7 mode 2"; "unknown" when the driver does not tell it.
    [[nodiscard]] std::string ModeText() const;
    [[nodiscard]] std::string PixelText() const;
    [[nodiscard]] unsigned BitsPerPixel() const;
    /// Whether area and position can be chosen (IIDC Format 7).
    [[nodiscard]] bool IsScalable() const;
    [[nodiscard]] Area CurrentArea() const;
    /// The size of the whole picture: the largest area.
    [[nodiscard]] SIZE WholeSize() const;
    /// Of a scalable format.
    [[nodiscard]] AreaLimits Limits() const;
    /// The rate that the type names; nothing when it names none.
    [[nodiscard]] std::optional<MilliFps> Rate() const;
    /// Nothing when the driver does not tell them. Those of a scalable format are for its present size.
    [[nodiscard]] std::optional<RateLimits> Rates() const;
    /// Whether the format knows only the rates of fixed IIDC modes.
    [[nodiscard]] bool HasStandardRates() const;

    /// Whether another type is of this format, whatever its rate and, when scalable, its area.
    [[nodiscard]] bool Covers(const AM_MEDIA_TYPE& other) const;

    /// Takes over a type that Covers accepts.
    void SetType(UniqueMediaType type) { m_type = std::move(type); }
    /// Changes the position only.
    void MoveTo(std::int64_t x, std::int64_t y);
    /// Changes the area and what depends on its size. @param area  one that Limits allows
    void SetArea(const Area& area);
    /// Changes the frame time; a rate that equals one of Rates gives the time that it was rounded from.
    void SetRate(MilliFps rate);

private:
    [[nodiscard]] VIDEOINFOHEADER& Video() const;

    int m_index;
    UniqueMediaType m_type;
    VIDEO_STREAM_CONFIG_CAPS m_caps;
};

}  // namespace kolmctl
