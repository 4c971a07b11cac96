/// @file  A simulated user: starts a program, drags a slider in its window with the mouse, and clicks OK.
///
/// simulated_user COMMAND-LINE WINDOW-TITLE SLIDER-ID PERCENT
///
/// The input is real: the cursor moves and buttons are pressed, as by a hand; the program can't tell the difference.
/// The exit code is the program's own; 100 and above say what the user could not do.

#include <algorithm>
#include <cstdio>
#include <cwchar>
#include <string>

#include <windows.h>

#include <commctrl.h>

namespace {

constexpr ULONGLONG kPatienceMs = 30'000;
constexpr int kSteps = 20;

enum ExitCode { kUsage = 100, kNoProgram, kNoWindow, kNoControl, kNotEnded };

/// Asks again and again, until there is an answer or patience ends.
template <class F> HWND WaitFor(F&& ask) {
    for (const ULONGLONG end = ::GetTickCount64() + kPatienceMs; ::GetTickCount64() < end; ::Sleep(20)) {
        if (HWND const found = ask(); found != nullptr) return found;
    }
    return nullptr;
}

struct Wanted {
    int id;
    HWND found;
};

/// The visible control with an id, however deep; null when there is none (yet).
HWND FindControl(HWND window, int id) {
    Wanted wanted = {id, nullptr};
    ::EnumChildWindows(
        window,
        [](HWND child, LPARAM param) -> BOOL {
            auto& search = *reinterpret_cast<Wanted*>(param);
            if (::GetDlgCtrlID(child) != search.id || !::IsWindowVisible(child)) return TRUE;
            search.found = child;
            return FALSE;
        },
        reinterpret_cast<LPARAM>(&wanted));
    return wanted.found;
}

void Mouse(POINT screen, DWORD buttons) {
    ::SetCursorPos(screen.x, screen.y);
    INPUT input{};
    input.type = INPUT_MOUSE;
    input.mi.dwFlags = MOUSEEVENTF_MOVE | buttons;
    ::SendInput(1, &input, sizeof input);
    ::SendMessageA(::WindowFromPoint(screen), WM_NULL, 0, 0);  // returns once the window has come to its messages
}

/// Where a slider's thumb stands for a position, in screen coordinates, as the common controls draw it.
POINT ThumbAt(HWND slider, double fraction) {
    RECT area{};
    ::GetWindowRect(slider, &area);
    const auto thumbLength = static_cast<LONG>(::SendMessageA(slider, TBM_GETTHUMBLENGTH, 0, 0));
    const LONG edge = thumbLength / 4 + 3;
    const LONG thumbWidth = thumbLength / 2 | 1;
    const LONG way = area.right - area.left - 2 * edge - thumbWidth;
    return {.x = area.left + edge + thumbWidth / 2 + static_cast<LONG>(fraction * way),
            .y = (area.top + area.bottom) / 2};
}

double FractionOf(HWND slider) {
    const auto ask = [slider](UINT message) { return static_cast<double>(::SendMessageA(slider, message, 0, 0)); };
    const double min = ask(TBM_GETRANGEMIN);
    const double range = ask(TBM_GETRANGEMAX) - min;
    return range > 0 ? (ask(TBM_GETPOS) - min) / range : 0;
}

void Drag(HWND slider, double target) {
    const POINT from = ThumbAt(slider, FractionOf(slider));
    const POINT to = ThumbAt(slider, target);
    Mouse(from, MOUSEEVENTF_LEFTDOWN);
    for (int step = 1; step <= kSteps; ++step) {
        Mouse({.x = from.x + (to.x - from.x) * step / kSteps, .y = from.y}, 0);
    }
    Mouse(to, MOUSEEVENTF_LEFTUP);
}

void Click(HWND control) {
    RECT area{};
    ::GetWindowRect(control, &area);
    const POINT middle = {.x = (area.left + area.right) / 2, .y = (area.top + area.bottom) / 2};
    Mouse(middle, MOUSEEVENTF_LEFTDOWN);
    Mouse(middle, MOUSEEVENTF_LEFTUP);
}

int Fail(ExitCode code, const char* what) {
    std::fprintf(stderr, "simulated_user: %s\n", what);
    return code;
}

int UseProgram(HANDLE process, const wchar_t* title, int sliderId, double fraction) {
    HWND const window = WaitFor([&] { return ::FindWindowW(nullptr, title); });
    if (window == nullptr) return Fail(kNoWindow, "the window did not come");
    HWND const slider = WaitFor([&] { return FindControl(window, sliderId); });
    HWND const ok = WaitFor([&] { return FindControl(window, IDOK); });
    if (slider == nullptr || ok == nullptr) return Fail(kNoControl, "the window has no such slider, or no OK button");

    ::SetForegroundWindow(window);
    Drag(slider, fraction);
    Click(ok);
    if (::WaitForSingleObject(process, kPatienceMs) != WAIT_OBJECT_0) {
        return Fail(kNotEnded, "the program did not end after OK");
    }
    DWORD exitCode = 0;
    ::GetExitCodeProcess(process, &exitCode);
    return static_cast<int>(exitCode);
}

}  // namespace

int wmain(int argc, wchar_t** argv) {
    if (argc != 5) return Fail(kUsage, "usage: simulated_user COMMAND-LINE WINDOW-TITLE SLIDER-ID PERCENT");
    std::wstring commandLine = argv[1];
    const double fraction = std::clamp(std::wcstol(argv[4], nullptr, 10) / 100.0, 0.0, 1.0);

    STARTUPINFOW startup{};
    startup.cb = sizeof startup;
    PROCESS_INFORMATION started{};
    if (!::CreateProcessW(nullptr, commandLine.data(), nullptr, nullptr, FALSE, 0, nullptr, nullptr, &startup,
                          &started))
        return Fail(kNoProgram, "the program could not be started");
    const int result =
        UseProgram(started.hProcess, argv[2], static_cast<int>(std::wcstol(argv[3], nullptr, 10)), fraction);
    if (result >= kUsage) ::TerminateProcess(started.hProcess, 1);
    ::CloseHandle(started.hThread);
    ::CloseHandle(started.hProcess);
    return result;
}
