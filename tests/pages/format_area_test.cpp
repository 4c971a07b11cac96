/// @file  Page "Format": the area of interest and the frame rate of the chosen mode.

#include <array>
#include <cstring>

#include <gmock/gmock.h>

#include "pages/format_page_fixture.h"

namespace kolmfluxor::test {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

// ---- Showing ------------------------------------------------------------------------------------------------------

TEST_F(FormatPage, a_fixed_mode_shows_its_size_and_disables_the_area) {
    const auto page = OpenAt(0);
    EXPECT_THAT(Area(*page), ElementsAre("0", "0", "640", "480"));
    EXPECT_TRUE(AreaIsEnabled(*page, false));
    EXPECT_TRUE(page->Selected(kMode).starts_with("DCam"));
    EXPECT_EQ(page->Text(kWidthMax), "max: 640");
    EXPECT_EQ(page->Text(kHeightMax), "max: 480");
    EXPECT_EQ(page->Text(kWidthUnit), "unit: 0");
    EXPECT_EQ(page->Text(kHeightUnit), "unit: 0");
}

TEST_F(FormatPage, a_scalable_mode_shows_its_limits_and_enables_the_area) {
    m_script.formats[2].caps.CropGranularityY = 6;
    const auto page = OpenAt(2);
    EXPECT_THAT(Area(*page), ElementsAre("0", "0", "1280", "960"));
    EXPECT_TRUE(AreaIsEnabled(*page, true));
    EXPECT_EQ(page->Text(kWidthMax), "max: 1280");
    EXPECT_EQ(page->Text(kHeightMax), "max: 960");
    EXPECT_EQ(page->Text(kWidthUnit), "unit: 8");
    EXPECT_EQ(page->Text(kHeightUnit), "unit: 6");
}

TEST_F(FormatPage, the_up_downs_have_the_modes_ranges_positions_and_steps) {
    SetArea(m_script.formats[2], {0, 0, 320, 240});
    m_script.formats[2].caps.CropGranularityY = 6;
    const auto page = OpenAt(2);
    struct Row {
        int upDown;
        LONG min, max, position;
        UINT unit;
    };
    for (const auto& [upDown, min, max, position, unit] : {Row{kXSpin, 0, 1280, 0, 4},
                                                           {kYSpin, 0, 960, 0, 2},
                                                           {kWidthSpin, 16, 1280, 320, 8},
                                                           {kHeightSpin, 16, 960, 240, 6}}) {
        SCOPED_TRACE(upDown);
        LONG low = -1;
        LONG high = -1;
        ::SendMessageA(page->Control(upDown), UDM_GETRANGE32, reinterpret_cast<WPARAM>(&low),
                       reinterpret_cast<LPARAM>(&high));
        EXPECT_EQ(low, min);
        EXPECT_EQ(high, max);
        EXPECT_EQ(::SendMessageA(page->Control(upDown), UDM_GETPOS32, 0, 0), position);
        std::array<UDACCEL, 4> steps{};
        ASSERT_EQ(
            ::SendMessageA(page->Control(upDown), UDM_GETACCEL, steps.size(), reinterpret_cast<LPARAM>(steps.data())),
            3);
        EXPECT_EQ(steps[0].nSec, 0u);
        EXPECT_EQ(steps[0].nInc, unit);
        EXPECT_EQ(steps[1].nSec, 1u);
        EXPECT_EQ(steps[1].nInc, 4 * unit);
        EXPECT_EQ(steps[2].nSec, 5u);
        EXPECT_EQ(steps[2].nInc, 32 * unit);
    }
}

TEST_F(FormatPage, the_cameras_image_position_moves_the_area) {
    SetArea(m_script.formats[2], {0, 0, 320, 240});
    Place(8, 6);
    const auto page = Open();
    page->Pick(kMode, page->Entries(kMode).at(2));
    // The left edge moves alone, so the width shrinks by the shift.
    EXPECT_THAT(Area(*page), ElementsAre("8", "6", "312", "240"));
}

TEST_F(FormatPage, without_an_image_position_the_area_starts_in_the_corner) {
    SetArea(m_script.formats[2], {8, 6, 328, 246});
    Camera().AddFault({.nth = 0, .id = kPositionId, .action = kolmsim::SimFaultAction::fail, .code = E_FAIL});
    const auto page = Open();
    page->Pick(kMode, page->Entries(kMode).at(2));
    EXPECT_EQ(page->Text(kX), "0");
    EXPECT_EQ(page->Text(kY), "0");
    EXPECT_EQ(page->Entries(kMode).size(), 4u);
}

// ---- Editing the area ---------------------------------------------------------------------------------------------

TEST_F(FormatPage, an_edit_is_corrected_to_what_the_mode_allows) {
    SetArea(m_script.formats[2], {0, 0, 320, 240});
    struct Row {
        int edit;
        const char* typed;
        const char* shown;
    };
    for (const auto& [edit, typed, shown] : {
             Row{kX, "16", "16"},
             {kX, "13", "12"},
             {kX, "5000", "960"},
             {kX, "-8", "0"},
             {kY, "7", "6"},
             {kY, "5000", "720"},
             {kWidth, "100", "96"},
             {kWidth, "3", "16"},
             {kWidth, "2000", "1280"},
             {kHeight, "101", "100"},
             {kHeight, "2", "16"},
             {kHeight, "2000", "960"},
             {kHeight, "-100", "-100"},
             {kX, "12abc", "12"},
             {kX, "1.5", "0"},
         }) {
        SCOPED_TRACE(std::string(typed) + " into " + std::to_string(edit));
        const auto page = OpenAt(2);
        Type(*page, edit, typed);
        // A value that is allowed as typed is not written again: the text stays as the user wrote it.
        EXPECT_EQ(page->Text(edit), edit == kX && std::string(typed) == "12abc" ? "12abc" : shown);
        EXPECT_EQ(page->Page()->IsPageDirty(), S_OK);
        EXPECT_EQ(Object().Sent(), Wire{});
    }
}

TEST_F(FormatPage, typing_no_number_restores_the_stored_value) {
    const auto page = OpenAt(2);
    Type(*page, kWidth, "640");
    for (const char* text : {"abc", "", "-", "99999999999"}) {
        Type(*page, kWidth, text);
        EXPECT_EQ(page->Text(kWidth), "640") << text;
    }
    Type(*page, kX, "x");
    EXPECT_EQ(page->Text(kX), "0");
    Type(*page, kY, "y");
    EXPECT_EQ(page->Text(kY), "0");
    Type(*page, kHeight, "h");
    EXPECT_EQ(page->Text(kHeight), "960");
}

TEST_F(FormatPage, an_edit_counts_only_when_it_loses_the_focus) {
    const auto page = OpenAt(2);
    ::SetWindowTextA(page->Control(kX), "5000");
    page->Notify(kX, EN_SETFOCUS);
    page->Notify(kX, EN_UPDATE);
    EXPECT_EQ(page->Text(kX), "5000");
    EXPECT_EQ(page->Page()->IsPageDirty(), S_FALSE);
    page->Notify(kX, EN_KILLFOCUS);
    EXPECT_EQ(page->Text(kX), "0") << "the whole width is in use: no room to the right";
}

TEST_F(FormatPage, moving_the_left_edge_takes_the_shift_from_the_width) {
    SetArea(m_script.formats[2], {0, 0, 320, 240});
    const auto page = OpenAt(2);
    Type(*page, kX, "16");
    Type(*page, kWidth, "no number");
    EXPECT_EQ(page->Text(kWidth), "304");
}

TEST_F(FormatPage, without_a_mode_an_edit_stays_as_it_was_typed) {
    m_script.getFormat = E_FAIL;
    const auto page = Open();
    Type(*page, kX, "13");
    Type(*page, kY, "letters");
    EXPECT_EQ(page->Text(kX), "13");
    EXPECT_EQ(page->Text(kY), "letters");
    EXPECT_EQ(page->Page()->IsPageDirty(), S_OK);
}

TEST_F(FormatPage, up_downs_mark_the_page) {
    for (const int upDown : {kXSpin, kYSpin, kWidthSpin, kHeightSpin}) {
        const auto page = OpenAt(2);
        Scroll(*page, WM_HSCROLL, upDown);
        EXPECT_EQ(page->Page()->IsPageDirty(), S_FALSE) << "only their own direction";
        Scroll(*page, WM_VSCROLL, upDown);
        EXPECT_EQ(page->Page()->IsPageDirty(), S_OK) << upDown;
    }
}

TEST_F(FormatPage, clicks_of_controls_that_a_template_may_have) {
    {
        const auto page = OpenAt(2);
        ::SendMessageA(page->Dialog(), WM_COMMAND, MAKEWPARAM(1065, BN_CLICKED), 0);
        EXPECT_EQ(page->Page()->IsPageDirty(), S_OK);
        EXPECT_TRUE(AreaIsEnabled(*page, true));
    }
    const auto page = OpenAt(2);
    ::SendMessageA(page->Dialog(), WM_COMMAND, MAKEWPARAM(1055, BN_CLICKED), 0);
    EXPECT_EQ(page->Page()->IsPageDirty(), S_OK);
    EXPECT_TRUE(AreaIsEnabled(*page, false)) << "there is no check box that could be checked";

    HWND const box = ::CreateWindowExA(0, "BUTTON", "", WS_CHILD | BS_AUTOCHECKBOX, 0, 0, 5, 5, page->Dialog(),
                                       reinterpret_cast<HMENU>(1055), nullptr, nullptr);
    ASSERT_NE(box, nullptr);
    page->Click(1055);
    EXPECT_TRUE(AreaIsEnabled(*page, true));
    page->Click(1055);
    EXPECT_TRUE(AreaIsEnabled(*page, false));
}

TEST_F(FormatPage, other_messages_go_to_the_base) {
    const auto page = OpenAt(2);
    page->Notify(kMode, CBN_DROPDOWN);
    page->Notify(kMultiShot, EN_KILLFOCUS);
    ::SendMessageA(page->Dialog(), WM_VSCROLL, 0, 0);  // a scroll bar of the dialog's own
    EXPECT_EQ(Area(*page), (std::vector<std::string>{"0", "0", "1280", "960"}));
    EXPECT_EQ(page->Page()->IsPageDirty(), S_FALSE);
}

// ---- Frame rate ---------------------------------------------------------------------------------------------------

TEST_F(FormatPage, the_frame_rate_runs_between_standard_rates) {
    m_script.formats[2].caps.MinFrameInterval = 200000;   // 50 fps: up to 60
    m_script.formats[2].caps.MaxFrameInterval = 4000000;  // 2.5 fps: up to 3.75
    m_script.formats[2].header.AvgTimePerFrame = 1000000;
    const auto page = OpenAt(2);
    EXPECT_EQ(page->RangeMin(kRateSlider), 3750);
    EXPECT_EQ(page->RangeMax(kRateSlider), 60000);
    EXPECT_EQ(page->Position(kRateSlider), 10000);
    EXPECT_EQ(page->Text(kRateMin), "3.750");
    EXPECT_EQ(page->Text(kRateMax), "60.000");
    EXPECT_EQ(page->Text(kRate), "10.000");
    EXPECT_TRUE(page->IsEnabled(kRateSlider));
}

TEST_F(FormatPage, one_rate_only_disables_the_slider) {
    m_script.formats[0].caps.MinFrameInterval = 700000;
    m_script.formats[0].caps.MaxFrameInterval = 1300000;
    const auto page = OpenAt(0);
    EXPECT_FALSE(page->IsEnabled(kRateSlider));
    EXPECT_EQ(page->Text(kRateMin), "15.000");
    EXPECT_EQ(page->Text(kRateMax), "15.000");
    page->Pick(kMode, page->Entries(kMode).at(2));
    EXPECT_TRUE(page->IsEnabled(kRateSlider));
}

TEST_F(FormatPage, a_frame_time_of_zero_ends_the_showing_silently) {
    m_script.formats[2].header.AvgTimePerFrame = 0;
    const auto page = OpenAt(0);
    page->Pick(kMode, page->Entries(kMode).at(2));
    EXPECT_THAT(Area(*page), ElementsAre("0", "0", "1280", "960"));
    EXPECT_EQ(page->Text(kRate), "15.000") << "the earlier mode's";
}

TEST_F(FormatPage, a_fixed_modes_slider_snaps_to_standard_rates) {
    const auto page = OpenAt(0);  // 3.75 to 30 fps
    struct Row {
        LONG position, snapped;
        const char* text;
    };
    for (const auto& [position, snapped, text] :
         {Row{14000, 15000, "15.000"}, {30000, 30000, "30.000"}, {9000, 7500, "7.500"}}) {
        page->Drag(kRateSlider, position);
        EXPECT_EQ(page->Position(kRateSlider), snapped) << position;
        EXPECT_EQ(page->Text(kRate), text);
    }
    EXPECT_EQ(page->Page()->IsPageDirty(), S_OK);
    EXPECT_EQ(Object().Sent(), Wire{});
}

TEST_F(FormatPage, a_scalable_modes_slider_stays_inside_the_modes_limits) {
    m_script.formats[2].caps.MinFrameInterval = 250000;   // 40 fps; the slider goes to 60
    m_script.formats[2].caps.MaxFrameInterval = 3000000;  // 3.333 fps; the slider begins at 3.75
    const auto page = OpenAt(2);
    page->Drag(kRateSlider, 12345);
    EXPECT_EQ(page->Text(kRate), "12.345") << "any rate inside";
    page->Drag(kRateSlider, page->RangeMax(kRateSlider));
    EXPECT_EQ(page->Text(kRate), "40.000") << "60 is above the mode's own limit";
    EXPECT_EQ(page->Position(kRateSlider), 40000);
}

TEST_F(FormatPage, the_slider_works_by_either_scroll_message) {
    const auto page = OpenAt(2);
    for (const UINT message : {UINT{WM_HSCROLL}, UINT{WM_VSCROLL}}) {
        ::SendMessageA(page->Control(kRateSlider), TBM_SETPOS, TRUE, message == WM_HSCROLL ? 20000 : 25000);
        Scroll(*page, message, kRateSlider);
        EXPECT_EQ(page->Text(kRate), message == WM_HSCROLL ? "20.000" : "25.000");
    }
}

TEST_F(FormatPage, a_slider_that_no_mode_backs_does_nothing) {
    m_script.getFormat = E_FAIL;
    const auto page = Open();
    page->Drag(kRateSlider, 50);
    EXPECT_EQ(page->Text(kRate), "0");
    EXPECT_EQ(page->Page()->IsPageDirty(), S_OK);
}

// ---- Hostile records ----------------------------------------------------------------------------------------------

TEST_F(FormatPage, hostile_capability_records_do_no_harm) {
    VIDEO_STREAM_CONFIG_CAPS noSteps = m_script.formats[2].caps;
    noSteps.CropAlignX = noSteps.CropAlignY = noSteps.CropGranularityX = noSteps.CropGranularityY = 0;
    VIDEO_STREAM_CONFIG_CAPS reversed = m_script.formats[2].caps;
    std::swap(reversed.MinCroppingSize, reversed.MaxCroppingSize);
    std::swap(reversed.MinFrameInterval, reversed.MaxFrameInterval);
    VIDEO_STREAM_CONFIG_CAPS extreme{};
    std::memset(&extreme, 0x80, sizeof extreme);
    extreme.MinOutputSize.cx = 0x7FFFFFFF;
    VIDEO_STREAM_CONFIG_CAPS zero{};
    zero.MaxOutputSize.cx = 1;
    VIDEO_STREAM_CONFIG_CAPS ones{};
    std::memset(&ones, 0xFF, sizeof ones);
    ones.MaxOutputSize.cx = 0;
    for (const VIDEO_STREAM_CONFIG_CAPS& caps : {noSteps, reversed, extreme, zero, ones}) {
        m_script.formats[2].caps = caps;
        const auto page = OpenAt(2);
        ASSERT_EQ(page->Entries(kMode).size(), 4u);
        for (const int edit : {kX, kY, kWidth, kHeight}) {
            for (const char* typed : {"13", "-2147483647", "2147483647", "0"})
                Type(*page, edit, typed);
        }
        for (const LONG rate : {0L, 1L, -1L, 0x7FFFFFFFL})
            page->Drag(kRateSlider, rate);
        page->Pick(kMode, page->Entries(kMode).at(0));
        EXPECT_THAT(Area(*page), ElementsAre("0", "0", "640", "480")) << "still usable";
        EXPECT_EQ(page->Text(kRate), "15.000");
    }
}

TEST_F(FormatPage, without_steps_every_position_is_taken) {
    m_script.formats[2].caps.CropAlignX = 0;
    SetArea(m_script.formats[2], {0, 0, 320, 240});
    const auto page = OpenAt(2);
    Type(*page, kX, "13");
    EXPECT_EQ(page->Text(kX), "13");
}

}  // namespace
}  // namespace kolmfluxor::test
