#pragma once
/// @file  The conversions to 24-bit BGR that are compared: pictures of which sizes, converted in which ways.
///
/// All ways of one work use the same buffers, which are kept: the first touch of new memory costs several times as much
/// as a conversion.

#include <cstdint>
#include <span>
#include <string>
#include <utility>
#include <vector>

#include "media/pixel_rows.h"
#include "pixel_conversion_peers.h"

namespace kolmfluxor::bench {

struct Size {
    const char* name;
    int width, height;
};
inline constexpr Size kSizes[] = {{"640 x 480", 640, 480}, {"1280 x 960", 1280, 960}, {"2048 x 2048", 2048, 2048}};

struct Format {
    const char* name;
    std::size_t bytes;  ///< of each pixel
    void (*convert)(const PixelRows&, std::span<const std::uint8_t>, std::uint8_t*, int, int);
    Converter (*Peer::*peer)(int, int);
};
[[nodiscard]] std::span<const Format> Formats();

struct Picture {
    std::vector<std::uint8_t> source;  ///< as large as the destination, for the plain copy
    std::vector<std::uint8_t> destination;
};

/// One picture, which stays in the caches that it fits into; or, streamed, so many that neither source nor destination
/// is found in a cache, as when a camera delivers.
[[nodiscard]] std::vector<Picture> MakePictures(const Size& size, bool streamed);

/// The quickest instructions first, then the others, the peers, and a plain copy of as many bytes as are made.
[[nodiscard]] std::vector<std::pair<std::string, Converter>> Ways(const Format& format, const Size& size);

}  // namespace kolmfluxor::bench
