#pragma once
/// @file  A media type whose format block is a VIDEOINFOHEADER, field by field.

#include <cstdint>

#include <windows.h>

#include <strmif.h>

#include <amvideo.h>  // needs strmif.h before it

#include "base/media_type.h"
#include "media/accessor.h"

namespace kolmfluxor {

namespace test {
class MediaTypePeer;
}

/// A value: one media type of video with a `VIDEOINFOHEADER`, and access to the header's fields.
///
/// A type that is not video, not `FORMAT_VideoInfo`, or whose block is missing or shorter than a `VIDEOINFOHEADER` is
/// *not initialized*: every accessor but `IsInitialized` then throws a CTextException "CAMMediaType::<accessor> not
/// initialized". An accessor that needs the header throws "CAMMediaType::<accessor>: Null Pointer" when there is none
/// (the three of the embedded IIDC information "...: Null Pointer (VideoInfoHeader)"). A setter has its getter's texts,
/// and a call that throws changes nothing.
///
/// The header is read as the camera's driver writes it: `rcSource` is the area of interest inside the sensor;
/// `dwBitErrorRate` is no error rate but holds the IIDC format (second byte) and mode (low byte). Sizes are pixels,
/// times are 100 ns. Geometry is 32-bit signed and wraps: no value of a driver is undefined behavior.
class CAMMediaType {
public:
    /// An empty type, not initialized.
    CAMMediaType() noexcept = default;
    /// Copies the type with its format block.
    explicit CAMMediaType(const AM_MEDIA_TYPE& type);
    CAMMediaType(const CAMMediaType& other);
    CAMMediaType(CAMMediaType&& other) noexcept;  ///< leaves the other one empty
    CAMMediaType& operator=(const CAMMediaType& other);
    CAMMediaType& operator=(CAMMediaType&& other) noexcept;
    CAMMediaType& operator=(const AM_MEDIA_TYPE& type);
    ~CAMMediaType() = default;

    /// Whether the accessors work. Never throws.
    [[nodiscard]] bool IsInitialized() const noexcept { return m_initialized; }

    [[nodiscard]] bool MediaTypeInfo() const;   ///< the major type is video
    [[nodiscard]] bool HeaderTypeInfo() const;  ///< video, and the format type is FORMAT_VideoInfo

    [[nodiscard]] const AM_MEDIA_TYPE& MediaType() const;
    /// For changes in place; the format block must stay the one it is.
    [[nodiscard]] AM_MEDIA_TYPE& MediaType();
    [[nodiscard]] const VIDEOINFOHEADER& VideoInfoHeader() const;
    [[nodiscard]] VIDEOINFOHEADER& VideoInfoHeader();
    [[nodiscard]] const BITMAPINFOHEADER& BitMapInfoHeader() const;
    [[nodiscard]] BITMAPINFOHEADER& BitMapInfoHeader();
    [[nodiscard]] const RECT& SourceRect() const;  ///< the area of interest
    [[nodiscard]] RECT& SourceRect();
    [[nodiscard]] const RECT& TargetRect() const;
    [[nodiscard]] RECT& TargetRect();

    [[nodiscard]] bool IsRGB() const;  ///< uncompressed: biCompression is 0
    [[nodiscard]] LONG XPos() const;
    [[nodiscard]] LONG YPos() const;
    [[nodiscard]] LONG Width() const;         ///< of the area of interest; the surface's when the area is all zero
    [[nodiscard]] LONG Height() const;        ///< of the bitmap, without its sign (the smallest number stays as it is)
    [[nodiscard]] LONG WidthSurface() const;  ///< biWidth
    [[nodiscard]] WORD BitsPerPixel() const;
    /// Bytes from one line to the next, a multiple of 4: positive for a top-down bitmap, negative otherwise.
    [[nodiscard]] LONG Stride() const;

    /// Moves the left edge. The right edge stays where it was, so that the width changes by the shift.
    void XPos(LONG x);
    /// Moves the area down or up; the height stays.
    void YPos(LONG y);
    /// Sets surface and area; the image size, the sample size and the target follow.
    void Width(LONG w);
    /// Like `Width`.
    /// @param h  stored with its sign: negative for a top-down bitmap
    void Height(LONG h);

    [[nodiscard]] REFERENCE_TIME FrameTimeAvg() const;
    void FrameTimeAvg(REFERENCE_TIME t);
    /// The frame time as frames per second. Throws what `FrameTimeToFps` and `FpsToFrameTime` throw.
    [[nodiscard]] std::int64_t FrameRate() const;
    void FrameRate(std::uint32_t fps);

    /// Whether format and mode are both below 9: the driver then told them.
    [[nodiscard]] bool HasEmbeddedFormatInfo() const;
    [[nodiscard]] DWORD GetEmbededFormat() const;
    [[nodiscard]] DWORD GetEmbeddedMode() const;

    /// Whether both describe the same stream; the frame time does not count. False when either is not initialized.
    ///
    /// Used to find a pin's current format among its capabilities. Several of its tests are deliberately weak.
    [[nodiscard]] bool operator==(const AM_MEDIA_TYPE& other) const;

    /// Whether this type fits a partly specified one: `CMediaType::MatchesPartial`.
    [[nodiscard]] bool PartialMatch(const AM_MEDIA_TYPE& other) const;
    /// The same, but only for a type that is said to be video.
    [[nodiscard]] bool PartialMatchVideo(const AM_MEDIA_TYPE& other) const;

protected:
    /// Throws the accessor's text on a type that is not initialized.
    void RequireInitialized(const Accessor& accessor) const;

private:
    // Nothing from outside leaves an initialized type without its header; a test takes it away to read the texts.
    friend class test::MediaTypePeer;

    void Initialize() noexcept;
    [[nodiscard]] const VIDEOINFOHEADER& Header(const Accessor& accessor) const;
    [[nodiscard]] VIDEOINFOHEADER& Header(const Accessor& accessor);
    void FitTarget(VIDEOINFOHEADER& header);
    void FitSizes(VIDEOINFOHEADER& header);

    CMediaType m_type;
    VIDEOINFOHEADER* m_header = nullptr;  // the format block of m_type
    bool m_initialized = false;
};

}  // namespace kolmfluxor
