/// @file  Page "Color" in a frame: its four feature groups, and what a tick asks.

#include <memory>
#include <string>
#include <utility>
#include <vector>

#include <gmock/gmock.h>

#include <windows.h>

#include <commctrl.h>

#include "pages/color_page_fixture.h"

namespace kolmfluxor::test {
namespace {

const GroupRow kGroups[] = {
    {"White balance UB", 1, 1094, 1095, 1097, 1096, 1098, 1099},
    {"White balance VR", 2, 1084, 1080, 1082, 1079, 1081, 1083},
    {"Hue", 22, 1090, 1086, 1088, 1085, 1087, 1089},
    {"Saturation", 23, 1107, 1092, 1105, 1091, 1104, 1106},
};
constexpr int kUbMode = 1099;
constexpr int kVrMode = 1083;
constexpr int kHueMode = 1089;
constexpr int kSaturationMode = 1106;
constexpr ULONG kManual = 0x2;
constexpr ULONG kOff = 0x4;
constexpr ULONG kAuto = 0x8;
constexpr ULONG kOnePush = 0x10;
constexpr ULONG kAllModes = kManual | kOff | kAuto | kOnePush;

// ---- Opening ------------------------------------------------------------------------------------------------------

TEST_F(ColorPage, shows_each_group_as_the_camera_has_it) {
    const auto page = Open();
    for (const GroupRow& row : kGroups) {
        SCOPED_TRACE(row.caption);
        ExpectShows(*page, row);
        EXPECT_EQ(page->Selected(row.mode), "Manual");
        for (const int id : {row.group, row.min, row.max, row.slider, row.edit, row.mode})
            EXPECT_TRUE(page->IsEnabled(id)) << id;
    }
}

TEST_F(ColorPage, opening_reads_and_never_writes) {
    for (const wchar_t* variant : {L"color", L"mono"}) {
        Renew(variant);
        const auto page = Open();
        page->Reactivate();
        const Wire reopening = Object().Sent();
        EXPECT_FALSE(m_opening.empty());
        for (const Wire* wire : {&std::as_const(m_opening), &reopening}) {
            for (const CWireRequest& request : *wire)
                EXPECT_EQ(request.Word(20), 1u) << "a SET was sent";
        }
        EXPECT_TRUE(page->Site().reports.empty()) << "opening must not make the page dirty";
        EXPECT_EQ(page->Page()->IsPageDirty(), S_FALSE);
    }
}

TEST_F(ColorPage, opening_asks_for_the_color_correction_first_and_then_in_the_order_of_the_groups) {
    const auto page = Open();
    Wire expected = {Get(27)};
    for (const CWireRequest& request : RefreshOfMatrix())
        expected.push_back(request);
    for (const GroupRow& row : kGroups)  // presence, modes and range together; then mode and value afresh
        expected.insert(expected.end(), {Get(row.driverId), Get(row.driverId), Get(row.driverId)});
    EXPECT_EQ(m_opening, expected);
}

TEST_F(ColorPage, each_failing_read_of_a_group_disables_that_group_only) {
    constexpr int kFirst = 12;  // requests 1 to 11 are the color correction's
    for (int nth = kFirst; nth < kFirst + 12; ++nth) {
        SCOPED_TRACE(nth);
        Renew(L"color");
        Object().FailNth(nth, E_ACCESSDENIED);
        const auto page = Open();
        for (std::size_t group = 0; group < std::size(kGroups); ++group) {
            const bool failed = group == static_cast<std::size_t>(nth - kFirst) / 3;
            EXPECT_EQ(page->IsEnabled(kGroups[group].group), !failed) << kGroups[group].caption;
            EXPECT_EQ(page->IsEnabled(kGroups[group].slider), !failed);
            EXPECT_EQ(page->IsEnabled(kGroups[group].mode), !failed);
        }
        EXPECT_TRUE(page->IsEnabled(kMatrixGroup));
    }
}

TEST_F(ColorPage, a_monochrome_camera_leaves_everything_disabled_and_is_never_polled) {
    Renew(L"mono");
    const auto page = Open();
    for (const GroupRow& row : kGroups) {
        for (const int id : {row.group, row.min, row.max, row.slider, row.edit, row.mode})
            EXPECT_FALSE(page->IsEnabled(id)) << id;
    }
    EXPECT_FALSE(page->IsEnabled(kMatrixGroup));
    page->Tick();
    EXPECT_EQ(Object().Sent(), Wire{});
}

// ---- Sliders and modes --------------------------------------------------------------------------------------------

TEST_F(ColorPage, dragging_shows_and_writes_value_and_mode_and_reads_the_value_back) {
    for (const GroupRow& row : kGroups) {
        SCOPED_TRACE(row.caption);
        const auto page = Open();
        const LONG position = page->RangeMin(row.slider) + 3;
        const auto value = static_cast<ULONG>(position);

        page->Drag(row.slider, position);

        EXPECT_EQ(Object().Sent(), (Wire{Set(row.driverId).With(24, value).With(28, kManual), Get(row.driverId)}));
        EXPECT_EQ(page->Text(row.edit), Number(value));
        EXPECT_EQ(WordOf(row.driverId), value);
    }
}

TEST_F(ColorPage, a_refused_write_leaves_what_the_user_set_and_reads_nothing) {
    const auto page = Open();
    for (const GroupRow& row : kGroups) {
        const LONG position = page->RangeMin(row.slider) + 1;
        Object().FailNth(1, E_ACCESSDENIED);
        page->Drag(row.slider, position);
        EXPECT_EQ(Object().Sent().size(), 1u) << row.caption;
        EXPECT_EQ(page->Text(row.edit), Number(static_cast<ULONG>(position)));
    }
}

TEST_F(ColorPage, choosing_a_mode_writes_it_and_enables_what_is_the_users) {
    struct Row {
        const char* mode;
        ULONG bit;
        bool enabled;
    };
    for (const auto& [mode, bit, enabled] :
         {Row{"Auto", kAuto, false}, {"OnePush", kOnePush, false}, {"Off", kOff, false}, {"Manual", kManual, true}}) {
        for (const GroupRow& row : kGroups) {
            SCOPED_TRACE(std::string(row.caption) + ", " + mode);
            Renew(L"color");
            SetWord(row.driverId, 32, kAllModes);
            const auto page = Open();
            const ULONG value = WordOf(row.driverId);

            page->Pick(row.mode, mode);

            EXPECT_EQ(Object().Sent(), (Wire{Set(row.driverId).With(24, value).With(28, bit), Get(row.driverId)}));
            EXPECT_EQ(page->IsEnabled(row.slider), enabled);
            EXPECT_EQ(page->Selected(row.mode), mode);
        }
    }
}

TEST_F(ColorPage, nothing_makes_it_dirty) {
    const auto page = Open();
    page->Drag(1096, 50);
    page->Pick(kUbMode, "Auto");
    SetText(*page, 1101, "7");
    page->Pick(kMatrixMode, "Reset");
    EXPECT_EQ(page->Page()->IsPageDirty(), S_FALSE);
    EXPECT_EQ(page->Page()->Apply(), S_OK);
    EXPECT_TRUE(page->Site().reports.empty());
}

// ---- Following the camera -----------------------------------------------------------------------------------------

TEST_F(ColorPage, a_tick_asks_for_both_white_balances_unless_both_rest_in_the_same_mode) {
    for (const ULONG ub : {kManual, kOff, kAuto, kOnePush}) {
        for (const ULONG vr : {kManual, kOff, kAuto, kOnePush}) {
            SCOPED_TRACE(testing::Message() << "UB " << ub << ", VR " << vr);
            Renew(L"color");
            for (const auto& [id, mode] : {std::pair<ULONG, ULONG>{1, ub}, {2, vr}}) {
                SetWord(id, 32, kAllModes);
                SetWord(id, 28, mode);
            }
            const auto page = Open();
            // They work in one mode from the first look at a one-push on; the page goes by what it shows.
            Camera().AddFault({.nth = 0, .action = kolmsim::SimFaultAction::fail, .code = E_ACCESSDENIED});
            for (int tick = 0; tick < 3; ++tick) {
                page->Tick();
                const bool rests = ub == vr && (ub == kManual || ub == kOff);
                EXPECT_EQ(Object().Sent(), rests ? Wire{} : (Wire{Get(1), Get(2)}));
            }
        }
    }
}

TEST_F(ColorPage, with_ub_manual_and_vr_auto_both_are_polled_each_time) {
    SetWord(2, 28, kAuto);
    const auto page = Open();
    ASSERT_EQ(page->Selected(kUbMode), "Manual");
    ASSERT_EQ(page->Selected(kVrMode), "Auto");
    for (int tick = 0; tick < 5; ++tick) {
        page->Tick();
        EXPECT_EQ(Object().Sent(), (Wire{Get(1), Get(2)})) << tick;
    }
}

TEST_F(ColorPage, a_mode_chosen_for_one_white_balance_shows_in_the_other_with_the_next_tick) {
    const auto page = Open();
    page->Pick(kUbMode, "Auto");
    EXPECT_EQ(page->Selected(kVrMode), "Manual");
    EXPECT_TRUE(page->IsEnabled(1079));

    page->Tick();

    EXPECT_EQ(page->Selected(kVrMode), "Auto");
    EXPECT_FALSE(page->IsEnabled(1079));
    EXPECT_EQ(page->Text(1081), Number(WordOf(2)));

    page->Pick(kVrMode, "Manual");
    page->Tick();
    EXPECT_EQ(page->Selected(kUbMode), "Manual");
    EXPECT_TRUE(page->IsEnabled(1096));
    Object().Forget();
    page->Tick();
    EXPECT_EQ(Object().Sent(), Wire{}) << "both at rest again";
}

TEST_F(ColorPage, a_one_push_of_both_ends_in_both) {
    const auto page = Open();
    page->Pick(kVrMode, "OnePush");
    for (int tick = 0; tick < 20 && page->Selected(kVrMode) != "Manual"; ++tick)
        page->Tick();
    EXPECT_EQ(page->Selected(kVrMode), "Manual");
    page->Tick();
    EXPECT_EQ(page->Selected(kUbMode), "Manual");
    EXPECT_TRUE(page->IsEnabled(1096));
    EXPECT_TRUE(page->IsEnabled(1079));
}

TEST_F(ColorPage, a_white_balance_whose_list_is_open_is_left_out) {
    SetWord(1, 28, kAuto);
    const auto page = Open();
    page->Drop(kUbMode, true);
    page->Tick();
    EXPECT_EQ(Object().Sent(), Wire{Get(2)});
    page->Drop(kUbMode, false);
    page->Drop(kVrMode, true);
    page->Tick();
    EXPECT_EQ(Object().Sent(), Wire{Get(1)});
}

TEST_F(ColorPage, a_white_balance_that_could_not_be_filled_is_polled_all_the_same_and_stays_disabled) {
    for (int nth = 12; nth < 18; ++nth) {  // the requests that fill both, three each
        SCOPED_TRACE(nth);
        Renew(L"color");
        Object().FailNth(nth, E_ACCESSDENIED);
        const auto page = Open();
        const bool first = nth < 15;
        const GroupRow& failed = kGroups[first ? 0 : 1];
        ASSERT_EQ(page->Entries(failed.mode), std::vector<std::string>{});
        ASSERT_EQ(page->Selected(first ? kVrMode : kUbMode), "Manual") << "the other one rests";
        for (int tick = 0; tick < 2; ++tick) {
            page->Tick();
            EXPECT_EQ(Object().Sent(), (Wire{Get(1), Get(2)}));
            EXPECT_EQ(page->Entries(failed.mode), std::vector<std::string>{});
            EXPECT_EQ(page->Text(failed.edit), "") << "its trackbar has no range to show a value in";
            for (const int id : {failed.group, failed.min, failed.max, failed.slider, failed.edit, failed.mode})
                EXPECT_FALSE(page->IsEnabled(id)) << id;
        }
    }
}

TEST_F(ColorPage, hue_and_saturation_are_polled_each_by_its_own_mode) {
    struct Row {
        ULONG hue, saturation;
        Wire expected;
    };
    for (const Row& row : {Row{kManual, kManual, {}},
                           {kAuto, kOff, {Get(22)}},
                           {kOff, kOnePush, {Get(23)}},
                           {kOnePush, kAuto, {Get(22), Get(23)}}}) {
        for (const bool whiteBalanceMoves : {false, true}) {
            Renew(L"color");
            for (const ULONG id : {22UL, 23UL})
                SetWord(id, 32, kAllModes);
            SetWord(22, 28, row.hue);
            SetWord(23, 28, row.saturation);
            SetWord(1, 28, whiteBalanceMoves ? kAuto : kManual);
            SetWord(2, 28, whiteBalanceMoves ? kAuto : kManual);
            Object().Patch(22, 28, row.hue);
            Object().Patch(23, 28, row.saturation);
            const auto page = Open();

            page->Tick();

            Wire expected = whiteBalanceMoves ? Wire{Get(1), Get(2)} : Wire{};
            expected.insert(expected.end(), row.expected.begin(), row.expected.end());
            EXPECT_EQ(Object().Sent(), expected) << row.hue << ", " << row.saturation << ", " << whiteBalanceMoves;
        }
    }
}

TEST_F(ColorPage, an_open_list_of_hue_or_saturation_is_not_polled) {
    for (const ULONG id : {22UL, 23UL}) {
        SetWord(id, 32, kAllModes);
        SetWord(id, 28, kAuto);
    }
    const auto page = Open();
    page->Drop(kHueMode, true);
    page->Tick();
    EXPECT_EQ(Object().Sent(), Wire{Get(23)});
    page->Drop(kHueMode, false);
    page->Drop(kSaturationMode, true);
    page->Tick();
    EXPECT_EQ(Object().Sent(), Wire{Get(22)});
}

TEST_F(ColorPage, a_tick_never_asks_for_the_color_correction) {
    const auto page = Open();
    const std::string shown = page->Text(1101);
    ASSERT_TRUE(Camera().PokeRegister(0xF10003A4, 1));
    page->Tick();
    EXPECT_EQ(Object().Sent(), Wire{});
    EXPECT_EQ(page->Text(1101), shown);
}

// ---- Template -----------------------------------------------------------------------------------------------------

TEST_F(ColorPage, every_control_has_the_right_window_class) {
    const auto page = Open();
    for (const GroupRow& row : kGroups) {
        SCOPED_TRACE(row.caption);
        ExpectClasses(*page, row);
    }
    EXPECT_EQ(ClassOf(*page, kMatrixGroup), "Button");
    EXPECT_EQ(ClassOf(*page, kMatrixMode), "ComboBox");
    EXPECT_NE(::GetWindowLongA(page->Control(kMatrixMode), GWL_STYLE) & CBS_SORT, 0);
    for (const CoefficientRow& row : kCoefficients) {
        EXPECT_EQ(ClassOf(*page, row.edit), "Edit");
        EXPECT_EQ(::GetWindowLongA(page->Control(row.edit), GWL_STYLE) & (ES_READONLY | ES_NUMBER), 0);
        EXPECT_EQ(ClassOf(*page, row.upDown), UPDOWN_CLASSA);
        EXPECT_EQ(::SendMessageA(page->Control(row.upDown), UDM_GETBUDDY, 0, 0),
                  reinterpret_cast<LRESULT>(page->Control(row.edit)));
    }
}

TEST_F(ColorPage, the_tab_key_goes_from_group_to_group_and_through_the_matrix_row_by_row) {
    const auto page = Open();
    std::vector<int> order;
    HWND control = nullptr;
    for (int i = 0; i < 30; ++i) {
        control = ::GetNextDlgTabItem(page->Dialog(), control, FALSE);
        const int id = ::GetDlgCtrlID(control);
        if (!order.empty() && id == order.front()) break;
        order.push_back(id);
    }
    EXPECT_EQ(order, (std::vector<int>{1096, 1099, 1079, 1083, 1085, 1089, 1091, 1106, 1101, 1060, 1065, 1102, 1061,
                                       1066, 1103, 1064, 1067, 1093}));
}

}  // namespace
}  // namespace kolmfluxor::test
