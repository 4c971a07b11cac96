/// @file  How long the readers of LUT files take, and how they compare within one run.

#include <algorithm>
#include <cstdint>
#include <cstdio>
#include <deque>
#include <filesystem>
#include <limits>
#include <map>
#include <string>
#include <vector>

#include <benchmark/benchmark.h>

#include "lut_csv_readers.h"

namespace {

using namespace kolmfluxor::bench;

struct File {
    const char* title;
    FileShape shape;
    std::string path;
};

/// Prints the median of each benchmark, and keeps the best of its times.
class CBestTimes final : public benchmark::ConsoleReporter {
public:
    CBestTimes() : ConsoleReporter(OO_None) {}

    void ReportRuns(const std::vector<Run>& runs) override {
        std::vector<Run> shown;
        for (const Run& run : runs) {
            if (run.run_type == Run::RT_Aggregate && run.aggregate_name == "median") shown.push_back(run);
            if (run.run_type != Run::RT_Iteration || run.error_occurred) continue;
            const auto iterations = static_cast<double>(run.iterations);
            Times& best = m_best[run.run_name.function_name];
            best.processor = std::min(best.processor, run.cpu_accumulated_time / iterations);
            best.clock = std::min(best.clock, run.real_accumulated_time / iterations);
        }
        ConsoleReporter::ReportRuns(shown);
    }

    /// The time of each reader as a multiple of ours.
    void PrintRatios(const std::deque<File>& files) {
        PrintRatios("Processor time of all threads, as a multiple of this module's", files, &Times::processor);
        PrintRatios("Time by the clock, as a multiple of this module's", files, &Times::clock);
    }

    static std::string Name(const File& file, const Reader& reader) {
        return std::string(file.title) + "/" + reader.name;
    }

private:
    struct Times {
        double processor = std::numeric_limits<double>::infinity();
        double clock = processor;
    };

    void PrintRatios(const char* title, const std::deque<File>& files, double Times::*time) {
        std::printf("\n%s (best of all repetitions)\n%-20s", title, "");
        for (const Reader& reader : Readers())
            std::printf("%22s", reader.name);
        for (const File& file : files) {
            std::printf("\n%-20s", file.title);
            for (const Reader& reader : Readers())
                std::printf("%22.2f", m_best[Name(file, reader)].*time / (m_best[Name(file, Readers().front())].*time));
        }
        std::printf("\n");
    }

    std::map<std::string, Times> m_best;
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
                CBestTimes::Name(file, reader).c_str(),
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

    // In turns, so that whatever else the machine does meets all readers. The command line may say otherwise.
    std::vector<std::string> arguments = {argv[0], "--benchmark_repetitions=7", "--benchmark_min_time=0.1",
                                          "--benchmark_enable_random_interleaving=true"};
    arguments.insert(arguments.end(), argv + 1, argv + argc);
    std::vector<char*> pointers;
    for (std::string& argument : arguments)
        pointers.push_back(argument.data());
    int count = static_cast<int>(pointers.size());
    benchmark::Initialize(&count, pointers.data());
    const bool understood = !benchmark::ReportUnrecognizedArguments(count, pointers.data());
    CBestTimes reporter;
    if (understood) {
        benchmark::RunSpecifiedBenchmarks(&reporter);
        reporter.PrintRatios(files);
    }
    for (const File& file : files)
        std::filesystem::remove(file.path);
    return understood ? 0 : 1;
}
