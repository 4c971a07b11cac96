/// @file  Modes by the generic feature operations: numbers, bits, capabilities.

#include <tuple>

#include "module/feature_records.h"

namespace kolmfluxor::test {
namespace {

struct ModeRow {
    ULONG mode;
    ULONG bit;
};
constexpr ModeRow kModes[] = {
    {0, 0x4}, {1, 0x2}, {2, 0x10}, {3, 0x8}, {4, 0x40}, {5, 0x80}, {6, 0x100}, {7, 0x200}, {8, 0x400}, {9, 0x1000},
};

class FeatureModes : public FeatureRecords {};

TEST_F(FeatureModes, mode_is_set_in_the_record_just_read_for_each_mode) {
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

TEST_F(FeatureModes, value_and_mode_are_sent_for_each_mode) {
    ASSERT_TRUE(Camera().SetFeatureWord(kGainId, kModeCaps, 0xFFFFFFFF));
    for (const auto& [mode, bit] : kModes) {
        SCOPED_TRACE(mode);
        EXPECT_EQ(Object()->SetFeatureValueAndMode(kGain, 77, mode), S_OK);
        const Wire sent = Object().Sent();
        ASSERT_FALSE(sent.empty());
        EXPECT_EQ(sent.back(), Set(kGainId).With(kValue, 77).With(kMode, bit));
    }
}

TEST_F(FeatureModes, mode_is_read_for_each_mode) {
    for (const auto& [mode, bit] : kModes) {
        SCOPED_TRACE(mode);
        ASSERT_TRUE(Camera().SetFeatureWord(kBrightnessId, kMode, bit));
        ULONG read = kPoison;

        EXPECT_EQ(Object()->GetFeatureMode(kBrightness, &read), S_OK);
        EXPECT_EQ(read, mode);
        EXPECT_EQ(Object().Sent(), Wire{Get(kBrightnessId)});
    }
}

TEST_F(FeatureModes, mode_support_follows_each_bit_of_the_capabilities) {
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

TEST_F(FeatureModes, a_mode_bit_without_a_meaning_reads_as_10_and_succeeds) {
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

TEST_F(FeatureModes, an_unknown_mode_number_fails_and_sends_no_set) {
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

TEST_F(FeatureModes, SetFeatureValueAndMode_checks_the_value_before_the_mode) {
    EXPECT_EQ(Object()->SetFeatureValueAndMode(kGain, 77, kNoMode), E_FAIL);
    EXPECT_EQ(Object().Sent(), Wire{Get(kGainId)}) << "the range is read first";

    EXPECT_EQ(Object()->SetFeatureValueAndMode(kGain, WordOf(kGainId, kMax) + 1, kNoMode), E_INVALIDARG);
    EXPECT_EQ(Object().Sent(), Wire{});
}

TEST_F(FeatureModes, SetFeatureMode_without_the_capability_is_E_NOTIMPL_and_sends_no_set) {
    ASSERT_TRUE(Camera().SetFeatureWord(kGainId, kModeCaps, 0xFFFFFFFF & ~0x8u));

    EXPECT_EQ(Object()->SetFeatureMode(kGain, kAuto), E_NOTIMPL);
    EXPECT_EQ(Object().Sent(), Wire{Get(kGainId)});
}

TEST_F(FeatureModes, SetFeatureMode_auto_carries_AutoOn_and_no_OnePushOn) {
    ASSERT_TRUE(Camera().SetFeatureWord(kGainId, kModeCaps, 0x1A));
    ASSERT_TRUE(Camera().SetFeatureWord(kGainId, kOnePushOn, 1));

    EXPECT_EQ(Object()->SetFeatureMode(kGain, kAuto), S_OK);

    const Wire sent = Object().Sent();
    ASSERT_EQ(sent.size(), 2u);
    EXPECT_EQ(sent[1].Word(kAutoOn), 1u);
    EXPECT_EQ(sent[1].Word(kOnePushOn), 0u);
}

TEST_F(FeatureModes, SetFeatureMode_asks_the_capabilities_first_seen) {
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

TEST_F(FeatureModes, SetFeatureValueAndMode_leaves_the_capabilities_to_the_driver) {
    ASSERT_TRUE(Camera().SetFeatureWord(kGainId, kModeCaps, 0));
    Camera().AddFault({.nth = 1, .id = kGainId, .flags = 2, .action = kolmsim::SimFaultAction::fail, .code = E_ABORT});

    EXPECT_EQ(Object()->SetFeatureValueAndMode(kGain, 77, kAuto), E_ABORT) << "the driver's own answer";
    EXPECT_EQ(Object().Sent(), (Wire{Get(kGainId), Set(kGainId).With(kValue, 77).With(kMode, 0x8)}));
}

TEST_F(FeatureModes, mode_support_is_that_of_the_first_record_seen) {
    ULONG value = 0;
    ASSERT_EQ(Object()->GetFeatureValue(kGain, &value), S_OK);
    ASSERT_TRUE(Camera().SetFeatureWord(kGainId, kModeCaps, 0));
    Object().Forget();
    BOOL supported = FALSE;

    EXPECT_EQ(Object()->IsFeatureModeSupported(kGain, kAuto, &supported), S_OK);
    EXPECT_TRUE(supported);
    EXPECT_EQ(Object().Sent(), Wire{});
}

}  // namespace
}  // namespace kolmfluxor::test
