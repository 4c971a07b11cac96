/// @file  The color correction of page "Color" in a frame: off, manual and reset.

#include <string>
#include <vector>

#include <gmock/gmock.h>

#include <windows.h>

#include "pages/color_page_fixture.h"

namespace kolmfluxor::test {
namespace {

constexpr ULONG kDisable = 0x02000000;
constexpr ULONG kReset = 0x01000000;

class ColorMatrixSwitch : public ColorPage {};

TEST_F(ColorMatrixSwitch, the_switch_changes_its_own_bit_of_the_control_register_only) {
    struct Row {
        const char* mode;
        ULONG set, clear;
    };
    for (const auto& [mode, set, clear] : {Row{"Off", kDisable, 0}, {"Manual", 0, kDisable}, {"Reset", kReset, 0}}) {
        for (const ULONG word : {0UL, 0xFFFFFFFFUL, 0x80000000UL, 0x12345678UL}) {
            SCOPED_TRACE(testing::Message() << mode << " on " << word);
            Renew(L"color");
            const auto page = Open();
            Object().Patch(11, 28, word);

            page->Pick(kMatrixMode, mode);

            const Wire sent = Object().Sent();
            ASSERT_GE(sent.size(), 2u);
            EXPECT_EQ(sent[0], ReadOf(kMatrixControl));
            EXPECT_EQ(sent[1], WriteOf(kMatrixControl, static_cast<int>((word & ~clear) | set)));
        }
    }
}

TEST_F(ColorMatrixSwitch, off_and_manual_read_nothing_back) {
    const auto page = Open();
    for (const char* mode : {"Manual", "Off"}) {
        ASSERT_TRUE(Camera().PokeRegister(0xF10003A4, 1));
        page->Pick(kMatrixMode, mode);
        EXPECT_EQ(Object().Sent().size(), 2u) << mode;
        EXPECT_NE(page->Text(1101), "1");
        EXPECT_EQ(page->Selected(kMatrixMode), mode);
        EXPECT_EQ(WordOf(kMatrixId, 28), std::string(mode) == "Off" ? 0x4u : 0x2u);
    }
}

TEST_F(ColorMatrixSwitch, reset_always_reads_everything_back_and_writes_no_coefficient) {
    for (const ULONG mode : {0x2UL, 0x4UL}) {
        Renew(L"color");
        SetWord(kMatrixId, 28, mode);
        const auto page = Open();
        std::vector<std::string> factory;
        for (const CoefficientRow& row : kCoefficients) {
            factory.push_back(page->Text(row.edit));
            SetText(*page, row.edit, "5");
        }
        Object().Forget();

        page->Pick(kMatrixMode, "Reset");

        const ULONG control = 0x80000000 | (mode == 0x4 ? kDisable : 0);
        Wire expected = {ReadOf(kMatrixControl), WriteOf(kMatrixControl, static_cast<int>(control | kReset))};
        for (const CWireRequest& request : RefreshOfMatrix())
            expected.push_back(request);
        EXPECT_EQ(Object().Sent(), expected);
        for (std::size_t i = 0; i < factory.size(); ++i)
            EXPECT_EQ(page->Text(kCoefficients[i].edit), factory[i]);
        EXPECT_EQ(page->Selected(kMatrixMode), mode == 0x2 ? "Manual" : "Off") << "what the camera has, not \"Reset\"";
    }
}

TEST_F(ColorMatrixSwitch, a_control_register_that_cannot_be_read_ends_it) {
    const auto page = Open();
    for (const char* mode : {"Manual", "Off", "Reset"}) {
        Object().FailNth(1, E_ACCESSDENIED);
        page->Pick(kMatrixMode, mode);
        EXPECT_EQ(Object().Sent(), Wire{ReadOf(kMatrixControl)});
        EXPECT_EQ(page->Selected(kMatrixMode), mode);
    }
}

TEST_F(ColorMatrixSwitch, a_refused_switch_shows_what_the_camera_has) {
    for (const char* mode : {"Manual", "Reset"}) {
        Renew(L"color");
        const auto page = Open();
        Object().FailNth(2, E_ACCESSDENIED);
        page->Pick(kMatrixMode, mode);
        const Wire sent = Object().Sent();
        EXPECT_EQ(Wire(sent.begin() + 2, sent.end()), RefreshOfMatrix());
        EXPECT_EQ(page->Selected(kMatrixMode), "Off");
    }
}

TEST_F(ColorMatrixSwitch, a_switch_answered_by_a_success_code_other_than_s_ok_counts_as_refused) {
    const auto page = Open();
    Camera().AddFault({.id = 11,
                       .flags = 2,
                       .action = kolmsim::SimFaultAction::patchAnswer,
                       .code = S_FALSE,
                       .offset = 28,
                       .word = 0});

    page->Pick(kMatrixMode, "Manual");

    const Wire sent = Object().Sent();
    ASSERT_GT(sent.size(), 2u);
    EXPECT_EQ(sent[1], WriteOf(kMatrixControl, static_cast<int>(0x80000000)));
    EXPECT_EQ(Wire(sent.begin() + 2, sent.end()), RefreshOfMatrix());
}

TEST_F(ColorMatrixSwitch, a_success_code_other_than_s_ok_counts_as_failure) {
    const auto page = Open();
    Object().Patch(11, 28, 0, S_FALSE);
    page->Pick(kMatrixMode, "Manual");
    EXPECT_EQ(Object().Sent(), Wire{ReadOf(kMatrixControl)});
    page->Reactivate();
    ExpectMatrixEnabled(*page, false);
}

TEST_F(ColorMatrixSwitch, a_notification_without_a_selection_sends_nothing) {
    const auto page = Open();
    ::SendMessageA(page->Control(kMatrixMode), CB_SETCURSEL, static_cast<WPARAM>(-1), 0);
    page->Notify(kMatrixMode, CBN_SELCHANGE);
    page->Notify(kMatrixMode, CBN_CLOSEUP);
    EXPECT_EQ(Object().Sent(), Wire{});
}

TEST_F(ColorMatrixSwitch, the_pictures_follow_the_switch) {
    const auto page = Open();
    const auto off = Picture();
    page->Pick(kMatrixMode, "Manual");
    const auto on = Picture();
    EXPECT_NE(on, off);
    SetText(*page, 1101, "0");
    EXPECT_NE(Picture(), on);
    page->Pick(kMatrixMode, "Reset");
    EXPECT_EQ(Picture(), on);
    page->Pick(kMatrixMode, "Off");
    EXPECT_EQ(Picture(), off);
}

}  // namespace
}  // namespace kolmfluxor::test
