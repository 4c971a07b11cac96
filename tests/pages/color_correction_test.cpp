/// @file  The color correction of page "Color" in a frame: what is shown, what typing writes.

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

constexpr int kMirrored = 1060;                  // row 1, column 2
constexpr ULONG kMirroredRegister = 0xF10003B0;  // shown at row 2, column 1

class ColorMatrix : public ColorPage {};

// ---- Opening ------------------------------------------------------------------------------------------------------

TEST_F(ColorMatrix, shows_the_matrix_row_by_row_with_signs) {
    for (const CoefficientRow& row : kCoefficients)
        ASSERT_TRUE(Camera().PokeRegister(row.shows, static_cast<std::uint32_t>(10 * row.row + row.column - 22)));
    const auto page = Open();
    EXPECT_EQ(page->Text(kMatrixGroup), "Color correction");
    EXPECT_TRUE(page->IsEnabled(kMatrixGroup));
    EXPECT_TRUE(page->IsEnabled(kMatrixMode));
    EXPECT_EQ(page->Entries(kMatrixMode), (std::vector<std::string>{"Manual", "Off", "Reset"}));
    ExpectMatrixEnabled(*page, true);
    for (const CoefficientRow& row : kCoefficients)
        EXPECT_EQ(page->Text(row.edit), std::to_string(10 * row.row + row.column - 22)) << row.edit;
}

TEST_F(ColorMatrix, the_arrows_go_from_minus_1000_to_2000) {
    const auto page = Open();
    for (const CoefficientRow& row : kCoefficients) {
        int low = 0;
        int high = 0;
        ::SendMessageA(page->Control(row.upDown), UDM_GETRANGE32, reinterpret_cast<WPARAM>(&low),
                       reinterpret_cast<LPARAM>(&high));
        EXPECT_EQ(low, -1000);
        EXPECT_EQ(high, 2000);
    }
}

TEST_F(ColorMatrix, the_switch_shows_manual_when_the_correction_is_on_and_off_in_any_other_mode) {
    for (const auto& [mode, shown] :
         {std::pair<ULONG, const char*>{0x2, "Manual"}, {0x4, "Off"}, {0x8, "Off"}, {0x20, "Off"}}) {
        SetWord(kMatrixId, 28, mode);
        const auto page = Open();
        EXPECT_EQ(page->Selected(kMatrixMode), shown) << mode;
        ExpectMatrixEnabled(*page, true);
    }
}

TEST_F(ColorMatrix, a_camera_without_color_correction_leaves_the_group_disabled_with_its_three_entries) {
    ASSERT_TRUE(Camera().SetFeaturePresent(kMatrixId, false));
    const auto page = Open();
    EXPECT_EQ(page->Text(kMatrixGroup), "Color correction");
    EXPECT_FALSE(page->IsEnabled(kMatrixGroup));
    EXPECT_FALSE(page->IsEnabled(kMatrixMode));
    EXPECT_EQ(page->Entries(kMatrixMode), (std::vector<std::string>{"Manual", "Off", "Reset"}));
    EXPECT_EQ(page->Selected(kMatrixMode), "");
    ExpectMatrixEnabled(*page, false);
    ASSERT_FALSE(m_opening.empty());
    EXPECT_EQ(m_opening[0], Get(kMatrixId));
    EXPECT_EQ(m_opening[1], Get(1)) << "nothing more is asked of the color correction";
    EXPECT_TRUE(page->IsEnabled(1094)) << "the others are there";
}

TEST_F(ColorMatrix, each_request_of_the_matrix_failing_in_turn) {
    for (int nth = 1; nth <= 11; ++nth) {
        SCOPED_TRACE(nth);
        Renew(L"color");
        SetWord(kMatrixId, 28, 0x2);
        Object().FailNth(nth, E_ACCESSDENIED);
        const auto page = Open();
        EXPECT_EQ(page->IsEnabled(kMatrixGroup), nth != 1) << "1: presence";
        EXPECT_EQ(page->IsEnabled(kMatrixMode), nth != 1);
        EXPECT_EQ(page->Selected(kMatrixMode), nth == 1 ? "" : nth == 2 ? "Off" : "Manual") << "2: switch";
        ExpectMatrixEnabled(*page, nth != 1 && nth != 3);
        for (const CoefficientRow& row : kCoefficients) {
            // 3 is the first coefficient: without it none is read. Each of the others has a result that nobody checks.
            const int request = 3 + static_cast<int>(row.shows - 0xF10003A4) / 4;
            const std::string shown = nth == 1 || nth == 3 ? ""
                                      : nth == request     ? "-1"
                                                           : std::to_string(Register(row.shows));
            EXPECT_EQ(page->Text(row.edit), shown) << row.edit;
        }
        EXPECT_TRUE(page->IsEnabled(1094));
    }
}

// ---- Typing -------------------------------------------------------------------------------------------------------

TEST_F(ColorMatrix, each_edit_writes_the_register_that_its_mirror_image_shows) {
    for (const CoefficientRow& row : kCoefficients) {
        SCOPED_TRACE(row.edit);
        Renew(L"color");
        const auto page = Open();

        SetText(*page, row.edit, "123");

        EXPECT_EQ(Object().Sent(), Wire{WriteOf(row.writes, 123)});
        page->Reactivate();
        for (const CoefficientRow& other : kCoefficients) {
            const bool isMirror = other.row == row.column && other.column == row.row;
            EXPECT_EQ(page->Text(other.edit) == "123", isMirror) << other.edit;
        }
    }
}

TEST_F(ColorMatrix, row_1_column_2_writes_what_row_2_column_1_shows) {
    const auto page = Open();
    SetText(*page, kMirrored, "77");
    EXPECT_EQ(Register(0xF10003B0), 77);
    page->Reactivate();
    EXPECT_EQ(page->Text(1102), "77");
    EXPECT_NE(page->Text(kMirrored), "77");
}

TEST_F(ColorMatrix, each_key_typed_writes) {
    const auto page = Open();
    Type(*page, kMirrored, "125");
    EXPECT_EQ(Object().Sent(),
              (Wire{WriteOf(kMirroredRegister, 1), WriteOf(kMirroredRegister, 12), WriteOf(kMirroredRegister, 125)}));
    EXPECT_EQ(page->Text(kMirrored), "125");
}

TEST_F(ColorMatrix, a_minus_waits_for_its_number) {
    const auto page = Open();
    Type(*page, kMirrored, "-");
    EXPECT_EQ(page->Text(kMirrored), "-");
    EXPECT_EQ(Object().Sent(), Wire{});
    page->Notify(kMirrored, EN_KILLFOCUS);
    EXPECT_EQ(page->Text(kMirrored), "-");
    EXPECT_EQ(Object().Sent(), Wire{});

    ::SendMessageA(page->Control(kMirrored), WM_CHAR, '5', 0);

    EXPECT_EQ(page->Text(kMirrored), "-5");
    EXPECT_EQ(Object().Sent(), Wire{WriteOf(kMirroredRegister, -5)});
}

TEST_F(ColorMatrix, an_empty_edit_is_left_alone) {
    const auto page = Open();
    ASSERT_NE(page->Text(kMirrored), "");
    Type(*page, kMirrored, "\b");  // an undo would bring the number back
    EXPECT_EQ(page->Text(kMirrored), "");
    EXPECT_EQ(Object().Sent(), Wire{});
    page->Notify(kMirrored, EN_KILLFOCUS);
    EXPECT_EQ(page->Text(kMirrored), "");
    EXPECT_EQ(Object().Sent(), Wire{});
}

TEST_F(ColorMatrix, beyond_the_range_the_camera_gets_the_number_as_typed_and_the_clamped_one_right_after) {
    struct Row {
        const char* text;
        int typed, clamped;
    };
    // Not the largest number: Wine takes it for an overflow when an earlier number of the thread was one.
    for (const auto& [text, typed, clamped] : {Row{"3000", 3000, 2000},
                                               {"2001", 2001, 2000},
                                               {"-1001", -1001, -1000},
                                               {"2147483646", 2147483646, 2000},
                                               {"-2147483647", -2147483647, -1000}}) {
        SCOPED_TRACE(text);
        const auto page = Open();
        SetText(*page, kMirrored, text);
        EXPECT_EQ(Object().Sent(), (Wire{WriteOf(kMirroredRegister, typed), WriteOf(kMirroredRegister, clamped)}));
        EXPECT_EQ(page->Text(kMirrored), std::to_string(clamped));
        EXPECT_EQ(Register(kMirroredRegister), clamped);
    }
}

TEST_F(ColorMatrix, the_ends_of_the_range_are_inside_it) {
    const auto page = Open();
    for (const int value : {-1000, 2000}) {
        SetText(*page, kMirrored, std::to_string(value));
        EXPECT_EQ(Object().Sent(), Wire{WriteOf(kMirroredRegister, value)});
        EXPECT_EQ(page->Text(kMirrored), std::to_string(value));
    }
}

TEST_F(ColorMatrix, a_number_followed_by_letters_counts_as_that_number) {
    const auto page = Open();
    SetText(*page, kMirrored, "12abc");
    EXPECT_EQ(Object().Sent(), Wire{WriteOf(kMirroredRegister, 12)});
    EXPECT_EQ(page->Text(kMirrored), "12abc");
}

TEST_F(ColorMatrix, a_key_that_makes_it_no_number_is_undone) {
    const auto page = Open();
    const std::string before = page->Text(kMirrored);
    ::SendMessageA(page->Control(kMirrored), EM_SETSEL, 0, 0);
    ::SendMessageA(page->Control(kMirrored), WM_CHAR, 'x', 0);
    EXPECT_EQ(page->Text(kMirrored), before);
    const Wire sent = Object().Sent();
    EXPECT_FALSE(sent.empty()) << "the number restored is written, as any other";
    for (const CWireRequest& request : sent)
        EXPECT_EQ(request, WriteOf(kMirroredRegister, std::stoi(before))) << "never anything but the number restored";
}

TEST_F(ColorMatrix, a_text_that_cannot_be_undone_stays_and_writes_nothing) {
    const auto page = Open();
    for (const char* text : {"abc", "x12", "99999999999", "--"}) {
        SetText(*page, kMirrored, text);  // an edit has nothing to undo after this
        EXPECT_EQ(page->Text(kMirrored), text);
        page->Notify(kMirrored, EN_KILLFOCUS);
        EXPECT_EQ(Object().Sent(), Wire{}) << text;
    }
}

TEST_F(ColorMatrix, losing_the_focus_writes_the_coefficient_too) {
    for (const CoefficientRow& row : kCoefficients) {
        Renew(L"color");
        const auto page = Open();
        const int shown = Register(row.shows);
        page->Notify(row.edit, EN_KILLFOCUS);
        EXPECT_EQ(Object().Sent(), Wire{WriteOf(row.writes, shown)});
    }
}

TEST_F(ColorMatrix, other_notifications_of_the_edits_are_not_the_pages) {
    const auto page = Open();
    for (const UINT code : {UINT{EN_SETFOCUS}, UINT{EN_UPDATE}, UINT{EN_MAXTEXT}})
        page->Notify(kMirrored, code);
    page->Notify(1098, EN_CHANGE);  // the edit of a feature group
    page->Notify(1108, EN_CHANGE);
    EXPECT_EQ(Object().Sent(), Wire{});
}

TEST_F(ColorMatrix, the_result_of_a_write_is_not_checked) {
    const auto page = Open();
    Object().FailNth(1, E_ACCESSDENIED);
    SetText(*page, kMirrored, "3000");
    EXPECT_EQ(Object().Sent(), (Wire{WriteOf(kMirroredRegister, 3000), WriteOf(kMirroredRegister, 2000)}));
    EXPECT_EQ(page->Text(kMirrored), "2000");
}

TEST_F(ColorMatrix, the_arrow_keys_step_the_number_and_write_it) {
    ASSERT_TRUE(Camera().PokeRegister(0xF10003A4, 1999));
    const auto page = Open();
    const auto press = [&](WPARAM key) {
        ::SendMessageA(page->Control(1101), WM_KEYDOWN, key, 0);
        ::SendMessageA(page->Control(1101), WM_KEYUP, key, 0);
    };
    press(VK_UP);
    EXPECT_EQ(page->Text(1101), "2000") << "no thousands separator";
    EXPECT_EQ(Object().Sent(), Wire{WriteOf(0xF10003A4, 2000)});
    press(VK_UP);
    EXPECT_EQ(page->Text(1101), "2000") << "the end of the range";
    Object().Forget();
    press(VK_DOWN);
    press(VK_DOWN);
    EXPECT_EQ(Object().Sent(), (Wire{WriteOf(0xF10003A4, 1999), WriteOf(0xF10003A4, 1998)}));
}

}  // namespace
}  // namespace kolmfluxor::test
