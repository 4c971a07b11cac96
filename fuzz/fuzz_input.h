#pragma once
/// @file  The fuzzer's bytes, taken one after the other.

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <cstring>
#include <span>

namespace kolmfluxor::fuzz {

/// Gives the input's bytes in order, and zeros behind its end.
class CFuzzInput {
public:
    CFuzzInput(const std::uint8_t* data, std::size_t size) : m_rest(data, size) {}

    [[nodiscard]] bool Empty() const { return m_rest.empty(); }
    [[nodiscard]] std::span<const std::uint8_t> Rest() const { return m_rest; }

    /// Fills `out`.
    void Take(std::span<std::byte> out) {
        const std::size_t count = std::min(out.size(), m_rest.size());
        std::ranges::fill(out, std::byte{});
        if (count > 0) std::memcpy(out.data(), m_rest.data(), count);
        m_rest = m_rest.subspan(count);
    }

    template <class Number> Number Take() {
        Number number{};
        Take(std::as_writable_bytes(std::span<Number, 1>(&number, 1)));
        return number;
    }
    std::uint8_t Byte() { return Take<std::uint8_t>(); }
    std::uint32_t Word() { return Take<std::uint32_t>(); }

    /// A number that is often small, often at an edge.
    std::uint32_t Number() {
        constexpr std::uint32_t kEdges[] = {0x7FFFFFFF, 0x80000000, 0xFFFFFFFF};
        const std::uint8_t first = Byte();
        if (first < 248) return first;
        return first < 248 + std::size(kEdges) ? kEdges[first - 248] : Word();
    }

private:
    std::span<const std::uint8_t> m_rest;
};

}  // namespace kolmfluxor::fuzz
