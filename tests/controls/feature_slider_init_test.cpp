/// @file  Filling a feature group, with each of the interface's answers scripted by itself.

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include <windows.h>

#include <commctrl.h>

#include "pages/common/feature_slider_ctrl.h"
#include "support/control_window.h"
#include "support/property_set_stub.h"

namespace kolmfluxor::test {
namespace {

constexpr FeatureSliderIds kIds = {101, 102, 103, 104, 105, 106};

/// Notes the calls in order, and fails the one with a number.
class CScriptedCamera final : public CPropertySetStub {
public:
    std::vector<std::string> calls;
    std::size_t failAt = 0;  ///< 1-based; 0 for none
    HRESULT code = E_ACCESSDENIED;
    BOOL present = TRUE;
    std::vector<BOOL> supported = std::vector<BOOL>(10, TRUE);

    HRESULT STDMETHODCALLTYPE IsFeaturePresent(ULONG id, BOOL* out) override {
        EXPECT_EQ(id, 265u);
        *out = present;
        return Note("present");
    }
    HRESULT STDMETHODCALLTYPE IsFeatureModeSupported(ULONG, ULONG mode, BOOL* out) override {
        *out = supported.at(mode);
        return Note("mode " + std::to_string(mode));
    }
    HRESULT STDMETHODCALLTYPE GetFeatureMode(ULONG, ULONG* out) override { return Give("get mode", 1, out); }
    HRESULT STDMETHODCALLTYPE GetFeatureMin(ULONG, ULONG* out) override { return Give("min", 10, out); }
    HRESULT STDMETHODCALLTYPE GetFeatureMax(ULONG, ULONG* out) override { return Give("max", 20, out); }
    HRESULT STDMETHODCALLTYPE GetFeatureValue(ULONG, ULONG* out) override { return Give("value", 15, out); }
    HRESULT STDMETHODCALLTYPE GetFeatureValueAndMode(ULONG, ULONG* value, ULONG* mode) override {
        *mode = 1;
        return Give("value and mode", 12, value);
    }
    HRESULT STDMETHODCALLTYPE SetFeatureValueAndMode(ULONG, ULONG, ULONG) override { return Note("set"); }

private:
    HRESULT Note(std::string call) {
        calls.push_back(std::move(call));
        return calls.size() == failAt ? code : S_OK;
    }
    HRESULT Give(const char* call, ULONG value, ULONG* out) {
        *out = value;
        return Note(call);
    }
};

class FeatureSliderInit : public ::testing::Test {
protected:
    FeatureSliderInit() {
        const INITCOMMONCONTROLSEX classes = {.dwSize = sizeof classes, .dwICC = ICC_BAR_CLASSES};
        EXPECT_TRUE(::InitCommonControlsEx(&classes));
        m_window.Add("BUTTON", kIds.groupBox, BS_GROUPBOX);
        for (const int id : {kIds.minLabel, kIds.maxLabel})
            m_window.Add("STATIC", id);
        m_window.Add(TRACKBAR_CLASSA, kIds.trackbar);
        m_window.Add("EDIT", kIds.edit, ES_READONLY);
        m_window.Add("COMBOBOX", kIds.modeCombo, CBS_DROPDOWNLIST);
    }

    void ExpectEnabled(bool enabled) {
        for (const int id : {kIds.groupBox, kIds.minLabel, kIds.maxLabel, kIds.trackbar, kIds.edit, kIds.modeCombo}) {
            EXPECT_EQ(m_window.IsEnabled(id), enabled) << "control " << id;
        }
    }

    CControlWindow m_window;
    CFeatureSliderCtrl m_group{kIds, m_window.Place()};
    CScriptedCamera m_camera;
};

const std::vector<std::string> kCalls = {"present", "mode 0",   "mode 1", "mode 2", "mode 3",
                                         "mode 4",  "mode 5",   "mode 6", "mode 7", "mode 8",
                                         "mode 9",  "get mode", "min",    "max",    "value"};

TEST_F(FeatureSliderInit, asks_in_this_order) {
    EXPECT_EQ(m_group.Init(FeatureId::gain, &m_camera), S_OK);
    EXPECT_EQ(m_camera.calls, kCalls);
    ExpectEnabled(true);
    EXPECT_EQ(m_group.SelectedMode(), 1u);
    EXPECT_EQ(m_window.Text(kIds.minLabel), "10");
    EXPECT_EQ(m_window.Text(kIds.maxLabel), "20");
    EXPECT_EQ(m_window.Text(kIds.edit), "15");
}

TEST_F(FeatureSliderInit, each_call_failing_in_turn_ends_it_with_the_right_code_and_a_disabled_group) {
    for (const HRESULT code : {E_ACCESSDENIED, static_cast<HRESULT>(S_FALSE)}) {
        for (std::size_t nth = 2; nth <= kCalls.size(); ++nth) {
            SCOPED_TRACE(kCalls[nth - 1]);
            CScriptedCamera camera;
            camera.failAt = nth;
            camera.code = code;

            EXPECT_EQ(m_group.Init(FeatureId::gain, &camera), nth <= 11 ? code : E_UNEXPECTED);

            EXPECT_EQ(camera.calls.size(), nth) << "nothing is asked after a failure";
            ExpectEnabled(false);
        }
    }
}

TEST_F(FeatureSliderInit, a_group_that_failed_stays_disabled_whatever_comes_until_an_Init_succeeds) {
    for (std::size_t nth = 2; nth <= kCalls.size(); ++nth) {
        SCOPED_TRACE(kCalls[nth - 1]);
        CScriptedCamera camera;
        camera.failAt = nth;
        ::SetDlgItemTextA(m_window.Handle(), kIds.edit, "");
        EXPECT_NE(m_group.Init(FeatureId::gain, &camera), S_OK);
        camera.calls.clear();
        camera.failAt = 0;

        EXPECT_EQ(m_group.Poll(FeatureId::gain, &camera), S_OK);
        EXPECT_EQ(camera.calls, std::vector<std::string>{"value and mode"}) << "asked for all the same";
        EXPECT_EQ(m_window.Text(kIds.edit), "");
        ExpectEnabled(false);
        camera.failAt = 2;
        EXPECT_EQ(m_group.Apply(FeatureId::gain, &camera), E_ACCESSDENIED) << "no mode is selected";
        ExpectEnabled(false);

        camera.failAt = 0;
        EXPECT_EQ(m_group.Init(FeatureId::gain, &camera), S_OK);
        ExpectEnabled(true);
        EXPECT_EQ(m_group.Poll(FeatureId::gain, &camera), S_OK);
        EXPECT_EQ(m_window.Text(kIds.edit), "12");
        m_group.EnableForMode(0);
        EXPECT_FALSE(m_window.IsEnabled(kIds.trackbar));
    }
}

TEST_F(FeatureSliderInit, the_result_of_the_presence_call_is_not_checked) {
    m_camera.failAt = 1;
    EXPECT_EQ(m_group.Init(FeatureId::gain, &m_camera), S_OK) << "the flag alone counts";
    ExpectEnabled(true);
}

TEST_F(FeatureSliderInit, present_needs_exactly_1) {
    for (const BOOL present : {FALSE, 2, -1}) {
        CScriptedCamera camera;
        camera.present = present;
        EXPECT_EQ(m_group.Init(FeatureId::gain, &camera), E_NOTIMPL) << present;
        EXPECT_EQ(camera.calls.size(), 1u);
        ExpectEnabled(false);
    }
}

TEST_F(FeatureSliderInit, supported_counts_with_any_value_but_0) {
    m_camera.supported = {0, 1, 2, -1, 0, 0, 0, 0, 0, 0};
    EXPECT_EQ(m_group.Init(FeatureId::gain, &m_camera), S_OK);
    EXPECT_EQ(::SendDlgItemMessageA(m_window.Handle(), kIds.modeCombo, CB_GETCOUNT, 0, 0), 3);
}

}  // namespace
}  // namespace kolmfluxor::test
