/// @file  Page "Exposure" in a frame: what its controls show, and what each action sends.

#include <array>
#include <memory>
#include <string>
#include <utility>
#include <vector>

#include <gmock/gmock.h>

#include <windows.h>

#include <commctrl.h>

#include "support/page_host.h"

namespace kolmfluxor::test {
namespace {

struct GroupRow {
    const char* caption;
    ULONG driverId;
    int group, min, max, slider, edit, mode;
};

/// The groups without the shutter, which is a case of its own.
const GroupRow kGroups[] = {
    {"Brightness", 4, 1075, 1076, 1077, 1073, 1078, 1074},
    {"Gain", 0, 1084, 1080, 1082, 1079, 1081, 1083},
    {"Gamma", 8, 1098, 1094, 1096, 1093, 1095, 1097},
    {"Auto exposure", 60, 1104, 1100, 1102, 1099, 1101, 1103},
};
constexpr int kShutterGroup = 1090;
constexpr int kShutterMin = 1086;
constexpr int kShutterMax = 1088;
constexpr int kShutterSlider = 1085;
constexpr int kShutterEdit = 1087;
constexpr int kShutterMode = 1089;
constexpr int kTimeBase = 1091;
constexpr int kExtd = 1092;
constexpr int kUnit = 1153;

constexpr ULONG kShutterId = 5;
constexpr ULONG kTimeBaseId = 6;
constexpr ULONG kExtendedId = 7;
constexpr ULONG kAllModes = 0x2 | 0x4 | 0x8 | 0x10;

class ExposurePage : public PageTest {
protected:
    /// A page on this test's camera; its own requests are forgotten.
    std::unique_ptr<CPageHost> Open() {
        auto host = std::make_unique<CPageHost>(CLSID_KolmFluxorPage_Exposure, Object());
        m_opening = Object().Sent();
        return host;
    }
    ULONG WordOf(ULONG id, ULONG offset = 24) {
        std::uint32_t word = 0;
        EXPECT_TRUE(Camera().GetFeatureWord(id, offset, &word));
        return word;
    }
    void SetWord(ULONG id, ULONG offset, ULONG word) { EXPECT_TRUE(Camera().SetFeatureWord(id, offset, word)); }
    static std::string Number(ULONG number) { return std::to_string(static_cast<int>(number)); }

    Wire m_opening;  ///< what opening the page sent
};

// ---- Opening ------------------------------------------------------------------------------------------------------

TEST_F(ExposurePage, names_itself_and_tells_its_templates_size_before_it_is_shown) {
    IPropertyPage* fresh = nullptr;
    ASSERT_EQ(CModule::Get().Create(CLSID_KolmFluxorPage_Exposure, nullptr, IID_IPropertyPage,
                                    reinterpret_cast<void**>(&fresh)),
              S_OK);
    PROPPAGEINFO info{};
    info.cb = sizeof info;
    ASSERT_EQ(fresh->GetPageInfo(&info), S_OK);
    EXPECT_EQ(fresh->GetPageInfo(nullptr), E_POINTER);
    EXPECT_EQ(fresh->Release(), 0u);

    EXPECT_STREQ(info.pszTitle, L"Exposure");
    const auto page = Open();
    RECT units = {0, 0, 252, 218};
    ASSERT_TRUE(::MapDialogRect(page->Dialog(), &units));
    EXPECT_EQ(info.size.cx, units.right);
    EXPECT_EQ(info.size.cy, units.bottom);
    ::CoTaskMemFree(info.pszTitle);
}

TEST_F(ExposurePage, shows_each_group_as_the_camera_has_it) {
    const auto page = Open();
    for (const GroupRow& row : kGroups) {
        SCOPED_TRACE(row.caption);
        EXPECT_EQ(page->Text(row.group), row.caption);
        EXPECT_EQ(page->Text(row.min), Number(WordOf(row.driverId, 36)));
        EXPECT_EQ(page->Text(row.max), Number(WordOf(row.driverId, 40)));
        EXPECT_EQ(page->Text(row.edit), Number(WordOf(row.driverId)));
        EXPECT_EQ(page->Position(row.slider), static_cast<LONG>(WordOf(row.driverId)));
        EXPECT_EQ(page->RangeMin(row.slider), static_cast<LONG>(WordOf(row.driverId, 36)));
        EXPECT_EQ(page->RangeMax(row.slider), static_cast<LONG>(WordOf(row.driverId, 40)));
        EXPECT_EQ(::SendMessageA(page->Control(row.slider), TBM_GETLINESIZE, 0, 0), 1);
        EXPECT_EQ(::SendMessageA(page->Control(row.slider), TBM_GETPAGESIZE, 0, 0), 10);
        EXPECT_TRUE(page->IsEnabled(row.group));
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

TEST_F(ExposurePage, choosing_a_shutter_mode_leaves_the_value) {
    const auto page = Open();

    page->Pick(kShutterMode, "Auto");

    const CWireRequest change = AnswerOf(Camera(), 0).AsSet().With(28, 0x8).With(44, 1).With(52, 0);
    EXPECT_EQ(Object().Sent(), (Wire{Get(kShutterId), change}));
    for (const int id : {kShutterSlider, kShutterEdit, kExtd, kTimeBase, kUnit})
        EXPECT_FALSE(page->IsEnabled(id));
    page->Pick(kShutterMode, "Manual");
    for (const int id : {kShutterSlider, kShutterEdit, kExtd, kTimeBase, kUnit})
        EXPECT_TRUE(page->IsEnabled(id));
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

TEST_F(ExposurePage, shutter_controls_follow_its_mode_and_presence_at_opening) {
    struct Row {
        ULONG mode;
        bool enabled;
    };
    for (const auto& [mode, enabled] : {Row{0x2, true}, {0x4, false}, {0x8, false}, {0x10, true}}) {
        SCOPED_TRACE(mode);
        Renew(L"color");
        SetWord(kShutterId, 32, kAllModes);
        SetWord(kShutterId, 28, mode);
        const auto page = Open();
        for (const int id :
             {kShutterGroup, kShutterMin, kShutterMax, kShutterSlider, kShutterEdit, kUnit, kExtd, kTimeBase}) {
            EXPECT_EQ(page->IsEnabled(id), enabled) << id;
        }
        EXPECT_TRUE(page->IsEnabled(kShutterMode));
    }
    Renew(L"color");
    ASSERT_TRUE(Camera().SetFeaturePresent(kShutterId, false));
    const auto page = Open();
    for (const int id : {kShutterGroup, kShutterSlider, kShutterEdit, kUnit, kExtd, kTimeBase, kShutterMode}) {
        EXPECT_FALSE(page->IsEnabled(id)) << id;
    }
}

TEST_F(ExposurePage, the_time_base_stays_closed_in_extended_display) {
    const auto page = Open();
    page->Click(kExtd);
    page->Pick(kShutterMode, "Auto");
    page->Pick(kShutterMode, "Manual");
    EXPECT_TRUE(page->IsEnabled(kShutterSlider));
    EXPECT_FALSE(page->IsEnabled(kTimeBase));
}

TEST_F(ExposurePage, in_extended_display_the_second_reading_of_a_poll_counts_alone) {
    SetWord(kShutterId, 28, 0x8);
    const auto page = Open();
    page->Click(kExtd);
    Object().Patch(kExtendedId, 24, 4321);
    Camera().AddFault({.nth = 1, .id = kShutterId, .action = kolmsim::SimFaultAction::fail, .code = E_ACCESSDENIED});
    page->Tick();
    EXPECT_EQ(page->Text(kShutterEdit), "4321");
}

TEST_F(ExposurePage, an_exposure_time_that_cannot_be_read_counts_as_0) {
    const auto page = Open();
    Camera().AddFault({.nth = 0, .id = kExtendedId, .action = kolmsim::SimFaultAction::fail, .code = E_ACCESSDENIED});
    page->Pick(kTimeBase, "1000\xB5s");
    EXPECT_EQ(page->Position(kShutterSlider), page->RangeMin(kShutterSlider));
}

TEST_F(ExposurePage, other_timers_are_not_the_pages) {
    SetWord(0, 28, 0x8);
    const auto page = Open();
    ::SendMessageA(page->Dialog(), WM_TIMER, 2, 0);
    EXPECT_EQ(Object().Sent(), Wire{});
}

// ---- Shutter: time base
// -------------------------------------------------------------------------------------------

TEST_F(ExposurePage, shutter_shows_times_through_the_time_base) {
    SetWord(kTimeBaseId, 24, 4);
    const auto page = Open();
    EXPECT_EQ(page->Entries(kTimeBase),
              (std::vector<std::string>{"   1\xB5s", "   2\xB5s", "   5\xB5s", "  10\xB5s", "  20\xB5s", "  50\xB5s",
                                        " 100\xB5s", " 200\xB5s", " 500\xB5s", "1000\xB5s"}));
    EXPECT_EQ(page->Selected(kTimeBase), "  20\xB5s");
    EXPECT_EQ(page->Text(kShutterMin), Number(WordOf(kShutterId, 36) * 20));
    EXPECT_EQ(page->Text(kShutterMax), Number(WordOf(kShutterId, 40) * 20));
    EXPECT_EQ(page->Text(kShutterEdit), Number(WordOf(kShutterId) * 20));
    EXPECT_EQ(page->Position(kShutterSlider), static_cast<LONG>(WordOf(kShutterId)));
    EXPECT_EQ(page->Text(kUnit), "\xB5s");
    EXPECT_FALSE(page->IsChecked(kExtd));
}

TEST_F(ExposurePage, a_time_base_that_cannot_be_read_counts_as_1_us_with_no_selection) {
    Camera().AddFault({.nth = 0, .id = kTimeBaseId, .action = kolmsim::SimFaultAction::fail, .code = E_FAIL});
    const auto page = Open();
    EXPECT_EQ(page->Selected(kTimeBase), "");
    EXPECT_EQ(page->Text(kShutterEdit), Number(WordOf(kShutterId)));
}

TEST_F(ExposurePage, a_time_base_beyond_the_table_selects_nothing_and_never_divides) {
    for (const ULONG index : {10u, 0xFFFFFFFFu}) {
        Renew(L"color");
        SetWord(kTimeBaseId, 24, index);
        const auto page = Open();
        EXPECT_EQ(page->Selected(kTimeBase), "");
        EXPECT_EQ(page->Text(kShutterEdit), Number(WordOf(kShutterId)));
        page->Click(kExtd);
        page->Click(kExtd);
        EXPECT_FALSE(page->IsChecked(kExtd)) << "still alive";
    }
}

TEST_F(ExposurePage, dragging_the_shutter_writes_the_value_alone) {
    const auto page = Open();

    page->Drag(kShutterSlider, 300);

    const CWireRequest change = AnswerOf(Camera(), 0).AsSet().With(24, 300);
    EXPECT_EQ(Object().Sent(), (Wire{Get(kShutterId), change}));
    EXPECT_EQ(page->Text(kShutterEdit), Number(300 * 20));
}

TEST_F(ExposurePage, choosing_a_time_base_keeps_the_exposure_time) {
    SetWord(kTimeBaseId, 24, 0);
    SetWord(kExtendedId, 24, 3000);
    const auto page = Open();
    Object().Patch(kExtendedId, 24, 3000);

    page->Pick(kTimeBase, "1000\xB5s");

    const Wire sent = Object().Sent();
    ASSERT_EQ(sent.size(), 6u);
    EXPECT_EQ(sent[0], Get(kExtendedId));
    EXPECT_EQ(sent[1], Get(kTimeBaseId));
    EXPECT_EQ(sent[2].Word(16), kTimeBaseId);
    EXPECT_EQ(sent[2].Word(20), 2u);
    EXPECT_EQ(sent[2].Word(24), 9u);
    EXPECT_EQ(sent[3], Get(kTimeBaseId));
    EXPECT_EQ(sent[4], Get(kShutterId));
    EXPECT_EQ(sent[5].Word(16), kShutterId);
    EXPECT_EQ(sent[5].Word(24), 3u) << "3000 us in units of 1000 us";
    EXPECT_EQ(page->Text(kShutterEdit), "3000");
    EXPECT_EQ(page->Text(kShutterMax), Number(WordOf(kShutterId, 40) * 1000));
}

TEST_F(ExposurePage, a_time_below_one_unit_writes_the_shutters_minimum) {
    SetWord(kTimeBaseId, 24, 0);
    SetWord(kShutterId, 36, 1);
    const auto page = Open();
    Object().Patch(kExtendedId, 24, 500);

    page->Pick(kTimeBase, "1000\xB5s");

    const Wire sent = Object().Sent();
    ASSERT_EQ(sent.size(), 6u);
    EXPECT_EQ(sent[5].Word(24), 1u);
    EXPECT_EQ(page->Position(kShutterSlider), 1);
}

TEST_F(ExposurePage, the_time_base_that_the_camera_reports_is_shown) {
    const auto page = Open();
    Object().Patch(kTimeBaseId, 24, 2);

    page->Pick(kTimeBase, "1000\xB5s");

    EXPECT_EQ(page->Selected(kTimeBase), "   5\xB5s");
    EXPECT_EQ(page->Text(kShutterMax), Number(WordOf(kShutterId, 40) * 5));
}

// ---- Shutter: extended
// --------------------------------------------------------------------------------------------

TEST_F(ExposurePage, checking_extd_shows_the_extended_shutter) {
    const auto page = Open();

    page->Click(kExtd);

    EXPECT_TRUE(page->IsChecked(kExtd));
    EXPECT_EQ(Object().Sent(), Wire{Get(kExtendedId)}) << "the value's record serves for both limits";
    EXPECT_EQ(page->Text(kShutterMin), Number(WordOf(kExtendedId, 36)));
    EXPECT_EQ(page->Text(kShutterMax), Number(WordOf(kExtendedId, 40)));
    EXPECT_EQ(page->Text(kShutterEdit), Number(WordOf(kExtendedId)));
    EXPECT_EQ(page->Position(kShutterSlider), static_cast<LONG>(WordOf(kExtendedId)));
    EXPECT_FALSE(page->IsEnabled(kTimeBase));
}

TEST_F(ExposurePage, dragging_in_extended_display_writes_the_extended_shutter) {
    const auto page = Open();
    page->Click(kExtd);
    Object().Forget();

    page->Drag(kShutterSlider, 123456);

    const CWireRequest change = AnswerOf(Camera(), 0).AsSet().With(24, 123456);
    EXPECT_EQ(Object().Sent(), (Wire{Get(kExtendedId), change}));
    EXPECT_EQ(page->Text(kShutterEdit), "123456");
}

TEST_F(ExposurePage, polling_in_extended_display_shows_the_extended_shutter) {
    SetWord(kShutterId, 28, 0x8);
    const auto page = Open();
    page->Click(kExtd);
    Object().Forget();
    Object().Patch(kExtendedId, 24, 4321);

    page->Tick();

    EXPECT_EQ(Object().Sent(), (Wire{Get(kShutterId), Get(kExtendedId)}));
    EXPECT_EQ(page->Text(kShutterEdit), "4321");
}

TEST_F(ExposurePage, unchecking_extd_writes_the_time_in_shutter_units) {
    struct Row {
        ULONG timeUs, timeBase, shutterMin, shutterMax, written;
    };
    constexpr Row rows[] = {
        {1000000, 9, 1, 4095, 1000}, {1000000, 0, 1, 4095, 4095}, {1000000, 9, 1, 500, 500}, {5, 9, 3, 4095, 3},
        {600, 1, 1, 4095, 300},      {600, 2, 1, 4095, 120},      {600, 3, 1, 4095, 60},     {600, 4, 1, 4095, 30},
        {600, 5, 1, 4095, 12},       {600, 6, 1, 4095, 6},        {600, 7, 1, 4095, 3},      {1999, 8, 1, 4095, 3},
        {700, 0, 1, 4095, 700},
    };
    for (const Row& row : rows) {
        SCOPED_TRACE(std::to_string(row.timeUs) + " us, time base " + std::to_string(row.timeBase));
        Renew(L"color");
        SetWord(kShutterId, 36, row.shutterMin);
        SetWord(kShutterId, 40, row.shutterMax);
        SetWord(kShutterId, 24, row.shutterMin);
        SetWord(kTimeBaseId, 24, row.timeBase);
        const auto page = Open();
        page->Click(kExtd);
        Object().Forget();
        Object().Patch(kExtendedId, 24, row.timeUs);

        page->Click(kExtd);

        const Wire sent = Object().Sent();
        ASSERT_EQ(sent.size(), 5u);
        EXPECT_EQ(sent[0], Get(kExtendedId));
        EXPECT_EQ(sent[1], Get(kTimeBaseId));
        EXPECT_EQ(sent[2], Get(kShutterId));
        EXPECT_EQ(sent[3].Word(16), kShutterId);
        EXPECT_EQ(sent[3].Word(24), row.written);
        EXPECT_EQ(sent[4], Get(kShutterId));
        EXPECT_EQ(page->Position(kShutterSlider), static_cast<LONG>(WordOf(kShutterId)));
        EXPECT_TRUE(page->IsEnabled(kTimeBase));
    }
}

TEST_F(ExposurePage, extd_starts_unchecked_on_every_activation) {
    const auto page = Open();
    page->Click(kExtd);
    ASSERT_TRUE(page->IsChecked(kExtd));

    page->Reactivate();

    EXPECT_FALSE(page->IsChecked(kExtd));
    EXPECT_EQ(page->Text(kShutterEdit), Number(WordOf(kShutterId) * 20));
    EXPECT_EQ(page->Entries(kTimeBase).size(), 10u);
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

TEST_F(ExposurePage, sliders_and_modes_do_not_make_it_dirty) {
    const auto page = Open();
    page->Drag(1079, 50);
    page->Drag(kShutterSlider, 50);
    page->Pick(1083, "Auto");
    EXPECT_EQ(page->Page()->IsPageDirty(), S_FALSE);
}

// ---- Template
// -----------------------------------------------------------------------------------------------------

TEST_F(ExposurePage, every_control_has_the_right_window_class) {
    const auto page = Open();
    const auto classOf = [&](int id) {
        std::array<char, 64> name{};
        ::GetClassNameA(page->Control(id), name.data(), static_cast<int>(name.size()));
        return std::string(name.data());
    };
    std::vector<GroupRow> rows(std::begin(kGroups), std::end(kGroups));
    rows.push_back(
        {"Shutter", kShutterId, kShutterGroup, kShutterMin, kShutterMax, kShutterSlider, kShutterEdit, kShutterMode});
    for (const GroupRow& row : rows) {
        SCOPED_TRACE(row.caption);
        EXPECT_EQ(classOf(row.group), "Button");
        EXPECT_EQ(classOf(row.min), "Static");
        EXPECT_EQ(classOf(row.max), "Static");
        EXPECT_EQ(classOf(row.slider), TRACKBAR_CLASSA);
        EXPECT_EQ(classOf(row.edit), "Edit");
        EXPECT_NE(::GetWindowLongA(page->Control(row.edit), GWL_STYLE) & ES_READONLY, 0);
        EXPECT_EQ(classOf(row.mode), "ComboBox");
    }
    EXPECT_EQ(classOf(kExtd), "Button");
    EXPECT_EQ(classOf(kTimeBase), "ComboBox");
    EXPECT_EQ(classOf(kUnit), "Static");
}

}  // namespace
}  // namespace kolmfluxor::test
