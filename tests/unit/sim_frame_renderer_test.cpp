/// @file  Pictures of the simulated camera.

#include <algorithm>
#include <cstdint>
#include <memory>
#include <numeric>
#include <stdexcept>
#include <vector>

#include <gtest/gtest.h>

#include "model/camera.h"
#include "model/frame_renderer.h"

namespace kolmsim {
namespace {

constexpr RenderSettings kNeutral = {
    .brightness = kNeutralBrightness, .gain = kNeutralGain, .exposureUs = kNeutralExposureUs, .gammaOn = false};

class SimRenderer : public testing::Test {
protected:
    std::vector<std::uint8_t> Draw(const RenderSettings& settings, std::uint64_t number = 0) {
        std::vector<std::uint8_t> picture(std::size_t{640} * 480);
        EXPECT_TRUE(m_renderer.Render(settings, PixelFormat::mono8, number, picture));
        return picture;
    }

    static double Mean(const std::vector<std::uint8_t>& picture) {
        return std::accumulate(picture.begin(), picture.end(), 0.0) / static_cast<double>(picture.size());
    }

    FrameRenderer m_renderer{640, 480};
};

TEST_F(SimRenderer, factory_settings_are_neutral) {
    const auto state = std::make_unique<CameraState>();
    ResetState(*state, Variant::mono);

    const RenderSettings settings = Camera(*state).PictureSettings();

    EXPECT_EQ(settings.brightness, kNeutralBrightness);
    EXPECT_EQ(settings.gain, kNeutralGain);
    EXPECT_EQ(settings.exposureUs, kNeutralExposureUs);
    EXPECT_FALSE(settings.gammaOn);
}

TEST_F(SimRenderer, a_neutral_tone_curve_changes_nothing) {
    const auto curve = ToneCurve(kNeutral);
    for (std::size_t level = 0; level < curve.size(); ++level) {
        EXPECT_EQ(curve[level], level);
    }
}

TEST_F(SimRenderer, the_scene_uses_a_wide_range_of_levels) {
    const auto picture = Draw(kNeutral);
    const auto [darkest, brightest] = std::ranges::minmax(picture);
    EXPECT_LE(darkest, 16);
    EXPECT_GE(brightest, 240);
    EXPECT_GT(Mean(picture), 60);
    EXPECT_LT(Mean(picture), 160);
}

TEST_F(SimRenderer, the_same_settings_and_number_give_the_same_picture) {
    FrameRenderer other(640, 480);
    std::vector<std::uint8_t> picture(std::size_t{640} * 480);

    ASSERT_TRUE(other.Render(kNeutral, PixelFormat::mono8, 17, picture));

    EXPECT_EQ(picture, Draw(kNeutral, 17));
}

TEST_F(SimRenderer, something_moves_from_picture_to_picture) {
    for (const std::uint64_t number : {0ULL, 1ULL, 100ULL, 139ULL, 140ULL, 1'000'000'007ULL}) {
        EXPECT_NE(Draw(kNeutral, number), Draw(kNeutral, number + 1)) << number;
    }
}

TEST_F(SimRenderer, brightness_lifts_each_level) {
    RenderSettings settings = kNeutral;
    settings.brightness += 40;
    const auto curve = ToneCurve(settings);
    EXPECT_EQ(curve[0], 40);
    EXPECT_EQ(curve[100], 140);
    EXPECT_EQ(curve[255], 255);
    EXPECT_GT(Mean(Draw(settings)), Mean(Draw(kNeutral)) + 30);

    settings.brightness = 0;
    EXPECT_EQ(ToneCurve(settings)[10], 0);
    EXPECT_LT(Mean(Draw(settings)), Mean(Draw(kNeutral)));
}

TEST_F(SimRenderer, gain_multiplies) {
    RenderSettings settings = kNeutral;
    settings.gain = 192;  // (192 + 64) / 128 = 2
    EXPECT_EQ(ToneCurve(settings)[0], 0);
    EXPECT_EQ(ToneCurve(settings)[100], 200);
    settings.gain = 0;
    EXPECT_EQ(ToneCurve(settings)[100], 50);
    EXPECT_LT(Mean(Draw(settings)), Mean(Draw(kNeutral)) * 0.6);
}

TEST_F(SimRenderer, light_grows_with_exposure) {
    RenderSettings settings = kNeutral;
    settings.exposureUs = kNeutralExposureUs / 4;
    EXPECT_EQ(ToneCurve(settings)[200], 50);
    settings.exposureUs = ~std::uint64_t{0};
    EXPECT_EQ(ToneCurve(settings)[1], 255);
    EXPECT_EQ(ToneCurve(settings)[0], 0);
}

TEST_F(SimRenderer, shutter_and_time_base_make_the_exposure) {
    const auto state = std::make_unique<CameraState>();
    ResetState(*state, Variant::mono);
    Camera camera(*state);

    ASSERT_TRUE(camera.SetPropertyWord(5, 24, 4095));
    ASSERT_TRUE(camera.SetPropertyWord(6, 24, 9));

    EXPECT_EQ(camera.PictureSettings().exposureUs, 4'095'000U);
}

TEST_F(SimRenderer, gamma_lifts_the_middle_and_keeps_the_ends) {
    RenderSettings settings = kNeutral;
    settings.gammaOn = true;
    const auto curve = ToneCurve(settings);
    EXPECT_EQ(curve[0], 0);
    EXPECT_EQ(curve[64], 127);  // sqrt(64 x 255) = 127.7
    EXPECT_EQ(curve[255], 255);
    EXPECT_GT(Mean(Draw(settings)), Mean(Draw(kNeutral)) + 20);
}

TEST_F(SimRenderer, a_buffer_of_another_size_is_left_alone) {
    std::vector<std::uint8_t> small(std::size_t{640} * 480 - 1, 0xCD);
    std::vector<std::uint8_t> large(std::size_t{640} * 480 + 1, 0xCD);
    EXPECT_FALSE(m_renderer.Render(kNeutral, PixelFormat::mono8, 0, small));
    EXPECT_FALSE(m_renderer.Render(kNeutral, PixelFormat::mono8, 0, large));
    EXPECT_EQ(std::ranges::count(small, 0xCD), static_cast<std::ptrdiff_t>(small.size()));
    EXPECT_EQ(std::ranges::count(large, 0xCD), static_cast<std::ptrdiff_t>(large.size()));
}

TEST_F(SimRenderer, any_size_in_range_can_be_drawn) {
    for (const auto& [width, height] : {std::pair{16U, 16U}, {17U, 331U}, {4096U, 16U}, {1392U, 1040U}}) {
        const FrameRenderer renderer(width, height);
        std::vector<std::uint8_t> picture(std::size_t{width} * height);
        for (const std::uint64_t number : {0ULL, 3ULL, 12345ULL}) {
            EXPECT_TRUE(renderer.Render(kNeutral, PixelFormat::mono8, number, picture)) << width << " x " << height;
        }
    }
    EXPECT_TRUE(FrameRenderer::IsDrawable(16, 4096));
    EXPECT_FALSE(FrameRenderer::IsDrawable(640, 0));
    EXPECT_FALSE(FrameRenderer::IsDrawable(4097, 480));
    EXPECT_THROW(FrameRenderer(15, 480), std::invalid_argument);
    EXPECT_THROW(FrameRenderer(640, 4097), std::invalid_argument);
}

}  // namespace
}  // namespace kolmsim
