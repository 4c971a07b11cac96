#include "support/modal_user.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <array>

#include <dlgs.h>

namespace kolmfluxor::test {
namespace {

constexpr int kMessageText = 0xFFFF;
constexpr UINT kAnswerMs = 2000;  // for one message to the thread that is asked
constexpr std::chrono::seconds kPatience(30);

std::string TextOf(HWND window) {
    std::array<char, 1024> text{};
    DWORD_PTR length = 0;
    ::SendMessageTimeoutA(window, WM_GETTEXT, text.size(), reinterpret_cast<LPARAM>(text.data()), SMTO_NORMAL,
                          kAnswerMs, &length);
    return text.data();
}

std::vector<HWND> DialogsOf(DWORD thread) {
    std::vector<HWND> dialogs;
    ::EnumThreadWindows(
        thread,
        [](HWND window, LPARAM list) -> BOOL {
            std::array<char, 16> name{};
            ::GetClassNameA(window, name.data(), static_cast<int>(name.size()));
            if (std::string(name.data()) == "#32770" && ::IsWindowVisible(window))
                reinterpret_cast<std::vector<HWND>*>(list)->push_back(window);
            return TRUE;
        },
        reinterpret_cast<LPARAM>(&dialogs));
    return dialogs;
}

/// The edit for the file's name, however deep: by itself, or in a combo box.
HWND FileNameOf(HWND dialog) {
    HWND found = nullptr;
    ::EnumChildWindows(
        dialog,
        [](HWND child, LPARAM param) -> BOOL {
            const int id = ::GetDlgCtrlID(child);
            if (id != cmb13 && id != edt1) return TRUE;
            *reinterpret_cast<HWND*>(param) = child;
            return FALSE;
        },
        reinterpret_cast<LPARAM>(&found));
    return found;
}

}  // namespace

CModalUser::CModalUser(std::optional<std::string> path)
    : m_thread(::GetCurrentThreadId()), m_path(std::move(path)), m_user([this] { Answer(); }) {}

std::vector<SeenMessage> CModalUser::Messages() {
    m_user.Stop();
    return m_messages;
}

int CModalUser::FileDialogs() {
    m_user.Stop();
    return m_fileDialogs;
}

void CModalUser::Answer() {
    const bool late = std::chrono::steady_clock::now() - m_start > kPatience;
    for (HWND const dialog : DialogsOf(m_thread)) {
        if (!late) {
            AnswerDialog(dialog);
            continue;
        }
        ADD_FAILURE() << "still open: \"" << TextOf(dialog) << '"';
        ::PostMessageA(dialog, WM_COMMAND, IDCANCEL, 0);
    }
}

void CModalUser::AnswerDialog(HWND dialog) {
    HWND const text = ::GetDlgItem(dialog, kMessageText);
    if (text == nullptr) {
        AnswerFileDialog(dialog);
        return;
    }
    if (std::ranges::find(m_known, dialog) == m_known.end()) {
        m_known.push_back(dialog);
        m_messages.push_back({.caption = TextOf(dialog), .text = TextOf(text)});
    }
    ::PostMessageA(dialog, WM_COMMAND, IDOK, 0);
}

void CModalUser::AnswerFileDialog(HWND dialog) {
    HWND const name = FileNameOf(dialog);
    if (name == nullptr) return;  // visible before it is ready
    if (std::ranges::find(m_known, dialog) == m_known.end()) {
        m_known.push_back(dialog);
        ++m_fileDialogs;
    }
    if (!m_path) {
        ::PostMessageA(dialog, WM_COMMAND, IDCANCEL, 0);
        return;
    }
    DWORD_PTR result = 0;
    ::SendMessageTimeoutA(name, WM_SETTEXT, 0, reinterpret_cast<LPARAM>(m_path->c_str()), SMTO_NORMAL, kAnswerMs,
                          &result);
    ::PostMessageA(dialog, WM_COMMAND, IDOK, 0);
}

}  // namespace kolmfluxor::test
