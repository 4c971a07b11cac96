#pragma once
/// @file  Faults waiting to strike.

#include <cstdint>
#include <vector>

#include "ksproxy/simulator_control.h"

namespace kolmsim {

/// Counts requests against the faults that wait for them. Not locked.
class FaultList {
public:
    void Add(const SimFault& fault) { m_faults.push_back({fault, 0}); }
    void Clear() { m_faults.clear(); }

    /// Counts one request and gives the faults that strike it, in the order they were added.
    ///
    /// A fault with a number strikes once and is gone.
    [[nodiscard]] std::vector<SimFault> Strike(std::uint32_t id, std::uint32_t flags);

private:
    struct Waiting {
        SimFault fault;
        int seen;  ///< matching requests so far
    };
    std::vector<Waiting> m_faults;
};

}  // namespace kolmsim
