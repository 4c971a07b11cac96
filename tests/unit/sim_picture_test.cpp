/// @file  Settings of the simulated camera that show in its pictures: LUT, test images, mirror, color.

#include <algorithm>
#include <cstdint>
#include <vector>

#include <gtest/gtest.h>

#include "model/frame_renderer.h"
#include "model/picture_settings.h"
#include "sim_fixture.h"

namespace kolmsim {
namespace {

constexpr std::uint32_t kWidth = 64;
constexpr std::uint32_t kHeight = 48;

class SimPicture : public test::SimTest {
protected:
    using Bytes = std::vector<std::uint8_t>;

    /// What the camera sees now, top-down.
    Bytes Draw(PixelFormat format = PixelFormat::mono8, std::uint64_t number = 0) {
        Bytes picture(PictureBytes(format, kWidth, kHeight));
        EXPECT_TRUE(m_renderer.Render(m_camera.PictureSettings(), format, number, picture));
        return picture;
    }

    /// Mean of one color (0 blue, 1 green, 2 red) over the picture.
    double Mean(std::size_t channel) {
        const Bytes picture = Draw(PixelFormat::bgr24);
        double sum = 0;
        for (std::size_t i = channel; i < picture.size(); i += 3) {
            sum += picture[i];
        }
        return sum / (kWidth * kHeight);
    }

    FrameRenderer m_renderer{kWidth, kHeight};
};
class SimMonoPicture : public SimPicture {
protected:
    SimMonoPicture() { ResetState(*m_state, Variant::mono); }
};

TEST_F(SimPicture, the_factory_lut_changes_nothing) {
    const Bytes before = Draw();
    ASSERT_EQ(Set(31, 64, {{24, 0}, {28, kModeManual}}), Status::ok);
    EXPECT_TRUE(m_camera.PictureSettings().lutOn);
    EXPECT_EQ(Draw(), before);
}

TEST_F(SimPicture, a_lut_shows_when_it_is_on) {
    const Bytes before = Draw();
    for (std::uint32_t i = 0; i < 4096; ++i) {  // the negative
        m_state->lutMemory[2][2 * i] = static_cast<std::uint8_t>((4095 - i) >> 8);
        m_state->lutMemory[2][2 * i + 1] = static_cast<std::uint8_t>(4095 - i);
    }
    ASSERT_EQ(Set(31, 64, {{24, 2}, {28, kModeOff}}), Status::ok);
    EXPECT_EQ(Draw(), before);

    ASSERT_EQ(Set(31, 64, {{24, 2}, {28, kModeManual}}), Status::ok);

    const auto curve = ToneCurve(m_camera.PictureSettings());
    EXPECT_EQ(curve[0], 255);
    EXPECT_EQ(curve[100], 155);
    EXPECT_EQ(curve[255], 0);
    EXPECT_NE(Draw(), before);
}

TEST_F(SimPicture, a_lut_number_equal_to_the_count_stands_for_none) {
    const Bytes before = Draw();
    ASSERT_EQ(Set(31, 64, {{24, 4}, {28, kModeManual}}), Status::ok);
    EXPECT_FALSE(m_camera.PictureSettings().lutOn);
    EXPECT_EQ(Draw(), before);
    EXPECT_EQ(ReadRegister(0xF1000240), 0x82000004U);
    EXPECT_EQ(Set(31, 64, {{24, 5}}), Status::invalidParameter);
}

TEST_F(SimPicture, lut_values_of_up_to_8_bits_take_one_byte) {
    Bytes table(256);
    for (std::size_t i = 0; i < table.size(); ++i) {
        table[i] = static_cast<std::uint8_t>(255 - i);
    }
    EXPECT_EQ(LevelsOf(table, 8)[10], 245);
    std::ranges::fill(table, 0x0F);
    EXPECT_EQ(LevelsOf(table, 4)[10], 255);
    EXPECT_EQ(LevelsOf(table, 16)[10], 15);
    EXPECT_EQ(LevelsOf({}, 8)[10], 10);
    EXPECT_EQ(LevelsOf(table, 0)[10], 10);
    EXPECT_EQ(LevelsOf(table, 17)[10], 10);
}

TEST_F(SimPicture, test_images_differ_and_do_not_depend_on_the_light) {
    std::vector<Bytes> pictures;
    for (std::uint32_t image = 0; image <= 3; ++image) {
        ASSERT_EQ(Set(3, 64, {{24, image}}), Status::ok);
        pictures.push_back(Draw());
        for (std::uint32_t other = 0; other < image; ++other) {
            EXPECT_NE(pictures[image], pictures[other]) << image << " " << other;
        }
    }
    ASSERT_TRUE(m_camera.SetPropertyWord(0, 24, 255));
    ASSERT_TRUE(m_camera.SetPropertyWord(1, 24, 0));
    EXPECT_EQ(Draw(), pictures[3]);
}

TEST_F(SimPicture, only_the_second_test_image_moves) {
    for (std::uint32_t image = 1; image <= 3; ++image) {
        ASSERT_EQ(Set(3, 64, {{24, image}}), Status::ok);
        EXPECT_EQ(Draw(PixelFormat::mono8, 1) != Draw(PixelFormat::mono8, 2), image == 2) << image;
    }
}

TEST_F(SimPicture, the_mirror_turns_the_picture_round) {
    const Bytes before = Draw();
    const auto at = [](const Bytes& picture, std::uint32_t x, std::uint32_t y) { return picture[y * kWidth + x]; };

    ASSERT_EQ(Set(19, 64, {{24, 1}, {28, kModeManual}}), Status::ok);
    const Bytes sideways = Draw();
    WriteRegister(0xF1000410, 1U << 24);
    const Bytes upsideDown = Draw();

    for (std::uint32_t y = 0; y < kHeight; ++y) {
        for (std::uint32_t x = 0; x < kWidth; ++x) {
            ASSERT_EQ(at(sideways, x, y), at(before, kWidth - 1 - x, y)) << x << " " << y;
            ASSERT_EQ(at(upsideDown, x, y), at(before, x, kHeight - 1 - y)) << x << " " << y;
        }
    }
    EXPECT_NE(sideways, before);
    EXPECT_NE(upsideDown, before);
}

// ---- Color --------------------------------------------------------------------------------------------------------

TEST_F(SimPicture, layouts_have_their_sizes) {
    EXPECT_EQ(PictureBytes(PixelFormat::mono8, 17, 3), 51U);
    EXPECT_EQ(PictureBytes(PixelFormat::uyvy, 18, 3), 108U);
    EXPECT_EQ(PictureBytes(PixelFormat::uyvy, 17, 3), 0U) << "no layout for an odd width";
    EXPECT_EQ(PictureBytes(PixelFormat::yuv411, 20, 3), 90U);
    EXPECT_EQ(PictureBytes(PixelFormat::yuv411, 18, 3), 0U);
    EXPECT_EQ(PictureBytes(PixelFormat::mono16, 17, 3), 102U);
    EXPECT_EQ(PictureBytes(PixelFormat::raw8, 17, 3), 51U);
    EXPECT_EQ(PictureBytes(PixelFormat::bgr24, 17, 3), 156U) << "rows of 52 bytes";
    EXPECT_EQ(PictureBytes(PixelFormat::bgr24TopDown, 17, 3), 156U);
    const FrameRenderer odd(17, 16);
    Bytes none;
    EXPECT_FALSE(odd.Render({}, PixelFormat::uyvy, 0, none));
    Bytes padded(std::size_t{52} * 16, 0xCD);
    ASSERT_TRUE(odd.Render({}, PixelFormat::bgr24, 0, padded));
    EXPECT_EQ(padded[51], 0);
}

TEST_F(SimPicture, color_bars_stand_at_the_top_in_their_order) {
    const Bytes bgr = Draw(PixelFormat::bgr24);
    const std::size_t top = std::size_t{kHeight - 1} * kWidth * 3;  // bottom-up
    const auto pixel = [&](std::size_t x) {
        return Bytes(bgr.begin() + static_cast<std::ptrdiff_t>(top + 3 * x),
                     bgr.begin() + static_cast<std::ptrdiff_t>(top + 3 * x + 3));
    };
    EXPECT_EQ(pixel(0), (Bytes{192, 192, 192}));
    EXPECT_EQ(pixel(5 * kWidth / 8), (Bytes{0, 0, 192})) << "red";
    EXPECT_EQ(pixel(6 * kWidth / 8), (Bytes{192, 0, 0})) << "blue";

    const Bytes uyvy = Draw(PixelFormat::uyvy);
    EXPECT_EQ(uyvy[0], 128);
    EXPECT_EQ(uyvy[1], 181) << "16 + 192 x 220 / 256";
    EXPECT_EQ(uyvy[2], 128);
    const std::size_t red = 2 * 5 * kWidth / 8;
    EXPECT_LT(uyvy[red], 110) << "little blue";
    EXPECT_GT(uyvy[red + 2], 200) << "much red";
}

TEST_F(SimPicture, white_balance_multiplies_blue_and_red) {
    const double blue = Mean(0);
    const double green = Mean(1);
    const double red = Mean(2);

    ASSERT_EQ(Set(1, 64, {{24, 142}, {28, kModeManual}}), Status::ok);
    EXPECT_NEAR(Mean(0), blue / 2, 1);
    ASSERT_EQ(Set(2, 64, {{24, 0}, {28, kModeManual}}), Status::ok);
    EXPECT_EQ(Mean(2), 0);
    EXPECT_EQ(Mean(1), green);
    EXPECT_GT(red, 0);
}

TEST_F(SimPicture, saturation_0_leaves_gray) {
    ASSERT_EQ(Set(23, 64, {{24, 0}, {28, kModeManual}}), Status::ok);
    const Bytes bgr = Draw(PixelFormat::bgr24);
    for (std::size_t i = 0; i < bgr.size(); i += 3) {
        ASSERT_EQ(bgr[i], bgr[i + 1]);
        ASSERT_EQ(bgr[i], bgr[i + 2]);
    }
    ASSERT_EQ(Set(23, 64, {{24, 0}, {28, kModeOff}}), Status::ok);
    EXPECT_NE(Draw(PixelFormat::bgr24), bgr) << "switched off it counts as neutral";
}

TEST_F(SimPicture, hue_turns_colors_and_back) {
    const Bytes neutral = Draw(PixelFormat::bgr24);
    ASSERT_EQ(Set(22, 64, {{24, 168}, {28, kModeManual}}), Status::ok);
    const Bytes right = Draw(PixelFormat::bgr24);
    ASSERT_EQ(Set(22, 64, {{24, 88}, {28, kModeManual}}), Status::ok);
    const Bytes left = Draw(PixelFormat::bgr24);
    EXPECT_NE(right, neutral);
    EXPECT_NE(left, neutral);
    EXPECT_NE(left, right);
    ASSERT_EQ(Set(22, 64, {{24, 128}, {28, kModeManual}}), Status::ok);
    EXPECT_EQ(Draw(PixelFormat::bgr24), neutral);
}

TEST_F(SimPicture, the_color_matrix_works_row_by_row) {
    for (std::uint32_t i = 0; i < 9; ++i) {
        WriteRegister(0xF10003A4 + 4 * i, i == 1 || i == 3 || i == 8 ? 1000 : 0);  // red and green change places
    }
    const double green = Mean(1);
    const double red = Mean(2);
    WriteRegister(0xF10003A0, 0);
    EXPECT_EQ(Mean(2), green);
    EXPECT_EQ(Mean(1), red);
    WriteRegister(0xF10003A4 + 4, static_cast<std::uint32_t>(-1000));
    EXPECT_EQ(Mean(2), 0) << "negative coefficients";
    WriteRegister(0xF10003A4 + 4, 0x7FFFFFFF);
    EXPECT_GT(Mean(2), 200) << "no coefficient is too large";
}

TEST_F(SimMonoPicture, a_mono_camera_shows_gray_in_any_layout) {
    const Bytes mono = Draw();
    const Bytes bgr = Draw(PixelFormat::bgr24);
    for (std::size_t i = 0; i < mono.size(); ++i) {
        const std::size_t x = i % kWidth;
        const std::size_t y = kHeight - 1 - i / kWidth;
        for (std::size_t channel = 0; channel < 3; ++channel) {
            ASSERT_EQ(bgr[(y * kWidth + x) * 3 + channel], mono[i]) << i;
        }
    }
    for (const std::uint8_t chroma : {Draw(PixelFormat::uyvy)[0], Draw(PixelFormat::uyvy)[2]}) {
        EXPECT_EQ(chroma, 128);
    }
}

}  // namespace
}  // namespace kolmsim
