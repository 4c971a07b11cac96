/// @file  Page "Direct access" in a frame: reading and writing registers, by button and by hot key.

#include <array>
#include <string>
#include <utility>

#include <windows.h>

#include "pages/direct_access_fixture.h"

namespace kolmfluxor::test {
namespace {

/// The same page; a suite of its own.
class DirectAccessRegisters : public DirectAccessPage {};

// ---- Read ---------------------------------------------------------------------------------------------------------

TEST_F(DirectAccessRegisters, read_shows_the_register_its_fields_and_its_bits) {
    ASSERT_TRUE(Camera().PokeRegister(kTestImage, 0x80E00003));
    const auto page = Open();
    page->Pick(kNames, "KolmTestImage");

    page->Click(kRead);

    EXPECT_EQ(Object().Sent(), Wire{ReadOf(kTestImage)});
    EXPECT_EQ(page->Text(kValue), "80e00003");
    EXPECT_EQ(page->Text(kBits), "10000000111000000000000000000011");
    EXPECT_EQ(Tree(*page),
              (Texts{"Current", "  Value: 0x80e00003", "    Presents: 1", "    Image1Inq: 1", "    Image2Inq: 1",
                     "    Image3Inq: 1", "    Image4Inq: 0", "    Image5Inq: 0", "    Image6Inq: 0", "    Image7Inq: 0",
                     "    ImageId: 3", "  TestImage: 0xf1000210"}));
    for (const CTreeReader::Item& item : CTreeReader(page->Control(kTree)).Items())
        EXPECT_EQ(item.expanded, item.hasChildren) << item.text;
}

TEST_F(DirectAccessRegisters, a_failed_read_shows_all_ones) {
    const auto page = Open();
    Object().FailNth(1, E_ACCESSDENIED);

    page->Click(kRead);

    EXPECT_EQ(Object().Sent().size(), 1u);
    EXPECT_EQ(page->Text(kValue), "ffffffff");
    EXPECT_EQ(page->Text(kBits), std::string(32, '1'));
    EXPECT_EQ(Tree(*page).at(1), "  Value: 0xffffffff");
}

TEST_F(DirectAccessRegisters, read_cuts_the_address_behind_its_last_leading_digit) {
    struct Row {
        const char *typed, *left;
        ULONG address;
    };
    for (const auto& [typed, left, address] : {Row{"f0f0z800", "f0f0", 0xF0F0},
                                               {"x12", "x", 0},
                                               {"F1000210h", "F1000210", kTestImage},
                                               {"", "", 0},
                                               {"0xf0f00800", "0", 0},
                                               {" f0", " ", 0},
                                               {"F0f00800", "F0f00800", kBrightness}}) {
        SCOPED_TRACE(typed);
        const auto page = Open();
        Paste(*page, kAddress, typed);
        EXPECT_EQ(Object().Sent(), Wire{});

        page->Click(kRead);

        EXPECT_EQ(page->Text(kAddress), left);
        EXPECT_EQ(Object().Sent(), Wire{ReadOf(address)});
    }
}

TEST_F(DirectAccessRegisters, read_decodes_under_the_typed_address) {
    const auto page = Open();
    Type(*page, kAddress, "f0f00100");
    EXPECT_EQ(Tree(*page), kBrightnessZero) << "typing an address alone decodes nothing";

    page->Click(kRead);

    EXPECT_EQ(Tree(*page).back(), "  VideoFormatInq: 0xf0f00100");
    EXPECT_EQ(page->Selected(kNames), "Brightness") << "the list stays";
}

TEST_F(DirectAccessRegisters, takes_255_characters_of_an_edit) {
    const auto page = Open();
    const std::string zeros(245, '0');
    Paste(*page, kAddress, (zeros + "f0f0080012").c_str());  // 255
    page->Click(kRead);
    EXPECT_EQ(Object().Sent(), Wire{ReadOf(0xF0080012)});
    Paste(*page, kAddress, (zeros + "0f0f00800xyz").c_str());  // the x is the 255th
    page->Click(kRead);
    EXPECT_EQ(Object().Sent(), Wire{ReadOf(kBrightness)});
    EXPECT_EQ(page->Text(kAddress), zeros + "0f0f00800");
    Paste(*page, kAddress, (std::string(250, '0') + "12345678").c_str());  // the 5 is the 255th
    page->Click(kRead);
    EXPECT_EQ(Object().Sent(), Wire{ReadOf(0x12345)});
    const std::string strangerBehind = zeros + "00f0f00800z";  // the z is the 256th
    Paste(*page, kAddress, strangerBehind.c_str());
    page->Click(kRead);
    EXPECT_EQ(Object().Sent(), Wire{ReadOf(kBrightness)});
    EXPECT_EQ(page->Text(kAddress), strangerBehind) << "what nobody looks at is not cut";
}

// ---- Write --------------------------------------------------------------------------------------------------------

TEST_F(DirectAccessRegisters, write_sends_the_value_and_reads_nothing_back) {
    const auto page = Open();
    page->Pick(kNames, "KolmTestImage");
    Paste(*page, kValue, "3");
    const CTreeReader tree(page->Control(kTree));
    tree.Collapse(tree.Items().at(1).handle);

    page->Click(kWrite);

    EXPECT_EQ(Object().Sent(), Wire{WriteOf(kTestImage, 3)});
    EXPECT_EQ(Register(kTestImage) & 0xF, 3u);
    EXPECT_EQ(page->Text(kValue), "3");
    EXPECT_FALSE(tree.Items().at(1).expanded) << "the tree is not built anew";
}

TEST_F(DirectAccessRegisters, write_cuts_the_address_and_the_value) {
    const auto page = Open();
    Paste(*page, kAddress, "f1000210 here");
    Paste(*page, kValue, "2,5");

    page->Click(kWrite);

    EXPECT_EQ(page->Text(kAddress), "f1000210");
    EXPECT_EQ(page->Text(kValue), "2");
    EXPECT_EQ(Object().Sent(), Wire{WriteOf(kTestImage, 2)});
    EXPECT_EQ(Tree(*page).at(1), "  Value: 0x2");
}

TEST_F(DirectAccessRegisters, write_cuts_a_prefix_before_it_converts) {
    const auto page = Open();
    Paste(*page, kAddress, "0xf1000210");
    Paste(*page, kValue, "2,5");

    page->Click(kWrite);

    EXPECT_EQ(page->Text(kAddress), "0");
    EXPECT_EQ(page->Text(kValue), "2");
    EXPECT_EQ(Object().Sent(), Wire{WriteOf(0, 2)});
}

TEST_F(DirectAccessRegisters, write_sets_a_single_stranger_anew_and_so_decodes) {
    const auto page = Open();
    Paste(*page, kValue, "x");
    const CTreeReader tree(page->Control(kTree));
    tree.Collapse(tree.Items().at(1).handle);

    page->Click(kWrite);

    EXPECT_EQ(page->Text(kValue), "x");
    EXPECT_EQ(Object().Sent(), Wire{WriteOf(kBrightness, 0)});
    EXPECT_TRUE(tree.Items().at(1).expanded) << "the tree is built anew";
}

TEST_F(DirectAccessRegisters, write_takes_an_edit_without_a_digit_as_0) {
    const auto page = Open();
    Paste(*page, kValue, "zero");
    page->Click(kWrite);
    EXPECT_EQ(page->Text(kValue), "z");
    EXPECT_EQ(Object().Sent(), Wire{WriteOf(kBrightness, 0)});
}

TEST_F(DirectAccessRegisters, a_failed_write_leaves_the_page_as_it_is) {
    const auto page = Open();
    Paste(*page, kValue, "82000007");
    const Texts before = Tree(*page);
    Object().FailNth(1, E_ACCESSDENIED);

    page->Click(kWrite);

    EXPECT_EQ(Object().Sent().size(), 1u);
    EXPECT_EQ(page->Text(kValue), "82000007");
    EXPECT_EQ(Tree(*page), before);
}

TEST_F(DirectAccessRegisters, writing_and_reading_make_nothing_dirty_and_apply_sends_nothing) {
    const auto page = Open();
    page->Click(kRead);
    page->Click(kWrite);
    Object().Forget();
    EXPECT_EQ(page->Page()->IsPageDirty(), S_FALSE);
    EXPECT_EQ(page->Page()->Apply(), S_OK);
    EXPECT_EQ(Object().Sent(), Wire{});
    EXPECT_TRUE(page->Site().reports.empty());
}

// ---- Hot keys -----------------------------------------------------------------------------------------------------

TEST_F(DirectAccessRegisters, ctrl_R_reads_and_ctrl_W_writes) {
    const auto page = Open();
    HotKey(*page, MOD_CONTROL, 'R');
    EXPECT_EQ(Object().Sent(), Wire{ReadOf(kBrightness)});
    const ULONG value = Register(kBrightness);
    EXPECT_EQ(page->Text(kValue), Hex(value));
    HotKey(*page, MOD_CONTROL, 'W');
    EXPECT_EQ(Object().Sent(), Wire{WriteOf(kBrightness, value)});
}

TEST_F(DirectAccessRegisters, other_keys_and_other_modifiers_do_nothing) {
    const auto page = Open();
    for (const auto& [modifiers, key] : {std::pair{MOD_CONTROL | MOD_SHIFT, int{'R'}},
                                         {MOD_CONTROL | MOD_SHIFT, int{'W'}},
                                         {MOD_CONTROL | MOD_ALT, int{'R'}},
                                         {0, int{'R'}},
                                         {MOD_ALT, int{'W'}},
                                         {MOD_CONTROL, int{'r'}},
                                         {MOD_CONTROL, int{'X'}}}) {
        HotKey(*page, static_cast<UINT>(modifiers), static_cast<UINT>(key));
        EXPECT_EQ(Object().Sent(), Wire{}) << modifiers << " " << key;
    }
    EXPECT_EQ(Tree(*page), kBrightnessZero);
}

TEST_F(DirectAccessRegisters, real_keys_reach_it) {
    const auto page = Open();
    std::array<INPUT, 4> keys{};
    const std::array<WORD, 4> codes = {VK_CONTROL, 'R', 'R', VK_CONTROL};
    for (std::size_t i = 0; i < keys.size(); ++i) {
        keys[i].type = INPUT_KEYBOARD;
        keys[i].ki.wVk = codes[i];
        keys[i].ki.dwFlags = i < 2 ? 0 : KEYEVENTF_KEYUP;
    }
    ASSERT_EQ(::SendInput(4, keys.data(), sizeof(INPUT)), 4u);

    const ULONGLONG deadline = ::GetTickCount64() + 5000;
    while (page->Text(kValue) == "0" && ::GetTickCount64() < deadline) {
        MSG message{};
        while (::PeekMessageA(&message, nullptr, 0, 0, PM_REMOVE))
            ::DispatchMessageA(&message);
        ::MsgWaitForMultipleObjects(0, nullptr, FALSE, 100, QS_ALLINPUT);
    }

    EXPECT_EQ(Object().Sent(), Wire{ReadOf(kBrightness)});
    EXPECT_EQ(page->Text(kValue), Hex(Register(kBrightness)));
}

TEST_F(DirectAccessRegisters, keys_are_its_own_while_it_is_active_and_free_afterwards) {
    constexpr int kOurs = 77;
    for (const UINT key : {UINT{'R'}, UINT{'W'}}) {
        SCOPED_TRACE(key);
        {
            const auto page = Open();
            EXPECT_FALSE(::RegisterHotKey(nullptr, kOurs, MOD_CONTROL, key));
            EXPECT_EQ(::GetLastError(), static_cast<DWORD>(ERROR_HOTKEY_ALREADY_REGISTERED));
            page->Reactivate();
            EXPECT_FALSE(::RegisterHotKey(nullptr, kOurs, MOD_CONTROL, key));
        }
        EXPECT_TRUE(::RegisterHotKey(nullptr, kOurs, MOD_CONTROL, key)) << "given back";
        EXPECT_TRUE(::UnregisterHotKey(nullptr, kOurs));
    }
}

TEST_F(DirectAccessRegisters, opens_without_keys_that_somebody_else_has) {
    constexpr int kOurs = 77;
    ASSERT_TRUE(::RegisterHotKey(nullptr, kOurs, MOD_CONTROL, 'R'));
    {
        const auto page = Open();
        EXPECT_EQ(Tree(*page), kBrightnessZero);
        page->Click(kRead);
        EXPECT_EQ(Object().Sent(), Wire{ReadOf(kBrightness)});
    }
    EXPECT_TRUE(::UnregisterHotKey(nullptr, kOurs)) << "the page has not taken it away";
}

}  // namespace
}  // namespace kolmfluxor::test
