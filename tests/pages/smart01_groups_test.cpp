/// @file  Page "Smart feat. 1" in a frame: feature groups, which write when a drag ends, and their modes.

#include <string>
#include <vector>

#include <gmock/gmock.h>

#include "pages/smart01_page_fixture.h"

namespace kolmfluxor::test {
namespace {

class Smart01Groups : public Smart01Page {};

// ---- Sliders ------------------------------------------------------------------------------------------------------

TEST_F(Smart01Groups, dragging_changes_the_edit_only_and_the_release_writes_once) {
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

TEST_F(Smart01Groups, a_drag_with_the_mouse_writes_once) {
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

TEST_F(Smart01Groups, every_other_way_to_move_writes_and_polls) {
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

TEST_F(Smart01Groups, the_end_of_a_drag_without_a_position_writes) {
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

TEST_F(Smart01Groups, a_position_and_an_end_without_a_drag_write_each) {
    const auto page = Open();
    Scroll(*page, 1151, TB_THUMBPOSITION, 20);
    EXPECT_EQ(Object().Sent(), Written(41, 20));
    Scroll(*page, 1151, TB_ENDTRACK, 20);
    EXPECT_EQ(Object().Sent(), Written(41, 20));
}

TEST_F(Smart01Groups, a_key_pressed_during_a_drag_ends_it) {
    const auto page = Open();
    Scroll(*page, 1151, TB_THUMBTRACK, 20);
    EXPECT_EQ(Object().Sent(), Wire{});
    Scroll(*page, 1151, TB_LINEDOWN, 21);
    EXPECT_EQ(Object().Sent(), Written(41, 21));
    Scroll(*page, 1151, TB_ENDTRACK, 21);
    EXPECT_EQ(Object().Sent(), Written(41, 21)) << "the key's own end";
}

TEST_F(Smart01Groups, each_drag_on_a_page_writes_once) {
    const auto page = Open();
    for (const LONG position : {20, 40, 60}) {
        Scroll(*page, 1151, TB_THUMBTRACK, position);
        Scroll(*page, 1151, TB_THUMBPOSITION, position + 1);
        Scroll(*page, 1151, TB_ENDTRACK, position + 1);
        Scroll(*page, 1151, TB_ENDTRACK, position + 1);
        EXPECT_EQ(Object().Sent(), Written(41, position + 1));
    }
}

TEST_F(Smart01Groups, the_poll_after_a_write_shows_what_the_camera_made_of_it) {
    const auto page = Open();
    Object().Patch(41, 24, 77);
    Object().Patch(41, 28, kOff);
    Scroll(*page, 1151, TB_THUMBPOSITION, 20);
    EXPECT_EQ(page->Text(1149), "77");
    EXPECT_EQ(page->Position(1151), 77);
    EXPECT_EQ(page->Selected(1150), "Off");
    EXPECT_FALSE(page->IsEnabled(1151));
}

TEST_F(Smart01Groups, a_refused_write_is_polled_too_and_shows_the_cameras_value) {
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

TEST_F(Smart01Groups, a_failing_poll_leaves_what_the_read_back_showed) {
    const auto page = Open();
    Object().FailNth(3, E_ACCESSDENIED);
    Scroll(*page, 1151, TB_THUMBPOSITION, 99);
    EXPECT_EQ(Object().Sent().size(), 3u);
    EXPECT_EQ(page->Text(1149), "99");
}

// ---- Modes --------------------------------------------------------------------------------------------------------

TEST_F(Smart01Groups, choosing_a_mode_writes_it_and_polls) {
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

TEST_F(Smart01Groups, a_mode_that_is_a_command_shows_manual_once_the_camera_has_carried_it_out) {
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

TEST_F(Smart01Groups, the_pictures_follow_the_dsnu_correction) {
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

TEST_F(Smart01Groups, the_pictures_follow_high_snr) {
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

}  // namespace
}  // namespace kolmfluxor::test
