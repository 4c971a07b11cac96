/// @file  Page "Format": what Apply hands to the camera, and what a refusal does.

#include <array>
#include <cstring>

#include <gmock/gmock.h>

#include "pages/format_page_fixture.h"

namespace kolmfluxor::test {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

using Calls = std::vector<std::string>;

/// What setting a scalable mode sends: the geometry switch is read, set and put back around the format.
Wire GeometrySwitched() {
    return {Get(kGeometryId), Set(kGeometryId).With(24, 1), Set(kGeometryId)};
}

/// A page on scalable mode 0 with an area of 320 x 240.
class FormatApply : public FormatPage {
protected:
    std::unique_ptr<CPageHost> OpenArea() {
        SetArea(m_script.formats[2], {0, 0, 320, 240});
        return OpenAt(2);
    }
    /// Applies and forgets nothing.
    static void Apply(CPageHost& page) { EXPECT_EQ(page.Page()->Apply(), S_OK); }
};

TEST_F(FormatApply, a_clean_page_applies_nothing) {
    const auto page = OpenArea();
    Apply(*page);
    EXPECT_EQ(Object().Sent(), Wire{});
    EXPECT_THAT(m_script.calls, IsEmpty());
}

TEST_F(FormatApply, a_fixed_mode_is_set_as_it_is_and_has_no_position) {
    const auto page = OpenAt(0);
    page->Pick(kMode, page->Entries(kMode).at(1));

    Apply(*page);

    EXPECT_THAT(m_script.calls, ElementsAre("SetFormat", "release config"));
    ASSERT_EQ(m_script.set.size(), 1u);
    EXPECT_EQ(m_script.set[0].subtype, m_script.formats[1].subtype);
    EXPECT_EQ(std::memcmp(&m_script.set[0].header, &m_script.formats[1].header, sizeof(VIDEOINFOHEADER)), 0);
    EXPECT_EQ(Object().Sent(), Wire{}) << "the position of a fixed mode is refused before the driver is asked";
    EXPECT_EQ(page->Page()->IsPageDirty(), S_FALSE);
}

TEST_F(FormatApply, a_scalable_mode_is_set_with_its_area_and_then_its_position) {
    const auto page = OpenArea();
    Type(*page, kWidth, "160");
    Type(*page, kHeight, "120");
    Type(*page, kX, "16");
    Type(*page, kY, "30");
    page->Drag(kRateSlider, 30000);

    Apply(*page);

    ASSERT_EQ(m_script.set.size(), 1u);
    const VIDEOINFOHEADER& header = m_script.set[0].header;
    EXPECT_EQ(header.rcSource.left, 16);
    EXPECT_EQ(header.rcSource.top, 30);
    EXPECT_EQ(header.rcSource.right, 160);
    EXPECT_EQ(header.rcSource.bottom, 150);
    EXPECT_EQ(header.bmiHeader.biWidth, 160);
    EXPECT_EQ(header.bmiHeader.biHeight, 120);
    EXPECT_EQ(header.bmiHeader.biSizeImage, 160u * 120);
    EXPECT_EQ(header.AvgTimePerFrame, 333333);
    EXPECT_EQ(m_script.set[0].sampleBytes, 160u * 120);
    Wire expected = GeometrySwitched();
    expected.push_back(SetPosition(0, 16, 30));
    EXPECT_EQ(Object().Sent(), expected);
    EXPECT_EQ(page->Page()->IsPageDirty(), S_FALSE);
}

TEST_F(FormatApply, a_success_is_kept_and_shown_again) {
    const auto page = OpenArea();
    Type(*page, kWidth, "160");
    Apply(*page);
    page->Pick(kMode, page->Entries(kMode).at(0));
    page->Pick(kMode, page->Entries(kMode).at(2));
    EXPECT_EQ(page->Text(kWidth), "160");
}

TEST_F(FormatApply, edits_that_are_not_applied_are_lost_with_the_next_choice) {
    const auto page = OpenArea();
    Type(*page, kWidth, "160");
    page->Pick(kMode, page->Entries(kMode).at(0));
    page->Pick(kMode, page->Entries(kMode).at(2));
    EXPECT_EQ(page->Text(kWidth), "320");
}

TEST_F(FormatApply, a_refusal_keeps_the_edits_on_the_page_but_not_in_the_mode) {
    for (const HRESULT code : {E_FAIL, S_FALSE}) {
        const auto page = OpenArea();
        Type(*page, kWidth, "160");
        m_script.setFormat = code;
        Object().Forget();

        Apply(*page);

        EXPECT_EQ(Object().Sent(), GeometrySwitched()) << "no position after a refusal";
        EXPECT_EQ(page->Text(kWidth), "160") << "nothing is shown anew";
        EXPECT_EQ(page->Page()->IsPageDirty(), S_FALSE) << "the frame is told of success";
        page->Pick(kMode, page->Selected(kMode));
        EXPECT_EQ(page->Text(kWidth), "320") << "the mode is as it was";
    }
}

TEST_F(FormatApply, a_refused_geometry_switch_counts_as_a_refusal) {
    const auto page = OpenArea();
    Type(*page, kWidth, "160");
    Camera().AddFault({.nth = 1, .id = kGeometryId, .action = kolmsim::SimFaultAction::fail, .code = E_FAIL});

    Apply(*page);

    EXPECT_THAT(m_script.set, IsEmpty());
    Type(*page, kWidth, "no number");
    EXPECT_EQ(page->Text(kWidth), "320");
}

TEST_F(FormatApply, a_refused_position_is_swallowed) {
    const auto page = OpenArea();
    Type(*page, kY, "30");
    Camera().AddFault(
        {.nth = 1, .id = kPositionId, .flags = 2, .action = kolmsim::SimFaultAction::fail, .code = E_FAIL});

    Apply(*page);

    EXPECT_EQ(page->Page()->IsPageDirty(), S_FALSE);
    Type(*page, kY, "no number");
    EXPECT_EQ(page->Text(kY), "30") << "the format itself was taken";
}

TEST_F(FormatApply, without_a_chosen_mode_nothing_is_applied) {
    const auto page = OpenArea();
    Type(*page, kWidth, "160");
    ::SendMessageA(page->Control(kMode), CB_SETCURSEL, static_cast<WPARAM>(-1), 0);

    Apply(*page);

    EXPECT_THAT(m_script.calls, IsEmpty());
    EXPECT_EQ(Object().Sent(), Wire{});
}

TEST_F(FormatApply, an_entry_that_points_outside_of_the_modes_is_not_applied) {
    const auto page = OpenArea();
    for (const LPARAM data : {LPARAM{4}, LPARAM{-1}, LPARAM{0x80000000}}) {
        ::SendMessageA(page->Control(kMode), CB_SETITEMDATA, 2, data);
        page->Notify(kMode, CBN_SELCHANGE);
        Apply(*page);
        EXPECT_THAT(m_script.calls, IsEmpty()) << data;
    }
}

}  // namespace
}  // namespace kolmfluxor::test
