#include "support/page_host.h"

#include <algorithm>
#include <array>

#include <commctrl.h>

#include "support/own_desktop.h"

namespace kolmfluxor::test {
namespace {

constexpr RECT kPlace = {10, 10, 610, 510};

HWND CreateFrameWindow() {
    COwnDesktop::Enter();
    HWND const window = ::CreateWindowExA(WS_EX_CONTROLPARENT, "STATIC", "frame", WS_OVERLAPPEDWINDOW | WS_VISIBLE, 0,
                                          0, 640, 560, nullptr, nullptr, nullptr, nullptr);
    EXPECT_NE(window, nullptr);
    return window;
}

}  // namespace

CPageHost::CPageHost(REFCLSID pageClass, CPropertySetObject& object) : m_window(CreateFrameWindow()) {
    IUnknown* filter = object.Filter().Unknown();
    EXPECT_EQ(CModule::Get().Create(pageClass, nullptr, IID_IPropertyPage, reinterpret_cast<void**>(&m_page)), S_OK);
    EXPECT_EQ(m_page->SetPageSite(&m_site), S_OK);
    EXPECT_EQ(m_page->SetObjects(1, &filter), S_OK);
    EXPECT_EQ(m_page->Activate(m_window, &kPlace, FALSE), S_OK);
}

CPageHost::~CPageHost() {
    EXPECT_EQ(m_page->Deactivate(), S_OK);
    EXPECT_EQ(m_page->SetObjects(0, nullptr), S_OK);
    EXPECT_EQ(m_page->SetPageSite(nullptr), S_OK);
    EXPECT_EQ(m_page->Release(), 0u) << "references to the page are left over";
    EXPECT_EQ(m_site.references, 1u) << "references to the site are left over";
    EXPECT_EQ(::GetWindow(m_window, GW_CHILD), nullptr) << "the dialog is left over";
    ::DestroyWindow(m_window);
}

void CPageHost::Reactivate() {
    EXPECT_EQ(m_page->Deactivate(), S_OK);
    Activate();
}

void CPageHost::Activate() {
    EXPECT_EQ(m_page->Activate(m_window, &kPlace, FALSE), S_OK);
}

HWND CPageHost::Dialog() const {
    return ::GetWindow(m_window, GW_CHILD);
}

HWND CPageHost::Control(int id) const {
    HWND const control = ::GetDlgItem(Dialog(), id);
    EXPECT_NE(control, nullptr) << "control " << id;
    return control;
}

std::string CPageHost::Text(int id) const {
    std::array<char, 512> text{};
    ::GetWindowTextA(Control(id), text.data(), static_cast<int>(text.size()));
    return text.data();
}

bool CPageHost::IsEnabled(int id) const {
    return ::IsWindowEnabled(Control(id)) != FALSE;
}

LONG CPageHost::Position(int trackbar) const {
    return static_cast<LONG>(::SendMessageA(Control(trackbar), TBM_GETPOS, 0, 0));
}

LONG CPageHost::RangeMin(int trackbar) const {
    return static_cast<LONG>(::SendMessageA(Control(trackbar), TBM_GETRANGEMIN, 0, 0));
}

LONG CPageHost::RangeMax(int trackbar) const {
    return static_cast<LONG>(::SendMessageA(Control(trackbar), TBM_GETRANGEMAX, 0, 0));
}

bool CPageHost::IsChecked(int box) const {
    return ::SendMessageA(Control(box), BM_GETCHECK, 0, 0) == BST_CHECKED;
}

std::string CPageHost::Selected(int combo) const {
    const LRESULT index = ::SendMessageA(Control(combo), CB_GETCURSEL, 0, 0);
    return index == CB_ERR ? "" : Entries(combo).at(static_cast<std::size_t>(index));
}

std::vector<std::string> CPageHost::Entries(int combo) const {
    std::vector<std::string> entries;
    const LRESULT count = ::SendMessageA(Control(combo), CB_GETCOUNT, 0, 0);
    for (LRESULT i = 0; i < count; ++i) {
        std::array<char, 256> text{};
        ::SendMessageA(Control(combo), CB_GETLBTEXT, static_cast<WPARAM>(i), reinterpret_cast<LPARAM>(text.data()));
        entries.emplace_back(text.data());
    }
    return entries;
}

void CPageHost::Drag(int trackbar, LONG position) {
    ::SendMessageA(Control(trackbar), TBM_SETPOS, TRUE, position);
    ::SendMessageA(Dialog(), WM_HSCROLL, MAKEWPARAM(TB_THUMBTRACK, position),
                   reinterpret_cast<LPARAM>(Control(trackbar)));
}

void CPageHost::Pick(int combo, const std::string& text) {
    const std::vector<std::string> entries = Entries(combo);
    const auto found = std::find(entries.begin(), entries.end(), text);
    ASSERT_NE(found, entries.end()) << "no entry \"" << text << '"';
    ::SendMessageA(Control(combo), CB_SETCURSEL, static_cast<WPARAM>(found - entries.begin()), 0);
    Notify(combo, CBN_SELCHANGE);
}

void CPageHost::Click(int box) {
    ::SendMessageA(Control(box), BM_CLICK, 0, 0);
}

void CPageHost::Drop(int combo, bool open) {
    ::SendMessageA(Control(combo), CB_SHOWDROPDOWN, open ? TRUE : FALSE, 0);
}

void CPageHost::Tick() {
    ::SendMessageA(Dialog(), WM_TIMER, 1, 0);
}

LRESULT CPageHost::Notify(int id, UINT code) {
    return ::SendMessageA(Dialog(), WM_COMMAND, MAKEWPARAM(id, code), reinterpret_cast<LPARAM>(Control(id)));
}

PageTest::PageTest() {
    COwnDesktop::Enter();
}

}  // namespace kolmfluxor::test
