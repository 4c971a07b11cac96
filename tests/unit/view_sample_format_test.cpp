/// @file  How the viewer reads the samples of a stream, and where pictures go in its window.

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cstdint>
#include <string_view>
#include <vector>

#include "kolmview/fit.h"
#include "kolmview/sample_format.h"
#include "media/pixel_conversion.h"

namespace kolmview {
namespace {

using Bytes = std::vector<std::uint8_t>;
using ::testing::ElementsAre;

constexpr std::uint8_t kFill = 0xEE;

constexpr std::uint32_t FourCc(std::string_view text) {
    std::uint32_t word = 0;
    for (std::size_t i = 0; i < 4; ++i) {
        word |= static_cast<std::uint32_t>(static_cast<unsigned char>(text[i])) << (8 * i);
    }
    return word;
}

/// The picture of a sample; bytes that are not written keep kFill.
Bytes Convert(const SampleFormat& format, const Bytes& sample) {
    Bytes picture((format.width * 3 + 3) / 4 * 4 * format.height, kFill);
    ConvertSample(format, sample, picture);
    return picture;
}

TEST(ViewSampleFormat, knows_the_layouts_and_their_sizes) {
    const auto gray = SampleFormat::Of(FourCc("Y800"), 8, 5, 3);
    ASSERT_TRUE(gray);
    EXPECT_EQ(*gray, (SampleFormat{SampleLayout::mono8, 5, 3, true}));
    EXPECT_TRUE(gray->IsGray());
    EXPECT_EQ(gray->Bytes(), 15u);
    const auto uyvy = SampleFormat::Of(FourCc("UYVY"), 16, 6, 3);
    ASSERT_TRUE(uyvy);
    EXPECT_EQ(*uyvy, (SampleFormat{SampleLayout::uyvy, 6, 3, true}));
    EXPECT_FALSE(uyvy->IsGray());
    EXPECT_EQ(uyvy->Bytes(), 36u);
    const auto yuv411 = SampleFormat::Of(FourCc("Y411"), 12, 8, 3);
    ASSERT_TRUE(yuv411);
    EXPECT_EQ(yuv411->Bytes(), 36u);
    const auto rgb = SampleFormat::Of(0, 24, 5, 3);
    ASSERT_TRUE(rgb);
    EXPECT_EQ(rgb->Bytes(), 48u) << "rows are filled up";
    EXPECT_EQ(SampleFormat::Of(FourCc("ARW8"), 8, 5, 3)->layout, SampleLayout::mono8);
}

TEST(ViewSampleFormat, is_bottom_up_only_for_rgb_of_positive_height) {
    EXPECT_FALSE(SampleFormat::Of(0, 24, 4, 3)->topDown);
    EXPECT_TRUE(SampleFormat::Of(0, 24, 4, -3)->topDown);
    EXPECT_EQ(SampleFormat::Of(0, 24, 4, -3)->height, 3u);
    EXPECT_TRUE(SampleFormat::Of(FourCc("Y800"), 8, 4, 3)->topDown);
    EXPECT_TRUE(SampleFormat::Of(FourCc("UYVY"), 16, 4, -3)->topDown);
}

TEST(ViewSampleFormat, refuses_what_it_cannot_read) {
    EXPECT_FALSE(SampleFormat::Of(FourCc("AY16"), 16, 4, 3));
    EXPECT_FALSE(SampleFormat::Of(FourCc("Y800"), 16, 4, 3)) << "bits that do not belong to the layout";
    EXPECT_FALSE(SampleFormat::Of(0, 32, 4, 3));
    EXPECT_FALSE(SampleFormat::Of(FourCc("UYVY"), 16, 5, 3)) << "half a group";
    EXPECT_FALSE(SampleFormat::Of(FourCc("Y411"), 12, 6, 3)) << "half a group";
    for (const std::int32_t none : {0, 16385, INT32_MAX}) {
        EXPECT_FALSE(SampleFormat::Of(FourCc("Y800"), 8, none, 3)) << none;
        EXPECT_FALSE(SampleFormat::Of(FourCc("Y800"), 8, 4, none)) << none;
    }
    EXPECT_FALSE(SampleFormat::Of(FourCc("Y800"), 8, -4, 3));
    EXPECT_FALSE(SampleFormat::Of(FourCc("Y800"), 8, 4, -16385));
    EXPECT_FALSE(SampleFormat::Of(FourCc("Y800"), 8, 4, INT32_MIN));
    EXPECT_TRUE(SampleFormat::Of(FourCc("Y800"), 8, 16384, -16384));
}

TEST(ViewSampleFormat, converts_gray_top_row_first_and_leaves_fill_bytes) {
    EXPECT_THAT(Convert({SampleLayout::mono8, 3, 2, true}, {1, 2, 3, 4, 5, 6}),
                ElementsAre(1, 1, 1, 2, 2, 2, 3, 3, 3, kFill, kFill, kFill,  //
                            4, 4, 4, 5, 5, 5, 6, 6, 6, kFill, kFill, kFill));
}

TEST(ViewSampleFormat, turns_bottom_up_rgb_and_keeps_top_down) {
    const Bytes sample = {1, 2, 3, 0, 4, 5, 6, 0};

    EXPECT_THAT(Convert({SampleLayout::bgr24, 1, 2, false}, sample), ElementsAre(4, 5, 6, kFill, 1, 2, 3, kFill));
    EXPECT_THAT(Convert({SampleLayout::bgr24, 1, 2, true}, sample), ElementsAre(1, 2, 3, kFill, 4, 5, 6, kFill));
}

TEST(ViewSampleFormat, converts_uyvy_as_still_pictures_are) {
    const Bytes sample = {90, 50, 200, 60, 128, 70, 128, 80};
    Bytes bottomUp(12);
    kolmfluxor::ConvertUyvyToBgr24(sample.data(), bottomUp.data(), 2, 2);
    const Bytes upper(bottomUp.begin() + 6, bottomUp.end());

    const Bytes picture = Convert({SampleLayout::uyvy, 2, 2, true}, sample);

    EXPECT_EQ(Bytes(picture.begin(), picture.begin() + 6), upper);
    EXPECT_EQ(Bytes(picture.begin() + 8, picture.begin() + 14), (Bytes{70, 70, 70, 80, 80, 80}));
    EXPECT_NE(picture[0], picture[2]) << "colored";
}

TEST(ViewSampleFormat, converts_yuv411_as_uyvy_with_the_same_color_for_four) {
    const Bytes groups = {90, 10, 20, 200, 30, 40, 60, 50, 60, 130, 70, 80};  // U Y Y V Y Y
    const Bytes same = {90, 10, 200, 20, 90, 30, 200, 40, 60, 50, 130, 60, 60, 70, 130, 80};

    EXPECT_EQ(Convert({SampleLayout::yuv411, 4, 2, true}, groups), Convert({SampleLayout::uyvy, 4, 2, true}, same));
}

TEST(ViewFit, keeps_proportions_in_the_middle) {
    EXPECT_EQ(FitInside(640, 480, 640, 480), (Box{0, 0, 640, 480}));
    EXPECT_EQ(FitInside(640, 480, 1000, 480), (Box{180, 0, 640, 480}));
    EXPECT_EQ(FitInside(640, 480, 640, 1000), (Box{0, 260, 640, 480}));
    EXPECT_EQ(FitInside(640, 480, 320, 1000), (Box{0, 380, 320, 240}));
    EXPECT_EQ(FitInside(1, 16384, 100, 100), (Box{49, 0, 1, 100})) << "a pixel at least";
    EXPECT_EQ(FitInside(16384, 16384, 32767, 32767), (Box{0, 0, 32767, 32767})) << "no overflow";
}

TEST(ViewFit, of_nothing_is_nothing) {
    EXPECT_EQ(FitInside(0, 480, 640, 480), Box{});
    EXPECT_EQ(FitInside(640, 0, 640, 480), Box{});
    EXPECT_EQ(FitInside(640, 480, 0, 480), Box{});
    EXPECT_EQ(FitInside(640, 480, 640, -1), Box{});
}

}  // namespace
}  // namespace kolmview
