#pragma once
/// @file  What happens while the code under test waits, where it is linked into the test program.

#include <functional>
#include <utility>

#include "support/patched_import.h"

extern "C" void* __imp_WaitForSingleObject;

namespace kolmfluxor::test {

/// Calls a function when the thread that made this begins its next wait; the wait itself goes on to the system.
///
/// In place of a pause in which the wait has presumably begun. One at a time.
class CWaitHook {
public:
    /// @param onWait  is given what is waited for, and for how many milliseconds
    explicit CWaitHook(std::function<void(HANDLE handle, DWORD milliseconds)> onWait)
        : m_import(&__imp_WaitForSingleObject, reinterpret_cast<void*>(&Wait)) {
        s_onWait = std::move(onWait);
        s_thread = ::GetCurrentThreadId();
    }
    ~CWaitHook() { EXPECT_FALSE(s_onWait) << "nothing waited"; }
    CWaitHook(const CWaitHook&) = delete;
    CWaitHook& operator=(const CWaitHook&) = delete;

private:
    static DWORD WINAPI Wait(HANDLE handle, DWORD milliseconds) {
        if (::GetCurrentThreadId() == s_thread) {
            if (const auto onWait = std::exchange(s_onWait, nullptr)) onWait(handle, milliseconds);
        }
        return ::WaitForSingleObjectEx(handle, milliseconds, FALSE);
    }

    static inline std::function<void(HANDLE, DWORD)> s_onWait;
    static inline DWORD s_thread = 0;

    CPatchedImport m_import;
};

}  // namespace kolmfluxor::test
