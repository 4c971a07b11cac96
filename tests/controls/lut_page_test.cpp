/// @file  Page "LUT" from inside: what it asks of the system, and who gets which message.

#include "pages/lut_page.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <new>
#include <string>
#include <string_view>
#include <vector>

#include <commdlg.h>

#include "base/module_state.h"
#include "controls/page_frame.h"
#include "support/lut_text_file.h"
#include "support/patched_import.h"
#include "support/property_set_test.h"
#include "support/recorded_default.h"

extern "C" void* __imp_GetOpenFileNameA;
extern "C" void* __imp_MessageBoxA;
extern "C" void* __imp_Polygon;
extern "C" void* __imp_MoveToEx;
extern "C" void* __imp_TextOutA;
extern "C" void* __imp_GetDC;
extern "C" void* __imp_ReleaseDC;

namespace kolmfluxor::test {
namespace {

constexpr int kEnable = 1055;
constexpr int kFunction = 1057;
constexpr int kLoad = 1063;
constexpr int kToCamera = 1064;
constexpr int kNumber = 1152;
constexpr int kLoaded = 1159;
constexpr int kPicture = 1160;

IPropertyPage* g_closesWithFile = nullptr;     ///< goes while the user looks at the file dialog
IPropertyPage* g_closesWithMessage = nullptr;  ///< goes while the user looks at a message
std::string g_answer;                          ///< path that the file dialog gives; empty for Cancel
std::vector<OPENFILENAMEA> g_questions;
std::string g_filter;

/// The frame lets go of a page in the middle of its handler.
void LetGo(IPropertyPage*& page) {
    if (page == nullptr) return;
    EXPECT_EQ(page->Deactivate(), S_OK);
    EXPECT_EQ(page->SetObjects(0, nullptr), S_OK);
    EXPECT_EQ(page->Release(), 1u) << "the page holds itself";
    page = nullptr;
}

BOOL WINAPI AnswerOpenFile(OPENFILENAMEA* question) {
    g_questions.push_back(*question);
    const char* end = question->lpstrFilter;
    while (end[0] != '\0' || end[1] != '\0')
        ++end;
    g_filter.assign(question->lpstrFilter, end);
    EXPECT_STREQ(question->lpstrFile, "") << "no file is suggested";
    LetGo(g_closesWithFile);
    if (g_answer.empty()) return FALSE;
    g_answer.copy(question->lpstrFile, question->nMaxFile - 1);
    return TRUE;
}

struct Box {
    HWND owner;
    std::string text, caption;
    UINT type;
};
std::vector<Box> g_boxes;

int WINAPI AnswerMessageBox(HWND owner, const char* text, const char* caption, UINT type) {
    g_boxes.push_back({owner, text, caption, type});
    LetGo(g_closesWithMessage);
    return IDOK;
}

std::vector<std::string> g_drawn;
HDC g_context = nullptr;
std::vector<POINT> g_corners;
HWND g_dialog = nullptr;         ///< whose painting is looked at while the curve is drawn; null for none
bool g_baseHasPainted = false;   ///< it had no area left to paint then
bool g_drawingFails = false;     ///< with an exception, as when memory runs out
std::vector<HWND> g_contextsOf;  ///< windows whose contexts were taken
std::vector<HWND> g_releasedOf;  ///< and given back

BOOL WINAPI RecordMoveTo(HDC context, int x, int y, POINT* before) {
    EXPECT_EQ(before, nullptr);
    g_context = context;
    if (g_dialog != nullptr) g_baseHasPainted = !::GetUpdateRect(g_dialog, nullptr, FALSE);
    g_drawn.push_back("move to " + std::to_string(x) + "," + std::to_string(y));
    return TRUE;
}

BOOL WINAPI RecordPolygon(HDC context, const POINT* points, int count) {
    EXPECT_EQ(context, g_context);
    if (g_drawingFails) throw std::bad_alloc();
    g_corners.assign(points, points + count);
    g_drawn.emplace_back("polygon");
    return TRUE;
}

BOOL WINAPI RecordTextOut(HDC context, int x, int y, const char* text, int length) {
    EXPECT_EQ(context, g_context);
    g_drawn.push_back("text at " + std::to_string(x) + "," + std::to_string(y) + ": " +
                      std::string(text, static_cast<std::size_t>(length)));
    return TRUE;
}

/// Not a real one: all that draws in it is recorded.
HDC FakeContext() {
    return reinterpret_cast<HDC>(INT_PTR{0x1234});
}
HDC WINAPI RecordGet(HWND window) {
    g_contextsOf.push_back(window);
    return FakeContext();
}
int WINAPI RecordRelease(HWND window, HDC context) {
    EXPECT_EQ(context, FakeContext());
    g_releasedOf.push_back(window);
    return 1;
}

class LutPageInside : public PropertySetTest {
protected:
    LutPageInside()
        : m_openFile(&__imp_GetOpenFileNameA, reinterpret_cast<void*>(&AnswerOpenFile)),
          m_messageBox(&__imp_MessageBoxA, reinterpret_cast<void*>(&AnswerMessageBox)),
          m_moveTo(&__imp_MoveToEx, reinterpret_cast<void*>(&RecordMoveTo)),
          m_polygon(&__imp_Polygon, reinterpret_cast<void*>(&RecordPolygon)),
          m_textOut(&__imp_TextOutA, reinterpret_cast<void*>(&RecordTextOut)) {
        g_answer.clear();
        g_questions.clear();
        g_boxes.clear();
        g_drawn.clear();
        g_corners.clear();
        g_dialog = nullptr;
        g_drawingFails = false;
        Object().Patch(31, 36, 4);
        Object().Patch(63, 24, 8);
    }
    ~LutPageInside() override {
        if (m_face != nullptr) EndPage(m_face);
    }

    CKolmFluxorPage_Lut& Open() {
        auto* const page = NewPage<CKolmFluxorPage_Lut>();
        m_face = page;
        IUnknown* filter = Object().Filter().Unknown();
        EXPECT_EQ(m_face->SetObjects(1, &filter), S_OK);
        EXPECT_EQ(m_frame.Activate(*m_face), S_OK);
        Object().Forget();
        return *page;
    }
    [[nodiscard]] HWND Dialog() const { return m_frame.Dialog(); }
    INT_PTR Command(CKolmFluxorPage_Lut& page, int id, UINT code) const {
        return page.OnReceiveMessage(Dialog(), WM_COMMAND, MAKEWPARAM(id, code), 0);
    }
    void Load(CKolmFluxorPage_Lut& page, const std::string& content) const {
        const CLutTextFile file(content);
        g_answer = file.Path();
        EXPECT_EQ(Command(page, kLoad, BN_CLICKED), 1);
    }

    CPageFrame m_frame;
    IPropertyPage* m_face = nullptr;

private:
    CPatchedImport m_openFile;
    CPatchedImport m_messageBox;
    CPatchedImport m_moveTo;
    CPatchedImport m_polygon;
    CPatchedImport m_textOut;
};

constexpr const char* kTwoLuts = "In,Z,A\n0,0,255\n1,85,255\n2,170,255\n3,255,255\n";

TEST_F(LutPageInside, asks_for_a_file_as_agreed) {
    CKolmFluxorPage_Lut& page = Open();

    EXPECT_EQ(Command(page, kLoad, BN_CLICKED), 1);

    ASSERT_EQ(g_questions.size(), 1u);
    const OPENFILENAMEA& question = g_questions.front();
    EXPECT_EQ(question.lStructSize, sizeof question);
    EXPECT_EQ(question.hwndOwner, Dialog());
    EXPECT_EQ(question.nMaxFile, 260u);
    EXPECT_EQ(question.nFilterIndex, 1u) << "the first filter is preselected";
    EXPECT_EQ(question.Flags, DWORD{OFN_PATHMUSTEXIST | OFN_FILEMUSTEXIST});
    EXPECT_EQ(g_filter, std::string("All\0*.*\0CSV\0*.csv", 17));
}

TEST_F(LutPageInside, shows_failures_with_the_exclamation_icon) {
    CKolmFluxorPage_Lut& page = Open();
    EXPECT_EQ(Command(page, kLoad, BN_CLICKED), 1);
    Load(page, "");
    Load(page, "In,A\n0,1\n");

    const char* const texts[] = {"error opening file", "reading data failed",
                                 "LUT elements count and found elements are not equal"};
    ASSERT_EQ(g_boxes.size(), std::size(texts));
    for (std::size_t i = 0; i < std::size(texts); ++i) {
        EXPECT_EQ(g_boxes[i].text, texts[i]);
        EXPECT_EQ(g_boxes[i].caption, "LoadFromFile Error");
        EXPECT_EQ(g_boxes[i].type, UINT{MB_ICONEXCLAMATION});
        EXPECT_EQ(g_boxes[i].owner, Dialog());
    }
}

TEST_F(LutPageInside, a_file_that_is_gone_cannot_be_read) {
    CKolmFluxorPage_Lut& page = Open();
    g_answer = "C:\\no such folder\\no such file.csv";
    EXPECT_EQ(Command(page, kLoad, BN_CLICKED), 1);
    ASSERT_EQ(g_boxes.size(), 1u);
    EXPECT_EQ(g_boxes.front().text, "reading data failed");
}

TEST_F(LutPageInside, buttons_end_here_and_all_else_goes_on_to_the_base) {
    CKolmFluxorPage_Lut& page = Open();
    Load(page, kTwoLuts);
    const CRecordedDefault base;
    EXPECT_EQ(Command(page, kToCamera, BN_CLICKED), 1);
    EXPECT_EQ(CRecordedDefault::Messages(), std::vector<UINT>{});

    for (const auto& [id, code] : std::vector<std::pair<int, UINT>>{{kEnable, BN_CLICKED},
                                                                    {kNumber, CBN_SELCHANGE},
                                                                    {kLoaded, CBN_SELCHANGE},
                                                                    {kFunction, EN_UPDATE},
                                                                    {kLoad, BN_SETFOCUS}}) {
        CRecordedDefault::Forget();
        EXPECT_EQ(Command(page, id, code), CRecordedDefault::kAnswer) << id;
        ASSERT_FALSE(CRecordedDefault::Messages().empty()) << id;
        EXPECT_EQ(CRecordedDefault::Messages().back(), UINT{WM_COMMAND}) << id;
    }
}

TEST_F(LutPageInside, draws_after_the_base_has_painted) {
    CKolmFluxorPage_Lut& page = Open();
    page.OnReceiveMessage(Dialog(), WM_PAINT, 0, 0);
    EXPECT_TRUE(g_drawn.empty()) << "there is no set yet";
    Load(page, kTwoLuts);
    g_drawn.clear();
    RECT area{};
    ::GetClientRect(::GetDlgItem(Dialog(), kPicture), &area);

    g_dialog = Dialog();
    ::InvalidateRect(Dialog(), nullptr, FALSE);
    ASSERT_TRUE(::GetUpdateRect(Dialog(), nullptr, FALSE));
    EXPECT_EQ(page.OnReceiveMessage(Dialog(), WM_PAINT, 0, 0), 0) << "the base's result";
    EXPECT_TRUE(g_baseHasPainted) << "before the curve is drawn";

    EXPECT_EQ(g_drawn, (std::vector<std::string>{"move to 0,0", "polygon", "text at 0,0: Z"}));
    ASSERT_EQ(g_corners.size(), static_cast<std::size_t>(area.right) + 2);
    const auto corner = [](const POINT& point) { return std::pair(point.x, point.y); };
    EXPECT_EQ(corner(g_corners.front()), std::pair(LONG{0}, area.bottom));
    EXPECT_EQ(corner(g_corners[1]), std::pair(LONG{0}, area.bottom)) << "value 0";
    EXPECT_EQ(corner(g_corners[static_cast<std::size_t>(area.right)]), std::pair(area.right - 1, LONG{0}))
        << "value 255";
    EXPECT_EQ(corner(g_corners.back()), std::pair(area.right - 1, area.bottom));
}

TEST_F(LutPageInside, gives_the_pictures_context_back_even_when_drawing_fails) {
    CKolmFluxorPage_Lut& page = Open();
    Load(page, kTwoLuts);
    const CPatchedImport get(&__imp_GetDC, reinterpret_cast<void*>(&RecordGet));
    const CPatchedImport release(&__imp_ReleaseDC, reinterpret_cast<void*>(&RecordRelease));
    for (const bool fails : {false, true}) {
        g_contextsOf.clear();
        g_releasedOf.clear();
        g_drawingFails = fails;
        EXPECT_NO_THROW(page.OnReceiveMessage(Dialog(), WM_PAINT, 0, 0));
        EXPECT_EQ(g_contextsOf, std::vector<HWND>{::GetDlgItem(Dialog(), kPicture)}) << fails;
        EXPECT_EQ(g_releasedOf, g_contextsOf) << fails;
    }
}

TEST_F(LutPageInside, draws_nothing_at_all_where_there_is_no_curve) {
    CKolmFluxorPage_Lut& page = Open();
    Load(page, kTwoLuts);
    const auto reopen = [&](ULONG sizeBytes, ULONG bits) {
        Camera().ClearFaults();
        Object().Patch(31, 36, sizeBytes);
        Object().Patch(63, 24, bits);
        EXPECT_EQ(m_face->Deactivate(), S_OK);
        EXPECT_EQ(m_frame.Activate(*m_face), S_OK);
    };
    const auto paint = [&] {
        g_drawn.clear();
        page.OnReceiveMessage(Dialog(), WM_PAINT, 0, 0);
        return g_drawn;
    };
    const std::vector<std::string> nothing;

    reopen(4, 0);
    EXPECT_EQ(paint(), nothing) << "the camera tells of no bits";
    reopen(8, 8);
    EXPECT_EQ(paint(), nothing) << "its tables are longer than this one";
    reopen(4, 8);
    EXPECT_EQ(paint().size(), 3u);
    ::MoveWindow(::GetDlgItem(Dialog(), kPicture), 10, 10, 0, 50, FALSE);
    EXPECT_EQ(paint(), nothing) << "a picture without width has no column";
    ::MoveWindow(::GetDlgItem(Dialog(), kPicture), 10, 10, 50, 0, FALSE);
    EXPECT_EQ(paint().size(), 3u) << "one without height is flat";
    EXPECT_TRUE(std::ranges::all_of(g_corners, [](const POINT& corner) { return corner.y == 0; }));
}

TEST_F(LutPageInside, values_of_many_bits_leave_the_curve_on_the_ground) {
    CKolmFluxorPage_Lut& page = Open();
    Load(page, kTwoLuts);
    for (const ULONG bits : {32UL, 0xFFFFFFFFUL}) {
        Camera().ClearFaults();
        Object().Patch(31, 36, 16);
        Object().Patch(63, 24, bits);
        ASSERT_EQ(m_face->Deactivate(), S_OK);
        ASSERT_EQ(m_frame.Activate(*m_face), S_OK);
        g_corners.clear();
        page.OnReceiveMessage(Dialog(), WM_PAINT, 0, 0);
        RECT area{};
        ::GetClientRect(::GetDlgItem(Dialog(), kPicture), &area);
        ASSERT_EQ(g_corners.size(), static_cast<std::size_t>(area.right) + 2) << bits;
        for (const POINT& corner : g_corners)
            EXPECT_GE(corner.y, area.bottom - 1) << bits;
    }
}

TEST_F(LutPageInside, draws_nothing_without_a_selection_and_for_other_messages) {
    CKolmFluxorPage_Lut& page = Open();
    Load(page, kTwoLuts);
    g_drawn.clear();
    page.OnReceiveMessage(Dialog(), WM_ERASEBKGND, 0, 0);
    page.OnReceiveMessage(Dialog(), WM_NULL, 0, 0);
    ::SendMessageA(::GetDlgItem(Dialog(), kLoaded), CB_SETCURSEL, static_cast<WPARAM>(-1), 0);
    EXPECT_NO_THROW(page.OnReceiveMessage(Dialog(), WM_PAINT, 0, 0));
    EXPECT_TRUE(g_drawn.empty());
}

TEST_F(LutPageInside, an_entry_beyond_the_set_is_not_drawn) {
    CKolmFluxorPage_Lut& page = Open();
    Load(page, kTwoLuts);
    HWND const combo = ::GetDlgItem(Dialog(), kLoaded);
    for (const LPARAM data : {2, 3}) {
        g_drawn.clear();
        ::SendMessageA(combo, CB_SETITEMDATA, static_cast<WPARAM>(::SendMessageA(combo, CB_GETCURSEL, 0, 0)), data);
        EXPECT_NO_THROW(page.OnReceiveMessage(Dialog(), WM_PAINT, 0, 0));
        EXPECT_TRUE(g_drawn.empty()) << data;
    }
}

TEST_F(LutPageInside, a_frame_that_goes_while_the_file_dialog_is_open_does_no_harm) {
    CKolmFluxorPage_Lut& page = Open();
    g_closesWithFile = m_face;
    m_face = nullptr;  // its last reference goes in the dialog
    HWND const dialog = Dialog();

    g_boxes.clear();
    EXPECT_EQ(page.OnReceiveMessage(dialog, WM_COMMAND, MAKEWPARAM(kLoad, BN_CLICKED), 0), 1);

    EXPECT_TRUE(g_boxes.empty()) << "there is nobody left to tell";

    EXPECT_EQ(g_closesWithFile, nullptr);
    EXPECT_EQ(CBaseObject::ObjectsActive(), 0) << "the page has gone afterwards";
}

TEST_F(LutPageInside, a_frame_that_goes_while_the_message_is_open_does_no_harm) {
    CKolmFluxorPage_Lut& page = Open();
    g_closesWithMessage = m_face;
    m_face = nullptr;  // its last reference goes in the message

    EXPECT_NO_THROW(EXPECT_EQ(page.OnReceiveMessage(Dialog(), WM_COMMAND, MAKEWPARAM(kLoad, BN_CLICKED), 0), 1));

    EXPECT_EQ(g_boxes.size(), 1u);
    EXPECT_EQ(g_closesWithMessage, nullptr);
    EXPECT_EQ(CBaseObject::ObjectsActive(), 0) << "the page has gone afterwards";
}

}  // namespace
}  // namespace kolmfluxor::test
