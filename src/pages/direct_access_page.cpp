#include "pages/direct_access_page.h"

#include <array>
#include <cstdio>
#include <iterator>
#include <new>
#include <tuple>

#include "base/hex_text.h"
#include "registers/catalogue.h"
#include "registers/decoder.h"
#include "resources/resource.h"

namespace kolmfluxor {
namespace {

constexpr ULONG kFirstRegister = 0xF0F00800;  // "Brightness"
constexpr COLORREF kTreeBackground = RGB(0xD4, 0xD0, 0xC8);
constexpr ULONG kUnread = 0xFFFFFFFF;  // what a failed read shows

/// Puts decoded lines into the page's tree.
class CTreeSink final : public RegisterLineSink {
public:
    explicit CTreeSink(const CTreeViewCtrl& tree) : m_tree(tree) {}

    Line Insert(Line parent, const char* text) override { return m_tree.Insert(static_cast<HTREEITEM>(parent), text); }

private:
    const CTreeViewCtrl& m_tree;
};

/// Tells an attached debugger of a message that the page leaves to its base.
void Trace(UINT message, WPARAM wParam) {
    if (!::IsDebuggerPresent()) return;
    std::array<char, 128> line{};
    std::snprintf(line.data(), line.size(), "CKolmFluxorPage_DirectAccess::OnReceiveMessage Msg: %x wParam: %x",
                  message, static_cast<UINT>(HIWORD(wParam)));
    ::OutputDebugStringA(line.data());
}

}  // namespace

const CKolmFluxorPage_DirectAccess::HotKey CKolmFluxorPage_DirectAccess::kHotKeys[] = {
    {.key = 'R', .run = &CKolmFluxorPage_DirectAccess::Read},
    {.key = 'W', .run = &CKolmFluxorPage_DirectAccess::Write},
};

const PageCommand<CKolmFluxorPage_DirectAccess> CKolmFluxorPage_DirectAccess::kCommands[] = {
    {.id = IDC_REGISTER_NAME, .code = CBN_SELCHANGE, .run = &CKolmFluxorPage_DirectAccess::OnRegisterChosen},
    {.id = IDC_REGISTER_READ, .code = BN_CLICKED, .run = &CKolmFluxorPage_DirectAccess::Read},
    {.id = IDC_REGISTER_WRITE, .code = BN_CLICKED, .run = &CKolmFluxorPage_DirectAccess::Write},
    {.id = IDC_REGISTER_VALUE, .code = EN_CHANGE, .run = &CKolmFluxorPage_DirectAccess::OnValueChanged},
};

CUnknown* CKolmFluxorPage_DirectAccess::CreateInstance(IUnknown* outer, HRESULT* hr) {
    auto* const page = new (std::nothrow) CKolmFluxorPage_DirectAccess(outer);
    *hr = page != nullptr ? S_OK : E_OUTOFMEMORY;
    return page;
}

CKolmFluxorPage_DirectAccess::CKolmFluxorPage_DirectAccess(IUnknown* outer)
    : CFeaturePage(outer, IDD_DIRECT_ACCESS, IDS_DIRECT_ACCESS, 0),
      m_names(IDC_REGISTER_NAME, &m_hwnd),
      m_address(IDC_REGISTER_ADDRESS, &m_hwnd),
      m_value(IDC_REGISTER_VALUE, &m_hwnd),
      m_bits(IDC_REGISTER_BITS, &m_hwnd),
      m_tree(IDC_REGISTER_TREE, &m_hwnd) {}

HRESULT CKolmFluxorPage_DirectAccess::OnActivate() {
    // An earlier dialog's item of the tree and keys are none of this one's, even if this one stays empty.
    m_current = nullptr;
    m_hotKeyCount = 0;
    const INITCOMMONCONTROLSEX classes = {.dwSize = sizeof classes, .dwICC = ICC_TREEVIEW_CLASSES | ICC_BAR_CLASSES};
    if (!::InitCommonControlsEx(&classes)) return E_FAIL;

    for (const HotKey& hotKey : kHotKeys) {
        // Somebody else may have the key already; the buttons are still there.
        std::ignore = ::RegisterHotKey(m_hwnd, static_cast<int>(&hotKey - kHotKeys), MOD_CONTROL, hotKey.key);
    }
    m_hotKeyCount = static_cast<int>(std::size(kHotKeys));

    m_address.SetValue(0);
    m_value.SetValue(0);
    FillCatalogue();
    m_current = m_tree.Insert(TVI_ROOT, "Current");
    Refresh();
    return S_OK;
}

HRESULT CKolmFluxorPage_DirectAccess::OnDeactivate() {
    for (int id = 0; id < m_hotKeyCount; ++id)
        ::UnregisterHotKey(m_hwnd, id);
    return S_OK;
}

void CKolmFluxorPage_DirectAccess::FillCatalogue() {
    for (const CatalogueEntry& entry : Catalogue())
        m_names.AddValue(entry.name, entry.address);
    m_names.SelectValue(kFirstRegister);
    m_address.SetValue(kFirstRegister);
    m_tree.SetBackground(kTreeBackground);
}

INT_PTR CKolmFluxorPage_DirectAccess::OnReceiveMessage(HWND hwnd, UINT message, WPARAM wParam, LPARAM lParam) {
    switch (message) {
    case WM_COMMAND:
        if (RunCommand<CKolmFluxorPage_DirectAccess>(*this, kCommands, LOWORD(wParam), HIWORD(wParam))) return 1;
        Trace(message, wParam);
        break;
    case WM_HOTKEY:
        OnHotKey(LOWORD(lParam), HIWORD(lParam));
        break;
    default:
        Trace(message, wParam);
        break;
    }
    return CFeaturePage::OnReceiveMessage(hwnd, message, wParam, lParam);
}

void CKolmFluxorPage_DirectAccess::OnHotKey(UINT modifiers, UINT key) {
    if (modifiers != MOD_CONTROL) return;
    for (const HotKey& hotKey : kHotKeys) {
        if (hotKey.key == key) (this->*hotKey.run)();
    }
}

void CKolmFluxorPage_DirectAccess::Read() {
    m_address.Cut();
    if (Camera() == nullptr) return;
    ULONG value = kUnread;
    std::ignore = Camera()->ReadRegister(m_address.Value(), &value);  // all ones tell of a failure
    m_value.SetValue(value);                                          // which notifies, and so refreshes
}

void CKolmFluxorPage_DirectAccess::Write() {
    m_address.Cut();
    m_value.Cut();
    if (Camera() == nullptr) return;
    std::ignore = Camera()->WriteRegister(m_address.Value(), m_value.Value());  // the next read shows the truth
}

void CKolmFluxorPage_DirectAccess::Refresh() {
    if (m_current == nullptr) return;
    m_tree.DeleteChildren(m_current);
    CTreeSink sink(m_tree);
    std::ignore = DecodeRegister(m_address.Value(), m_value.Value(), m_current, sink);  // what could be shown is shown
    m_tree.ExpandAll(m_current);
    m_tree.Invalidate();
}

void CKolmFluxorPage_DirectAccess::OnRegisterChosen() {
    m_address.SetValue(m_names.SelectedValue());
    Refresh();
}

void CKolmFluxorPage_DirectAccess::OnValueChanged() {
    Refresh();
    m_bits.SetText(BinaryText(m_value.Value()).c_str());
}

}  // namespace kolmfluxor
