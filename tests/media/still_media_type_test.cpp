/// @file  A capture with a media-type file: what of it reaches the device, and what becomes of the picture.

#include <cstring>
#include <utility>

#include "media/still_fixture.h"
#include "support/temporary_file.h"

namespace kolmfluxor::test {
namespace {

constexpr REFERENCE_TIME kFrameTime = 2666666;

/// The content of a media-type file.
std::vector<std::uint8_t> MediaTypeFileOf(const ScriptedFormat& format) {
    AM_MEDIA_TYPE record{};
    record.majortype = format.majorType;
    record.subtype = format.subtype;
    record.formattype = format.formatType;
    record.lSampleSize = format.sampleBytes;
    std::vector<std::uint8_t> content(176);
    std::memcpy(content.data(), &record, 88);
    std::memcpy(content.data() + 88, &format.header, 88);
    return content;
}

class StillMediaType : public StillFixture {
protected:
    std::pair<LONG, LONG> Size() {
        std::pair<LONG, LONG> size{-2, -2};
        EXPECT_EQ(m_still->GetImageSize(&size.first, &size.second), S_OK);
        return size;
    }
};

TEST_F(StillMediaType, a_file_changes_the_second_format_only) {
    Select();
    ScriptedFormat wanted = FixedMode(1, -2, FourCc("UYVY"), 16, 1);
    wanted.sampleBytes = 4;
    const CTemporaryFile file(MediaTypeFileOf(wanted));
    ASSERT_EQ(m_still->SetMediaTypeFile(file.Name().c_str()), S_OK);
    m_graph->samples = {{128, 9, 128, 8}};

    ASSERT_EQ(m_still->Capture(), S_OK);

    ASSERT_EQ(Device().set.size(), 2u);
    EXPECT_EQ(Device().set[0].subtype, Device().formats[0].subtype);
    EXPECT_EQ(Device().set[1].subtype, wanted.subtype);
    EXPECT_EQ(Device().set[1].sampleBytes, 4u);
    EXPECT_EQ(Device().set[1].header.bmiHeader.biWidth, 1);
    EXPECT_EQ(Device().set[1].header.AvgTimePerFrame, kFrameTime) << "whatever the file says";
    EXPECT_EQ(Picture(), (std::vector<BYTE>{8, 8, 8, 9, 9, 9}));
    LONG width = 0;
    LONG height = 0;
    EXPECT_EQ(m_still->GetImageSize(&width, &height), S_OK);
    EXPECT_EQ(width, 1);
    EXPECT_EQ(height, -2);

    ASSERT_EQ(m_still->SetMediaTypeFile(nullptr), S_OK);
    m_graph->samples = {{1, 2, 3, 4, 5, 6}};
    EXPECT_EQ(m_still->Capture(), S_OK);
    EXPECT_EQ(Picture(), (std::vector<BYTE>{4, 4, 4, 5, 5, 5, 6, 6, 6, 1, 1, 1, 2, 2, 2, 3, 3, 3}))
        << "no file any more";
}

TEST_F(StillMediaType, a_file_that_is_not_there_changes_nothing) {
    Select();
    ASSERT_EQ(m_still->SetMediaTypeFile("no such folder\\no such file"), S_OK);
    EXPECT_EQ(m_still->Capture(), S_OK);
    EXPECT_EQ(Picture(), (std::vector<BYTE>{10, 10, 10, 11, 11, 11, 12, 12, 12, 7, 7, 7, 8, 8, 8, 9, 9, 9}));
    EXPECT_EQ(m_still->SetMediaTypeFile(std::string(5000, 'x').c_str()), S_OK);
    EXPECT_EQ(m_still->Capture(), S_OK);
}

TEST_F(StillMediaType, a_file_of_another_format_type_leaves_the_samples_as_they_are) {
    Select();
    ScriptedFormat wanted = FixedMode(99, 77, FourCc("UYVY"), 16, 1);
    wanted.formatType = FORMAT_VideoInfo2;
    const CTemporaryFile file(MediaTypeFileOf(wanted));
    ASSERT_EQ(m_still->SetMediaTypeFile(file.Name().c_str()), S_OK);

    EXPECT_EQ(m_still->Capture(), S_OK);

    ASSERT_EQ(Device().set.size(), 1u) << "the frame rate before the file was read";
    EXPECT_EQ(Device().set[0].formatType, FORMAT_VideoInfo);
    EXPECT_EQ(Picture(), m_graph->samples.back());
    EXPECT_EQ(Size(), (std::pair{-1L, -1L})) << "no dimensions are known";
}

TEST_F(StillMediaType, a_file_makes_a_device_of_another_format_type_one_of_bitmaps) {
    Select();
    Device().formats[0].formatType = FORMAT_VideoInfo2;
    const CTemporaryFile file(MediaTypeFileOf(FixedMode(2, 3, FourCc("Y800"), 8, 5)));
    ASSERT_EQ(m_still->SetMediaTypeFile(file.Name().c_str()), S_OK);

    EXPECT_EQ(m_still->Capture(), S_OK);

    ASSERT_EQ(Device().set.size(), 1u) << "the frame rate alone could not be set";
    EXPECT_EQ(Device().set[0].formatType, FORMAT_VideoInfo);
    EXPECT_EQ(Device().set[0].header.AvgTimePerFrame, kFrameTime);
    EXPECT_EQ(Device().set[0].header.bmiHeader.biWidth, 2);
    EXPECT_EQ(Size(), (std::pair{2L, 3L}));
    EXPECT_EQ(Picture(), (std::vector<BYTE>{11, 11, 11, 12, 12, 12, 9, 9, 9, 10, 10, 10, 7, 7, 7, 8, 8, 8}));

    // Without room for a header the file's type is a promise that nothing keeps.
    Device().set.clear();
    Device().formats[0].blockBytes = 87;
    EXPECT_EQ(m_still->Capture(), S_OK);
    EXPECT_TRUE(Device().set.empty());
    EXPECT_EQ(Picture(), m_graph->samples.back());
}

TEST_F(StillMediaType, close_keeps_the_file_for_the_next_device) {
    Select();
    const CTemporaryFile file(MediaTypeFileOf(FixedMode(2, 3, FourCc("Y800"), 8, 5)));
    ASSERT_EQ(m_still->SetMediaTypeFile(file.Name().c_str()), S_OK);
    ASSERT_EQ(m_still->Capture(), S_OK);
    ASSERT_EQ(m_still->Close(), S_OK);
    EXPECT_EQ(Size(), (std::pair{2L, 3L}));
    Device().set.clear();

    Select();
    EXPECT_EQ(m_still->Capture(), S_OK);

    ASSERT_EQ(Device().set.size(), 2u);
    EXPECT_EQ(Device().set[0].header.bmiHeader.biWidth, 3);
    EXPECT_EQ(Device().set[1].header.bmiHeader.biWidth, 2) << "the file's";
    EXPECT_EQ(Picture(), (std::vector<BYTE>{11, 11, 11, 12, 12, 12, 9, 9, 9, 10, 10, 10, 7, 7, 7, 8, 8, 8}));
}

}  // namespace
}  // namespace kolmfluxor::test
