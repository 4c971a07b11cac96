#pragma once
/// @file  The mutex with which the pages serialize their own updates.

#include <windows.h>

namespace kolmfluxor {

/// A mutex that is taken with a time limit. Its operations throw `CTextException` when the handle is not valid.
class CLockable {
public:
    /// How long callers wait, in milliseconds.
    static constexpr DWORD kUsualWaitMs = 5000;

    CLockable();
    /// Takes over a mutex.
    explicit CLockable(HANDLE mutex);
    /// Waits for the mutex, at most `kUsualWaitMs`, and closes it.
    ///
    /// May throw: the handle is tested here too.
    ~CLockable() noexcept(false);
    CLockable(const CLockable&) = delete;
    CLockable& operator=(const CLockable&) = delete;

    /// Waits for the mutex; the thread that has it may take it again.
    ///
    /// @return  true only for `WAIT_OBJECT_0`: also false when a thread ended while it held the mutex
    [[nodiscard]] bool Lock(DWORD timeoutMs);
    /// Gives the mutex back, once for each successful `Lock`.
    void UnLock();

protected:
    // Compatibility: only INVALID_HANDLE_VALUE counts as not valid. A null handle, with which CreateMutex reports
    // failure, passes every test; its waits fail.
    HANDLE m_mutex;
    DWORD m_lastWait = WAIT_OBJECT_0;  ///< result of the last wait
};

}  // namespace kolmfluxor
