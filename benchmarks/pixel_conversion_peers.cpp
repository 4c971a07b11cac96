#include "pixel_conversion_peers.h"

#include <memory>
#include <stdexcept>
#include <vector>

#include <libyuv.h>
#include <opencv2/core.hpp>
#include <opencv2/imgproc.hpp>
extern "C" {
#include <libswscale/swscale.h>
}

namespace kolmfluxor::bench {
namespace {

constexpr int kBgrBytes = 3;
constexpr int kArgbBytes = 4;

/// libyuv has no direct way: through four bytes for each pixel, row by row, so that those stay in the nearest cache.
template <class ToArgb> Converter Libyuv(int width, int height, int sourceBytes, ToArgb toArgb) {
    return [=, row = std::vector<std::uint8_t>(static_cast<std::size_t>(width) * kArgbBytes)](
               const std::uint8_t* source, std::uint8_t* destination) mutable {
        const std::ptrdiff_t step = std::ptrdiff_t{width} * kBgrBytes;
        destination += step * height;
        for (int y = 0; y < height; ++y, source += std::ptrdiff_t{width} * sourceBytes) {
            destination -= step;
            toArgb(source, width * sourceBytes, row.data(), width * kArgbBytes, width, 1);
            libyuv::ARGBToRGB24(row.data(), width * kArgbBytes, destination, width * kBgrBytes, width, 1);
        }
    };
}

Converter LibyuvMono8(int width, int height) {
    return Libyuv(width, height, 1, libyuv::J400ToARGB);
}

Converter LibyuvUyvy(int width, int height) {
    return Libyuv(width, height, 2, libyuv::UYVYToARGB);
}

Converter Swscale(int width, int height, AVPixelFormat format, int sourceBytes) {
    const std::shared_ptr<SwsContext> context(
        sws_getContext(width, height, format, width, height, AV_PIX_FMT_BGR24, SWS_POINT, nullptr, nullptr, nullptr),
        sws_freeContext);
    if (!context) throw std::runtime_error("swscale does not convert this");
    return [=](const std::uint8_t* source, std::uint8_t* destination) {
        const std::uint8_t* const sources[] = {source};
        const int sourceSteps[] = {width * sourceBytes};
        const int step = width * kBgrBytes;
        std::uint8_t* const destinations[] = {destination + std::ptrdiff_t{step} * (height - 1)};
        const int steps[] = {-step};
        sws_scale(context.get(), sources, sourceSteps, 0, height, destinations, steps);
    };
}

Converter SwscaleMono8(int width, int height) {
    return Swscale(width, height, AV_PIX_FMT_GRAY8, 1);
}

Converter SwscaleUyvy(int width, int height) {
    return Swscale(width, height, AV_PIX_FMT_UYVY422, 2);
}

Converter OpenCv(int width, int height, int type, int code) {
    cv::setNumThreads(1);
    return [=](const std::uint8_t* source, std::uint8_t* destination) {
        // The type takes no constant data; nothing writes to it.
        const cv::Mat from(height, width, type, const_cast<std::uint8_t*>(source));
        cv::Mat to(height, width, CV_8UC3, destination);
        cv::cvtColor(from, to, code);
    };
}

Converter OpenCvMono8(int width, int height) {
    return OpenCv(width, height, CV_8UC1, cv::COLOR_GRAY2BGR);
}

Converter OpenCvUyvy(int width, int height) {
    return OpenCv(width, height, CV_8UC2, cv::COLOR_YUV2BGR_UYVY);
}

constexpr Peer kPeers[] = {
    {"libyuv", LibyuvMono8, LibyuvUyvy},
    {"swscale", SwscaleMono8, SwscaleUyvy},
    {"OpenCV", OpenCvMono8, OpenCvUyvy},
};

}  // namespace

std::span<const Peer> Peers() {
    return kPeers;
}

}  // namespace kolmfluxor::bench
