#pragma once
/// @file  How often each brightness occurs in a picture. No Windows header: this also builds natively.

#include <array>
#include <cstddef>
#include <cstdint>
#include <span>
#include <vector>

namespace kolmview {

inline constexpr std::size_t kLevels = 256;

/// How many pixels have each level, 0 to 255.
using LevelCounts = std::array<std::uint32_t, kLevels>;

/// A 24-bit picture in memory: B, G, R for each pixel.
struct BgrPixels {
    std::span<const std::uint8_t> bytes;
    std::size_t width;     ///< in pixels
    std::size_t height;    ///< in rows
    std::size_t rowBytes;  ///< from one row to the next
};

/// The levels of one picture: those of the luma of a monochrome one, of red, green and blue of a color one.
class Histogram {
public:
    Histogram() = default;

    /// Counts a picture whose three bytes a pixel are equal.
    [[nodiscard]] static Histogram OfLuma(const BgrPixels& picture);
    [[nodiscard]] static Histogram OfColor(const BgrPixels& picture);

    /// Luma alone, or red, green and blue; empty as long as nothing was counted.
    [[nodiscard]] std::span<const LevelCounts> Channels() const { return m_channels; }
    [[nodiscard]] bool IsColor() const { return m_channels.size() == 3; }

    /// The mean level of all channels; 0 for a picture without pixels.
    [[nodiscard]] double Mean() const;

    /// The part of the pixels, 0 to 1, that are at level 255 in the channel where most are: what the sensor or the gain
    /// has cut off.
    [[nodiscard]] double Saturated() const;

private:
    std::vector<LevelCounts> m_channels;
};

/// Heights of a channel's bars, in proportion to its counts, rounded up, so that a level which occurs at all shows. All
/// are 0 where nothing was counted.
///
/// @param scale  the count that gives `height`; larger counts give no more
[[nodiscard]] std::array<int, kLevels> BarHeights(const LevelCounts& counts, std::uint32_t scale, int height);

/// A scale for the bars of all channels: the count that one in twenty of the levels which occur exceeds, so that a few
/// flat areas of the scene do not press all else to the ground. 0 where nothing was counted.
[[nodiscard]] std::uint32_t BarScale(std::span<const LevelCounts> channels);

}  // namespace kolmview
