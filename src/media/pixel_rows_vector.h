#pragma once
/// @file  What the vector paths of the row conversions share. For their sources only.
///
/// Each of those sources is compiled for other instructions. All that stands here is therefore local to the source that
/// includes it, and always inlined: nothing compiled for one processor may be linked into the path of another.
///
/// UYVY is worked on as 16-bit words. The words of `even` hold U in their low and Y0 in their high bytes, those of
/// `odd` V and Y1 of the same groups: all arithmetic on chroma is done once for two pixels.

#include <cstddef>
#include <cstdint>

namespace kolmfluxor {
namespace {
// NOLINTBEGIN(misc-definitions-in-headers): local to each source on purpose, see above

/// Signed and unsigned 16-bit words of one register.
template <std::size_t kBytes> struct Register {
    using Words [[gnu::vector_size(kBytes)]] = std::int16_t;
    using UnsignedWords [[gnu::vector_size(kBytes)]] = std::uint16_t;
};

/// Before clamping: even and odd pixels in the order of their groups.
template <class Words> struct BgrWords { Words blueEven, blueOdd, greenEven, greenOdd, redEven, redOdd; };

// Chroma terms: the upper 16 bits of a product of scale x (c - 128) and the table's factor x 2^16 / scale. They are
// rounded downward where the tables drop the fraction, so they are one too small where negative. Each factor gives all
// 256 entries of its table exactly.
constexpr std::int16_t kUScale = 4;
constexpr std::int16_t kBlueFactor = 29033;   // 1.772
constexpr std::int16_t kGreenUFactor = 5637;  // 0.344, rounded up: 125 x 0.344 is a whole number

// The table of red is mirrored between 127 and 128, not at 128. With this scale, the only one of 1 to 127, one number
// added to all that is negative mirrors and rounds it: red needs no correction.
constexpr std::int16_t kVScale = 115;
constexpr std::int16_t kRedFactor = 799;           // 1.402
constexpr std::int16_t kGreenVFactor = 407;        // 0.714
constexpr std::int16_t kRedOfNegative = 115 + 82;  // 82 x 799 is just below 2^16

template <class Words> [[gnu::always_inline]] inline Words All(std::int16_t value) {
    return Words{} + value;
}

/// @tparam Isa  `Words`, `UnsignedWords`, and the static members `LowTimes`: the low bytes of words times a number up
///              to 127, and `MulHigh`: the upper halves of signed products
template <class Isa>
[[gnu::always_inline]] inline BgrWords<typename Isa::Words> BgrOf(typename Isa::Words even, typename Isa::Words odd) {
    using Words = typename Isa::Words;
    using UnsignedWords = typename Isa::UnsignedWords;
    const Words u = Isa::LowTimes(even, All<Words>(kUScale)) - All<Words>(kUScale * 128);
    const Words v = Isa::LowTimes(odd, All<Words>(kVScale)) - All<Words>(kVScale * 128);
    const Words uSign = u >> 15;  // -1 or 0
    const Words vSign = v >> 15;

    const Words blue = Isa::MulHigh(u, All<Words>(kBlueFactor)) - uSign;
    const Words red = Isa::MulHigh(v + (vSign & All<Words>(kRedOfNegative)), All<Words>(kRedFactor));
    const Words green =
        Isa::MulHigh(u, All<Words>(kGreenUFactor)) + Isa::MulHigh(v, All<Words>(kGreenVFactor)) - (uSign + vSign);

    const auto yEven = reinterpret_cast<Words>(reinterpret_cast<UnsignedWords>(even) >> 8);
    const auto yOdd = reinterpret_cast<Words>(reinterpret_cast<UnsignedWords>(odd) >> 8);
    return {yEven + blue, yOdd + blue, yEven - green, yOdd - green, yEven + red, yOdd + red};
}

constexpr std::size_t kBgrBytes = 3;

/// How many pixels behind `destination` its address is a multiple of kBytes, a power of two up to 64: 1 to kBytes.
template <std::size_t kBytes>
[[gnu::always_inline]] inline std::size_t PixelsToAligned(const std::uint8_t* destination) {
    constexpr std::size_t kThird = 43;  // 3 x 43 = 2 x 64 + 1
    const std::size_t pixels = (std::size_t{0} - reinterpret_cast<std::uintptr_t>(destination)) * kThird % kBytes;
    return pixels == 0 ? kBytes : pixels;
}

/// Converts blocks of kStep pixels, those between the first and the last one to addresses that are multiples of kStep
/// where possible. The first and the last block begin and end with the row, and may overlap with their neighbors.
///
/// @tparam kUnit         pixels that belong together in the source, 1 or 2
/// @tparam kSourceBytes  for each pixel
/// @tparam kConvert      converts one block
/// @param narrower       converts rows shorter than a block
template <std::size_t kStep, std::size_t kUnit, std::size_t kSourceBytes,
          void (*kConvert)(const std::uint8_t*, std::uint8_t*)>
[[gnu::always_inline]] inline void ConvertBlocks(const std::uint8_t* source, std::uint8_t* destination,
                                                 std::size_t pixels,
                                                 void (*narrower)(const std::uint8_t*, std::uint8_t*, std::size_t)) {
    if (pixels < kStep) {
        narrower(source, destination, pixels);
        return;
    }
    const std::size_t last = pixels - kStep;
    std::size_t next = PixelsToAligned<kStep>(destination);
    if (next % kUnit != 0) next = kStep;
    // One place for all blocks, so that the constants stay in registers.
    for (std::size_t x = 0;;) {
        kConvert(source + x * kSourceBytes, destination + x * kBgrBytes);
        if (x == last) break;
        x = next < last ? next : last;
        next += kStep;
    }
}

// NOLINTEND(misc-definitions-in-headers)
}  // namespace
}  // namespace kolmfluxor
