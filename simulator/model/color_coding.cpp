#include "model/color_coding.h"

#include <algorithm>
#include <iterator>

namespace kolmsim {
namespace {

constexpr std::uint32_t FourCc(const char (&text)[5]) {
    std::uint32_t word = 0;
    for (unsigned i = 0; i < 4; ++i) {
        word |= static_cast<std::uint32_t>(static_cast<unsigned char>(text[i])) << (8 * i);
    }
    return word;
}

constexpr std::uint32_t kUncompressedRgb = 0;

// clang-format off
constexpr ColorCoding kCodings[] = {
    {.id = kMono8,  .bitsPerPixel =  8, .dataDepth =  8, .compression = FourCc("Y800"),   .layout = PixelFormat::mono8},
    {.id = kYuv411, .bitsPerPixel = 12, .dataDepth =  8, .compression = FourCc("Y411"),   .layout = PixelFormat::yuv411},
    {.id = kYuv422, .bitsPerPixel = 16, .dataDepth =  8, .compression = FourCc("UYVY"),   .layout = PixelFormat::uyvy},
    {.id = kRgb8,   .bitsPerPixel = 24, .dataDepth =  8, .compression = kUncompressedRgb, .layout = PixelFormat::bgr24},
    {.id = kMono16, .bitsPerPixel = 16, .dataDepth = 12, .compression = FourCc("AY16"),   .layout = PixelFormat::mono16},
    {.id = kRaw8,   .bitsPerPixel =  8, .dataDepth =  8, .compression = FourCc("ARW8"),   .layout = PixelFormat::raw8},
};
// clang-format on

static_assert(std::ranges::all_of(kCodings, [](const ColorCoding& coding) {
    return HasCoding(kMonoCameraCodings | kColorCameraCodings, coding.id);
}));

}  // namespace

std::span<const ColorCoding> AllColorCodings() {
    return kCodings;
}

const ColorCoding* FindColorCoding(std::uint32_t id) {
    const auto found = std::ranges::find(kCodings, id, &ColorCoding::id);
    return found != std::end(kCodings) ? found : nullptr;
}

const ColorCoding* FindColorCoding(std::uint32_t compression, std::uint32_t bitsPerPixel) {
    const auto found = std::ranges::find_if(kCodings, [&](const ColorCoding& coding) {
        return coding.compression == compression && coding.bitsPerPixel == bitsPerPixel;
    });
    return found != std::end(kCodings) ? found : nullptr;
}

}  // namespace kolmsim
