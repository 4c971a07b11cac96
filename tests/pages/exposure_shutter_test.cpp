/// @file  The shutter of page "Exposure": times, time base, extended display.

#include <string>
#include <vector>

#include "pages/exposure_page_fixture.h"

namespace kolmfluxor::test {
namespace {

using ExposureShutter = ExposurePage;

TEST_F(ExposureShutter, choosing_a_shutter_mode_leaves_the_value) {
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

TEST_F(ExposureShutter, shutter_controls_follow_its_mode_and_presence_at_opening) {
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

TEST_F(ExposureShutter, the_time_base_stays_closed_in_extended_display) {
    const auto page = Open();
    page->Click(kExtd);
    page->Pick(kShutterMode, "Auto");
    page->Pick(kShutterMode, "Manual");
    EXPECT_TRUE(page->IsEnabled(kShutterSlider));
    EXPECT_FALSE(page->IsEnabled(kTimeBase));
}

TEST_F(ExposureShutter, in_extended_display_the_second_reading_of_a_poll_counts_alone) {
    SetWord(kShutterId, 28, 0x8);
    const auto page = Open();
    page->Click(kExtd);
    Object().Patch(kExtendedId, 24, 4321);
    Camera().AddFault({.nth = 1, .id = kShutterId, .action = kolmsim::SimFaultAction::fail, .code = E_ACCESSDENIED});
    page->Tick();
    EXPECT_EQ(page->Text(kShutterEdit), "4321");
}

TEST_F(ExposureShutter, an_exposure_time_that_cannot_be_read_counts_as_0) {
    const auto page = Open();
    Camera().AddFault({.nth = 0, .id = kExtendedId, .action = kolmsim::SimFaultAction::fail, .code = E_ACCESSDENIED});
    page->Pick(kTimeBase, "1000\xB5s");
    EXPECT_EQ(page->Position(kShutterSlider), page->RangeMin(kShutterSlider));
}

// ---- Shutter: time base
// -------------------------------------------------------------------------------------------

TEST_F(ExposureShutter, shutter_shows_times_through_the_time_base) {
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

TEST_F(ExposureShutter, a_time_base_that_cannot_be_read_counts_as_1_us_with_no_selection) {
    Camera().AddFault({.nth = 0, .id = kTimeBaseId, .action = kolmsim::SimFaultAction::fail, .code = E_FAIL});
    const auto page = Open();
    EXPECT_EQ(page->Selected(kTimeBase), "");
    EXPECT_EQ(page->Text(kShutterEdit), Number(WordOf(kShutterId)));
}

TEST_F(ExposureShutter, a_time_base_beyond_the_table_selects_nothing_and_never_divides) {
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

TEST_F(ExposureShutter, dragging_the_shutter_writes_the_value_alone) {
    const auto page = Open();

    page->Drag(kShutterSlider, 300);

    const CWireRequest change = AnswerOf(Camera(), 0).AsSet().With(24, 300);
    EXPECT_EQ(Object().Sent(), (Wire{Get(kShutterId), change}));
    EXPECT_EQ(page->Text(kShutterEdit), Number(300 * 20));
}

TEST_F(ExposureShutter, choosing_a_time_base_keeps_the_exposure_time) {
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

TEST_F(ExposureShutter, a_time_below_one_unit_writes_the_shutters_minimum) {
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

TEST_F(ExposureShutter, the_time_base_that_the_camera_reports_is_shown) {
    const auto page = Open();
    Object().Patch(kTimeBaseId, 24, 2);

    page->Pick(kTimeBase, "1000\xB5s");

    EXPECT_EQ(page->Selected(kTimeBase), "   5\xB5s");
    EXPECT_EQ(page->Text(kShutterMax), Number(WordOf(kShutterId, 40) * 5));
}

// ---- Shutter: extended
// --------------------------------------------------------------------------------------------

TEST_F(ExposureShutter, checking_extd_shows_the_extended_shutter) {
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

TEST_F(ExposureShutter, dragging_in_extended_display_writes_the_extended_shutter) {
    const auto page = Open();
    page->Click(kExtd);
    Object().Forget();

    page->Drag(kShutterSlider, 123456);

    const CWireRequest change = AnswerOf(Camera(), 0).AsSet().With(24, 123456);
    EXPECT_EQ(Object().Sent(), (Wire{Get(kExtendedId), change}));
    EXPECT_EQ(page->Text(kShutterEdit), "123456");
}

TEST_F(ExposureShutter, polling_in_extended_display_shows_the_extended_shutter) {
    SetWord(kShutterId, 28, 0x8);
    const auto page = Open();
    page->Click(kExtd);
    Object().Forget();
    Object().Patch(kExtendedId, 24, 4321);

    page->Tick();

    EXPECT_EQ(Object().Sent(), (Wire{Get(kShutterId), Get(kExtendedId)}));
    EXPECT_EQ(page->Text(kShutterEdit), "4321");
}

TEST_F(ExposureShutter, unchecking_extd_writes_the_time_in_shutter_units) {
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

TEST_F(ExposureShutter, extd_starts_unchecked_on_every_activation) {
    const auto page = Open();
    page->Click(kExtd);
    ASSERT_TRUE(page->IsChecked(kExtd));

    page->Reactivate();

    EXPECT_FALSE(page->IsChecked(kExtd));
    EXPECT_EQ(page->Text(kShutterEdit), Number(WordOf(kShutterId) * 20));
    EXPECT_EQ(page->Entries(kTimeBase).size(), 10u);
}

}  // namespace
}  // namespace kolmfluxor::test
