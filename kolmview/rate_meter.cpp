#include "kolmview/rate_meter.h"

#include <algorithm>

namespace kolmview {
namespace {

using namespace std::chrono_literals;

constexpr auto kWindow = 2s;
constexpr int kOverdueFrames = 3;  // so many frame times without a picture, and the rate is no longer true

}  // namespace

void RateMeter::Note(Time when) {
    m_arrivals[m_next] = when;
    m_next = (m_next + 1) % kMost;
    m_count = std::min(m_count + 1, kMost);
}

std::optional<double> RateMeter::Rate(Time now) const {
    if (m_count < 2) {
        return std::nullopt;
    }
    const Time last = Arrival(0);
    std::size_t frames = 1;
    while (frames + 1 < m_count && last - Arrival(frames + 1) <= kWindow) {
        ++frames;
    }
    const Duration span = last - Arrival(frames);
    const Duration frameTime = span / static_cast<Duration::rep>(frames);
    if (span <= Duration::zero() || now - last > std::max<Duration>(kWindow, kOverdueFrames * frameTime)) {
        return std::nullopt;
    }
    return static_cast<double>(frames) / std::chrono::duration<double>(span).count();
}

std::optional<RateMeter::Duration> RateMeter::Silence(Time now) const {
    return m_count != 0 ? std::optional(now - Arrival(0)) : std::nullopt;
}

}  // namespace kolmview
