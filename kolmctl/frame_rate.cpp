#include "frame_rate.h"

#include <algorithm>
#include <cmath>
#include <iterator>
#include <vector>

#include "errors.h"
#include "text.h"

namespace kolmctl {
namespace {

constexpr std::int64_t kTimeOfOneMilliFps = 10'000'000'000;  // 1000 s in units of 100 ns

// IIDC, registers of the current frame rate.
constexpr MilliFps kStandardRates[] = {1875, 3750, 7500, 15000, 30000, 60000, 120000, 240000};

}  // namespace

std::optional<MilliFps> RateOf(std::int64_t frameTime) {
    return frameTime > 0
               ? std::optional(std::llround(static_cast<double>(kTimeOfOneMilliFps) / static_cast<double>(frameTime)))
               : std::nullopt;
}

std::int64_t FrameTimeOf(MilliFps rate) {
    return kTimeOfOneMilliFps / rate;
}

std::string RateText(MilliFps rate) {
    std::string thousandths = std::to_string(rate % 1000);
    thousandths.insert(0, 3 - thousandths.size(), '0');
    std::string text = std::to_string(rate / 1000) + "." + thousandths;
    text.erase(text.find_last_not_of('0') + 1);
    if (text.back() == '.') {
        text.pop_back();
    }
    return text;
}

MilliFps ParseRate(const std::string& text) {
    const auto rate = ParseThousandths(text);
    if (!rate) {
        throw UsageError("not a frame rate: \"" + text + "\"", "frame rates are frames per second, as in 30 or 7.5");
    }
    return *rate;
}

bool IsStandardRate(MilliFps rate) {
    return std::ranges::find(kStandardRates, rate) != std::end(kStandardRates);
}

std::string StandardRates(MilliFps slowest, MilliFps fastest) {
    std::vector<std::string> rates;
    for (const MilliFps rate : kStandardRates) {
        if (rate >= slowest && rate <= fastest) {
            rates.push_back(RateText(rate));
        }
    }
    return Join(rates, ", ");
}

}  // namespace kolmctl
