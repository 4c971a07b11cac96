/// @file  Times the conversions to 24-bit BGR with nothing but a clock, for targets without Google Benchmark.
///
/// All ways take turns, so that whatever else the machine does meets all of them. The best of a way's times counts.

#include <algorithm>
#include <chrono>
#include <cstdio>
#include <limits>
#include <vector>

#include "pixel_conversion_work.h"

namespace {

using namespace kolmfluxor::bench;

constexpr int kRounds = 40;
constexpr int kPixelsATurn = 1 << 23;  // some milliseconds: more than the clock's own error

/// Seconds for one picture, the best of all rounds, by way.
std::vector<double> BestTimes(const std::vector<std::pair<std::string, Converter>>& ways, const Size& size,
                              std::vector<Picture>& pictures) {
    const int repetitions = std::max(1, kPixelsATurn / (size.width * size.height));
    std::vector<double> best(ways.size(), std::numeric_limits<double>::infinity());
    std::size_t next = 0;
    for (int round = 0; round < kRounds; ++round) {
        for (std::size_t i = 0; i < ways.size(); ++i) {
            const auto start = std::chrono::steady_clock::now();
            for (int repetition = 0; repetition < repetitions; ++repetition) {
                Picture& picture = pictures[next];
                next = next + 1 == pictures.size() ? 0 : next + 1;
                ways[i].second(picture.source.data(), picture.destination.data());
            }
            const std::chrono::duration<double> taken = std::chrono::steady_clock::now() - start;
            best[i] = std::min(best[i], taken.count() / repetitions);
        }
    }
    return best;
}

}  // namespace

int main() {
    for (const bool streamed : {false, true}) {
        for (const Size& size : kSizes) {
            std::vector<Picture> pictures = MakePictures(size, streamed);
            for (const Format& format : Formats()) {
                const auto ways = Ways(format, size);
                const std::vector<double> best = BestTimes(ways, size, pictures);
                std::printf("%s, %s%s\n", format.name, size.name, streamed ? ", streamed" : "");
                for (std::size_t i = 0; i < ways.size(); ++i) {
                    std::printf("  %-22s %9.1f us  %6.2f x %s\n", ways[i].first.c_str(), best[i] * 1e6,
                                best[i] / best[0], ways[0].first.c_str());
                }
            }
        }
    }
    return 0;
}
