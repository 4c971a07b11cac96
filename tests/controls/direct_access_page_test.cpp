/// @file  Page "Direct access" from inside: the system calls that it makes, who handles which message, and failures.

#include "pages/direct_access_page.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <optional>
#include <string>
#include <vector>

#include <commctrl.h>

#include "controls/page_frame.h"
#include "support/control_window.h"
#include "support/page_site.h"
#include "support/patched_import.h"
#include "support/property_set_stub.h"
#include "support/recorded_default.h"
#include "support/thrown_text.h"
#include "support/tree_reader.h"

extern "C" void* __imp_InitCommonControlsEx;
extern "C" void* __imp_RegisterHotKey;
extern "C" void* __imp_UnregisterHotKey;
extern "C" void* __imp_IsDebuggerPresent;
extern "C" void* __imp_OutputDebugStringA;
extern "C" void* __imp_InvalidateRect;
extern "C" void* __imp_SendDlgItemMessageA;

namespace kolmfluxor::test {
namespace {

constexpr int kNames = 1152;
constexpr int kAddress = 1046;
constexpr int kValue = 1048;
constexpr int kBits = 1051;
constexpr int kTree = 1156;

using Calls = std::vector<std::string>;
using Texts = std::vector<std::string>;

Calls g_calls;  ///< what the page asked of the system
INITCOMMONCONTROLSEX g_classes{};
UINT g_refusedMessage = 0;
HWND g_keyWindow = nullptr;
HWND g_invalidated = nullptr;

BOOL WINAPI RefuseControls(const INITCOMMONCONTROLSEX* classes) {
    g_classes = *classes;
    return FALSE;
}

BOOL WINAPI RecordRegister(HWND window, int id, UINT modifiers, UINT key) {
    g_keyWindow = window;
    g_calls.push_back("register " + std::to_string(id) + " " + std::to_string(modifiers) + " " +
                      static_cast<char>(key));
    return FALSE;  // which the page ignores
}

BOOL WINAPI RecordUnregister(HWND window, int id) {
    EXPECT_EQ(window, g_keyWindow);
    g_calls.push_back("unregister " + std::to_string(id));
    return FALSE;
}

BOOL WINAPI SomeoneListens() {
    return TRUE;
}

void WINAPI RecordLine(const char* line) {
    g_calls.emplace_back(line);
}

BOOL WINAPI RecordInvalidate(HWND window, const RECT* area, BOOL erase) {
    if (area == nullptr && erase) g_invalidated = window;
    return TRUE;
}

/// Refuses one message of controls; the others arrive.
LRESULT WINAPI RefuseMessage(HWND dialog, int id, UINT message, WPARAM wParam, LPARAM lParam) {
    if (message == g_refusedMessage) return -1;
    return ::SendMessageA(::GetDlgItem(dialog, id), message, wParam, lParam);
}

bool g_refusesControls = false;
/// Refuses, or finds all classes there already.
BOOL WINAPI MaybeRefuseControls(const INITCOMMONCONTROLSEX*) {
    return !g_refusesControls;
}

/// Notes the messages to the tree; all messages arrive.
std::vector<UINT> g_treeMessages;
LRESULT WINAPI RecordMessage(HWND dialog, int id, UINT message, WPARAM wParam, LPARAM lParam) {
    if (id == kTree) g_treeMessages.push_back(message);
    return ::SendMessageA(::GetDlgItem(dialog, id), message, wParam, lParam);
}
/// How many messages about an item went to the tree before the first new item.
std::ptrdiff_t ItemMessagesBeforeTheFirstItem() {
    const auto first = std::ranges::find(g_treeMessages, UINT{TVM_INSERTITEMA});
    return std::count_if(g_treeMessages.begin(), first, [](UINT message) {
        return message == TVM_GETNEXTITEM || message == TVM_DELETEITEM || message == TVM_EXPAND;
    });
}

/// An object with the interface, whose registers all refuse, unless told otherwise.
class CRefusingCamera final : public CPropertySetStub {
public:
    HRESULT STDMETHODCALLTYPE QueryInterface(REFIID riid, void** out) override {
        *out = riid == __uuidof(IKolmFluxorPropertySet) ? this : nullptr;
        return *out != nullptr ? S_OK : E_NOINTERFACE;
    }
    HRESULT STDMETHODCALLTYPE ReadRegister(ULONG, ULONG* value) override {
        ++reads;
        if (answer) *value = *answer;
        return result;
    }

    HRESULT result = E_FAIL;
    std::optional<ULONG> answer;  ///< written whatever the result is
    int reads = 0;
};

class DirectAccess : public ::testing::Test {
protected:
    DirectAccess() { g_calls.clear(); }
    ~DirectAccess() override {
        if (Dialog() != nullptr) {
            EXPECT_EQ(m_page->Deactivate(), S_OK);
        }
        EXPECT_EQ(m_page->SetObjects(0, nullptr), S_OK);
        EXPECT_EQ(m_page->Inner()->Release(), 0u);
    }
    void Open() {
        IUnknown* object = &m_camera;
        ASSERT_EQ(m_page->SetObjects(1, &object), S_OK);
        ASSERT_EQ(m_frame.Activate(*m_page), S_OK);
    }
    [[nodiscard]] HWND Dialog() const { return m_frame.Dialog(); }
    [[nodiscard]] HWND Control(int id) const { return m_frame.Control(id); }
    [[nodiscard]] std::string Text(int id) const { return m_frame.Text(id); }
    [[nodiscard]] Texts Tree() const { return CTreeReader(Control(kTree)).Texts(); }
    INT_PTR Command(int id, UINT code) {
        return m_page->OnReceiveMessage(Dialog(), WM_COMMAND, MAKEWPARAM(id, code),
                                        reinterpret_cast<LPARAM>(Control(id)));
    }

    CPageFrame m_frame;
    CRefusingCamera m_camera;
    CKolmFluxorPage_DirectAccess* m_page = NewPage<CKolmFluxorPage_DirectAccess>();
};

TEST_F(DirectAccess, takes_two_hot_keys_at_activation_and_gives_them_back) {
    const CPatchedImport patch(&__imp_RegisterHotKey, reinterpret_cast<void*>(&RecordRegister));
    const CPatchedImport other(&__imp_UnregisterHotKey, reinterpret_cast<void*>(&RecordUnregister));
    Open();
    EXPECT_EQ(g_calls, (Calls{"register 0 2 R", "register 1 2 W"}));
    EXPECT_EQ(g_keyWindow, Dialog());
    EXPECT_EQ(Tree().size(), 9u) << "keys that cannot be had are no failure";
    g_calls.clear();
    EXPECT_EQ(m_page->Deactivate(), S_OK);
    EXPECT_EQ(g_calls, (Calls{"unregister 0", "unregister 1"}));
}

TEST_F(DirectAccess, without_the_common_controls_stays_empty) {
    const CPatchedImport patch(&__imp_InitCommonControlsEx, reinterpret_cast<void*>(&RefuseControls));
    const CPatchedImport keys(&__imp_RegisterHotKey, reinterpret_cast<void*>(&RecordRegister));
    Open();
    EXPECT_EQ(g_classes.dwSize, 8u);
    EXPECT_EQ(g_classes.dwICC, 6u) << "tree view and bar classes";
    EXPECT_EQ(g_calls, Calls{});
    EXPECT_EQ(Text(kAddress), "");
    EXPECT_EQ(Tree(), Texts{});
    ::SetWindowTextA(Control(kValue), "1");
    EXPECT_EQ(Tree(), Texts{}) << "nothing to decode under";
    EXPECT_EQ(Text(kBits), std::string(31, '0') + "1");
}

TEST_F(DirectAccess, an_item_of_the_tree_before_is_never_used_in_the_next_one) {
    Open();
    ASSERT_EQ(m_page->Deactivate(), S_OK);
    const CPatchedImport controls(&__imp_InitCommonControlsEx, reinterpret_cast<void*>(&MaybeRefuseControls));
    const CPatchedImport messages(&__imp_SendDlgItemMessageA, reinterpret_cast<void*>(&RecordMessage));
    const CPatchedImport keys(&__imp_UnregisterHotKey, reinterpret_cast<void*>(&RecordUnregister));
    for (const bool refused : {false, true}) {
        SCOPED_TRACE(refused);
        g_refusesControls = refused;
        g_treeMessages.clear();
        ASSERT_EQ(m_frame.Activate(*m_page), S_OK);
        ::SetWindowTextA(Control(kValue), "1");
        EXPECT_EQ(ItemMessagesBeforeTheFirstItem(), 0);
        EXPECT_EQ(g_treeMessages.empty(), refused);
        EXPECT_EQ(Tree().empty(), refused);
        g_calls.clear();
        g_keyWindow = Dialog();
        ASSERT_EQ(m_page->Deactivate(), S_OK);
        EXPECT_EQ(g_calls, refused ? Calls{} : (Calls{"unregister 0", "unregister 1"})) << "only what it took";
    }
}

TEST_F(DirectAccess, returns_1_for_its_own_commands_only) {
    Open();
    for (const auto& [id, code] :
         {std::pair{kNames, CBN_SELCHANGE}, {1049, BN_CLICKED}, {1050, BN_CLICKED}, {kValue, EN_CHANGE}}) {
        EXPECT_EQ(Command(id, static_cast<UINT>(code)), 1) << id;
    }
    const CRecordedDefault base;
    for (const auto& [id, code] : {std::pair{kNames, CBN_CLOSEUP},
                                   {kAddress, EN_CHANGE},
                                   {1049, BN_DOUBLECLICKED},
                                   {1051, BN_CLICKED},
                                   {kTree, BN_CLICKED}}) {
        CRecordedDefault::Forget();
        EXPECT_EQ(Command(id, static_cast<UINT>(code)), CRecordedDefault::kAnswer) << id;
        EXPECT_EQ(CRecordedDefault::Messages(), std::vector<UINT>{WM_COMMAND}) << id;
    }
}

TEST_F(DirectAccess, a_hot_key_goes_on_to_the_base) {
    Open();
    const CRecordedDefault base;
    EXPECT_EQ(m_page->OnReceiveMessage(Dialog(), WM_HOTKEY, 0, MAKELPARAM(MOD_CONTROL, 'R')),
              CRecordedDefault::kAnswer);
    EXPECT_EQ(m_camera.reads, 1);
    ASSERT_FALSE(CRecordedDefault::Messages().empty());
    EXPECT_EQ(CRecordedDefault::Messages().back(), UINT{WM_HOTKEY}) << "after the read";
}

TEST_F(DirectAccess, a_read_that_leaves_its_output_alone_shows_all_ones) {
    Open();
    Command(1049, BN_CLICKED);
    EXPECT_EQ(Text(kValue), "ffffffff");
}

TEST_F(DirectAccess, a_failed_reads_value_is_shown_all_the_same) {
    Open();
    m_camera.answer = 0x1234;
    Command(1049, BN_CLICKED);
    EXPECT_EQ(m_camera.reads, 1);
    EXPECT_EQ(Text(kValue), "1234");
}

TEST_F(DirectAccess, traces_each_message_that_is_not_its_own_to_a_debugger) {
    Open();
    const CPatchedImport listens(&__imp_IsDebuggerPresent, reinterpret_cast<void*>(&SomeoneListens));
    const CPatchedImport patch(&__imp_OutputDebugStringA, reinterpret_cast<void*>(&RecordLine));
    m_page->OnReceiveMessage(Dialog(), WM_APP + 1, 0x12345678, 0);
    Command(1051, BN_CLICKED);
    EXPECT_EQ(g_calls, (Calls{"CKolmFluxorPage_DirectAccess::OnReceiveMessage Msg: 8001 wParam: 1234",
                              "CKolmFluxorPage_DirectAccess::OnReceiveMessage Msg: 111 wParam: 0"}));
    g_calls.clear();
    Command(kAddress, EN_CHANGE);
    EXPECT_EQ(g_calls, Calls{"CKolmFluxorPage_DirectAccess::OnReceiveMessage Msg: 111 wParam: 300"});
    g_calls.clear();
    m_page->OnReceiveMessage(Dialog(), WM_HOTKEY, 0, MAKELPARAM(MOD_ALT, 'R'));
    EXPECT_EQ(g_calls, Calls{}) << "a hot key is its own";
}

TEST_F(DirectAccess, traces_nothing_without_a_debugger) {
    Open();
    const CPatchedImport patch(&__imp_OutputDebugStringA, reinterpret_cast<void*>(&RecordLine));
    m_page->OnReceiveMessage(Dialog(), WM_APP + 1, 0, 0);
    EXPECT_EQ(g_calls, Calls{});
}

TEST_F(DirectAccess, has_its_tree_painted_again_after_a_change) {
    Open();
    const CPatchedImport patch(&__imp_InvalidateRect, reinterpret_cast<void*>(&RecordInvalidate));
    g_invalidated = nullptr;
    ::SetWindowTextA(Control(kValue), "1");
    EXPECT_EQ(g_invalidated, Control(kTree));
}

TEST_F(DirectAccess, a_tree_that_refuses_lines_keeps_what_could_be_inserted) {
    Open();
    const CRefusingControl refusing(Control(kTree), TVM_INSERTITEMA, 0);
    EXPECT_EQ(Command(kValue, EN_CHANGE), 1);
    EXPECT_EQ(Tree(), Texts{"Current"});
}

TEST_F(DirectAccess, a_tree_that_deletes_nothing_does_not_hang_it) {
    Open();
    const CRefusingControl refusing(Control(kTree), TVM_DELETEITEM, FALSE);
    EXPECT_EQ(Command(kValue, EN_CHANGE), 1);
    EXPECT_EQ(Tree().size(), 17u) << "the old lines and the new ones";
}

TEST_F(DirectAccess, a_list_without_a_selection_raises_and_changes_nothing) {
    Open();
    ::SendMessageA(Control(kNames), CB_SETCURSEL, static_cast<WPARAM>(-1), 0);
    EXPECT_EQ(ThrownText([&] { Command(kNames, CBN_SELCHANGE); }),
              "CComboBoxCtrl::SelectedValue: error getting current selection from combobox");
    EXPECT_NO_THROW(::SendMessageA(Dialog(), WM_COMMAND, MAKEWPARAM(kNames, CBN_SELCHANGE), 0));
    EXPECT_EQ(Text(kAddress), "f0f00800");
}

TEST_F(DirectAccess, a_list_that_takes_no_entry_ends_the_activation_with_no_harm) {
    for (const UINT message : {UINT{CB_ADDSTRING}, UINT{CB_SETITEMDATA}}) {
        SCOPED_TRACE(message);
        const CPatchedImport patch(&__imp_SendDlgItemMessageA, reinterpret_cast<void*>(&RefuseMessage));
        g_refusedMessage = message;
        Open();
        EXPECT_EQ(Text(kAddress), "0") << "not filled";
        EXPECT_EQ(Tree(), Texts{});
        EXPECT_FALSE(::RegisterHotKey(nullptr, 77, MOD_CONTROL, 'R')) << "the page has taken its keys before";
        EXPECT_FALSE(::RegisterHotKey(nullptr, 77, MOD_CONTROL, 'W'));
        ::SetWindowTextA(Control(kValue), "1");
        EXPECT_EQ(m_page->Deactivate(), S_OK);
        g_refusedMessage = 0;
    }
    EXPECT_TRUE(::RegisterHotKey(nullptr, 77, MOD_CONTROL, 'R')) << "the keys were given back";
    EXPECT_TRUE(::UnregisterHotKey(nullptr, 77));
}

TEST_F(DirectAccess, an_object_without_the_interface_leaves_a_page_that_decodes_but_reaches_no_camera) {
    CPageSite stranger;
    IUnknown* object = &stranger;
    EXPECT_EQ(m_page->SetObjects(1, &object), E_NOINTERFACE);
    ASSERT_EQ(m_frame.Activate(*m_page), S_OK);
    ::SetWindowTextA(Control(kValue), "80000000");
    EXPECT_EQ(Tree().at(2), "    Present: 1");
    EXPECT_EQ(Command(1049, BN_CLICKED), 1);
    EXPECT_EQ(Command(1050, BN_CLICKED), 1);
    EXPECT_EQ(Text(kValue), "80000000");
}

TEST_F(DirectAccess, survives_losing_its_dialog_with_the_frame) {
    HWND const other = ::CreateWindowExA(0, "STATIC", "", WS_OVERLAPPEDWINDOW | WS_VISIBLE, 0, 0, 640, 540, nullptr,
                                         nullptr, nullptr, nullptr);
    IUnknown* object = &m_camera;
    ASSERT_EQ(m_page->SetObjects(1, &object), S_OK);
    constexpr RECT kPlace = {0, 0, 500, 500};
    ASSERT_EQ(m_page->Activate(other, &kPlace, FALSE), S_OK);
    ::DestroyWindow(other);
    ASSERT_EQ(m_frame.Activate(*m_page), S_OK);
    EXPECT_EQ(Tree().size(), 9u);
}

}  // namespace
}  // namespace kolmfluxor::test
