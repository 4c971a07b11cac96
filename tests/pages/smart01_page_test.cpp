/// @file  Page "Smart feat. 1" in a frame: test images, and feature groups that write when a drag ends.

#include <memory>
#include <string>
#include <utility>
#include <vector>

#include <gmock/gmock.h>

#include <windows.h>

#include <commctrl.h>

#include "pages/camera_page.h"

namespace kolmfluxor::test {
namespace {

constexpr int kTestImageGroup = 1134;
constexpr int kTestImageLabel = 1135;
constexpr int kTestImages = 1136;
constexpr ULONG kTestImageId = 3;

const GroupRow kGroups[] = {
    {"High snr", 41, 1146, 1147, 1148, 1151, 1149, 1150},
    {"DSNU correction", 32, 1157, 1153, 1155, 1152, 1154, 1156},
};
constexpr ULONG kManual = 0x2;
constexpr ULONG kOff = 0x4;

/// A color camera and its page; High snr is switched on, so that its slider can be moved.
class Smart01Page : public CameraPage {
protected:
    Smart01Page() { SetWord(41, 28, kManual); }

    std::unique_ptr<CPageHost> Open() { return OpenPage(CLSID_KolmFluxorPage_Smart01); }
    void RenewSwitchedOn() {
        Renew(L"color");
        SetWord(41, 28, kManual);
    }
    /// Moves a trackbar and reports it in one way of many.
    static void Scroll(const CPageHost& page, int slider, UINT code, LONG position) {
        ::SendMessageA(page.Control(slider), TBM_SETPOS, TRUE, position);
        ::SendMessageA(page.Dialog(), WM_HSCROLL, MAKEWPARAM(code, code == TB_THUMBTRACK ? position : 0),
                       reinterpret_cast<LPARAM>(page.Control(slider)));
    }
    /// One write, its read-back, and the poll after it.
    static Wire Written(ULONG id, LONG value, ULONG mode = kManual) {
        return {Set(id).With(24, static_cast<std::uint32_t>(value)).With(28, mode), Get(id), Get(id)};
    }
};

// ---- Opening ------------------------------------------------------------------------------------------------------

TEST_F(Smart01Page, shows_each_group_as_the_camera_has_it) {
    const auto page = Open();
    EXPECT_EQ(page->Text(kTestImageGroup), "Test image");
    EXPECT_EQ(page->Text(kTestImageLabel), "Image Nr.");
    for (const GroupRow& row : kGroups) {
        SCOPED_TRACE(row.caption);
        EXPECT_EQ(page->Text(row.group), row.caption);
        EXPECT_EQ(page->Text(row.min), Number(WordOf(row.driverId, 36)));
        EXPECT_EQ(page->Text(row.max), Number(WordOf(row.driverId, 40)));
        EXPECT_EQ(page->Text(row.edit), Number(WordOf(row.driverId)));
        EXPECT_EQ(page->Position(row.slider), static_cast<LONG>(WordOf(row.driverId)));
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

// ---- Sliders ------------------------------------------------------------------------------------------------------

TEST_F(Smart01Page, dragging_changes_the_edit_only_and_the_release_writes_once) {
    for (const GroupRow& row : kGroups) {
        SCOPED_TRACE(row.caption);
        const auto page = Open();
        for (const LONG position : {10, 20, 30}) {
            Scroll(*page, row.slider, TB_THUMBTRACK, position);
            EXPECT_EQ(page->Text(row.edit), std::to_string(position));
            EXPECT_EQ(Object().Sent(), Wire{}) << position;
        }
        Scroll(*page, row.slider, TB_THUMBPOSITION, 31);
        EXPECT_EQ(page->Text(row.edit), "31");
        EXPECT_EQ(Object().Sent(), Written(row.driverId, 31));
        Scroll(*page, row.slider, TB_ENDTRACK, 31);
        EXPECT_EQ(Object().Sent(), Wire{}) << "the same release";
        EXPECT_EQ(WordOf(row.driverId), 31u);
    }
}

TEST_F(Smart01Page, a_drag_with_the_mouse_writes_once) {
    for (const GroupRow& row : kGroups) {
        SCOPED_TRACE(row.caption);
        const auto page = Open();
        HWND const slider = page->Control(row.slider);
        RECT thumb{};
        ::SendMessageA(slider, TBM_GETTHUMBRECT, 0, reinterpret_cast<LPARAM>(&thumb));
        const LONG x = (thumb.left + thumb.right) / 2;
        const LONG y = (thumb.top + thumb.bottom) / 2;
        ::SendMessageA(slider, WM_LBUTTONDOWN, MK_LBUTTON, MAKELPARAM(x, y));
        for (const LONG distance : {20, 40, 60})
            ::SendMessageA(slider, WM_MOUSEMOVE, MK_LBUTTON, MAKELPARAM(x + distance, y));
        EXPECT_EQ(Object().Sent(), Wire{});
        const LONG dragged = page->Position(row.slider);
        EXPECT_NE(dragged, static_cast<LONG>(WordOf(row.driverId)));
        EXPECT_EQ(page->Text(row.edit), std::to_string(dragged));

        ::SendMessageA(slider, WM_LBUTTONUP, 0, MAKELPARAM(x + 60, y));

        EXPECT_EQ(Object().Sent(), Written(row.driverId, page->Position(row.slider)));
    }
}

TEST_F(Smart01Page, every_other_way_to_move_writes_and_polls) {
    for (const GroupRow& row : kGroups) {
        for (const UINT code : {UINT{TB_LINEUP}, UINT{TB_LINEDOWN}, UINT{TB_PAGEUP}, UINT{TB_PAGEDOWN},
                                UINT{TB_THUMBPOSITION}, UINT{TB_TOP}, UINT{TB_BOTTOM}, UINT{TB_ENDTRACK}}) {
            SCOPED_TRACE(testing::Message() << row.caption << ", code " << code);
            RenewSwitchedOn();
            const auto page = Open();
            const LONG position = 40 + static_cast<LONG>(code);
            Scroll(*page, row.slider, code, position);
            EXPECT_EQ(Object().Sent(), Written(row.driverId, position));
            EXPECT_EQ(page->Text(row.edit), std::to_string(position));
        }
    }
}

TEST_F(Smart01Page, the_end_of_a_drag_without_a_position_writes) {
    const auto page = Open();
    Scroll(*page, 1151, TB_THUMBTRACK, 20);
    Scroll(*page, 1151, TB_ENDTRACK, 20);
    EXPECT_EQ(Object().Sent(), Written(41, 20));
    Scroll(*page, 1151, TB_ENDTRACK, 20);
    EXPECT_EQ(Object().Sent(), Wire{}) << "its end is told twice";
    page->Reactivate();
    Object().Forget();
    Scroll(*page, 1151, TB_ENDTRACK, 20);
    EXPECT_EQ(Object().Sent(), Wire{}) << "nothing has moved since";
    Scroll(*page, 1151, TB_LINEUP, 19);
    Scroll(*page, 1151, TB_ENDTRACK, 19);
    EXPECT_EQ(Object().Sent().size(), 6u) << "a key is no drag";
}

TEST_F(Smart01Page, a_position_and_an_end_without_a_drag_write_each) {
    const auto page = Open();
    Scroll(*page, 1151, TB_THUMBPOSITION, 20);
    EXPECT_EQ(Object().Sent(), Written(41, 20));
    Scroll(*page, 1151, TB_ENDTRACK, 20);
    EXPECT_EQ(Object().Sent(), Written(41, 20));
}

TEST_F(Smart01Page, a_key_pressed_during_a_drag_ends_it) {
    const auto page = Open();
    Scroll(*page, 1151, TB_THUMBTRACK, 20);
    EXPECT_EQ(Object().Sent(), Wire{});
    Scroll(*page, 1151, TB_LINEDOWN, 21);
    EXPECT_EQ(Object().Sent(), Written(41, 21));
    Scroll(*page, 1151, TB_ENDTRACK, 21);
    EXPECT_EQ(Object().Sent(), Written(41, 21)) << "the key's own end";
}

TEST_F(Smart01Page, each_drag_on_a_page_writes_once) {
    const auto page = Open();
    for (const LONG position : {20, 40, 60}) {
        Scroll(*page, 1151, TB_THUMBTRACK, position);
        Scroll(*page, 1151, TB_THUMBPOSITION, position + 1);
        Scroll(*page, 1151, TB_ENDTRACK, position + 1);
        Scroll(*page, 1151, TB_ENDTRACK, position + 1);
        EXPECT_EQ(Object().Sent(), Written(41, position + 1));
    }
}

TEST_F(Smart01Page, the_poll_after_a_write_shows_what_the_camera_made_of_it) {
    const auto page = Open();
    Object().Patch(41, 24, 77);
    Object().Patch(41, 28, kOff);
    Scroll(*page, 1151, TB_THUMBPOSITION, 20);
    EXPECT_EQ(page->Text(1149), "77");
    EXPECT_EQ(page->Position(1151), 77);
    EXPECT_EQ(page->Selected(1150), "Off");
    EXPECT_FALSE(page->IsEnabled(1151));
}

TEST_F(Smart01Page, a_refused_write_is_polled_too_and_shows_the_cameras_value) {
    for (const GroupRow& row : kGroups) {
        const auto page = Open();
        const ULONG before = WordOf(row.driverId);
        Object().FailNth(1, E_ACCESSDENIED);
        Scroll(*page, row.slider, TB_THUMBPOSITION, 99);
        const Wire sent = Object().Sent();
        ASSERT_EQ(sent.size(), 2u);
        EXPECT_EQ(sent[1], Get(row.driverId));
        EXPECT_EQ(page->Text(row.edit), Number(before));
    }
}

TEST_F(Smart01Page, a_failing_poll_leaves_what_the_read_back_showed) {
    const auto page = Open();
    Object().FailNth(3, E_ACCESSDENIED);
    Scroll(*page, 1151, TB_THUMBPOSITION, 99);
    EXPECT_EQ(Object().Sent().size(), 3u);
    EXPECT_EQ(page->Text(1149), "99");
}

// ---- Modes --------------------------------------------------------------------------------------------------------

TEST_F(Smart01Page, choosing_a_mode_writes_it_and_polls) {
    for (const GroupRow& row : kGroups) {
        SCOPED_TRACE(row.caption);
        const auto page = Open();
        const auto value = static_cast<LONG>(WordOf(row.driverId));
        page->Pick(row.mode, "Off");
        EXPECT_EQ(Object().Sent(), Written(row.driverId, value, kOff));
        EXPECT_FALSE(page->IsEnabled(row.slider));
        page->Pick(row.mode, "Manual");
        EXPECT_EQ(Object().Sent(), Written(row.driverId, value, kManual));
        EXPECT_TRUE(page->IsEnabled(row.slider));
    }
}

TEST_F(Smart01Page, a_mode_that_is_a_command_shows_manual_once_the_camera_has_carried_it_out) {
    const auto page = Open();
    EXPECT_EQ(page->Entries(1156), (std::vector<std::string>{"Off", "Manual", "ShowImage", "LoadData", "ClearData"}));
    for (const char* command : {"LoadData", "ClearData"}) {
        page->Pick(1156, command);
        EXPECT_EQ(Object().Sent().size(), 3u);
        EXPECT_EQ(page->Selected(1156), "Manual") << command;
        EXPECT_TRUE(page->IsEnabled(1152));
    }
    page->Pick(1156, "ShowImage");
    EXPECT_EQ(page->Selected(1156), "ShowImage");
}

TEST_F(Smart01Page, the_pictures_follow_the_dsnu_correction) {
    const auto page = Open();
    const auto corrected = Picture();
    page->Pick(1156, "Off");
    const auto raw = Picture();
    EXPECT_NE(raw, corrected);
    page->Pick(1156, "ShowImage");
    EXPECT_NE(Picture(), corrected);
    EXPECT_NE(Picture(), raw);
    page->Pick(1156, "ClearData");
    EXPECT_EQ(Picture(), raw) << "on, but without data";
    page->Pick(1156, "LoadData");
    EXPECT_EQ(Picture(), corrected);
}

TEST_F(Smart01Page, the_pictures_follow_high_snr) {
    SetWord(0, 24, 255);  // a high gain, so that there is noise
    SetWord(5, 24, 100);
    SetWord(41, 28, kOff);
    const auto page = Open();
    const auto noisy = Picture();
    page->Pick(1150, "Manual");
    const auto averaged = Picture();
    EXPECT_NE(averaged, noisy);
    Scroll(*page, 1151, TB_THUMBPOSITION, 256);
    EXPECT_NE(Picture(), averaged);
    page->Pick(1150, "Off");
    EXPECT_EQ(Picture(), noisy);
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
        EXPECT_EQ(ClassOf(*page, row.group), "Button");
        EXPECT_EQ(ClassOf(*page, row.min), "Static");
        EXPECT_EQ(ClassOf(*page, row.max), "Static");
        EXPECT_EQ(ClassOf(*page, row.slider), TRACKBAR_CLASSA);
        EXPECT_EQ(ClassOf(*page, row.edit), "Edit");
        EXPECT_NE(::GetWindowLongA(page->Control(row.edit), GWL_STYLE) & ES_READONLY, 0);
        EXPECT_EQ(ClassOf(*page, row.mode), "ComboBox");
    }
    EXPECT_EQ(ClassOf(*page, kTestImageGroup), "Button");
    EXPECT_EQ(ClassOf(*page, kTestImageLabel), "Static");
    EXPECT_EQ(ClassOf(*page, kTestImages), "ComboBox");
    EXPECT_EQ(::GetWindowLongA(page->Control(kTestImages), GWL_STYLE) & CBS_SORT, 0) << "by number, not by text";
}

}  // namespace
}  // namespace kolmfluxor::test
