/// @file  Parts of pictures: the same pixels as the whole picture has there.

#include <algorithm>
#include <cstdint>
#include <tuple>
#include <vector>

#include <gtest/gtest.h>

#include "model/frame_renderer.h"

namespace kolmsim {
namespace {

constexpr std::uint32_t kWidth = 96;
constexpr std::uint32_t kHeight = 64;
using Bytes = std::vector<std::uint8_t>;

class SimArea : public testing::Test {
protected:
    static Bytes Draw(PixelFormat format, const Area& area, const RenderSettings& settings = {}) {
        const FrameRenderer renderer(kWidth, kHeight);
        Bytes picture(PictureBytes(format, area.width, area.height));
        EXPECT_TRUE(renderer.Render(settings, format, 3, area, picture));
        return picture;
    }

    /// The part cut out of the whole picture.
    static Bytes Cut(PixelFormat format, const Area& area, const RenderSettings& settings = {}) {
        const Bytes whole = Draw(format, {0, 0, kWidth, kHeight}, settings);
        const std::size_t wholeRow = RowBytes(format, kWidth);
        const std::size_t row = RowBytes(format, area.width);
        Bytes part;
        for (std::uint32_t y = 0; y < area.height; ++y) {
            const bool bottomUp = format == PixelFormat::bgr24;
            const std::uint32_t line = bottomUp ? kHeight - area.top - area.height + y : area.top + y;
            const auto first =
                whole.begin() + static_cast<std::ptrdiff_t>(line * wholeRow + row * area.left / area.width);
            part.insert(part.end(), first, first + static_cast<std::ptrdiff_t>(row));
        }
        return part;
    }
};

constexpr PixelFormat kFormats[] = {PixelFormat::mono8,       PixelFormat::mono16, PixelFormat::raw8,
                                    PixelFormat::uyvy,        PixelFormat::yuv411, PixelFormat::bgr24,
                                    PixelFormat::bgr24TopDown};

TEST_F(SimArea, a_part_is_cut_out_of_the_whole_in_each_layout) {
    RenderSettings mirrored;
    mirrored.color = true;
    mirrored.mirrorHorizontal = true;
    mirrored.mirrorVertical = true;
    mirrored.gain = 100;
    RenderSettings tested;
    tested.testImage = 2;
    for (const PixelFormat format : kFormats) {
        for (const Area& area :
             {Area{0, 0, kWidth, kHeight}, Area{4, 2, 40, 20}, Area{92, 63, 4, 1}, Area{56, 20, 8, 44}}) {
            SCOPED_TRACE(testing::Message() << static_cast<unsigned>(format) << " at " << area.left << "," << area.top);
            EXPECT_EQ(Draw(format, area), Cut(format, area));
            EXPECT_EQ(Draw(format, area, mirrored), Cut(format, area, mirrored));
            EXPECT_EQ(Draw(format, area, tested), Cut(format, area, tested));
        }
    }
    EXPECT_NE(Draw(PixelFormat::mono8, {4, 2, 40, 20}), Draw(PixelFormat::mono8, {8, 2, 40, 20})) << "places differ";
}

TEST_F(SimArea, a_part_outside_of_the_scene_is_not_drawn) {
    const FrameRenderer renderer(kWidth, kHeight);
    Bytes picture(64, 0xCD);
    for (const Area& area : {Area{89, 0, 8, 8}, Area{0, 57, 8, 8}, Area{0xFFFFFFF8, 0, 8, 8}, Area{0, 0xFFFFFFFC, 8, 8},
                             Area{0, 0, 0, 8}, Area{0, 0, 8, 0}, Area{0, 0, 16, 8}}) {
        EXPECT_FALSE(renderer.Render({}, PixelFormat::mono8, 0, area, picture)) << area.left << " " << area.top;
    }
    Bytes none;
    EXPECT_FALSE(renderer.Render({}, PixelFormat::mono8, 0, {0, 0, 8, 0}, none));
    EXPECT_EQ(std::ranges::count(picture, 0xCD), 64);
}

TEST_F(SimArea, top_down_is_bottom_up_the_other_way_round) {
    const Bytes up = Draw(PixelFormat::bgr24, {0, 0, kWidth, kHeight});
    Bytes down = Draw(PixelFormat::bgr24TopDown, {0, 0, kWidth, kHeight});
    EXPECT_NE(up, down);
    const std::size_t row = RowBytes(PixelFormat::bgr24, kWidth);
    for (std::size_t top = 0; top < kHeight / 2; ++top) {
        std::swap_ranges(down.begin() + static_cast<std::ptrdiff_t>(top * row),
                         down.begin() + static_cast<std::ptrdiff_t>((top + 1) * row),
                         down.begin() + static_cast<std::ptrdiff_t>((kHeight - 1 - top) * row));
    }
    EXPECT_EQ(up, down);
}

TEST_F(SimArea, four_pixels_of_yuv411_share_chroma) {
    const std::vector<Rgb> row = {{0, 0, 0}, {255, 255, 255}, {0, 0, 255}, {255, 0, 0}};
    Bytes bytes(6);
    StoreRow(PixelFormat::yuv411, row, 0, 0, bytes);
    EXPECT_EQ(bytes[1], 16);
    EXPECT_EQ(bytes[2], 235);
    EXPECT_EQ(bytes[4], 41) << "blue";
    EXPECT_EQ(bytes[5], 82) << "red";
    EXPECT_EQ(bytes[0], 128 + (-38 * 510 - 74 * 255 + 112 * 510) / 1024);
    EXPECT_EQ(bytes[3], 128 + (112 * 510 - 94 * 255 - 18 * 510) / 1024);
}

TEST_F(SimArea, sixteen_bits_hold_twelve_with_the_low_byte_first) {
    const std::vector<Rgb> row = {{0, 0, 0}, {255, 255, 255}, {128, 128, 128}};
    Bytes bytes(6);
    StoreRow(PixelFormat::mono16, row, 0, 0, bytes);
    EXPECT_EQ(bytes, (Bytes{0x00, 0x00, 0xFF, 0x0F, 0x07, 0x08}));
}

TEST_F(SimArea, raw_pixels_stand_behind_a_filter_of_red_green_and_green_blue) {
    const std::vector<Rgb> row = {{1, 2, 3}, {1, 2, 3}};
    Bytes bytes(2);
    for (const auto& [left, y, expected] :
         {std::tuple{0U, 0U, Bytes{1, 2}}, {1U, 0U, Bytes{2, 1}}, {0U, 1U, Bytes{2, 3}}, {1U, 1U, Bytes{3, 2}}}) {
        StoreRow(PixelFormat::raw8, row, left, y, bytes);
        EXPECT_EQ(bytes, expected) << left << " " << y;
    }
}

}  // namespace
}  // namespace kolmsim
