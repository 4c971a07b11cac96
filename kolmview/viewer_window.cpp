#include "kolmview/viewer_window.h"

#include <algorithm>
#include <array>
#include <cstdio>
#include <utility>

#include "errors.h"
#include "frame/page_list.h"
#include "frame/window_picture.h"
#include "kolmview/file_dialog.h"
#include "kolmview/histogram_picture.h"
#include "kolmview/resource.h"
#include "kolmview/viewer_layout.h"
#include "text.h"

namespace kolmview {
namespace {

using namespace std::chrono_literals;

constexpr UINT_PTR kTimer = 1;
constexpr UINT kTickMs = 20;  // more pictures a second than this gives are not shown
constexpr auto kBetweenHistograms = 100ms;
constexpr auto kBetweenStates = 250ms;
constexpr auto kSaidFor = 3s;

// Of a picture of the window
constexpr std::uint64_t kPicturesBefore = 10;
constexpr auto kPatience = 10s;

BgrPixels PixelsOf(const kolmctl::Picture& picture) {
    return {.bytes = picture.pixels, .width = picture.width, .height = picture.height, .rowBytes = picture.RowBytes()};
}

/// Puts a window to the right of another one, or as far there as the screen goes.
void PlaceBeside(HWND window, HWND other) {
    RECT own{};
    RECT beside{};
    RECT area{};
    ::GetWindowRect(window, &own);
    ::GetWindowRect(other, &beside);
    ::SystemParametersInfoW(SPI_GETWORKAREA, 0, &area, 0);
    const LONG left = std::max(area.left, std::min(beside.right, area.right - (own.right - own.left)));
    const LONG top = std::max(area.top, std::min(beside.top, area.bottom - (own.bottom - own.top)));
    ::SetWindowPos(window, nullptr, left, top, 0, 0, SWP_NOZORDER | SWP_NOSIZE | SWP_NOACTIVATE);
}

}  // namespace

ViewerWindow::ViewerWindow(ViewerOptions options) : m_options(std::move(options)), m_feed(m_options.camera) {
    PictureView::RegisterClass();
    ::CreateDialogParamW(::GetModuleHandleW(nullptr), MAKEINTRESOURCEW(IDD_VIEWER), nullptr, DialogProc,
                         reinterpret_cast<LPARAM>(this));
    if (m_window == nullptr) {
        throw kolmctl::CallError("cannot make the window", HRESULT_FROM_WIN32(::GetLastError()));
    }
    Restart();
}

ViewerWindow::~ViewerWindow() {
    m_frame.reset();
    m_feed.Close();
    if (m_window != nullptr) {
        ::DestroyWindow(m_window);
        // Its own end is no reason for the thread's.
        MSG message{};
        ::PeekMessageW(&message, nullptr, WM_QUIT, WM_QUIT, PM_REMOVE);
    }
}

void ViewerWindow::Show() {
    ::ShowWindow(m_window, SW_SHOW);
    ::SetForegroundWindow(m_window);
    ::SendMessageW(m_window, WM_NEXTDLGCTL, reinterpret_cast<WPARAM>(::GetDlgItem(m_window, IDC_STREAM)), TRUE);
}

kolmctl::ExitCode ViewerWindow::Run() {
    MSG message{};
    while (::GetMessageW(&message, nullptr, 0, 0) > 0) {
        Handle(&message);
    }
    if (m_failure) {
        std::rethrow_exception(m_failure);
    }
    return m_feed.Failure().value_or(kolmctl::ExitCode::success);
}

bool ViewerWindow::Settle() {
    MSG message{};
    while (::PeekMessageW(&message, nullptr, 0, 0, PM_REMOVE)) {
        if (message.message == WM_QUIT) {
            return false;
        }
        Handle(&message);
    }
    return true;
}

void ViewerWindow::Handle(MSG* message) {
    const bool ours = message->hwnd == m_window || ::IsChild(m_window, message->hwnd);
    if (ours && message->message == WM_KEYDOWN && message->wParam == VK_F5) {
        m_restart = true;
    } else if ((m_frame == nullptr || !m_frame->Handle(message)) && !::IsDialogMessageW(m_window, message)) {
        ::TranslateMessage(message);
        ::DispatchMessageW(message);
    }
    HandleLater();
}

/// What must not happen while a handler of this window, of the frame or of a page is on the stack: those show message
/// boxes, whose loops handle this window's messages too.
void ViewerWindow::HandleLater() {
    if (m_frame != nullptr && m_frame->IsDone()) {
        m_frame.reset();
    }
    if (std::exchange(m_restart, false)) {
        Restart();
    }
}

INT_PTR CALLBACK ViewerWindow::DialogProc(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
    if (message == WM_INITDIALOG) {
        ::SetWindowLongPtrW(window, DWLP_USER, lParam);
        auto* const created = reinterpret_cast<ViewerWindow*>(lParam);
        created->m_window = window;
        created->OnInit();
        return FALSE;  // Show sets the focus
    }
    auto* const viewer = reinterpret_cast<ViewerWindow*>(::GetWindowLongPtrW(window, DWLP_USER));
    if (viewer == nullptr) {
        return FALSE;
    }
    // No exception may pass Windows' own frames.
    try {
        return viewer->OnMessage(message, wParam, lParam);
    } catch (const kolmctl::Error& error) {
        viewer->Report(error.what() + (error.Hint().empty() ? "" : "\n" + error.Hint()), MB_ICONERROR);
    } catch (const std::exception& error) {
        viewer->Report(error.what(), MB_ICONERROR);
    }
    return TRUE;
}

INT_PTR ViewerWindow::OnMessage(UINT message, WPARAM wParam, LPARAM lParam) {
    switch (message) {
    case WM_COMMAND:
        OnCommand(LOWORD(wParam));
        return TRUE;
    case WM_TIMER:
        OnTick();
        return TRUE;
    case WM_SIZE:
        LayOutViewer(m_window);
        return TRUE;
    case WM_GETMINMAXINFO: {
        const SIZE smallest = SmallestSize(m_window);
        reinterpret_cast<MINMAXINFO*>(lParam)->ptMinTrackSize = {smallest.cx, smallest.cy};
        return TRUE;
    }
    case WM_CLOSE:
        // Everything is taken back when the message loops have ended, this thread's own and those of open boxes.
        m_closing = true;
        ::ShowWindow(m_window, SW_HIDE);
        ::PostQuitMessage(0);
        return TRUE;
    case WM_DESTROY:
        ::KillTimer(m_window, kTimer);
        ::SetWindowLongPtrW(m_window, DWLP_USER, 0);
        m_window = nullptr;
        m_closing = true;
        ::PostQuitMessage(0);
        return FALSE;
    default:
        return FALSE;
    }
}

void ViewerWindow::OnInit() {
    m_pictureView.Attach(::GetDlgItem(m_window, IDC_PICTURE));
    m_histogramView.Attach(::GetDlgItem(m_window, IDC_HISTOGRAM));
    HINSTANCE const module = ::GetModuleHandleW(nullptr);
    for (const auto& [kind, metric] : {std::pair{ICON_BIG, SM_CXICON}, std::pair{ICON_SMALL, SM_CXSMICON}}) {
        const int size = ::GetSystemMetrics(metric);
        // Shared: Windows frees it.
        HANDLE const icon =
            ::LoadImageW(module, MAKEINTRESOURCEW(IDI_VIEWER), IMAGE_ICON, size, size, LR_DEFAULTCOLOR | LR_SHARED);
        ::SendMessageW(m_window, WM_SETICON, static_cast<WPARAM>(kind), reinterpret_cast<LPARAM>(icon));
    }
    LayOutViewer(m_window);
    ::SetTimer(m_window, kTimer, kTickMs, nullptr);
}

void ViewerWindow::OnCommand(int id) {
    switch (id) {
    case IDOK:  // Enter where no button is the default one: it presses the one with the focus
        if (const int focus = ::GetDlgCtrlID(::GetFocus()); focus != IDOK) {
            OnCommand(focus);
        }
        break;
    case IDC_PROPERTIES:
        OpenProperties();
        break;
    case IDC_STILL:
        SavePicture();
        break;
    case IDC_STREAM:
        ToggleStream();
        break;
    default:
        break;  // Esc, for one: a picture that runs is no dialog to cancel
    }
}

void ViewerWindow::OnTick() {
    const Clock::time_point now = Clock::now();
    ShowNewestPicture(now);
    if (now - m_stateShown >= kBetweenStates) {
        m_feed.Watch(now);
        ShowState(now);
    }
    if (m_frame != nullptr && m_frame->IsDone()) {
        ::ShowWindow(m_frame->Window(), SW_HIDE);  // it goes when a message box is gone that holds things up
    }
    if (!m_options.picture.empty()) {
        TakeWantedPicture(now);
    }
}

void ViewerWindow::Restart() {
    if (m_feed.IsLost()) {
        m_frame.reset();  // the pages hold the camera that is gone
        m_feed.Close();
    }
    m_feed.Start(Clock::now());
    ShowState(Clock::now());
}

void ViewerWindow::ToggleStream() {
    if (m_feed.IsRunning()) {
        m_feed.Stop();
        ShowState(Clock::now());
    } else {
        m_restart = true;
    }
}

void ViewerWindow::OpenProperties() {
    if (m_feed.OpenedCamera() == nullptr) {
        return;
    }
    if (m_frame != nullptr) {
        ::SetForegroundWindow(m_frame->Window());
        return;
    }
    IBaseFilter& filter = m_feed.OpenedCamera()->Filter();
    kolmctl::PageList list = kolmctl::CreatePages(filter);
    if (!list.notes.empty()) {
        Report(kolmctl::Join(list.notes, "\n"), MB_ICONWARNING);
    }
    if (list.pages.empty()) {
        throw kolmctl::Error(kolmctl::ExitCode::refused, "the device has no property page that can be shown");
    }
    for (const auto& page : list.pages) {
        page->Connect(filter);
    }
    m_frame = std::make_unique<kolmctl::PropertyFrame>(kolmctl::ToUtf16(m_feed.OpenedCamera()->Name()),
                                                       std::move(list.pages));
    PlaceBeside(m_frame->Window(), m_window);
    m_frame->Show();
}

void ViewerWindow::SavePicture() {
    if (m_shown == 0) {
        return;
    }
    const kolmctl::Picture picture =
        m_pictureView.Shown();  // the one that was on the screen, however long the name takes
    const std::wstring file = m_options.still.empty() ? AskForPngFile(m_window) : kolmctl::ToUtf16(m_options.still);
    // A dialog that the end of the program ends may still answer OK.
    if (file.empty() || m_closing) {
        return;
    }
    kolmctl::WritePicture(picture, kolmctl::PictureFile::png, file);
    m_said = "Saved: " + kolmctl::ToUtf8(file);
    m_saidUntil = Clock::now() + kSaidFor;
    ShowState(Clock::now());
}

void ViewerWindow::Report(const std::string& text, UINT icon) const {
    ::MessageBoxW(m_window, kolmctl::ToUtf16(text).c_str(), L"kolmview", MB_OK | icon);
}

void ViewerWindow::ShowNewestPicture(Clock::time_point now) {
    if (!m_feed.TakePicture(&m_pictureView.Shown())) {
        return;
    }
    if (m_shown++ == 0) {
        FitToPicture();
    }
    m_pictureView.Changed();
    if (now - m_counted < kBetweenHistograms) {
        return;
    }
    m_counted = now;
    const BgrPixels pixels = PixelsOf(m_pictureView.Shown());
    m_histogram = m_feed.Graph().Format().IsGray() ? Histogram::OfLuma(pixels) : Histogram::OfColor(pixels);
    const SIZE size = m_histogramView.Size();
    m_histogramView.Shown().width = static_cast<UINT>(size.cx);
    m_histogramView.Shown().height = static_cast<UINT>(size.cy);
    DrawHistogram(m_histogram, &m_histogramView.Shown());
    m_histogramView.Changed();
}

void ViewerWindow::ShowState(Clock::time_point now) {
    m_stateShown = now;
    m_pictureView.SetText(kolmctl::ToUtf16(m_feed.Notice()));
    const auto setText = [](HWND window, const std::wstring& text) {
        std::array<wchar_t, 512> shown{};
        ::GetWindowTextW(window, shown.data(), static_cast<int>(shown.size()));
        if (text != shown.data()) {  // setting it paints it anew
            ::SetWindowTextW(window, text.c_str());
        }
    };
    const kolmctl::Camera* const camera = m_feed.OpenedCamera();
    setText(m_window, (camera != nullptr ? kolmctl::ToUtf16(camera->Name()) + L" - " : L"") + L"kolmview");
    setText(::GetDlgItem(m_window, IDC_FIGURES), kolmctl::ToUtf16(Figures(now)));
    setText(::GetDlgItem(m_window, IDC_STREAM), m_feed.IsRunning() ? L"S&top" : L"S&tart");
    ::EnableWindow(::GetDlgItem(m_window, IDC_PROPERTIES), camera != nullptr);
    ::EnableWindow(::GetDlgItem(m_window, IDC_STILL), m_shown != 0);
}

std::string ViewerWindow::Figures(Clock::time_point now) const {
    if (now < m_saidUntil) {
        return m_said;
    }
    if (!m_feed.IsRunning()) {
        return "";
    }
    const LiveGraph& graph = m_feed.Graph();
    std::array<char, 64> text{};
    std::string figures =
        std::to_string(graph.Format().width) + " x " + std::to_string(graph.Format().height) + "  " + graph.PixelText();
    if (const auto rate = graph.Newest().FiguresAt(now).rate) {
        std::snprintf(text.data(), text.size(), "  %.2f frames/s", *rate);
        figures += text.data();
    }
    if (!m_histogram.Channels().empty()) {
        std::snprintf(text.data(), text.size(), "\nmean %.1f, %.1f %% at 255", m_histogram.Mean(),
                      100 * m_histogram.Saturated());
        figures += text.data();
    }
    return figures;
}

void ViewerWindow::FitToPicture() {
    const kolmctl::Picture& picture = m_pictureView.Shown();
    const SIZE size = SizeForPicture(m_window, {static_cast<LONG>(picture.width), static_cast<LONG>(picture.height)});
    RECT area{};
    ::SystemParametersInfoW(SPI_GETWORKAREA, 0, &area, 0);
    RECT own{};
    ::GetWindowRect(m_window, &own);
    const LONG left = std::max(area.left, std::min(own.left, area.right - size.cx));
    const LONG top = std::max(area.top, std::min(own.top, area.bottom - size.cy));
    ::SetWindowPos(m_window, nullptr, left, top, size.cx, size.cy, SWP_NOZORDER | SWP_NOACTIVATE);
}

void ViewerWindow::TakeWantedPicture(Clock::time_point now) {
    const bool impatient = now - m_begun >= kPatience || m_feed.Failure();
    if (m_failure != nullptr || (m_shown < kPicturesBefore && !impatient)) {
        return;
    }
    try {
        if (m_shown == 0) {
            throw kolmctl::Error(m_feed.Failure().value_or(kolmctl::ExitCode::refused),
                                 m_feed.Notice().empty() ? "no picture has come" : m_feed.Notice());
        }
        ShowState(now);
        ::RedrawWindow(m_window, nullptr, nullptr, RDW_INVALIDATE | RDW_ERASE | RDW_UPDATENOW | RDW_ALLCHILDREN);
        const kolmctl::Picture picture = kolmctl::TakePicture(m_window);
        if (picture.IsBlank()) {
            throw kolmctl::Error(kolmctl::ExitCode::refused, "the picture would be empty",
                                 "windows are painted on a display only");
        }
        kolmctl::WritePicture(picture, kolmctl::PictureFile::png, kolmctl::ToUtf16(m_options.picture));
    } catch (...) {
        m_failure = std::current_exception();
    }
    ::KillTimer(m_window, kTimer);
    ::PostQuitMessage(0);
}

}  // namespace kolmview
