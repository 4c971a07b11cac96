#include "model/fixed_mode.h"

#include <algorithm>
#include <iterator>

#include "model/color_coding.h"

namespace kolmsim {
namespace {

// Rates are those whose packets are whole quadlets and fit the bus at S400: 4096 bytes.
constexpr std::uint32_t kUpTo60 = 0xFC000000;
constexpr std::uint32_t kUpTo30 = 0xF8000000;
constexpr std::uint32_t kUpTo15 = 0xF0000000;
constexpr std::uint32_t kUpTo7 = 0xE0000000;
constexpr std::uint32_t k3To30 = 0x78000000;
constexpr std::uint32_t k7To60 = 0x3C000000;
constexpr std::uint32_t k7To15 = 0x30000000;

// clang-format off
constexpr FixedMode kModes[] = {
    {.format = 0, .mode = 5, .width =  640, .height = 480, .packetPixels =  80, .colorCoding = kMono8,  .rates = kUpTo60},
    {.format = 0, .mode = 1, .width =  320, .height = 240, .packetPixels =  20, .colorCoding = kYuv422, .rates = kUpTo60},
    {.format = 0, .mode = 2, .width =  640, .height = 480, .packetPixels =  80, .colorCoding = kYuv411, .rates = kUpTo60},
    {.format = 0, .mode = 3, .width =  640, .height = 480, .packetPixels =  80, .colorCoding = kYuv422, .rates = kUpTo30},
    {.format = 0, .mode = 4, .width =  640, .height = 480, .packetPixels =  80, .colorCoding = kRgb8,   .rates = kUpTo30},
    {.format = 0, .mode = 6, .width =  640, .height = 480, .packetPixels =  80, .colorCoding = kMono16, .rates = kUpTo30},
    {.format = 1, .mode = 0, .width =  800, .height = 600, .packetPixels = 125, .colorCoding = kYuv422, .rates = k3To30},
    {.format = 1, .mode = 1, .width =  800, .height = 600, .packetPixels = 125, .colorCoding = kRgb8,   .rates = k7To15},
    {.format = 1, .mode = 2, .width =  800, .height = 600, .packetPixels = 125, .colorCoding = kMono8,  .rates = k7To60},
    {.format = 1, .mode = 3, .width = 1024, .height = 768, .packetPixels = 192, .colorCoding = kYuv422, .rates = kUpTo15},
    {.format = 1, .mode = 4, .width = 1024, .height = 768, .packetPixels = 192, .colorCoding = kRgb8,   .rates = kUpTo7},
    {.format = 1, .mode = 5, .width = 1024, .height = 768, .packetPixels = 192, .colorCoding = kMono8,  .rates = kUpTo30},
    {.format = 1, .mode = 6, .width =  800, .height = 600, .packetPixels = 125, .colorCoding = kMono16, .rates = k3To30},
    {.format = 1, .mode = 7, .width = 1024, .height = 768, .packetPixels = 192, .colorCoding = kMono16, .rates = kUpTo15},
    {.format = 2, .mode = 0, .width = 1280, .height = 960, .packetPixels = 320, .colorCoding = kYuv422, .rates = kUpTo7},
    {.format = 2, .mode = 1, .width = 1280, .height = 960, .packetPixels = 320, .colorCoding = kRgb8,   .rates = kUpTo7},
    {.format = 2, .mode = 2, .width = 1280, .height = 960, .packetPixels = 320, .colorCoding = kMono8,  .rates = kUpTo15},
    {.format = 2, .mode = 6, .width = 1280, .height = 960, .packetPixels = 320, .colorCoding = kMono16, .rates = kUpTo7},
};
// clang-format on

}  // namespace

std::uint32_t FixedMode::PacketBytes(std::uint32_t rate) const {
    const std::uint32_t pixels = packetPixels << std::min(rate, 7U);
    return pixels * FindColorCoding(colorCoding)->bitsPerPixel / 8;
}

std::span<const FixedMode> FixedModes() {
    return kModes;
}

bool IsOffered(const FixedMode& mode, Variant variant) {
    return HasCoding(CodingsOf(variant), mode.colorCoding);
}

const FixedMode* FindFixedMode(Variant variant, std::uint32_t format, std::uint32_t mode) {
    const auto found =
        std::ranges::find_if(kModes, [&](const FixedMode& each) { return each.format == format && each.mode == mode; });
    return found != std::end(kModes) && IsOffered(*found, variant) ? found : nullptr;
}

}  // namespace kolmsim
