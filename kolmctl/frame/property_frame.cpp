#include "frame/property_frame.h"

#include <algorithm>
#include <stdexcept>

#include <commctrl.h>

#include "errors.h"
#include "frame/frame_layout.h"
#include "frame/resource.h"
#include "hresult_text.h"
#include "text.h"

namespace kolmctl {
namespace {

/// The program or library that this code, and so its dialog template, is part of.
HINSTANCE OwnModule() {
    HMODULE module = nullptr;
    static const char anchor = 0;
    ::GetModuleHandleExA(GET_MODULE_HANDLE_EX_FLAG_FROM_ADDRESS | GET_MODULE_HANDLE_EX_FLAG_UNCHANGED_REFCOUNT, &anchor,
                         &module);
    return module;
}

/// The size that takes every page.
SIZE LargestSize(const std::vector<std::unique_ptr<FramePage>>& pages) {
    SIZE largest{};
    for (const auto& page : pages) {
        largest.cx = std::max(largest.cx, page->Size().cx);
        largest.cy = std::max(largest.cy, page->Size().cy);
    }
    return largest;
}

bool IsDown(int key) {
    return ::GetKeyState(key) < 0;
}

}  // namespace

PropertyFrame::PropertyFrame(const std::wstring& caption, std::vector<std::unique_ptr<FramePage>> pages)
    : m_pages(std::move(pages)) {
    if (m_pages.empty()) {
        throw std::logic_error("PropertyFrame: no pages");
    }
    const INITCOMMONCONTROLSEX classes = {.dwSize = sizeof classes, .dwICC = ICC_TAB_CLASSES};
    ::InitCommonControlsEx(&classes);
    ::CreateDialogParamW(OwnModule(), MAKEINTRESOURCEW(IDD_PROPERTY_FRAME), nullptr, DialogProc,
                         reinterpret_cast<LPARAM>(this));
    if (m_window == nullptr) {
        throw CallError("cannot make the property frame's window", HRESULT_FROM_WIN32(::GetLastError()));
    }
    try {
        ::SetWindowTextW(m_window, caption.c_str());
        AddTabs();
        LayOutFrame(m_window, LargestSize(m_pages));
        Check(ShowPage(0), "cannot show page \"" + ToUtf8(m_pages[0]->Title()) + "\"");
    } catch (...) {
        Close();
        throw;
    }
}

PropertyFrame::~PropertyFrame() {
    Close();
}

void PropertyFrame::Show() {
    ::ShowWindow(m_window, SW_SHOW);
    ::SetForegroundWindow(m_window);
    ::SetFocus(::GetNextDlgTabItem(m_window, nullptr, FALSE));
}

void PropertyFrame::Run() {
    MSG message{};
    while (!m_done) {
        const BOOL got = ::GetMessageW(&message, nullptr, 0, 0);
        if (got <= 0) {
            ::PostQuitMessage(static_cast<int>(message.wParam));  // the thread's outer loop is to see it, too
            break;
        }
        Dispatch(&message);
    }
    Close();
}

void PropertyFrame::Settle() {
    MSG message{};
    while (!m_done && ::PeekMessageW(&message, nullptr, 0, 0, PM_REMOVE)) {
        if (message.message == WM_QUIT) {
            ::PostQuitMessage(static_cast<int>(message.wParam));
            return;
        }
        Dispatch(&message);
    }
    if (m_window == nullptr) {
        return;  // null would mean the whole screen
    }
    ::RedrawWindow(m_window, nullptr, nullptr, RDW_INVALIDATE | RDW_ERASE | RDW_UPDATENOW | RDW_ALLCHILDREN);
}

void PropertyFrame::Close() {
    m_pages.clear();  // first: the pages' windows stand in the frame's
    m_done = true;
    if (m_window != nullptr) {
        ::DestroyWindow(m_window);
    }
}

INT_PTR CALLBACK PropertyFrame::DialogProc(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
    if (message == WM_INITDIALOG) {
        ::SetWindowLongPtrW(window, DWLP_USER, lParam);
        reinterpret_cast<PropertyFrame*>(lParam)->m_window = window;
        return FALSE;  // the focus is set when there is a page
    }
    auto* const frame = reinterpret_cast<PropertyFrame*>(::GetWindowLongPtrW(window, DWLP_USER));
    return frame != nullptr ? frame->OnMessage(message, wParam, lParam) : FALSE;
}

INT_PTR PropertyFrame::OnMessage(UINT message, WPARAM wParam, LPARAM lParam) {
    switch (message) {
    case WM_COMMAND:
        OnCommand(LOWORD(wParam));
        return TRUE;
    case WM_NOTIFY: {
        const auto& notification = *reinterpret_cast<const NMHDR*>(lParam);
        if (notification.idFrom == IDC_TABS && notification.code == TCN_SELCHANGE) {
            OnTabChosen();
        }
        return FALSE;
    }
    case WM_DESTROY:
        ::SetWindowLongPtrW(m_window, DWLP_USER, 0);
        m_window = nullptr;
        m_done = true;
        return FALSE;
    default:
        return FALSE;
    }
}

void PropertyFrame::OnCommand(int id) {
    switch (id) {
    case IDOK:
        m_done = ApplyAll() || m_done;
        break;
    case IDCANCEL:  // also Esc and the close box
        m_done = true;
        break;
    case IDC_APPLY:
        ApplyAll();
        break;
    default:
        return;
    }
    ::PostMessageW(m_window, WM_NULL, 0, 0);  // Run looks at m_done after a message, sent ones don't count
}

void PropertyFrame::AddTabs() {
    for (std::size_t i = 0; i < m_pages.size(); ++i) {
        std::wstring title = m_pages[i]->Title();
        TCITEMW item{};
        item.mask = TCIF_TEXT;
        item.pszText = title.data();
        ::SendDlgItemMessageW(m_window, IDC_TABS, TCM_INSERTITEMW, i, reinterpret_cast<LPARAM>(&item));
        m_pages[i]->SetListener([this](DWORD flags) { OnPageStatus(flags); });
    }
}

HRESULT PropertyFrame::ShowPage(std::size_t index) {
    if (index != m_shown) {
        m_pages[m_shown]->Hide();
    }
    m_shown = index;
    HWND const area = ::GetDlgItem(m_window, IDC_PAGE_AREA);
    RECT place{};
    ::GetClientRect(area, &place);
    return m_pages[index]->Show(area, place);
}

void PropertyFrame::OnTabChosen() {
    const LRESULT chosen = ::SendDlgItemMessageW(m_window, IDC_TABS, TCM_GETCURSEL, 0, 0);
    const auto index = static_cast<std::size_t>(chosen);
    if (chosen < 0 || index >= m_pages.size() || index == m_shown) {
        return;
    }
    if (const HRESULT hr = ShowPage(index); FAILED(hr)) {
        Report(*m_pages[index], "cannot be shown", hr);
    }
}

void PropertyFrame::OnPageStatus(DWORD flags) {
    // A page may report before it answers IsPageDirty.
    if ((flags & PROPPAGESTATUS_DIRTY) != 0) {
        ::EnableWindow(::GetDlgItem(m_window, IDC_APPLY), TRUE);
    } else {
        UpdateApply();
    }
}

bool PropertyFrame::ApplyAll() {
    for (std::size_t i = 0; i < m_pages.size(); ++i) {
        const HRESULT hr = m_pages[i]->Apply();
        if (FAILED(hr)) {
            ::SendDlgItemMessageW(m_window, IDC_TABS, TCM_SETCURSEL, i, 0);
            ShowPage(i);
            Report(*m_pages[i], "cannot be applied", hr);
            UpdateApply();
            return false;
        }
    }
    UpdateApply();
    return true;
}

void PropertyFrame::UpdateApply() {
    HWND const apply = ::GetDlgItem(m_window, IDC_APPLY);
    const bool dirty = std::ranges::any_of(m_pages, [](const auto& page) { return page->IsDirty(); });
    if (!dirty && ::GetFocus() == apply) {
        // A disabled window would keep the focus and swallow the keys.
        ::SendMessageW(m_window, WM_NEXTDLGCTL, reinterpret_cast<WPARAM>(::GetDlgItem(m_window, IDOK)), TRUE);
    }
    ::EnableWindow(apply, dirty ? TRUE : FALSE);
}

void PropertyFrame::Report(const FramePage& page, const char* what, HRESULT hr) {
    const std::wstring text = ToUtf16("Page \"" + ToUtf8(page.Title()) + "\" " + what + ":\n" + HResultText(hr));
    std::wstring caption(static_cast<std::size_t>(::GetWindowTextLengthW(m_window)) + 1, L'\0');
    ::GetWindowTextW(m_window, caption.data(), static_cast<int>(caption.size()));
    ::MessageBoxW(m_window, text.c_str(), caption.c_str(), MB_OK | MB_ICONERROR);
}

bool PropertyFrame::Handle(MSG* message) {
    if (m_window == nullptr || (message->hwnd != m_window && !::IsChild(m_window, message->hwnd))) {
        return false;
    }
    const bool key = message->message >= WM_KEYFIRST && message->message <= WM_KEYLAST;
    if (key && (m_pages[m_shown]->Translate(message) || TurnTabs(*message))) {
        return true;
    }
    if (!::IsDialogMessageW(m_window, message)) {
        ::TranslateMessage(message);
        ::DispatchMessageW(message);
    }
    return true;
}

void PropertyFrame::Dispatch(MSG* message) {
    if (!Handle(message)) {
        ::TranslateMessage(message);
        ::DispatchMessageW(message);
    }
}

bool PropertyFrame::TurnTabs(const MSG& message) {
    if (message.message != WM_KEYDOWN || message.wParam != VK_TAB || !IsDown(VK_CONTROL)) {
        return false;
    }
    const std::size_t step = IsDown(VK_SHIFT) ? m_pages.size() - 1 : 1;
    ::SendDlgItemMessageW(m_window, IDC_TABS, TCM_SETCURSEL, (m_shown + step) % m_pages.size(), 0);
    OnTabChosen();  // the message above does not notify
    return true;
}

}  // namespace kolmctl
