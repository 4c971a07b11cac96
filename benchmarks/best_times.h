#pragma once
/// @file  Runs benchmarks in turns and compares the best time of each.

#include <algorithm>
#include <cstdio>
#include <limits>
#include <map>
#include <string>
#include <vector>

#include <benchmark/benchmark.h>

namespace kolmfluxor::bench {

/// Seconds for one iteration.
struct Times {
    double processor = std::numeric_limits<double>::infinity();
    double clock = processor;
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

    /// The name under which a piece of work done in one way is to be registered.
    static std::string Name(const std::string& work, const std::string& way) { return work + "/" + way; }

    /// The time of each way as a multiple of the first way's; nothing of what the command line leaves out.
    void PrintRatios(const char* title, const std::vector<std::string>& works, const std::vector<std::string>& ways,
                     double Times::*time) {
        std::printf("\n%s (best of all repetitions)\n%-22s", title, "");
        for (const std::string& way : ways)
            std::printf("%22s", way.c_str());
        for (const std::string& work : works) {
            const auto first = m_best.find(Name(work, ways.front()));
            if (first == m_best.end()) continue;
            std::printf("\n%-22s", work.c_str());
            for (const std::string& way : ways) {
                const auto best = m_best.find(Name(work, way));
                if (best == m_best.end())
                    std::printf("%22s", "-");
                else
                    std::printf("%22.2f", best->second.*time / (first->second.*time));
            }
        }
        std::printf("\n");
    }

private:
    std::map<std::string, Times> m_best;
};

/// Runs all benchmarks in turns, so that whatever else the machine does meets all of them. The command line may say
/// otherwise.
///
/// @return  false when it says something that is not understood
inline bool RunInTurns(int argc, char** argv, CBestTimes& reporter) {
    std::vector<std::string> arguments = {argv[0], "--benchmark_repetitions=7", "--benchmark_min_time=0.1",
                                          "--benchmark_enable_random_interleaving=true"};
    arguments.insert(arguments.end(), argv + 1, argv + argc);
    std::vector<char*> pointers;
    for (std::string& argument : arguments)
        pointers.push_back(argument.data());
    int count = static_cast<int>(pointers.size());
    benchmark::Initialize(&count, pointers.data());
    if (benchmark::ReportUnrecognizedArguments(count, pointers.data())) return false;
    benchmark::RunSpecifiedBenchmarks(&reporter);
    return true;
}

}  // namespace kolmfluxor::bench
