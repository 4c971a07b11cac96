/// @file  Page "Trigger" in a frame: what its controls show, and what each action sends.

#include <array>
#include <memory>
#include <string>
#include <vector>

#include <windows.h>

#include <commctrl.h>

#include "pages/trigger_page_fixture.h"

namespace kolmfluxor::test {
namespace {

// ---- Opening ------------------------------------------------------------------------------------------------------

TEST_F(TriggerPage, opening_asks_for_the_trigger_then_its_groups_then_the_triggers_state) {
    const auto page = Open();
    EXPECT_EQ(m_opening, (Wire{Get(kTriggerId), Get(kDelayId), Get(kDelayId), Get(kDelayId), Get(kDelayedIntegrationId),
                               Get(kDelayedIntegrationId), Get(kDelayedIntegrationId), Get(kTriggerId)}))
        << "and writes nothing";
    EXPECT_TRUE(page->Site().reports.empty());
    EXPECT_EQ(page->Page()->IsPageDirty(), S_FALSE);
}

TEST_F(TriggerPage, shows_the_camera_as_it_starts) {
    const auto page = Open();
    EXPECT_EQ(page->Text(kTriggerGroup), "Trigger: Edge mode");
    EXPECT_EQ(page->Entries(kTriggerMode),
              (std::vector<std::string>{"Mode0", "Mode1", "Mode2", "Mode3", "Mode4", "Mode5", "Mode14", "Mode15"}));
    EXPECT_EQ(page->Selected(kTriggerMode), "Mode0");
    EXPECT_EQ(page->Entries(kTriggerSource), (std::vector<std::string>{"Source0", "Source1", "Source2", "Source3"}));
    EXPECT_EQ(page->Selected(kTriggerSource), "Source0");
    EXPECT_FALSE(page->IsChecked(kTriggerOn));
    EXPECT_FALSE(page->IsChecked(kTriggerInverted));
    EXPECT_TRUE(page->IsEnabled(kTriggerMode));
    EXPECT_FALSE(page->IsEnabled(kTriggerSource));
    EXPECT_EQ(page->Text(kParameterLabel), "");
    EXPECT_EQ(Pictures(*page), Only(1109));
    for (const TriggerFeatureRow& row : kTriggerFeatures) {
        SCOPED_TRACE(row.caption);
        EXPECT_EQ(page->Text(row.group), row.caption);
        EXPECT_EQ(page->Text(row.min), std::to_string(WordOf(row.driverId, 36)));
        EXPECT_EQ(page->Text(row.max), std::to_string(WordOf(row.driverId, 40)));
        EXPECT_EQ(page->Text(row.edit), std::to_string(WordOf(row.driverId)));
        EXPECT_EQ(page->Entries(row.mode), (std::vector<std::string>{"Off", "Manual"}));
        EXPECT_EQ(page->Text(row.unit), "\xB5s");
        EXPECT_FALSE(page->IsEnabled(row.unit)) << "off at the start";
    }
}

TEST_F(TriggerPage, shows_each_mode_and_polarity_that_the_camera_is_in) {
    for (const TriggerModeRow& row : kTriggerModes) {
        for (const bool inverted : {false, true}) {
            SCOPED_TRACE(std::string(row.text) + (inverted ? ", inverted" : ""));
            SetWord(kTriggerId, kStateWord, row.mask | 0x100 | (inverted ? 0x40 : 0x20));
            const auto page = Open();
            EXPECT_EQ(page->Selected(kTriggerMode), row.text);
            EXPECT_EQ(page->IsChecked(kTriggerOn), !inverted);
            EXPECT_EQ(page->IsChecked(kTriggerInverted), inverted);
            EXPECT_EQ(page->Text(kTriggerGroup), *row.caption == '\0' ? "Trigger" : row.caption);
            EXPECT_EQ(page->Text(kParameterLabel), row.label);
            EXPECT_EQ(Pictures(*page), Only(inverted ? row.inverted : row.normal));
        }
    }
}

TEST_F(TriggerPage, a_camera_with_mode_0_only_lists_just_Mode0_open_to_choice) {
    SetWord(kTriggerId, kInquiryWord, 0x10000);
    const auto page = Open();
    EXPECT_EQ(page->Entries(kTriggerMode), std::vector<std::string>{"Mode0"});
    EXPECT_TRUE(page->IsEnabled(kTriggerMode));
    EXPECT_EQ(page->Entries(kTriggerSource), std::vector<std::string>{});
    EXPECT_FALSE(page->IsEnabled(kTriggerOn));
    EXPECT_TRUE(page->IsChecked(kTriggerOn)) << "what can't be switched off is on";
    EXPECT_FALSE(page->IsEnabled(kTriggerInverted));
}

TEST_F(TriggerPage, a_camera_without_a_trigger_offers_nothing_to_choose) {
    ASSERT_TRUE(Camera().SetFeaturePresent(kTriggerId, false));
    const auto page = Open();
    EXPECT_EQ(page->Entries(kTriggerMode), std::vector<std::string>{});
    for (const int id : {kTriggerMode, kTriggerSource, kTriggerOn, kTriggerInverted, kParameterUpDown})
        EXPECT_FALSE(page->IsEnabled(id)) << id;
    EXPECT_EQ(Pictures(*page), Only(0));
}

TEST_F(TriggerPage, the_source_shows_Source0_even_for_a_camera_set_to_another_one) {
    SetWord(kTriggerId, kStateWord, 0x10000 | 0x400);
    const auto page = Open();
    EXPECT_EQ(page->Selected(kTriggerSource), "Source0");
    EXPECT_EQ(page->Page()->Apply(), S_OK);
    EXPECT_EQ(page->Selected(kTriggerSource), "Source0");
}

TEST_F(TriggerPage, each_failing_request_of_opening_touches_its_own_part_only) {
    for (int nth = 1; nth <= 8; ++nth) {
        SCOPED_TRACE(nth);
        Renew(L"color");
        Object().FailNth(nth, E_ACCESSDENIED);
        const auto page = Open();
        EXPECT_EQ(page->IsEnabled(kTriggerGroup), nth != 1);
        EXPECT_EQ(page->IsEnabled(1120), nth < 2 || nth > 4);
        EXPECT_EQ(page->IsEnabled(1131), nth < 5 || nth > 7);
        EXPECT_EQ(page->Entries(kTriggerMode).size(), nth == 1 ? 0u : 8u);
        EXPECT_EQ(page->Selected(kTriggerMode), nth == 1 || nth == 8 ? "" : "Mode0");
        EXPECT_EQ(Pictures(*page), Only(nth == 1 || nth == 8 ? 0 : 1109));
    }
}

TEST_F(TriggerPage, a_failed_inquiry_disables_the_group) {
    Object().FailNth(1, E_ACCESSDENIED);
    const auto page = Open();
    EXPECT_EQ(page->Text(kTriggerGroup), "Trigger");
    for (const int id : {kTriggerGroup, kTriggerMode, kTriggerSource, kParameterLabel, kParameterEdit, kParameterUpDown,
                         kTriggerOn, kTriggerInverted})
        EXPECT_FALSE(page->IsEnabled(id)) << id;
}

TEST_F(TriggerPage, hostile_answers_show_nothing_wrong) {
    for (const ULONG word : {0u, 0x3FC0FFFFu, 0x80000000u, 0xFFFFFFFFu}) {
        SCOPED_TRACE(word);
        Renew(L"color");
        Object().Patch(kTriggerId, kInquiryWord, 0xFFFFFFFF);
        Object().Patch(kTriggerId, kStateWord, word);
        const auto page = Open();
        const bool anyMode = (word & 0xC03F0000) != 0;
        EXPECT_EQ(page->Selected(kTriggerMode), !anyMode ? "" : word == 0x80000000 ? "Mode15" : "Mode0");
        EXPECT_EQ(Pictures(*page).size(), anyMode ? 1u : 0u);
    }
}

TEST_F(TriggerPage, a_state_without_an_offered_mode_selects_nothing_and_each_click_then_sends_all_ones) {
    SetWord(kTriggerId, kInquiryWord, 0x30 | 0x100 | 0x10000);
    Object().Patch(kTriggerId, kStateWord, 0x20000);
    const auto page = Open();
    EXPECT_EQ(page->Selected(kTriggerMode), "");
    Type(*page, "");

    page->Click(kTriggerOn);

    EXPECT_EQ(Object().Sent(), Wire{Write(0xFFFFFFFF, 0)});
    page->Click(kTriggerOn);
    EXPECT_FALSE(page->IsChecked(kTriggerOn));
    EXPECT_FALSE(page->IsChecked(kTriggerInverted));
    EXPECT_EQ(Object().Sent(), Wire{Write(0xFFFFFFFF, 0)}) << "on and inverted, whatever the boxes say";
}

// ---- The user's changes -------------------------------------------------------------------------------------------

TEST_F(TriggerPage, choosing_a_mode_writes_it_with_what_the_other_controls_say) {
    for (const TriggerModeRow& row : kTriggerModes) {
        for (const ULONG switches : {0x00u, 0x20u, 0x40u, 0x60u}) {
            SCOPED_TRACE(std::string(row.text) + ", " + std::to_string(switches));
            Renew(L"color");
            SetWord(kTriggerId, kStateWord, 0x20000 | 0x100 | switches);
            const auto page = Open();
            Type(*page, "23");

            page->Pick(kTriggerMode, row.text);

            const bool parameter = *row.label != '\0';
            EXPECT_EQ(Object().Sent(), Wire{Write(row.mask | switches, parameter ? 1 : 23)})
                << "a mode's parameter starts at 1; other modes send what stands in the edit";
            EXPECT_EQ(Pictures(*page), Only((switches & 0x40) != 0 ? row.inverted : row.normal));
            EXPECT_EQ(page->Text(kTriggerGroup), *row.caption == '\0' ? "Trigger: Level mode" : row.caption);
            EXPECT_EQ(page->Text(kParameterLabel), row.label);
            for (const int id : {kParameterLabel, kParameterEdit, kParameterUpDown})
                EXPECT_EQ(page->IsEnabled(id), parameter) << id;
            EXPECT_EQ(WordOf(kTriggerId, kStateWord), row.mask | 0x100 | switches);
        }
    }
}

TEST_F(TriggerPage, what_is_chosen_shows_in_the_cameras_register) {
    const auto page = Open();
    page->Pick(kTriggerMode, "Mode4");
    page->Click(kTriggerInverted);
    Type(*page, "291");
    page->Click(kTriggerOn);
    std::uint32_t word = 0;
    ASSERT_TRUE(Camera().PeekRegister(0xF0F00830, &word));
    EXPECT_EQ(word, 0x83040123u) << "present, on, active high, mode 4, parameter 0x123";
}

TEST_F(TriggerPage, Mode3_opens_its_parameter_and_Mode0_closes_it_again) {
    const auto page = Open();
    page->Pick(kTriggerMode, "Mode3");
    EXPECT_EQ(page->Text(kParameterLabel), "cycle");
    EXPECT_TRUE(page->IsEnabled(kParameterEdit));
    EXPECT_TRUE(page->IsEnabled(kParameterUpDown));
    EXPECT_EQ(::SendMessageA(page->Control(kParameterUpDown), UDM_GETPOS32, 0, 0), 1);
    EXPECT_EQ(page->Text(kParameterEdit), "1");

    page->Pick(kTriggerMode, "Mode0");
    EXPECT_EQ(page->Text(kParameterLabel), "");
    for (const int id : {kParameterLabel, kParameterEdit, kParameterUpDown})
        EXPECT_FALSE(page->IsEnabled(id)) << id;
}

TEST_F(TriggerPage, modes_without_a_caption_keep_the_one_before) {
    const auto page = Open();
    page->Pick(kTriggerMode, "Mode15");
    page->Pick(kTriggerMode, "Mode14");
    EXPECT_EQ(page->Text(kTriggerGroup), "Trigger: Bulk mode");
    EXPECT_EQ(Pictures(*page), Only(0));
}

TEST_F(TriggerPage, Enable_writes_the_switch) {
    const auto page = Open();
    Type(*page, "5");
    page->Click(kTriggerOn);
    page->Click(kTriggerOn);
    EXPECT_EQ(Object().Sent(), (Wire{Write(0x10020, 5), Write(0x10000, 5)}));
}

TEST_F(TriggerPage, Invert_polarity_writes_it_and_swaps_the_picture) {
    const auto page = Open();
    Type(*page, "5");
    page->Click(kTriggerInverted);
    EXPECT_EQ(Object().Sent(), Wire{Write(0x10040, 5)});
    EXPECT_EQ(Pictures(*page), Only(1134));
    page->Click(kTriggerInverted);
    EXPECT_EQ(Object().Sent(), Wire{Write(0x10000, 5)});
    EXPECT_EQ(Pictures(*page), Only(1109));
}

TEST_F(TriggerPage, typing_a_parameter_writes_nothing_the_next_write_takes_it_and_sets_it_back_to_1) {
    const auto page = Open();
    page->Pick(kTriggerMode, "Mode4");
    Object().Forget();

    Type(*page, "17");
    page->Notify(kParameterEdit, EN_CHANGE);
    page->Notify(kParameterEdit, EN_KILLFOCUS);
    EXPECT_EQ(Object().Sent(), Wire{});

    page->Click(kTriggerOn);
    EXPECT_EQ(Object().Sent(), Wire{Write(0x100020, 17)});
    EXPECT_EQ(WordOf(kTriggerId, kParameterWord), 17u);
    EXPECT_EQ(page->Text(kParameterEdit), "1");
}

TEST_F(TriggerPage, hostile_parameters_are_sent_as_their_number_or_as_0) {
    constexpr std::pair<const char*, ULONG> kRows[] = {
        {"", 0}, {"abc", 0}, {"-1", 0}, {"12abc", 12}, {"4294967295", 0xFFFFFFFF}, {"4294967296", 0},
    };
    const auto page = Open();
    page->Pick(kTriggerMode, "Mode5");
    for (const auto& [text, number] : kRows) {
        SCOPED_TRACE(text);
        Object().Forget();
        Type(*page, text);
        page->Click(kTriggerInverted);
        EXPECT_EQ(Object().Sent().at(0).Word(kParameterWord), number);
    }
}

TEST_F(TriggerPage, a_refused_write_is_not_reported_and_not_read_back) {
    const auto page = Open();
    Object().FailNth(1, E_ACCESSDENIED);
    page->Pick(kTriggerMode, "Mode1");
    EXPECT_EQ(Object().Sent().size(), 1u);
    EXPECT_EQ(page->Selected(kTriggerMode), "Mode1");
    EXPECT_EQ(Pictures(*page), Only(1112));
    EXPECT_TRUE(page->Site().reports.empty()) << "the page is never dirty";
}

TEST_F(TriggerPage, other_notifications_of_its_controls_are_not_the_pages) {
    const auto page = Open();
    for (const int id : {kTriggerMode, kTriggerSource, kTriggerOn, kTriggerInverted, 1125, 1130}) {
        for (const UINT code : {BN_CLICKED + 0u, CBN_SELCHANGE + 0u, CBN_DROPDOWN + 0u, CBN_SELENDOK + 0u}) {
            const bool box = id == kTriggerOn || id == kTriggerInverted;
            const bool combo = !box && id != kTriggerSource;
            if ((box && code == BN_CLICKED) || (combo && code == CBN_SELCHANGE)) continue;
            page->Notify(id, code);
            EXPECT_EQ(Object().Sent(), Wire{}) << id << ", " << code;
        }
    }
}

// ---- The two feature groups ---------------------------------------------------------------------------------------

TEST_F(TriggerPage, feature_groups_write_value_and_mode_and_read_the_value_back) {
    for (const TriggerFeatureRow& row : kTriggerFeatures) {
        SCOPED_TRACE(row.caption);
        const auto page = Open();
        const ULONG value = WordOf(row.driverId);
        page->Pick(row.mode, "Manual");
        EXPECT_EQ(Object().Sent(), (Wire{Set(row.driverId).With(24, value).With(28, 0x2), Get(row.driverId)}));
        for (const int id : {row.min, row.max, row.slider, row.edit, row.unit})
            EXPECT_TRUE(page->IsEnabled(id)) << id;

        page->Drag(row.slider, 700);
        EXPECT_EQ(Object().Sent(), (Wire{Set(row.driverId).With(24, 700).With(28, 0x2), Get(row.driverId)}));
        EXPECT_EQ(page->Text(row.edit), "700");
        EXPECT_EQ(WordOf(row.driverId), 700u);

        page->Pick(row.mode, "Off");
        for (const int id : {row.min, row.max, row.slider, row.edit, row.unit})
            EXPECT_FALSE(page->IsEnabled(id)) << id;
    }
}

TEST_F(TriggerPage, ticks_ask_nothing_not_even_for_groups_that_move_by_themselves) {
    for (const TriggerFeatureRow& row : kTriggerFeatures) {
        SetWord(row.driverId, 32, 0x2 | 0x4 | 0x8);
        SetWord(row.driverId, 28, 0x8);
    }
    const auto page = Open();
    EXPECT_EQ(page->Selected(1125), "Auto");
    page->Tick();
    page->Tick();
    EXPECT_EQ(Object().Sent(), Wire{});
}

// ---- Apply, and coming back ---------------------------------------------------------------------------------------

TEST_F(TriggerPage, Apply_reads_the_trigger_again_though_nothing_is_dirty) {
    const auto page = Open();
    SetWord(kTriggerId, kStateWord, 0x80000 | 0x100 | 0x60);
    SetWord(kDelayId, 24, 999);
    EXPECT_EQ(page->Selected(kTriggerMode), "Mode0") << "changes elsewhere show after Apply only";

    EXPECT_EQ(page->Page()->Apply(), S_OK);

    EXPECT_EQ(Object().Sent(), Wire{Get(kTriggerId)}) << "not the groups";
    EXPECT_EQ(page->Selected(kTriggerMode), "Mode3");
    EXPECT_TRUE(page->IsChecked(kTriggerOn));
    EXPECT_EQ(Pictures(*page), Only(1138));
    EXPECT_EQ(page->Page()->IsPageDirty(), S_FALSE);
}

TEST_F(TriggerPage, Apply_is_S_OK_though_the_camera_does_not_answer) {
    const auto page = Open();
    Type(*page, "5");
    Object().FailNth(1, E_ACCESSDENIED);
    EXPECT_EQ(page->Page()->Apply(), S_OK);
    EXPECT_EQ(page->Selected(kTriggerMode), "Mode0");
    EXPECT_EQ(page->Text(kParameterEdit), "5");
}

TEST_F(TriggerPage, Apply_needs_site_and_object_but_no_window) {
    const auto page = Open();
    IUnknown* filter = Object().Filter().Unknown();
    ASSERT_EQ(page->Page()->SetPageSite(nullptr), S_OK);
    EXPECT_EQ(page->Page()->Apply(), E_UNEXPECTED);
    ASSERT_EQ(page->Page()->SetPageSite(&page->Site()), S_OK);
    ASSERT_EQ(page->Page()->SetObjects(0, nullptr), S_OK);
    EXPECT_EQ(page->Page()->Apply(), E_UNEXPECTED);
    ASSERT_EQ(page->Page()->SetObjects(1, &filter), S_OK);
    ASSERT_EQ(page->Page()->Deactivate(), S_OK);
    EXPECT_EQ(page->Page()->Apply(), S_OK);
    EXPECT_EQ(Object().Sent(), Wire{});
    page->Activate();
}

TEST_F(TriggerPage, a_new_activation_fills_the_page_afresh) {
    const auto page = Open();
    page->Pick(kTriggerMode, "Mode1");
    SetWord(kTriggerId, kStateWord, 0x40000 | 0x100);
    page->Reactivate();
    EXPECT_EQ(page->Entries(kTriggerMode).size(), 8u);
    EXPECT_EQ(page->Selected(kTriggerMode), "Mode2");
    EXPECT_EQ(page->Text(kTriggerGroup), "Trigger") << "the dialog is a new one";
}

}  // namespace
}  // namespace kolmfluxor::test
