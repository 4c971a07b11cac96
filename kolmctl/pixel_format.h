#pragma once
/// @file  Names of the pixel formats in which a camera sends its pictures.

#include <string>

#include <windows.h>

namespace kolmctl {

/// The name of a video subtype, as in "Mono8"; "unknown" for one that IIDC cameras do not use.
[[nodiscard]] std::string PixelFormatText(const GUID& subtype);

/// The subtype that a name, part of a double name ("YUV422" of "UYVY(YUV422)"), or a FOURCC stands for, without case.
///
/// @return  null when it is none of them
[[nodiscard]] const GUID* FindPixelFormat(const std::string& name);

/// All names, for messages.
[[nodiscard]] std::string PixelFormatNames();

}  // namespace kolmctl
