#include "base/property_page.h"

#include <cwchar>
#include <tuple>

#include "base/boundary.h"
#include "base/handles.h"
#include "base/module_state.h"

namespace kolmfluxor {
namespace {

/// A string of the module's string table, in memory that the caller frees; null when there is none.
UniqueCoTaskMem<wchar_t> LoadTitle(int id) {
    const wchar_t* text = nullptr;
    // A size of 0 asks for a pointer to the string itself, which has no NUL.
    const int length = ::LoadStringW(ModuleInstance(), static_cast<UINT>(id), reinterpret_cast<wchar_t*>(&text), 0);
    if (length <= 0) return nullptr;
    const auto count = static_cast<std::size_t>(length);
    UniqueCoTaskMem<wchar_t> copy(static_cast<wchar_t*>(::CoTaskMemAlloc((count + 1) * sizeof(wchar_t))));
    if (copy == nullptr) return copy;
    std::wmemcpy(copy.get(), text, count);
    copy.get()[count] = L'\0';
    return copy;
}

HWND CreatePageDialog(int id, HWND parent, DLGPROC procedure, CBasePropertyPage* page) {
    return ::CreateDialogParamA(ModuleInstance(), MAKEINTRESOURCEA(id), parent, procedure,
                                reinterpret_cast<LPARAM>(page));
}

}  // namespace

CBasePropertyPage::CBasePropertyPage(IUnknown* outer, int dialogId, int titleId) noexcept
    : Implements(outer), m_dialogId(dialogId), m_titleId(titleId) {}

CBasePropertyPage::~CBasePropertyPage() {
    if (m_hwnd == nullptr) return;
    ::SetWindowLongPtrA(m_hwnd, DWLP_USER, 0);  // no message may reach the page any more
    ::DestroyWindow(m_hwnd);
}

HRESULT CBasePropertyPage::SetPageSite(IPropertyPageSite* site) {
    // A site is given once and taken back once.
    if ((site != nullptr) == (m_pPageSite != nullptr)) return E_UNEXPECTED;
    m_pPageSite = site;
    return S_OK;
}

HRESULT CBasePropertyPage::Activate(HWND parent, LPCRECT rectangle, BOOL /*modal*/) {
    if (rectangle == nullptr) return E_POINTER;
    if (!m_bObjectSet || m_hwnd != nullptr) return E_UNEXPECTED;
    if (CreatePageDialog(m_dialogId, parent, DialogProc, this) == nullptr) return E_OUTOFMEMORY;

    std::ignore = AtBoundary([this] { return OnActivate(); });  // a page without its camera still shows
    const HRESULT hr = Move(rectangle);
    return FAILED(hr) ? hr : Show(SW_SHOWNORMAL);
}

HRESULT CBasePropertyPage::Deactivate() {
    if (m_hwnd == nullptr) return E_UNEXPECTED;
    std::ignore = AtBoundary([this] { return OnDeactivate(); });  // the dialog goes in every case
    ::DestroyWindow(m_hwnd);
    m_hwnd = nullptr;
    return S_OK;
}

HRESULT CBasePropertyPage::GetPageInfo(PROPPAGEINFO* info) {
    if (info == nullptr) return E_POINTER;
    UniqueCoTaskMem<wchar_t> title = LoadTitle(m_titleId);
    if (title == nullptr) return E_OUTOFMEMORY;

    RECT extent{};
    HWND const measured = CreatePageDialog(m_dialogId, ::GetDesktopWindow(), DialogProc, nullptr);
    if (measured == nullptr) return E_OUTOFMEMORY;
    ::GetWindowRect(measured, &extent);
    ::DestroyWindow(measured);

    *info = {};
    info->cb = sizeof *info;
    info->pszTitle = title.release();
    info->size = {.cx = extent.right - extent.left, .cy = extent.bottom - extent.top};
    return S_OK;
}

HRESULT CBasePropertyPage::SetObjects(ULONG count, IUnknown** objects) {
    switch (count) {
    case 0:
        m_bObjectSet = FALSE;
        return AtBoundary([this] { return OnDisconnect(); });
    case 1:
        if (objects == nullptr || objects[0] == nullptr) return E_POINTER;
        m_bObjectSet = TRUE;
        return AtBoundary([&] { return OnConnect(objects[0]); });
    default:
        return E_UNEXPECTED;
    }
}

HRESULT CBasePropertyPage::Show(UINT command) {
    if (m_hwnd == nullptr) return E_UNEXPECTED;
    if (command != SW_SHOW && command != SW_SHOWNORMAL && command != SW_HIDE) return E_INVALIDARG;
    ::ShowWindow(m_hwnd, static_cast<int>(command));
    ::InvalidateRect(m_hwnd, nullptr, TRUE);
    return S_OK;
}

HRESULT CBasePropertyPage::Move(LPCRECT rectangle) {
    if (rectangle == nullptr) return E_POINTER;
    if (m_hwnd == nullptr) return E_UNEXPECTED;
    ::MoveWindow(m_hwnd, rectangle->left, rectangle->top, rectangle->right - rectangle->left,
                 rectangle->bottom - rectangle->top, TRUE);
    return S_OK;
}

HRESULT CBasePropertyPage::IsPageDirty() {
    return m_bDirty ? S_OK : S_FALSE;
}

HRESULT CBasePropertyPage::Apply() {
    if (!m_bObjectSet || m_pPageSite == nullptr) return E_UNEXPECTED;
    return IsPageDirty() == S_FALSE ? S_OK : ApplyNow();
}

HRESULT CBasePropertyPage::ApplyNow() {
    if (!m_bObjectSet || m_pPageSite == nullptr) return E_UNEXPECTED;
    const HRESULT hr = AtBoundary([this] { return OnApplyChanges(); });
    if (SUCCEEDED(hr)) m_bDirty = FALSE;
    return hr;
}

HRESULT CBasePropertyPage::Help(LPCOLESTR /*directory*/) {
    return E_NOTIMPL;
}

HRESULT CBasePropertyPage::TranslateAccelerator(MSG* /*message*/) {
    return E_NOTIMPL;
}

INT_PTR CBasePropertyPage::OnReceiveMessage(HWND hwnd, UINT message, WPARAM wParam, LPARAM lParam) {
    return ::DefWindowProcA(hwnd, message, wParam, lParam);
}

INT_PTR CALLBACK CBasePropertyPage::DialogProc(HWND hwnd, UINT message, WPARAM wParam, LPARAM lParam) {
    if (message == WM_INITDIALOG) {
        ::SetWindowLongPtrA(hwnd, DWLP_USER, lParam);
        if (lParam != 0) reinterpret_cast<CBasePropertyPage*>(lParam)->m_hwnd = hwnd;
    }
    // There is no page while a dialog is only measured.
    auto* const page = reinterpret_cast<CBasePropertyPage*>(::GetWindowLongPtrA(hwnd, DWLP_USER));
    if (page == nullptr) return FALSE;
    if (message == WM_CLOSE) return TRUE;  // a page closes with its frame; the default would destroy it alone
    INT_PTR result = FALSE;
    try {
        result = page->OnReceiveMessage(hwnd, message, wParam, lParam);
    } catch (...) {
        // Nobody to tell: the page shows what the camera says with its next refresh.
    }
    if (message == WM_NCDESTROY) page->m_hwnd = nullptr;
    return result;
}

}  // namespace kolmfluxor
