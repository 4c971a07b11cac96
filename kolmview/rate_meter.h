#pragma once
/// @file  Measures how fast pictures come. No Windows header: this also builds natively.

#include <array>
#include <chrono>
#include <cstddef>
#include <optional>

namespace kolmview {

/// A frame rate from the times at which pictures came. Not synchronized.
class RateMeter {
public:
    using Time = std::chrono::steady_clock::time_point;
    using Duration = std::chrono::steady_clock::duration;

    /// A picture has come. @param when  not before the one that came last
    void Note(Time when);

    /// Pictures a second: the mean over the last two seconds of pictures, but over two pictures at least and 256 at
    /// most. Nothing while there are less than two, or when the next one is long overdue.
    [[nodiscard]] std::optional<double> Rate(Time now) const;

    /// How long ago the last picture came; nothing when none did.
    [[nodiscard]] std::optional<Duration> Silence(Time now) const;

    void Restart() { m_count = 0; }

private:
    static constexpr std::size_t kMost = 256;

    /// The time of the picture that came `back` before the last one.
    [[nodiscard]] Time Arrival(std::size_t back) const { return m_arrivals[(m_next + kMost - 1 - back) % kMost]; }

    std::array<Time, kMost> m_arrivals{};
    std::size_t m_next = 0;
    std::size_t m_count = 0;
};

}  // namespace kolmview
