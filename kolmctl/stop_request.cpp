#include "stop_request.h"

#include <algorithm>

#include <windows.h>

#include <objbase.h>

#include "errors.h"

namespace kolmctl {
namespace {

/// Never closed: the system calls the handler on a thread of its own, at any time.
HANDLE StopEvent() {
    static const HANDLE event = ::CreateEventW(nullptr, TRUE, FALSE, nullptr);
    return event;
}

BOOL WINAPI OnControl(DWORD control) {
    if ((control != CTRL_C_EVENT && control != CTRL_BREAK_EVENT) ||
        ::WaitForSingleObject(StopEvent(), 0) == WAIT_OBJECT_0) {
        return FALSE;
    }
    return ::SetEvent(StopEvent());
}

}  // namespace

StopRequest::StopRequest() {
    if (StopEvent() == nullptr || !::SetConsoleCtrlHandler(OnControl, TRUE)) {
        throw CallError("cannot listen for Ctrl+C", HRESULT_FROM_WIN32(::GetLastError()));
    }
    ::ResetEvent(StopEvent());
}

StopRequest::~StopRequest() {
    ::SetConsoleCtrlHandler(OnControl, FALSE);
}

// NOLINTNEXTLINE(readability-convert-member-functions-to-static): the event is set only while an object listens
bool StopRequest::WaitUntil(std::chrono::steady_clock::time_point end) const {
    using std::chrono::milliseconds;
    const auto left = std::chrono::ceil<milliseconds>(end - std::chrono::steady_clock::now());
    const auto timeout = static_cast<DWORD>(std::clamp<milliseconds::rep>(left.count(), 0, INFINITE - 1));
    HANDLE event = StopEvent();
    DWORD index = 0;
    return ::CoWaitForMultipleHandles(0, timeout, 1, &event, &index) == S_OK;
}

}  // namespace kolmctl
