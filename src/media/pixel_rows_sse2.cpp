#ifdef __x86_64__

#include <emmintrin.h>

#include "media/pixel_rows.h"
#include "media/pixel_rows_vector.h"

namespace kolmfluxor {
namespace {

constexpr std::size_t kStep = 16;

struct Sse2 : Register<16> {
    [[gnu::always_inline]] static Words LowTimes(Words words, Words factor) {
        return (words & (Words{} + std::int16_t{0xFF})) * factor;
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

[[gnu::always_inline]] inline __m128i Packed(Sse2::Words even, Sse2::Words odd) {
    return _mm_packus_epi16(reinterpret_cast<__m128i>(even), reinterpret_cast<__m128i>(odd));
}

/// Four pixels of four bytes B, G, R and any other, as 12 bytes; the rest is 0.
[[gnu::always_inline]] inline __m128i Squeezed(__m128i pixels) {
    const __m128i first = _mm_and_si128(pixels, _mm_set1_epi64x(0x0000000000FFFFFF));
    const __m128i second = _mm_and_si128(_mm_srli_epi64(pixels, 8), _mm_set1_epi64x(0x0000FFFFFF000000));
    const __m128i pairs = _mm_or_si128(first, second);  // 6 bytes at 0 and at 8
    return _mm_or_si128(_mm_move_epi64(pairs), _mm_slli_si128(_mm_srli_si128(pairs, 8), 6));
}

/// 16 pixels of four bytes, as 48 bytes.
[[gnu::always_inline]] inline void StoreSqueezed(std::uint8_t* to, __m128i p0, __m128i p4, __m128i p8, __m128i p12) {
    const __m128i a = Squeezed(p0);
    const __m128i b = Squeezed(p4);
    const __m128i c = Squeezed(p8);
    const __m128i d = Squeezed(p12);
    Store(to, _mm_or_si128(a, _mm_slli_si128(b, 12)));
    Store(to + 16, _mm_or_si128(_mm_srli_si128(b, 4), _mm_slli_si128(c, 8)));
    Store(to + 32, _mm_or_si128(_mm_srli_si128(c, 8), _mm_slli_si128(d, 4)));
}

[[gnu::always_inline]] inline void Mono8Block(const std::uint8_t* source, std::uint8_t* destination) {
    const __m128i gray = Load(source);
    const __m128i low = _mm_unpacklo_epi8(gray, gray);
    const __m128i high = _mm_unpackhi_epi8(gray, gray);
    StoreSqueezed(destination, _mm_unpacklo_epi16(low, low), _mm_unpackhi_epi16(low, low),
                  _mm_unpacklo_epi16(high, high), _mm_unpackhi_epi16(high, high));
}

[[gnu::always_inline]] inline void UyvyBlock(const std::uint8_t* source, std::uint8_t* destination) {
    const __m128i first = Load(source);
    const __m128i second = Load(source + 16);
    const __m128i low = _mm_set1_epi32(0xFFFF);
    const __m128i even = _mm_or_si128(_mm_and_si128(first, low), _mm_slli_epi32(second, 16));
    const __m128i odd = _mm_or_si128(_mm_srli_epi32(first, 16), _mm_andnot_si128(low, second));

    const auto bgr = BgrOf<Sse2>(reinterpret_cast<Sse2::Words>(even), reinterpret_cast<Sse2::Words>(odd));
    const __m128i blue = Packed(bgr.blueEven, bgr.blueOdd);
    const __m128i green = Packed(bgr.greenEven, bgr.greenOdd);
    const __m128i red = Packed(bgr.redEven, bgr.redOdd);

    // Pixels of four bytes: even ones 0, 8, 2, 10 and 4, 12, 6, 14, then odd ones likewise.
    const __m128i blueGreenEven = _mm_unpacklo_epi8(blue, green);
    const __m128i blueGreenOdd = _mm_unpackhi_epi8(blue, green);
    const __m128i redEven = _mm_unpacklo_epi8(red, red);
    const __m128i redOdd = _mm_unpackhi_epi8(red, red);
    const __m128i even0 = _mm_unpacklo_epi16(blueGreenEven, redEven);
    const __m128i even4 = _mm_unpackhi_epi16(blueGreenEven, redEven);
    const __m128i odd1 = _mm_unpacklo_epi16(blueGreenOdd, redOdd);
    const __m128i odd5 = _mm_unpackhi_epi16(blueGreenOdd, redOdd);
    // Pairs of an even and an odd one: 0, 1, 8, 9; 2, 3, 10, 11; 4, 5, 12, 13; 6, 7, 14, 15.
    const __m128i p0 = _mm_unpacklo_epi32(even0, odd1);
    const __m128i p2 = _mm_unpackhi_epi32(even0, odd1);
    const __m128i p4 = _mm_unpacklo_epi32(even4, odd5);
    const __m128i p6 = _mm_unpackhi_epi32(even4, odd5);
    StoreSqueezed(destination, _mm_unpacklo_epi64(p0, p2), _mm_unpacklo_epi64(p4, p6), _mm_unpackhi_epi64(p0, p2),
                  _mm_unpackhi_epi64(p4, p6));
}

void Mono8(const std::uint8_t* source, std::uint8_t* destination, std::size_t pixels) {
    ConvertBlocks<kStep, 1, 1, Mono8Block>(source, destination, pixels, kPlainRows.mono8);
}

void Uyvy(const std::uint8_t* source, std::uint8_t* destination, std::size_t pixels) {
    ConvertBlocks<kStep, 2, 2, UyvyBlock>(source, destination, pixels, kPlainRows.uyvy);
}

}  // namespace

constinit const PixelRows kSse2Rows = {.name = "SSE2", .mono8 = Mono8, .uyvy = Uyvy};

}  // namespace kolmfluxor

#endif
