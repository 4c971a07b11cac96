/// @file  Media types from a file: what counts of it, and files that are short, missing, or not as they look.

#include "media/media_type_file.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <cstring>
#include <string>
#include <vector>

#include <uuids.h>

#include "support/temporary_file.h"

namespace kolmfluxor::test {
namespace {

constexpr std::size_t kRecordBytes = 88;

/// A record of 88 different bytes, none of which text mode treats in a special way.
std::array<BYTE, kRecordBytes> Pattern(BYTE first) {
    std::array<BYTE, kRecordBytes> bytes{};
    for (std::size_t i = 0; i < bytes.size(); ++i) {
        bytes.at(i) = static_cast<BYTE>(first + i);
    }
    return bytes;
}

std::vector<BYTE> WholeFile() {
    std::vector<BYTE> content;
    for (const BYTE first : {BYTE{32}, BYTE{128}}) {
        const auto record = Pattern(first);
        content.insert(content.end(), record.begin(), record.end());
    }
    return content;
}

class MediaTypeFile : public ::testing::Test {
protected:
    MediaTypeFile() {
        m_type.majortype = MEDIATYPE_Video;
        m_type.subtype = MEDIASUBTYPE_RGB24;
        m_type.bFixedSizeSamples = TRUE;
        m_type.lSampleSize = 4711;
        m_type.formattype = FORMAT_VideoInfo;
        m_type.pUnk = reinterpret_cast<IUnknown*>(0x1234);
        m_type.cbFormat = static_cast<ULONG>(m_block.size());
        m_type.pbFormat = m_block.data();
        m_block.fill(0xEE);
        m_before = m_type;
    }

    void Read(const std::vector<BYTE>& content) {
        const CTemporaryFile file(content);
        ReadMediaTypeFile(file.Name().c_str(), m_type);
    }

    /// The type's bytes as far as a file may change them: GUIDs, flags and sample size lie side by side.
    static std::vector<BYTE> Changeable(const AM_MEDIA_TYPE& type) {
        const auto* const first = reinterpret_cast<const BYTE*>(&type);
        return {first, first + 60};
    }

    std::array<BYTE, 100> m_block{};  // some drivers add to the header
    AM_MEDIA_TYPE m_type{};
    AM_MEDIA_TYPE m_before{};
};

TEST_F(MediaTypeFile, takes_the_named_fields_and_the_header_and_nothing_else) {
    Read(WholeFile());

    const auto first = Pattern(32);
    EXPECT_EQ(Changeable(m_type), std::vector<BYTE>(first.begin(), first.begin() + 60));
    EXPECT_EQ(m_type.pUnk, m_before.pUnk);
    EXPECT_EQ(m_type.cbFormat, m_before.cbFormat);
    EXPECT_EQ(m_type.pbFormat, m_before.pbFormat);
    const auto second = Pattern(128);
    EXPECT_EQ(std::memcmp(m_block.data(), second.data(), kRecordBytes), 0);
    for (std::size_t i = kRecordBytes; i < m_block.size(); ++i) {
        EXPECT_EQ(m_block.at(i), 0xEE) << i;
    }
}

TEST_F(MediaTypeFile, a_short_file_changes_the_bytes_that_it_holds) {
    const std::vector<BYTE> whole = WholeFile();
    for (std::size_t length = 0; length <= whole.size(); ++length) {
        SCOPED_TRACE(length);
        m_type = m_before;
        m_block.fill(0xEE);

        Read({whole.begin(), whole.begin() + static_cast<std::ptrdiff_t>(length)});

        std::vector<BYTE> type = Changeable(m_before);
        std::copy_n(whole.begin(), std::min<std::size_t>(length, type.size()), type.begin());
        EXPECT_EQ(Changeable(m_type), type);
        EXPECT_EQ(m_type.pUnk, m_before.pUnk);
        std::vector<BYTE> block(m_block.size(), 0xEE);
        if (length > kRecordBytes) std::copy_n(whole.begin() + kRecordBytes, length - kRecordBytes, block.begin());
        EXPECT_TRUE(std::ranges::equal(m_block, block));
    }
}

TEST_F(MediaTypeFile, a_missing_file_changes_nothing) {
    for (const char* name : {"", "no such folder\\file", ".", "?"}) {
        ReadMediaTypeFile(name, m_type);
        EXPECT_EQ(Changeable(m_type), Changeable(m_before)) << name;
        EXPECT_EQ(m_block.front(), 0xEE) << name;
    }
}

TEST_F(MediaTypeFile, is_read_in_text_mode_CR_LF_counts_as_LF) {
    std::vector<BYTE> content = WholeFile();
    content[4] = '\r';
    content[5] = '\n';

    Read(content);

    // One byte has gone, so that all behind it moves up.
    std::vector<BYTE> seen = content;
    seen.erase(seen.begin() + 4);
    EXPECT_EQ(Changeable(m_type), std::vector<BYTE>(seen.begin(), seen.begin() + 60));
    EXPECT_EQ(m_block.front(), 129);
    EXPECT_EQ(m_block.at(86), static_cast<BYTE>(128 + 87));
    EXPECT_EQ(m_block.at(87), 0xEE) << "the file is a byte too short now";
}

TEST_F(MediaTypeFile, is_read_in_text_mode_control_Z_ends_it) {
    std::vector<BYTE> content = WholeFile();
    content[20] = 0x1A;

    Read(content);

    std::vector<BYTE> type = Changeable(m_before);
    std::copy_n(content.begin(), 20, type.begin());
    EXPECT_EQ(Changeable(m_type), type);
    EXPECT_EQ(m_block.front(), 0xEE);
}

TEST_F(MediaTypeFile, the_header_goes_no_further_than_the_format_block) {
    m_type.cbFormat = 10;
    Read(WholeFile());
    EXPECT_EQ(m_block.at(9), 137);
    EXPECT_EQ(m_block.at(10), 0xEE);
}

TEST_F(MediaTypeFile, a_type_without_a_block_takes_the_fields_alone) {
    m_type.pbFormat = nullptr;
    Read(WholeFile());
    EXPECT_EQ(m_type.lSampleSize, 0x4B4A4948u);
}

}  // namespace
}  // namespace kolmfluxor::test
