#pragma once
/// @file  What the simulated camera sees: a test scene, drawn with the camera's current settings.

#include <cstddef>
#include <cstdint>
#include <span>
#include <vector>

#include "model/pixel_layout.h"
#include "model/pixel_pipeline.h"
#include "model/render_settings.h"

namespace kolmsim {

/// A part of the sensor, in pixels.
struct Area {
    std::uint32_t left;
    std::uint32_t top;
    std::uint32_t width;
    std::uint32_t height;
};

/// Draws pictures of the scene, integer arithmetic throughout: the same settings and frame number give the same bytes
/// everywhere.
///
/// The scene: color bars along the top, a slanted gradient with rings in the middle, gray steps along the bottom, and
/// a bright disc that travels to and fro with the frame number. Test images take its place: 1 a gray ramp from left to
/// right, 2 a slanted ramp that moves with the frame number, 3 color bars.
class FrameRenderer {
public:
    /// Whether a scene of this size can be drawn: from 16 x 16 to 4096 x 4096 pixels.
    [[nodiscard]] static bool IsDrawable(std::uint32_t width, std::uint32_t height);

    /// @param width, height  size of the scene in pixels; std::invalid_argument when it is not drawable
    FrameRenderer(std::uint32_t width, std::uint32_t height);

    [[nodiscard]] std::uint32_t Width() const { return m_width; }
    [[nodiscard]] std::uint32_t Height() const { return m_height; }

    /// Draws a part of the scene: exactly those pixels that the picture of the whole scene has there.
    ///
    /// @param picture  exactly PictureBytes long for the part
    /// @return         false, and nothing drawn, when `picture` is not, or the part lies outside the scene
    [[nodiscard]] bool Render(const RenderSettings& settings, PixelFormat format, std::uint64_t frameNumber,
                              const Area& area, std::span<std::uint8_t> picture) const;

    /// Draws the whole scene likewise.
    [[nodiscard]] bool Render(const RenderSettings& settings, PixelFormat format, std::uint64_t frameNumber,
                              std::span<std::uint8_t> picture) const {
        return Render(settings, format, frameNumber, {0, 0, m_width, m_height}, picture);
    }

private:
    struct Disc {
        std::int64_t x, y, radius;
    };

    [[nodiscard]] Rgb ScenePixel(std::uint32_t x, std::uint32_t y) const;
    [[nodiscard]] Disc DiscAt(std::uint64_t frameNumber) const;

    /// Light of one row from left to right.
    void DrawRow(const RenderSettings& settings, std::uint64_t frameNumber, std::uint32_t y, std::span<Rgb> row) const;

    std::uint32_t m_width;
    std::uint32_t m_height;
    std::vector<Rgb> m_scene;  ///< all that stands still, row by row
};

}  // namespace kolmsim
