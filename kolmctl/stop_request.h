#pragma once
/// @file  Ctrl+C as an event that a command can wait for.

#include <chrono>

namespace kolmctl {

/// As long as it lives, the first Ctrl+C or Ctrl+Break asks the command to stop; the next one ends the program as
/// usual.
///
/// At most one at a time.
class StopRequest {
public:
    /// @throws CallError
    StopRequest();
    ~StopRequest();
    StopRequest(const StopRequest&) = delete;
    StopRequest& operator=(const StopRequest&) = delete;

    /// Waits until stopping is asked for or the time is over; calls between apartments get through meanwhile.
    ///
    /// @return  whether stopping was asked for
    [[nodiscard]] bool WaitUntil(std::chrono::steady_clock::time_point end) const;
};

}  // namespace kolmctl
