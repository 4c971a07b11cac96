/// @file  How long the conversions to 24-bit BGR take, and how they compare within one run.

#include <cstdint>
#include <deque>
#include <string>
#include <vector>

#include <benchmark/benchmark.h>

#include "best_times.h"
#include "pixel_conversion_work.h"

namespace {

using namespace kolmfluxor::bench;

void Measure(benchmark::State& state, const Converter& convert, std::vector<Picture>& pictures) {
    std::size_t next = 0;
    for (auto iteration : state) {
        Picture& picture = pictures[next];
        next = next + 1 == pictures.size() ? 0 : next + 1;
        convert(picture.source.data(), picture.destination.data());
        benchmark::ClobberMemory();
    }
    state.SetBytesProcessed(static_cast<std::int64_t>(pictures.front().destination.size()) * state.iterations());
}

}  // namespace

int main(int argc, char** argv) {
    std::deque<std::vector<Picture>> buffers;
    std::vector<std::string> works;
    std::vector<std::string> names;
    for (const bool streamed : {false, true}) {
        for (const Size& size : kSizes)
            buffers.push_back(MakePictures(size, streamed));
    }
    for (const Format& format : Formats()) {
        auto pictures = buffers.begin();
        for (const bool streamed : {false, true}) {
            for (const Size& size : kSizes) {
                works.push_back(std::string(format.name) + (streamed ? " str. " : " ") + size.name);
                names.clear();
                for (const auto& [name, convert] : Ways(format, size)) {
                    names.push_back(name);
                    benchmark::RegisterBenchmark(
                        CBestTimes::Name(works.back(), name).c_str(),
                        [convert = convert, pictures](benchmark::State& state) { Measure(state, convert, *pictures); })
                        ->Unit(benchmark::kMicrosecond)
                        ->UseRealTime();
                }
                ++pictures;
            }
        }
    }
    CBestTimes reporter;
    if (!RunInTurns(argc, argv, reporter)) return 1;
    // Every way runs on one thread: its processor time leaves out what else the machine does.
    reporter.PrintRatios("Processor time, as a multiple of the quickest instructions'", works, names,
                         &Times::processor);
    return 0;
}
