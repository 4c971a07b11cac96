/// @file  Features that are switched on and off through their mode.

#include <string>

#include "support/property_set_test.h"

namespace kolmfluxor::test {
namespace {

struct SwitchRow {
    const char* name;
    ULONG id;
    HRESULT (STDMETHODCALLTYPE IKolmFluxorPropertySet::*set)(BOOL);
    HRESULT (STDMETHODCALLTYPE IKolmFluxorPropertySet::*get)(BOOL*);
};

const SwitchRow kSwitches[] = {
    {"gamma", 8, &IKolmFluxorPropertySet::SetGammaOnOff, &IKolmFluxorPropertySet::GetGammaOnOff},
    {"feature 523", 19, &IKolmFluxorPropertySet::SetFeature523OnOff, &IKolmFluxorPropertySet::GetFeature523OnOff},
    {"color correction", 27, &IKolmFluxorPropertySet::SetColorCorrectionOnOff,
     &IKolmFluxorPropertySet::GetColorCorrectionOnOff},
};

class SwitchedFeatures : public PropertySetTest {
protected:
    /// The SET that changes the mode of the record that the last GET answered.
    CWireRequest ModeChange(ULONG modeBit) {
        return AnswerOf(Camera(), 0).AsSet().With(28, modeBit).With(44, 0).With(52, 0);
    }
};

TEST_F(SwitchedFeatures, only_exactly_1_switches_on) {
    for (const SwitchRow& row : kSwitches) {
        for (const BOOL on : {TRUE, FALSE, 2, -1}) {
            SCOPED_TRACE(std::string(row.name) + ", argument " + std::to_string(on));
            Renew(L"color");

            EXPECT_EQ((Object().Get()->*row.set)(on), S_OK);

            const CWireRequest change = ModeChange(on == TRUE ? 0x2 : 0x4);
            EXPECT_EQ(Object().Sent(), (Wire{Get(row.id), change}));
        }
    }
}

TEST_F(SwitchedFeatures, SetGammaOnOff_2_switches_gamma_off) {
    ASSERT_EQ(Object()->SetGammaOnOff(TRUE), S_OK);
    BOOL on = FALSE;
    ASSERT_EQ(Object()->GetGammaOnOff(&on), S_OK);
    ASSERT_TRUE(on);

    EXPECT_EQ(Object()->SetGammaOnOff(2), S_OK);
    EXPECT_EQ(Object()->GetGammaOnOff(&on), S_OK);
    EXPECT_FALSE(on);
}

TEST_F(SwitchedFeatures, a_camera_without_the_mode_answers_E_NOTIMPL) {
    for (const SwitchRow& row : kSwitches) {
        SCOPED_TRACE(row.name);
        Renew(L"color");
        ASSERT_TRUE(Camera().SetFeatureWord(row.id, 32, 0x2));  // Manual only

        EXPECT_EQ((Object().Get()->*row.set)(FALSE), E_NOTIMPL);
        EXPECT_EQ(Object().Sent(), Wire{Get(row.id)});
        EXPECT_EQ((Object().Get()->*row.set)(TRUE), S_OK);
    }
}

TEST_F(SwitchedFeatures, each_failing_request_of_a_switch_passes_through) {
    for (const SwitchRow& row : kSwitches) {
        for (const int nth : {1, 2}) {
            SCOPED_TRACE(row.name);
            Renew(L"color");
            Object().FailNth(nth, E_ACCESSDENIED);
            EXPECT_EQ((Object().Get()->*row.set)(TRUE), E_ACCESSDENIED);
            EXPECT_EQ(Object().Sent().size(), static_cast<std::size_t>(nth));
        }
    }
}

TEST_F(SwitchedFeatures, GetColorCorrectionOnOff_leaves_its_output_in_any_mode_but_off_and_manual) {
    for (const ULONG bit : {0x8u, 0x10u, 0x40u, 0x80u, 0x100u, 0x200u, 0x400u, 0x1000u, 0u, 0x1u}) {
        SCOPED_TRACE(bit);
        ASSERT_TRUE(Camera().SetFeatureWord(27, 28, bit));
        BOOL on = 42;
        EXPECT_EQ(Object()->GetColorCorrectionOnOff(&on), S_OK);
        EXPECT_EQ(on, 42);
    }
    BOOL on = 42;
    ASSERT_TRUE(Camera().SetFeatureWord(27, 28, 0x4));
    EXPECT_EQ(Object()->GetColorCorrectionOnOff(&on), S_OK);
    EXPECT_EQ(on, FALSE);
    ASSERT_TRUE(Camera().SetFeatureWord(27, 28, 0x2));
    EXPECT_EQ(Object()->GetColorCorrectionOnOff(&on), S_OK);
    EXPECT_EQ(on, TRUE);
}

TEST_F(SwitchedFeatures, GetColorCorrectionOnOff_leaves_its_output_after_a_failure) {
    Object().FailNth(1, E_ACCESSDENIED);
    BOOL on = 42;

    EXPECT_EQ(Object()->GetColorCorrectionOnOff(&on), E_ACCESSDENIED);
    EXPECT_EQ(on, 42);
}

TEST_F(SwitchedFeatures, the_other_switches_read_false_in_any_mode_but_manual) {
    for (const SwitchRow& row : {kSwitches[0], kSwitches[1]}) {
        for (const ULONG bit : {0x4u, 0x8u, 0x10u, 0x40u, 0x1000u, 0u}) {
            SCOPED_TRACE(bit);
            ASSERT_TRUE(Camera().SetFeatureWord(row.id, 28, bit));
            BOOL on = 42;
            EXPECT_EQ((Object().Get()->*row.get)(&on), S_OK);
            EXPECT_EQ(on, FALSE);
        }
    }
}

}  // namespace
}  // namespace kolmfluxor::test
