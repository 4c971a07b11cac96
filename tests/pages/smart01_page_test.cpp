/// @file  Page "Smart feat. 1" in a frame: what it shows, and test images.

#include <string>
#include <utility>
#include <vector>

#include <gmock/gmock.h>

#include "pages/smart01_page_fixture.h"

namespace kolmfluxor::test {
namespace {

// ---- Opening ------------------------------------------------------------------------------------------------------

TEST_F(Smart01Page, shows_each_group_as_the_camera_has_it) {
    const auto page = Open();
    EXPECT_EQ(page->Text(kTestImageGroup), "Test image");
    EXPECT_EQ(page->Text(kTestImageLabel), "Image Nr.");
    for (const GroupRow& row : kGroups) {
        SCOPED_TRACE(row.caption);
        ExpectShows(*page, row);
        EXPECT_EQ(page->Selected(row.mode), "Manual");
        for (const int id : {row.group, row.min, row.max, row.slider, row.edit, row.mode})
            EXPECT_TRUE(page->IsEnabled(id)) << id;
    }
}

TEST_F(Smart01Page, opening_reads_in_order_and_never_writes) {
    const auto page = Open();
    EXPECT_EQ(m_opening,
              (Wire{Get(kTestImageId), Get(kTestImageId), Get(41), Get(41), Get(41), Get(32), Get(32), Get(32)}));
    EXPECT_EQ(page->Page()->IsPageDirty(), S_FALSE);
    EXPECT_TRUE(page->Site().reports.empty());
}

TEST_F(Smart01Page, each_failing_request_of_opening_in_turn) {
    for (int nth = 1; nth <= 8; ++nth) {
        SCOPED_TRACE(nth);
        RenewSwitchedOn();
        SetWord(kTestImageId, 24, 2);
        Object().FailNth(nth, E_ACCESSDENIED);
        const auto page = Open();
        // 1 is the inquiry: the group stays disabled. 2 is the current image: nothing is selected, silently.
        for (const int id : {kTestImageGroup, kTestImageLabel, kTestImages})
            EXPECT_EQ(page->IsEnabled(id), nth != 1) << id;
        EXPECT_EQ(page->Entries(kTestImages).size(), nth == 1 ? 0u : 4u);
        EXPECT_EQ(page->Selected(kTestImages), nth <= 2 ? "" : "Image 2");
        EXPECT_EQ(page->Text(kTestImageLabel), "Image Nr.");
        EXPECT_EQ(page->IsEnabled(1146), nth < 3 || nth > 5);
        EXPECT_EQ(page->IsEnabled(1157), nth < 6);
        if (nth == 1) {
            EXPECT_EQ(m_opening.size(), 7u) << "the current image is not asked for";
        }
    }
}

TEST_F(Smart01Page, a_missing_feature_leaves_its_group_disabled) {
    for (const GroupRow& row : kGroups) {
        RenewSwitchedOn();
        ASSERT_TRUE(Camera().SetFeaturePresent(row.driverId, false));
        const auto page = Open();
        for (const GroupRow& other : kGroups) {
            for (const int id : {other.group, other.slider, other.mode})
                EXPECT_EQ(page->IsEnabled(id), &other != &row) << id;
        }
        EXPECT_TRUE(page->IsEnabled(kTestImageGroup));
    }
}

TEST_F(Smart01Page, is_never_polled) {
    for (const GroupRow& row : kGroups) {
        SetWord(row.driverId, 32, 0x1E);
        SetWord(row.driverId, 28, 0x8);
    }
    const auto page = Open();
    for (const GroupRow& row : kGroups)
        ASSERT_EQ(page->Selected(row.mode), "Auto") << "moves by itself";
    page->Tick();
    EXPECT_EQ(Object().Sent(), Wire{});
}

// ---- Test images --------------------------------------------------------------------------------------------------

TEST_F(Smart01Page, lists_every_number_up_to_the_highest_bit_of_the_mask_gaps_included) {
    constexpr std::pair<ULONG, int> kRows[] = {{0x1, 1},  {0x2, 2},         {0x5, 3},         {0x7, 3},
                                               {0x80, 8}, {0x80000000, 32}, {0x80000001, 32}, {0xFFFFFFFF, 32}};
    for (const auto& [mask, images] : kRows) {
        SCOPED_TRACE(mask);
        RenewSwitchedOn();
        SetWord(kTestImageId, 32, mask);
        const auto page = Open();
        std::vector<std::string> expected = {"Off"};
        for (int n = 1; n <= images; ++n)
            expected.push_back("Image " + std::to_string(n));
        EXPECT_EQ(page->Entries(kTestImages), expected);
        for (std::size_t i = 0; i < expected.size(); ++i)
            EXPECT_EQ(::SendMessageA(page->Control(kTestImages), CB_GETITEMDATA, i, 0), static_cast<LRESULT>(i));
        EXPECT_EQ(page->Selected(kTestImages), "Off");
        for (const int id : {kTestImageGroup, kTestImageLabel, kTestImages})
            EXPECT_TRUE(page->IsEnabled(id)) << id;
    }
}

TEST_F(Smart01Page, without_test_images_the_list_is_empty_and_disabled) {
    SetWord(kTestImageId, 32, 0);
    const auto page = Open();
    EXPECT_EQ(page->Entries(kTestImages), std::vector<std::string>{});
    for (const int id : {kTestImageGroup, kTestImageLabel, kTestImages})
        EXPECT_FALSE(page->IsEnabled(id)) << id;
    EXPECT_EQ(page->Text(kTestImageLabel), "Image Nr.");
    EXPECT_EQ(m_opening[1], Get(41)) << "the current image is not asked for";
}

TEST_F(Smart01Page, an_inquiry_that_answers_a_success_code_other_than_s_ok_counts_as_failed) {
    Object().Patch(kTestImageId, 32, 0x7, S_FALSE);
    const auto page = Open();
    EXPECT_FALSE(page->IsEnabled(kTestImageGroup));
    EXPECT_EQ(page->Entries(kTestImages), std::vector<std::string>{});
}

TEST_F(Smart01Page, a_current_image_that_is_not_listed_selects_nothing) {
    SetWord(kTestImageId, 24, 9);
    const auto page = Open();
    EXPECT_EQ(page->Selected(kTestImages), "");
    EXPECT_TRUE(page->IsEnabled(kTestImages));
}

TEST_F(Smart01Page, choosing_a_test_image_writes_its_number_and_the_pictures_follow) {
    const auto page = Open();
    const auto scene = Picture();
    for (const auto& [entry, number] :
         {std::pair<const char*, ULONG>{"Image 1", 1}, {"Image 3", 3}, {"Image 2", 2}, {"Off", 0}}) {
        page->Pick(kTestImages, entry);
        EXPECT_EQ(Object().Sent(), Wire{Set(kTestImageId).With(24, number)}) << entry;
        EXPECT_EQ(WordOf(kTestImageId), number);
        EXPECT_EQ(Picture() == scene, number == 0);
    }
}

TEST_F(Smart01Page, a_refused_test_image_shows_no_message) {
    SetWord(kTestImageId, 32, 0x5);
    const auto page = Open();
    page->Pick(kTestImages, "Image 2");  // a gap of the mask: the camera refuses it
    EXPECT_EQ(Object().Sent().size(), 1u);
    EXPECT_EQ(page->Selected(kTestImages), "Image 2");
    EXPECT_EQ(WordOf(kTestImageId), 0u);
}

TEST_F(Smart01Page, other_notifications_of_the_list_are_not_the_pages) {
    const auto page = Open();
    for (const UINT code : {UINT{CBN_SELENDOK}, UINT{CBN_DROPDOWN}, UINT{CBN_CLOSEUP}, UINT{CBN_KILLFOCUS}})
        page->Notify(kTestImages, code);
    EXPECT_EQ(Object().Sent(), Wire{});
}

TEST_F(Smart01Page, nothing_makes_it_dirty) {
    const auto page = Open();
    page->Pick(kTestImages, "Image 1");
    Scroll(*page, 1151, TB_THUMBPOSITION, 20);
    page->Pick(1156, "Off");
    EXPECT_EQ(page->Page()->IsPageDirty(), S_FALSE);
    Object().Forget();
    EXPECT_EQ(page->Page()->Apply(), S_OK);
    EXPECT_EQ(Object().Sent(), Wire{});
    EXPECT_TRUE(page->Site().reports.empty());
}

// ---- Template -----------------------------------------------------------------------------------------------------

TEST_F(Smart01Page, every_control_has_the_right_window_class) {
    const auto page = Open();
    for (const GroupRow& row : kGroups) {
        SCOPED_TRACE(row.caption);
        ExpectClasses(*page, row);
    }
    EXPECT_EQ(ClassOf(*page, kTestImageGroup), "Button");
    EXPECT_EQ(ClassOf(*page, kTestImageLabel), "Static");
    EXPECT_EQ(ClassOf(*page, kTestImages), "ComboBox");
    EXPECT_EQ(::GetWindowLongA(page->Control(kTestImages), GWL_STYLE) & CBS_SORT, 0) << "by number, not by text";
}

}  // namespace
}  // namespace kolmfluxor::test
