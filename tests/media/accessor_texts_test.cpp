/// @file  What every accessor says when it cannot answer, and that it then changes nothing.

#include <cstring>
#include <string>

#include <gtest/gtest.h>

#include "media/accessor_cases.h"
#include "support/thrown_text.h"

namespace kolmfluxor::test {
namespace {

constexpr const char* kNothing = "(nothing was thrown)";

std::string TextOf(const AccessorCase& row, CMediaTypeInfo& type) {
    return ThrownText([&] { row.call(type, {}); });
}

TEST(AccessorTexts, the_list_has_lost_no_accessor) {
    EXPECT_EQ(AccessorCases().size(), 61u);
}

TEST(AccessorTexts, no_accessor_throws_on_a_usual_type) {
    for (const AccessorCase& row : AccessorCases()) {
        VideoType video;
        CMediaTypeInfo type(video.Get(), ScalableCaps());
        EXPECT_EQ(TextOf(row, type), kNothing) << row.className << "::" << row.name;
    }
}

TEST(AccessorTexts, every_accessor_says_that_the_type_is_not_initialized) {
    for (const AccessorCase& row : AccessorCases()) {
        VideoType video;
        video.type.formattype = FORMAT_VideoInfo2;
        CMediaTypeInfo type(video.Get(), ScalableCaps());
        CMediaTypeInfo empty;
        const std::string expected = std::string(row.className) + "::" + row.name + " not initialized";

        EXPECT_EQ(TextOf(row, type), expected);
        EXPECT_EQ(TextOf(row, empty), expected);
    }
}

TEST(AccessorTexts, every_accessor_that_needs_the_header_says_that_there_is_none) {
    for (const AccessorCase& row : AccessorCases()) {
        VideoType video;
        CMediaTypeInfo type(video.Get(), ScalableCaps());
        const VIDEOINFOHEADER* const block = &type.VideoInfoHeader();
        MediaTypePeer::DropHeader(type);
        ASSERT_TRUE(type.IsInitialized());

        EXPECT_EQ(TextOf(row, type), row.nullPointerText != nullptr ? row.nullPointerText : kNothing)
            << row.className << "::" << row.name;
        EXPECT_EQ(std::memcmp(block, &video.header, sizeof *block), 0) << row.name << " changed something";
        EXPECT_EQ(type.MediaType().lSampleSize, 640u * 480) << row.name << " changed something";
    }
}

TEST(AccessorTexts, limits_that_come_from_the_current_size_need_the_header) {
    VideoType video;
    VIDEO_STREAM_CONFIG_CAPS caps = ScalableCaps();
    caps.MinCroppingSize = {};
    caps.MaxCroppingSize = {};
    CMediaTypeInfo type(video.Get(), caps);
    MediaTypePeer::DropHeader(type);

    EXPECT_EQ(ThrownText([&] { (void)type.MinWidth(); }), "CAMMediaType::Width: Null Pointer");
    EXPECT_EQ(ThrownText([&] { (void)type.MaxWidth(); }), "CAMMediaType::Width: Null Pointer");
    EXPECT_EQ(ThrownText([&] { (void)type.MinHeight(); }), "CAMMediaType::Height: Null Pointer");
    EXPECT_EQ(ThrownText([&] { (void)type.MaxHeight(); }), "CAMMediaType::Height: Null Pointer");
}

TEST(AccessorTexts, a_type_without_its_header_equals_nothing) {
    VideoType video;
    CAMMediaType type(video.Get());
    MediaTypePeer::DropHeader(type);
    EXPECT_FALSE(type == video.Get());
}

// -- Exceptions of the conversions

TEST(AccessorTexts, a_frame_rate_of_zero_is_refused_and_changes_nothing) {
    VideoType video;
    CMediaTypeInfo type(video.Get(), ScalableCaps());

    EXPECT_EQ(ThrownText([&] { type.FrameRate(0); }), "FpsToFrameTime: Div by Zero -> fps is 0");
    EXPECT_EQ(ThrownText([&] { type.FpsChecked(0); }), "FpsToFrameTime: Div by Zero -> fps is 0");
    EXPECT_EQ(ThrownText([&] { type.FpmsChecked(0); }), "FPpsX1000ToFrameTime: Div by Zero -> fps is 0");
    EXPECT_EQ(type.FrameTimeAvg(), 333'333);
}

TEST(AccessorTexts, a_frame_time_of_zero_has_no_rate) {
    VideoType video;
    video.header.AvgTimePerFrame = 0;
    CMediaTypeInfo type(video.Get(), ScalableCaps());
    EXPECT_EQ(ThrownText([&] { (void)type.FrameRate(); }), "FrameTimeToFps: Div by Zero -> frame time is 0");
}

TEST(AccessorTexts, limits_of_zero_have_no_rate_and_change_nothing) {
    VideoType video;
    VIDEO_STREAM_CONFIG_CAPS caps = ScalableCaps();
    caps.MinFrameInterval = 0;
    caps.MaxFrameInterval = 0;
    CMediaTypeInfo type(video.Get(), caps);

    EXPECT_EQ(ThrownText([&] { type.FpsChecked(30); }), "FrameTimeToFps: Div by Zero -> frame time is 0");
    EXPECT_EQ(ThrownText([&] { type.FpmsChecked(30'000); }), "FrameTimeToFpms: Div by Zero -> frame time is 0");
    EXPECT_EQ(type.FrameTimeAvg(), 333'333);
    EXPECT_EQ(type.FrameTimeAvrChecked(333'333), 0) << "as a frame time it is stored";
}

}  // namespace
}  // namespace kolmfluxor::test
