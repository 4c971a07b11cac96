#ifdef __x86_64__

#include <immintrin.h>

#include "media/pixel_rows.h"
#include "media/pixel_rows_interleave.h"
#include "media/pixel_rows_vector.h"

namespace kolmfluxor {
namespace {

constexpr std::size_t kStep = 32;

struct Avx2 : Register<32> {
    [[gnu::always_inline]] static Words LowTimes(Words words, Words factor) {
        return reinterpret_cast<Words>(
            _mm256_maddubs_epi16(reinterpret_cast<__m256i>(words), reinterpret_cast<__m256i>(factor)));
    }
    [[gnu::always_inline]] static Words MulHigh(Words a, Words b) {
        return reinterpret_cast<Words>(_mm256_mulhi_epi16(reinterpret_cast<__m256i>(a), reinterpret_cast<__m256i>(b)));
    }
};

/// 16 bytes for each half.
[[gnu::always_inline]] inline __m256i Load(const void* low, const void* high) {
    return _mm256_loadu2_m128i(static_cast<const __m128i_u*>(high), static_cast<const __m128i_u*>(low));
}

[[gnu::always_inline]] inline __m256i LoadTwice(const void* from) {
    return Load(from, from);
}

[[gnu::always_inline]] inline void Store(std::uint8_t* to, __m256i bytes) {
    _mm256_storeu_si256(reinterpret_cast<__m256i_u*>(to), bytes);
}

[[gnu::always_inline]] inline __m256i Packed(Avx2::Words even, Avx2::Words odd) {
    return _mm256_packus_epi16(reinterpret_cast<__m256i>(even), reinterpret_cast<__m256i>(odd));
}

[[gnu::always_inline]] inline void Mono8Block(const std::uint8_t* source, std::uint8_t* destination) {
    const std::uint8_t* const next = source + 16;
    const auto& [a, b, c] = kTriple.order;
    Store(destination, _mm256_shuffle_epi8(LoadTwice(source), Load(a, b)));
    Store(destination + 32, _mm256_shuffle_epi8(Load(source, next), Load(c, a)));
    Store(destination + 64, _mm256_shuffle_epi8(LoadTwice(next), Load(b, c)));
}

/// Register i of the 48 bytes of each half, from planes in the order of the output.
[[gnu::always_inline]] inline __m256i Merged(__m256i blue, __m256i green, __m256i red, std::size_t i) {
    const __m256i both = _mm256_blendv_epi8(blue, green, LoadTwice(kGreen.isMine[i]));
    return _mm256_blendv_epi8(both, red, LoadTwice(kRed.isMine[i]));
}

[[gnu::always_inline]] inline void UyvyBlock(const std::uint8_t* source, std::uint8_t* destination) {
    // Most instructions work on each half alone: pixels 0 to 15 go through the lower halves, 16 to 31 through the
    // upper.
    const __m256i first = Load(source, source + 32);
    const __m256i second = Load(source + 16, source + 48);
    const __m256i even = _mm256_blend_epi16(first, _mm256_slli_epi32(second, 16), 0xAA);
    const __m256i odd = _mm256_blend_epi16(_mm256_srli_epi32(first, 16), second, 0xAA);

    const auto bgr = BgrOf<Avx2>(reinterpret_cast<Avx2::Words>(even), reinterpret_cast<Avx2::Words>(odd));
    const __m256i blue = _mm256_shuffle_epi8(Packed(bgr.blueEven, bgr.blueOdd), LoadTwice(kBlue.order));
    const __m256i green = _mm256_shuffle_epi8(Packed(bgr.greenEven, bgr.greenOdd), LoadTwice(kGreen.order));
    const __m256i red = _mm256_shuffle_epi8(Packed(bgr.redEven, bgr.redOdd), LoadTwice(kRed.order));
    const __m256i out0 = Merged(blue, green, red, 0);
    const __m256i out1 = Merged(blue, green, red, 1);
    const __m256i out2 = Merged(blue, green, red, 2);
    Store(destination, _mm256_permute2x128_si256(out0, out1, 0x20));       // lower halves
    Store(destination + 32, _mm256_blend_epi32(out2, out0, 0xF0));         // lower half, upper half
    Store(destination + 64, _mm256_permute2x128_si256(out1, out2, 0x31));  // upper halves
}

void Mono8(const std::uint8_t* source, std::uint8_t* destination, std::size_t pixels) {
    ConvertBlocks<kStep, 1, 1, Mono8Block>(source, destination, pixels, kSsse3Rows.mono8);
}

void Uyvy(const std::uint8_t* source, std::uint8_t* destination, std::size_t pixels) {
    ConvertBlocks<kStep, 2, 2, UyvyBlock>(source, destination, pixels, kSsse3Rows.uyvy);
}

}  // namespace

constinit const PixelRows kAvx2Rows = {.name = "AVX2", .mono8 = Mono8, .uyvy = Uyvy};

}  // namespace kolmfluxor

#endif
