#pragma once
/// @file  The viewer's window: the running picture, its figures, and three buttons.

#include <chrono>
#include <cstdint>
#include <exception>
#include <memory>
#include <string>

#include <windows.h>

#include "frame/property_frame.h"
#include "kolmview/camera_feed.h"
#include "kolmview/histogram.h"
#include "kolmview/picture_view.h"
#include "kolmview/viewer_options.h"

namespace kolmview {

/// Shows a camera until the user closes it. On one thread, with single-threaded COM; the property pages' frame lives on
/// the same thread, beside the running picture.
///
/// The window looks for a newer picture on a timer, whose messages come after all others: however fast pictures come,
/// keys and mouse go first, and however slow painting is, the stream goes on.
class ViewerWindow {
public:
    /// Makes the window, hidden, and starts the stream. What is wrong with the camera is said in the window.
    ///
    /// @throws kolmctl::CallError when the window cannot be made
    explicit ViewerWindow(ViewerOptions options);
    ~ViewerWindow();
    ViewerWindow(const ViewerWindow&) = delete;
    ViewerWindow& operator=(const ViewerWindow&) = delete;

    void Show();

    /// Handles messages until the window is closed.
    ///
    /// @return  success, or what the camera's last start failed with
    /// @throws  kolmctl::Error when the options ask for a picture of the window and it cannot be had
    kolmctl::ExitCode Run();

    /// Handles all messages that wait. @return  false when the window is closed
    bool Settle();

    /// Null when somebody has taken it away.
    [[nodiscard]] HWND Window() const { return m_window; }
    /// How many pictures were shown.
    [[nodiscard]] std::uint64_t ShownPictures() const { return m_shown; }
    /// What the picture's window says.
    [[nodiscard]] const std::wstring& Notice() const { return m_pictureView.Text(); }
    /// The frame of the property pages; null when it is not open.
    [[nodiscard]] kolmctl::PropertyFrame* Properties() const { return m_frame.get(); }
    [[nodiscard]] CameraFeed& Feed() { return m_feed; }

private:
    using Clock = std::chrono::steady_clock;

    static INT_PTR CALLBACK DialogProc(HWND window, UINT message, WPARAM wParam, LPARAM lParam);
    INT_PTR OnMessage(UINT message, WPARAM wParam, LPARAM lParam);
    void OnInit();
    void OnCommand(int id);
    void OnTick();
    void Handle(MSG* message);
    void HandleLater();

    void Restart();
    void ToggleStream();
    void OpenProperties();
    void SavePicture();
    void Report(const std::string& text, UINT icon) const;

    void ShowNewestPicture(Clock::time_point now);
    void ShowState(Clock::time_point now);
    [[nodiscard]] std::string Figures(Clock::time_point now) const;
    void FitToPicture();
    void TakeWantedPicture(Clock::time_point now);

    const ViewerOptions m_options;
    CameraFeed m_feed;
    std::unique_ptr<kolmctl::PropertyFrame> m_frame;  ///< gone before the camera
    PictureView m_pictureView;
    PictureView m_histogramView;
    Histogram m_histogram;
    HWND m_window = nullptr;
    std::uint64_t m_shown = 0;
    const Clock::time_point m_begun = Clock::now();
    Clock::time_point m_counted;     ///< when the histogram was last made
    Clock::time_point m_stateShown;  ///< when figures and notice were last brought up to date
    Clock::time_point m_saidUntil;   ///< until when m_said takes the figures' place
    std::string m_said;
    bool m_closing = false;        ///< the message loops end
    bool m_restart = false;        ///< to be done when no handler is on the stack
    std::exception_ptr m_failure;  ///< for Run to throw
};

}  // namespace kolmview
