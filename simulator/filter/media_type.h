#pragma once
/// @file  Media types of the capture filter.

#include <windows.h>

#include <strmif.h>

#include <amvideo.h>  // needs strmif.h before it

#include "base/media_type.h"

namespace kolmsim {

using MediaType = kolmfluxor::CMediaType;

/// The video information block of a type, or null when it has none of at least that size.
[[nodiscard]] const VIDEOINFOHEADER* VideoInfo(const AM_MEDIA_TYPE& type);

}  // namespace kolmsim
