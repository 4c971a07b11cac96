#pragma once
/// @file  Driver requests of the loaded module, whichever camera they go to: counted, and the n-th one disturbed.

#include <windows.h>

#include "support/fault_sweep.h"

namespace kolmfluxor::test {

/// Stands between the module that `CModule` has loaded and the driver. One at a time.
///
/// For cameras that a test cannot reach before they are used, as those of a program or of the system's device list.
class CRequestFaults {
public:
    CRequestFaults();
    ~CRequestFaults();
    CRequestFaults(const CRequestFaults&) = delete;
    CRequestFaults& operator=(const CRequestFaults&) = delete;

    /// The n-th request from now on is disturbed, 1-based. @param fault  null: none; must outlive the requests
    void Start(const SweptFault* fault = nullptr, int nth = 0);

    /// Requests since `Start`.
    [[nodiscard]] int Count() const;

private:
    void** m_import;
};

}  // namespace kolmfluxor::test
