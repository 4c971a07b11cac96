/// @file  The generic feature operations, request by request.

#include <tuple>

#include <kolmfluxor/features.h>

#include "support/property_set_test.h"

namespace kolmfluxor::test {
namespace {

constexpr ULONG kValue = 24;
constexpr ULONG kMode = 28;
constexpr ULONG kModeCaps = 32;
constexpr ULONG kMin = 36;
constexpr ULONG kMax = 40;
constexpr ULONG kAutoOn = 44;
constexpr ULONG kOnePushOn = 52;

constexpr ULONG kGain = 265;
constexpr ULONG kGainId = 0;
constexpr ULONG kBrightness = 256;
constexpr ULONG kBrightnessId = 4;
constexpr ULONG kUnmapped = 600;

constexpr ULONG kManual = 1;
constexpr ULONG kAuto = 3;
constexpr ULONG kNoMode = 10;

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

struct ModeRow {
    ULONG mode;
    ULONG bit;
};
constexpr ModeRow kModes[] = {
    {0, 0x4}, {1, 0x2}, {2, 0x10}, {3, 0x8}, {4, 0x40}, {5, 0x80}, {6, 0x100}, {7, 0x200}, {8, 0x400}, {9, 0x1000},
};

class FeatureOperations : public PropertySetTest {
protected:
    ULONG WordOf(ULONG driverId, ULONG offset) {
        std::uint32_t word = kPoison;
        EXPECT_TRUE(Camera().GetFeatureWord(driverId, offset, &word)) << "driver id " << driverId;
        return word;
    }
};

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

// ---- Each mode ----------------------------------------------------------------------------------------------------

TEST_F(FeatureOperations, mode_is_set_in_the_record_just_read_for_each_mode) {
    for (const auto& [mode, bit] : kModes) {
        SCOPED_TRACE(mode);
        Renew(L"color");
        ASSERT_TRUE(Camera().SetFeatureWord(kGainId, kModeCaps, 0xFFFFFFFF));
        ASSERT_TRUE(Camera().SetFeatureWord(kGainId, kMode, 0x8));  // Auto, so that AutoOn has to be cleared

        EXPECT_EQ(Object()->SetFeatureMode(kGain, mode), S_OK);

        const CWireRequest expected = AnswerOf(Camera(), 0)
                                          .AsSet()
                                          .With(kMode, bit)
                                          .With(kAutoOn, mode == 3 ? 1 : 0)
                                          .With(kOnePushOn, mode == 2 ? 1 : 0);
        EXPECT_EQ(Object().Sent(), (Wire{Get(kGainId), expected}));
    }
}

TEST_F(FeatureOperations, value_and_mode_are_sent_for_each_mode) {
    ASSERT_TRUE(Camera().SetFeatureWord(kGainId, kModeCaps, 0xFFFFFFFF));
    for (const auto& [mode, bit] : kModes) {
        SCOPED_TRACE(mode);
        EXPECT_EQ(Object()->SetFeatureValueAndMode(kGain, 77, mode), S_OK);
        const Wire sent = Object().Sent();
        ASSERT_FALSE(sent.empty());
        EXPECT_EQ(sent.back(), Set(kGainId).With(kValue, 77).With(kMode, bit));
    }
}

TEST_F(FeatureOperations, mode_is_read_for_each_mode) {
    for (const auto& [mode, bit] : kModes) {
        SCOPED_TRACE(mode);
        ASSERT_TRUE(Camera().SetFeatureWord(kBrightnessId, kMode, bit));
        ULONG read = kPoison;

        EXPECT_EQ(Object()->GetFeatureMode(kBrightness, &read), S_OK);
        EXPECT_EQ(read, mode);
        EXPECT_EQ(Object().Sent(), Wire{Get(kBrightnessId)});
    }
}

TEST_F(FeatureOperations, mode_support_follows_each_bit_of_the_capabilities) {
    for (const auto& [mode, bit] : kModes) {
        for (const bool capable : {true, false}) {
            SCOPED_TRACE(mode);
            Renew(L"mono");
            ASSERT_TRUE(Camera().SetFeatureWord(kBrightnessId, kModeCaps, capable ? bit : ~bit));
            BOOL supported = 2;

            EXPECT_EQ(Object()->IsFeatureModeSupported(kBrightness, mode, &supported), S_OK);
            EXPECT_EQ(supported, capable ? TRUE : FALSE);
            EXPECT_EQ(Object().Sent(), Wire{Get(kBrightnessId)});
        }
    }
}

TEST_F(FeatureOperations, a_mode_bit_without_a_meaning_reads_as_10_and_succeeds) {
    for (const ULONG bits : {0x0u, 0x1u, 0x6u, 0x800u, 0x80000000u}) {
        SCOPED_TRACE(bits);
        ASSERT_TRUE(Camera().SetFeatureWord(kBrightnessId, kMode, bits));
        ULONG value = kPoison;
        ULONG mode = kPoison;

        EXPECT_EQ(Object()->GetFeatureValueAndMode(kBrightness, &value, &mode), S_OK);
        EXPECT_EQ(mode, kNoMode);
        EXPECT_EQ(value, WordOf(kBrightnessId, kValue));
        mode = kPoison;
        EXPECT_EQ(Object()->GetFeatureMode(kBrightness, &mode), S_OK);
        EXPECT_EQ(mode, kNoMode);
    }
}

TEST_F(FeatureOperations, an_unknown_mode_number_fails_and_sends_no_set) {
    for (const ULONG mode : {10u, 11u, 0xFFFFFFFFu}) {
        SCOPED_TRACE(mode);
        Renew(L"color");
        BOOL supported = TRUE;

        EXPECT_EQ(Object()->IsFeatureModeSupported(kGain, mode, &supported), E_FAIL);
        EXPECT_FALSE(supported);
        EXPECT_EQ(Object().Sent(), Wire{}) << "the mode is looked at before the camera";
        EXPECT_EQ(Object()->SetFeatureMode(kGain, mode), E_FAIL);
        EXPECT_EQ(Object().Sent(), Wire{Get(kGainId)});
        EXPECT_EQ(Object()->SetFeatureValueAndMode(kGain, 77, mode), E_FAIL);
        EXPECT_EQ(Object().Sent(), Wire{});
    }
}

TEST_F(FeatureOperations, SetFeatureValueAndMode_checks_the_value_before_the_mode) {
    EXPECT_EQ(Object()->SetFeatureValueAndMode(kGain, 77, kNoMode), E_FAIL);
    EXPECT_EQ(Object().Sent(), Wire{Get(kGainId)}) << "the range is read first";

    EXPECT_EQ(Object()->SetFeatureValueAndMode(kGain, WordOf(kGainId, kMax) + 1, kNoMode), E_INVALIDARG);
    EXPECT_EQ(Object().Sent(), Wire{});
}

TEST_F(FeatureOperations, SetFeatureMode_without_the_capability_is_E_NOTIMPL_and_sends_no_set) {
    ASSERT_TRUE(Camera().SetFeatureWord(kGainId, kModeCaps, 0xFFFFFFFF & ~0x8u));

    EXPECT_EQ(Object()->SetFeatureMode(kGain, kAuto), E_NOTIMPL);
    EXPECT_EQ(Object().Sent(), Wire{Get(kGainId)});
}

TEST_F(FeatureOperations, SetFeatureMode_auto_carries_AutoOn_and_no_OnePushOn) {
    ASSERT_TRUE(Camera().SetFeatureWord(kGainId, kModeCaps, 0x1A));
    ASSERT_TRUE(Camera().SetFeatureWord(kGainId, kOnePushOn, 1));

    EXPECT_EQ(Object()->SetFeatureMode(kGain, kAuto), S_OK);

    const Wire sent = Object().Sent();
    ASSERT_EQ(sent.size(), 2u);
    EXPECT_EQ(sent[1].Word(kAutoOn), 1u);
    EXPECT_EQ(sent[1].Word(kOnePushOn), 0u);
}

TEST_F(FeatureOperations, SetFeatureMode_asks_the_capabilities_first_seen) {
    ULONG value = 0;
    ASSERT_TRUE(Camera().SetFeatureWord(kGainId, kModeCaps, 0x2));
    ASSERT_EQ(Object()->GetFeatureValue(kGain, &value), S_OK);
    ASSERT_TRUE(Camera().SetFeatureWord(kGainId, kModeCaps, 0x1E));
    EXPECT_EQ(Object()->SetFeatureMode(kGain, kAuto), E_NOTIMPL) << "a capability that came later does not count";

    Renew(L"color");
    ASSERT_EQ(Object()->GetFeatureValue(kGain, &value), S_OK);
    ASSERT_TRUE(Camera().SetFeatureWord(kGainId, kModeCaps, 0x2));
    Object().Forget();
    std::ignore = Object()->SetFeatureMode(kGain, kAuto);
    EXPECT_EQ(Object().Sent().size(), 2u) << "one that went away still counts: the SET is sent";
}

TEST_F(FeatureOperations, SetFeatureValueAndMode_leaves_the_capabilities_to_the_driver) {
    ASSERT_TRUE(Camera().SetFeatureWord(kGainId, kModeCaps, 0));
    Camera().AddFault({.nth = 1, .id = kGainId, .flags = 2, .action = kolmsim::SimFaultAction::fail, .code = E_ABORT});

    EXPECT_EQ(Object()->SetFeatureValueAndMode(kGain, 77, kAuto), E_ABORT) << "the driver's own answer";
    EXPECT_EQ(Object().Sent(), (Wire{Get(kGainId), Set(kGainId).With(kValue, 77).With(kMode, 0x8)}));
}

TEST_F(FeatureOperations, mode_support_is_that_of_the_first_record_seen) {
    ULONG value = 0;
    ASSERT_EQ(Object()->GetFeatureValue(kGain, &value), S_OK);
    ASSERT_TRUE(Camera().SetFeatureWord(kGainId, kModeCaps, 0));
    Object().Forget();
    BOOL supported = FALSE;

    EXPECT_EQ(Object()->IsFeatureModeSupported(kGain, kAuto, &supported), S_OK);
    EXPECT_TRUE(supported);
    EXPECT_EQ(Object().Sent(), Wire{});
}

// ---- Ranges -------------------------------------------------------------------------------------------------------

TEST_F(FeatureOperations, SetFeatureValue_above_max_sends_one_get_and_no_set) {
    EXPECT_EQ(Object()->SetFeatureValue(kGain, WordOf(kGainId, kMax) + 1), E_INVALIDARG);
    EXPECT_EQ(Object().Sent(), Wire{Get(kGainId)});
    EXPECT_EQ(Object()->SetFeatureValue(kGain, WordOf(kGainId, kMax) + 1), E_INVALIDARG);
    EXPECT_EQ(Object().Sent(), Wire{Get(kGainId)}) << "warm: the value is read afresh all the same";
}

TEST_F(FeatureOperations, values_are_checked_against_both_limits) {
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

TEST_F(FeatureOperations, the_range_stays_the_first_one_seen) {
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

TEST_F(FeatureOperations, values_are_checked_against_the_first_range_seen) {
    const ULONG max = WordOf(kGainId, kMax);
    ULONG seen = 0;
    ASSERT_EQ(Object()->GetFeatureMax(kGain, &seen), S_OK);
    ASSERT_TRUE(Camera().SetFeatureWord(kGainId, kMax, max + 10));
    Object().Forget();

    EXPECT_EQ(Object()->SetFeatureValue(kGain, max + 1), E_INVALIDARG);
    EXPECT_EQ(Object()->SetFeatureValueAndMode(kGain, max + 1, kManual), E_INVALIDARG);
    EXPECT_EQ(Object().Sent(), Wire{Get(kGainId)}) << "no SET";
}

TEST_F(FeatureOperations, a_new_object_sees_new_ranges) {
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
