/// @file  How long the readers of LUT files take, and how they compare within one run.

#include <cstdint>
#include <deque>
#include <filesystem>
#include <string>
#include <vector>

#include <benchmark/benchmark.h>

#include "best_times.h"
#include "lut_csv_readers.h"

namespace {

using namespace kolmfluxor::bench;

struct File {
    const char* title;
    FileShape shape;
    std::string path;
};

}  // namespace

int main(int argc, char** argv) {
    std::deque<File> files = {
        {"4096 x 3", {4096, kFewColumns, false}, {}},
        {"65536 x 17", {65536, kManyColumns, false}, {}},
        {"65536 x 17, quoted", {65536, kManyColumns, true}, {}},
    };
    for (File& file : files) {
        file.path = MakeFile(file.shape);
        if (file.path.empty()) return 1;
        for (const Reader& reader : Readers()) {
            benchmark::RegisterBenchmark(
                CBestTimes::Name(file.title, reader.name).c_str(),
                [&](benchmark::State& state) {
                    for (auto iteration : state) {
                        auto luts = reader.read(file.path, file.shape);
                        benchmark::DoNotOptimize(luts);
                    }
                    const auto bytes = static_cast<std::int64_t>(std::filesystem::file_size(file.path));
                    state.SetBytesProcessed(bytes * static_cast<std::int64_t>(state.iterations()));
                })
                ->Unit(benchmark::kMillisecond)
                ->UseRealTime();
        }
    }

    CBestTimes reporter;
    const bool understood = RunInTurns(argc, argv, reporter);
    if (understood) {
        std::vector<std::string> titles;
        for (const File& file : files)
            titles.emplace_back(file.title);
        std::vector<std::string> readers;
        for (const Reader& reader : Readers())
            readers.emplace_back(reader.name);
        reporter.PrintRatios("Processor time of all threads, as a multiple of this module's", titles, readers,
                             &Times::processor);
        reporter.PrintRatios("Time by the clock, as a multiple of this module's", titles, readers, &Times::clock);
    }
    for (const File& file : files)
        std::filesystem::remove(file.path);
    return understood ? 0 : 1;
}
