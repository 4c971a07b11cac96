#pragma once
/// @file  Video formats as a stream is set to them: everything that a media type says, in one place.

#include <cstdint>
#include <optional>
#include <vector>

#include "model/camera_state.h"
#include "model/status.h"

namespace kolmsim {

/// One way to stream.
struct VideoFormat {
    std::uint32_t format = 0;       ///< IIDC format: 0 to 2 fixed, 7 scalable
    std::uint32_t mode = 0;         ///< IIDC mode
    std::uint32_t colorCoding = 0;  ///< IIDC color coding id
    std::uint32_t left = 0;         ///< area on the sensor, in pixels; position 0 in fixed modes
    std::uint32_t top = 0;
    std::uint32_t width = 0;
    std::uint32_t height = 0;
    std::int64_t frameTime = 0;  ///< in 100 ns units; 0 asks for the usual one

    /// Whether pictures of both have the same layout and size.
    [[nodiscard]] bool SameLayout(const VideoFormat& other) const {
        return format == other.format && mode == other.mode && colorCoding == other.colorCoding &&
               width == other.width && height == other.height;
    }

    friend bool operator==(const VideoFormat&, const VideoFormat&) = default;
};

/// What of a format can be chosen, in pixels and 100 ns units.
struct VideoFormatLimits {
    bool scalable = false;
    std::uint32_t minWidth = 0;
    std::uint32_t minHeight = 0;
    std::uint32_t maxWidth = 0;  ///< that of the whole picture, whatever the area
    std::uint32_t maxHeight = 0;
    std::uint32_t unitWidth = 1;
    std::uint32_t unitHeight = 1;
    std::uint32_t unitLeft = 1;
    std::uint32_t unitTop = 1;
    std::int64_t shortestFrameTime = 0;
    std::int64_t longestFrameTime = 0;
};

/// One entry of the list that a capture pin offers.
struct OfferedFormat {
    VideoFormat usual;  ///< a scalable mode's with the area that it is set to
    VideoFormatLimits limits;
};

/// Where the area of a scalable mode comes from.
enum class Geometry : std::uint32_t {
    /// From the format while the geometry switch (property 61) is 1; else the format must name the area that the mode
    /// is already set to.
    bySwitch,
    /// From the format: it was agreed before.
    agreed,
};

/// All formats that the camera offers, fixed ones first, one entry for each color coding of a scalable mode. The first
/// is the one that the camera leaves the factory in.
[[nodiscard]] std::vector<OfferedFormat> OfferedFormats(const CameraState& state);

/// What the camera is set to; nothing in a mode that it lacks.
[[nodiscard]] std::optional<VideoFormat> CurrentFormat(const CameraState& state);

/// Whether the camera can be set to a format; changes nothing of the camera.
///
/// @param wanted  when it can: its frame time becomes the one that the camera makes of it. Fixed modes take the nearest
///                of their rates, scalable ones the nearest that area and packets allow.
/// @return        invalidParameter for what it does not offer; noBandwidth where packets are too large for the speed
[[nodiscard]] Status CheckFormat(const CameraState& state, Geometry geometry, VideoFormat& wanted);

/// Sets the camera: current format, mode and rate or the scalable mode's registers. Nothing changes on a failure.
[[nodiscard]] Status ApplyFormat(CameraState& state, Geometry geometry, VideoFormat& wanted);

/// Takes the next picture of a stream, if there is one now: the camera streams, is set to pictures of the stream's
/// layout, and the trigger lets one pass. The picture is counted.
///
/// @return  where it is taken, with the position of this moment
[[nodiscard]] std::optional<VideoFormat> TakePicture(CameraState& state, const VideoFormat& stream);

}  // namespace kolmsim
