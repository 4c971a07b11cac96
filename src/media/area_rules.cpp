#include "media/area_rules.h"

#include <algorithm>
#include <limits>
#include <utility>

namespace kolmfluxor {
namespace {

constexpr std::uint32_t Bits(std::int32_t value) {
    return static_cast<std::uint32_t>(value);
}

constexpr std::int32_t Wrapped(std::uint32_t bits) {
    return static_cast<std::int32_t>(bits);  // C++20: modulo 2^32
}

constexpr std::int32_t WrappedNegative(std::int32_t value) {
    return Wrapped(0U - Bits(value));
}

/// The step that counts: a driver's step of zero or less divides nothing.
constexpr std::int32_t Step(std::int32_t unit) {
    return std::max(unit, 1);
}

bool IsMultiple(std::int32_t value, std::int32_t unit) {
    return value % Step(unit) == 0;
}

std::int32_t RoundedTowardZero(std::int32_t value, std::int32_t unit) {
    return value / Step(unit) * Step(unit);
}

/// What a part leaves of the whole, as close as 32 bits come.
std::int32_t Rest(std::int32_t whole, std::int32_t part) {
    using Limits = std::numeric_limits<std::int32_t>;
    const std::int64_t rest = std::int64_t{whole} - part;
    return static_cast<std::int32_t>(std::clamp<std::int64_t>(rest, Limits::min(), Limits::max()));
}

bool IsEmpty(const PixelRect& rect) {
    return rect.left == rect.right && rect.top == rect.bottom;
}

/// Width and height without signs.
std::pair<std::int32_t, std::int32_t> Extent(const PixelRect& rect) {
    return {WrappedMagnitude(WrappedDifference(rect.right, rect.left)),
            WrappedMagnitude(WrappedDifference(rect.bottom, rect.top))};
}

bool IsEmptyOrFills(const PixelRect& rect, const BitmapSize& bitmap) {
    return IsEmpty(rect) || Extent(rect) == std::pair(WrappedMagnitude(bitmap.width), WrappedMagnitude(bitmap.height));
}

}  // namespace

std::int32_t WrappedSum(std::int32_t a, std::int32_t b) noexcept {
    return Wrapped(Bits(a) + Bits(b));
}

std::int32_t WrappedDifference(std::int32_t a, std::int32_t b) noexcept {
    return Wrapped(Bits(a) - Bits(b));
}

std::int32_t WrappedProduct(std::int32_t a, std::int32_t b) noexcept {
    return Wrapped(Bits(a) * Bits(b));
}

std::int32_t WrappedMagnitude(std::int32_t value) noexcept {
    return value < 0 ? WrappedNegative(value) : value;
}

PixelRect Normalized(PixelRect rect) noexcept {
    if (rect.top > rect.bottom) std::swap(rect.top, rect.bottom);
    if (rect.left > rect.right) std::swap(rect.left, rect.right);
    return rect;
}

bool LiesIn(const PixelRect& bounds, const PixelRect& rect) noexcept {
    const auto holds = [&](std::int32_t x, std::int32_t y) {
        return x >= bounds.left && x <= bounds.right && y >= bounds.top && y <= bounds.bottom;
    };
    return holds(rect.left, rect.top) && holds(rect.right, rect.bottom);
}

std::int32_t AreaWidth(const PixelRect& area, std::int32_t surfaceWidth) noexcept {
    return area == PixelRect{} ? surfaceWidth : WrappedDifference(area.right, area.left);
}

bool SameExtent(const PixelRect& a, const BitmapSize& bitmapA, const PixelRect& b, const BitmapSize& bitmapB) noexcept {
    if (bitmapA.width != bitmapB.width) return false;
    // Compatibility: the heights of the bitmaps are not compared; types that differ in them are told apart elsewhere.
    if (IsEmptyOrFills(a, bitmapA) && IsEmptyOrFills(b, bitmapB)) return true;
    return Extent(a) == Extent(b);
}

std::int32_t StrideBytes(std::int32_t surfaceWidth, std::int32_t bitsPerPixel, std::int32_t height) noexcept {
    const std::int32_t lineBytes = WrappedProduct(surfaceWidth, bitsPerPixel) / 8;
    const std::int32_t stride = WrappedSum(lineBytes, 3) & ~3;
    return height < 0 ? stride : WrappedNegative(stride);
}

std::int32_t ImageBytes(std::int32_t height, std::int32_t width, std::int32_t bitsPerPixel) noexcept {
    return WrappedProduct(WrappedProduct(height, width), bitsPerPixel) / 8;
}

std::int32_t FittedPosition(std::int32_t position, const AxisLimits& limits, std::int32_t size) noexcept {
    const std::int32_t rounded = RoundedTowardZero(position, limits.positionUnit);
    if (rounded < 0) return 0;
    return std::min(rounded, Rest(limits.maxSize, size));
}

std::int32_t FittedWidth(std::int32_t width, const AxisLimits& limits, std::int32_t position) noexcept {
    // Not std::clamp: the limits of a driver may cross, and the smallest size then wins.
    const std::int32_t clamped =
        width < limits.minSize ? limits.minSize : std::min(width, Rest(limits.maxSize, position));
    return RoundedTowardZero(clamped, limits.sizeUnit);
}

std::int32_t FittedHeight(std::int32_t height, const AxisLimits& limits, std::int32_t position) noexcept {
    const std::int32_t rounded = RoundedTowardZero(height, limits.sizeUnit);
    const std::int64_t magnitude = rounded < 0 ? -std::int64_t{rounded} : rounded;
    const auto withSign = [&](std::int32_t value) { return rounded < 0 ? WrappedNegative(value) : value; };
    if (magnitude < limits.minSize) return withSign(limits.minSize);
    const std::int32_t largest = Rest(limits.maxSize, position);
    return magnitude > largest ? withSign(largest) : rounded;
}

bool IsValidPosition(std::int32_t position, const AxisLimits& limits, std::int32_t largest) noexcept {
    return IsMultiple(position, limits.positionUnit) && position >= 0 && position <= largest;
}

bool IsValidExtent(std::int32_t size, const AxisLimits& limits, std::int32_t position) noexcept {
    return IsMultiple(size, limits.sizeUnit) && size >= Step(limits.sizeUnit) &&
           std::int64_t{position} + size <= limits.maxSize;
}

}  // namespace kolmfluxor
