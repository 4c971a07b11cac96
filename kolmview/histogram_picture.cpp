#include "kolmview/histogram_picture.h"

namespace kolmview {
namespace {

constexpr BYTE kGray = 200;
constexpr BYTE kBright = 230;

}  // namespace

void DrawHistogram(const Histogram& histogram, kolmctl::Picture* picture) {
    picture->pixels.assign(picture->RowBytes() * picture->height, 0);
    const std::uint32_t scale = BarScale(histogram.Channels());
    std::size_t place = 2;  // in a pixel: red, green, blue
    for (const LevelCounts& channel : histogram.Channels()) {
        const auto heights = BarHeights(channel, scale, static_cast<int>(picture->height));
        for (std::size_t x = 0; x < picture->width; ++x) {
            const auto bar = static_cast<std::size_t>(heights[x * kLevels / picture->width]);
            for (std::size_t y = picture->height - bar; y < picture->height; ++y) {
                BYTE* const pixel = &picture->pixels[y * picture->RowBytes() + 3 * x];
                if (histogram.IsColor()) {
                    pixel[place] = kBright;
                } else {
                    pixel[0] = pixel[1] = pixel[2] = kGray;
                }
            }
        }
        --place;
    }
}

}  // namespace kolmview
