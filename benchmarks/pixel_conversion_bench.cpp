/// @file  How long the conversions to 24-bit BGR take, and how they compare within one run.
///
/// All ways of one work use the same buffers, which are kept: the first touch of new memory costs several times as much
/// as a conversion. "cached" converts one picture again and again; "streamed" goes through so many that neither source
/// nor destination is found in a cache, as when a camera delivers.

#include <cstdint>
#include <cstring>
#include <deque>
#include <string>
#include <utility>
#include <vector>

#include <benchmark/benchmark.h>

#include "best_times.h"
#include "media/pixel_conversion.h"
#include "media/pixel_rows.h"
#include "pixel_conversion_peers.h"

namespace {

using namespace kolmfluxor;
using namespace kolmfluxor::bench;

struct Size {
    const char* name;
    int width, height;
};
constexpr Size kSizes[] = {{"640 x 480", 640, 480}, {"1280 x 960", 1280, 960}, {"2048 x 2048", 2048, 2048}};

/// More than any cache holds.
constexpr std::size_t kStreamBytes = std::size_t{256} << 20;

struct Format {
    const char* name;
    std::size_t bytes;  ///< of each pixel
    void (*convert)(const PixelRows&, std::span<const std::uint8_t>, std::uint8_t*, int, int);
    Converter (*Peer::*peer)(int, int);
};
constexpr Format kFormats[] = {
    {"UYVY", 2, ConvertUyvyToBgr24, &Peer::uyvy},
    {"Mono8", 1, ConvertMono8ToBgr24, &Peer::mono8},
};

struct Picture {
    // As large as the destination, for the plain copy.
    std::vector<std::uint8_t> source;
    std::vector<std::uint8_t> destination;
};

std::vector<std::pair<std::string, Converter>> Ways(const Format& format, const Size& size) {
    std::vector<std::pair<std::string, Converter>> ways;
    for (std::size_t i = AvailablePixelRows().size(); i-- > 0;) {
        const PixelRows& rows = *AvailablePixelRows()[i];
        ways.emplace_back(rows.name, [&](const std::uint8_t* source, std::uint8_t* destination) {
            const auto pixels = static_cast<std::size_t>(size.width) * static_cast<std::size_t>(size.height);
            format.convert(rows, {source, pixels * format.bytes}, destination, size.width, size.height);
        });
    }
    for (const Peer& peer : Peers())
        ways.emplace_back(peer.name, (peer.*format.peer)(size.width, size.height));
    const auto bytes = static_cast<std::size_t>(size.width) * static_cast<std::size_t>(size.height) * 3;
    ways.emplace_back("memcpy of the output", [bytes](const std::uint8_t* source, std::uint8_t* destination) {
        std::memcpy(destination, source, bytes);
    });
    return ways;
}

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

std::vector<Picture> MakePictures(const Size& size, bool streamed) {
    const auto bytes = static_cast<std::size_t>(size.width) * static_cast<std::size_t>(size.height) * 3;
    std::vector<Picture> pictures(streamed ? kStreamBytes / (2 * bytes) : 1);
    std::uint32_t random = 1;
    for (Picture& picture : pictures) {
        picture.source.resize(bytes);
        picture.destination.resize(bytes);
        for (std::uint8_t& byte : picture.source)
            byte = static_cast<std::uint8_t>((random = random * 1664525 + 1013904223) >> 24);
    }
    return pictures;
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
    for (const Format& format : kFormats) {
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
