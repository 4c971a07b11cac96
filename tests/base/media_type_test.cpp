#include "base/media_type.h"

#include <cstring>
#include <tuple>
#include <utility>

#include <gtest/gtest.h>

namespace kolmfluxor {
namespace {

constexpr GUID kMajorType{1, 0, 0, {}};
constexpr GUID kSubtype{2, 0, 0, {}};
constexpr GUID kFormatType{3, 0, 0, {}};

/// Only counts.
class CCounted final : public IUnknown {
public:
    HRESULT STDMETHODCALLTYPE QueryInterface(REFIID, void** ppv) override {
        *ppv = nullptr;
        return E_NOINTERFACE;
    }
    ULONG STDMETHODCALLTYPE AddRef() override { return ++m_count; }
    ULONG STDMETHODCALLTYPE Release() override { return --m_count; }
    [[nodiscard]] ULONG Count() const { return m_count; }

private:
    ULONG m_count = 0;
};

class MediaType : public testing::Test {
protected:
    MediaType() {
        m_source.majortype = kMajorType;
        m_source.subtype = kSubtype;
        m_source.formattype = kFormatType;
        m_source.lSampleSize = 7;
        m_source.cbFormat = sizeof m_block;
        m_source.pbFormat = m_block;
        m_source.pUnk = &m_object;
    }

    CCounted m_object;
    BYTE m_block[5] = {1, 2, 3, 4, 5};
    AM_MEDIA_TYPE m_source{};
};

TEST_F(MediaType, says_nothing_at_first) {
    const CMediaType type;
    const AM_MEDIA_TYPE& nothing = type.Get();
    EXPECT_TRUE(nothing.majortype == GUID{} && nothing.subtype == GUID{} && nothing.formattype == GUID{});
    EXPECT_EQ(std::tuple(nothing.bFixedSizeSamples, nothing.bTemporalCompression, nothing.lSampleSize),
              std::tuple(FALSE, FALSE, 0U));
    EXPECT_EQ(std::tuple(nothing.pUnk, nothing.cbFormat, nothing.pbFormat),
              std::tuple(static_cast<IUnknown*>(nullptr), 0U, static_cast<BYTE*>(nullptr)));
}

TEST_F(MediaType, copies_are_deep_and_hold_the_object) {
    {
        const CMediaType first(m_source);
        const CMediaType second(first);
        EXPECT_EQ(m_object.Count(), 2u);
        m_block[0] = 9;
        for (const CMediaType* type : {&first, &second}) {
            EXPECT_EQ(type->Get().lSampleSize, 7u);
            ASSERT_EQ(type->Get().cbFormat, 5u);
            EXPECT_EQ(type->Get().pbFormat[0], 1);
            EXPECT_EQ(type->Get().pbFormat[4], 5);
        }
        EXPECT_NE(first.Get().pbFormat, second.Get().pbFormat);
    }
    EXPECT_EQ(m_object.Count(), 0u);
}

TEST_F(MediaType, assignment_releases_what_was_held) {
    CMediaType type(m_source);
    type = CMediaType();
    EXPECT_EQ(m_object.Count(), 0u);
    EXPECT_EQ(type.Get().pbFormat, nullptr);

    type = CMediaType(m_source);
    CMediaType& same = type;
    type = same;
    EXPECT_EQ(m_object.Count(), 1u);
    ASSERT_EQ(type.Get().cbFormat, 5u);
    EXPECT_EQ(type.Get().pbFormat[4], 5);
}

TEST_F(MediaType, moving_leaves_nothing_behind) {
    CMediaType first(m_source);
    const CMediaType second(std::move(first));
    EXPECT_EQ(m_object.Count(), 1u);
    EXPECT_EQ(first.Get().pbFormat, nullptr);  // NOLINT(bugprone-use-after-move): that is the point
    EXPECT_EQ(first.Get().cbFormat, 0u);
    EXPECT_EQ(second.Get().cbFormat, 5u);
}

TEST_F(MediaType, a_size_without_a_block_is_lost_and_a_block_without_a_size_too) {
    m_source.pbFormat = nullptr;
    EXPECT_EQ(CMediaType(m_source).Get().cbFormat, 0u);
    m_source.pbFormat = m_block;
    m_source.cbFormat = 0;
    EXPECT_EQ(CMediaType(m_source).Get().pbFormat, nullptr);
}

TEST_F(MediaType, the_sample_size_tells_whether_samples_vary) {
    CMediaType type(m_source);
    type.SetSampleSize(12);
    EXPECT_EQ(type.Get().lSampleSize, 12u);
    EXPECT_TRUE(type.Get().bFixedSizeSamples);
    type.SetSampleSize(0);
    EXPECT_EQ(type.Get().lSampleSize, 12u);
    EXPECT_FALSE(type.Get().bFixedSizeSamples);
}

TEST_F(MediaType, copies_for_callers_are_freed_by_them) {
    const CMediaType type(m_source);
    AM_MEDIA_TYPE copy;
    std::memset(&copy, 0xEE, sizeof copy);
    EXPECT_EQ(type.CopyTo(&copy), S_OK);
    const UniqueMediaType second(type.NewCopy());
    EXPECT_EQ(m_object.Count(), 3u);
    ASSERT_NE(second, nullptr);
    EXPECT_EQ(second->pbFormat[4], 5);
    EXPECT_EQ(copy.pbFormat[4], 5);

    FreeMediaType(&copy);
    EXPECT_EQ(m_object.Count(), 2u);
    EXPECT_EQ(copy.pbFormat, nullptr);
    EXPECT_EQ(copy.cbFormat, 0u);
    EXPECT_EQ(copy.pUnk, nullptr);
    FreeMediaType(&copy);
    EXPECT_EQ(m_object.Count(), 2u) << "a second time frees nothing";
}

TEST_F(MediaType, a_driver_s_type_is_freed_with_all_it_holds) {
    UniqueMediaType type(CMediaType(m_source).NewCopy());
    EXPECT_EQ(m_object.Count(), 1u);
    type.reset();
    EXPECT_EQ(m_object.Count(), 0u);
}

// -- Partial match

TEST_F(MediaType, matches_what_says_the_same) {
    const CMediaType type(m_source);
    BYTE block[5] = {1, 2, 3, 4, 5};
    AM_MEDIA_TYPE partial = m_source;
    partial.pbFormat = block;
    partial.lSampleSize = 1;
    EXPECT_TRUE(type.MatchesPartial(partial));

    block[4] = 6;
    EXPECT_FALSE(type.MatchesPartial(partial));
    partial.cbFormat = 4;
    EXPECT_FALSE(type.MatchesPartial(partial));
    partial.cbFormat = 5;
    partial.pbFormat = nullptr;
    EXPECT_FALSE(type.MatchesPartial(partial));
}

TEST_F(MediaType, matches_each_identifier_or_none) {
    const CMediaType type(m_source);
    for (GUID AM_MEDIA_TYPE::*id : {&AM_MEDIA_TYPE::majortype, &AM_MEDIA_TYPE::subtype, &AM_MEDIA_TYPE::formattype}) {
        AM_MEDIA_TYPE partial = m_source;
        partial.*id = GUID{4, 0, 0, {}};
        EXPECT_FALSE(type.MatchesPartial(partial));
        partial.*id = GUID{};
        EXPECT_TRUE(type.MatchesPartial(partial));
    }
}

TEST_F(MediaType, without_a_format_type_the_block_does_not_count) {
    AM_MEDIA_TYPE partial = m_source;
    partial.formattype = GUID{};
    partial.cbFormat = 1;
    EXPECT_TRUE(CMediaType(m_source).MatchesPartial(partial));
    EXPECT_TRUE(CMediaType(m_source).MatchesPartial({})) << "says nothing, fits all";
}

TEST_F(MediaType, a_type_without_its_own_identifier_does_not_match_one_that_names_it) {
    AM_MEDIA_TYPE open = m_source;
    open.subtype = GUID{};
    EXPECT_FALSE(CMediaType(open).MatchesPartial(m_source));
}

TEST(FourCcSubtypes, are_the_code_and_the_usual_suffix) {
    constexpr GUID kExpected{0x30303859, 0x0000, 0x0010, {0x80, 0x00, 0x00, 0xAA, 0x00, 0x38, 0x9B, 0x71}};
    EXPECT_EQ(FourCcSubtype(0x30303859), kExpected) << "Y800";
}

}  // namespace
}  // namespace kolmfluxor
