#pragma once
/// @file  The IIDC color codings that the cameras know, and how a media type names them.

#include <cstdint>
#include <span>

#include "model/feature_table.h"
#include "model/pixel_layout.h"

namespace kolmsim {

// IIDC color coding ids
inline constexpr std::uint32_t kMono8 = 0;
inline constexpr std::uint32_t kYuv411 = 1;
inline constexpr std::uint32_t kYuv422 = 2;
inline constexpr std::uint32_t kRgb8 = 4;
inline constexpr std::uint32_t kMono16 = 5;
inline constexpr std::uint32_t kRaw8 = 9;

/// The set that holds one color coding alone.
[[nodiscard]] constexpr std::uint32_t CodingBit(std::uint32_t id) {
    return 1U << id;
}

/// Sets of color codings that a camera of each kind can send.
inline constexpr std::uint32_t kMonoCameraCodings = CodingBit(kMono8) | CodingBit(kMono16);
inline constexpr std::uint32_t kColorCameraCodings =
    CodingBit(kMono8) | CodingBit(kYuv411) | CodingBit(kYuv422) | CodingBit(kRgb8) | CodingBit(kRaw8);

[[nodiscard]] constexpr std::uint32_t CodingsOf(Variant variant) {
    return variant == Variant::color ? kColorCameraCodings : kMonoCameraCodings;
}

[[nodiscard]] constexpr bool HasCoding(std::uint32_t set, std::uint32_t id) {
    return id < 32 && (set & CodingBit(id)) != 0;
}

/// One color coding.
struct ColorCoding {
    std::uint32_t id;
    std::uint32_t bitsPerPixel;  ///< as they travel
    std::uint32_t dataDepth;     ///< bits of each component that carry data
    std::uint32_t compression;   ///< as in biCompression: a FOURCC, or 0 for uncompressed RGB
    PixelFormat layout;
};

/// All color codings that any camera knows.
[[nodiscard]] std::span<const ColorCoding> AllColorCodings();

/// A color coding by its id, or null.
[[nodiscard]] const ColorCoding* FindColorCoding(std::uint32_t id);

/// A color coding by its name in a bitmap header, or null.
[[nodiscard]] const ColorCoding* FindColorCoding(std::uint32_t compression, std::uint32_t bitsPerPixel);

}  // namespace kolmsim
