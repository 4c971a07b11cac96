/// @file  The wrappers of the register page: the edit for hexadecimal numbers and the tree view.

#include <gtest/gtest.h>

#include <string>
#include <tuple>
#include <vector>

#include "pages/common/hex_edit_ctrl.h"
#include "pages/common/tree_view_ctrl.h"
#include "support/control_window.h"
#include "support/thrown_text.h"
#include "support/tree_reader.h"

namespace kolmfluxor::test {
namespace {

constexpr int kId = 1234;

TEST(HexEditCtrl, says_its_text_without_a_dialog) {
    const CHexEditCtrl edit(kId, nullptr);
    EXPECT_EQ(ThrownText([&] { std::ignore = edit.Value(); }),
              "CHexEditCtrl::Dlg: NullPointer: dialog pointer still NULL");
}

TEST(HexEditCtrl, shows_and_takes_numbers) {
    CControlWindow window;
    window.Add("EDIT", kId);
    const CHexEditCtrl edit(kId, window.Place());
    EXPECT_EQ(edit.Value(), 0u) << "empty";
    edit.SetValue(0xF0F0ABCD);
    EXPECT_EQ(window.Text(kId), "f0f0abcd");
    EXPECT_EQ(edit.Value(), 0xF0F0ABCDU);
}

TEST(HexEditCtrl, cuts_and_leaves_alone_what_need_not_be_cut) {
    CControlWindow window;
    HWND const control = window.Add("EDIT", kId);
    const CHexEditCtrl edit(kId, window.Place());
    ::SetWindowTextA(control, "12g4");
    edit.Cut();
    EXPECT_EQ(window.Text(kId), "12");
    ::SendMessageA(control, EM_SETMODIFY, TRUE, 0);  // which a new text would reset
    edit.Cut();
    EXPECT_TRUE(::SendMessageA(control, EM_GETMODIFY, 0, 0));
}

TEST(HexEditCtrl, writes_back_a_single_character_that_is_no_digit) {
    CControlWindow window;
    HWND const control = window.Add("EDIT", kId);
    const CHexEditCtrl edit(kId, window.Place());
    ::SetWindowTextA(control, "x");
    ::SendMessageA(control, EM_SETMODIFY, TRUE, 0);
    edit.Cut();
    EXPECT_EQ(window.Text(kId), "x");
    EXPECT_FALSE(::SendMessageA(control, EM_GETMODIFY, 0, 0)) << "its text was set";
}

using Texts = std::vector<std::string>;

class TreeViewCtrl : public ::testing::Test {
protected:
    CControlWindow m_window;
    HWND m_control = m_window.Add(WC_TREEVIEWA, kId, TVS_HASLINES | TVS_HASBUTTONS);
    CTreeViewCtrl m_tree{kId, m_window.Place()};
    CTreeReader m_reader{m_control};
};

TEST_F(TreeViewCtrl, says_its_text_without_a_dialog) {
    const CTreeViewCtrl tree(kId, nullptr);
    EXPECT_EQ(ThrownText([&] { std::ignore = tree.Insert(TVI_ROOT, "x"); }),
              "CTreeViewCtrl::Dlg: NullPointer: dialog pointer still NULL");
}

TEST_F(TreeViewCtrl, inserts_each_item_as_the_last_child) {
    HTREEITEM const root = m_tree.Insert(TVI_ROOT, "root");
    HTREEITEM const first = m_tree.Insert(root, "b \xB5");
    std::ignore = m_tree.Insert(root, "a");
    std::ignore = m_tree.Insert(first, "z");
    std::ignore = m_tree.Insert(first, "y");
    EXPECT_EQ(m_reader.Texts(), (Texts{"root", "  b \xB5", "    z", "    y", "  a"}));
    EXPECT_EQ(m_reader.Items().front().handle, root);
    for (const CTreeReader::Item& item : m_reader.Items())
        EXPECT_EQ(item.data, -1);
}

TEST_F(TreeViewCtrl, expands_everything_below_an_item) {
    HTREEITEM const root = m_tree.Insert(TVI_ROOT, "root");
    for (const char* text : {"a", "b"})
        std::ignore = m_tree.Insert(m_tree.Insert(m_tree.Insert(root, text), "1"), "2");
    m_tree.ExpandAll(root);
    for (const CTreeReader::Item& item : m_reader.Items())
        EXPECT_EQ(item.expanded, item.hasChildren) << item.text;
}

TEST_F(TreeViewCtrl, deletes_the_children_and_not_the_item) {
    HTREEITEM const root = m_tree.Insert(TVI_ROOT, "root");
    std::ignore = m_tree.Insert(TVI_ROOT, "other");
    m_tree.DeleteChildren(root);
    EXPECT_EQ(m_reader.Texts(), (Texts{"root", "other"})) << "nothing to delete";
    std::ignore = m_tree.Insert(m_tree.Insert(root, "a"), "deep");
    std::ignore = m_tree.Insert(root, "b");
    m_tree.DeleteChildren(root);
    EXPECT_EQ(m_reader.Texts(), (Texts{"root", "other"}));
}

TEST_F(TreeViewCtrl, has_its_background_set_and_itself_painted_again) {
    m_tree.SetBackground(0x00123456);
    EXPECT_EQ(::SendMessageA(m_control, TVM_GETBKCOLOR, 0, 0), 0x00123456);
    ::ValidateRect(m_control, nullptr);
    EXPECT_FALSE(::GetUpdateRect(m_control, nullptr, FALSE));
    m_tree.Invalidate();
    EXPECT_TRUE(::GetUpdateRect(m_control, nullptr, FALSE));
}

}  // namespace
}  // namespace kolmfluxor::test
