/// @file  Ranges by the generic feature operations: what values are checked against.

#include "module/feature_records.h"

namespace kolmfluxor::test {
namespace {

class FeatureRanges : public FeatureRecords {};

TEST_F(FeatureRanges, SetFeatureValue_above_max_sends_one_get_and_no_set) {
    EXPECT_EQ(Object()->SetFeatureValue(kGain, WordOf(kGainId, kMax) + 1), E_INVALIDARG);
    EXPECT_EQ(Object().Sent(), Wire{Get(kGainId)});
    EXPECT_EQ(Object()->SetFeatureValue(kGain, WordOf(kGainId, kMax) + 1), E_INVALIDARG);
    EXPECT_EQ(Object().Sent(), Wire{Get(kGainId)}) << "warm: the value is read afresh all the same";
}

TEST_F(FeatureRanges, values_are_checked_against_both_limits) {
    ASSERT_TRUE(Camera().SetFeatureWord(kGainId, kMin, 10));
    ASSERT_TRUE(Camera().SetFeatureWord(kGainId, kMax, 20));
    for (const ULONG outside : {0u, 9u, 21u, 0xFFFFFFFFu}) {
        SCOPED_TRACE(outside);
        EXPECT_EQ(Object()->SetFeatureValue(kGain, outside), E_INVALIDARG);
        EXPECT_EQ(Object()->SetFeatureValueAndMode(kGain, outside, kManual), E_INVALIDARG);
        EXPECT_EQ(Object()->SetFeatureValueAndMode(kGain, outside, kAuto), E_INVALIDARG);
    }
    for (const CWireRequest& request : Object().Sent())
        EXPECT_EQ(request, Get(kGainId));
    for (const ULONG inside : {10u, 15u, 20u}) {
        SCOPED_TRACE(inside);
        EXPECT_EQ(Object()->SetFeatureValue(kGain, inside), S_OK);
        EXPECT_EQ(Object()->SetFeatureValueAndMode(kGain, inside, kManual), S_OK);
    }
}

TEST_F(FeatureRanges, the_range_stays_the_first_one_seen) {
    ULONG min = kPoison;
    ULONG max = kPoison;
    ASSERT_EQ(Object()->GetFeatureRange(kGain, &min, &max), S_OK);
    const ULONG firstMin = min;
    const ULONG firstMax = max;
    ASSERT_TRUE(Camera().SetFeatureWord(kGainId, kMin, firstMin + 5));
    ASSERT_TRUE(Camera().SetFeatureWord(kGainId, kMax, firstMax - 5));
    ULONG value = 0;
    ASSERT_EQ(Object()->GetFeatureValue(kGain, &value), S_OK) << "a later read must not replace the first record";

    EXPECT_EQ(Object()->GetFeatureRange(kGain, &min, &max), S_OK);
    EXPECT_EQ(min, firstMin);
    EXPECT_EQ(max, firstMax);
}

TEST_F(FeatureRanges, values_are_checked_against_the_first_range_seen) {
    const ULONG max = WordOf(kGainId, kMax);
    ULONG seen = 0;
    ASSERT_EQ(Object()->GetFeatureMax(kGain, &seen), S_OK);
    ASSERT_TRUE(Camera().SetFeatureWord(kGainId, kMax, max + 10));
    Object().Forget();

    EXPECT_EQ(Object()->SetFeatureValue(kGain, max + 1), E_INVALIDARG);
    EXPECT_EQ(Object()->SetFeatureValueAndMode(kGain, max + 1, kManual), E_INVALIDARG);
    EXPECT_EQ(Object().Sent(), Wire{Get(kGainId)}) << "no SET";
}

TEST_F(FeatureRanges, a_new_object_sees_new_ranges) {
    ULONG min = kPoison;
    ULONG max = kPoison;
    ASSERT_EQ(Object()->GetFeatureRange(kGain, &min, &max), S_OK);
    IUnknown* inner = nullptr;
    ASSERT_TRUE(Camera().SetFeatureWord(kGainId, kMax, 99));

    CCameraFilter filter(Camera().Handle());
    ASSERT_EQ(CModule::Get().Create(CLSID_KolmFluxorPropertySet, filter.Unknown(), IID_IUnknown,
                                    reinterpret_cast<void**>(&inner)),
              S_OK);
    IKolmFluxorPropertySet* fresh = nullptr;
    ASSERT_EQ(inner->QueryInterface(__uuidof(IKolmFluxorPropertySet), reinterpret_cast<void**>(&fresh)), S_OK);

    EXPECT_EQ(fresh->GetFeatureMax(kGain, &max), S_OK);
    EXPECT_EQ(max, 99u);
    fresh->Release();
    EXPECT_EQ(inner->Release(), 0u);
}

}  // namespace
}  // namespace kolmfluxor::test
