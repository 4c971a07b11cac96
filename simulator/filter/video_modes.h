#pragma once
/// @file  The video modes that the capture pin offers, as media types and as capabilities.

#include <cstdint>
#include <span>

#include <windows.h>

#include <strmif.h>

#include "filter/media_type.h"

namespace kolmsim {

/// One IIDC video mode. Frame times are in 100 ns units.
struct VideoMode {
    std::uint32_t iidcFormat;
    std::uint32_t iidcMode;
    const GUID* subtype;
    std::uint32_t compression;  ///< as in biCompression
    std::uint16_t bitsPerPixel;
    std::uint32_t width;
    std::uint32_t height;
    LONGLONG shortestFrameTime;
    LONGLONG usualFrameTime;
    LONGLONG longestFrameTime;

    [[nodiscard]] std::uint32_t ImageBytes() const { return width * height * bitsPerPixel / 8; }

    /// How the mode travels in a media type: second byte format, low byte mode.
    [[nodiscard]] DWORD EmbeddedIidc() const { return (iidcFormat << 8) | iidcMode; }
};

/// All modes; the first is the default.
[[nodiscard]] std::span<const VideoMode> VideoModes();

/// The mode that a media type asks for, or null when none fits it exactly; a frame time of 0 stands for the usual one.
[[nodiscard]] const VideoMode* FindVideoMode(const AM_MEDIA_TYPE& type);

/// The complete media type of a mode.
///
/// @param frameTime  in 100 ns units; 0 gives the usual one
[[nodiscard]] MediaType MakeMediaType(const VideoMode& mode, LONGLONG frameTime = 0);

/// What IAMStreamConfig tells about a mode.
[[nodiscard]] VIDEO_STREAM_CONFIG_CAPS MakeCapabilities(const VideoMode& mode);

}  // namespace kolmsim
