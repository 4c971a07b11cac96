#pragma once
/// @file  Layout of the samples that a stream delivers, and their conversion. No Windows header: this also builds
/// natively.

#include <cstddef>
#include <cstdint>
#include <optional>
#include <span>

namespace kolmview {

enum class SampleLayout {
    mono8,   ///< one byte of luminance (or of a color filter) for each pixel
    uyvy,    ///< U, Y, V, Y for two pixels
    yuv411,  ///< U, Y, Y, V, Y, Y for four pixels
    bgr24,   ///< B, G, R; rows filled up to whole 32-bit words
};

/// What a media type says about its samples.
struct SampleFormat {
    SampleLayout layout;
    std::size_t width;   ///< in pixels
    std::size_t height;  ///< in rows
    bool topDown;        ///< whether the first row is the picture's top

    /// The format that a bitmap header describes. @param compression  a FOURCC, or 0 for uncompressed RGB
    ///
    /// @param height  positive for bottom-up RGB; all other layouts are top-down, whatever the sign
    /// @return        nothing for a layout that is none of the above, for one whose groups of pixels the width divides,
    ///                and for pictures that are empty or larger than 16384 pixels in a direction
    [[nodiscard]] static std::optional<SampleFormat> Of(std::uint32_t compression, unsigned bitsPerPixel,
                                                        std::int32_t width, std::int32_t height);

    /// Bytes of one row of a sample.
    [[nodiscard]] std::size_t RowBytes() const;
    /// Bytes of a whole sample.
    [[nodiscard]] std::size_t Bytes() const { return RowBytes() * height; }
    /// Whether there is no color in the pictures.
    [[nodiscard]] bool IsGray() const { return layout == SampleLayout::mono8; }

    friend bool operator==(const SampleFormat&, const SampleFormat&) = default;
};

/// Converts a sample to B, G, R, top row first, each row filled up to a multiple of 4 bytes.
///
/// @param sample   at least `format.Bytes()` long
/// @param picture  `format.height` such rows; the fill bytes are left alone
void ConvertSample(const SampleFormat& format, std::span<const std::uint8_t> sample, std::span<std::uint8_t> picture);

}  // namespace kolmview
