#include "lut/lut_curve.h"

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <stdexcept>

namespace kolmfluxor {

template <class Value>
std::vector<CurvePoint> LutCurve(std::span<const Value> values, const CurveArea& area, const LutInfo& info) {
    if (area.width <= 0 || info.bitsPerValue == 0) return {};
    constexpr std::uint32_t kMostBits = 64;  // beyond that every curve is flat
    const double highestValue = std::ldexp(1.0, static_cast<int>(std::min(info.bitsPerValue, kMostBits))) - 1.0;
    const double pixelsPerValue = area.height / highestValue;
    const double elementsPerPixel = static_cast<double>(info.ElementCount()) / area.width;

    std::vector<CurvePoint> corners;
    corners.reserve(static_cast<std::size_t>(area.width) + 2);
    const std::int32_t bottom = area.top + area.height;
    corners.push_back({area.left, bottom});
    for (std::int32_t x = 0; x < area.width; ++x) {
        const auto element = static_cast<std::size_t>(elementsPerPixel * x);
        if (element >= values.size()) throw std::out_of_range("the camera's tables are longer than this one");
        const double y = area.top + (area.height - values[element] * pixelsPerValue);
        corners.push_back({area.left + x, static_cast<std::int32_t>(y)});
    }
    corners.push_back({area.left + area.width - 1, bottom});
    return corners;
}

template std::vector<CurvePoint> LutCurve(std::span<const std::uint8_t>, const CurveArea&, const LutInfo&);
template std::vector<CurvePoint> LutCurve(std::span<const std::uint16_t>, const CurveArea&, const LutInfo&);

}  // namespace kolmfluxor
