#pragma once
/// @file  A property frame: one window, one tab a page, the buttons OK, Cancel and Apply.

#include <memory>
#include <string>
#include <vector>

#include <windows.h>

#include "frame/frame_page.h"

namespace kolmctl {

/// Shows property pages as the system's frame does, and keeps to the whole protocol: a change enables Apply, OK and
/// Apply apply, and closing in any way disconnects every page.
///
/// The window lives on the thread that makes it, which needs single-threaded COM.
class PropertyFrame {
public:
    /// Makes the window, hidden, with the first page in it.
    ///
    /// @param pages  connected, at least one; the frame's from here on
    /// @throws CallError
    PropertyFrame(const std::wstring& caption, std::vector<std::unique_ptr<FramePage>> pages);
    ~PropertyFrame();
    PropertyFrame(const PropertyFrame&) = delete;
    PropertyFrame& operator=(const PropertyFrame&) = delete;

    /// Null after Close.
    [[nodiscard]] HWND Window() const { return m_window; }

    /// Shows the window, its keyboard focus in the page.
    void Show();

    /// Handles messages until the user has closed the frame or the thread is asked to quit; closes it.
    void Run();

    /// For a host with a message loop of its own: handles a message to this window or to anything in it.
    ///
    /// @return  false for any other message, which is left to the host
    bool Handle(MSG* message);

    /// Whether the user is through. Such a host then destroys the frame, from its loop and not from inside a message.
    [[nodiscard]] bool IsDone() const { return m_done; }

    /// Handles all messages that wait, then paints what is still unpainted.
    void Settle();

    /// Disconnects all pages and takes the window away. Changes that were not applied are lost.
    void Close();

private:
    static INT_PTR CALLBACK DialogProc(HWND window, UINT message, WPARAM wParam, LPARAM lParam);
    INT_PTR OnMessage(UINT message, WPARAM wParam, LPARAM lParam);
    void OnCommand(int id);

    void AddTabs();
    HRESULT ShowPage(std::size_t index);
    void OnTabChosen();
    void OnPageStatus(DWORD flags);
    bool ApplyAll();
    void UpdateApply();
    void Report(const FramePage& page, const char* what, HRESULT hr);

    void Dispatch(MSG* message);
    bool TurnTabs(const MSG& message);

    std::vector<std::unique_ptr<FramePage>> m_pages;
    std::size_t m_shown = 0;
    HWND m_window = nullptr;
    bool m_done = false;  ///< the user is through
};

}  // namespace kolmctl
