#pragma once
/// @file  Where a picture goes in an area. No Windows header: this also builds natively.

#include <algorithm>
#include <cstdint>

namespace kolmview {

struct Box {
    int left = 0;
    int top = 0;
    int width = 0;
    int height = 0;

    friend bool operator==(const Box&, const Box&) = default;
};

/// The largest place in the middle of an area that keeps a picture's proportions, in whole pixels, at least one each
/// way. Empty where the picture or the area is.
[[nodiscard]] constexpr Box FitInside(std::int64_t width, std::int64_t height, int areaWidth, int areaHeight) {
    if (width <= 0 || height <= 0 || areaWidth <= 0 || areaHeight <= 0) {
        return {};
    }
    Box box{0, 0, areaWidth, areaHeight};
    if (areaWidth * height > areaHeight * width) {
        box.width = static_cast<int>(std::max<std::int64_t>(1, areaHeight * width / height));
    } else {
        box.height = static_cast<int>(std::max<std::int64_t>(1, areaWidth * height / width));
    }
    box.left = (areaWidth - box.width) / 2;
    box.top = (areaHeight - box.height) / 2;
    return box;
}

}  // namespace kolmview
