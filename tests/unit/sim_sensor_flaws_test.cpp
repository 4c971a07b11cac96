/// @file  Flaws of the simulated sensor in its pictures, and the corrections that take them away.

#include <algorithm>
#include <cstdint>
#include <cstdlib>
#include <tuple>
#include <utility>
#include <vector>

#include <gtest/gtest.h>

#include "model/frame_renderer.h"
#include "sim_fixture.h"

namespace kolmsim {
namespace {

constexpr std::uint32_t kWidth = 64;
constexpr std::uint32_t kHeight = 48;
constexpr std::uint32_t kDsnu = 32;
constexpr std::uint32_t kBlemish = 33;
constexpr std::uint32_t kHighSnr = 41;

class SimSensorFlaws : public test::SimTest {
protected:
    using Bytes = std::vector<std::uint8_t>;

    Bytes Draw(std::uint64_t number = 0) {
        Bytes picture(PictureBytes(PixelFormat::mono8, kWidth, kHeight));
        EXPECT_TRUE(m_renderer.Render(m_camera.PictureSettings(), PixelFormat::mono8, number, picture));
        return picture;
    }
    /// Sum over two rows that show neither the disc nor black or white, of what changes from picture to picture.
    int Flicker() {
        const Bytes one = Draw(1);
        const Bytes other = Draw(2);
        int sum = 0;
        for (std::size_t i = 10 * kWidth; i < 12 * kWidth; ++i) {
            sum += std::abs(one[i] - other[i]);
        }
        return sum;
    }

    FrameRenderer m_renderer{kWidth, kHeight};
};

TEST_F(SimSensorFlaws, the_factory_settings_show_none) {
    const RenderSettings settings = m_camera.PictureSettings();
    EXPECT_EQ(settings.noise, 0U);
    EXPECT_FALSE(settings.darkPattern);
    EXPECT_FALSE(settings.blemishes);
    EXPECT_EQ(settings.shownData, ShownData::scene);
}

TEST_F(SimSensorFlaws, fixed_pattern_noise_shows_while_its_correction_is_off) {
    const Bytes clean = Draw();
    ASSERT_EQ(Set(kDsnu, 64, {{24, 16}, {28, kModeOff}}), Status::ok);
    const Bytes off = Draw();
    int brighter = 0;
    for (std::size_t i = 0; i < clean.size(); ++i) {
        ASSERT_GE(off[i], clean[i]) << i;
        ASSERT_LE(off[i], clean[i] + 7) << i;
        brighter += off[i] > clean[i] ? 1 : 0;
    }
    EXPECT_GT(brighter, static_cast<int>(clean.size() / 2));
    EXPECT_EQ(Draw(), off) << "a fixed pattern";

    WriteRegister(0xF1000290, 0x02000010);
    EXPECT_EQ(Draw(), clean);
    WriteRegister(0xF1000290, 0x00000010);
    EXPECT_EQ(Draw(), off) << "by the register too";
}

TEST_F(SimSensorFlaws, blemishes_are_white_while_their_correction_is_off) {
    const Bytes clean = Draw();
    ASSERT_EQ(Set(kBlemish, 64, {{24, 32}, {28, kModeOff}}), Status::ok);
    const Bytes off = Draw();
    int changed = 0;
    for (std::size_t i = 0; i < clean.size(); ++i) {
        if (off[i] != clean[i]) {
            ++changed;
            EXPECT_EQ(off[i], 255);
        }
    }
    EXPECT_GE(changed, 1);
    EXPECT_LE(changed, 20) << "a few";
}

TEST_F(SimSensorFlaws, flaws_belong_to_the_sensor_and_are_mirrored_with_the_scene) {
    ASSERT_EQ(Set(kDsnu, 64, {{24, 16}, {28, kModeOff}}), Status::ok);
    ASSERT_EQ(Set(kBlemish, 64, {{24, 32}, {28, kModeOff}}), Status::ok);
    Bytes upright = Draw();
    ASSERT_EQ(Set(19, 64, {{24, 1}, {28, kModeManual}}), Status::ok);
    WriteRegister(0xF1000410, 1U << 25 | 1U << 24);
    const Bytes turned = Draw();
    std::ranges::reverse(upright);
    EXPECT_EQ(turned, upright);
}

TEST_F(SimSensorFlaws, a_correction_without_data_corrects_nothing) {
    const Bytes clean = Draw();
    for (const auto& [id, clear, load] : {std::tuple{kDsnu, 0x800U, 0x100U}, {kBlemish, 0x800U, 0x100U}}) {
        SCOPED_TRACE(id);
        // As a command beside the switch, and as a mode.
        for (const auto& [clearWord, loadWord] :
             {std::pair{kModeManual | clear, kModeManual | load}, {kModeClearData, kModeLoadData}}) {
            ASSERT_EQ(Set(id, 64, {{24, 9}, {28, clearWord}}), Status::ok);
            ASSERT_EQ(Get(id), Status::ok);
            EXPECT_EQ(Mode(id), kModeManual);
            EXPECT_NE(Draw(), clean) << "cleared";
            ASSERT_EQ(Set(id, 64, {{24, 9}, {28, loadWord}}), Status::ok);
            ASSERT_EQ(Get(id), Status::ok);
            EXPECT_EQ(Draw(), clean) << "loaded";
        }
        ASSERT_EQ(Set(id, 64, {{24, 9}, {28, kModeClearData}}), Status::ok);
        ASSERT_EQ(Get(id), Status::ok);
        ASSERT_EQ(Set(id, 64, {{24, 9}, {28, kModeManual | 0x8000}}), Status::ok);
        EXPECT_NE(Draw(), clean) << "being computed";
        for (int look = 0; look < 4; ++look) {
            ASSERT_EQ(Get(id), Status::ok);
        }
        EXPECT_EQ(Draw(), clean) << "computed";
    }
}

TEST_F(SimSensorFlaws, saving_data_keeps_it) {
    const Bytes clean = Draw();
    ASSERT_EQ(Set(kBlemish, 64, {{24, 9}, {28, kModeSaveData}}), Status::ok);
    ASSERT_EQ(Get(kBlemish), Status::ok);
    EXPECT_EQ(Draw(), clean);
    ASSERT_EQ(Set(kBlemish, 64, {{24, 9}, {28, kModeClearData}}), Status::ok);
    ASSERT_EQ(Get(kBlemish), Status::ok);
    ASSERT_EQ(Set(kBlemish, 64, {{24, 9}, {28, kModeSaveData}}), Status::ok);
    ASSERT_EQ(Get(kBlemish), Status::ok);
    EXPECT_NE(Draw(), clean) << "nothing there to save";
}

TEST_F(SimSensorFlaws, the_data_can_be_shown_in_place_of_the_scene) {
    const Bytes scene = Draw();
    ASSERT_EQ(Set(kDsnu, 64, {{24, 16}, {28, kModeShowImage}}), Status::ok);
    const Bytes pattern = Draw();
    EXPECT_NE(pattern, scene);
    EXPECT_EQ(Draw(5), pattern) << "no disc moves in it";
    EXPECT_GT(std::ranges::max(pattern), 200);

    ASSERT_EQ(Set(kBlemish, 64, {{24, 32}, {28, kModeManual | kModeShowImage}}), Status::ok);
    EXPECT_EQ(Draw(), pattern) << "the pattern goes first";
    ASSERT_EQ(Set(kDsnu, 64, {{24, 16}, {28, kModeManual}}), Status::ok);
    const Bytes dots = Draw();
    EXPECT_GE(std::ranges::count(dots, 255), 1);
    EXPECT_EQ(std::ranges::count(dots, 255) + std::ranges::count(dots, 0), kWidth * kHeight);

    ASSERT_EQ(Set(kBlemish, 64, {{24, 32}, {28, kModeManual | kModeShowImage | 0x800}}), Status::ok);
    EXPECT_EQ(std::ranges::max(Draw()), 0) << "no data, nothing to see";
    ASSERT_EQ(Set(3, 64, {{24, 1}}), Status::ok);
    EXPECT_GT(std::ranges::max(Draw()), 0) << "a test image takes the place of all";
}

TEST_F(SimSensorFlaws, noise_comes_with_the_gain_and_high_snr_averages_it_away) {
    EXPECT_EQ(Flicker(), 0);
    ASSERT_TRUE(m_camera.SetPropertyWord(5, 24, 100));  // a short exposure, so that nothing is white
    ASSERT_TRUE(m_camera.SetPropertyWord(0, 24, 255));
    const int full = Flicker();
    EXPECT_GT(full, 0);
    EXPECT_EQ(m_camera.PictureSettings().noise, 11U) << "(255 - 64) / 16";

    int before = full;
    for (const auto& [pictures, noise] : {std::pair{4U, 5U}, {16U, 2U}, {256U, 0U}}) {
        ASSERT_EQ(Set(kHighSnr, 64, {{24, pictures}, {28, kModeManual}}), Status::ok);
        EXPECT_EQ(m_camera.PictureSettings().noise, noise) << pictures;
        EXPECT_LT(Flicker(), before) << pictures;
        before = Flicker();
    }
    EXPECT_EQ(before, 0);
    WriteRegister(0xF1000520, 256);
    EXPECT_EQ(Flicker(), full) << "switched off by its register";
}

TEST_F(SimSensorFlaws, noise_of_hostile_settings_is_bounded) {
    ASSERT_TRUE(m_camera.SetPropertyWord(0, 24, 0xFFFFFFFF));
    EXPECT_EQ(m_camera.PictureSettings().noise, (4095U - 64) / 16);
    Draw();
    ASSERT_TRUE(m_camera.SetPropertyWord(kHighSnr, 28, kModeManual));
    ASSERT_TRUE(m_camera.SetPropertyWord(kHighSnr, 24, 0));
    EXPECT_EQ(m_camera.PictureSettings().noise, (4095U - 64) / 16) << "a mean of no pictures changes nothing";
    ASSERT_TRUE(m_camera.SetPropertyWord(kHighSnr, 24, 0xFFFFFFFF));
    EXPECT_EQ(m_camera.PictureSettings().noise, 0U);
}

TEST_F(SimSensorFlaws, a_camera_without_a_correction_shows_what_it_would_correct) {
    const Bytes clean = Draw();
    ASSERT_TRUE(m_camera.SetPropertyPresent(kDsnu, false));
    EXPECT_NE(Draw(), clean);
    ASSERT_TRUE(m_camera.SetPropertyPresent(kDsnu, true));
    EXPECT_EQ(Draw(), clean);
}

TEST_F(SimSensorFlaws, test_images_have_none) {
    ASSERT_EQ(Set(3, 64, {{24, 3}}), Status::ok);
    const Bytes clean = Draw();
    ASSERT_EQ(Set(kDsnu, 64, {{24, 16}, {28, kModeOff}}), Status::ok);
    ASSERT_EQ(Set(kBlemish, 64, {{24, 32}, {28, kModeOff}}), Status::ok);
    ASSERT_TRUE(m_camera.SetPropertyWord(0, 24, 255));
    EXPECT_EQ(Draw(), clean);
    EXPECT_EQ(Draw(7), clean);
}

}  // namespace
}  // namespace kolmsim
