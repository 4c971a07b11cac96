// The camera's pictures: video formats, streaming, drawing.

#include <optional>

#include "ksproxy/simulated_camera.h"
#include "model/camera.h"
#include "model/color_coding.h"
#include "model/format7.h"
#include "model/trigger.h"
#include "model/video_format.h"
#include "model/video_mode.h"

namespace kolmsim {
namespace {

/// A way to lay out the pixels of a stream; nothing for a color coding that no camera knows.
std::optional<PixelFormat> LayoutOf(const VideoFormat& format, bool topDown) {
    const ColorCoding* coding = FindColorCoding(format.colorCoding);
    if (coding == nullptr) {
        return std::nullopt;
    }
    return coding->layout == PixelFormat::bgr24 && topDown ? PixelFormat::bgr24TopDown : coding->layout;
}

/// The whole picture that an area is a part of.
Area WholeOf(const VideoFormat& format) {
    if (format.format != 7 || format.mode >= kFormat7Modes) {
        return {0, 0, format.width, format.height};
    }
    const Format7Limits& limits = Format7LimitsOf(format.mode);
    return {0, 0, limits.maxWidth, limits.maxHeight};
}

}  // namespace

std::shared_ptr<const FrameRenderer> SimulatedCamera::RendererFor(std::uint32_t width, std::uint32_t height) {
    std::shared_ptr<const FrameRenderer> renderer;
    {
        const std::scoped_lock lock(m_lock);
        renderer = m_renderer;
    }
    if (renderer == nullptr || renderer->Width() != width || renderer->Height() != height) {
        renderer = std::make_shared<const FrameRenderer>(width, height);
        const std::scoped_lock lock(m_lock);
        m_renderer = renderer;
    }
    return renderer;
}

bool SimulatedCamera::RenderFrame(const SimFrame& frame) {
    const ColorCoding* coding = FindColorCoding(frame.compression, frame.bitsPerPixel);
    if (coding == nullptr || frame.data == nullptr || !FrameRenderer::IsDrawable(frame.width, frame.height) ||
        frame.sizeBytes == 0 || frame.sizeBytes != kolmsim::PictureBytes(coding->layout, frame.width, frame.height) ||
        !IsPlugged()) {
        return false;
    }
    const auto renderer = RendererFor(frame.width, frame.height);
    const RenderSettings settings = [this] {
        const StateStorage::Access access(*m_storage);
        Camera camera(access.State());
        camera.CountPicture();
        return camera.PictureSettings();
    }();
    return renderer->Render(settings, coding->layout, frame.number, std::span(frame.data, frame.sizeBytes));
}

bool SimulatedCamera::OfferedVideoFormat(std::size_t index, OfferedFormat* format) {
    const StateStorage::Access access(*m_storage);
    const std::vector<OfferedFormat> offers = OfferedFormats(access.State());
    if (index >= offers.size()) {
        return false;
    }
    *format = offers[index];
    return true;
}

bool SimulatedCamera::CurrentVideoFormat(VideoFormat* format) {
    const StateStorage::Access access(*m_storage);
    const std::optional<VideoFormat> current = CurrentFormat(access.State());
    if (current) {
        *format = *current;
    }
    return current.has_value();
}

HRESULT SimulatedCamera::CheckVideoFormat(Geometry geometry, VideoFormat* wanted) {
    if (!IsPlugged()) {
        return HResultOf(Status::deviceNotConnected);
    }
    const StateStorage::Access access(*m_storage);
    return HResultOf(CheckFormat(access.State(), geometry, *wanted));
}

HRESULT SimulatedCamera::SetVideoFormat(Geometry geometry, VideoFormat* wanted) {
    if (!IsPlugged()) {
        return HResultOf(Status::deviceNotConnected);
    }
    const StateStorage::Access access(*m_storage);
    return HResultOf(ApplyFormat(access.State(), geometry, *wanted));
}

void SimulatedCamera::SetStreaming(bool on) {
    const StateStorage::Access access(*m_storage);
    kolmsim::SetStreaming(access.State(), on);
}

bool SimulatedCamera::TakeStreamPicture(const VideoFormat& stream, const SimPicture& picture) {
    const std::optional<PixelFormat> layout = LayoutOf(stream, picture.topDown);
    const Area whole = WholeOf(stream);
    if (!layout || picture.data == nullptr || !FrameRenderer::IsDrawable(whole.width, whole.height) ||
        picture.sizeBytes == 0 || picture.sizeBytes != kolmsim::PictureBytes(*layout, stream.width, stream.height) ||
        !IsPlugged()) {
        return false;
    }
    const auto renderer = RendererFor(whole.width, whole.height);
    RenderSettings settings;
    std::optional<VideoFormat> taken;
    {
        const StateStorage::Access access(*m_storage);
        taken = TakePicture(access.State(), stream);
        settings = Camera(access.State()).PictureSettings();
    }
    return taken &&
           renderer->Render(settings, *layout, picture.number, {taken->left, taken->top, taken->width, taken->height},
                            std::span(picture.data, picture.sizeBytes));
}

bool SimulatedCamera::PulseTriggerInput() {
    const StateStorage::Access access(*m_storage);
    return Trigger(access.State());
}

std::size_t SimulatedCamera::PictureBytes(const VideoFormat& format) {
    const std::optional<PixelFormat> layout = LayoutOf(format, false);
    return layout ? kolmsim::PictureBytes(*layout, format.width, format.height) : 0;
}

}  // namespace kolmsim
