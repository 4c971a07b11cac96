#pragma once
/// @file  The camera's video formats as media types and as capabilities.

#include <optional>
#include <span>

#include <windows.h>

#include <strmif.h>

#include "filter/media_type.h"
#include "model/video_format.h"

namespace kolmsim {

/// A video format with what a media type adds to it.
struct StreamFormat {
    VideoFormat video;
    bool topDown = false;  ///< uncompressed RGB with a negative height: the first row is the picture's top
};

/// The format that a media type asks for; whether the camera takes it is another question.
///
/// The low 16 bits of dwBitErrorRate name IIDC format and mode, one byte each; where they are 0 or no such numbers, a
/// fixed mode is looked for by layout and size. The size is that of the bitmap header, its sign counts for RGB alone.
/// In a scalable mode the upper left corner of rcSource is the position; the lower right one has to lie on the sensor
/// but need not fit the size, since who moves one edge of the rectangle may leave the other where it was. An rcSource
/// of zeros stands for the area that the mode is set to, or the upper left corner of the sensor for another size.
///
/// @param offers  the camera's list
/// @return        nothing where the type is no video type of a layout, size and position that can be offered at all
[[nodiscard]] std::optional<StreamFormat> ParseMediaType(const AM_MEDIA_TYPE& type,
                                                         std::span<const OfferedFormat> offers);

/// The complete media type of a format whose frame time is set.
[[nodiscard]] MediaType MakeMediaType(const StreamFormat& format);

/// What IAMStreamConfig tells about an entry of the list.
[[nodiscard]] VIDEO_STREAM_CONFIG_CAPS MakeCapabilities(const OfferedFormat& offer);

}  // namespace kolmsim
