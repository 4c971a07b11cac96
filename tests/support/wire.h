#pragma once
/// @file  Requests on the wire: what a test expects, what the simulated camera logged, and how both are printed.

#include <cstdint>
#include <iosfwd>
#include <vector>

#include "ksproxy/simulator_control.h"

namespace kolmfluxor::test {

/// The bytes of one request, header included.
class CWireRequest {
public:
    /// A zeroed record with the header of a request.
    CWireRequest(std::uint32_t id, std::uint32_t flags, std::size_t sizeBytes);
    /// A record as it stands.
    explicit CWireRequest(std::vector<std::uint8_t> bytes) : m_bytes(std::move(bytes)) {}

    /// This record with `word` at `offset`, in bytes from the start of the header.
    [[nodiscard]] CWireRequest With(std::size_t offset, std::uint32_t word) const;
    /// This record as a SET.
    [[nodiscard]] CWireRequest AsSet() const;
    [[nodiscard]] std::uint32_t Word(std::size_t offset) const;
    [[nodiscard]] const std::vector<std::uint8_t>& Bytes() const { return m_bytes; }

    bool operator==(const CWireRequest&) const = default;

private:
    std::vector<std::uint8_t> m_bytes;
};

/// Prints id, direction, size, and each payload word that is not 0.
void PrintTo(const CWireRequest& request, std::ostream* out);

/// A request of an empty record; features and most properties use 64 bytes.
[[nodiscard]] CWireRequest Get(std::uint32_t id, std::size_t sizeBytes = 64);
[[nodiscard]] CWireRequest Set(std::uint32_t id, std::size_t sizeBytes = 64);

using Wire = std::vector<CWireRequest>;

/// The requests in the camera's log as they were sent.
[[nodiscard]] Wire SentTo(kolmsim::ISimulatedCamera& camera);

/// The answer to the logged request number `index`, counted from 0.
[[nodiscard]] CWireRequest AnswerOf(kolmsim::ISimulatedCamera& camera, std::size_t index);

}  // namespace kolmfluxor::test
