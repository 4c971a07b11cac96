#ifdef __x86_64__

#include <immintrin.h>

#include "media/pixel_rows.h"
#include "media/pixel_rows_vector.h"

namespace kolmfluxor {
namespace {

constexpr std::size_t kStep = 64;
constexpr std::size_t kPrefetchBytes = 512;  // measured: a twentieth less time for pictures beyond the second cache
constexpr std::size_t kOutputs = 3;          // registers for 64 pixels

struct Avx512 : Register<64> {
    [[gnu::always_inline]] static Words FourTimesLow(Words words) {
        return reinterpret_cast<Words>(_mm512_maddubs_epi16(reinterpret_cast<__m512i>(words), _mm512_set1_epi16(4)));
    }
    [[gnu::always_inline]] static Words MulHigh(Words a, Words b) {
        return reinterpret_cast<Words>(_mm512_mulhi_epi16(reinterpret_cast<__m512i>(a), reinterpret_cast<__m512i>(b)));
    }
};

/// Which byte goes where when the planes of 64 pixels are put together. Plain arrays: the functions of library classes
/// might be shared between sources.
struct Interleave {
    alignas(64) std::uint8_t blueRed[kOutputs][64]{};  ///< of the planes blue (0 to 63) and red (64 to 127)
    alignas(64) std::uint8_t green[kOutputs][64]{};
    std::uint64_t isGreen[kOutputs]{};
};

consteval Interleave MakeInterleave() {
    Interleave result;
    for (std::size_t at = 0; at < kStep; ++at) {
        // Packing takes 8 words from each of its sources in turn; in them, groups of both halves of the block
        // alternate.
        const std::size_t word = at / 16 * 8 + at % 8;
        const std::size_t isOdd = at / 8 % 2;
        const std::size_t pixel = word / 2 * 2 + word % 2 * 32 + isOdd;
        const std::size_t blue = 3 * pixel;
        const std::size_t green = blue + 1;
        const std::size_t red = blue + 2;
        result.blueRed[blue / 64][blue % 64] = static_cast<std::uint8_t>(at);
        result.blueRed[red / 64][red % 64] = static_cast<std::uint8_t>(64 + at);
        result.green[green / 64][green % 64] = static_cast<std::uint8_t>(at);
        result.isGreen[green / 64] |= std::uint64_t{1} << green % 64;
    }
    return result;
}

constexpr Interleave kInterleave = MakeInterleave();

/// For 64 gray pixels: the source byte of each byte.
struct Triple {
    alignas(64) std::uint8_t order[kOutputs][64]{};
};

consteval Triple TripleOrder() {
    Triple result;
    for (std::size_t out = 0; out < 3 * kStep; ++out)
        result.order[out / 64][out % 64] = static_cast<std::uint8_t>(out / 3);
    return result;
}

constexpr Triple kTriple = TripleOrder();

[[gnu::always_inline]] inline __m512i Packed(Avx512::Words even, Avx512::Words odd) {
    return _mm512_packus_epi16(reinterpret_cast<__m512i>(even), reinterpret_cast<__m512i>(odd));
}

[[gnu::always_inline]] inline void StoreTriple(std::uint8_t* destination, __m512i gray, std::size_t i) {
    const __m512i order = _mm512_loadu_si512(kTriple.order[i]);
    // The form with a mask of all bytes is the same instruction; GCC warns of its own header in the plain form.
    _mm512_storeu_si512(destination + 64 * i, _mm512_maskz_permutexvar_epi8(~__mmask64{0}, order, gray));
}

[[gnu::always_inline]] inline void Mono8Block(const std::uint8_t* source, std::uint8_t* destination) {
    const __m512i gray = _mm512_loadu_si512(source);
    // Not a loop: the compiler leaves one standing.
    StoreTriple(destination, gray, 0);
    StoreTriple(destination, gray, 1);
    StoreTriple(destination, gray, 2);
}

[[gnu::always_inline]] inline void UyvyBlock(const std::uint8_t* source, std::uint8_t* destination) {
    // Addresses behind the source do no harm here.
    const auto ahead = reinterpret_cast<std::uintptr_t>(source) + kPrefetchBytes;
    _mm_prefetch(reinterpret_cast<const char*>(ahead), _MM_HINT_T0);
    _mm_prefetch(reinterpret_cast<const char*>(ahead + 64), _MM_HINT_T0);

    // The words between the groups' halves come from the other half of the block, one word before or behind.
    const __m512i even = _mm512_mask_loadu_epi16(_mm512_loadu_si512(source), 0xAAAAAAAA, source + 62);
    const __m512i odd = _mm512_mask_loadu_epi16(_mm512_loadu_si512(source + 64), 0x55555555, source + 2);

    const auto bgr = BgrOf<Avx512>(reinterpret_cast<Avx512::Words>(even), reinterpret_cast<Avx512::Words>(odd));
    const __m512i blue = Packed(bgr.blueEven, bgr.blueOdd);
    const __m512i green = Packed(bgr.greenEven, bgr.greenOdd);
    const __m512i red = Packed(bgr.redEven, bgr.redOdd);
    for (std::size_t i = 0; i < kOutputs; ++i) {
        const __m512i blueRed = _mm512_permutex2var_epi8(blue, _mm512_loadu_si512(kInterleave.blueRed[i]), red);
        const __m512i greenOrder = _mm512_loadu_si512(kInterleave.green[i]);
        _mm512_storeu_si512(destination + 64 * i,
                            _mm512_mask_permutexvar_epi8(blueRed, kInterleave.isGreen[i], greenOrder, green));
    }
}

void Mono8(const std::uint8_t* source, std::uint8_t* destination, std::size_t pixels) {
    ConvertBlocks<kStep, 1, 1, Mono8Block>(source, destination, pixels, kAvx2Rows.mono8);
}

void Uyvy(const std::uint8_t* source, std::uint8_t* destination, std::size_t pixels) {
    ConvertBlocks<kStep, 2, 2, UyvyBlock>(source, destination, pixels, kAvx2Rows.uyvy);
}

}  // namespace

constinit const PixelRows kAvx512Rows = {.name = "AVX-512", .mono8 = Mono8, .uyvy = Uyvy};

}  // namespace kolmfluxor

#endif
