#pragma once
/// @file  A second thread that answers what a page asks: message boxes, and the open-file dialog.

#include <chrono>
#include <optional>
#include <string>
#include <vector>

#include <windows.h>

#include "support/repeating_thread.h"

namespace kolmfluxor::test {

/// A message box as the user sees it.
struct SeenMessage {
    std::string caption;
    std::string text;
    bool operator==(const SeenMessage&) const = default;
};

/// Answers the modal windows of the thread that made it, as long as it lives: message boxes with OK, the open-file
/// dialog with a path or with Cancel. What is still open after a time fails the test and is canceled.
class CModalUser {
public:
    /// @param path  for the open-file dialog; none presses Cancel
    explicit CModalUser(std::optional<std::string> path = std::nullopt);

    /// Stops answering. @return  the message boxes, in the order of their coming
    std::vector<SeenMessage> Messages();
    /// Stops answering. @return  how many open-file dialogs there were
    int FileDialogs();

private:
    void Answer();
    void AnswerDialog(HWND dialog);
    void AnswerFileDialog(HWND dialog);

    const DWORD m_thread;
    const std::chrono::steady_clock::time_point m_start = std::chrono::steady_clock::now();
    const std::optional<std::string> m_path;
    std::vector<HWND> m_known;
    std::vector<SeenMessage> m_messages;
    int m_fileDialogs = 0;
    CRepeatingThread m_user;  // last: it uses what is above
};

}  // namespace kolmfluxor::test
