#pragma once
/// @file  How the pixels of a picture are laid out in bytes.

#include <cstddef>
#include <cstdint>
#include <span>

#include "model/pixel_pipeline.h"

namespace kolmsim {

/// Layout of a picture's bytes; top-down and without row padding unless said.
enum class PixelFormat : std::uint32_t {
    mono8,         ///< one byte of luminance for each pixel
    mono16,        ///< 12 bits of luminance in the low bits of a 16-bit word, low byte first
    raw8,          ///< one byte for each pixel, red, green, green or blue by its place: RG over GB
    yuv411,        ///< U, Y, Y, V, Y, Y for four pixels, BT.601; only for widths that are multiples of 4
    uyvy,          ///< U, Y, V, Y for two pixels, BT.601; only for even widths
    bgr24,         ///< blue, green, red, bottom-up, rows padded to whole 32-bit words
    bgr24TopDown,  ///< the same top-down
};

/// How many bytes a row takes; 0 where the layout does not exist.
[[nodiscard]] std::size_t RowBytes(PixelFormat format, std::uint32_t width);

/// How many bytes a picture takes; 0 where the layout does not exist.
[[nodiscard]] std::size_t PictureBytes(PixelFormat format, std::uint32_t width, std::uint32_t height);

/// Lays out one row.
///
/// @param left, y  place of the row's first pixel on the sensor, for layouts that look at it
/// @param bytes    exactly RowBytes long
void StoreRow(PixelFormat format, std::span<const Rgb> row, std::uint32_t left, std::uint32_t y,
              std::span<std::uint8_t> bytes);

}  // namespace kolmsim
