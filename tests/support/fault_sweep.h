#pragma once
/// @file  A sweep of faults over driver requests: which faults there are, how one is injected, and a guard against
/// hangs.

#include <atomic>
#include <condition_variable>
#include <cstdint>
#include <mutex>
#include <span>
#include <string>
#include <thread>

#include <windows.h>

#include "ksproxy/simulator_control.h"

namespace kolmfluxor::test {

enum class FaultKind {
    fail,       ///< the request does not reach the camera
    qualified,  ///< it does, and returns S_FALSE
    cut,        ///< only the answer's first bytes come
    garbage,    ///< every word behind the header is random
    late,       ///< the answer takes its time
    unplug,     ///< the camera is gone from this request on
};

/// One way to disturb a request.
struct SweptFault {
    const char* name;
    FaultKind kind;
    HRESULT code = S_OK;       ///< what the request returns
    std::uint32_t bytes = 0;   ///< that are left of an answer
    std::uint32_t seed = 0;    ///< of random words
    std::uint32_t mask = ~0U;  ///< of random words
};

/// Unplugging before request n + 1 is unplugging after request n: a sweep goes one request beyond the last.
[[nodiscard]] std::span<const SweptFault> SweptFaults();

/// The n-th request from now on is disturbed. `Heal` takes it back.
void Inject(kolmsim::ISimulatedCamera& camera, const SweptFault& fault, int nth);
void Heal(kolmsim::ISimulatedCamera& camera);

/// Ends the test program with a message when the next step is not reported in time.
class CHangGuard {
public:
    CHangGuard();
    ~CHangGuard();
    CHangGuard(const CHangGuard&) = delete;
    CHangGuard& operator=(const CHangGuard&) = delete;

    /// @param step  what is tried now, for the message
    void Step(std::string step);
    /// How many steps there were.
    [[nodiscard]] int Steps() const { return m_steps; }

private:
    void Watch();

    std::mutex m_lock;
    std::condition_variable m_wake;
    std::string m_step;
    int m_steps = 0;
    bool m_stopped = false;
    std::thread m_watch;
};

/// Prints a figure for the record of what was tried, and fails when it is 0.
void ReportTried(const char* what, int tried);

}  // namespace kolmfluxor::test
