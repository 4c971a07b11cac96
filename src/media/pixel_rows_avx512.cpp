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
    [[gnu::always_inline]] static Words LowTimes(Words words, Words factor) {
        return reinterpret_cast<Words>(
            _mm512_maddubs_epi16(reinterpret_cast<__m512i>(words), reinterpret_cast<__m512i>(factor)));
    }
    [[gnu::always_inline]] static Words MulHigh(Words a, Words b) {
        return reinterpret_cast<Words>(_mm512_mulhi_epi16(reinterpret_cast<__m512i>(a), reinterpret_cast<__m512i>(b)));
    }
};

/// Which byte goes where when the planes of 64 pixels are put together: first blue and red, then green. (No masks: GCC
/// would load them anew for each block.) Plain arrays: the functions of library classes might be shared between
/// sources.
struct Interleave {
    alignas(64) std::uint8_t blueRed[kOutputs][64]{};    ///< of the planes blue (0 to 63) and red (64 to 127)
    alignas(64) std::uint8_t withGreen[kOutputs][64]{};  ///< of these (0 to 63) and the plane green (64 to 127)
};

consteval Interleave MakeInterleave() {
    Interleave result;
    for (std::uint8_t at = 0; at < 64; ++at) {
        for (auto& withGreen : result.withGreen)
            withGreen[at] = at;
    }
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
        result.withGreen[green / 64][green % 64] = static_cast<std::uint8_t>(64 + at);
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

struct Planes {
    __m512i blue, green, red;
};

/// The lower halves of one register's 32-bit words and the upper halves of another's.
[[gnu::always_inline]] inline __m512i LowerUpper(__m512i lower, __m512i upper) {
    constexpr int kSecondChooses = 0xB8;  // bit by bit: 0 takes the first operand, 1 the third
    return _mm512_ternarylogic_epi32(lower, _mm512_set1_epi32(-0x10000), upper, kSecondChooses);
}

/// 64 pixels, in the order that kInterleave knows.
[[gnu::always_inline]] inline BgrWords<Avx512::Words> WordsOf(const std::uint8_t* source) {
    // The words between the groups' halves come from the other half of the block, one word before or behind.
    const __m512i even = LowerUpper(_mm512_loadu_si512(source), _mm512_loadu_si512(source + 62));
    const __m512i odd = LowerUpper(_mm512_loadu_si512(source + 2), _mm512_loadu_si512(source + 64));
    return BgrOf<Avx512>(reinterpret_cast<Avx512::Words>(even), reinterpret_cast<Avx512::Words>(odd));
}

[[gnu::always_inline]] inline Planes PlanesOf(const BgrWords<Avx512::Words>& bgr) {
    return {.blue = Packed(bgr.blueEven, bgr.blueOdd),
            .green = Packed(bgr.greenEven, bgr.greenOdd),
            .red = Packed(bgr.redEven, bgr.redOdd)};
}

using Store = void(std::uint8_t* destination, __m512i bytes);

[[gnu::always_inline]] inline void StoreAnywhere(std::uint8_t* destination, __m512i bytes) {
    _mm512_storeu_si512(destination, bytes);
}

/// Past the caches. @param destination  a multiple of 64
[[gnu::always_inline]] inline void StoreLine(std::uint8_t* destination, __m512i bytes) {
    _mm512_stream_si512(reinterpret_cast<__m512i*>(destination), bytes);
}

template <Store kStore>
[[gnu::always_inline]] inline void StoreOutput(std::uint8_t* destination, const Planes& planes, std::size_t i) {
    const __m512i order = _mm512_loadu_si512(kInterleave.blueRed[i]);
    const __m512i blueRed = _mm512_permutex2var_epi8(planes.blue, order, planes.red);
    const __m512i withGreen = _mm512_loadu_si512(kInterleave.withGreen[i]);
    kStore(destination + 64 * i, _mm512_permutex2var_epi8(blueRed, withGreen, planes.green));
}

template <Store kStore>
[[gnu::always_inline]] inline void StorePlanes(std::uint8_t* destination, const Planes& planes) {
    // Not a loop: the compiler leaves one standing.
    StoreOutput<kStore>(destination, planes, 0);
    StoreOutput<kStore>(destination, planes, 1);
    StoreOutput<kStore>(destination, planes, 2);
}

/// Behind the source it does no harm.
///
/// @tparam kAhead  bytes from a block's source to what is fetched meanwhile; 0 for nothing
template <std::size_t kAhead> [[gnu::always_inline]] inline void Prefetch(const std::uint8_t* source) {
    if constexpr (kAhead != 0) {
        const auto ahead = reinterpret_cast<std::uintptr_t>(source) + kAhead;
        _mm_prefetch(reinterpret_cast<const char*>(ahead), _MM_HINT_T0);
        _mm_prefetch(reinterpret_cast<const char*>(ahead + 64), _MM_HINT_T0);
    }
}

template <Store kStore, std::size_t kAhead>
[[gnu::always_inline]] inline void UyvyBlock(const std::uint8_t* source, std::uint8_t* destination) {
    Prefetch<kAhead>(source);
    StorePlanes<kStore>(destination, PlanesOf(WordsOf(source)));
}

/// Two blocks side by side, step by step: while one waits for a result, there is the other to work on.
template <Store kStore, std::size_t kAhead>
[[gnu::always_inline]] inline void TwoUyvyBlocks(const std::uint8_t* source, std::uint8_t* destination) {
    Prefetch<kAhead>(source);
    Prefetch<kAhead>(source + 2 * kStep);
    const auto firstWords = WordsOf(source);
    const auto secondWords = WordsOf(source + 2 * kStep);
    const Planes first = PlanesOf(firstWords);
    const Planes second = PlanesOf(secondWords);
    StorePlanes<kStore>(destination, first);
    StorePlanes<kStore>(destination + kBgrBytes * kStep, second);
}

void Mono8(const std::uint8_t* source, std::uint8_t* destination, std::size_t pixels) {
    ConvertBlocks<kStep, 1, 1, Mono8Block>(source, destination, pixels, kAvx2Rows.mono8);
}

/// The last block may overlap with its neighbor. Measured: to begin at whole lines of the destination does not pay.
void Uyvy(const std::uint8_t* source, std::uint8_t* destination, std::size_t pixels) {
    if (pixels < kStep) {
        kAvx2Rows.uyvy(source, destination, pixels);
        return;
    }
    std::size_t x = 0;
    for (; x + 2 * kStep <= pixels; x += 2 * kStep)
        TwoUyvyBlocks<StoreAnywhere, kPrefetchBytes>(source + 2 * x, destination + kBgrBytes * x);
    if (x + kStep <= pixels) {
        UyvyBlock<StoreAnywhere, kPrefetchBytes>(source + 2 * x, destination + kBgrBytes * x);
        x += kStep;
    }
    if (x < pixels)
        UyvyBlock<StoreAnywhere, kPrefetchBytes>(source + 2 * (pixels - kStep),
                                                 destination + kBgrBytes * (pixels - kStep));
}

/// Some of a block's pixels, by way of other memory: what is stored past the caches must not be in one.
void UyvyPart(const std::uint8_t* block, std::size_t first, std::size_t pixels, std::uint8_t* destination) {
    alignas(64) std::uint8_t bytes[kBgrBytes * kStep];
    UyvyBlock<StoreAnywhere, 0>(block, bytes);
    __builtin_memcpy(destination, bytes + kBgrBytes * first, kBgrBytes * pixels);
}

void UyvyPastCaches(const std::uint8_t* source, std::uint8_t* destination, std::size_t pixels) {
    const std::size_t head = PixelsToAligned<64>(destination) % kStep;
    if (pixels < kStep || head % 2 != 0) {
        Uyvy(source, destination, pixels);
        return;
    }
    if (head != 0) UyvyPart(source, 0, head, destination);
    std::size_t x = head;
    for (; x + 2 * kStep <= pixels; x += 2 * kStep)
        TwoUyvyBlocks<StoreLine, 0>(source + 2 * x, destination + kBgrBytes * x);
    for (std::size_t rest = pixels - x; rest != 0; rest = pixels - x) {
        const std::size_t some = rest < kStep ? rest : kStep;
        UyvyPart(source + 2 * (x + some - kStep), kStep - some, some, destination + kBgrBytes * x);
        x += some;
    }
}

void Finish() {
    _mm_sfence();
}

}  // namespace

constinit const PixelRows kAvx512Rows = {
    .name = "AVX-512", .mono8 = Mono8, .uyvy = Uyvy, .uyvyPastCaches = UyvyPastCaches, .finish = Finish};

}  // namespace kolmfluxor

#endif
