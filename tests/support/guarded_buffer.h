#pragma once
/// @file  Memory between two pages that can't be touched.

#include <cstddef>
#include <cstdint>
#include <span>

namespace kolmfluxor::test {

/// A byte read or written outside ends the program: the sanitizers don't see what vector instructions leave out.
class CGuardedBuffer final {
public:
    /// @param sizeBytes  rounded up to whole pages
    explicit CGuardedBuffer(std::size_t sizeBytes);
    ~CGuardedBuffer();
    CGuardedBuffer(const CGuardedBuffer&) = delete;
    CGuardedBuffer& operator=(const CGuardedBuffer&) = delete;

    /// All of it.
    [[nodiscard]] std::span<std::uint8_t> Bytes() const { return m_bytes; }
    /// The first bytes, right behind the first guard.
    [[nodiscard]] std::span<std::uint8_t> First(std::size_t count) const { return m_bytes.first(count); }
    /// The last bytes, right before the second guard.
    [[nodiscard]] std::span<std::uint8_t> Last(std::size_t count) const { return m_bytes.last(count); }

private:
    std::span<std::uint8_t> m_bytes;
};

}  // namespace kolmfluxor::test
