/// @file  Page "Exposure" when the camera refuses a request or answers other than asked.

#include <string>
#include <utility>
#include <vector>

#include "pages/exposure_page_fixture.h"

namespace kolmfluxor::test {
namespace {

constexpr ULONG kGainId = 0;
constexpr int kGainSlider = 1079;
constexpr int kGainEdit = 1081;
constexpr int kGainMode = 1083;

class ExposureFaults : public ExposurePage {
protected:
    /// The requests since the last look, without their contents: "G6" reads property 6, "S6" sets it.
    std::vector<std::string> Requests() {
        std::vector<std::string> requests;
        for (const CWireRequest& request : Object().Sent())
            requests.push_back((request.Word(20) == 2 ? "S" : "G") + std::to_string(request.Word(16)));
        return requests;
    }
    /// Every request for a property fails from now on.
    void Fail(ULONG id) {
        Camera().AddFault({.nth = 0, .id = id, .action = kolmsim::SimFaultAction::fail, .code = E_ACCESSDENIED});
    }
};
using Requested = std::vector<std::string>;

// ---- Apply of a group ---------------------------------------------------------------------------------------------

TEST_F(ExposureFaults, the_mode_read_back_after_a_change_is_not_shown) {
    SetWord(kGainId, 32, kAllModes);
    SetWord(kGainId, 28, 0x2);
    const auto page = Open();
    Object().Patch(kGainId, 28, 0x4);

    page->Drag(kGainSlider, 50);

    EXPECT_EQ(Requests(), (Requested{"S0", "G0"}));
    EXPECT_EQ(page->Selected(kGainMode), "Manual");
    EXPECT_TRUE(page->IsEnabled(kGainSlider));
}

TEST_F(ExposureFaults, a_refused_mode_closes_the_value_controls_all_the_same) {
    SetWord(kGainId, 32, kAllModes);
    SetWord(kGainId, 28, 0x2);
    const auto page = Open();
    Object().FailNth(1, E_ACCESSDENIED);

    page->Pick(kGainMode, "Auto");

    EXPECT_EQ(Requests(), Requested{"S0"});
    EXPECT_EQ(page->Selected(kGainMode), "Auto");
    EXPECT_FALSE(page->IsEnabled(kGainSlider));
    EXPECT_FALSE(page->IsEnabled(kGainEdit));
}

// ---- The shutter's writes -----------------------------------------------------------------------------------------

TEST_F(ExposureFaults, a_refused_shutter_mode_or_value_stays_on_show) {
    const auto page = Open();
    Object().FailNth(2, E_ACCESSDENIED);
    page->Drag(kShutterSlider, 300);
    EXPECT_EQ(Requests(), (Requested{"G5", "S5"}));
    EXPECT_EQ(page->Text(kShutterEdit), Number(300 * 20));
    EXPECT_EQ(page->Position(kShutterSlider), 300);

    Object().FailNth(2, E_ACCESSDENIED);
    page->Pick(kShutterMode, "Auto");
    EXPECT_EQ(Requests(), (Requested{"G5", "S5"}));
    EXPECT_EQ(page->Selected(kShutterMode), "Auto");
    EXPECT_FALSE(page->IsEnabled(kShutterSlider));
}

TEST_F(ExposureFaults, a_refused_request_does_not_end_the_choice_of_a_time_base) {
    const Requested kAll = {"G7", "G6", "S6", "G6", "G5", "S5"};
    const std::pair<int, Requested> kRows[] = {
        {1, kAll}, {2, {"G7", "G6", "G6", "G5", "S5"}}, {3, kAll},
        {4, kAll}, {5, {"G7", "G6", "S6", "G6", "G5"}}, {6, kAll},
    };
    for (const auto& [nth, requested] : kRows) {
        SCOPED_TRACE(nth);
        Renew(L"color");
        const auto page = Open();
        Object().FailNth(nth, E_ACCESSDENIED);

        page->Pick(kTimeBase, "1000\xB5s");

        EXPECT_EQ(Requests(), requested);
        EXPECT_TRUE(page->Site().reports.empty());
    }
}

TEST_F(ExposureFaults, a_refused_request_does_not_end_unchecking_extd) {
    const Requested kAll = {"G7", "G6", "G5", "S5", "G5"};
    const std::pair<int, Requested> kRows[] = {
        {1, kAll}, {2, kAll}, {3, {"G7", "G6", "G5", "G5"}}, {4, kAll}, {5, kAll},
    };
    for (const auto& [nth, requested] : kRows) {
        SCOPED_TRACE(nth);
        Renew(L"color");
        const auto page = Open();
        page->Click(kExtd);
        Object().Forget();
        Object().FailNth(nth, E_ACCESSDENIED);

        page->Click(kExtd);

        EXPECT_EQ(Requests(), requested);
        EXPECT_EQ(page->Site().reports.size(), 2u) << "dirty in every case";
        EXPECT_TRUE(page->IsEnabled(kTimeBase));
    }
}

// ---- The time base ------------------------------------------------------------------------------------------------

TEST_F(ExposureFaults, a_time_base_that_is_not_reported_stays_the_chosen_one) {
    for (const bool refused : {true, false}) {
        SCOPED_TRACE(refused ? "the read-back fails" : "the camera reports one beyond the table");
        Renew(L"color");
        SetWord(kTimeBaseId, 24, 0);
        const auto page = Open();
        Object().Patch(kExtendedId, 24, 3000);
        if (refused) {
            Object().FailNth(4, E_ACCESSDENIED);
        } else {
            Object().Patch(kTimeBaseId, 24, 10);
        }

        page->Pick(kTimeBase, "1000\xB5s");

        EXPECT_EQ(page->Selected(kTimeBase), "1000\xB5s");
        const Wire sent = Object().Sent();
        ASSERT_EQ(sent.size(), 6u);
        EXPECT_EQ(sent[5].Word(16), kShutterId);
        EXPECT_EQ(sent[5].Word(24), 3u) << "3000 us in units of 1000 us";
        EXPECT_EQ(page->Text(kShutterEdit), "3000");
    }
}

TEST_F(ExposureFaults, without_a_chosen_time_base_nothing_is_written) {
    const auto page = Open();
    const std::string shown = page->Text(kShutterEdit);
    ::SendMessageA(page->Control(kTimeBase), CB_SETCURSEL, static_cast<WPARAM>(-1), 0);

    page->Notify(kTimeBase, CBN_SELCHANGE);

    EXPECT_EQ(Requests(), Requested{"G7"});
    EXPECT_EQ(page->Text(kShutterEdit), shown);
    page->Drag(kShutterSlider, 300);
    EXPECT_EQ(WordOf(kShutterId), 300u) << "the page lives on";
}

TEST_F(ExposureFaults, a_time_base_that_cannot_be_read_any_more_counts_as_1_us_when_the_page_opens_again) {
    SetWord(kTimeBaseId, 24, 4);
    const auto page = Open();
    ASSERT_EQ(page->Text(kShutterEdit), Number(WordOf(kShutterId) * 20));
    Fail(kTimeBaseId);

    page->Reactivate();

    EXPECT_EQ(page->Selected(kTimeBase), "");
    EXPECT_EQ(page->Text(kShutterEdit), Number(WordOf(kShutterId)));
}

// ---- Extended display ---------------------------------------------------------------------------------------------

TEST_F(ExposureFaults, a_poll_that_cannot_read_the_extended_shutter_changes_nothing) {
    SetWord(kShutterId, 32, kAllModes);
    SetWord(kShutterId, 28, 0x8);
    const auto page = Open();
    page->Click(kExtd);
    const std::string shown = page->Text(kShutterEdit);
    const LONG position = page->Position(kShutterSlider);
    ASSERT_NE(position, page->RangeMin(kShutterSlider));
    Object().Forget();
    SetWord(kShutterId, 28, 0x2);
    Fail(kExtendedId);

    page->Tick();

    EXPECT_EQ(Requests(), (Requested{"G5", "G7"}));
    EXPECT_EQ(page->Text(kShutterEdit), shown);
    EXPECT_EQ(page->Position(kShutterSlider), position);
    EXPECT_EQ(page->Selected(kShutterMode), "Auto");
    EXPECT_FALSE(page->IsEnabled(kShutterSlider));
}

/// Unchecks "Extd" at 6000 us, with a page that was opened at 1000 us a unit.
class ExposureUncheck : public ExposureFaults {
protected:
    ExposureUncheck() {
        SetWord(kShutterId, 36, 1);
        SetWord(kShutterId, 40, 4095);
        SetWord(kTimeBaseId, 24, 9);
    }
    /// @param before  what happens to the camera while the page is in extended display
    template <class F> void Uncheck(CPageHost& page, F&& before) {
        page.Click(kExtd);
        Object().Forget();
        Object().Patch(kExtendedId, 24, 6000);
        before();
        page.Click(kExtd);
    }
};

TEST_F(ExposureUncheck, follows_the_time_base_that_the_camera_has_now) {
    const auto page = Open();

    Uncheck(*page, [&] { SetWord(kTimeBaseId, 24, 3); });

    const Wire sent = Object().Sent();
    ASSERT_EQ(sent.size(), 5u);
    EXPECT_EQ(sent[3].Word(24), 600u) << "6000 us in units of 10 us";
    EXPECT_EQ(page->Selected(kTimeBase), "  10\xB5s");
    EXPECT_EQ(page->Text(kShutterMin), "10");
    EXPECT_EQ(page->Text(kShutterMax), "40950");
    EXPECT_EQ(page->Text(kShutterEdit), "6000");
    EXPECT_EQ(page->Position(kShutterSlider), 600);
}

TEST_F(ExposureUncheck, keeps_the_known_time_base_when_it_cannot_be_read) {
    const auto page = Open();

    Uncheck(*page, [&] { Object().FailNth(2, E_ACCESSDENIED); });

    const Wire sent = Object().Sent();
    ASSERT_EQ(sent.size(), 5u);
    EXPECT_EQ(sent[1], Get(kTimeBaseId));
    EXPECT_EQ(sent[3].Word(24), 6u) << "6000 us in units of 1000 us";
    EXPECT_EQ(page->Selected(kTimeBase), "1000\xB5s");
    EXPECT_EQ(page->Text(kShutterMin), "1000");
    EXPECT_EQ(page->Text(kShutterMax), "4095000");
    EXPECT_EQ(page->Text(kShutterEdit), "6000");
}

}  // namespace
}  // namespace kolmfluxor::test
