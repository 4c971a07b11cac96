#include "kolmview/histogram.h"

#include <algorithm>
#include <iterator>
#include <numeric>

namespace kolmview {
namespace {

constexpr std::size_t kPixelBytes = 3;
// Places in a pixel
constexpr std::size_t kBlue = 0;
constexpr std::size_t kGreen = 1;
constexpr std::size_t kRed = 2;

void Count(const BgrPixels& picture, std::size_t place, LevelCounts* counts) {
    for (std::size_t y = 0; y < picture.height; ++y) {
        const auto row = picture.bytes.subspan(y * picture.rowBytes, picture.width * kPixelBytes);
        for (std::size_t i = place; i < row.size(); i += kPixelBytes) {
            ++(*counts)[row[i]];
        }
    }
}

std::uint64_t PixelsOf(const LevelCounts& counts) {
    return std::accumulate(counts.begin(), counts.end(), std::uint64_t{0});
}

}  // namespace

Histogram Histogram::OfLuma(const BgrPixels& picture) {
    Histogram histogram;
    histogram.m_channels.resize(1);
    Count(picture, kGreen, histogram.m_channels.data());
    return histogram;
}

Histogram Histogram::OfColor(const BgrPixels& picture) {
    Histogram histogram;
    for (const std::size_t place : {kRed, kGreen, kBlue}) {
        Count(picture, place, &histogram.m_channels.emplace_back());
    }
    return histogram;
}

double Histogram::Mean() const {
    std::uint64_t sum = 0;
    std::uint64_t count = 0;
    for (const LevelCounts& channel : m_channels) {
        for (std::size_t level = 0; level < kLevels; ++level) {
            sum += std::uint64_t{channel[level]} * level;
        }
        count += PixelsOf(channel);
    }
    return count != 0 ? static_cast<double>(sum) / static_cast<double>(count) : 0;
}

double Histogram::Saturated() const {
    double most = 0;
    for (const LevelCounts& channel : m_channels) {
        const std::uint64_t count = PixelsOf(channel);
        most = std::max(most, count != 0 ? static_cast<double>(channel.back()) / static_cast<double>(count) : 0);
    }
    return most;
}

std::array<int, kLevels> BarHeights(const LevelCounts& counts, std::uint32_t scale, int height) {
    std::array<int, kLevels> heights{};
    if (scale == 0 || height <= 0) {
        return heights;
    }
    std::ranges::transform(counts, heights.begin(), [&](std::uint32_t count) {
        const std::uint64_t scaled = std::uint64_t{std::min(count, scale)} * static_cast<std::uint64_t>(height);
        return static_cast<int>((scaled + scale - 1) / scale);
    });
    return heights;
}

std::uint32_t BarScale(std::span<const LevelCounts> channels) {
    std::vector<std::uint32_t> occurring;
    for (const LevelCounts& channel : channels) {
        std::ranges::copy_if(channel, std::back_inserter(occurring), [](std::uint32_t count) { return count != 0; });
    }
    if (occurring.empty()) {
        return 0;
    }
    const std::size_t exceeding = occurring.size() / 20;
    const auto scale = occurring.end() - 1 - static_cast<std::ptrdiff_t>(exceeding);
    std::ranges::nth_element(occurring, scale);
    return *scale;
}

}  // namespace kolmview
