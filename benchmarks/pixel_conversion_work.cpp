#include "pixel_conversion_work.h"

#include <cstring>

namespace kolmfluxor::bench {
namespace {

constexpr std::size_t kBgrBytes = 3;

/// More than any cache holds.
constexpr std::size_t kStreamBytes = std::size_t{256} << 20;

constexpr Format kFormats[] = {
    {.name = "UYVY", .bytes = 2, .convert = ConvertUyvyToBgr24, .peer = &Peer::uyvy},
    {.name = "Mono8", .bytes = 1, .convert = ConvertMono8ToBgr24, .peer = &Peer::mono8},
};

}  // namespace

std::span<const Format> Formats() {
    return kFormats;
}

std::vector<Picture> MakePictures(const Size& size, bool streamed) {
    const auto bytes = static_cast<std::size_t>(size.width) * static_cast<std::size_t>(size.height) * kBgrBytes;
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

std::vector<std::pair<std::string, Converter>> Ways(const Format& format, const Size& size) {
    std::vector<std::pair<std::string, Converter>> ways;
    const auto pixels = static_cast<std::size_t>(size.width) * static_cast<std::size_t>(size.height);
    const std::size_t bytes = pixels * format.bytes;
    for (std::size_t i = AvailablePixelRows().size(); i-- > 0;) {
        const PixelRows& rows = *AvailablePixelRows()[i];
        ways.emplace_back(rows.name, [&, bytes](const std::uint8_t* source, std::uint8_t* destination) {
            format.convert(rows, {source, bytes}, destination, size.width, size.height);
        });
    }
    for (const Peer& peer : Peers())
        ways.emplace_back(peer.name, (peer.*format.peer)(size.width, size.height));
    ways.emplace_back("memcpy of the output", [pixels](const std::uint8_t* source, std::uint8_t* destination) {
        std::memcpy(destination, source, pixels * kBgrBytes);
    });
    return ways;
}

}  // namespace kolmfluxor::bench
