#pragma once
/// @file  Conversion of single rows to 24-bit BGR, once for each set of vector instructions.

#include <cstddef>
#include <cstdint>
#include <span>

namespace kolmfluxor {

/// The conversion of rows with one set of instructions. All give the same bytes and touch none outside the row.
struct PixelRows {
    using Convert = void(const std::uint8_t* source, std::uint8_t* destination, std::size_t pixels);

    const char* name;
    Convert* mono8;  ///< `pixels` bytes to 3 x `pixels` bytes
    Convert* uyvy;   ///< whole groups: `pixels` is even; 2 x `pixels` bytes to 3 x `pixels` bytes

    Convert* uyvyPastCaches = nullptr;  ///< as `uyvy`, for pictures that no cache holds, where that is quicker
    void (*finish)() = nullptr;         ///< once after all rows past the caches: other threads may read them then
};

extern const PixelRows kPlainRows;
#ifdef __x86_64__
extern const PixelRows kSse2Rows;
extern const PixelRows kSsse3Rows;
extern const PixelRows kAvx2Rows;
extern const PixelRows kAvx512Rows;
#endif

/// Those that the processor and the operating system allow, the plain one first, the quickest last.
[[nodiscard]] std::span<const PixelRows* const> AvailablePixelRows();

/// The conversions of pixel_conversion.h with a choice of instructions.
void ConvertMono8ToBgr24(const PixelRows& rows, std::span<const std::uint8_t> source, std::uint8_t* destination,
                         int width, int height);
void ConvertUyvyToBgr24(const PixelRows& rows, std::span<const std::uint8_t> source, std::uint8_t* destination,
                        int width, int height);

}  // namespace kolmfluxor
