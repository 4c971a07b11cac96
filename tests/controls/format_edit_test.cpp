/// @file  What a failing edit of a video mode shows.

#include "pages/format_edit.h"

#include <gtest/gtest.h>

#include <new>
#include <string>
#include <vector>

#include "pages/common/kolm_fluxor_exception.h"
#include "support/modal_user.h"
#include "support/own_desktop.h"
#include "support/patched_import.h"

extern "C" void* __imp_MessageBoxA;

namespace kolmfluxor::test {
namespace {

struct Box {
    HWND owner;
    std::string text;
    std::string caption;
    UINT type;
    bool operator==(const Box&) const = default;
};
std::vector<Box> g_boxes;

int WINAPI RecordBox(HWND owner, LPCSTR text, LPCSTR caption, UINT type) {
    g_boxes.push_back({owner, text, caption, type});
    return IDOK;
}

class FormatEdit : public ::testing::Test {
protected:
    FormatEdit() { g_boxes.clear(); }

    HWND const m_owner = reinterpret_cast<HWND>(0x7770);
    const CPatchedImport m_messageBox{&__imp_MessageBoxA, reinterpret_cast<void*>(&RecordBox)};
};

TEST_F(FormatEdit, runs_once_and_shows_nothing) {
    int runs = 0;
    RunFormatEdit(m_owner, [&] { ++runs; });
    EXPECT_EQ(runs, 1);
    EXPECT_TRUE(g_boxes.empty());
}

TEST_F(FormatEdit, shows_the_text_of_the_modules_exception_captioned_Error_with_an_OK_button_only) {
    RunFormatEdit(m_owner, [] { throw CKolmFluxorException("no such width", 7); });
    EXPECT_EQ(g_boxes, (std::vector<Box>{{m_owner, "no such width", "Error", MB_OK}}));
}

TEST_F(FormatEdit, drops_every_other_exception) {
    RunFormatEdit(m_owner, [] { throw CTextException("CAMMediaType::Width: not initialized"); });
    RunFormatEdit(m_owner, [] { throw std::bad_alloc(); });
    RunFormatEdit(m_owner, [] { throw 5; });
    EXPECT_TRUE(g_boxes.empty());
}

TEST(FormatEditBox, is_a_message_box_that_the_user_closes) {
    COwnDesktop::Enter();
    CModalUser user;
    RunFormatEdit(nullptr, [] { throw CKolmFluxorException("no such height", 7); });
    EXPECT_EQ(user.Messages(), (std::vector<SeenMessage>{{.caption = "Error", .text = "no such height"}}));
}

}  // namespace
}  // namespace kolmfluxor::test
