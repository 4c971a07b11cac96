#pragma once
/// @file  Frame rates as people write them, frame times as DirectShow has them (in units of 100 ns).

#include <cstdint>
#include <optional>
#include <string>

namespace kolmctl {

/// A frame rate in thousandths of a frame per second: the grain in which rates are shown and compared.
using MilliFps = std::int64_t;

/// The rate of a frame time, rounded; nothing for a time that is none (0 or less).
[[nodiscard]] std::optional<MilliFps> RateOf(std::int64_t frameTime);

/// The frame time of a rate, truncated as IIDC drivers do it (30 frames per second are 333333). @param rate  not 0
[[nodiscard]] std::int64_t FrameTimeOf(MilliFps rate);

/// As in "7.5".
[[nodiscard]] std::string RateText(MilliFps rate);

/// Reads a rate as in "30" or "7.5".
///
/// @throws UsageError when the text is anything else, or no rate between 0.001 and 1000000
[[nodiscard]] MilliFps ParseRate(const std::string& text);

/// Whether fixed IIDC modes know this rate.
[[nodiscard]] bool IsStandardRate(MilliFps rate);

/// The rates that fixed IIDC modes know, from one to another, as in "7.5, 15, 30".
[[nodiscard]] std::string StandardRates(MilliFps slowest, MilliFps fastest);

}  // namespace kolmctl
