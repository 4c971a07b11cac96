/// @file  The eight standard families: value, mode and range in one method each.

#include <tuple>

#include "support/property_set_test.h"

namespace kolmfluxor::test {
namespace {

struct Family {
    const char* name;
    ULONG id;
    HRESULT (STDMETHODCALLTYPE IKolmFluxorPropertySet::*get)(ULONG*, BOOL*, BOOL*);
    HRESULT (STDMETHODCALLTYPE IKolmFluxorPropertySet::*set)(ULONG, BOOL, BOOL);
    HRESULT (STDMETHODCALLTYPE IKolmFluxorPropertySet::*range)(ULONG*, ULONG*, BOOL*, BOOL*);
};

const Family kFamilies[] = {
    {"gain", 0, &IKolmFluxorPropertySet::GetGain, &IKolmFluxorPropertySet::SetGain,
     &IKolmFluxorPropertySet::GetGainRange},
    {"white balance UB", 1, &IKolmFluxorPropertySet::GetWhiteBalanceUB, &IKolmFluxorPropertySet::SetWhiteBalanceUB,
     &IKolmFluxorPropertySet::GetWhiteBalanceUBRange},
    {"white balance VR", 2, &IKolmFluxorPropertySet::GetWhiteBalanceVR, &IKolmFluxorPropertySet::SetWhiteBalanceVR,
     &IKolmFluxorPropertySet::GetWhiteBalanceVRRange},
    {"brightness", 4, &IKolmFluxorPropertySet::GetBrightness, &IKolmFluxorPropertySet::SetBrightness,
     &IKolmFluxorPropertySet::GetBrightnessRange},
    {"shutter", 5, &IKolmFluxorPropertySet::GetShutter, &IKolmFluxorPropertySet::SetShutter,
     &IKolmFluxorPropertySet::GetShutterRange},
    {"sharpness", 21, &IKolmFluxorPropertySet::GetSharpness, &IKolmFluxorPropertySet::SetSharpness,
     &IKolmFluxorPropertySet::GetSharpnessRange},
    {"hue", 22, &IKolmFluxorPropertySet::GetHue, &IKolmFluxorPropertySet::SetHue, &IKolmFluxorPropertySet::GetHueRange},
    {"saturation", 23, &IKolmFluxorPropertySet::GetSaturation, &IKolmFluxorPropertySet::SetSaturation,
     &IKolmFluxorPropertySet::GetSaturationRange},
};

class StandardFamilies : public PropertySetTest {
protected:
    ULONG WordOf(ULONG id, ULONG offset) {
        std::uint32_t word = 0;
        EXPECT_TRUE(Camera().GetFeatureWord(id, offset, &word));
        return word;
    }
    template <class F> void ForEach(F&& run) {
        for (const Family& family : kFamilies) {
            SCOPED_TRACE(family.name);
            Renew(L"color");
            ASSERT_TRUE(Camera().SetFeatureWord(family.id, 32, 0x1E));  // Manual, Off, Auto, OnePush
            run(family);
        }
    }
};

TEST_F(StandardFamilies, set_sends_the_mode_that_the_flags_ask_for) {
    ForEach([&](const Family& family) {
        const ULONG value = WordOf(family.id, 40);
        std::ignore = (Object().Get()->*family.set)(value, FALSE, FALSE);  // warms the cache
        Object().Forget();
        const CWireRequest set = Set(family.id).With(24, value);

        EXPECT_EQ((Object().Get()->*family.set)(value, FALSE, FALSE), S_OK);
        EXPECT_EQ((Object().Get()->*family.set)(value, TRUE, FALSE), S_OK);
        EXPECT_EQ((Object().Get()->*family.set)(value, FALSE, TRUE), S_OK);
        EXPECT_EQ((Object().Get()->*family.set)(value, 2, FALSE), S_OK) << "any non-zero value counts";

        EXPECT_EQ((Object().Get()->*family.set)(value, FALSE, 2), S_OK);

        EXPECT_EQ(Object().Sent(), (Wire{set.With(28, 0x2), set.With(28, 0x8), set.With(28, 0x10), set.With(28, 0x8),
                                         set.With(28, 0x10)}));
    });
}

TEST_F(StandardFamilies, auto_and_one_push_together_are_refused_and_nothing_is_sent) {
    ForEach([&](const Family& family) {
        EXPECT_EQ((Object().Get()->*family.set)(WordOf(family.id, 40), TRUE, TRUE), E_INVALIDARG);
        EXPECT_EQ((Object().Get()->*family.set)(WordOf(family.id, 40), 2, -1), E_INVALIDARG);
        EXPECT_EQ(Object().Sent(), Wire{});
    });
}

TEST_F(StandardFamilies, a_value_outside_the_range_is_refused_in_auto_too) {
    ForEach([&](const Family& family) {
        const ULONG tooHigh = WordOf(family.id, 40) + 1;
        EXPECT_EQ((Object().Get()->*family.set)(tooHigh, TRUE, FALSE), E_INVALIDARG);
        EXPECT_EQ((Object().Get()->*family.set)(tooHigh, FALSE, TRUE), E_INVALIDARG);
        EXPECT_EQ((Object().Get()->*family.set)(tooHigh, FALSE, FALSE), E_INVALIDARG);
        EXPECT_EQ(Object().Sent(), Wire{Get(family.id)}) << "the range is read once, and no SET follows";
    });
}

TEST_F(StandardFamilies, range_leaves_the_flags_when_the_limits_cannot_be_read) {
    ForEach([&](const Family& family) {
        Object().FailNth(1, E_ACCESSDENIED);
        ULONG min = kPoison;
        ULONG max = kPoison;
        BOOL autoOn = 42;
        BOOL onePush = 42;

        EXPECT_EQ((Object().Get()->*family.range)(&min, &max, &autoOn, &onePush), E_ACCESSDENIED);

        EXPECT_EQ(min, 0u);
        EXPECT_EQ(max, 0u);
        EXPECT_EQ(autoOn, 42);
        EXPECT_EQ(onePush, 42);
        EXPECT_EQ(Object().Sent().size(), 1u);
    });
}

TEST_F(StandardFamilies, range_leaves_the_flags_after_any_code_but_S_OK) {
    ForEach([&](const Family& family) {
        Object().Patch(family.id, 60, 1, S_FALSE);
        ULONG min = kPoison;
        ULONG max = kPoison;
        BOOL autoOn = 42;
        BOOL onePush = 42;

        EXPECT_EQ((Object().Get()->*family.range)(&min, &max, &autoOn, &onePush), S_FALSE);

        EXPECT_EQ(max, WordOf(family.id, 40));
        EXPECT_EQ(autoOn, 42);
        EXPECT_EQ(onePush, 42);
        EXPECT_EQ(Object().Sent().size(), 1u);
    });
}

TEST_F(StandardFamilies, range_clears_the_flags_and_fails_when_the_mode_cannot_be_read) {
    ForEach([&](const Family& family) {
        Object().FailNth(2, E_ACCESSDENIED);
        ULONG min = kPoison;
        ULONG max = kPoison;
        BOOL autoOn = 42;
        BOOL onePush = 42;

        EXPECT_EQ((Object().Get()->*family.range)(&min, &max, &autoOn, &onePush), E_ACCESSDENIED);

        EXPECT_EQ(max, WordOf(family.id, 40)) << "the limits were read";
        EXPECT_EQ(autoOn, FALSE);
        EXPECT_EQ(onePush, FALSE);
    });
}

TEST_F(StandardFamilies, range_tells_the_current_mode_not_what_the_camera_could_do) {
    ForEach([&](const Family& family) {
        ULONG min = 0;
        ULONG max = 0;
        BOOL autoOn = 42;
        BOOL onePush = 42;

        ASSERT_TRUE(Camera().SetFeatureWord(family.id, 28, 0x2));
        EXPECT_EQ((Object().Get()->*family.range)(&min, &max, &autoOn, &onePush), S_OK);
        EXPECT_EQ(autoOn, FALSE);
        EXPECT_EQ(onePush, FALSE);
        ASSERT_TRUE(Camera().SetFeatureWord(family.id, 28, 0x8));
        EXPECT_EQ((Object().Get()->*family.range)(&min, &max, &autoOn, &onePush), S_OK);
        EXPECT_EQ(autoOn, TRUE);
        EXPECT_EQ(onePush, FALSE);
        ASSERT_TRUE(Camera().SetFeatureWord(family.id, 28, 0x10));
        EXPECT_EQ((Object().Get()->*family.range)(&min, &max, &autoOn, &onePush), S_OK);
        EXPECT_EQ(autoOn, FALSE);
        EXPECT_EQ(onePush, TRUE);
    });
}

TEST_F(StandardFamilies, get_clears_both_flags_after_a_failure) {
    ForEach([&](const Family& family) {
        ASSERT_TRUE(Camera().SetFeatureWord(family.id, 28, 0x8));
        Object().FailNth(1, E_ACCESSDENIED);
        ULONG value = kPoison;
        BOOL autoOn = 42;
        BOOL onePush = 42;

        EXPECT_EQ((Object().Get()->*family.get)(&value, &autoOn, &onePush), E_ACCESSDENIED);

        EXPECT_EQ(value, 0u);
        EXPECT_EQ(autoOn, FALSE);
        EXPECT_EQ(onePush, FALSE);
    });
}

TEST_F(StandardFamilies, features_without_a_mode_are_range_checked) {
    EXPECT_EQ(Object()->SetExtendedShutter(WordOf(7, 40) + 1), E_INVALIDARG);
    EXPECT_EQ(Object()->SetTimeBase(WordOf(6, 40) + 1), E_INVALIDARG);

    EXPECT_EQ(Object().Sent(), (Wire{Get(7), Get(6)}));
}

}  // namespace
}  // namespace kolmfluxor::test
