/// @file  The generic feature operations, request by request.

#include "module/feature_records.h"

namespace kolmfluxor::test {
namespace {

struct FeatureRow {
    ULONG feature;
    ULONG driverId;
};

/// The driver contract, typed once more: a test must not take it from the code under test.
constexpr FeatureRow kFeatures[] = {
    {256, 4},  {257, 60}, {258, 21}, {259, 1},  {260, 2},  {261, 22}, {262, 23}, {263, 8},  {264, 5},
    {265, 0},  {266, 40}, {512, 6},  {514, 7},  {515, 31}, {516, 63}, {517, 64}, {520, 28}, {521, 27},
    {523, 19}, {526, 32}, {527, 33}, {528, 39}, {539, 41}, {542, 35}, {543, 36}, {544, 37}, {1032, 55},
};

class FeatureOperations : public FeatureRecords {};

// ---- Each feature -------------------------------------------------------------------------------------------------

TEST_F(FeatureOperations, value_is_read_with_one_request_for_each_feature) {
    for (const auto& [feature, id] : kFeatures) {
        SCOPED_TRACE(feature);
        const ULONG expected = WordOf(id, kValue);
        for (int i = 0; i < 2; ++i) {  // the cache never serves values
            ULONG value = kPoison;
            EXPECT_EQ(Object()->GetFeatureValue(feature, &value), S_OK);
            EXPECT_EQ(value, expected);
            EXPECT_EQ(Object().Sent(), Wire{Get(id)});
        }
    }
}

TEST_F(FeatureOperations, value_and_mode_are_set_without_reading_once_the_range_is_known) {
    for (const auto& [feature, id] : kFeatures) {
        SCOPED_TRACE(feature);
        const ULONG max = WordOf(id, kMax);
        const CWireRequest set = Set(id).With(kValue, max).With(kMode, 0x2);

        EXPECT_EQ(Object()->SetFeatureValueAndMode(feature, max, kManual), S_OK);
        EXPECT_EQ(Object().Sent(), (Wire{Get(id), set})) << "cold: the range is read first";
        EXPECT_EQ(Object()->SetFeatureValueAndMode(feature, max, kManual), S_OK);
        EXPECT_EQ(Object().Sent(), Wire{set});
        EXPECT_EQ(WordOf(id, kValue), max);
    }
}

TEST_F(FeatureOperations, value_is_set_in_the_record_just_read) {
    for (const auto& [feature, id] : kFeatures) {
        SCOPED_TRACE(feature);
        const ULONG max = WordOf(id, kMax);

        EXPECT_EQ(Object()->SetFeatureValue(feature, max), S_OK);

        const CWireRequest read = AnswerOf(Camera(), 0);
        EXPECT_NE(read.Word(48), 0u) << "the driver's own words must be there, to be carried";
        EXPECT_NE(read.Word(56), 0u);
        EXPECT_NE(read.Word(60), 0u);
        EXPECT_EQ(Object().Sent(), (Wire{Get(id), read.AsSet().With(kValue, max)}));
    }
}

TEST_F(FeatureOperations, presence_and_range_cost_one_request_in_all) {
    for (const auto& [feature, id] : kFeatures) {
        SCOPED_TRACE(feature);
        BOOL present = FALSE;
        ULONG min = kPoison;
        ULONG max = kPoison;
        BOOL supported = FALSE;

        EXPECT_EQ(Object()->IsFeaturePresent(feature, &present), S_OK);
        EXPECT_TRUE(present);
        EXPECT_EQ(Object()->GetFeatureRange(feature, &min, &max), S_OK);
        EXPECT_EQ(min, feature == 515 ? 0 : WordOf(id, kMin));
        EXPECT_EQ(max, WordOf(id, kMax));
        min = max = kPoison;
        EXPECT_EQ(Object()->GetFeatureMin(feature, &min), S_OK);
        EXPECT_EQ(min, feature == 515 ? 0 : WordOf(id, kMin));
        EXPECT_EQ(Object()->GetFeatureMax(feature, &max), S_OK);
        EXPECT_EQ(max, WordOf(id, kMax));
        EXPECT_EQ(Object()->IsFeatureModeSupported(feature, kManual, &supported), S_OK);
        EXPECT_TRUE(supported);

        EXPECT_EQ(Object().Sent(), Wire{Get(id)});
    }
}

TEST_F(FeatureOperations, GetFeatureMin_515_is_0_whatever_the_driver_says) {
    ASSERT_NE(WordOf(31, kMin), 0u);
    ULONG min = kPoison;
    ULONG max = kPoison;

    EXPECT_EQ(Object()->GetFeatureMin(515, &min), S_OK);
    EXPECT_EQ(min, 0u);
    min = kPoison;
    EXPECT_EQ(Object()->GetFeatureRange(515, &min, &max), S_OK);
    EXPECT_EQ(min, 0u);
    EXPECT_EQ(max, WordOf(31, kMax));
    EXPECT_EQ(Object()->SetFeatureValue(515, 0), S_OK) << "0 is inside the reported range";
}

// ---- Presence and unknown features --------------------------------------------------------------------------------

TEST_F(FeatureOperations, IsFeaturePresent_of_an_unmapped_id_is_false_and_sends_nothing) {
    for (const ULONG feature : std::initializer_list<ULONG>{0, 255, 267, 513, kUnmapped, 1033, 0xFFFFFFFF}) {
        SCOPED_TRACE(feature);
        BOOL present = TRUE;
        EXPECT_EQ(Object()->IsFeaturePresent(feature, &present), S_OK);
        EXPECT_FALSE(present);
    }
    EXPECT_EQ(Object().Sent(), Wire{});
}

TEST_F(FeatureOperations, IsFeaturePresent_of_a_missing_feature_returns_the_drivers_code) {
    Renew(L"mono");
    BOOL present = TRUE;

    EXPECT_EQ(Object()->IsFeaturePresent(259, &present), static_cast<HRESULT>(0x80070490));
    EXPECT_FALSE(present);
    EXPECT_EQ(Object()->IsFeaturePresent(259, &present), static_cast<HRESULT>(0x80070490));
    EXPECT_EQ(Object().Sent(), (Wire{Get(1), Get(1)})) << "a failed read is not cached";
}

TEST_F(FeatureOperations, unmapped_features_fail_everywhere_else_and_send_nothing) {
    ULONG a = kPoison;
    ULONG b = kPoison;
    BOOL supported = TRUE;

    EXPECT_EQ(Object()->GetFeatureMin(kUnmapped, &a), E_FAIL);
    EXPECT_EQ(a, 0u);
    EXPECT_EQ(Object()->GetFeatureMax(kUnmapped, &b), E_FAIL);
    EXPECT_EQ(b, 0u);
    a = b = kPoison;
    EXPECT_EQ(Object()->GetFeatureRange(kUnmapped, &a, &b), E_FAIL);
    EXPECT_EQ(a, 0u);
    EXPECT_EQ(b, 0u);
    a = kPoison;
    EXPECT_EQ(Object()->GetFeatureValue(kUnmapped, &a), E_FAIL);
    EXPECT_EQ(a, 0u);
    a = b = kPoison;
    EXPECT_EQ(Object()->GetFeatureValueAndMode(kUnmapped, &a, &b), E_FAIL);
    EXPECT_EQ(a, 0u);
    EXPECT_EQ(b, kNoMode);
    b = kPoison;
    EXPECT_EQ(Object()->GetFeatureMode(kUnmapped, &b), E_FAIL);
    EXPECT_EQ(b, kNoMode);
    EXPECT_EQ(Object()->SetFeatureValue(kUnmapped, 1), E_FAIL);
    EXPECT_EQ(Object()->SetFeatureValueAndMode(kUnmapped, 1, kManual), E_FAIL);
    EXPECT_EQ(Object()->IsFeatureModeSupported(kUnmapped, kManual, &supported), E_FAIL);
    EXPECT_FALSE(supported);
    EXPECT_EQ(Object()->SetFeatureMode(kUnmapped, kManual), E_FAIL);

    EXPECT_EQ(Object().Sent(), Wire{});
}

// ---- Null outputs -------------------------------------------------------------------------------------------------

TEST_F(FeatureOperations, null_outputs_are_refused_before_anything_is_sent) {
    ULONG word = kPoison;

    EXPECT_EQ(Object()->IsFeaturePresent(kGain, nullptr), E_POINTER);
    EXPECT_EQ(Object()->IsFeaturePresent(kUnmapped, nullptr), E_POINTER);
    EXPECT_EQ(Object()->GetFeatureMin(kGain, nullptr), E_POINTER);
    EXPECT_EQ(Object()->GetFeatureMax(kGain, nullptr), E_POINTER);
    EXPECT_EQ(Object()->GetFeatureRange(kGain, nullptr, &word), E_POINTER);
    EXPECT_EQ(Object()->GetFeatureRange(kGain, &word, nullptr), E_POINTER);
    EXPECT_EQ(Object()->GetFeatureValue(kGain, nullptr), E_POINTER);
    EXPECT_EQ(Object()->GetFeatureValueAndMode(kGain, nullptr, &word), E_POINTER);
    EXPECT_EQ(Object()->GetFeatureValueAndMode(kGain, &word, nullptr), E_POINTER);
    EXPECT_EQ(Object()->GetFeatureMode(kGain, nullptr), E_POINTER);
    EXPECT_EQ(Object()->IsFeatureModeSupported(kGain, kManual, nullptr), E_POINTER);
    EXPECT_EQ(Object()->IsFeatureModeSupported(kGain, kNoMode, nullptr), E_POINTER);

    EXPECT_EQ(word, kPoison);
    EXPECT_EQ(Object().Sent(), Wire{});
}

// ---- What the camera does by itself -------------------------------------------------------------------------------

TEST_F(FeatureOperations, one_push_ends_by_itself_and_reports_manual) {
    ASSERT_EQ(Object()->SetFeatureMode(kGain, 2), S_OK);
    ULONG value = 0;
    ULONG mode = kPoison;

    ASSERT_EQ(Object()->GetFeatureValueAndMode(kGain, &value, &mode), S_OK);
    EXPECT_EQ(mode, 2u);
    for (int reads = 0; mode == 2 && reads < 10; ++reads) {
        ASSERT_EQ(Object()->GetFeatureValueAndMode(kGain, &value, &mode), S_OK);
    }
    EXPECT_EQ(mode, kManual);
}

TEST_F(FeatureOperations, auto_moves_the_value_inside_the_range) {
    ASSERT_EQ(Object()->SetFeatureMode(kGain, kAuto), S_OK);
    ULONG first = 0;
    ULONG second = 0;

    ASSERT_EQ(Object()->GetFeatureValue(kGain, &first), S_OK);
    ASSERT_EQ(Object()->GetFeatureValue(kGain, &second), S_OK);
    EXPECT_NE(first, second);
    EXPECT_LE(second, WordOf(kGainId, kMax));
}

}  // namespace
}  // namespace kolmfluxor::test
