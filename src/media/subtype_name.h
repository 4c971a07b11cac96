#pragma once
/// @file  Names of video subtypes for display.

#include <windows.h>

#include <strmif.h>

namespace kolmfluxor {

/// What to call the subtype (pixel format) of a media type, for example "Mono8"; "unknown" for any other subtype.
[[nodiscard]] const char* SubtypeName(const AM_MEDIA_TYPE& type) noexcept;

}  // namespace kolmfluxor
