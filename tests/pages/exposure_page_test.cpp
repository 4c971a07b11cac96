/// @file  Page "Exposure" in a frame: what its controls show, and what each action sends.

#include <memory>
#include <string>
#include <utility>
#include <vector>

#include <gmock/gmock.h>

#include <windows.h>

#include <commctrl.h>

#include "pages/exposure_page_fixture.h"

namespace kolmfluxor::test {
namespace {

/// The groups without the shutter, which is a case of its own.
const GroupRow kGroups[] = {
    {"Brightness", 4, 1075, 1076, 1077, 1073, 1078, 1074},
    {"Gain", 0, 1084, 1080, 1082, 1079, 1081, 1083},
    {"Gamma", 8, 1098, 1094, 1096, 1093, 1095, 1097},
    {"Auto exposure", 60, 1104, 1100, 1102, 1099, 1101, 1103},
};
// ---- Opening ------------------------------------------------------------------------------------------------------

TEST_F(ExposurePage, shows_each_group_as_the_camera_has_it) {
    const auto page = Open();
    for (const GroupRow& row : kGroups) {
        SCOPED_TRACE(row.caption);
        ExpectShows(*page, row);
    }
    EXPECT_EQ(page->Text(kShutterGroup), "Shutter");
}

TEST_F(ExposurePage, opening_reads_and_never_writes) {
    const auto page = Open();
    EXPECT_FALSE(m_opening.empty());
    for (const CWireRequest& request : m_opening)
        EXPECT_EQ(request.Word(20), 1u) << "a SET was sent";
    EXPECT_TRUE(page->Site().reports.empty()) << "opening must not make the page dirty";
    EXPECT_EQ(page->Page()->IsPageDirty(), S_FALSE);
}

TEST_F(ExposurePage, opening_asks_in_the_order_of_its_groups) {
    const auto page = Open();
    // Each group: one GET for presence, modes and range together, then mode and value afresh; the shutter also its time
    // base, once its modes are known.
    EXPECT_EQ(m_opening, (Wire{Get(4), Get(4), Get(4), Get(0), Get(0), Get(0), Get(5), Get(6), Get(5), Get(5), Get(8),
                               Get(8), Get(8), Get(60), Get(60), Get(60)}));
}

TEST_F(ExposurePage, lists_exactly_the_supported_modes) {
    constexpr std::pair<ULONG, const char*> kNames[] = {
        {0x4, "Off"},        {0x2, "Manual"},     {0x10, "OnePush"},   {0x8, "Auto"},        {0x40, "Busy"},
        {0x80, "ShowImage"}, {0x100, "LoadData"}, {0x200, "SaveData"}, {0x400, "ClearData"}, {0x1000, "Error"},
    };
    SetWord(4, 32, 0x17DE);
    {
        const auto page = Open();
        EXPECT_EQ(page->Entries(1074),
                  (std::vector<std::string>{"Off", "Manual", "OnePush", "Auto", "Busy", "ShowImage", "LoadData",
                                            "SaveData", "ClearData", "Error"}));
    }
    for (const auto& [bit, name] : kNames) {
        SCOPED_TRACE(name);
        Renew(L"color");
        SetWord(4, 32, bit);
        SetWord(4, 28, bit);
        const auto page = Open();
        EXPECT_EQ(page->Entries(1074), std::vector<std::string>{name});
        EXPECT_EQ(page->Selected(1074), name);
        EXPECT_FALSE(page->IsEnabled(1074)) << "one mode leaves nothing to choose";
    }
}

TEST_F(ExposurePage, value_controls_follow_the_mode_at_opening) {
    constexpr std::pair<ULONG, bool> kRows[] = {{0x2, true}, {0x4, false}, {0x8, false}, {0x10, true}, {0x40, true}};
    for (const auto& [bit, enabled] : kRows) {
        SCOPED_TRACE(bit);
        Renew(L"color");
        SetWord(0, 32, kAllModes | bit);
        SetWord(0, 28, bit);
        const auto page = Open();
        for (const int id : {1080, 1082, 1079, 1081})
            EXPECT_EQ(page->IsEnabled(id), enabled) << id;
        EXPECT_TRUE(page->IsEnabled(1083)) << "the modes stay open to choice";
        EXPECT_TRUE(page->IsEnabled(1084));
    }
}

TEST_F(ExposurePage, a_mode_without_a_name_selects_nothing_and_leaves_the_value_controls) {
    SetWord(0, 28, 0x20);
    const auto page = Open();
    EXPECT_EQ(page->Selected(1083), "");
    EXPECT_TRUE(page->IsEnabled(1079));
}

TEST_F(ExposurePage, a_value_outside_the_range_shows_clamped) {
    SetWord(0, 24, WordOf(0, 40) + 100);
    const auto page = Open();
    EXPECT_EQ(page->Position(1079), static_cast<LONG>(WordOf(0, 40)));
    EXPECT_EQ(page->Text(1081), Number(WordOf(0, 40)));
}

TEST_F(ExposurePage, a_missing_feature_leaves_its_group_disabled) {
    for (const GroupRow& row : kGroups) {
        SCOPED_TRACE(row.caption);
        Renew(L"color");
        ASSERT_TRUE(Camera().SetFeaturePresent(row.driverId, false));
        const auto page = Open();
        for (const int id : {row.group, row.min, row.max, row.slider, row.edit, row.mode}) {
            EXPECT_FALSE(page->IsEnabled(id)) << id;
        }
        EXPECT_TRUE(page->IsEnabled(kShutterGroup)) << "the others are there";
    }
}

TEST_F(ExposurePage, each_failing_read_disables_its_group_only) {
    // Requests of opening: 1-3 brightness, 4-6 gain, 7-10 shutter (8 is the time base), 11-13 gamma, 14-16 auto
    // exposure.
    const int kGroupOfRequest[] = {1075,          1075,          1075, 1084, 1084, 1084, kShutterGroup, 0,
                                   kShutterGroup, kShutterGroup, 1098, 1098, 1098, 1104, 1104,          1104};
    for (int nth = 1; nth <= 16; ++nth) {
        SCOPED_TRACE(nth);
        Renew(L"color");
        Object().FailNth(nth, E_ACCESSDENIED);
        const auto page = Open();
        for (const int group : {1075, 1084, kShutterGroup, 1098, 1104}) {
            EXPECT_EQ(page->IsEnabled(group), group != kGroupOfRequest[nth - 1]) << "group " << group;
        }
    }
}

// ---- Moving a slider
// ----------------------------------------------------------------------------------------------

TEST_F(ExposurePage, dragging_writes_value_and_mode_and_reads_the_value_back) {
    for (const GroupRow& row : kGroups) {
        SCOPED_TRACE(row.caption);
        Renew(L"color");
        SetWord(row.driverId, 32, kAllModes);
        SetWord(row.driverId, 28, 0x2);
        const auto page = Open();
        const LONG position = page->RangeMin(row.slider) + 1;

        page->Drag(row.slider, position);

        const auto value = static_cast<ULONG>(position);
        EXPECT_EQ(Object().Sent(), (Wire{Set(row.driverId).With(24, value).With(28, 0x2), Get(row.driverId)}));
        EXPECT_EQ(page->Text(row.edit), Number(value));
        EXPECT_EQ(WordOf(row.driverId), value);
    }
}

TEST_F(ExposurePage, the_value_that_the_camera_made_of_it_is_shown) {
    const auto page = Open();
    Object().Patch(0, 24, 99);

    page->Drag(1079, 50);

    EXPECT_EQ(page->Text(1081), "99");
    EXPECT_EQ(page->Position(1079), 99);
}

TEST_F(ExposurePage, a_refused_write_leaves_what_the_user_typed_and_reads_nothing) {
    const auto page = Open();
    Object().FailNth(1, E_ACCESSDENIED);

    page->Drag(1079, 50);

    EXPECT_EQ(Object().Sent().size(), 1u);
    EXPECT_EQ(page->Text(1081), "50");
}

TEST_F(ExposurePage, a_scroll_of_no_trackbar_is_not_the_pages) {
    const auto page = Open();
    ::SendMessageA(page->Dialog(), WM_HSCROLL, TB_THUMBTRACK, 0);
    ::SendMessageA(page->Dialog(), WM_HSCROLL, TB_THUMBTRACK, reinterpret_cast<LPARAM>(page->Control(1081)));
    EXPECT_EQ(Object().Sent(), Wire{});
}

// ---- Choosing a mode
// ----------------------------------------------------------------------------------------------

TEST_F(ExposurePage, choosing_a_mode_writes_it_and_enables_what_is_the_users) {
    struct Row {
        const char* mode;
        ULONG bit;
        bool enabled;
    };
    for (const auto& [mode, bit, enabled] :
         {Row{"Auto", 0x8, false}, {"OnePush", 0x10, false}, {"Off", 0x4, false}, {"Manual", 0x2, true}}) {
        for (const GroupRow& row : kGroups) {
            SCOPED_TRACE(std::string(row.caption) + ", " + mode);
            Renew(L"color");
            SetWord(row.driverId, 32, kAllModes);
            SetWord(row.driverId, 28, 0x2);
            const auto page = Open();
            const ULONG value = WordOf(row.driverId);

            page->Pick(row.mode, mode);

            EXPECT_EQ(Object().Sent(), (Wire{Set(row.driverId).With(24, value).With(28, bit), Get(row.driverId)}));
            EXPECT_EQ(page->IsEnabled(row.slider), enabled);
            EXPECT_EQ(page->IsEnabled(row.edit), enabled);
            EXPECT_EQ(page->Selected(row.mode), mode);
        }
    }
}

// ---- Following the camera
// -----------------------------------------------------------------------------------------

TEST_F(ExposurePage, a_tick_asks_only_for_groups_that_move_by_themselves) {
    for (const GroupRow& row : kGroups)
        SetWord(row.driverId, 32, kAllModes);
    const auto page = Open();
    page->Tick();
    EXPECT_EQ(Object().Sent(), Wire{}) << "all are manual";

    page->Pick(1083, "Auto");
    page->Pick(1103, "OnePush");
    Object().Forget();
    page->Tick();
    EXPECT_EQ(Object().Sent(), (Wire{Get(0), Get(60)})) << "one request a group, in the order of the groups";
}

TEST_F(ExposurePage, an_open_list_is_not_polled) {
    SetWord(0, 28, 0x8);
    const auto page = Open();
    page->Drop(1083, true);
    page->Tick();
    EXPECT_EQ(Object().Sent(), Wire{});
    page->Drop(1083, false);
    page->Tick();
    EXPECT_EQ(Object().Sent(), Wire{Get(0)});
}

TEST_F(ExposurePage, a_tick_shows_the_cameras_value) {
    SetWord(0, 28, 0x8);
    const auto page = Open();
    const std::string opened = page->Text(1081);
    page->Tick();
    EXPECT_NE(page->Text(1081), opened) << "the camera has moved on";
    EXPECT_EQ(page->Text(1081), Number(WordOf(0)));
    EXPECT_EQ(page->Position(1079), static_cast<LONG>(WordOf(0)));
}

TEST_F(ExposurePage, a_one_push_that_ends_gives_the_controls_back) {
    const auto page = Open();
    page->Pick(1083, "OnePush");
    EXPECT_FALSE(page->IsEnabled(1079));
    for (int tick = 0; tick < 10 && page->Selected(1083) != "Manual"; ++tick)
        page->Tick();
    EXPECT_EQ(page->Selected(1083), "Manual");
    EXPECT_TRUE(page->IsEnabled(1079));
    Object().Forget();
    page->Tick();
    EXPECT_EQ(Object().Sent(), Wire{}) << "manual again: never polled";
}

TEST_F(ExposurePage, one_push_found_at_opening_is_the_users_until_the_first_tick) {
    SetWord(0, 28, 0x10);
    SetWord(0, 52, 1);
    const auto page = Open();
    EXPECT_TRUE(page->IsEnabled(1079));
    Object().Patch(0, 28, 0x10);
    page->Tick();
    EXPECT_FALSE(page->IsEnabled(1079));
}

TEST_F(ExposurePage, a_failing_poll_changes_nothing_and_the_next_tick_tries_again) {
    SetWord(0, 28, 0x8);
    const auto page = Open();
    const std::string shown = page->Text(1081);
    Object().FailNth(1, E_ACCESSDENIED);
    page->Tick();
    EXPECT_EQ(page->Text(1081), shown);
    EXPECT_EQ(page->Selected(1083), "Auto");
    page->Tick();
    EXPECT_EQ(Object().Sent().size(), 2u);
}

TEST_F(ExposurePage, a_tick_asks_all_groups_that_move_in_their_order) {
    for (const ULONG id : {4UL, 0UL, kShutterId, 8UL, 60UL}) {
        SetWord(id, 32, kAllModes);
        SetWord(id, 28, 0x8);
    }
    const auto page = Open();
    page->Tick();
    EXPECT_EQ(Object().Sent(), (Wire{Get(4), Get(0), Get(kShutterId), Get(8), Get(60)}));
    EXPECT_EQ(page->Text(kShutterEdit), Number(WordOf(kShutterId) * 20)) << "the shutter in its own units";
}

TEST_F(ExposurePage, a_mode_without_a_name_in_a_poll_leaves_the_selection_and_frees_the_controls) {
    SetWord(0, 28, 0x8);
    const auto page = Open();
    ASSERT_FALSE(page->IsEnabled(1079));
    Object().Patch(0, 28, 0x20);
    page->Tick();
    EXPECT_EQ(page->Selected(1083), "Auto");
    EXPECT_TRUE(page->IsEnabled(1079));
}

TEST_F(ExposurePage, other_timers_are_not_the_pages) {
    SetWord(0, 28, 0x8);
    const auto page = Open();
    ::SendMessageA(page->Dialog(), WM_TIMER, 2, 0);
    EXPECT_EQ(Object().Sent(), Wire{});
}

// ---- Dirty
// --------------------------------------------------------------------------------------------------------

TEST_F(ExposurePage, extd_and_control_1055_make_the_page_dirty_and_apply_clears_it) {
    const auto page = Open();
    page->Click(kExtd);
    EXPECT_EQ(page->Site().reports, std::vector<DWORD>{PROPPAGESTATUS_DIRTY});
    EXPECT_EQ(page->Page()->IsPageDirty(), S_OK);
    Object().Forget();
    EXPECT_EQ(page->Page()->Apply(), S_OK);
    EXPECT_EQ(Object().Sent(), Wire{}) << "every change has gone to the camera already";
    EXPECT_EQ(page->Page()->IsPageDirty(), S_FALSE);

    ::SendMessageA(page->Dialog(), WM_COMMAND, MAKEWPARAM(1055, BN_CLICKED), 0);
    EXPECT_EQ(page->Page()->IsPageDirty(), S_OK);
    EXPECT_EQ(page->Site().reports.size(), 2u);
    EXPECT_EQ(Object().Sent(), Wire{});
}

TEST_F(ExposurePage, unchecking_extd_makes_the_page_dirty_too) {
    const auto page = Open();
    page->Click(kExtd);
    ASSERT_EQ(page->Page()->Apply(), S_OK);

    page->Click(kExtd);

    EXPECT_EQ(page->Page()->IsPageDirty(), S_OK);
    EXPECT_EQ(page->Site().reports.size(), 2u);
}

TEST_F(ExposurePage, sliders_modes_and_the_time_base_do_not_make_it_dirty) {
    const auto page = Open();
    page->Drag(1079, 50);
    page->Drag(kShutterSlider, 50);
    page->Pick(1083, "Auto");
    page->Pick(kTimeBase, "1000\xB5s");
    EXPECT_EQ(page->Page()->IsPageDirty(), S_FALSE);
    EXPECT_TRUE(page->Site().reports.empty());
}

// ---- Template
// -----------------------------------------------------------------------------------------------------

TEST_F(ExposurePage, every_control_has_the_right_window_class) {
    const auto page = Open();
    const auto classOf = [&](int id) { return ClassOf(*page, id); };
    std::vector<GroupRow> rows(std::begin(kGroups), std::end(kGroups));
    rows.push_back(
        {"Shutter", kShutterId, kShutterGroup, kShutterMin, kShutterMax, kShutterSlider, kShutterEdit, kShutterMode});
    for (const GroupRow& row : rows) {
        SCOPED_TRACE(row.caption);
        ExpectClasses(*page, row);
    }
    EXPECT_EQ(classOf(kExtd), "Button");
    EXPECT_EQ(classOf(kTimeBase), "ComboBox");
    EXPECT_EQ(classOf(kUnit), "Static");
}

}  // namespace
}  // namespace kolmfluxor::test
