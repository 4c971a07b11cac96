#include "media/media_type_info.h"

#include <cstring>
#include <functional>
#include <utility>

#include <gtest/gtest.h>

#include "media/video_type.h"

namespace kolmfluxor::test {
namespace {

bool operator==(const RECT& a, const RECT& b) {
    return a.left == b.left && a.top == b.top && a.right == b.right && a.bottom == b.bottom;
}

/// The usual header with an area of 320 x 240 at the origin.
VideoType HalfSize() {
    VideoType video;
    video.header.rcSource = {0, 0, 320, 240};
    video.header.bmiHeader.biWidth = 320;
    video.header.bmiHeader.biHeight = 240;
    return video;
}

CMediaTypeInfo Scalable() {
    return CMediaTypeInfo(HalfSize().Get(), ScalableCaps());
}

CMediaTypeInfo Fixed() {
    return CMediaTypeInfo(VideoType().Get(), FixedCaps());
}

/// What a call must leave alone.
VIDEOINFOHEADER HeaderOf(const CMediaTypeInfo& type) {
    return type.VideoInfoHeader();
}

::testing::AssertionResult Unchanged(const CMediaTypeInfo& type, const VIDEOINFOHEADER& before) {
    if (std::memcmp(&type.VideoInfoHeader(), &before, sizeof before) == 0) return ::testing::AssertionSuccess();
    return ::testing::AssertionFailure() << "the header changed";
}

// -- The record

TEST(MediaTypeInfo, is_not_initialized_without_a_type) {
    EXPECT_FALSE(CMediaTypeInfo().IsInitialized());
    EXPECT_FALSE(CMediaTypeInfo({}, ScalableCaps()).IsInitialized());
}

TEST(MediaTypeInfo, copies_type_and_whole_record) {
    VideoType video;
    VIDEO_STREAM_CONFIG_CAPS caps;
    std::memset(&caps, 0x5A, sizeof caps);
    const CMediaTypeInfo first(video.Get(), caps);
    const CMediaTypeInfo copy(first);
    CMediaTypeInfo assigned;
    assigned = first;

    for (const CMediaTypeInfo& type : {std::cref(first), std::cref(copy), std::cref(std::as_const(assigned))}) {
        EXPECT_EQ(std::memcmp(&type.StreamConfigCaps(), &caps, 128), 0);
        EXPECT_EQ(type.Width(), 640);
    }
    assigned.StreamConfigCaps().CropAlignX = 1;
    assigned.Width(8);
    EXPECT_EQ(first.UnitXPos(), 0x5A5A5A5A);
    EXPECT_EQ(first.Width(), 640);
}

TEST(MediaTypeInfo, reads_each_limit_from_its_field) {
    VIDEO_STREAM_CONFIG_CAPS caps{};
    caps.MinCroppingSize = {1, 2};
    caps.MaxCroppingSize = {3, 4};
    caps.CropGranularityX = 5;
    caps.CropGranularityY = 6;
    caps.CropAlignX = 7;
    caps.CropAlignY = 8;
    caps.MaxOutputSize = {9, 10};
    caps.MinFrameInterval = 11;
    caps.MaxFrameInterval = 12;
    const CMediaTypeInfo type(VideoType().Get(), caps);

    EXPECT_EQ(type.MinWidth(), 1);
    EXPECT_EQ(type.MinHeight(), 2);
    EXPECT_EQ(type.MaxWidth(), 3);
    EXPECT_EQ(type.MaxHeight(), 4);
    EXPECT_EQ(type.UnitWidth(), 5);
    EXPECT_EQ(type.UnitHeight(), 6);
    EXPECT_EQ(type.UnitXPos(), 7);
    EXPECT_EQ(type.UnitYPos(), 8);
    EXPECT_TRUE((type.AOI() == RECT{0, 0, 9, 10}));
    EXPECT_EQ(type.FrameTimeMin(), 11);
    EXPECT_EQ(type.FrameTimeMax(), 12);
}

TEST(MediaTypeInfo, limits_of_zero_are_the_current_size) {
    VideoType video;
    video.header.rcSource = {0, 0, 320, 240};
    video.header.bmiHeader.biHeight = -200;
    const CMediaTypeInfo type(video.Get(), {});
    EXPECT_EQ(type.MinWidth(), 320);
    EXPECT_EQ(type.MaxWidth(), 320);
    EXPECT_EQ(type.MinHeight(), 200);
    EXPECT_EQ(type.MaxHeight(), 200);
}

TEST(MediaTypeInfo, is_scalable_when_the_output_sizes_differ_in_either_direction) {
    VIDEO_STREAM_CONFIG_CAPS caps = FixedCaps();
    EXPECT_FALSE(CMediaTypeInfo(VideoType().Get(), caps).IsScalable());
    caps.MinOutputSize.cx -= 1;
    EXPECT_TRUE(CMediaTypeInfo(VideoType().Get(), caps).IsScalable());
    caps.MinOutputSize.cx += 1;
    caps.MinOutputSize.cy += 1;
    EXPECT_TRUE(CMediaTypeInfo(VideoType().Get(), caps).IsScalable()) << "larger counts too";
}

// -- Checked positions and sizes

TEST(CheckedChanges, positions_are_rounded_limited_stored_and_returned) {
    CMediaTypeInfo type = Scalable();
    EXPECT_EQ(type.XPosChecked(13), 12);
    EXPECT_EQ(type.XPos(), 12);
    EXPECT_EQ(type.Width(), 308) << "the plain setter keeps the right edge";

    type = Scalable();
    EXPECT_EQ(type.XPosChecked(400), 320);
    EXPECT_EQ(type.XPos(), 320);

    type = Scalable();
    EXPECT_EQ(type.XPosChecked(-8), 0);
    EXPECT_EQ(type.XPos(), 0);

    EXPECT_EQ(type.YPosChecked(13), 12);
    EXPECT_EQ(type.YPos(), 12);
    EXPECT_EQ(type.Height(), 240);
    EXPECT_EQ(type.YPosChecked(400), 240);
    EXPECT_EQ(type.YPosChecked(-8), 0);
    EXPECT_EQ(type.YPos(), 0);
}

TEST(CheckedChanges, widths_are_limited_and_then_rounded) {
    CMediaTypeInfo type = Scalable();
    EXPECT_EQ(type.WidthChecked(7), 8);
    EXPECT_EQ(type.Width(), 8);
    EXPECT_EQ(type.WidthSurface(), 8);

    type = Scalable();
    type.StreamConfigCaps().CropGranularityX = 6;
    EXPECT_EQ(type.WidthChecked(1000), 636);
    EXPECT_EQ(type.Width(), 636);

    type = Scalable();
    type.XPos(16);
    EXPECT_EQ(type.WidthChecked(1000), 624);
}

TEST(CheckedChanges, heights_are_rounded_and_then_limited_with_their_sign) {
    CMediaTypeInfo type = Scalable();
    EXPECT_EQ(type.HeightChecked(-101), -100);
    EXPECT_EQ(type.BitMapInfoHeader().biHeight, -100);
    EXPECT_EQ(type.Height(), 100);
    EXPECT_EQ(type.HeightChecked(-3), -6);
    EXPECT_EQ(type.HeightChecked(-1), 6) << "rounded to 0 it has no sign any more";
    type.YPos(7);
    EXPECT_EQ(type.HeightChecked(-1000), -473) << "the limit is not rounded";
    EXPECT_EQ(type.BitMapInfoHeader().biHeight, -473);
}

TEST(CheckedChanges, a_fixed_mode_stores_nothing) {
    CMediaTypeInfo type = Fixed();
    const VIDEOINFOHEADER before = HeaderOf(type);
    EXPECT_EQ(type.XPosChecked(12), 0);
    EXPECT_EQ(type.YPosChecked(12), 0);
    EXPECT_EQ(type.WidthChecked(320), 640);
    EXPECT_EQ(type.HeightChecked(-240), 480);
    EXPECT_TRUE(Unchanged(type, before));
}

// -- Checked frame times

TEST(CheckedFrameTimes, a_fixed_mode_takes_the_closest_iidc_rate) {
    CMediaTypeInfo type = Fixed();
    EXPECT_EQ(type.FrameTimeAvrChecked(250'000), 333'333);
    EXPECT_EQ(type.FrameTimeAvg(), 333'333);
    EXPECT_EQ(type.FrameTimeAvrChecked(9'000'000), 5'333'333);
    EXPECT_EQ(type.FrameTimeAvrChecked(83'333), 166'666) << "limited after it was moved";
}

TEST(CheckedFrameTimes, a_fixed_mode_takes_240000_for_what_is_too_short) {
    CMediaTypeInfo type = Fixed();
    EXPECT_EQ(type.FrameTimeAvrChecked(30'000), 240'000);
    EXPECT_EQ(type.FrameTimeAvg(), 240'000);
}

TEST(CheckedFrameTimes, a_scalable_mode_takes_any_within_its_limits) {
    CMediaTypeInfo type = Scalable();
    EXPECT_EQ(type.FrameTimeAvrChecked(250'000), 250'000);
    EXPECT_EQ(type.FrameTimeAvg(), 250'000);
    EXPECT_EQ(type.FrameTimeAvrChecked(166'665), 166'666);
    EXPECT_EQ(type.FrameTimeAvrChecked(5'333'334), 5'333'333);
    EXPECT_EQ(type.FrameTimeAvg(), 5'333'333);
}

TEST(CheckedFrameTimes, of_crossed_limits_the_shortest_is_asked_first) {
    CMediaTypeInfo type = Scalable();
    type.StreamConfigCaps().MinFrameInterval = 200;
    type.StreamConfigCaps().MaxFrameInterval = 100;
    EXPECT_EQ(type.FrameTimeAvrChecked(150), 200);
    EXPECT_EQ(type.FrameTimeAvrChecked(200), 100);
}

TEST(CheckedFrameTimes, rates_are_converted_there_and_back) {
    CMediaTypeInfo type = Scalable();
    EXPECT_EQ(type.FpsChecked(25), 25);
    EXPECT_EQ(type.FrameTimeAvg(), 400'000);
    EXPECT_EQ(type.FpsChecked(100), 60);
    EXPECT_EQ(type.FrameTimeAvg(), 166'666);
    EXPECT_EQ(type.FpmsChecked(1875), 1875);
    EXPECT_EQ(type.FrameTimeAvg(), 5'333'333);
    EXPECT_EQ(type.FpmsChecked(100), 1875);
    EXPECT_EQ(type.FpmsChecked(12'345), 12'345);
    EXPECT_EQ(type.FrameTimeAvg(), 810'044);

    CMediaTypeInfo fixed = Fixed();
    EXPECT_EQ(fixed.FpsChecked(25), 30);
    EXPECT_EQ(fixed.FpmsChecked(12'345), 15'000);
}

// -- Tests of values

TEST(ValidValues, of_a_scalable_mode) {
    const CMediaTypeInfo type = Scalable();
    const VIDEOINFOHEADER before = HeaderOf(type);
    EXPECT_TRUE(type.IsValidXPos(0));
    EXPECT_TRUE(type.IsValidXPos(640)) << "the width is not looked at";
    EXPECT_FALSE(type.IsValidXPos(644));
    EXPECT_FALSE(type.IsValidXPos(2));
    EXPECT_FALSE(type.IsValidXPos(-4));
    EXPECT_TRUE(type.IsValidYPos(2));
    EXPECT_FALSE(type.IsValidYPos(1));
    EXPECT_FALSE(type.IsValidYPos(-2));
    EXPECT_TRUE(type.IsValidOffset(4, 2));
    EXPECT_FALSE(type.IsValidOffset(3, 2));
    EXPECT_FALSE(type.IsValidOffset(4, 1));
    EXPECT_TRUE(type.IsValidWidth(4)) << "one step, though below the minimum";
    EXPECT_TRUE(type.IsValidWidth(640));
    EXPECT_FALSE(type.IsValidWidth(644));
    EXPECT_FALSE(type.IsValidWidth(0));
    EXPECT_FALSE(type.IsValidWidth(-4));
    EXPECT_TRUE(type.IsValidHeight(480));
    EXPECT_TRUE(type.IsValidHeight(-480)) << "without its sign";
    EXPECT_FALSE(type.IsValidHeight(-482));
    EXPECT_FALSE(type.IsValidHeight(3));
    EXPECT_TRUE(type.IsValidSize(640, -480));
    EXPECT_FALSE(type.IsValidSize(641, 480));
    EXPECT_FALSE(type.IsValidSize(640, 481));
    EXPECT_TRUE(Unchanged(type, before));
}

TEST(ValidValues, sizes_depend_on_the_position) {
    CMediaTypeInfo type = Scalable();
    type.XPos(16);
    type.YPos(8);
    EXPECT_TRUE(type.IsValidWidth(624));
    EXPECT_FALSE(type.IsValidWidth(628));
    EXPECT_TRUE(type.IsValidHeight(472));
    EXPECT_FALSE(type.IsValidHeight(474));
}

TEST(ValidValues, IsValidYPos_is_bounded_by_width) {
    const CMediaTypeInfo type = Scalable();
    EXPECT_TRUE(type.IsValidYPos(482)) << "above the maximum height of 480";
    EXPECT_TRUE(type.IsValidYPos(640));
    EXPECT_FALSE(type.IsValidYPos(642));
}

TEST(ValidValues, of_a_fixed_mode_are_only_its_own) {
    const CMediaTypeInfo type = Fixed();
    EXPECT_TRUE(type.IsValidXPos(0));
    EXPECT_FALSE(type.IsValidXPos(4));
    EXPECT_TRUE(type.IsValidYPos(0));
    EXPECT_FALSE(type.IsValidYPos(2));
    EXPECT_TRUE(type.IsValidWidth(640));
    EXPECT_FALSE(type.IsValidWidth(320));
    EXPECT_TRUE(type.IsValidHeight(-480));
    EXPECT_FALSE(type.IsValidHeight(240));
}

// -- Whole areas

TEST(AreaOfInterest, is_stored_whole_and_false_is_returned_all_the_same) {
    CMediaTypeInfo type = Scalable();
    EXPECT_FALSE(type.AOI({16, 8, 336, 248}));
    EXPECT_TRUE((type.SourceRect() == RECT{16, 8, 336, 248}));
    EXPECT_TRUE((type.TargetRect() == RECT{0, 0, 320, 240}));
    EXPECT_EQ(type.WidthSurface(), 320);
    EXPECT_EQ(type.BitMapInfoHeader().biHeight, 240);
    EXPECT_EQ(type.BitMapInfoHeader().biSizeImage, 320u * 240);
    EXPECT_EQ(type.MediaType().lSampleSize, 320u * 240);
}

TEST(AreaOfInterest, of_rgb_is_stored_top_down) {
    CMediaTypeInfo type = Scalable();
    type.BitMapInfoHeader().biCompression = 0;
    EXPECT_FALSE(type.AOI({16, 8, 336, 208}));
    EXPECT_EQ(type.BitMapInfoHeader().biHeight, -200);
    EXPECT_TRUE((type.SourceRect() == RECT{16, 8, 336, 208}));
}

TEST(AreaOfInterest, may_have_its_edges_in_any_order) {
    CMediaTypeInfo type = Scalable();
    EXPECT_FALSE(type.AOI({336, 248, 16, 8}));
    EXPECT_TRUE((type.SourceRect() == RECT{16, 8, 336, 248}));
}

TEST(AreaOfInterest, may_be_the_whole_sensor) {
    CMediaTypeInfo type = Scalable();
    EXPECT_FALSE(type.AOI({0, 0, 640, 480}));
    EXPECT_TRUE((type.SourceRect() == RECT{0, 0, 640, 480}));
}

TEST(AreaOfInterest, that_does_not_fit_changes_nothing) {
    for (const RECT& area : {RECT{-4, 0, 320, 240}, RECT{0, -2, 320, 240}, RECT{0, 0, 644, 240}, RECT{0, 0, 320, 482},
                             RECT{2, 0, 322, 240}, RECT{0, 1, 320, 241}, RECT{0, 0, 322, 240}, RECT{0, 0, 320, 241},
                             RECT{8, 8, 8, 16}, RECT{8, 8, 16, 8}}) {
        CMediaTypeInfo type = Scalable();
        const VIDEOINFOHEADER before = HeaderOf(type);
        EXPECT_FALSE(type.AOI(area));
        EXPECT_TRUE(Unchanged(type, before)) << area.left << ' ' << area.top << ' ' << area.right << ' ' << area.bottom;
    }
}

TEST(AreaOfInterest, is_judged_by_the_old_position) {
    CMediaTypeInfo type = Scalable();
    type.XPos(16);
    const VIDEOINFOHEADER before = HeaderOf(type);
    EXPECT_FALSE(type.AOI({0, 0, 640, 480}));
    EXPECT_TRUE(Unchanged(type, before)) << "640 pixels do not fit at position 16";
}

TEST(AreaOfInterest, must_lie_in_the_largest_output_size_too) {
    CMediaTypeInfo type = Scalable();
    type.StreamConfigCaps().MaxOutputSize = {320, 240};
    const VIDEOINFOHEADER before = HeaderOf(type);
    EXPECT_FALSE(type.AOI({0, 0, 324, 240}));
    EXPECT_FALSE(type.AOI({0, 0, 320, 242}));
    EXPECT_TRUE(Unchanged(type, before));
    EXPECT_FALSE(type.AOI({160, 120, 320, 240}));
    EXPECT_TRUE((type.SourceRect() == RECT{160, 120, 320, 240}));
}

TEST(AreaOfInterest, of_a_fixed_mode_cannot_be_set) {
    CMediaTypeInfo type = Fixed();
    const VIDEOINFOHEADER before = HeaderOf(type);
    EXPECT_FALSE(type.AOI({0, 0, 640, 480}));
    EXPECT_TRUE(Unchanged(type, before));
}

}  // namespace
}  // namespace kolmfluxor::test
