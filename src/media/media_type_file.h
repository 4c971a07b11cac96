#pragma once
/// @file  Media types from a file.

#include <cstdio>

#include <windows.h>

#include <strmif.h>

namespace kolmfluxor {

/// Overwrites parts of a media type with what a file holds.
///
/// The file is two records back to back, read in text mode (CR LF counts as LF, byte 0x1A ends it): an `AM_MEDIA_TYPE`
/// in its 64-bit layout, of which major type, subtype, flags, sample size and format type are taken, and a
/// `VIDEOINFOHEADER`, which goes over the format block as far as that reaches. A file that cannot be opened changes
/// nothing; a short one changes the bytes that it holds.
///
/// @param fileName  in the system's ANSI code page
void ReadMediaTypeFile(const char* fileName, AM_MEDIA_TYPE& type) noexcept;

/// The same from an open file, in the mode in which it was opened.
void ReadMediaType(std::FILE& file, AM_MEDIA_TYPE& type) noexcept;

}  // namespace kolmfluxor
