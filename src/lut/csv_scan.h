#pragma once
/// @file  Finds the characters that matter in a LUT file, 64 characters at a time.

#include <cstddef>
#include <cstdint>

#include "lut/csv_tokenizer.h"

#if defined(__SSE2__)
#include <emmintrin.h>
#endif

namespace kolmfluxor {

inline constexpr std::size_t kCsvBlock = 64;

/// Bit i is set when character i of the 64 at `text` is a separator, a quote or a line feed.
[[nodiscard]] inline std::uint64_t CsvMarksPlain(const char* text) noexcept {
    std::uint64_t marks = 0;
    for (std::size_t i = 0; i < kCsvBlock; ++i) {
        if (CsvClassOf(text[i]) != CsvClass::other) marks |= std::uint64_t{1} << i;
    }
    return marks;
}

#if defined(__SSE2__)
/// As `CsvMarksPlain`, with the vector instructions that every x86-64 processor has.
[[nodiscard]] inline std::uint64_t CsvMarks(const char* text) noexcept {
    std::uint64_t marks = 0;
    for (std::size_t i = 0; i < kCsvBlock; i += 16) {
        const __m128i part = _mm_loadu_si128(reinterpret_cast<const __m128i*>(text + i));
        __m128i found = _mm_cmpeq_epi8(part, _mm_set1_epi8(','));
        for (const char c : {';', '"', '\'', '\n'})
            found = _mm_or_si128(found, _mm_cmpeq_epi8(part, _mm_set1_epi8(c)));
        marks |= std::uint64_t{static_cast<std::uint32_t>(_mm_movemask_epi8(found))} << i;
    }
    return marks;
}
#else
[[nodiscard]] inline std::uint64_t CsvMarks(const char* text) noexcept {
    return CsvMarksPlain(text);
}
#endif

/// As above, of the first `count` characters only; 64 can be read all the same.
[[nodiscard]] inline std::uint64_t CsvMarks(const char* text, std::size_t count) noexcept {
    const std::uint64_t marks = CsvMarks(text);
    return count < kCsvBlock ? marks & ((std::uint64_t{1} << count) - 1) : marks;
}

}  // namespace kolmfluxor
