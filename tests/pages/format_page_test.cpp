/// @file  Page "Format": connection, the list of modes, and what choosing from it does.

#include <array>
#include <cstring>

#include <gmock/gmock.h>

#include "pages/format_page_fixture.h"

#include <uuids.h>  // needs the platform's interfaces before it
#include <vfwmsgs.h>

namespace kolmfluxor::test {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

using Calls = std::vector<std::string>;

constexpr const char* kModeTexts[] = {"DCam 640x480 Mono8[8Bit]", "DCam 640x480 YUV411[12Bit]",
                                      "F7M0 1280x960 Mono8[8Bit]", "F7M1 640x480 Mono8[8Bit]"};

// ---- Connection ---------------------------------------------------------------------------------------------------

/// The bare page, for calls that a host does not make.
class CBarePage {
public:
    CBarePage() {
        EXPECT_EQ(CModule::Get().Create(CLSID_KolmFluxorPage_Format, nullptr, IID_IPropertyPage,
                                        reinterpret_cast<void**>(&m_page)),
                  S_OK);
    }
    ~CBarePage() { EXPECT_EQ(m_page->Release(), 0u); }
    CBarePage(const CBarePage&) = delete;
    CBarePage& operator=(const CBarePage&) = delete;

    HRESULT Connect(IUnknown* object) { return m_page->SetObjects(1, &object); }
    HRESULT Disconnect() { return m_page->SetObjects(0, nullptr); }
    IPropertyPage* operator->() const { return m_page; }

private:
    IPropertyPage* m_page = nullptr;
};

TEST_F(FormatPage, connecting_takes_the_first_pin_and_gives_the_rest_back) {
    CBarePage page;

    EXPECT_EQ(page.Connect(Object().Filter().Unknown()), S_OK);

    EXPECT_EQ(m_script.calls, (Calls{"EnumPins", "Next 1", "release enumerator", "query config", "release filter"}));
    EXPECT_EQ(m_script.references.pin, 1u);
    EXPECT_EQ(m_script.references.config, 1u);
    EXPECT_EQ(page.Disconnect(), S_OK);
}

TEST_F(FormatPage, disconnecting_releases_camera_then_pin_then_configuration) {
    CBarePage page;
    const ULONG before = Object().Filter().References();
    ASSERT_EQ(page.Connect(Object().Filter().Unknown()), S_OK);
    EXPECT_EQ(Object().Filter().References(), before + 1);
    m_script.calls.clear();
    m_script.onRelease = [&](const std::string& name) {
        if (name == "pin") EXPECT_EQ(Object().Filter().References(), before) << "the camera goes first";
    };

    EXPECT_EQ(page.Disconnect(), S_OK);

    EXPECT_EQ(m_script.calls, (Calls{"release pin", "release config"}));
    EXPECT_EQ(page.Disconnect(), S_OK) << "nothing is left to release";
    EXPECT_EQ(m_script.calls.size(), 2u);
}

TEST_F(FormatPage, connecting_passes_on_what_fails_and_leaves_nothing_behind) {
    struct Row {
        const char* name;
        HRESULT CScriptedFilter::*result;
        HRESULT code, expected;
    };
    const Row rows[] = {
        {"EnumPins", &CScriptedFilter::enumPins, E_OUTOFMEMORY, E_OUTOFMEMORY},
        {"Next", &CScriptedFilter::next, VFW_E_ENUM_OUT_OF_SYNC, VFW_E_ENUM_OUT_OF_SYNC},
        {"Next without a pin", &CScriptedFilter::next, S_FALSE, VFW_E_NOT_FOUND},
        {"EnumPins", &CScriptedFilter::enumPins, S_FALSE, S_FALSE},
        {"query of the configuration", &CScriptedFilter::queryConfig, E_NOINTERFACE, E_NOINTERFACE},
    };
    for (const Row& row : rows) {
        SCOPED_TRACE(row.name);
        CBarePage page;
        m_script.*row.result = row.code;

        EXPECT_EQ(page.Connect(Object().Filter().Unknown()), row.expected);

        m_script.*row.result = S_OK;
        EXPECT_EQ(page.Disconnect(), S_OK);
        EXPECT_EQ(m_script.references.filter + m_script.references.pins + m_script.references.pin, 0u);
    }
}

TEST_F(FormatPage, connecting_needs_the_interface_and_a_filter) {
    CBarePage page;
    COuterObject stranger;
    EXPECT_EQ(page.Connect(nullptr), E_POINTER);
    EXPECT_EQ(page.Connect(stranger.Unknown()), E_NOINTERFACE);
    EXPECT_THAT(m_script.calls, IsEmpty());

    Object().Filter().Offer(IID_IBaseFilter, nullptr);
    EXPECT_EQ(page.Connect(Object().Filter().Unknown()), E_NOINTERFACE) << "no filter";
    EXPECT_EQ(page.Disconnect(), S_OK);
}

TEST_F(FormatPage, connecting_again_gives_the_first_connection_back) {
    CBarePage page;
    ASSERT_EQ(page.Connect(Object().Filter().Unknown()), S_OK);
    ASSERT_EQ(page.Connect(Object().Filter().Unknown()), S_OK);
    EXPECT_EQ(m_script.references.pin, 1u);
    EXPECT_EQ(m_script.references.config, 1u);
    EXPECT_EQ(page.Disconnect(), S_OK);
}

TEST_F(FormatPage, a_second_connection_that_fails_leaves_nothing_of_the_first) {
    CBarePage page;
    for (const HRESULT code : {E_FAIL, S_FALSE}) {
        ASSERT_EQ(page.Connect(Object().Filter().Unknown()), S_OK);
        m_script.next = code;
        EXPECT_EQ(page.Connect(Object().Filter().Unknown()), code == E_FAIL ? E_FAIL : VFW_E_NOT_FOUND);
        EXPECT_EQ(m_script.references.pin + m_script.references.config, 0u);
        m_script.next = S_OK;
    }
    EXPECT_EQ(page.Disconnect(), S_OK);
}

TEST_F(FormatPage, answers_without_an_object_are_failures) {
    CBarePage page;
    m_script.givesNothing = true;
    EXPECT_EQ(page.Connect(Object().Filter().Unknown()), E_UNEXPECTED);
    EXPECT_EQ(page.Disconnect(), S_OK);
    m_script.givesNothing = false;
    m_script.givesNoPin = true;
    EXPECT_EQ(page.Connect(Object().Filter().Unknown()), VFW_E_NOT_FOUND);
    EXPECT_EQ(page.Disconnect(), S_OK);
}

// ---- Opening ------------------------------------------------------------------------------------------------------

TEST_F(FormatPage, opening_asks_in_its_order_and_writes_nothing) {
    const auto page = Open();

    EXPECT_EQ(m_opening, (Wire{Get(12, 32), Get(kSpeedId), Get(kSpeedId), Get(kChannelId), Get(kChannelId),
                               Get(kChannelId), GetPosition(0), GetPosition(1)}));
    EXPECT_EQ(m_openingCalls, (Calls{"EnumPins", "Next 1", "release enumerator", "query config", "release filter",
                                     "query config", "GetFormat", "GetNumberOfCapabilities", "GetStreamCaps 0",
                                     "GetStreamCaps 1", "GetStreamCaps 2", "GetStreamCaps 3", "release config"}));
    EXPECT_TRUE(page->Site().reports.empty()) << "opening must not make the page dirty";
    EXPECT_EQ(page->Page()->IsPageDirty(), S_FALSE);
}

TEST_F(FormatPage, every_control_is_of_its_kind_and_the_up_downs_have_their_edits) {
    const auto page = Open();
    const std::pair<int, const char*> kinds[] = {
        {kMode, "ComboBox"},
        {kX, "Edit"},
        {kY, "Edit"},
        {kWidth, "Edit"},
        {kHeight, "Edit"},
        {kWidthMax, "Static"},
        {kHeightMax, "Static"},
        {kWidthUnit, "Static"},
        {kHeightUnit, "Static"},
        {kRateSlider, TRACKBAR_CLASSA},
        {kRateMin, "Static"},
        {kRateMax, "Static"},
        {kRate, "Edit"},
        {kChannel, "ComboBox"},
        {kSpeed, "ComboBox"},
        {kMultiShot, "Edit"},
    };
    for (const auto& [id, kind] : kinds) {
        std::array<char, 64> name{};
        ::GetClassNameA(page->Control(id), name.data(), static_cast<int>(name.size()));
        EXPECT_STREQ(name.data(), kind) << id;
    }
    for (const auto& [spin, edit] :
         {std::pair{kXSpin, kX}, {kYSpin, kY}, {kWidthSpin, kWidth}, {kHeightSpin, kHeight}}) {
        EXPECT_EQ(::SendMessageA(page->Control(spin), UDM_GETBUDDY, 0, 0),
                  reinterpret_cast<LRESULT>(page->Control(edit)))
            << spin;
    }
    EXPECT_NE(::GetWindowLongPtrA(page->Control(kRate), GWL_STYLE) & ES_READONLY, 0);
}

TEST_F(FormatPage, multi_shot_is_a_placeholder) {
    const auto page = OpenAt(2);
    EXPECT_EQ(page->Text(kMultiShot), "0");
    EXPECT_FALSE(page->IsEnabled(kMultiShot));
}

// ---- The list of modes --------------------------------------------------------------------------------------------

TEST_F(FormatPage, lists_every_video_mode_and_selects_the_current_one) {
    const auto page = OpenAt(1);
    EXPECT_THAT(page->Entries(kMode), ::testing::ElementsAreArray(kModeTexts));
    EXPECT_EQ(page->Selected(kMode), kModeTexts[1]);
    for (WPARAM i = 0; i < 4; ++i) {
        EXPECT_EQ(::SendMessageA(page->Control(kMode), CB_GETITEMDATA, i, 0), static_cast<LRESULT>(i));
    }
}

TEST_F(FormatPage, a_scalable_mode_without_a_number_says_only_F7) {
    m_script.formats[2].header.dwBitErrorRate = 9u << 8;
    m_script.formats[3].header.dwBitErrorRate = 7u << 8 | 9;
    const auto page = Open();
    EXPECT_THAT(page->Entries(kMode),
                ElementsAre(kModeTexts[0], kModeTexts[1], "F7 1280x960 Mono8[8Bit]", "F7 640x480 Mono8[8Bit]"));
}

TEST_F(FormatPage, mode_texts_show_the_largest_size_for_fixed_modes_too) {
    m_script.formats[0].caps.MaxCroppingSize = {1280, 1024};
    const auto page = Open();
    EXPECT_EQ(page->Entries(kMode).at(0), "DCam 1280x1024 Mono8[8Bit]");
}

TEST_F(FormatPage, mode_texts_do_not_depend_on_the_image_position) {
    m_script.formats[2].caps.MaxCroppingSize = {0, 0};  // the largest size is then the current one
    Place(16, 0);
    const auto page = Open();
    EXPECT_EQ(page->Entries(kMode).at(2), kModeTexts[2]);
}

TEST_F(FormatPage, a_scalable_mode_is_compared_with_its_image_position) {
    Place(8, 6);
    const auto page = OpenAt(2);
    EXPECT_EQ(page->Selected(kMode), kModeTexts[0]) << "the entry is now narrower than the current format: no match";
}

TEST_F(FormatPage, a_match_behind_the_end_of_the_list_leaves_nothing_selected) {
    m_script.formats[0].result = E_FAIL;
    const auto page = OpenAt(3);
    EXPECT_EQ(page->Selected(kMode), "");
    EXPECT_EQ(Area(*page), (std::vector<std::string>{"", "", "", ""}));
    EXPECT_TRUE(AreaIsEnabled(*page, false));
}

TEST_F(FormatPage, capabilities_that_are_no_video_are_left_out) {
    ScriptedFormat audio = m_script.formats[0];
    audio.majorType = MEDIATYPE_Audio;
    ScriptedFormat other = m_script.formats[0];
    other.formatType = FORMAT_VideoInfo2;
    ScriptedFormat shortBlock = m_script.formats[0];
    shortBlock.blockBytes = sizeof(VIDEOINFOHEADER) - 1;
    ScriptedFormat noBlock = m_script.formats[0];
    noBlock.blockBytes = 0;
    ScriptedFormat noType = m_script.formats[0];
    noType.noType = true;
    m_script.formats.insert(m_script.formats.end(), {audio, other, shortBlock, noBlock, noType});
    const auto page = Open();
    EXPECT_EQ(page->Entries(kMode).size(), 4u);
}

TEST_F(FormatPage, a_capability_that_cannot_be_read_is_left_out) {
    for (const HRESULT code : {E_FAIL, S_FALSE}) {
        m_script.formats[1].result = code;
        const auto page = Open();
        EXPECT_THAT(page->Entries(kMode), ElementsAre(kModeTexts[0], kModeTexts[2], kModeTexts[3])) << code;
        EXPECT_EQ(::SendMessageA(page->Control(kMode), CB_GETITEMDATA, 1, 0), 2) << "data is the capability's index";
    }
}

TEST_F(FormatPage, positions_are_taken_for_capability_indexes) {
    // With one capability left out, the entry that is selected, and the one that an entry stands for, are off by one.
    m_script.formats[0].result = E_FAIL;
    m_script.current = 1;
    const auto page = Open();
    EXPECT_EQ(page->Selected(kMode), kModeTexts[2]) << "position 1 is capability 2";
    EXPECT_EQ(Area(*page), (std::vector<std::string>{"0", "0", "640", "480"})) << "the store's entry 2 is capability 3";
}

TEST_F(FormatPage, the_last_of_several_matches_is_selected) {
    m_script.formats[3] = m_script.formats[0];
    const auto page = OpenAt(0);
    EXPECT_EQ(::SendMessageA(page->Control(kMode), CB_GETCURSEL, 0, 0), 3);
}

TEST_F(FormatPage, without_a_match_the_first_mode_is_selected) {
    ScriptedFormat stranger = FixedMode(320, 240, FourCc("UYVY"), 16, 1);
    stranger.result = E_FAIL;  // the current format, but not among the capabilities
    m_script.formats.push_back(stranger);
    const auto page = OpenAt(4);
    EXPECT_EQ(page->Selected(kMode), kModeTexts[0]);
}

TEST_F(FormatPage, a_pin_that_cannot_be_read_leaves_an_empty_list) {
    struct Row {
        const char* name;
        HRESULT CScriptedFilter::*result;
        std::size_t calls;  ///< of the pin, with the release at the end
    };
    const Row rows[] = {{"GetFormat", &CScriptedFilter::getFormat, 3},
                        {"GetNumberOfCapabilities", &CScriptedFilter::getCount, 4}};
    for (const Row& row : rows) {
        for (const HRESULT code : {E_FAIL, S_FALSE}) {
            SCOPED_TRACE(row.name);
            m_script.*row.result = code;
            const auto page = Open();
            EXPECT_THAT(page->Entries(kMode), IsEmpty());
            EXPECT_EQ(page->Selected(kMode), "");
            EXPECT_EQ(m_openingCalls.size(), 5 + row.calls);
            EXPECT_TRUE(AreaIsEnabled(*page, false));
            EXPECT_FALSE(page->IsEnabled(kRateSlider));
            EXPECT_FALSE(page->Entries(kSpeed).empty()) << "the rest of the page works";
            m_script.*row.result = S_OK;
        }
    }
}

TEST_F(FormatPage, a_current_format_that_is_none_leaves_an_empty_list) {
    m_script.noCurrent = true;
    const auto page = Open();
    EXPECT_THAT(page->Entries(kMode), IsEmpty());
}

TEST_F(FormatPage, capability_records_of_another_size_are_not_read) {
    for (const int bytes : {0, 127, 129, -128}) {
        m_script.recordBytes = bytes;
        const auto page = Open();
        EXPECT_THAT(page->Entries(kMode), IsEmpty()) << bytes;
        EXPECT_THAT(m_openingCalls, ::testing::Not(::testing::Contains("GetStreamCaps 0")));
    }
}

TEST_F(FormatPage, an_absurd_number_of_capabilities_does_not_hang) {
    for (const int count : {0x7FFFFFFF, 0, -1, -0x7FFFFFFF}) {
        m_script.claimedCount = count;
        const auto page = Open();
        const auto asked = static_cast<std::size_t>(std::ranges::count_if(
            m_openingCalls, [](const std::string& call) { return call.starts_with("GetStreamCaps"); }));
        EXPECT_EQ(asked, count > 0 ? 1024u : 0u);
        EXPECT_EQ(page->Entries(kMode).size(), count > 0 ? 4u : 0u);
    }
}

TEST_F(FormatPage, the_list_is_read_anew_at_each_activation) {
    const auto page = OpenAt(0);
    m_script.formats.resize(1);
    page->Reactivate();
    EXPECT_THAT(page->Entries(kMode), ElementsAre(kModeTexts[0]));
    m_script.current = 0;
    m_script.getFormat = E_FAIL;
    page->Reactivate();
    EXPECT_THAT(page->Entries(kMode), IsEmpty());
    page->Notify(kMode, CBN_SELCHANGE);
    EXPECT_THAT(Area(*page), ElementsAre("", "", "", "")) << "nothing to show, no harm";
}

TEST_F(FormatPage, choosing_a_mode_shows_it_and_marks_the_page) {
    const auto page = OpenAt(0);

    page->Pick(kMode, kModeTexts[2]);

    EXPECT_EQ(Area(*page), (std::vector<std::string>{"0", "0", "1280", "960"}));
    EXPECT_TRUE(AreaIsEnabled(*page, true));
    EXPECT_EQ(page->Page()->IsPageDirty(), S_OK);
    EXPECT_FALSE(page->Site().reports.empty());
    EXPECT_EQ(Object().Sent(), Wire{}) << "the camera hears of it with Apply";
    EXPECT_THAT(m_script.calls, IsEmpty());
}

TEST_F(FormatPage, choosing_nothing_marks_the_page_all_the_same) {
    const auto page = OpenAt(0);
    ::SendMessageA(page->Control(kMode), CB_SETCURSEL, static_cast<WPARAM>(-1), 0);
    page->Notify(kMode, CBN_SELCHANGE);
    EXPECT_EQ(Area(*page), (std::vector<std::string>{"0", "0", "640", "480"})) << "what was shown stays";
    EXPECT_EQ(page->Page()->IsPageDirty(), S_OK);
}

}  // namespace
}  // namespace kolmfluxor::test
