/// @file  Times the readers of LUT files with nothing but a clock, for targets without Google Benchmark.
///
/// All readers take turns, so that whatever else the machine does meets all of them. The best of a reader's times
/// counts.

#include <algorithm>
#include <chrono>
#include <cstdio>
#include <filesystem>
#include <string>
#include <vector>

#include "lut_csv_readers.h"

namespace {

using namespace kolmfluxor::bench;

constexpr std::size_t kRounds = 25;

bool Compare(const char* title, const FileShape& shape) {
    const std::string path = MakeFile(shape);
    if (path.empty()) return false;
    const auto megabytes = static_cast<double>(std::filesystem::file_size(path)) / 1e6;
    std::vector<double> best(Readers().size(), 1e9);
    for (std::size_t round = 0; round < kRounds; ++round) {
        for (std::size_t i = 0; i < best.size(); ++i) {
            const auto start = std::chrono::steady_clock::now();
            const auto luts = Readers()[i].read(path, shape);
            const std::chrono::duration<double> taken = std::chrono::steady_clock::now() - start;
            best[i] = std::min(best[i], taken.count());
        }
    }
    std::filesystem::remove(path);
    std::printf("%s, %.2f MB\n", title, megabytes);
    for (std::size_t i = 0; i < best.size(); ++i) {
        std::printf("  %-20s %9.3f ms  %7.1f MB/s  %6.2f x ours\n", Readers()[i].name, best[i] * 1e3,
                    megabytes / best[i], best[i] / best[0]);
    }
    return true;
}

}  // namespace

int main() {
    const bool ok = Compare("4096 x 3", {4096, kFewColumns, false}) &&
                    Compare("65536 x 17", {65536, kManyColumns, false}) &&
                    Compare("65536 x 17, quoted", {65536, kManyColumns, true});
    return ok ? 0 : 1;
}
