#include "media/pixel_rows.h"

#include <algorithm>
#include <array>
#include <cstdint>
#include <cstdlib>
#include <random>
#include <string>
#include <vector>

#include <gmock/gmock.h>

#include "base/cpu_features.h"
#include "media/pixel_conversion.h"
#include "support/guarded_buffer.h"

namespace kolmfluxor::test {
namespace {

using Bytes = std::vector<std::uint8_t>;
constexpr std::uint8_t kPoison = 0xDE;

// -- What the pictures have to be, by arithmetic of the tests' own

/// The product's whole part, without its fraction, for a factor in thousandths.
int WholePart(int thousandths, int d) {
    const int magnitude = thousandths * std::abs(d) / 1000;
    return d < 0 ? -magnitude : magnitude;
}

/// B, G, R of one pixel, from the rule's own words.
std::array<std::uint8_t, 3> ModelPixel(int y, int u, int v) {
    const int red = v < 128 ? -WholePart(1402, 255 - v - 128) : WholePart(1402, v - 128);
    const int green = -WholePart(344, u - 128) - WholePart(714, v - 128);
    const int blue = WholePart(1772, u - 128);
    const auto clamped = [](int value) { return static_cast<std::uint8_t>(std::min(std::max(value, 0), 255)); };
    return {clamped(y + blue), clamped(y + green), clamped(y + red)};
}

/// Puts pixel after pixel where it belongs; `pixel(n)` gives the n-th of the source.
template <class Pixel> Bytes ModelPicture(std::size_t width, std::size_t height, std::size_t pixels, Pixel pixel) {
    Bytes picture(width * height * 3, kPoison);
    for (std::size_t n = 0; n < pixels; ++n) {
        const std::size_t row = height - 1 - n / width;
        std::ranges::copy(pixel(n), picture.begin() + static_cast<std::ptrdiff_t>((row * width + n % width) * 3));
    }
    return picture;
}

Bytes ModelMono8(const Bytes& source, std::size_t width, std::size_t height) {
    return ModelPicture(width, height, width * height, [&](std::size_t n) {
        return std::array{source[n], source[n], source[n]};
    });
}

Bytes ModelUyvy(const Bytes& source, std::size_t width, std::size_t height) {
    return ModelPicture(width, height, std::min(width * height, source.size() / 4 * 2), [&](std::size_t n) {
        const std::uint8_t* const group = source.data() + n / 2 * 4;
        return ModelPixel(group[n % 2 * 2 + 1], group[0], group[2]);
    });
}

struct Conversion {
    const char* name;
    std::size_t sourceBytes;  // for each pixel
    void (*convert)(const PixelRows&, std::span<const std::uint8_t>, std::uint8_t*, int, int);
    Bytes (*model)(const Bytes& source, std::size_t width, std::size_t height);
};
constexpr Conversion kConversions[] = {
    {"Mono8", 1, ConvertMono8ToBgr24, ModelMono8},
    {"UYVY", 2, ConvertUyvyToBgr24, ModelUyvy},
};

Bytes RandomBytes(std::size_t count) {
    static std::mt19937 random(19);
    Bytes bytes(count);
    std::ranges::generate(bytes, [] { return static_cast<std::uint8_t>(random()); });
    return bytes;
}

/// Converts from one place to another within larger memory, and looks at all of that memory.
void ExpectConverted(const PixelRows& rows, const Conversion& conversion, std::span<std::uint8_t> source,
                     std::span<std::uint8_t> destination, std::span<std::uint8_t> around, std::size_t width,
                     std::size_t height) {
    const Bytes bytes = RandomBytes(source.size());
    std::ranges::copy(bytes, source.begin());
    std::ranges::fill(around, kPoison);

    conversion.convert(rows, source, destination.data(), static_cast<int>(width), static_cast<int>(height));

    const auto place =
        std::string(rows.name) + ", " + conversion.name + ", " + std::to_string(width) + " x " + std::to_string(height);
    ASSERT_TRUE(std::ranges::equal(destination, conversion.model(bytes, width, height))) << place;
    std::ranges::fill(destination, kPoison);
    ASSERT_EQ(std::ranges::count(around, kPoison), std::ssize(around)) << "bytes beside the picture: " << place;
    ASSERT_TRUE(std::ranges::equal(source, bytes)) << "source changed: " << place;
}

/// Those that there are, and with the rows for large pictures in their place, whatever the picture's size.
std::vector<PixelRows> TestedRows() {
    std::vector<PixelRows> tested;
    for (const PixelRows* rows : AvailablePixelRows()) {
        tested.push_back(*rows);
        if (rows->uyvyPastCaches == nullptr) continue;
        tested.push_back(*rows);
        tested.back().name = "past the caches";
        tested.back().uyvy = rows->uyvyPastCaches;
    }
    return tested;
}

// -- Tests

TEST(PixelRows, offer_what_the_processor_allows_and_the_quickest_last) {
    std::vector<std::string> names;
    for (const PixelRows* rows : AvailablePixelRows())
        names.emplace_back(rows->name);

    std::vector<std::string> expected = {"plain"};
#ifdef __x86_64__
    const CpuFeatures features = ReadCpuFeatures();
    expected.emplace_back("SSE2");
    if (features.ssse3) expected.emplace_back("SSSE3");
    if (features.avx2) expected.emplace_back("AVX2");
    if (features.avx512vbmi) expected.emplace_back("AVX-512");
#endif
    EXPECT_EQ(names, expected);
}

TEST(PixelRows, give_every_color_as_the_tables_say) {
    // A row for each V, in it each Y both as first and as second of a group.
    constexpr std::size_t kWidth = 512;
    constexpr std::size_t kRows = 256;
    Bytes source(kWidth * kRows * 2);
    Bytes destination(kWidth * kRows * 3);
    for (int u = 0; u < 256; ++u) {
        auto at = source.begin();
        for (int v = 0; v < 256; ++v) {
            for (int y = 0; y < 256; ++y) {
                for (const int byte : {u, y, v, 255 - y})
                    *at++ = static_cast<std::uint8_t>(byte);
            }
        }
        const Bytes expected = ModelUyvy(source, kWidth, kRows);
        for (const PixelRows& rows : TestedRows()) {
            std::ranges::fill(destination, kPoison);

            ConvertUyvyToBgr24(rows, source, destination.data(), kWidth, kRows);

            ASSERT_TRUE(destination == expected) << rows.name << ", U = " << u;
        }
    }
}

TEST(PixelRows, of_any_width_touch_nothing_beside_them) {
    constexpr std::size_t kMaxWidth = 200;
    constexpr std::size_t kMaxHeight = 3;
    constexpr std::size_t kMaxExtra = 2;  // the rest of a last group
    const CGuardedBuffer sources(kMaxWidth * kMaxHeight * 2 + kMaxExtra);
    const CGuardedBuffer destinations(kMaxWidth * kMaxHeight * 3);
    for (const PixelRows& rows : TestedRows()) {
        for (const Conversion& conversion : kConversions) {
            for (std::size_t width = 1; width <= kMaxWidth; ++width) {
                for (std::size_t height = 1; height <= kMaxHeight; ++height) {
                    for (std::size_t extra = 0; extra <= width * height % 2 * kMaxExtra; ++extra) {
                        const std::size_t from = width * height * conversion.sourceBytes + extra;
                        const std::size_t to = width * height * 3;
                        for (const auto source : {sources.First(from), sources.Last(from)}) {
                            for (const auto destination : {destinations.First(to), destinations.Last(to)}) {
                                ASSERT_NO_FATAL_FAILURE(ExpectConverted(rows, conversion, source, destination,
                                                                        destinations.Bytes(), width, height));
                            }
                        }
                    }
                }
            }
        }
    }
}

TEST(PixelRows, need_no_alignment) {
    constexpr std::size_t kWidth = 150;
    constexpr std::size_t kMaxOffset = 64;
    Bytes sources(kMaxOffset + kWidth * 2);
    Bytes destinations(kMaxOffset + kWidth * 3);
    for (const PixelRows& rows : TestedRows()) {
        for (const Conversion& conversion : kConversions) {
            for (std::size_t from = 0; from < kMaxOffset; ++from) {
                for (std::size_t to = 0; to < kMaxOffset; ++to) {
                    const auto source = std::span(sources).subspan(from, kWidth * conversion.sourceBytes);
                    const auto destination = std::span(destinations).subspan(to, kWidth * 3);
                    ASSERT_NO_FATAL_FAILURE(
                        ExpectConverted(rows, conversion, source, destination, destinations, kWidth, 1));
                }
            }
        }
    }
}

TEST(PixelRows, of_large_pictures_give_the_same) {
    constexpr std::size_t kLarge = std::size_t{9} << 20;  // more than is stored to the caches
    Bytes destinations(kLarge + 64);
    for (const std::size_t width : {2047U, 2048U, 2050U}) {
        const std::size_t height = kLarge / (3 * width);
        const Bytes source = RandomBytes(width * height * 2);
        Bytes expected(width * height * 3);
        ConvertUyvyToBgr24(kPlainRows, source, expected.data(), static_cast<int>(width), static_cast<int>(height));
        for (const std::size_t offset : {0U, 2U, 5U}) {
            const auto picture = std::span(destinations).subspan(offset, expected.size());
            std::ranges::fill(destinations, kPoison);

            ConvertUyvyToBgr24(source, picture.data(), static_cast<int>(width), static_cast<int>(height));

            ASSERT_TRUE(std::ranges::equal(picture, expected)) << width << ", " << offset;
            std::ranges::fill(picture, kPoison);
            ASSERT_EQ(std::ranges::count(destinations, kPoison), std::ssize(destinations)) << width << ", " << offset;
        }
    }
}

TEST(PixelRows, of_the_public_functions_give_the_same) {
    constexpr std::size_t kWidth = 333;
    constexpr std::size_t kHeight = 21;
    const Bytes source = RandomBytes(kWidth * kHeight * 2);
    Bytes destination(kWidth * kHeight * 3, kPoison);

    ConvertMono8ToBgr24(source, destination.data(), kWidth, kHeight);
    EXPECT_TRUE(destination == ModelMono8(source, kWidth, kHeight));

    std::ranges::fill(destination, kPoison);
    ConvertUyvyToBgr24(source, destination.data(), kWidth, kHeight);
    EXPECT_TRUE(destination == ModelUyvy(source, kWidth, kHeight));
}

}  // namespace
}  // namespace kolmfluxor::test
