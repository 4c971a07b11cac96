#pragma once
/// @file  Conversion of camera pictures to 24-bit BGR. No Windows header: this also builds natively.
///
/// Sources hold `width` x `height` pixels, top row first, without row padding. Destinations are `width` x `height` x 3
/// bytes, B, G, R for each pixel, bottom-up, without row padding: the first source row goes to the last row. The two
/// must not overlap; neither needs an alignment. No source, a null destination, or a width or height of zero or less
/// converts nothing.

#include <cstdint>
#include <span>

namespace kolmfluxor {

/// 8-bit mono, FOURCC "Y800": each source byte gives three equal bytes.
///
/// @param source       `width` x `height` bytes
/// @param destination  `width` x `height` x 3 bytes
void ConvertMono8ToBgr24(const std::uint8_t* source, std::uint8_t* destination, int width, int height);

/// FOURCC "UYVY": each group of four bytes U, Y0, V, Y1 gives two pixels.
///
/// For each Y: R = Y + Tr[V], G = Y + Tgu[U] + Tgv[V], B = Y + Tb[U], each clamped to 0 ... 255. The tables are
/// BT.601's chroma terms in whole numbers: the factor (1.402, -0.344, -0.714, 1.772) times (c - 128), fraction dropped.
/// Compatibility: Tr of a c below 128 is -Tr[255 - c], thus 0 at both 127 and 128. Callers know the pictures so.
///
/// Groups follow each other regardless of rows: when the width is odd, the last pixel of every other row shares its
/// group with the first pixel of the next. When the count of pixels is odd, the last one has half a group only and is
/// left as it is.
///
/// @param source       `width` x `height` x 2 bytes
/// @param destination  `width` x `height` x 3 bytes
void ConvertUyvyToBgr24(const std::uint8_t* source, std::uint8_t* destination, int width, int height);

/// The same for sources that say where they end: at `width` x `height` pixels or behind them.
///
/// The last pixel of an odd count of UYVY is converted where the source holds the whole of its group.
void ConvertMono8ToBgr24(std::span<const std::uint8_t> source, std::uint8_t* destination, int width, int height);
void ConvertUyvyToBgr24(std::span<const std::uint8_t> source, std::uint8_t* destination, int width, int height);

}  // namespace kolmfluxor
