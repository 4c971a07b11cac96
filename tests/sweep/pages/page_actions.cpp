#include "sweep/pages/page_actions.h"

#include <algorithm>
#include <array>
#include <string_view>

#include <commctrl.h>

#include "support/tree_reader.h"

namespace kolmfluxor::test {
namespace {

constexpr const char* kTexts[] = {"F0F00820", "8", "1048"};

struct Control {
    HWND window;
    int id;
    std::string kind;
};

std::string KindOf(HWND window) {
    std::array<char, 64> kind{};
    ::GetClassNameA(window, kind.data(), static_cast<int>(kind.size()));
    return kind.data();
}

std::vector<Control> Controls(const CPageHost& page) {
    std::vector<Control> controls;
    for (HWND window = ::GetWindow(page.Dialog(), GW_CHILD); window != nullptr;
         window = ::GetWindow(window, GW_HWNDNEXT)) {
        controls.push_back({window, ::GetDlgCtrlID(window), KindOf(window)});
    }
    return controls;
}

LRESULT Send(const CPageHost& page, int id, UINT message, WPARAM wParam = 0, LPARAM lParam = 0) {
    return ::SendMessageA(page.Control(id), message, wParam, lParam);
}

// ---- Actions, by the kind of control
// ----------------------------------------------------------------------------------

void Press(CPageHost& page, int id, int /*round*/) {
    page.Click(id);
}

void Slide(CPageHost& page, int id, int round) {
    const LONG min = page.RangeMin(id);
    const LONG max = page.RangeMax(id);
    page.Drag(id, min + (max - min) / 4 * (round % 4));
    ::SendMessageA(page.Dialog(), WM_HSCROLL, TB_ENDTRACK, reinterpret_cast<LPARAM>(page.Control(id)));
}

void Choose(CPageHost& page, int id, int round) {
    const LRESULT count = Send(page, id, CB_GETCOUNT);
    page.Drop(id, true);
    if (count > 0) Send(page, id, CB_SETCURSEL, static_cast<WPARAM>(round % count));
    page.Notify(id, CBN_SELCHANGE);
    page.Drop(id, false);
}

void Type(CPageHost& page, int id, int round) {
    ::SetWindowTextA(page.Control(id), kTexts[static_cast<std::size_t>(round) % std::size(kTexts)]);
    page.Notify(id, EN_KILLFOCUS);
}

void Step(CPageHost& page, int id, int round) {
    DWORD_PTR min = 0;
    DWORD_PTR max = 0;
    Send(page, id, UDM_GETRANGE32, reinterpret_cast<WPARAM>(&min), reinterpret_cast<LPARAM>(&max));
    const int low = static_cast<int>(min);
    const int position = low + (static_cast<int>(max) - low) / 4 * (round % 4);
    Send(page, id, UDM_SETPOS32, 0, position);
    NMUPDOWN notice{};
    notice.hdr = {page.Control(id), static_cast<UINT_PTR>(id), static_cast<UINT>(UDN_DELTAPOS)};
    notice.iPos = position;
    notice.iDelta = 1;
    ::SendMessageA(page.Dialog(), WM_NOTIFY, static_cast<WPARAM>(id), reinterpret_cast<LPARAM>(&notice));
    ::SendMessageA(page.Dialog(), WM_VSCROLL, MAKEWPARAM(SB_THUMBPOSITION, position),
                   reinterpret_cast<LPARAM>(page.Control(id)));
}

void Select(CPageHost& page, int id, int round) {
    const auto items = CTreeReader(page.Control(id)).Items();
    if (items.empty()) return;
    HTREEITEM const item = items[static_cast<std::size_t>(round) % items.size()].handle;
    Send(page, id, TVM_EXPAND, TVE_TOGGLE, reinterpret_cast<LPARAM>(item));
    Send(page, id, TVM_SELECTITEM, TVGN_CARET, reinterpret_cast<LPARAM>(item));
}

struct KindRow {
    const char* kind;
    const char* verb;
    void (*run)(CPageHost& page, int id, int round);
};

constexpr KindRow kKinds[] = {
    {"Button", "press", &Press},  {TRACKBAR_CLASSA, "slide", &Slide}, {"ComboBox", "choose", &Choose},
    {"Edit", "type into", &Type}, {UPDOWN_CLASSA, "step", &Step},     {WC_TREEVIEWA, "select in", &Select},
};

/// Only shown: a text, a frame, a picture.
bool IsForShow(const Control& control) {
    const LONG_PTR style = ::GetWindowLongPtrA(control.window, GWL_STYLE);
    return control.kind == "Static" || (control.kind == "Button" && (style & BS_TYPEMASK) == BS_GROUPBOX);
}

// ---- What a control shows
// ---------------------------------------------------------------------------------------------

std::string Number(LRESULT number) {
    return ' ' + std::to_string(number);
}

std::string StateOf(const CPageHost& page, const Control& control) {
    const auto ask = [&](UINT message, WPARAM wParam = 0, LPARAM lParam = 0) {
        return ::SendMessageA(control.window, message, wParam, lParam);
    };
    if (control.kind == "Button") return Number(ask(BM_GETCHECK));
    if (control.kind == TRACKBAR_CLASSA)
        return Number(ask(TBM_GETPOS)) + Number(ask(TBM_GETRANGEMIN)) + Number(ask(TBM_GETRANGEMAX));
    if (control.kind == "ComboBox") {
        std::string state = Number(ask(CB_GETCURSEL)) + " of";
        for (const std::string& entry : page.Entries(control.id))
            state += ' ' + entry + ',';
        return state;
    }
    if (control.kind == UPDOWN_CLASSA) {
        int min = 0;
        int max = 0;
        ask(UDM_GETRANGE32, reinterpret_cast<WPARAM>(&min), reinterpret_cast<LPARAM>(&max));
        return Number(ask(UDM_GETPOS32)) + Number(min) + Number(max);
    }
    if (control.kind == WC_TREEVIEWA) {
        std::string state;
        for (const std::string& text : CTreeReader(control.window).Texts())
            state += ' ' + text + ',';
        return state;
    }
    return "";
}

}  // namespace

std::vector<PageAction> ActionsOf(const CPageHost& page) {
    std::vector<PageAction> actions = {
        {"apply", [](CPageHost& host, int) { EXPECT_NE(host.Page()->Apply(), E_UNEXPECTED); }},
        {"timer", [](CPageHost& host, int) { host.Tick(); }},
    };
    for (const char key : {'R', 'W'}) {
        actions.push_back({std::string("hot key ") + key, [key](CPageHost& host, int) {
                               ::SendMessageA(host.Dialog(), WM_HOTKEY, 0, MAKELPARAM(MOD_CONTROL, key));
                           }});
    }
    for (const Control& control : Controls(page)) {
        if (IsForShow(control) || !::IsWindowVisible(control.window) || !::IsWindowEnabled(control.window)) continue;
        const auto* const row = std::ranges::find_if(
            kKinds, [&](const KindRow& each) { return std::string_view(each.kind) == control.kind; });
        if (row == std::end(kKinds)) {
            ADD_FAILURE() << "nothing known to do with a " << control.kind;
            continue;
        }
        actions.push_back({row->verb + Number(control.id),
                           [run = row->run, id = control.id](CPageHost& host, int round) { run(host, id, round); }});
    }
    return actions;
}

std::vector<std::string> Snapshot(const CPageHost& page) {
    std::vector<std::string> lines;
    for (const Control& control : Controls(page)) {
        std::array<char, 512> text{};
        ::GetWindowTextA(control.window, text.data(), static_cast<int>(text.size()));
        lines.push_back(control.kind + Number(control.id) + (::IsWindowEnabled(control.window) ? "" : " disabled") +
                        (::IsWindowVisible(control.window) ? "" : " hidden") + " \"" + text.data() + '"' +
                        StateOf(page, control));
    }
    return lines;
}

}  // namespace kolmfluxor::test
