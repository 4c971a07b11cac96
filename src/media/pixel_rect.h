#pragma once
/// @file  RECT, as the portable arithmetic of areas takes it.

#include <windows.h>

#include "media/area_rules.h"

namespace kolmfluxor {

[[nodiscard]] constexpr PixelRect ToPixelRect(const RECT& rect) noexcept {
    return {rect.left, rect.top, rect.right, rect.bottom};
}

[[nodiscard]] constexpr RECT ToRect(const PixelRect& rect) noexcept {
    return {rect.left, rect.top, rect.right, rect.bottom};
}

}  // namespace kolmfluxor
