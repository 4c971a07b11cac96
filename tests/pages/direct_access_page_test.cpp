/// @file  Page "Direct access" in a frame: what its controls show.

#include <algorithm>
#include <array>
#include <string>
#include <utility>
#include <vector>

#include <gmock/gmock.h>

#include <windows.h>

#include <commctrl.h>

#include "pages/direct_access_fixture.h"

namespace kolmfluxor::test {
namespace {

struct CatalogueRow {
    const char* name;
    std::uint32_t address;
};

// clang-format off
constexpr CatalogueRow kCatalogue[] = {
#include "unit/data/register_catalogue.inc"
};
// clang-format on

// ---- Opening ------------------------------------------------------------------------------------------------------

TEST_F(DirectAccessPage, opens_with_brightness_and_the_value_0_and_reads_no_register) {
    const auto page = Open();
    EXPECT_EQ(m_opening, Wire{});
    EXPECT_EQ(page->Selected(kNames), "Brightness");
    EXPECT_EQ(page->Text(kAddress), "f0f00800");
    EXPECT_EQ(page->Text(kValue), "0");
    EXPECT_EQ(page->Text(kBits), std::string(32, '0'));
    EXPECT_EQ(Tree(*page), kBrightnessZero);
    EXPECT_EQ(page->Page()->IsPageDirty(), S_FALSE);
    EXPECT_TRUE(page->Site().reports.empty());
}

TEST_F(DirectAccessPage, lists_the_whole_catalogue_sorted_with_the_addresses_as_data) {
    const auto page = Open();
    const Texts shown = page->Entries(kNames);
    std::vector<std::pair<std::string, LRESULT>> found;
    for (std::size_t i = 0; i < shown.size(); ++i)
        found.emplace_back(shown[i], ::SendMessageA(page->Control(kNames), CB_GETITEMDATA, i, 0));
    std::vector<std::pair<std::string, LRESULT>> expected;
    for (const CatalogueRow& row : kCatalogue)
        expected.emplace_back(row.name, static_cast<LRESULT>(row.address));
    EXPECT_EQ(found.size(), 358u);
    EXPECT_THAT(found, ::testing::UnorderedElementsAreArray(expected));
    EXPECT_TRUE(std::ranges::is_sorted(
        shown, [](const std::string& a, const std::string& b) { return ::lstrcmpiA(a.c_str(), b.c_str()) < 0; }));
}

TEST_F(DirectAccessPage, tree_is_expanded_in_full_on_its_background) {
    const auto page = Open();
    HWND const tree = page->Control(kTree);
    EXPECT_EQ(static_cast<COLORREF>(::SendMessageA(tree, TVM_GETBKCOLOR, 0, 0)), 0x00C8D0D4u);
    for (const CTreeReader::Item& item : CTreeReader(tree).Items()) {
        EXPECT_EQ(item.data, -1) << item.text;
        EXPECT_EQ(item.expanded, item.hasChildren) << item.text;
    }
}

TEST_F(DirectAccessPage, has_its_controls_with_their_texts_and_styles) {
    const auto page = Open();
    const auto style = [&](int id) { return ::GetWindowLongA(page->Control(id), GWL_STYLE); };
    const auto windowClass = [&](int id) {
        std::array<char, 64> name{};
        ::GetClassNameA(page->Control(id), name.data(), static_cast<int>(name.size()));
        return std::string(name.data());
    };
    EXPECT_EQ(windowClass(kTree), "SysTreeView32");
    EXPECT_EQ(style(kTree) & (TVS_HASLINES | TVS_HASBUTTONS), TVS_HASLINES | TVS_HASBUTTONS);
    EXPECT_EQ(windowClass(kNames), "ComboBox");
    EXPECT_EQ(style(kNames) & 0x3, CBS_DROPDOWNLIST);
    EXPECT_EQ(style(kNames) & CBS_SORT, CBS_SORT);
    COMBOBOXINFO combo{};
    combo.cbSize = sizeof combo;
    ASSERT_TRUE(::GetComboBoxInfo(page->Control(kNames), &combo));
    EXPECT_EQ(::GetWindowLongA(combo.hwndList, GWL_STYLE) & WS_VSCROLL, WS_VSCROLL);
    EXPECT_EQ(windowClass(kAddress), "Edit");
    EXPECT_EQ(windowClass(kValue), "Edit");
    EXPECT_EQ(windowClass(kBits), "Static");
    EXPECT_EQ(page->Text(kRead), "&Read");
    EXPECT_EQ(page->Text(kWrite), "&Write");
    EXPECT_EQ(style(kRead) & BS_TYPEMASK, BS_DEFPUSHBUTTON);
    EXPECT_EQ(style(kWrite) & BS_TYPEMASK, BS_PUSHBUTTON);

    Texts labels;
    int controls = 0;
    for (HWND child = ::GetWindow(page->Dialog(), GW_CHILD); child != nullptr;
         child = ::GetWindow(child, GW_HWNDNEXT)) {
        ++controls;
        if (static_cast<short>(::GetDlgCtrlID(child)) != -1) continue;
        std::array<char, 64> text{};
        ::GetWindowTextA(child, text.data(), static_cast<int>(text.size()));
        labels.emplace_back(text.data());
    }
    EXPECT_EQ(controls, 10);
    EXPECT_EQ(labels, (Texts{"Register name", "Address (0xffff 0000 0000+):", "Value:"}));
}

TEST_F(DirectAccessPage, starts_anew_on_every_activation) {
    const auto page = Open();
    page->Pick(kNames, "KolmTestImage");
    page->Click(kRead);
    Object().Forget();

    page->Reactivate();

    EXPECT_EQ(page->Selected(kNames), "Brightness");
    EXPECT_EQ(page->Entries(kNames).size(), 358u);
    EXPECT_EQ(page->Text(kValue), "0");
    EXPECT_EQ(Tree(*page), kBrightnessZero);
    EXPECT_EQ(Object().Sent(), Wire{});
}

// ---- Choosing a register ------------------------------------------------------------------------------------------

TEST_F(DirectAccessPage, choosing_a_register_decodes_the_old_value_anew_and_reads_nothing) {
    const auto page = Open();
    page->Click(kRead);
    const std::string value = page->Text(kValue);
    Object().Forget();

    page->Pick(kNames, "VFormatInq");

    EXPECT_EQ(Object().Sent(), Wire{});
    EXPECT_EQ(page->Text(kAddress), "f0f00100");
    EXPECT_EQ(page->Text(kValue), value);
    const Texts tree = Tree(*page);
    ASSERT_EQ(tree.size(), 8u);
    EXPECT_EQ(tree[1], "  Value: 0x" + value);
    EXPECT_EQ(tree[2], "    Format0: 1") << "brightness is present";
    EXPECT_EQ(tree.back(), "  VideoFormatInq: 0xf0f00100");
}

TEST_F(DirectAccessPage, each_name_leads_to_its_address) {
    const auto page = Open();
    for (const char* name : {"Initialize", "F7Mode7_07C_ValueSetting", "KolmTRiggerCounter", "KolmHDRKneePint1"}) {
        const auto* const row =
            std::ranges::find_if(kCatalogue, [&](const CatalogueRow& r) { return r.name == std::string(name); });
        page->Pick(kNames, name);
        EXPECT_EQ(page->Text(kAddress), Hex(row->address)) << name;
    }
}

TEST_F(DirectAccessPage, the_micro_sign_is_shown) {
    const auto page = Open();
    page->Pick(kNames, "KolmHDRKneePoint2");
    EXPECT_THAT(Tree(*page), ::testing::Contains("    Time \xB5s: 0"));
}

// ---- Typing a value -----------------------------------------------------------------------------------------------

TEST_F(DirectAccessPage, each_key_in_the_value_decodes_anew) {
    const auto page = Open();
    Type(*page, kValue, "8");
    EXPECT_EQ(page->Text(kBits), std::string(28, '0') + "1000");
    EXPECT_EQ(Tree(*page).at(1), "  Value: 0x8");
    Type(*page, kValue, "8000000");
    EXPECT_EQ(Tree(*page).at(2), "    Present: 0");
    Type(*page, kValue, "80000000");
    EXPECT_EQ(page->Text(kBits), "1" + std::string(31, '0'));
    EXPECT_EQ(Tree(*page).at(1), "  Value: 0x80000000");
    EXPECT_EQ(Tree(*page).at(2), "    Present: 1");
    EXPECT_EQ(Object().Sent(), Wire{}) << "typing sends nothing";
}

TEST_F(DirectAccessPage, a_value_that_is_no_number_decodes_as_0) {
    const auto page = Open();
    Paste(*page, kValue, "ff");
    for (const char* text : {"x12", "", "-", "\xB5"}) {
        SCOPED_TRACE(text);
        Paste(*page, kValue, text);
        EXPECT_EQ(page->Text(kBits), std::string(32, '0'));
        EXPECT_EQ(Tree(*page), kBrightnessZero);
        EXPECT_EQ(page->Text(kValue), text) << "nothing is cut while somebody types";
    }
}

TEST_F(DirectAccessPage, an_address_that_is_no_number_decodes_as_0) {
    const auto page = Open();
    Paste(*page, kAddress, "zz");
    Paste(*page, kValue, "1");
    EXPECT_EQ(Tree(*page).back(), "  Default: 0x0");
}

TEST_F(DirectAccessPage, beyond_a_Format_7_modes_registers_only_the_value_is_shown) {
    const auto page = Open();
    Paste(*page, kAddress, "f0f08080");
    Paste(*page, kValue, "7");
    EXPECT_EQ(Tree(*page), (Texts{"Current", "  Value: 0x7"}));
    Paste(*page, kAddress, "f0f09100");
    Paste(*page, kValue, "80004");
    EXPECT_EQ(Tree(*page), (Texts{"Current", "  Value: 0x80004", "    Width: 8", "    Height: 4",
                                  "  Format 7 Max image size: 0x0"}));
}

// ---- What is not the page's ---------------------------------------------------------------------------------------

TEST_F(DirectAccessPage, other_notifications_of_its_controls_change_nothing) {
    const auto page = Open();
    for (const auto& [id, code] : {std::pair{kNames, CBN_DROPDOWN},
                                   {kAddress, EN_CHANGE},
                                   {kValue, EN_UPDATE},
                                   {kRead, BN_DOUBLECLICKED},
                                   {kWrite, BN_SETFOCUS},
                                   {kBits, BN_CLICKED}}) {
        EXPECT_EQ(page->Notify(id, static_cast<UINT>(code)), 0) << id;
        EXPECT_EQ(Object().Sent(), Wire{}) << id;
    }
    EXPECT_EQ(Tree(*page), kBrightnessZero);
}

}  // namespace
}  // namespace kolmfluxor::test
