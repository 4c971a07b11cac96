/// @file  When two media types describe the same stream.

#include <cstring>
#include <vector>

#include <gtest/gtest.h>

#include "media/video_type.h"

namespace kolmfluxor::test {
namespace {

using Change = void (*)(VideoType&);

/// Whether a type equals another one, each changed from the same start.
bool Equal(Change changeOwn, Change changeOther) {
    VideoType own;
    VideoType other;
    changeOwn(own);
    changeOther(other);
    const CAMMediaType type(own.Get());
    return type == other.Get();
}

constexpr Change kSame = [](VideoType&) {};

/// Both ways round: only deliberate oddities depend on the order.
void ExpectEqual(bool expected, Change changeOwn, Change changeOther) {
    EXPECT_EQ(Equal(changeOwn, changeOther), expected);
    EXPECT_EQ(Equal(changeOther, changeOwn), expected) << "the other way round";
}

TEST(MediaTypeEquality, a_type_equals_its_copy) {
    ExpectEqual(true, kSame, kSame);
}

TEST(MediaTypeEquality, identifiers_sample_size_and_block_size_must_be_equal) {
    ExpectEqual(false, kSame, [](VideoType& v) { v.type.majortype = MEDIATYPE_Audio; });
    ExpectEqual(false, kSame, [](VideoType& v) { v.type.subtype = MEDIASUBTYPE_RGB24; });
    ExpectEqual(false, kSame, [](VideoType& v) { v.type.formattype = FORMAT_VideoInfo2; });
    ExpectEqual(false, kSame, [](VideoType& v) { ++v.type.lSampleSize; });

    VideoType video;
    struct {
        VIDEOINFOHEADER header;
        BYTE more[8];
    } longer{video.header, {}};
    AM_MEDIA_TYPE other = video.Get();
    other.cbFormat = sizeof longer;
    other.pbFormat = reinterpret_cast<BYTE*>(&longer);
    EXPECT_FALSE(CAMMediaType(video.Get()) == other);
    EXPECT_FALSE(CAMMediaType(other) == video.Get());
}

TEST(MediaTypeEquality, what_is_not_initialized_equals_nothing_not_even_itself) {
    ExpectEqual(
        false, [](VideoType& v) { v.type.cbFormat = 87; }, [](VideoType& v) { v.type.cbFormat = 87; });
    ExpectEqual(
        false, [](VideoType& v) { v.type.majortype = MEDIATYPE_Audio; },
        [](VideoType& v) { v.type.majortype = MEDIATYPE_Audio; });
    ExpectEqual(false, kSame, [](VideoType& v) { v.hasBlock = false; });
    EXPECT_FALSE(CAMMediaType() == AM_MEDIA_TYPE{});
}

TEST(MediaTypeEquality, what_no_step_looks_at_does_not_count) {
    ExpectEqual(true, kSame, [](VideoType& v) { v.header.AvgTimePerFrame = 1; });
    ExpectEqual(true, kSame, [](VideoType& v) { v.header.dwBitRate = 1; });
    ExpectEqual(true, kSame, [](VideoType& v) { v.header.bmiHeader.biBitCount = 24; });
    ExpectEqual(true, kSame, [](VideoType& v) { v.header.bmiHeader.biSizeImage = 1; });
    ExpectEqual(true, kSame, [](VideoType& v) { v.type.bFixedSizeSamples = FALSE; });
    ExpectEqual(true, kSame, [](VideoType& v) { v.type.bTemporalCompression = TRUE; });
}

TEST(MediaTypeEquality, surfaces_must_be_equally_wide) {
    ExpectEqual(false, kSame, [](VideoType& v) { v.header.bmiHeader.biWidth = 641; });
    ExpectEqual(false, kSame, [](VideoType& v) { v.header.bmiHeader.biWidth = -640; });
}

TEST(MediaTypeEquality, an_empty_source_matches_one_that_fills_its_bitmap) {
    ExpectEqual(true, kSame, [](VideoType& v) { v.header.rcSource = {}; });
    ExpectEqual(true, kSame, [](VideoType& v) { v.header.rcSource = {9, 7, 9, 7}; });
    ExpectEqual(true, kSame, [](VideoType& v) { v.header.rcSource = {16, 8, 656, 488}; });
    ExpectEqual(true, kSame, [](VideoType& v) { v.header.rcSource = {640, 480, 0, 0}; });
    ExpectEqual(
        true, [](VideoType& v) { v.header.rcSource = {}; }, [](VideoType& v) { v.header.rcSource = {}; });
}

TEST(MediaTypeEquality, other_sources_must_be_equally_large) {
    ExpectEqual(false, kSame, [](VideoType& v) { v.header.rcSource.right = 320; });
    ExpectEqual(false, kSame, [](VideoType& v) { v.header.rcSource.bottom = 240; });
    ExpectEqual(
        false, [](VideoType& v) { v.header.rcSource = {}; },
        [](VideoType& v) {
            v.header.rcSource = {0, 0, 320, 240};
        });
    ExpectEqual(
        true,
        [](VideoType& v) {
            v.header.rcSource = {0, 0, 320, 240};
        },
        [](VideoType& v) {
            v.header.rcSource = {16, 8, 336, 248};
        });
    ExpectEqual(
        true,
        [](VideoType& v) {
            v.header.rcSource = {0, 0, 320, 240};
        },
        [](VideoType& v) {
            v.header.rcSource = {320, 240, 0, 0};
        });
}

TEST(MediaTypeEquality, targets_follow_the_same_rule) {
    ExpectEqual(true, kSame, [](VideoType& v) { v.header.rcTarget = {}; });
    ExpectEqual(true, kSame, [](VideoType& v) { v.header.rcTarget = {16, 8, 656, 488}; });
    ExpectEqual(false, kSame, [](VideoType& v) { v.header.rcTarget.right = 320; });
    ExpectEqual(false, kSame, [](VideoType& v) { v.header.rcTarget.bottom = 240; });
    ExpectEqual(
        true,
        [](VideoType& v) {
            v.header.rcTarget = {0, 0, 320, 240};
        },
        [](VideoType& v) {
            v.header.rcTarget = {16, 8, 336, 248};
        });
}

// -- Deliberate oddities

TEST(MediaTypeEquality, unequal_widths_of_the_areas_never_count_by_themselves) {
    // Both sources are "empty or full", although one is 0 wide and the other 640.
    ExpectEqual(
        true,
        [](VideoType& v) {
            v.header.rcSource = {9, 7, 9, 7};
        },
        kSame);
    VideoType video;
    video.header.rcSource = {9, 7, 9, 7};
    EXPECT_EQ(CAMMediaType(video.Get()).Width(), 0);
}

TEST(MediaTypeEquality, heights_of_the_bitmaps_are_not_compared_with_the_rectangles_but_afterwards) {
    // Empty rectangles pass whatever the heights are ...
    constexpr Change kFlat = [](VideoType& v) {
        v.header.rcSource = {};
        v.header.rcTarget = {};
    };
    ExpectEqual(true, kFlat, [](VideoType& v) {
        v.header.rcSource = {};
        v.header.rcTarget = {};
        v.header.bmiHeader.biHeight = -480;
    });
    // ... and the step of the heights finds the difference.
    ExpectEqual(false, kFlat, [](VideoType& v) {
        v.header.rcSource = {};
        v.header.rcTarget = {};
        v.header.bmiHeader.biHeight = 479;
    });
}

TEST(MediaTypeEquality, heights_are_compared_without_their_signs) {
    ExpectEqual(true, kSame, [](VideoType& v) { v.header.bmiHeader.biHeight = -480; });
}

// -- Compression and IIDC

TEST(MediaTypeEquality, compression_must_be_equal) {
    ExpectEqual(false, kSame, [](VideoType& v) { v.header.bmiHeader.biCompression = 0; });
}

TEST(MediaTypeEquality, iidc_words_count_only_when_both_sides_have_them) {
    ExpectEqual(false, kSame, [](VideoType& v) { v.header.dwBitErrorRate = 0x701; });
    ExpectEqual(false, kSame, [](VideoType& v) { v.header.dwBitErrorRate = 0x600; });
    ExpectEqual(false, kSame, [](VideoType& v) { v.header.dwBitErrorRate = 0x10700; });  // the whole word
    ExpectEqual(true, kSame, [](VideoType& v) { v.header.dwBitErrorRate = 0x900; });
    ExpectEqual(true, kSame, [](VideoType& v) { v.header.dwBitErrorRate = 0x709; });
    ExpectEqual(
        true, [](VideoType& v) { v.header.dwBitErrorRate = 0xFFFF; },
        [](VideoType& v) { v.header.dwBitErrorRate = 0x0909; });
}

TEST(MediaTypeEquality, another_s_block_may_lie_at_any_address) {
    VideoType video;
    std::vector<BYTE> block(sizeof video.header + 1);
    std::memcpy(block.data() + 1, &video.header, sizeof video.header);
    AM_MEDIA_TYPE other = video.Get();
    other.pbFormat = block.data() + 1;
    EXPECT_TRUE(CAMMediaType(video.Get()) == other);
}

// -- Partial match

TEST(MediaTypePartialMatch, compares_identifiers_and_block) {
    VideoType video;
    VideoType other;
    const CAMMediaType type(video.Get());
    EXPECT_TRUE(type.PartialMatch(other.Get()));
    EXPECT_TRUE(type.PartialMatchVideo(other.Get()));

    other.type.lSampleSize = 1;
    other.type.bFixedSizeSamples = FALSE;
    EXPECT_TRUE(type.PartialMatch(other.Get())) << "the rest does not count";

    other.header.dwBitRate = 1;
    EXPECT_FALSE(type.PartialMatch(other.Get()));
    EXPECT_FALSE(type.PartialMatchVideo(other.Get()));
}

TEST(MediaTypePartialMatch, only_the_second_variant_needs_video) {
    VideoType video;
    const CAMMediaType type(video.Get());
    VideoType open;
    open.type.majortype = GUID{};
    EXPECT_TRUE(type.PartialMatch(open.Get()));
    EXPECT_FALSE(type.PartialMatchVideo(open.Get()));
}

}  // namespace
}  // namespace kolmfluxor::test
