#pragma once
/// @file  Hands the newest sample of a stream from its thread to the window's. No Windows header: this also builds
/// natively.

#include <chrono>
#include <cstdint>
#include <mutex>
#include <optional>
#include <span>
#include <vector>

#include "kolmview/rate_meter.h"

namespace kolmview {

/// Room for one sample, which the next one replaces: whoever is slow misses samples and holds nobody up.
class NewestSample {
public:
    using Time = RateMeter::Time;

    /// What is known about a stream at one moment.
    struct Figures {
        std::uint64_t count;                         ///< samples since the start
        std::optional<double> rate;                  ///< samples a second, as RateMeter has it
        std::optional<RateMeter::Duration> silence;  ///< since the last sample; nothing when none has come
    };

    /// A sample has come. Copies it; called on the stream's thread.
    void Put(std::span<const std::uint8_t> sample, Time when);

    /// Takes the sample out, if there is one that was not taken yet.
    ///
    /// @param sample  receives it; its memory is reused for samples to come
    bool Take(std::vector<std::uint8_t>* sample);

    [[nodiscard]] Figures FiguresAt(Time now) const;

private:
    mutable std::mutex m_lock;  ///< held for a copy or a swap of buffers, never for longer
    std::vector<std::uint8_t> m_sample;
    bool m_fresh = false;
    std::uint64_t m_count = 0;
    RateMeter m_rate;
};

}  // namespace kolmview
