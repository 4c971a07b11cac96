#pragma once
/// @file  The waits of the code under test, where it is linked into the test program.

#include <vector>

#include "support/patched_import.h"

extern "C" void* __imp_WaitForSingleObject;
extern "C" void* __imp_ReleaseMutex;
extern "C" void* __imp_CloseHandle;

namespace kolmfluxor::test {

/// What was done to one handle: waits with their limits in milliseconds, releases, closing.
struct HandleCall {
    enum class Kind { wait, release, close };
    Kind kind;
    DWORD milliseconds = 0;
    bool operator==(const HandleCall&) const = default;
};

/// As long as it lives, records the calls on one handle; they go on to the system. One at a time, one thread.
class CRecordedWaits {
public:
    explicit CRecordedWaits(HANDLE handle)
        : m_wait(&__imp_WaitForSingleObject, reinterpret_cast<void*>(&Wait)),
          m_release(&__imp_ReleaseMutex, reinterpret_cast<void*>(&Release)),
          m_close(&__imp_CloseHandle, reinterpret_cast<void*>(&Close)) {
        s_handle = handle;
        s_calls.clear();
    }
    [[nodiscard]] static const std::vector<HandleCall>& Calls() { return s_calls; }

private:
    static DWORD WINAPI Wait(HANDLE handle, DWORD milliseconds) {
        if (handle == s_handle) s_calls.push_back({HandleCall::Kind::wait, milliseconds});
        return ::WaitForSingleObjectEx(handle, milliseconds, FALSE);
    }
    static BOOL WINAPI Release(HANDLE handle) {
        if (handle == s_handle) s_calls.push_back({HandleCall::Kind::release});
        return s_realRelease(handle);
    }
    static BOOL WINAPI Close(HANDLE handle) {
        if (handle == s_handle) s_calls.push_back({HandleCall::Kind::close});
        return s_realClose(handle);
    }

    static inline HANDLE s_handle = nullptr;
    static inline std::vector<HandleCall> s_calls;
    static inline const auto s_realRelease = reinterpret_cast<decltype(&::ReleaseMutex)>(__imp_ReleaseMutex);
    static inline const auto s_realClose = reinterpret_cast<decltype(&::CloseHandle)>(__imp_CloseHandle);

    CPatchedImport m_wait;
    CPatchedImport m_release;
    CPatchedImport m_close;
};

}  // namespace kolmfluxor::test
