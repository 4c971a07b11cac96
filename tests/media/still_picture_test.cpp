/// @file  The picture of a still-image grabber: samples of any length and layout.

#include "media/still_picture.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <climits>
#include <initializer_list>
#include <numeric>
#include <utility>
#include <vector>

#include "support/scarce_heap.h"
#include "support/scripted_filter.h"
#include "support/wait_hook.h"

namespace kolmfluxor::test {
namespace {

using Bytes = std::vector<BYTE>;

Bytes Counting(std::size_t count) {
    Bytes bytes(count);
    std::iota(bytes.begin(), bytes.end(), BYTE{1});
    return bytes;
}

/// Three equal bytes for each gray.
Bytes Bgr(std::initializer_list<int> grays) {
    Bytes bytes;
    for (const int gray : grays) {
        bytes.insert(bytes.end(), 3, static_cast<BYTE>(gray));
    }
    return bytes;
}

DWORD WINAPI FailedWait(HANDLE, DWORD) {
    ::SetLastError(ERROR_INVALID_HANDLE);
    return WAIT_FAILED;
}

class StillPicture : public ::testing::Test {
protected:
    void Describe(const char (&fourCc)[5], LONG width, LONG height) {
        AM_MEDIA_TYPE type{};
        type.subtype = {FourCc(fourCc), 0x0000, 0x0010, {0x80, 0x00, 0x00, 0xAA, 0x00, 0x38, 0x9B, 0x71}};
        VIDEOINFOHEADER video{};
        video.bmiHeader = {sizeof(BITMAPINFOHEADER), width, height, 1, 8, FourCc(fourCc), 77, 5, 6, 7, 8};
        m_picture.Describe(type, video);
    }

    /// Takes a picture of one sample or more.
    HRESULT Take(const char (&fourCc)[5], LONG width, LONG height, std::initializer_list<Bytes> samples) {
        m_picture.Begin();
        Describe(fourCc, width, height);
        m_picture.ExpectSample();
        for (const Bytes& sample : samples) {
            m_picture.Deliver(sample.data(), static_cast<LONG>(sample.size()));
        }
        EXPECT_EQ(m_picture.Wait(), S_OK);
        return m_picture.Finish();
    }

    Bytes Picture() {
        Bytes bytes(static_cast<std::size_t>(std::max(m_picture.SizeBytes(), 0L)) + 1, 0xEE);
        EXPECT_TRUE(m_picture.CopyTo(bytes.data()));
        EXPECT_EQ(bytes.back(), 0xEE);
        bytes.pop_back();
        return bytes;
    }

    CStillPicture m_picture;
};

TEST_F(StillPicture, is_absent_at_first) {
    EXPECT_TRUE(m_picture.IsUsable());
    EXPECT_EQ(m_picture.SizeBytes(), -1);
    EXPECT_EQ(m_picture.Width(), -1);
    EXPECT_EQ(m_picture.Height(), -1);
    BYTE byte = 0xEE;
    EXPECT_FALSE(m_picture.CopyTo(&byte));
    EXPECT_EQ(byte, 0xEE);
    const BITMAPINFOHEADER& header = m_picture.Header();
    EXPECT_EQ(header.biSizeImage, 0xFFFFFFFF);
    EXPECT_EQ(header.biSize, 0u);
}

TEST_F(StillPicture, mono_becomes_BGR_bottom_up) {
    ASSERT_EQ(Take("Y800", 3, 2, {Counting(6)}), S_OK);

    EXPECT_EQ(Picture(), Bgr({4, 5, 6, 1, 2, 3}));
    const BITMAPINFOHEADER& header = m_picture.Header();
    EXPECT_EQ(header.biWidth, 3);
    EXPECT_EQ(header.biHeight, 2);
    EXPECT_EQ(header.biBitCount, 24);
    EXPECT_EQ(header.biCompression, static_cast<DWORD>(BI_RGB));
    EXPECT_EQ(header.biSizeImage, 18u);
    EXPECT_EQ(header.biXPelsPerMeter, 5);
    EXPECT_EQ(header.biClrImportant, 8u);
}

TEST_F(StillPicture, UYVY_pixels_without_color_are_gray) {
    ASSERT_EQ(Take("UYVY", 2, 2, {{128, 10, 128, 20, 128, 30, 128, 40}}), S_OK);
    EXPECT_EQ(Picture(), Bgr({30, 40, 10, 20}));
    EXPECT_EQ(m_picture.Header().biBitCount, 24);
    EXPECT_EQ(m_picture.Header().biSizeImage, 12u);
}

TEST_F(StillPicture, groups_of_UYVY_run_on_over_the_ends_of_odd_rows) {
    ASSERT_EQ(Take("UYVY", 3, 2, {{128, 1, 128, 2, 128, 3, 128, 4, 128, 5, 128, 6}}), S_OK);
    EXPECT_EQ(Picture(), Bgr({4, 5, 6, 1, 2, 3}));
}

TEST_F(StillPicture, an_odd_count_of_UYVY_pixels_leaves_the_last_one_black) {
    ASSERT_EQ(Take("UYVY", 2, 2, {{128, 1, 128, 2, 128, 3, 128, 4}}), S_OK);  // leaves its bytes behind
    ASSERT_EQ(Take("UYVY", 1, 3, {{128, 1, 128, 2, 128, 3}}), S_OK);
    EXPECT_EQ(Picture(), Bgr({0, 2, 1}));
}

TEST_F(StillPicture, an_odd_count_of_UYVY_pixels_in_whole_groups_is_converted_to_the_last_one) {
    ASSERT_EQ(Take("UYVY", 2, 2, {Bytes(8, 0xAA)}), S_OK);  // leaves its bytes behind
    ASSERT_EQ(Take("UYVY", 1, 3, {{128, 1, 128, 2, 128, 3, 128, 4}}), S_OK);
    EXPECT_EQ(Picture(), Bgr({3, 2, 1, 0})) << "and what is no pixel of the picture is black";
    ASSERT_EQ(Take("UYVY", 3, 1, {{128, 1, 128, 2, 128, 3, 128, 4, 9, 9, 9, 9}}), S_OK);
    EXPECT_EQ(Picture(), Bgr({1, 2, 3, 0, 0, 0}));
}

TEST_F(StillPicture, top_down_headers_are_flipped_like_all_others) {
    ASSERT_EQ(Take("Y800", 3, -2, {Counting(6)}), S_OK);
    EXPECT_EQ(Picture(), Bgr({4, 5, 6, 1, 2, 3}));
    EXPECT_EQ(m_picture.Height(), -2);
    EXPECT_EQ(m_picture.Header().biHeight, -2);
}

TEST_F(StillPicture, other_formats_stay_as_they_are) {
    for (const LONG height : {2L, -2L}) {
        ASSERT_EQ(Take("Y411", 3, height, {Counting(7)}), S_OK);
        EXPECT_EQ(Picture(), Counting(7));
        EXPECT_EQ(m_picture.Header().biBitCount, 8);
        EXPECT_EQ(m_picture.Header().biCompression, FourCc("Y411"));
        EXPECT_EQ(m_picture.Header().biSizeImage, 7u);
    }
}

TEST_F(StillPicture, only_samples_of_the_first_ones_length_count) {
    ASSERT_EQ(Take("Y411", 2, 2, {{1, 2, 3}, {4, 5}, {6, 7, 8}, {9, 9, 9, 9}, {}}), S_OK);
    EXPECT_EQ(Picture(), (Bytes{6, 7, 8}));

    ASSERT_EQ(Take("Y411", 2, 2, {{1, 2, 3, 4}, {4, 5, 6}}), S_OK);
    EXPECT_EQ(Picture(), (Bytes{1, 2, 3, 4})) << "the length is that of this picture's first sample";
}

TEST_F(StillPicture, a_sample_with_too_few_or_too_many_rows_is_converted_as_far_as_both_go) {
    ASSERT_EQ(Take("Y800", 2, 3, {Bytes(6, 0xAA)}), S_OK);  // leaves its bytes behind

    ASSERT_EQ(Take("Y800", 2, 3, {Counting(5)}), S_OK);
    EXPECT_EQ(Picture(), Bgr({3, 4, 1, 2, 0})) << "two whole rows";
    ASSERT_EQ(Take("Y800", 2, 2, {Counting(6)}), S_OK);
    EXPECT_EQ(Picture(), Bgr({3, 4, 1, 2, 0, 0})) << "a row too many";
    ASSERT_EQ(Take("UYVY", 2, 1, {{128, 9, 128, 8, 128, 7, 128, 6, 128}}), S_OK);
    EXPECT_EQ(Picture(), Bgr({9, 8, 0, 0})) << "a row and a byte too many";
    ASSERT_EQ(Take("UYVY", 2, 9, {{128, 9, 128, 8}}), S_OK);
    EXPECT_EQ(Picture(), Bgr({9, 8}));
    ASSERT_EQ(Take("Y800", 9, 9, {Counting(3)}), S_OK);
    EXPECT_EQ(Picture(), Bgr({0, 0, 0})) << "not even a row";
}

TEST_F(StillPicture, impossible_sizes_give_black_pixels) {
    for (const auto& [width, height] : {std::pair{0L, 2L}, {-3L, 2L}, {LONG_MIN, 2L}, {LONG_MAX, 2L}, {2L, 0L}}) {
        SCOPED_TRACE(::testing::Message() << width << "x" << height);
        ASSERT_EQ(Take("Y800", width, height, {Counting(4)}), S_OK);
        EXPECT_EQ(Picture(), Bytes(12));
        ASSERT_EQ(Take("UYVY", width, height, {Counting(4)}), S_OK);
        EXPECT_EQ(Picture(), Bytes(6));
    }
    ASSERT_EQ(Take("Y800", 2, LONG_MIN, {Counting(4)}), S_OK);
    EXPECT_EQ(Picture(), Bgr({3, 4, 1, 2}));
}

TEST_F(StillPicture, an_empty_sample_is_an_empty_picture) {
    for (const LONG width : {0L, 4L}) {
        ASSERT_EQ(Take("Y800", width, 2, {{}}), S_OK);
        EXPECT_EQ(m_picture.SizeBytes(), 0);
        EXPECT_EQ(Picture(), Bytes());
        ASSERT_EQ(Take("UYVY", width, 2, {{1}}), S_OK);
        EXPECT_EQ(m_picture.SizeBytes(), 0);
    }
}

TEST_F(StillPicture, an_unusable_sample_ends_the_waiting_without_a_picture) {
    m_picture.Begin();
    Describe("Y800", 2, 2);
    m_picture.ExpectSample();
    m_picture.Deliver(nullptr, 4);
    EXPECT_EQ(m_picture.Wait(), S_OK);
    const BYTE byte = 1;
    m_picture.Deliver(&byte, -1);
    m_picture.Deliver(&byte, LONG_MIN);
    EXPECT_EQ(m_picture.Wait(), S_OK);

    EXPECT_EQ(m_picture.Finish(), E_FAIL);
    EXPECT_EQ(m_picture.SizeBytes(), -1);
}

TEST_F(StillPicture, samples_outside_of_a_capture_are_dropped) {
    const Bytes late(6, 0xAA);
    m_picture.Deliver(late.data(), 6);
    EXPECT_EQ(m_picture.SizeBytes(), -1);
    ASSERT_EQ(Take("Y800", 3, 2, {Counting(6)}), S_OK);
    m_picture.Deliver(late.data(), 6);
    m_picture.Deliver(late.data(), 18);
    EXPECT_EQ(Picture(), Bgr({4, 5, 6, 1, 2, 3}));
    m_picture.Begin();
    m_picture.Deliver(late.data(), 6);
    EXPECT_EQ(m_picture.SizeBytes(), -1);
}

TEST_F(StillPicture, a_late_sample_does_not_end_the_next_ones_waiting) {
    const Bytes sample = Counting(6);
    ASSERT_EQ(Take("Y800", 3, 2, {sample}), S_OK);
    m_picture.Deliver(sample.data(), 6);

    m_picture.Begin();
    m_picture.ExpectSample();
    const CWaitHook whileWaiting([&](HANDLE arrived, DWORD) {
        EXPECT_EQ(::WaitForSingleObjectEx(arrived, 0, FALSE), static_cast<DWORD>(WAIT_TIMEOUT));
        m_picture.Deliver(sample.data(), 6);
    });
    EXPECT_EQ(m_picture.Wait(), S_OK);
    EXPECT_EQ(m_picture.Finish(), S_OK);
    EXPECT_EQ(Picture(), sample);
}

TEST_F(StillPicture, memory_that_runs_out_for_the_sample_leaves_no_picture_and_the_next_one_works) {
    const Bytes sample(60'000, 7);
    const auto take = [&] {
        m_picture.Begin();
        Describe("Y411", 300, 200);
        m_picture.ExpectSample();
        m_picture.Deliver(sample.data(), 60'000);
        m_picture.Deliver(sample.data(), 60'000);
        EXPECT_EQ(m_picture.Wait(), S_OK);
        return m_picture.Finish();
    };
    {
        const CScarceHeap heap(60'000);
        EXPECT_EQ(take(), E_OUTOFMEMORY);
        EXPECT_EQ(CScarceHeap::Refused(), 2);
    }
    EXPECT_EQ(m_picture.SizeBytes(), -1);
    EXPECT_EQ(m_picture.Width(), 300);
    EXPECT_EQ(take(), S_OK);
    EXPECT_EQ(Picture(), sample);
}

TEST_F(StillPicture, memory_that_runs_out_for_the_conversion_leaves_no_picture_and_the_next_one_works) {
    const Bytes sample(60'000, 7);
    const auto runOut = [&](const char(&fourCc)[5]) {
        SCOPED_TRACE(fourCc);
        m_picture.Free();
        m_picture.Begin();
        Describe(fourCc, 300, 100);
        m_picture.ExpectSample();
        m_picture.Deliver(sample.data(), 60'000);
        {
            const CScarceHeap heap(60'001);
            EXPECT_EQ(m_picture.Finish(), E_OUTOFMEMORY);
            EXPECT_EQ(CScarceHeap::Refused(), 1);
        }
        ASSERT_EQ(m_picture.SizeBytes(), -1);
        EXPECT_EQ(m_picture.Header().biBitCount, 8) << "nothing was converted";
        BYTE byte = 0xEE;
        EXPECT_FALSE(m_picture.CopyTo(&byte));
        EXPECT_EQ(byte, 0xEE);
    };
    runOut("Y800");
    runOut("UYVY");
    EXPECT_EQ(Take("UYVY", 300, 100, {sample}), S_OK);
}

TEST_F(StillPicture, freeing_gives_the_memory_back) {
    const Bytes sample(60'000, 7);
    const auto takeWithLess = [&](const char(&fourCc)[5], std::size_t refusedFrom) {
        const CScarceHeap heap(refusedFrom);
        m_picture.Begin();
        Describe(fourCc, 300, 200);
        m_picture.ExpectSample();
        m_picture.Deliver(sample.data(), 60'000);
        return m_picture.Finish();
    };
    const auto takeFreeTake = [&](const char(&fourCc)[5], std::size_t refusedFrom) {
        SCOPED_TRACE(fourCc);
        ASSERT_EQ(Take(fourCc, 300, 200, {sample}), S_OK);
        ASSERT_EQ(Take(fourCc, 300, 200, {sample}), S_OK);  // a conversion lets the buffers change places
        EXPECT_EQ(takeWithLess(fourCc, refusedFrom), S_OK) << "kept for the next picture";
        m_picture.Free();
        EXPECT_EQ(takeWithLess(fourCc, refusedFrom), E_OUTOFMEMORY);
    };
    takeFreeTake("Y411", 60'000);  // the buffer of the sample
    takeFreeTake("Y800", 60'001);  // that of the conversion
}

TEST_F(StillPicture, a_problem_of_an_earlier_picture_is_forgotten) {
    m_picture.Begin();
    m_picture.ExpectSample();
    const Bytes sample(60'000, 7);
    {
        const CScarceHeap heap(60'000);
        m_picture.Deliver(sample.data(), 60'000);
    }
    EXPECT_EQ(m_picture.Finish(), E_OUTOFMEMORY);

    m_picture.Begin();
    m_picture.ExpectSample();
    m_picture.Deliver(nullptr, 4);
    EXPECT_EQ(m_picture.Finish(), E_FAIL);
}

TEST_F(StillPicture, an_abandoned_picture_takes_no_more_samples) {
    const Bytes sample = Counting(6);
    m_picture.Begin();
    m_picture.ExpectSample();
    m_picture.Deliver(sample.data(), 6);
    m_picture.Abandon();
    EXPECT_EQ(m_picture.SizeBytes(), -1);
    m_picture.Deliver(sample.data(), 6);
    EXPECT_EQ(m_picture.SizeBytes(), -1);
    BYTE byte = 0xEE;
    EXPECT_FALSE(m_picture.CopyTo(&byte));
    EXPECT_EQ(byte, 0xEE);
}

TEST_F(StillPicture, sizes_beyond_31_bits_are_none) {
    EXPECT_EQ(ConvertedBytes(715'827'882, PictureConversion::mono8), 2'147'483'646);
    EXPECT_EQ(ConvertedBytes(715'827'883, PictureConversion::mono8), std::nullopt);
    EXPECT_EQ(ConvertedBytes(1'431'655'765, PictureConversion::uyvy), 2'147'483'646);
    EXPECT_EQ(ConvertedBytes(1'431'655'766, PictureConversion::uyvy), std::nullopt);
    EXPECT_EQ(ConvertedBytes(LONG_MAX, PictureConversion::none), LONG_MAX);
    EXPECT_EQ(ConvertedBytes(LONG_MAX, PictureConversion::mono8), std::nullopt);
    EXPECT_EQ(ConvertedBytes(0, PictureConversion::uyvy), 0);
}

TEST_F(StillPicture, a_failed_wait_gives_its_code) {
    m_picture.Begin();
    m_picture.ExpectSample();
    const CPatchedImport wait(&__imp_WaitForSingleObject, reinterpret_cast<void*>(&FailedWait));
    EXPECT_EQ(m_picture.Wait(), HRESULT_FROM_WIN32(ERROR_INVALID_HANDLE));
}

TEST_F(StillPicture, dimensions_and_header_outlive_the_picture) {
    ASSERT_EQ(Take("Y800", 3, 2, {Counting(6)}), S_OK);
    m_picture.Free();
    EXPECT_EQ(m_picture.SizeBytes(), -1);
    EXPECT_EQ(m_picture.Width(), 3);
    EXPECT_EQ(m_picture.Height(), 2);
    EXPECT_EQ(m_picture.Header().biBitCount, 24);
    EXPECT_EQ(m_picture.Header().biSizeImage, 0xFFFFFFFF);
    BYTE byte = 0;
    EXPECT_FALSE(m_picture.CopyTo(&byte));
}

TEST_F(StillPicture, a_picture_without_a_description_is_not_converted) {
    ASSERT_EQ(Take("Y800", 3, 2, {Counting(6)}), S_OK);
    m_picture.Begin();
    m_picture.ExpectSample();
    const Bytes sample = Counting(6);
    m_picture.Deliver(sample.data(), 6);
    ASSERT_EQ(m_picture.Finish(), S_OK);
    EXPECT_EQ(Picture(), sample);
}

}  // namespace
}  // namespace kolmfluxor::test
