#pragma once
/// @file  A second thread that looks again and again, as a user in front of a modal window does.

#include <chrono>
#include <condition_variable>
#include <functional>
#include <mutex>
#include <thread>

namespace kolmfluxor::test {

/// Calls a function every few milliseconds on a thread of its own, which sees the windows of its maker's desktop.
class CRepeatingThread {
public:
    explicit CRepeatingThread(std::function<void()> look);
    ~CRepeatingThread() { Stop(); }
    CRepeatingThread(const CRepeatingThread&) = delete;
    CRepeatingThread& operator=(const CRepeatingThread&) = delete;

    /// The function has ended when this returns, and is not called again.
    void Stop();

private:
    void Run(const std::function<void()>& look);

    // A flag and a plain condition variable: a wait with a stop token hangs in this toolchain's library, once in some
    // hundred uses (CONTRIBUTING.md).
    std::mutex m_lock;
    std::condition_variable m_wake;
    bool m_stopped = false;
    std::thread m_thread;
};

}  // namespace kolmfluxor::test
