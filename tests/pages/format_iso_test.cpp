/// @file  Page "Format": isochronous speed and channel.

#include <gmock/gmock.h>

#include "pages/format_page_fixture.h"

namespace kolmfluxor::test {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

// ---- Speed --------------------------------------------------------------------------------------------------------

TEST_F(FormatPage, speeds_run_from_the_lowest_to_the_highest) {
    Object().Patch(kSpeedId, 36, 1);
    Object().Patch(kSpeedId, 40, 3);
    Object().Patch(kSpeedId, 24, 2);
    const auto page = Open();
    EXPECT_THAT(page->Entries(kSpeed), ElementsAre("S200", "S400", "S800"));
    EXPECT_EQ(page->Selected(kSpeed), "S400");
    EXPECT_EQ(::SendMessageA(page->Control(kSpeed), CB_GETITEMDATA, 0, 0), 1);
}

TEST_F(FormatPage, a_speed_outside_of_the_range_selects_nothing) {
    Object().Patch(kSpeedId, 36, 0);
    Object().Patch(kSpeedId, 40, 2);
    Object().Patch(kSpeedId, 24, 3);
    const auto page = Open();
    EXPECT_EQ(page->Entries(kSpeed).size(), 3u);
    EXPECT_EQ(page->Selected(kSpeed), "");
}

TEST_F(FormatPage, hostile_speed_ranges_end) {
    struct Row {
        ULONG min, max;
        std::size_t entries;
    };
    for (const auto& [min, max, entries] :
         {Row{0, 0xFFFFFFFF, 6}, {5, 0xFFFFFFFF, 1}, {6, 0xFFFFFFFF, 0}, {0xFFFFFFFF, 0xFFFFFFFF, 0}, {3, 1, 0}}) {
        RenewCamera();
        Object().Patch(kSpeedId, 36, min);
        Object().Patch(kSpeedId, 40, max);
        const auto page = Open();
        EXPECT_EQ(page->Entries(kSpeed).size(), entries) << min << " to " << max;
        EXPECT_EQ(page->Entries(kMode).size(), 4u) << "the rest of the page works";
    }
}

TEST_F(FormatPage, a_speed_that_cannot_be_read_leaves_the_list_empty) {
    for (const int nth : {1, 2}) {
        Camera().AddFault({.nth = nth, .id = kSpeedId, .action = kolmsim::SimFaultAction::fail, .code = E_FAIL});
        const auto page = Open();
        EXPECT_THAT(page->Entries(kSpeed), IsEmpty());
        EXPECT_EQ(std::ranges::count(m_opening, Get(kSpeedId)), nth) << "the first failure stops";
        EXPECT_FALSE(page->Entries(kChannel).empty());
    }
}

TEST_F(FormatPage, choosing_a_speed_sets_it_at_once_and_marks_nothing) {
    const auto page = Open();

    page->Pick(kSpeed, "S200");

    EXPECT_EQ(Object().Sent(), (Wire{Set(kSpeedId).With(24, 1)}));
    EXPECT_EQ(page->Selected(kSpeed), "S200");
    EXPECT_EQ(page->Page()->IsPageDirty(), S_FALSE);
}

TEST_F(FormatPage, a_refused_speed_is_read_back) {
    const auto page = Open();
    const std::string before = page->Selected(kSpeed);
    ASSERT_NE(before, "S100");
    for (const HRESULT code : {E_FAIL, S_FALSE}) {
        Camera().AddFault({.nth = 1,
                           .id = kSpeedId,
                           .flags = 2,
                           .action = code == E_FAIL ? kolmsim::SimFaultAction::fail : kolmsim::SimFaultAction::answer,
                           .code = code});
        page->Pick(kSpeed, "S100");
        EXPECT_EQ(Object().Sent(), (Wire{Set(kSpeedId), Get(kSpeedId)}));
        EXPECT_EQ(page->Selected(kSpeed), before);
    }
}

TEST_F(FormatPage, a_refused_speed_that_cannot_be_read_back_stays_chosen) {
    const auto page = Open();
    Camera().AddFault({.nth = 0, .id = kSpeedId, .action = kolmsim::SimFaultAction::fail, .code = E_FAIL});
    page->Pick(kSpeed, "S100");
    EXPECT_EQ(page->Selected(kSpeed), "S100");
}

// ---- Channel ------------------------------------------------------------------------------------------------------

TEST_F(FormatPage, channels_follow_auto) {
    Object().Patch(kChannelId, 36, 2);
    Object().Patch(kChannelId, 40, 4);
    Object().Patch(kChannelId, 24, 3);
    const auto page = Open();
    EXPECT_THAT(page->Entries(kChannel), ElementsAre("Auto", "ch 2", "ch 3", "ch 4"));
    EXPECT_EQ(::SendMessageA(page->Control(kChannel), CB_GETITEMDATA, 1, 0), 2);
    EXPECT_EQ(static_cast<LONG>(::SendMessageA(page->Control(kChannel), CB_GETITEMDATA, 0, 0)), -1);
}

TEST_F(FormatPage, the_current_channel_is_selected_unless_the_feature_is_in_auto) {
    struct Row {
        ULONG mode;
        const char* selected;
    };
    for (const auto& [mode, selected] : {Row{0x2, "ch 3"}, {0x8, "Auto"}}) {  // mode bits: Manual, Auto
        RenewCamera();
        Object().Patch(kChannelId, 36, 0);
        Object().Patch(kChannelId, 40, 7);
        Object().Patch(kChannelId, 24, 3);
        Object().Patch(kChannelId, 28, mode);
        const auto page = Open();
        EXPECT_EQ(page->Selected(kChannel), selected);
    }
}

TEST_F(FormatPage, a_channel_outside_of_the_range_selects_auto) {
    Object().Patch(kChannelId, 24, 64);
    const auto page = Open();
    EXPECT_EQ(page->Selected(kChannel), "Auto");
}

TEST_F(FormatPage, hostile_channel_ranges_end) {
    struct Row {
        ULONG min, max;
        std::size_t entries;  ///< with "Auto"
        const char* last;
    };
    for (const auto& [min, max, entries, last] : {Row{0, 0xFFFFFFFF, 65, "ch 63"},
                                                  {0xFFFFFFFE, 0xFFFFFFFF, 3, "ch -1"},
                                                  {5, 4, 1, "Auto"},
                                                  {9, 9, 2, "ch 9"}}) {
        RenewCamera();
        Object().Patch(kChannelId, 36, min);
        Object().Patch(kChannelId, 40, max);
        const auto page = Open();
        ASSERT_EQ(page->Entries(kChannel).size(), entries) << min << " to " << max;
        EXPECT_EQ(page->Entries(kChannel).back(), last);
    }
}

TEST_F(FormatPage, a_channel_that_cannot_be_read_leaves_the_list_empty) {
    // Presence and range come with one request, mode and value with one each.
    for (const int nth : {1, 2, 3}) {
        RenewCamera();
        Camera().AddFault({.nth = nth, .id = kChannelId, .action = kolmsim::SimFaultAction::fail, .code = E_FAIL});
        const auto page = Open();
        EXPECT_THAT(page->Entries(kChannel), IsEmpty()) << nth;
        EXPECT_EQ(page->Entries(kMode).size(), 4u);
    }
}

TEST_F(FormatPage, a_channel_that_the_driver_lacks_leaves_the_list_empty) {
    EXPECT_TRUE(Camera().SetFeaturePresent(kChannelId, false));
    const auto page = Open();
    EXPECT_THAT(page->Entries(kChannel), IsEmpty());
}

TEST_F(FormatPage, choosing_a_channel_sets_it_at_once_and_marks_nothing) {
    const auto page = Open();

    page->Pick(kChannel, "ch 5");

    const Wire sent = Object().Sent();
    ASSERT_EQ(sent.size(), 2u);
    EXPECT_EQ(sent[0], Get(kChannelId)) << "the record that is sent back with another value";
    EXPECT_EQ(sent[1].Word(20), 2u) << "a SET";
    EXPECT_EQ(sent[1].Word(24), 5u);
    EXPECT_EQ(page->Page()->IsPageDirty(), S_FALSE);
}

TEST_F(FormatPage, a_refused_auto_selects_the_current_channel) {
    const auto page = Open();
    page->Pick(kChannel, "ch 5");
    Object().Forget();

    page->Pick(kChannel, "Auto");

    EXPECT_EQ(Object().Sent(), (Wire{Get(kChannelId), Get(kChannelId)}))
        << "a value out of range is refused before it is sent";
    EXPECT_EQ(page->Selected(kChannel), "ch 5");
}

TEST_F(FormatPage, lists_that_fail_raise_nothing_to_the_user) {
    const auto page = Open();
    for (const int combo : {kSpeed, kChannel}) {
        ::SendMessageA(page->Control(combo), CB_SETCURSEL, static_cast<WPARAM>(-1), 0);
        page->Notify(combo, CBN_SELCHANGE);
    }
    EXPECT_EQ(Object().Sent(), Wire{}) << "nothing was chosen";
    EXPECT_EQ(page->Page()->IsPageDirty(), S_FALSE);
}

}  // namespace
}  // namespace kolmfluxor::test
