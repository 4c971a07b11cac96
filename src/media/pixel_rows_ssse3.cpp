#ifdef __x86_64__

#include <tmmintrin.h>

#include "media/pixel_rows.h"
#include "media/pixel_rows_interleave.h"
#include "media/pixel_rows_vector.h"

namespace kolmfluxor {
namespace {

constexpr std::size_t kStep = 16;

struct Ssse3 : Register<16> {
    [[gnu::always_inline]] static Words LowTimes(Words words, Words factor) {
        return reinterpret_cast<Words>(
            _mm_maddubs_epi16(reinterpret_cast<__m128i>(words), reinterpret_cast<__m128i>(factor)));
    }
    [[gnu::always_inline]] static Words MulHigh(Words a, Words b) {
        return reinterpret_cast<Words>(_mm_mulhi_epi16(reinterpret_cast<__m128i>(a), reinterpret_cast<__m128i>(b)));
    }
};

[[gnu::always_inline]] inline __m128i Load(const void* from) {
    return _mm_loadu_si128(static_cast<const __m128i_u*>(from));
}

[[gnu::always_inline]] inline void Store(std::uint8_t* to, __m128i bytes) {
    _mm_storeu_si128(reinterpret_cast<__m128i_u*>(to), bytes);
}

[[gnu::always_inline]] inline __m128i Packed(Ssse3::Words even, Ssse3::Words odd) {
    return _mm_packus_epi16(reinterpret_cast<__m128i>(even), reinterpret_cast<__m128i>(odd));
}

[[gnu::always_inline]] inline void Mono8Block(const std::uint8_t* source, std::uint8_t* destination) {
    const __m128i gray = Load(source);
    // Not a loop: the compiler leaves one standing.
    Store(destination, _mm_shuffle_epi8(gray, Load(kTriple.order[0])));
    Store(destination + 16, _mm_shuffle_epi8(gray, Load(kTriple.order[1])));
    Store(destination + 32, _mm_shuffle_epi8(gray, Load(kTriple.order[2])));
}

[[gnu::always_inline]] inline void UyvyBlock(const std::uint8_t* source, std::uint8_t* destination) {
    const __m128i first = Load(source);
    const __m128i second = Load(source + 16);
    const __m128i low = _mm_set1_epi32(0xFFFF);
    const __m128i even = _mm_or_si128(_mm_and_si128(first, low), _mm_slli_epi32(second, 16));
    const __m128i odd = _mm_or_si128(_mm_srli_epi32(first, 16), _mm_andnot_si128(low, second));

    const auto bgr = BgrOf<Ssse3>(reinterpret_cast<Ssse3::Words>(even), reinterpret_cast<Ssse3::Words>(odd));
    const __m128i blue = Packed(bgr.blueEven, bgr.blueOdd);
    const __m128i green = Packed(bgr.greenEven, bgr.greenOdd);
    const __m128i red = Packed(bgr.redEven, bgr.redOdd);
    for (std::size_t i = 0; i < 3; ++i) {
        const __m128i b = _mm_shuffle_epi8(blue, Load(kBlue.orderOrNone[i]));
        const __m128i g = _mm_shuffle_epi8(green, Load(kGreen.orderOrNone[i]));
        const __m128i r = _mm_shuffle_epi8(red, Load(kRed.orderOrNone[i]));
        Store(destination + 16 * i, _mm_or_si128(_mm_or_si128(b, g), r));
    }
}

void Mono8(const std::uint8_t* source, std::uint8_t* destination, std::size_t pixels) {
    ConvertBlocks<kStep, 1, 1, Mono8Block>(source, destination, pixels, kPlainRows.mono8);
}

void Uyvy(const std::uint8_t* source, std::uint8_t* destination, std::size_t pixels) {
    ConvertBlocks<kStep, 2, 2, UyvyBlock>(source, destination, pixels, kPlainRows.uyvy);
}

}  // namespace

constinit const PixelRows kSsse3Rows = {.name = "SSSE3", .mono8 = Mono8, .uyvy = Uyvy};

}  // namespace kolmfluxor

#endif
