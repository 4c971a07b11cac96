#include "media/frame_time.h"

#include <algorithm>
#include <iterator>
#include <limits>

#include "base/text_exception.h"

namespace kolmfluxor {
namespace {

constexpr std::int64_t kSecond = 10'000'000;  // in 100 ns units
constexpr double kSecondExact = 1e7;

struct IidcRate {
    std::int64_t frameTime;  // 10'000'000 / rate, fraction dropped
    std::int32_t fpms;
};
/// IIDC's fixed frame rates, from the shortest frame time to the longest.
constexpr IidcRate kIidcRates[] = {
    {41666, 240000}, {83333, 120000}, {166666, 60000}, {333333, 30000},
    {666666, 15000}, {1333333, 7500}, {2666666, 3750}, {5333333, 1875},
};
static_assert(std::ranges::is_sorted(kIidcRates, {}, &IidcRate::frameTime));
static_assert(std::ranges::all_of(kIidcRates,
                                  [](const IidcRate& rate) { return rate.frameTime == kSecond * 1000 / rate.fpms; }));

constexpr const IidcRate& kFastest = *std::begin(kIidcRates);
constexpr const IidcRate& kSlowest = *std::rbegin(kIidcRates);

/// Compatibility: what is shorter than every fixed frame time gives the *rate* of the fastest one, 240000, where a
/// frame time is due. Formats chosen with it are in use.
constexpr std::int64_t kBelowAll = kFastest.fpms;

/// The first rate of the table whose frame time is above t; the table's end when none is.
const IidcRate* FirstAbove(std::int64_t t) {
    return std::ranges::upper_bound(kIidcRates, t, {}, &IidcRate::frameTime);
}

}  // namespace

std::int64_t FpsToFrameTime(std::uint32_t fps) {
    if (fps == 0) throw CTextException("FpsToFrameTime: Div by Zero -> fps is 0");
    return kSecond / fps;
}

std::int64_t FPpsX1000ToFrameTime(std::int32_t fpms) {
    if (fpms == 0) throw CTextException("FPpsX1000ToFrameTime: Div by Zero -> fps is 0");
    return static_cast<std::int64_t>(kSecondExact / (fpms / 1000.0));
}

std::int64_t FrameTimeToFps(std::int64_t t) {
    if (t == 0) throw CTextException("FrameTimeToFps: Div by Zero -> frame time is 0");
    return kSecond / t;
}

std::int32_t FrameTimeToFpms(std::int64_t t) {
    using Limits = std::numeric_limits<std::int32_t>;
    if (t == 0) throw CTextException("FrameTimeToFpms: Div by Zero -> frame time is 0");
    const double fpms = kSecondExact / (static_cast<double>(t) / 1000.0);
    return static_cast<std::int32_t>(std::clamp<double>(fpms, Limits::min(), Limits::max()));
}

std::int64_t SnapFrameTimeDown(std::int64_t t) noexcept {
    const IidcRate* const above = FirstAbove(t);
    return above == std::begin(kIidcRates) ? kBelowAll : std::prev(above)->frameTime;
}

std::int64_t SnapFrameTimeNearest(std::int64_t t) noexcept {
    const IidcRate* const above = FirstAbove(t);
    if (above == std::begin(kIidcRates) || above == std::end(kIidcRates)) return SnapFrameTimeDown(t);
    const std::int64_t shorter = std::prev(above)->frameTime;
    return t - shorter < above->frameTime - t ? shorter : above->frameTime;
}

std::int32_t FrameTimeToIidcFpms(std::int64_t t) noexcept {
    const IidcRate* const above = FirstAbove(t);
    return above == std::begin(kIidcRates) ? kFastest.fpms : std::prev(above)->fpms;
}

std::int32_t FrameTimeToIidcFpmsNearest(std::int64_t t) noexcept {
    return FrameTimeToIidcFpms(SnapFrameTimeNearest(t));
}

std::int64_t IidcFpmsToFrameTime(std::int32_t fpms) noexcept {
    // Compatibility: a frame time serves every rate up to that of the next shorter frame time, included; each fixed
    // rate but the slowest thus gives the frame time of the next slower one.
    for (const IidcRate* rate = &kSlowest; rate != &kFastest; --rate) {
        if (fpms <= std::prev(rate)->fpms) return rate->frameTime;
    }
    return kFastest.frameTime;
}

}  // namespace kolmfluxor
