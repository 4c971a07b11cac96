#pragma once
/// @file  Byte orders for putting B, G and R of 16 pixels together. For the sources of the vector paths only.
///
/// A plane of 16 bytes holds one color of 16 pixels in the order in which packing leaves them: the even pixels
/// 0, 8, 2, 10, 4, 12, 6, 14, then the odd ones 1, 9, ... 15. The 48 bytes of output are three registers. Within one
/// color no two pixels have the same place in their registers, so that one shuffle of the plane serves all three.

#include <cstddef>
#include <cstdint>

namespace kolmfluxor {
namespace {
// NOLINTBEGIN(misc-definitions-in-headers): local to each source on purpose, see above

/// One color. Plain arrays: the functions of library classes might be shared between sources.
struct Interleave {
    alignas(16) std::uint8_t order[16]{};           ///< for each place, the byte of the plane that belongs there
    alignas(16) std::uint8_t isMine[3][16]{};       ///< for each register, 0xFF at the places of this color
    alignas(16) std::uint8_t orderOrNone[3][16]{};  ///< `order`, but 0x80, which shuffles to 0, at other places
};

consteval Interleave InterleaveOf(std::size_t color) {
    Interleave result;
    for (auto& order : result.orderOrNone) {
        for (auto& place : order)
            place = 0x80;
    }
    for (std::size_t at = 0; at < 16; ++at) {
        const std::size_t group = at % 8;
        const std::size_t pixel = group / 2 * 2 + group % 2 * 8 + at / 8;
        const std::size_t out = pixel * 3 + color;
        result.order[out % 16] = static_cast<std::uint8_t>(at);
        result.isMine[out / 16][out % 16] = 0xFF;
        result.orderOrNone[out / 16][out % 16] = static_cast<std::uint8_t>(at);
    }
    return result;
}

constexpr Interleave kBlue = InterleaveOf(0);
constexpr Interleave kGreen = InterleaveOf(1);
constexpr Interleave kRed = InterleaveOf(2);

/// For 16 gray pixels: the source byte of each of the 48 bytes.
struct Triple {
    alignas(16) std::uint8_t order[3][16]{};
};

consteval Triple TripleOrder() {
    Triple result;
    for (std::size_t out = 0; out < 48; ++out)
        result.order[out / 16][out % 16] = static_cast<std::uint8_t>(out / 3);
    return result;
}

constexpr Triple kTriple = TripleOrder();

// NOLINTEND(misc-definitions-in-headers)
}  // namespace
}  // namespace kolmfluxor
