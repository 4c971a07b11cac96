#pragma once
/// @file  Arithmetic of the area of interest. No Windows header: this also builds natively.
///
/// Numbers come from users and drivers and may be anything. Comparisons are exact; what is stored is 32-bit signed and
/// wraps. A step of zero or less counts as 1, so that every value is a multiple of it (this module's own rule).

#include <cstdint>

namespace kolmfluxor {

/// Edges in pixels; right and bottom lie just outside.
struct PixelRect {
    std::int32_t left = 0;
    std::int32_t top = 0;
    std::int32_t right = 0;
    std::int32_t bottom = 0;

    bool operator==(const PixelRect&) const = default;
};

/// Width and height of a bitmap, signs as stored.
struct BitmapSize {
    std::int32_t width = 0;
    std::int32_t height = 0;
};

/// What a mode allows in one direction.
struct AxisLimits {
    std::int32_t minSize = 0;
    std::int32_t maxSize = 0;  ///< of the sensor: the largest position + size
    std::int32_t sizeUnit = 0;
    std::int32_t positionUnit = 0;
};

// -- 32-bit signed arithmetic that wraps

[[nodiscard]] std::int32_t WrappedSum(std::int32_t a, std::int32_t b) noexcept;
[[nodiscard]] std::int32_t WrappedDifference(std::int32_t a, std::int32_t b) noexcept;
[[nodiscard]] std::int32_t WrappedProduct(std::int32_t a, std::int32_t b) noexcept;
/// The value without its sign; the smallest number stays as it is.
[[nodiscard]] std::int32_t WrappedMagnitude(std::int32_t value) noexcept;

// -- Rectangles

/// Top and bottom swapped if top is greater, left and right swapped if left is greater.
[[nodiscard]] PixelRect Normalized(PixelRect rect) noexcept;

/// Both corners lie in `bounds`, its edges included.
[[nodiscard]] bool LiesIn(const PixelRect& bounds, const PixelRect& rect) noexcept;

/// The area's width; the surface's when the area is all zero.
[[nodiscard]] std::int32_t AreaWidth(const PixelRect& area, std::int32_t surfaceWidth) noexcept;

/// Whether two rectangles say the same about two bitmaps, as equality of media types asks.
///
/// The bitmaps must be equally wide. Then each rectangle must be empty or as large as its bitmap, or else both
/// rectangles equally large; sizes are compared without signs.
/// Compatibility: the heights of the bitmaps are not compared here.
[[nodiscard]] bool SameExtent(const PixelRect& a, const BitmapSize& bitmapA, const PixelRect& b,
                              const BitmapSize& bitmapB) noexcept;

// -- Bitmaps

/// Bytes from one line to the next: ((surfaceWidth x bitsPerPixel) / 8 + 3) rounded down to a multiple of 4; positive
/// for a negative height (top-down), negative otherwise.
[[nodiscard]] std::int32_t StrideBytes(std::int32_t surfaceWidth, std::int32_t bitsPerPixel,
                                       std::int32_t height) noexcept;

/// height x width x bitsPerPixel / 8.
[[nodiscard]] std::int32_t ImageBytes(std::int32_t height, std::int32_t width, std::int32_t bitsPerPixel) noexcept;

// -- Changes on scalable modes, made to fit

/// A position: rounded toward zero to its step, then not below 0, else not above maxSize - size.
[[nodiscard]] std::int32_t FittedPosition(std::int32_t position, const AxisLimits& limits, std::int32_t size) noexcept;

/// A width: not below minSize, else not above maxSize - position; then rounded toward zero to its step.
[[nodiscard]] std::int32_t FittedWidth(std::int32_t width, const AxisLimits& limits, std::int32_t position) noexcept;

/// A height: rounded toward zero to its step; then its magnitude not below minSize, else not above
/// maxSize - position. The sign stays, but a height that rounds to 0 takes the positive minimum.
[[nodiscard]] std::int32_t FittedHeight(std::int32_t height, const AxisLimits& limits, std::int32_t position) noexcept;

// -- Tests on scalable modes

/// A multiple of the position's step, from 0 to `largest`.
[[nodiscard]] bool IsValidPosition(std::int32_t position, const AxisLimits& limits, std::int32_t largest) noexcept;

/// A multiple of the size's step, at least one step, and position + size not above maxSize.
[[nodiscard]] bool IsValidExtent(std::int32_t size, const AxisLimits& limits, std::int32_t position) noexcept;

}  // namespace kolmfluxor
