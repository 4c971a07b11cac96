#pragma once
/// @file  A look-up table (LUT) as a curve on a screen.

#include <cstdint>
#include <span>
#include <vector>

#include "lut/lut_info.h"

namespace kolmfluxor {

/// A rectangle of pixels.
struct CurveArea {
    std::int32_t left, top, width, height;
};
struct CurvePoint {
    std::int32_t x, y;
    bool operator==(const CurvePoint&) const = default;
};

/// The corners of the area below a LUT's curve: bottom left, a point for each column of pixels, bottom right.
///
/// The camera's tables give the scale: all elements over the width, all values of its bits over the height. An area
/// that is wider than the LUT repeats elements, a narrower one skips some.
///
/// @return  nothing for an area without width, or when the camera reports no bits
/// @throws std::out_of_range  when a column's element lies beyond this LUT
template <class Value>
[[nodiscard]] std::vector<CurvePoint> LutCurve(std::span<const Value> values, const CurveArea& area,
                                               const LutInfo& info);

}  // namespace kolmfluxor
