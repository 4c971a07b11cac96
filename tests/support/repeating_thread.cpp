#include "support/repeating_thread.h"

#include <gtest/gtest.h>

#include <utility>

#include <windows.h>

namespace kolmfluxor::test {

CRepeatingThread::CRepeatingThread(std::function<void()> look)
    : m_thread([this, look = std::move(look), desktop = ::GetThreadDesktop(::GetCurrentThreadId())] {
          EXPECT_TRUE(::SetThreadDesktop(desktop));
          Run(look);
      }) {}

void CRepeatingThread::Stop() {
    {
        const std::scoped_lock lock(m_lock);
        m_stopped = true;
    }
    m_wake.notify_all();
    if (m_thread.joinable()) m_thread.join();
}

void CRepeatingThread::Run(const std::function<void()>& look) {
    constexpr std::chrono::milliseconds kPause(5);
    std::unique_lock lock(m_lock);
    while (!m_stopped) {
        lock.unlock();
        look();
        lock.lock();
        m_wake.wait_for(lock, kPause, [this] { return m_stopped; });
    }
}

}  // namespace kolmfluxor::test
