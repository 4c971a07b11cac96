#pragma once
/// @file  The log of all requests that reached a simulated camera.

#include <cstdint>
#include <deque>
#include <memory>
#include <span>
#include <vector>

#include "ksproxy/simulator_control.h"

namespace kolmsim {

/// One request with the bytes that its SimRequest points to.
struct LogEntry {
    SimRequest request{};
    std::vector<std::uint8_t> sent;
    std::vector<std::uint8_t> answered;
};

/// Keeps the latest requests. Not locked.
class RequestLog {
public:
    [[nodiscard]] std::size_t Count() const { return m_entries.size(); }

    /// The request at an index, oldest first, or null.
    [[nodiscard]] const SimRequest* At(std::size_t index) const;

    void Add(std::shared_ptr<const LogEntry> entry);
    void Clear() { m_entries.clear(); }

private:
    std::deque<std::shared_ptr<const LogEntry>> m_entries;
};

/// Builds an entry for a request; `answered` starts as a copy of what was sent.
[[nodiscard]] std::shared_ptr<LogEntry> MakeLogEntry(std::span<const std::uint8_t> sent);

/// Fills in the outcome and the pointers of an entry whose bytes are final.
void FinishLogEntry(LogEntry& entry, HRESULT result, const char* objection);

}  // namespace kolmsim
