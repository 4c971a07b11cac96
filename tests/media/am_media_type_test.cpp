#include "media/am_media_type.h"

#include <cstring>
#include <memory>
#include <type_traits>
#include <utility>
#include <vector>

#include <gtest/gtest.h>

#include "media/video_type.h"
#include "support/thrown_text.h"

namespace kolmfluxor::test {
namespace {

bool operator==(const RECT& a, const RECT& b) {
    return a.left == b.left && a.top == b.top && a.right == b.right && a.bottom == b.bottom;
}

// -- Initialization

TEST(AmMediaTypeInitialization, an_empty_type_is_not_initialized) {
    EXPECT_FALSE(CAMMediaType().IsInitialized());
}

TEST(AmMediaTypeInitialization, video_with_a_complete_header_is_initialized) {
    VideoType video;
    const CAMMediaType type(video.Get());

    EXPECT_TRUE(type.IsInitialized());
    EXPECT_TRUE(type.MediaTypeInfo());
    EXPECT_TRUE(type.HeaderTypeInfo());
    EXPECT_EQ(static_cast<const void*>(&type.VideoInfoHeader()), type.MediaType().pbFormat);
    EXPECT_EQ(&type.BitMapInfoHeader(), &type.VideoInfoHeader().bmiHeader);
    EXPECT_EQ(&type.SourceRect(), &type.VideoInfoHeader().rcSource);
    EXPECT_EQ(&type.TargetRect(), &type.VideoInfoHeader().rcTarget);
}

TEST(AmMediaTypeInitialization, each_condition_is_needed) {
    const auto initialized = [](auto change) {
        VideoType video;
        change(video);
        const CAMMediaType type(video.Get());
        return type.IsInitialized();
    };
    EXPECT_TRUE(initialized([](VideoType&) {}));
    EXPECT_FALSE(initialized([](VideoType& v) { v.type.majortype = MEDIATYPE_Audio; }));
    EXPECT_FALSE(initialized([](VideoType& v) { v.type.formattype = FORMAT_VideoInfo2; }));
    EXPECT_FALSE(initialized([](VideoType& v) { v.type.formattype = GUID{}; }));
    EXPECT_FALSE(initialized([](VideoType& v) { v.type.cbFormat = 87; }));
    EXPECT_FALSE(initialized([](VideoType& v) { v.type.cbFormat = 0; }));
    EXPECT_FALSE(initialized([](VideoType& v) { v.hasBlock = false; }));
    EXPECT_TRUE(initialized([](VideoType& v) { v.type.subtype = GUID{}; })) << "the subtype does not count";
}

TEST(AmMediaTypeInitialization, a_short_block_makes_the_accessors_throw) {
    VideoType video;
    video.type.cbFormat = 87;
    const CAMMediaType type(video.Get());
    EXPECT_EQ(ThrownText([&] { (void)type.Width(); }), "CAMMediaType::Width not initialized");
}

TEST(AmMediaTypeInitialization, assignment_decides_anew) {
    VideoType good;
    VideoType bad;
    bad.type.cbFormat = 87;
    CAMMediaType type;

    type = good.Get();
    EXPECT_TRUE(type.IsInitialized());
    type = bad.Get();
    EXPECT_FALSE(type.IsInitialized());
    type = CAMMediaType(good.Get());
    EXPECT_TRUE(type.IsInitialized());
    type = CAMMediaType();
    EXPECT_FALSE(type.IsInitialized());
}

// -- Copies

TEST(AmMediaTypeCopies, are_deep) {
    VideoType video;
    CAMMediaType first(video.Get());
    const CAMMediaType second(first);
    CAMMediaType third;
    third = first;

    first.Width(320);
    video.header.bmiHeader.biWidth = 1;

    EXPECT_EQ(first.WidthSurface(), 320);
    EXPECT_EQ(second.WidthSurface(), 640);
    EXPECT_EQ(third.WidthSurface(), 640);
    EXPECT_EQ(second.MediaType().lSampleSize, 640u * 480);
    EXPECT_NE(first.MediaType().pbFormat, second.MediaType().pbFormat);
    EXPECT_EQ(static_cast<const void*>(&second.VideoInfoHeader()), second.MediaType().pbFormat);
    EXPECT_EQ(static_cast<const void*>(&third.VideoInfoHeader()), third.MediaType().pbFormat);
}

TEST(AmMediaTypeCopies, keep_what_follows_the_header) {
    VideoType video;
    std::vector<BYTE> block(sizeof(VIDEOINFOHEADER) + 40, BYTE{0x5A});
    std::memcpy(block.data(), &video.header, sizeof video.header);
    AM_MEDIA_TYPE longer = video.Get();
    longer.cbFormat = static_cast<ULONG>(block.size());
    longer.pbFormat = block.data();

    const CAMMediaType copy{CAMMediaType(longer)};

    ASSERT_EQ(copy.MediaType().cbFormat, block.size());
    EXPECT_EQ(std::memcmp(copy.MediaType().pbFormat, block.data(), block.size()), 0);
}

TEST(AmMediaTypeCopies, assigning_a_type_to_itself_changes_nothing) {
    VideoType video;
    CAMMediaType type(video.Get());
    CAMMediaType& same = type;

    type = same;
    EXPECT_EQ(type.Width(), 640);
    type = type.MediaType();
    EXPECT_EQ(type.Width(), 640);
    type = std::move(same);
    ASSERT_TRUE(type.IsInitialized());
    EXPECT_EQ(type.Width(), 640);
}

TEST(AmMediaTypeCopies, a_moved_type_takes_its_block_alongerand_leaves_an_empty_one) {
    static_assert(std::is_nothrow_move_constructible_v<CAMMediaType>);
    static_assert(std::is_nothrow_move_constructible_v<CMediaTypeInfo>, "a growing vector moves");
    VideoType video;
    CAMMediaType first(video.Get());
    const BYTE* const block = first.MediaType().pbFormat;

    CAMMediaType second(std::move(first));
    EXPECT_FALSE(first.IsInitialized());  // NOLINT(bugprone-use-after-move): that is the point
    EXPECT_EQ(second.MediaType().pbFormat, block);
    EXPECT_EQ(second.Width(), 640);

    CAMMediaType third;
    third = std::move(second);
    EXPECT_FALSE(second.IsInitialized());  // NOLINT(bugprone-use-after-move)
    EXPECT_EQ(third.MediaType().pbFormat, block);
    EXPECT_EQ(third.Width(), 640);
}

// -- Fields

TEST(AmMediaTypeFields, the_area_gives_position_and_width_and_the_bitmap_the_height) {
    VideoType video;
    video.header.rcSource = {16, 8, 336, 100};
    video.header.bmiHeader.biHeight = -240;
    const CAMMediaType type(video.Get());

    EXPECT_EQ(type.XPos(), 16);
    EXPECT_EQ(type.YPos(), 8);
    EXPECT_EQ(type.Width(), 320);
    EXPECT_EQ(type.Height(), 240);
    EXPECT_EQ(type.WidthSurface(), 640);
    EXPECT_EQ(type.BitsPerPixel(), 8);
}

TEST(AmMediaTypeFields, the_width_is_the_surface_s_when_the_area_is_all_zero) {
    VideoType video;
    video.header.rcSource = {};
    EXPECT_EQ(CAMMediaType(video.Get()).Width(), 640);
    video.header.rcSource = {0, 0, 0, 480};
    EXPECT_EQ(CAMMediaType(video.Get()).Width(), 0) << "one edge is enough to make it an area";
}

TEST(AmMediaTypeFields, uncompressed_is_rgb) {
    VideoType video;
    EXPECT_FALSE(CAMMediaType(video.Get()).IsRGB());
    video.header.bmiHeader.biCompression = 0;
    EXPECT_TRUE(CAMMediaType(video.Get()).IsRGB());
    video.header.bmiHeader.biCompression = 3;
    EXPECT_FALSE(CAMMediaType(video.Get()).IsRGB());
}

TEST(AmMediaTypeFields, the_stride_has_the_opposite_sign_of_the_height) {
    VideoType video;
    video.header.bmiHeader.biBitCount = 24;
    EXPECT_EQ(CAMMediaType(video.Get()).Stride(), -1920);
    video.header.bmiHeader.biHeight = -480;
    EXPECT_EQ(CAMMediaType(video.Get()).Stride(), 1920);
    video.header.bmiHeader.biBitCount = 8;
    video.header.bmiHeader.biWidth = 641;
    EXPECT_EQ(CAMMediaType(video.Get()).Stride(), 644) << "the surface counts, not the area";
}

TEST(AmMediaTypeFields, iidc_format_and_mode_travel_in_the_error_rate) {
    VideoType video;
    video.header.dwBitErrorRate = 0xFFFF0802;
    EXPECT_TRUE(CAMMediaType(video.Get()).HasEmbeddedFormatInfo()) << "the upper half does not count";
    EXPECT_EQ(CAMMediaType(video.Get()).GetEmbededFormat(), 8u);
    EXPECT_EQ(CAMMediaType(video.Get()).GetEmbeddedMode(), 2u);
    video.header.dwBitErrorRate = 0x0909;
    EXPECT_EQ(CAMMediaType(video.Get()).GetEmbededFormat(), 9u) << "read all the same";
    EXPECT_EQ(CAMMediaType(video.Get()).GetEmbeddedMode(), 9u);
    for (const auto& [word, present] : std::initializer_list<std::pair<DWORD, bool>>{
             {0x0000, true}, {0x0808, true}, {0x0908, false}, {0x0809, false}, {0xFF00, false}, {0x00FF, false}}) {
        video.header.dwBitErrorRate = word;
        EXPECT_EQ(CAMMediaType(video.Get()).HasEmbeddedFormatInfo(), present) << word;
    }
}

TEST(AmMediaTypeFields, the_frame_time_is_also_a_rate) {
    VideoType video;
    CAMMediaType type(video.Get());
    EXPECT_EQ(type.FrameTimeAvg(), 333'333);
    EXPECT_EQ(type.FrameRate(), 30);

    type.FrameRate(15);
    EXPECT_EQ(type.FrameTimeAvg(), 666'666);
    type.FrameTimeAvg(1'333'333);
    EXPECT_EQ(type.FrameTimeAvg(), 1'333'333);
    EXPECT_EQ(type.FrameRate(), 7);
    type.FrameTimeAvg(-5);
    EXPECT_EQ(type.FrameTimeAvg(), -5) << "unchecked";
}

TEST(AmMediaTypeFields, references_are_for_changes_in_place) {
    VideoType video;
    CAMMediaType type(video.Get());
    type.SourceRect() = {1, 2, 3, 4};
    type.TargetRect() = {5, 6, 7, 8};
    type.BitMapInfoHeader().biBitCount = 16;
    type.VideoInfoHeader().dwBitRate = 99;
    type.MediaType().lSampleSize = 77;

    const CAMMediaType copy(type);
    EXPECT_TRUE((copy.SourceRect() == RECT{1, 2, 3, 4}));
    EXPECT_TRUE((copy.TargetRect() == RECT{5, 6, 7, 8}));
    EXPECT_EQ(copy.BitsPerPixel(), 16);
    EXPECT_EQ(copy.VideoInfoHeader().dwBitRate, 99u);
    EXPECT_EQ(copy.MediaType().lSampleSize, 77u);
}

// -- Setters

class AmMediaTypeSetters : public testing::Test {
protected:
    void ExpectRects(const RECT& source, const RECT& target) {
        EXPECT_TRUE(m_type.SourceRect() == source) << m_type.SourceRect().left << ' ' << m_type.SourceRect().top << ' '
                                                   << m_type.SourceRect().right << ' ' << m_type.SourceRect().bottom;
        EXPECT_TRUE(m_type.TargetRect() == target) << m_type.TargetRect().left << ' ' << m_type.TargetRect().top << ' '
                                                   << m_type.TargetRect().right << ' ' << m_type.TargetRect().bottom;
    }
    void ExpectImageSize(DWORD bytes, ULONG sampleSize, bool fixedSize) {
        EXPECT_EQ(m_type.BitMapInfoHeader().biSizeImage, bytes);
        EXPECT_EQ(m_type.MediaType().lSampleSize, sampleSize);
        EXPECT_EQ(m_type.MediaType().bFixedSizeSamples, fixedSize ? TRUE : FALSE);
    }

    VideoType m_video;
    CAMMediaType m_type{m_video.Get()};
};

TEST_F(AmMediaTypeSetters, XPos_keeps_the_right_edge_and_changes_the_width) {
    m_type.XPos(16);
    ExpectRects({16, 0, 640, 480}, {0, 0, 624, 480});
    ExpectImageSize(640 * 480, 640 * 480, true);
    EXPECT_EQ(m_type.WidthSurface(), 640);

    m_type.XPos(4);
    ExpectRects({4, 0, 640, 480}, {0, 0, 636, 480});
}

TEST_F(AmMediaTypeSetters, XPos_of_an_all_zero_area_takes_the_surface_s_width) {
    m_type.SourceRect() = {};
    m_type.XPos(0);
    ExpectRects({0, 0, 640, 0}, {0, 0, 640, 480});

    m_type.SourceRect() = {};
    m_type.XPos(16);
    ExpectRects({16, 0, 0, 0}, {0, 0, -16, 480});  // with the new edge it is not all zero any more
}

TEST_F(AmMediaTypeSetters, YPos_keeps_the_height) {
    m_type.YPos(16);
    ExpectRects({0, 16, 640, 496}, {0, 0, 640, 480});

    m_type.BitMapInfoHeader().biHeight = -100;
    m_type.YPos(-4);
    ExpectRects({0, -4, 640, 96}, {0, 0, 640, 100});
}

TEST_F(AmMediaTypeSetters, Width_sets_surface_area_sizes_and_target) {
    m_type.SourceRect() = {16, 8, 640, 480};
    m_type.Width(320);
    ExpectRects({16, 8, 336, 480}, {0, 0, 320, 480});
    EXPECT_EQ(m_type.WidthSurface(), 320);
    ExpectImageSize(320 * 480, 320 * 480, true);
}

TEST_F(AmMediaTypeSetters, Width_puts_the_area_s_edges_in_order) {
    m_type.SourceRect() = {16, 480, 640, 8};
    m_type.Width(-10);
    ExpectRects({6, 8, 16, 480}, {0, 0, 10, 480});
    EXPECT_EQ(m_type.WidthSurface(), -10);
    ExpectImageSize(10 * 480, 10 * 480, true);
}

TEST_F(AmMediaTypeSetters, an_image_size_of_zero_clears_only_the_fixed_size_flag) {
    m_type.SourceRect() = {16, 8, 640, 480};
    m_type.Width(0);
    ExpectRects({16, 8, 16, 480}, {0, 0, 0, 480});
    ExpectImageSize(0, 640 * 480, false);

    m_type.Width(8);
    ExpectImageSize(8 * 480, 8 * 480, true);
}

TEST_F(AmMediaTypeSetters, the_image_size_is_32_bit_signed) {
    m_type.BitMapInfoHeader().biBitCount = 32;
    m_type.Height(0x4000);
    m_type.Width(0x1000);  // 2^31 bits
    ExpectImageSize(0xF0000000, 0xF0000000, true);
    m_type.Width(0x2000);  // 2^32 bits
    ExpectImageSize(0, 0xF0000000, false);
}

TEST_F(AmMediaTypeSetters, Height_stores_the_sign_and_takes_the_area_without_it) {
    m_type.SourceRect() = {16, 8, 336, 480};
    m_type.Height(-240);
    ExpectRects({16, 8, 336, 248}, {0, 0, 320, 240});
    EXPECT_EQ(m_type.BitMapInfoHeader().biHeight, -240);
    EXPECT_EQ(m_type.WidthSurface(), 640);
    ExpectImageSize(320 * 240, 320 * 240, true);

    m_type.Height(100);
    ExpectRects({16, 8, 336, 108}, {0, 0, 320, 100});
    EXPECT_EQ(m_type.BitMapInfoHeader().biHeight, 100);
}

TEST_F(AmMediaTypeSetters, Height_puts_the_area_s_edges_in_order) {
    m_type.SourceRect() = {336, 8, 16, 0};
    m_type.Height(240);
    ExpectRects({16, 8, 336, 248}, {0, 0, 320, 240});
}

}  // namespace
}  // namespace kolmfluxor::test
