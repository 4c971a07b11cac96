/// @file  Page "LUT": its dialog, what it shows of the camera, and its switch.

#include <array>
#include <string>

#include "pages/lut_page_fixture.h"

namespace kolmfluxor::test {
namespace {

using Texts = std::vector<std::string>;

constexpr ULONG kOn = 2;
constexpr ULONG kOff = 4;

CWireRequest SetControl(ULONG number, ULONG state) {
    return Set(kLutControlId).With(24, number).With(28, state);
}

bool IsVisible(const CPageHost& page, int id) {
    return (::GetWindowLongPtrA(page.Control(id), GWL_STYLE) & WS_VISIBLE) != 0;
}

// ---- The dialog ---------------------------------------------------------------------------------------------------

struct ControlRow {
    int id;
    const char* windowClass;
    DWORD style, mask;
    const char* text;
};
constexpr ControlRow kControls[] = {
    {kEnable, "Button", BS_AUTOCHECKBOX, BS_TYPEMASK, "enable"},
    {kFunction, "Edit", 0, WS_VISIBLE, ""},
    {kLoad, "Button", BS_PUSHBUTTON, BS_TYPEMASK, "Load csv"},
    {kToCamera, "Button", BS_PUSHBUTTON, BS_TYPEMASK, "To cam"},
    {kNumber, "ComboBox", CBS_DROPDOWN, 3 | CBS_SORT, ""},
    {kEditorGroup, "Button", BS_GROUPBOX, BS_TYPEMASK, "LUT editor"},
    {kLoaded, "ComboBox", CBS_DROPDOWN | CBS_SORT, 3 | CBS_SORT, ""},
    {kPicture, "Static", SS_BLACKFRAME, SS_TYPEMASK, ""},
    {kControlGroup, "Button", BS_GROUPBOX, BS_TYPEMASK, "LUT ctrl"},
};

TEST_F(LutPage, has_each_control_of_its_kind) {
    const auto page = Open();
    for (const ControlRow& row : kControls) {
        SCOPED_TRACE(row.id);
        std::array<char, 32> name{};
        ::GetClassNameA(page->Control(row.id), name.data(), static_cast<int>(name.size()));
        EXPECT_STREQ(name.data(), row.windowClass);
        const auto style = static_cast<DWORD>(::GetWindowLongPtrA(page->Control(row.id), GWL_STYLE));
        EXPECT_EQ(style & row.mask, row.style);
        if (row.id != kNumber) {
            EXPECT_EQ(page->Text(row.id), row.text);
        }
    }
}

/// Texts of the labels, the hidden one included.
TEST_F(LutPage, has_its_labels_and_hides_the_function_editor) {
    const auto page = Open();
    Texts visible;
    Texts hidden;
    for (HWND child = ::GetWindow(page->Dialog(), GW_CHILD); child != nullptr;
         child = ::GetWindow(child, GW_HWNDNEXT)) {
        std::array<char, 64> name{};
        std::array<char, 64> text{};
        ::GetClassNameA(child, name.data(), static_cast<int>(name.size()));
        ::GetWindowTextA(child, text.data(), static_cast<int>(text.size()));
        if (std::string(name.data()) != "Static" || text[0] == '\0') continue;
        const bool shown = (::GetWindowLongPtrA(child, GWL_STYLE) & WS_VISIBLE) != 0;
        EXPECT_EQ(::IsWindowEnabled(child) != FALSE, shown) << text.data();
        (shown ? visible : hidden).emplace_back(text.data());
    }
    EXPECT_EQ(visible, (Texts{"LUT no", "Output", "Input"}));
    EXPECT_EQ(hidden, Texts{"Funtion Editor"}) << "spelled so";
    EXPECT_FALSE(IsVisible(*page, kFunction));
}

TEST_F(LutPage, every_control_is_inside_and_none_lies_on_another) {
    const auto page = Open();
    RECT client = {0, 0, 278, 260};
    ::MapDialogRect(page->Dialog(), &client);
    std::vector<RECT> places;
    for (HWND child = ::GetWindow(page->Dialog(), GW_CHILD); child != nullptr;
         child = ::GetWindow(child, GW_HWNDNEXT)) {
        const int id = ::GetDlgCtrlID(child);
        if (id == kEditorGroup || id == kControlGroup) continue;
        RECT place{};
        ::GetWindowRect(child, &place);
        ::MapWindowPoints(nullptr, page->Dialog(), reinterpret_cast<POINT*>(&place), 2);
        RECT common{};
        EXPECT_TRUE(::IntersectRect(&common, &place, &client) && ::EqualRect(&common, &place)) << id;
        for (const RECT& other : places)
            EXPECT_FALSE(::IntersectRect(&common, &place, &other)) << id;
        places.push_back(place);
    }
}

// ---- Opening ------------------------------------------------------------------------------------------------------

TEST_F(LutPage, shows_the_camera_as_it_is) {
    ASSERT_EQ(Object()->SetLutControl(1, 2), S_OK);
    Object().Forget();
    const auto page = Open();

    EXPECT_EQ(m_opening, (Wire{Get(kLutControlId), Get(kLutBitsId)}));
    EXPECT_TRUE(page->IsChecked(kEnable));
    EXPECT_EQ(page->Entries(kNumber), (Texts{"1", "2", "3", "4"}));
    EXPECT_EQ(page->Selected(kNumber), "3");
    for (WPARAM i = 0; i < 4; ++i)
        EXPECT_EQ(::SendMessageA(page->Control(kNumber), CB_GETITEMDATA, i, 0), static_cast<LRESULT>(i));
    for (const int id : {kControlGroup, kEnable, kNumber, kEditorGroup, kLoad, kFunction})
        EXPECT_TRUE(page->IsEnabled(id)) << id;
    EXPECT_FALSE(IsVisible(*page, kFunction)) << "enabled, and hidden all the same";
    for (const int id : {kToCamera, kLoaded, kPicture})
        EXPECT_FALSE(page->IsEnabled(id)) << id;
    EXPECT_EQ(page->Entries(kLoaded), Texts{});
}

TEST_F(LutPage, shows_that_the_LUT_is_off) {
    const auto page = Open();
    EXPECT_FALSE(page->IsChecked(kEnable));
    EXPECT_EQ(page->Selected(kNumber), "1");
}

TEST_F(LutPage, reads_the_camera_anew_on_each_activation) {
    const auto page = Open();
    ASSERT_EQ(Object()->SetLutControl(1, 3), S_OK);
    Object().Forget();

    page->Reactivate();

    EXPECT_EQ(Object().Sent(), (Wire{Get(kLutControlId), Get(kLutBitsId)}));
    EXPECT_TRUE(page->IsChecked(kEnable));
    EXPECT_EQ(page->Selected(kNumber), "4");
}

TEST_F(LutPage, stays_as_its_template_when_the_LUT_control_cannot_be_read) {
    Camera().AddFault({.nth = 1, .id = kLutControlId, .action = kolmsim::SimFaultAction::fail, .code = E_FAIL});
    const auto page = Open();
    EXPECT_EQ(m_opening, Wire{Get(kLutControlId)});
    for (const ControlRow& row : kControls)
        EXPECT_FALSE(page->IsEnabled(row.id)) << row.id;
    EXPECT_EQ(page->Entries(kNumber), Texts{});
}

TEST_F(LutPage, takes_another_success_code_for_a_failure) {
    Object().Patch(kLutControlId, 36, 8192, S_FALSE);
    EXPECT_FALSE(Open()->IsEnabled(kLoad));
    EXPECT_EQ(m_opening, Wire{Get(kLutControlId)});
}

TEST_F(LutPage, takes_another_success_code_of_the_bits_for_a_failure) {
    Object().Patch(kLutBitsId, 24, 8, S_FALSE);
    const auto page = Open();
    for (const ControlRow& row : kControls)
        EXPECT_FALSE(page->IsEnabled(row.id)) << row.id;
    EXPECT_EQ(page->Entries(kNumber), Texts{});
}

TEST_F(LutPage, stays_disabled_when_the_bits_per_value_cannot_be_read) {
    Camera().AddFault({.nth = 0, .id = kLutBitsId, .action = kolmsim::SimFaultAction::fail, .code = E_FAIL});
    const auto page = Open();
    EXPECT_EQ(m_opening, (Wire{Get(kLutControlId), Get(kLutBitsId)}));
    for (const ControlRow& row : kControls)
        EXPECT_FALSE(page->IsEnabled(row.id)) << row.id;
    EXPECT_EQ(page->Entries(kNumber), Texts{});
}

struct NumberRow {
    ULONG current, count;
    std::size_t entries;
    const char* selected;
    bool enabled;
};

TEST_F(LutPage, selects_the_current_LUT_when_there_is_one) {
    const NumberRow rows[] = {
        {0, 0, 0, "", false},
        {0, 1, 1, "1", false},
        {1, 1, 1, "", false},
        {0, 2, 2, "1", true},
        {1, 2, 2, "2", true},
        {2, 2, 2, "", true},
        {3, 2, 2, "", true},
        {254, 255, 255, "255", true},
        {0xFFFFFFFF, 2, 2, "", true},
        {0, 256, 255, "1", true},
        {5, 0xFFFFFFFF, 255, "6", true},
    };
    for (const NumberRow& row : rows) {
        SCOPED_TRACE(std::to_string(row.current) + " of " + std::to_string(row.count));
        Camera().ClearFaults();
        TellNumbers(row.current, row.count);
        const auto page = Open();
        EXPECT_EQ(page->Entries(kNumber).size(), row.entries);
        EXPECT_EQ(page->Selected(kNumber), row.selected);
        EXPECT_EQ(page->IsEnabled(kNumber), row.enabled);
        EXPECT_TRUE(page->IsEnabled(kEnable));
    }
}

// ---- The switch ---------------------------------------------------------------------------------------------------

TEST_F(LutPage, enable_switches_the_selected_LUT) {
    const auto page = Open();

    page->Click(kEnable);
    EXPECT_EQ(Object().Sent(), Wire{SetControl(0, kOn)});
    page->Click(kEnable);
    EXPECT_EQ(Object().Sent(), Wire{SetControl(0, kOff)});
}

TEST_F(LutPage, a_choice_of_a_LUT_sends_it_with_the_state_of_enable) {
    const auto page = Open();

    page->Pick(kNumber, "3");
    EXPECT_EQ(Object().Sent(), Wire{SetControl(2, kOff)});
    page->Click(kEnable);
    EXPECT_EQ(Object().Sent(), Wire{SetControl(2, kOn)});
    page->Pick(kNumber, "4");
    EXPECT_EQ(Object().Sent(), Wire{SetControl(3, kOn)});
}

TEST_F(LutPage, a_refused_switch_is_not_reported) {
    const auto page = Open();
    Object().FailNth(0, E_FAIL);
    CModalUser user;
    page->Click(kEnable);
    EXPECT_EQ(user.Messages(), std::vector<SeenMessage>{});
    EXPECT_EQ(Object().Sent(), Wire{SetControl(0, kOn)}) << "and nothing is asked";
}

TEST_F(LutPage, without_a_selected_LUT_nothing_is_sent) {
    TellNumbers(4, 4);
    const auto page = Open();
    EXPECT_EQ(page->Selected(kNumber), "");

    page->Click(kEnable);
    page->Notify(kNumber, CBN_SELCHANGE);
    page->Notify(kToCamera, BN_CLICKED);

    EXPECT_EQ(Object().Sent(), Wire{});
}

TEST_F(LutPage, a_loaded_LUT_without_a_number_for_it_is_not_sent) {
    Tell(4, 8);
    TellNumbers(4, 4);
    const auto page = Open();
    ASSERT_EQ(Load(*page, "In,A\n0,1\n1,2\n2,3\n3,4\n"), std::vector<SeenMessage>{});
    ASSERT_TRUE(page->IsEnabled(kToCamera));
    ASSERT_EQ(page->Selected(kNumber), "");
    Object().Forget();

    page->Notify(kToCamera, BN_CLICKED);

    EXPECT_EQ(Object().Sent(), Wire{});
}

TEST_F(LutPage, groups_hold_their_controls_in_the_agreed_places) {
    const auto page = Open();
    const auto place = [&](int id) {
        RECT area{};
        ::GetWindowRect(page->Control(id), &area);
        return area;
    };
    const auto holds = [&](int group, int id) {
        const RECT outer = place(group);
        const RECT inner = place(id);
        return inner.left >= outer.left && inner.right <= outer.right && inner.top >= outer.top &&
               inner.bottom <= outer.bottom;
    };
    for (const int id : {kEnable, kNumber})
        EXPECT_TRUE(holds(kControlGroup, id)) << id;
    for (const int id : {kLoad, kLoaded, kToCamera, kPicture})
        EXPECT_TRUE(holds(kEditorGroup, id)) << id;
    EXPECT_LE(place(kControlGroup).bottom, place(kEditorGroup).top);
    for (const int id : {kLoad, kLoaded, kToCamera})
        EXPECT_LT(place(id).right, place(kPicture).left) << id;
    EXPECT_LE(place(kLoad).bottom, place(kLoaded).top);
    EXPECT_LE(place(kLoaded).bottom, place(kToCamera).top);
    const auto label = [&](const char* text) {
        HWND const window = ::FindWindowExA(page->Dialog(), nullptr, "Static", text);
        EXPECT_NE(window, nullptr) << text;
        RECT area{};
        ::GetWindowRect(window, &area);
        return area;
    };
    EXPECT_GE(label("Input").top, place(kPicture).bottom);
    EXPECT_LE(label("Output").right, place(kPicture).left);
}

TEST_F(LutPage, other_notifications_send_nothing) {
    const auto page = Open();
    for (const int id : {kEnable, kNumber, kLoaded, kLoad, kToCamera, kFunction}) {
        for (const UINT code : {UINT{CBN_EDITCHANGE}, UINT{CBN_DROPDOWN}, UINT{EN_UPDATE}, UINT{EN_CHANGE}})
            page->Notify(id, code);
    }
    ::SetWindowTextA(page->Control(kFunction), "x * x");
    EXPECT_EQ(Object().Sent(), Wire{});
    EXPECT_EQ(page->Text(kFunction), "x * x") << "the function editor has no effect";
}

}  // namespace
}  // namespace kolmfluxor::test
