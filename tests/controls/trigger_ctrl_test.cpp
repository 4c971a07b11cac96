/// @file  The trigger group at each branch: each answer of the interface, each mode, each operation.

#include "pages/trigger_ctrl.h"

#include <gtest/gtest.h>

#include <array>
#include <functional>
#include <string>
#include <tuple>
#include <utility>
#include <vector>

#include "controls/trigger_ctrl_fixture.h"
#include "support/thrown_text.h"

namespace kolmfluxor::test {
namespace {

// ---- Without a dialog ---------------------------------------------------------------------------------------------

TEST_F(TriggerCtrl, says_its_text_in_every_operation_when_there_is_no_dialog) {
    HWND none = nullptr;
    for (const HWND* place : {static_cast<const HWND*>(nullptr), static_cast<const HWND*>(&none)}) {
        const CIIDCTriggerCtrl trigger(kIds, place);
        const std::function<void()> operations[] = {
            [&] { std::ignore = trigger.Init(&m_camera); },
            [&] { trigger.Refresh(&m_camera); },
            [&] { trigger.Write(&m_camera); },
            [&] { trigger.SetCaption("x"); },
            [&] { trigger.Enable(true); },
            [&] { trigger.AddMode("x", 1); },
            [&] { trigger.AddSource("x", 1); },
            [&] { trigger.SelectMode(1); },
            [&] { trigger.SelectSource(1); },
            [&] { std::ignore = trigger.SelectedMode(); },
            [&] { trigger.SetOn(true); },
            [&] { trigger.SetInverted(true); },
            [&] { std::ignore = trigger.IsOn(); },
            [&] { std::ignore = trigger.IsInverted(); },
            [&] { std::ignore = trigger.Parameter(); },
            [&] { trigger.ShowParameter(true, "x", 1, 1, 2); },
            [&] { trigger.HideBitmaps(); },
            [&] { trigger.ShowModeBitmap(1); },
        };
        for (const auto& operation : operations)
            EXPECT_EQ(ThrownText(operation), "CIIDCTriggerCtrl::Dlg: dialog pointer still NULL");
    }
    EXPECT_TRUE(m_camera.written.empty());
}

// ---- Init ---------------------------------------------------------------------------------------------------------

TEST_F(TriggerCtrl, Init_offers_everything_in_order) {
    EXPECT_EQ(m_trigger.Init(&m_camera), S_OK);

    EXPECT_EQ(Entries(kIds.modeCombo),
              (std::vector<std::string>{"Mode0", "Mode1", "Mode2", "Mode3", "Mode4", "Mode5", "Mode14", "Mode15"}));
    EXPECT_EQ(Entries(kIds.sourceCombo), (std::vector<std::string>{"Source0", "Source1", "Source2", "Source3"}));
    for (std::size_t i = 0; i < std::size(kModes); ++i)
        EXPECT_EQ(static_cast<ULONG_PTR>(Send(kIds.modeCombo, CB_GETITEMDATA, i)), kModes[i].mask);
    for (const int id :
         {kIds.groupBox, kIds.modeCombo, kIds.onBox, kIds.invertedBox, kIds.parameterEdit, kIds.parameterLabel})
        EXPECT_TRUE(m_window.IsEnabled(id)) << id;
    EXPECT_FALSE(m_window.IsEnabled(kIds.sourceCombo)) << "the source is shown, never chosen";
}

TEST_F(TriggerCtrl, Init_offers_each_mode_by_its_bit_and_even_a_single_one_can_be_chosen) {
    for (const ModeRow& row : kModes) {
        SCOPED_TRACE(row.text);
        Send(kIds.modeCombo, CB_RESETCONTENT);
        ::EnableWindow(Control(kIds.modeCombo), FALSE);
        m_camera.inquiry = row.mask;
        EXPECT_EQ(m_trigger.Init(&m_camera), S_OK);
        EXPECT_EQ(Entries(kIds.modeCombo), std::vector<std::string>{row.text});
        EXPECT_TRUE(m_window.IsEnabled(kIds.modeCombo));
        EXPECT_EQ(Entries(kIds.sourceCombo), std::vector<std::string>{});
    }
}

TEST_F(TriggerCtrl, Init_offers_each_source_by_its_bit) {
    for (ULONG source = 0; source < 4; ++source) {
        Send(kIds.sourceCombo, CB_RESETCONTENT);
        ::EnableWindow(Control(kIds.sourceCombo), TRUE);
        m_camera.inquiry = 0x100u << source;
        EXPECT_EQ(m_trigger.Init(&m_camera), S_OK);
        EXPECT_EQ(Entries(kIds.sourceCombo), std::vector<std::string>{"Source" + std::to_string(source)});
        EXPECT_EQ(Send(kIds.sourceCombo, CB_GETITEMDATA), 0x100 << source);
        EXPECT_FALSE(m_window.IsEnabled(kIds.sourceCombo));
        EXPECT_FALSE(m_window.IsEnabled(kIds.modeCombo));
    }
}

TEST_F(TriggerCtrl, Init_offers_nothing_for_any_other_bit) {
    m_camera.inquiry = ~kEverything;
    EXPECT_EQ(m_trigger.Init(&m_camera), S_OK);
    EXPECT_EQ(Send(kIds.modeCombo, CB_GETCOUNT), 0);
    EXPECT_EQ(Send(kIds.sourceCombo, CB_GETCOUNT), 0);
    for (const int id : {kIds.modeCombo, kIds.onBox, kIds.invertedBox})
        EXPECT_FALSE(m_window.IsEnabled(id)) << id;
    EXPECT_TRUE(m_window.IsEnabled(kIds.groupBox));
}

TEST_F(TriggerCtrl, Init_enables_switch_and_polarity_each_by_its_own_bit) {
    for (const ULONG bits : {0x00u, 0x20u, 0x40u, 0x60u}) {
        m_camera.inquiry = bits;
        EXPECT_EQ(m_trigger.Init(&m_camera), S_OK);
        EXPECT_EQ(m_window.IsEnabled(kIds.onBox), (bits & 0x20) != 0);
        EXPECT_EQ(m_window.IsEnabled(kIds.invertedBox), (bits & 0x40) != 0);
    }
}

TEST_F(TriggerCtrl, Init_returns_a_failed_inquiry_and_disables_the_group) {
    for (const HRESULT code : {E_ACCESSDENIED, S_FALSE}) {
        m_trigger.Enable(true);
        m_camera.inquiryResult = code;
        EXPECT_EQ(m_trigger.Init(&m_camera), code);
        for (const int id :
             {kIds.groupBox, kIds.parameterLabel, kIds.parameterEdit, kIds.onBox, kIds.invertedBox, kIds.modeCombo})
            EXPECT_FALSE(m_window.IsEnabled(id)) << id;
        EXPECT_EQ(Send(kIds.modeCombo, CB_GETCOUNT), 0);
        EXPECT_EQ(Send(kIds.sourceCombo, CB_GETCOUNT), 0);
    }
}

TEST_F(TriggerCtrl, Enable_leaves_the_up_down_and_the_lists_alone) {
    for (const bool before : {false, true}) {
        for (const int id : {kIds.modeCombo, kIds.sourceCombo, kIds.parameterUpDown})
            ::EnableWindow(Control(id), before ? TRUE : FALSE);
        for (const bool enable : {false, true}) {
            m_trigger.Enable(enable);
            for (const int id : {kIds.groupBox, kIds.parameterLabel, kIds.parameterEdit, kIds.onBox, kIds.invertedBox})
                EXPECT_EQ(m_window.IsEnabled(id), enable) << id;
            for (const int id : {kIds.modeCombo, kIds.sourceCombo, kIds.parameterUpDown})
                EXPECT_EQ(m_window.IsEnabled(id), before) << id;
        }
    }
}

// ---- Showing a mode -----------------------------------------------------------------------------------------------

TEST_F(TriggerCtrl, each_mode_shows_its_caption_parameter_and_picture_in_both_polarities) {
    for (const ModeRow& row : kModes) {
        for (const bool inverted : {false, true}) {
            SCOPED_TRACE(std::string(row.text) + (inverted ? ", inverted" : ""));
            m_trigger.SetCaption("before");
            m_trigger.SetInverted(inverted);
            Type("77");

            m_trigger.ShowModeBitmap(row.mask);

            EXPECT_EQ(m_window.Text(kIds.groupBox), *row.caption == '\0' ? "before" : row.caption);
            ExpectParameter(*row.label != '\0', row.label);
            EXPECT_EQ(m_window.Text(kIds.parameterEdit), *row.label == '\0' ? "77" : "1");
            const int picture = row.picture + (inverted ? 100 : 0);
            EXPECT_EQ(Pictures(), row.picture == 0 ? std::vector<int>{} : std::vector<int>{picture});
        }
    }
}

TEST_F(TriggerCtrl, no_mode_several_modes_and_unknown_ones_show_no_picture) {
    for (const ULONG mask : {0UL, 0x30000UL, 0x400000UL, 0x20000000UL, kNothingSelected}) {
        SCOPED_TRACE(mask);
        m_trigger.SetCaption("before");
        m_trigger.ShowModeBitmap(0x80000);
        m_trigger.ShowModeBitmap(mask);
        EXPECT_EQ(Pictures(), std::vector<int>{});
        ExpectParameter(false, "");
        EXPECT_EQ(m_window.Text(kIds.groupBox), "before");
    }
}

TEST_F(TriggerCtrl, the_parameter_starts_at_1_and_its_range_runs_from_1_down_to_minus_1) {
    m_trigger.ShowModeBitmap(0x80000);
    int low = 77;
    int high = 77;
    Send(kIds.parameterUpDown, UDM_GETRANGE32, reinterpret_cast<WPARAM>(&low), reinterpret_cast<LPARAM>(&high));
    EXPECT_EQ(low, 1);
    EXPECT_EQ(high, -1);
    EXPECT_EQ(Send(kIds.parameterUpDown, UDM_GETPOS32), 1);
}

TEST_F(TriggerCtrl, ShowParameter_without_a_label_leaves_the_text_and_without_the_parameter_empties_it) {
    m_trigger.ShowParameter(true, "first", 1, 0, 5000);
    m_trigger.ShowParameter(true, nullptr, 4321, 0, 5000);
    ExpectParameter(true, "first");
    EXPECT_EQ(m_window.Text(kIds.parameterEdit), "4321") << "no thousands separator";
    m_trigger.ShowParameter(false, "second", 3, 0, 9);
    ExpectParameter(false, "");
    EXPECT_EQ(m_window.Text(kIds.parameterEdit), "4321");
}

TEST_F(TriggerCtrl, Parameter_is_the_unsigned_number_in_the_edit_or_0) {
    constexpr std::pair<const char*, ULONG> kRows[] = {
        {"", 0},
        {"0", 0},
        {"7", 7},
        {"4095", 4095},
        {"4294967295", 4294967295u},
        {"4294967296", 0},
        {"-1", 0},
        {"abc", 0},
        {"12abc", 12},
        {"0x10", 0},
        {" 5", 5},
        {"99999999999999999999", 0},
    };
    for (const auto& [text, number] : kRows) {
        Type(text);
        EXPECT_EQ(m_trigger.Parameter(), number) << '"' << text << '"';
    }
    const std::string longText(5000, '9');
    Type(longText.c_str());
    EXPECT_EQ(m_trigger.Parameter(), 0u);
}

// ---- Selecting ----------------------------------------------------------------------------------------------------

TEST_F(TriggerCtrl, SelectMode_takes_the_first_entry_and_shows_its_picture) {
    for (const ULONG mask : {0x10000u, 0x80000000u, 0x10000u})
        m_trigger.AddMode("x", mask);
    m_trigger.SelectMode(0x80000000);
    EXPECT_EQ(Selection(kIds.modeCombo), 1);
    EXPECT_EQ(m_trigger.SelectedMode(), 0x80000000u);
    m_trigger.SelectMode(0x10000);
    EXPECT_EQ(Selection(kIds.modeCombo), 0);
    EXPECT_EQ(Pictures(), std::vector<int>{201});

    m_trigger.SelectMode(0x20000);
    EXPECT_EQ(Selection(kIds.modeCombo), 0) << "no entry: all as it was";
    EXPECT_EQ(Pictures(), std::vector<int>{201});
}

TEST_F(TriggerCtrl, SelectedMode_without_a_selection_is_all_ones) {
    EXPECT_EQ(m_trigger.SelectedMode(), kNothingSelected);
    m_trigger.AddMode("x", 0x10000);
    EXPECT_EQ(m_trigger.SelectedMode(), kNothingSelected);
}

// ---- Refresh ------------------------------------------------------------------------------------------------------

TEST_F(TriggerCtrl, Refresh_shows_mode_switch_and_polarity) {
    ASSERT_EQ(m_trigger.Init(&m_camera), S_OK);
    for (const ModeRow& row : kModes) {
        for (const ULONG polarity : {0u, 1u}) {
            SCOPED_TRACE(row.text);
            m_camera.mode = row.mask;
            m_camera.on = 1 - polarity;
            m_camera.polarity = polarity;
            m_trigger.Refresh(&m_camera);
            EXPECT_EQ(m_trigger.SelectedMode(), row.mask);
            EXPECT_EQ(m_trigger.IsOn(), polarity == 0);
            EXPECT_EQ(m_trigger.IsInverted(), polarity == 1);
            const int picture = row.picture + (polarity == 1 ? 100 : 0);
            EXPECT_EQ(Pictures(), row.picture == 0 ? std::vector<int>{} : std::vector<int>{picture});
        }
    }
    EXPECT_TRUE(m_camera.written.empty());
}

TEST_F(TriggerCtrl, Refresh_counts_on_and_polarity_only_when_exactly_1) {
    for (const ULONG number : {0u, 2u, 0x20u, 0xFFFFFFFFu}) {
        m_trigger.SetOn(true);
        m_trigger.SetInverted(true);
        m_camera.on = number;
        m_camera.polarity = number;
        m_trigger.Refresh(&m_camera);
        EXPECT_FALSE(m_trigger.IsOn()) << number;
        EXPECT_FALSE(m_trigger.IsInverted()) << number;
    }
}

TEST_F(TriggerCtrl, Refresh_that_fails_changes_nothing) {
    ASSERT_EQ(m_trigger.Init(&m_camera), S_OK);
    m_camera.mode = 0x80000;
    m_camera.on = 1;
    m_camera.polarity = 1;
    m_trigger.Refresh(&m_camera);
    Type("9");
    m_camera.mode = 0x10000;
    m_camera.on = 0;
    m_camera.polarity = 0;
    for (const HRESULT code : {E_ACCESSDENIED, S_FALSE}) {
        m_camera.readResult = code;
        m_trigger.Refresh(&m_camera);
        EXPECT_EQ(m_trigger.SelectedMode(), 0x80000u);
        EXPECT_TRUE(m_trigger.IsOn());
        EXPECT_TRUE(m_trigger.IsInverted());
        EXPECT_EQ(m_window.Text(kIds.parameterEdit), "9");
        EXPECT_EQ(Pictures(), std::vector<int>{304});
    }
}

TEST_F(TriggerCtrl, Refresh_with_a_mode_that_is_not_offered_keeps_the_selected_one) {
    m_camera.inquiry = 0x30000;
    ASSERT_EQ(m_trigger.Init(&m_camera), S_OK);
    m_camera.mode = 0x20000;
    m_trigger.Refresh(&m_camera);
    m_camera.mode = 0x40000;
    m_trigger.Refresh(&m_camera);
    EXPECT_EQ(m_trigger.SelectedMode(), 0x20000u);
    m_camera.tellsMode = false;
    m_trigger.Refresh(&m_camera);
    EXPECT_EQ(m_trigger.SelectedMode(), 0x20000u);
    EXPECT_EQ(Pictures(), std::vector<int>{202});
}

TEST_F(TriggerCtrl, Refresh_selects_Source0_whatever_the_camera_uses) {
    ASSERT_EQ(m_trigger.Init(&m_camera), S_OK);
    Send(kIds.sourceCombo, CB_SETCURSEL, 2);
    m_trigger.Refresh(&m_camera);
    EXPECT_EQ(Selection(kIds.sourceCombo), 0);
}

TEST_F(TriggerCtrl, Refresh_without_Source0_selects_no_source) {
    m_camera.inquiry = 0x10000 | 0x400;
    ASSERT_EQ(m_trigger.Init(&m_camera), S_OK);
    m_trigger.Refresh(&m_camera);
    EXPECT_EQ(Selection(kIds.sourceCombo), CB_ERR);
}

// ---- Write --------------------------------------------------------------------------------------------------------

TEST_F(TriggerCtrl, Write_sends_what_the_controls_say_and_shows_the_mode_afresh) {
    ASSERT_EQ(m_trigger.Init(&m_camera), S_OK);
    m_trigger.SelectMode(0x100000);
    for (const HRESULT code : {S_OK, E_ACCESSDENIED}) {
        m_camera.writeResult = code;
        m_camera.written.clear();
        m_trigger.SetOn(true);
        m_trigger.SetInverted(false);
        Type("12");
        m_trigger.Write(&m_camera);
        m_trigger.SetOn(false);
        m_trigger.SetInverted(true);
        m_trigger.Write(&m_camera);

        const std::vector<std::array<ULONG, 4>> expected = {{0x100000, 1, 0, 12}, {0x100000, 0, 1, 1}};
        EXPECT_EQ(m_camera.written, expected) << "the parameter is 1 again after a write";
        EXPECT_EQ(Pictures(), std::vector<int>{305});
    }
}

TEST_F(TriggerCtrl, Write_without_a_selected_mode_sends_all_ones) {
    m_trigger.SetOn(true);
    m_trigger.Write(&m_camera);
    m_trigger.SetOn(false);
    m_trigger.Write(&m_camera);
    const std::vector<std::array<ULONG, 4>> expected = {{kNothingSelected, 1, 0, 0}, {kNothingSelected, 0, 0, 0}};
    EXPECT_EQ(m_camera.written, expected);
    EXPECT_EQ(Pictures(), std::vector<int>{});
}

}  // namespace
}  // namespace kolmfluxor::test
