#pragma once
/// @file  The rules of the area of interest once more, as simply as they can be said: what the module is compared with.
///
/// Numbers are 64-bit, so that nothing overflows for 32-bit arguments. No Windows header: native tests use it too.

#include <cstdint>

namespace kolmfluxor::test::model {

using Number = std::int64_t;

inline Number Step(Number unit) {
    return unit > 0 ? unit : 1;
}

inline Number Abs(Number value) {
    return value < 0 ? -value : value;
}

/// The 32-bit number that is stored.
inline Number Stored(Number value) {
    return static_cast<std::int32_t>(static_cast<std::uint32_t>(value));
}

/// The closest 32-bit number.
inline Number Limited(Number value) {
    if (value > INT32_MAX) return INT32_MAX;
    if (value < INT32_MIN) return INT32_MIN;
    return value;
}

inline Number CheckedPosition(Number x, Number unit, Number max, Number size) {
    const Number limit = Limited(max - size);
    if (x % Step(unit) != 0) x = (x / Step(unit)) * Step(unit);
    if (x < 0) {
        x = 0;
    } else if (x > limit) {
        x = limit;
    }
    return x;
}

inline Number CheckedWidth(Number w, Number min, Number unit, Number max, Number x) {
    const Number limit = Limited(max - x);
    if (w < min) {
        w = min;
    } else if (w > limit) {
        w = limit;
    }
    if (w % Step(unit) != 0) w = (w / Step(unit)) * Step(unit);
    return w;
}

inline Number CheckedHeight(Number h, Number min, Number unit, Number max, Number y) {
    const Number limit = Limited(max - y);
    if (Abs(h) % Step(unit) != 0) h = (h / Step(unit)) * Step(unit);
    const Number sign = h < 0 ? -1 : 1;
    if (Abs(h) < min) {
        h = Stored(sign * min);
    } else if (Abs(h) > limit) {
        h = Stored(sign * limit);
    }
    return h;
}

inline bool ValidPosition(Number x, Number unit, Number largest) {
    return x % Step(unit) == 0 && x >= 0 && x <= largest;
}

inline bool ValidSize(Number w, Number unit, Number max, Number x) {
    return w % Step(unit) == 0 && w >= Step(unit) && x + w <= max;
}

inline Number Stride(Number surfaceWidth, Number bits, Number height) {
    Number s = Stored(Stored(surfaceWidth * bits) / 8 + 3);
    while (s % 4 != 0)
        --s;
    return Stored(height < 0 ? s : -s);
}

inline Number ImageSize(Number height, Number width, Number bits) {
    return Stored(Stored(height * width) * bits) / 8;
}

}  // namespace kolmfluxor::test::model
