/// @file  The feature group by itself: what its operations do to the controls.

#include <gtest/gtest.h>

#include <string>
#include <utility>
#include <vector>

#include <windows.h>

#include <commctrl.h>

#include "pages/common/feature_slider_ctrl.h"
#include "pages/shutter_ctrl.h"
#include "pages/time_base.h"
#include "support/control_window.h"
#include "support/patched_import.h"
#include "support/property_set_test.h"
#include "support/thrown_text.h"

extern "C" void* __imp_WaitForSingleObject;
extern "C" void* __imp_ReleaseMutex;

namespace kolmfluxor::test {
namespace {

constexpr FeatureSliderIds kIds = {101, 102, 103, 104, 105, 106, 107};
constexpr int kExtended = 108;
constexpr int kTimeBase = 109;
constexpr ULONG kGainId = 0;

/// The controls of a group in a bare window.
class CGroupWindow : public CControlWindow {
public:
    CGroupWindow() {
        const INITCOMMONCONTROLSEX classes = {.dwSize = sizeof classes, .dwICC = ICC_BAR_CLASSES};
        EXPECT_TRUE(::InitCommonControlsEx(&classes));
        Add("BUTTON", kIds.groupBox, BS_GROUPBOX);
        for (const int id : {kIds.minLabel, kIds.maxLabel, kIds.extra})
            Add("STATIC", id);
        Add(TRACKBAR_CLASSA, kIds.trackbar);
        Add("EDIT", kIds.edit, ES_READONLY);
        for (const int id : {kIds.modeCombo, kTimeBase})
            Add("COMBOBOX", id, CBS_DROPDOWNLIST);
        Add("BUTTON", kExtended, BS_AUTOCHECKBOX);
    }
    [[nodiscard]] LRESULT Send(int id, UINT message, WPARAM wParam = 0, LPARAM lParam = 0) const {
        return ::SendDlgItemMessageA(Handle(), id, message, wParam, lParam);
    }
};

class FeatureSlider : public PropertySetTest {
protected:
    FeatureSlider() { COwnDesktop::Enter(); }

    CGroupWindow m_window;
    CFeatureSliderCtrl m_group{kIds, m_window.Place()};
};

TEST_F(FeatureSlider, enables_group_and_value_controls_but_not_the_modes) {
    for (const bool enable : {false, true}) {
        ::EnableWindow(::GetDlgItem(m_window.Handle(), kIds.modeCombo), enable ? FALSE : TRUE);
        m_group.Enable(enable);
        for (const int id : {kIds.groupBox, kIds.minLabel, kIds.maxLabel, kIds.trackbar, kIds.edit, kIds.extra}) {
            EXPECT_EQ(m_window.IsEnabled(id), enable) << id;
        }
        EXPECT_EQ(m_window.IsEnabled(kIds.modeCombo), !enable);
    }
}

TEST_F(FeatureSlider, modes_are_a_choice_from_two_entries_on) {
    m_group.AddMode(1);
    EXPECT_FALSE(m_window.IsEnabled(kIds.modeCombo));
    m_group.AddMode(3);
    EXPECT_TRUE(m_window.IsEnabled(kIds.modeCombo));
    EXPECT_EQ(m_group.SelectedMode(), 0xFFFFFFFFu) << "no selection";
    EXPECT_TRUE(m_group.SelectMode(3));
    EXPECT_EQ(m_group.SelectedMode(), 3u);
    EXPECT_FALSE(m_group.SelectMode(10));
    EXPECT_EQ(m_group.SelectedMode(), 3u);
    m_group.ClearModes();
    EXPECT_FALSE(m_window.IsEnabled(kIds.modeCombo));
    EXPECT_EQ(m_window.Send(kIds.modeCombo, CB_GETCOUNT), 0);
    EXPECT_FALSE(m_group.SelectMode(3));
}

TEST_F(FeatureSlider, the_first_of_two_entries_with_one_mode_is_selected) {
    for (const ULONG mode : {3u, 1u, 1u})
        m_group.AddMode(mode);
    EXPECT_TRUE(m_group.SelectMode(1));
    EXPECT_EQ(m_window.Send(kIds.modeCombo, CB_GETCURSEL), 1);
}

TEST_F(FeatureSlider, a_failing_count_selects_nothing) {
    m_group.AddMode(1);
    const CRefusingControl refusing(::GetDlgItem(m_window.Handle(), kIds.modeCombo), CB_GETCOUNT, CB_ERR);
    EXPECT_FALSE(m_group.SelectMode(1));
}

TEST_F(FeatureSlider, shows_numbers_as_signed_and_values_clamped) {
    m_group.SetCaption("Gain");
    EXPECT_EQ(m_window.Text(kIds.groupBox), "Gain");
    m_group.SetRange(10, 20);
    EXPECT_EQ(m_window.Text(kIds.minLabel), "10");
    EXPECT_EQ(m_window.Text(kIds.maxLabel), "20");
    for (const auto& [value, shown] : {std::pair<ULONG, const char*>{15, "15"}, {25, "20"}, {5, "10"}}) {
        m_group.SetValue(value);
        EXPECT_EQ(m_window.Text(kIds.edit), shown);
        EXPECT_EQ(std::to_string(m_group.SliderValue()), shown);
    }
    m_group.SetRange(0xFFFFFFFF, 0xFFFFFFFF);
    EXPECT_EQ(m_window.Text(kIds.maxLabel), "-1");
}

TEST_F(FeatureSlider, init_fails_as_it_should_and_leaves_the_group_disabled) {
    ASSERT_TRUE(Camera().SetFeaturePresent(kGainId, false));
    EXPECT_EQ(m_group.Init(FeatureId::gain, Object().Get()), E_NOTIMPL);
    EXPECT_FALSE(m_window.IsEnabled(kIds.groupBox));

    // Requests of Init: 1 presence (its record serves for the modes and the range), 2 mode, 3 value.
    for (const int nth : {2, 3}) {
        Renew(L"color");
        Object().FailNth(nth, E_ACCESSDENIED);
        EXPECT_EQ(m_group.Init(FeatureId::gain, Object().Get()), E_UNEXPECTED) << nth;
        EXPECT_FALSE(m_window.IsEnabled(kIds.groupBox));
        EXPECT_FALSE(m_window.IsEnabled(kIds.trackbar));
        EXPECT_FALSE(m_window.IsEnabled(kIds.modeCombo)) << "a choice would write a value that was never read";
        EXPECT_EQ(Object().Sent().size(), static_cast<std::size_t>(nth)) << "the first failed read ends it";
    }
    Renew(L"color");
    EXPECT_EQ(m_group.Init(FeatureId::gain, Object().Get()), S_OK);
    EXPECT_TRUE(m_window.IsEnabled(kIds.groupBox));
}

TEST_F(FeatureSlider, apply_and_poll_return_the_drivers_code) {
    ASSERT_EQ(m_group.Init(FeatureId::gain, Object().Get()), S_OK);
    Object().FailNth(1, E_ACCESSDENIED);
    EXPECT_EQ(m_group.Apply(FeatureId::gain, Object().Get()), E_ACCESSDENIED);
    Object().FailNth(2, E_ABORT);
    EXPECT_EQ(m_group.Apply(FeatureId::gain, Object().Get()), E_ABORT) << "the read-back";
    Object().FailNth(1, E_ABORT);
    EXPECT_EQ(m_group.Poll(FeatureId::gain, Object().Get()), E_ABORT);
    EXPECT_EQ(m_group.Poll(FeatureId::gain, Object().Get()), S_OK);
}

std::vector<std::string> g_roundTrip;
DWORD g_waitResult = WAIT_OBJECT_0;

DWORD WINAPI RecordWait(HANDLE, DWORD milliseconds) {
    g_roundTrip.push_back("wait " + std::to_string(milliseconds));
    return g_waitResult;
}

BOOL WINAPI RecordRelease(HANDLE) {
    g_roundTrip.emplace_back("release");
    return TRUE;
}

TEST_F(FeatureSlider, camera_round_trips_are_locked_and_go_on_when_the_wait_times_out) {
    ASSERT_EQ(m_group.Init(FeatureId::gain, Object().Get()), S_OK);
    for (const DWORD result : {static_cast<DWORD>(WAIT_OBJECT_0), static_cast<DWORD>(WAIT_TIMEOUT)}) {
        g_waitResult = result;
        for (const bool apply : {true, false}) {
            Object().Forget();
            g_roundTrip.clear();
            HRESULT hr = E_FAIL;
            {
                const CPatchedImport wait(&__imp_WaitForSingleObject, reinterpret_cast<void*>(&RecordWait));
                const CPatchedImport release(&__imp_ReleaseMutex, reinterpret_cast<void*>(&RecordRelease));
                hr = apply ? m_group.Apply(FeatureId::gain, Object().Get())
                           : m_group.Poll(FeatureId::gain, Object().Get());
            }
            EXPECT_EQ(hr, S_OK);
            EXPECT_EQ(g_roundTrip, (std::vector<std::string>{"wait 5000", "release"}));
            EXPECT_EQ(Object().Sent().size(), apply ? 2u : 1u);
        }
    }
}

TEST_F(FeatureSlider, any_success_but_S_OK_counts_as_a_failure) {
    ASSERT_EQ(m_group.Init(FeatureId::gain, Object().Get()), S_OK);
    m_group.SetValue(50);
    Object().Forget();
    Object().Patch(kGainId, 60, 1, S_FALSE);
    EXPECT_EQ(m_group.Apply(FeatureId::gain, Object().Get()), S_FALSE);
    EXPECT_EQ(Object().Sent().size(), 1u) << "nothing is read back";
    EXPECT_EQ(m_group.Poll(FeatureId::gain, Object().Get()), S_FALSE);
}

class Shutter : public PropertySetTest {
protected:
    Shutter() { COwnDesktop::Enter(); }

    CGroupWindow m_window;
    CKolmShutterCtrl m_shutter{kIds, kExtended, kTimeBase, m_window.Place()};
};

TEST_F(Shutter, says_what_failed_when_the_time_base_changes) {
    EXPECT_EQ(ThrownText([&] { m_shutter.OnTimeBaseChanged(); }),
              "CKolmShutterCtrl::OnTimeBaseChanged: could not get current selection for time base combobox");
    m_shutter.FillTimeBases();
    m_shutter.SelectTimeBase(4);
    const CRefusingControl refusing(::GetDlgItem(m_window.Handle(), kTimeBase), CB_GETITEMDATA, CB_ERR);
    EXPECT_EQ(ThrownText([&] { m_shutter.OnTimeBaseChanged(); }),
              "CKolmShutterCtrl::OnTimeBaseChanged: could not get item data for time base combobox");
}

TEST_F(Shutter, selects_only_time_bases_that_there_are) {
    m_shutter.FillTimeBases();
    for (ULONG index = 0; index < 10; ++index) {
        m_shutter.SelectTimeBase(index);
        EXPECT_EQ(m_shutter.TimeBaseUs(), MicrosecondsOf(index));
    }
    m_shutter.SelectTimeBase(10);
    EXPECT_EQ(m_shutter.TimeBaseUs(), 1000u) << "nothing changes";
}

TEST_F(Shutter, the_first_of_two_entries_with_one_time_base_is_selected) {
    m_shutter.FillTimeBases();
    m_shutter.FillTimeBases();
    m_shutter.SelectTimeBase(4);
    EXPECT_LT(m_window.Send(kTimeBase, CB_GETCURSEL), 10);
    EXPECT_EQ(m_window.Send(kTimeBase, CB_GETITEMDATA, static_cast<WPARAM>(m_window.Send(kTimeBase, CB_GETCURSEL))), 4);
}

TEST_F(Shutter, labels_follow_the_time_base_and_products_wrap) {
    m_shutter.FillTimeBases();
    m_shutter.ShowStandard(3, 2, 400, 7);
    EXPECT_EQ(m_window.Text(kIds.minLabel), "20");
    EXPECT_EQ(m_window.Text(kIds.maxLabel), "4000");
    EXPECT_EQ(m_window.Text(kIds.edit), "70");
    EXPECT_TRUE(m_window.IsEnabled(kTimeBase));
    m_shutter.ShowStandard(9, 0, 0x40000000, 0);
    EXPECT_EQ(m_window.Text(kIds.maxLabel), std::to_string(static_cast<int>(0x40000000U * 1000U)));

    EXPECT_EQ(m_window.Send(kExtended, BM_SETCHECK, BST_CHECKED), 0);
    m_shutter.ShowExtended(2, 400, 500);
    EXPECT_EQ(m_window.Text(kIds.maxLabel), "400");
    EXPECT_EQ(m_window.Text(kIds.edit), "400") << "clamped to the stored range";
    EXPECT_FALSE(m_window.IsEnabled(kTimeBase));
}

TEST_F(Shutter, crossed_limits_show_the_minimum) {
    m_shutter.FillTimeBases();
    m_shutter.ShowStandard(0, 100, 50, 70);
    EXPECT_EQ(m_window.Text(kIds.edit), "100");
}

TEST(TimeBases, are_ten_and_never_divide_by_zero) {
    constexpr ULONG expected[] = {1, 2, 5, 10, 20, 50, 100, 200, 500, 1000};
    for (ULONG index = 0; index < 10; ++index) {
        EXPECT_EQ(MicrosecondsOf(index), expected[index]);
        EXPECT_EQ(ShutterUnitsOf(12345, index), 12345 / expected[index]);
        EXPECT_EQ(std::string(kTimeBases[index].text).size(), 6u);
    }
    for (const ULONG index : {10UL, 0xFFFFFFFFUL}) {
        EXPECT_EQ(MicrosecondsOf(index), 0u);
        EXPECT_EQ(ShutterUnitsOf(12345, index), 12345u);
    }
}

}  // namespace
}  // namespace kolmfluxor::test
