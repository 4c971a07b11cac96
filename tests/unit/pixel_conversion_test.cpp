#include "media/pixel_conversion.h"

#include <array>
#include <cstdint>
#include <span>
#include <vector>

#include <gmock/gmock.h>

namespace kolmfluxor::test {
namespace {

using Bytes = std::vector<std::uint8_t>;
using testing::Each;
using testing::ElementsAre;

TEST(PixelConversion, Mono8_gives_three_equal_bytes_and_the_first_row_last) {
    const Bytes source = {1, 2, 3, 4, 5, 255};
    Bytes destination(18, 0xDE);

    ConvertMono8ToBgr24(source, destination.data(), 2, 3);

    EXPECT_THAT(destination, ElementsAre(5, 5, 5, 255, 255, 255, 3, 3, 3, 4, 4, 4, 1, 1, 1, 2, 2, 2));
}

TEST(PixelConversion, Uyvy_without_chroma_gives_gray_pixels_and_the_first_row_last) {
    const Bytes source = {128, 10, 128, 20, 128, 30, 128, 255};
    Bytes destination(12, 0xDE);

    ConvertUyvyToBgr24(source, destination.data(), 2, 2);

    EXPECT_THAT(destination, ElementsAre(30, 30, 30, 255, 255, 255, 10, 10, 10, 20, 20, 20));
}

TEST(PixelConversion, Uyvy_stores_blue_green_red_and_clamps) {
    // Tb[129] = 1, Tgu[129] = 0, Tgv[131] = -2, Tr[131] = 4
    const Bytes source = {129, 100, 131, 254, 0, 100, 255, 100};
    Bytes destination(12, 0xDE);

    ConvertUyvyToBgr24(source, destination.data(), 4, 1);

    EXPECT_THAT(destination, ElementsAre(101, 98, 104, 255, 252, 255, 0, 54, 255, 0, 54, 255));
}

TEST(PixelConversion, Uyvy_mirrors_the_table_of_red_so_that_it_is_0_at_both_127_and_128) {
    // Tr[128] = 0, Tr[129] = 1, Tr[131] = 4; -1.402 * 4 alone would be truncated to -5.
    const struct {
        std::uint8_t v, red;
    } rows[] = {{128, 100}, {127, 100}, {129, 101}, {126, 99}, {131, 104}, {124, 96}};
    for (const auto& [v, red] : rows) {
        const Bytes source = {128, 100, v, 100};
        Bytes destination(6, 0xDE);

        ConvertUyvyToBgr24(source, destination.data(), 2, 1);

        EXPECT_EQ(destination[2], red) << int{v};
        EXPECT_EQ(destination[5], red) << int{v};
    }
}

TEST(PixelConversion, Uyvy_of_an_odd_width_shares_a_group_between_rows) {
    const Bytes source = {128, 1, 128, 2, 128, 3, 128, 4, 128, 5, 128, 6};
    Bytes destination(18, 0xDE);

    ConvertUyvyToBgr24(source, destination.data(), 3, 2);

    EXPECT_THAT(destination, ElementsAre(4, 4, 4, 5, 5, 5, 6, 6, 6, 1, 1, 1, 2, 2, 2, 3, 3, 3));
}

TEST(PixelConversion, Uyvy_leaves_half_a_group_at_the_end_unconverted) {
    const Bytes source = {128, 1, 128, 2, 128, 3};
    Bytes destination(9, 0xDE);

    ConvertUyvyToBgr24(source, destination.data(), 1, 3);

    EXPECT_THAT(destination, ElementsAre(0xDE, 0xDE, 0xDE, 2, 2, 2, 1, 1, 1));
}

TEST(PixelConversion, Uyvy_converts_the_first_of_a_group_that_ends_behind_the_picture) {
    const Bytes source = {128, 1, 128, 2, 128, 3, 128, 4};
    for (const std::size_t bytes : {6u, 7u, 8u}) {
        Bytes destination(9, 0xDE);

        ConvertUyvyToBgr24(std::span(source).first(bytes), destination.data(), 1, 3);

        const std::uint8_t last = bytes == 8 ? 3 : 0xDE;
        EXPECT_THAT(destination, ElementsAre(last, last, last, 2, 2, 2, 1, 1, 1)) << bytes;
    }
}

TEST(PixelConversion, converts_nothing_without_pixels_or_buffers) {
    const std::array<std::uint8_t, 16> source{};
    using Convert = void (*)(std::span<const std::uint8_t>, std::uint8_t*, int, int);
    for (const Convert convert : {Convert{ConvertMono8ToBgr24}, Convert{ConvertUyvyToBgr24}}) {
        Bytes destination(48, 0xDE);

        convert(source, destination.data(), 0, 2);
        convert(source, destination.data(), 2, 0);
        convert(source, destination.data(), -2, 2);
        convert(source, destination.data(), 2, -2);
        convert(source, destination.data(), -2, -2);
        convert({}, destination.data(), 2, 2);
        convert(source, nullptr, 2, 2);

        EXPECT_THAT(destination, Each(0xDE));
    }
}

TEST(PixelConversion, sources_without_an_end_hold_just_their_pixels) {
    using Convert = void (*)(const std::uint8_t*, std::uint8_t*, int, int);
    struct {
        Convert convert;
        Bytes source, expected;  // 1 x 3 pixels, the last row first
    } const rows[] = {
        {ConvertMono8ToBgr24, {1, 2, 3}, {3, 3, 3, 2, 2, 2, 1, 1, 1}},
        {ConvertUyvyToBgr24, {128, 1, 128, 2, 128, 3}, {0xDE, 0xDE, 0xDE, 2, 2, 2, 1, 1, 1}},
    };
    for (const auto& [convert, source, expected] : rows) {
        Bytes destination(9, 0xDE);

        convert(nullptr, destination.data(), 1, 3);
        convert(source.data(), destination.data(), 1, 0);
        convert(source.data(), destination.data(), -1, -3);
        EXPECT_THAT(destination, Each(0xDE));
        convert(source.data(), destination.data(), 1, 3);

        EXPECT_EQ(destination, expected);
    }
}

}  // namespace
}  // namespace kolmfluxor::test
