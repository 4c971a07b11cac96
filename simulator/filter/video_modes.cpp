#include "filter/video_modes.h"

#include <algorithm>
#include <iterator>
#include <limits>

#include <uuids.h>

namespace kolmsim {
namespace {

constexpr std::uint32_t kY800 = 0x30303859;
constexpr GUID kSubtypeY800 = kolmfluxor::FourCcSubtype(kY800);

constexpr VideoMode kModes[] = {
    {.iidcFormat = 0,
     .iidcMode = 5,
     .subtype = &kSubtypeY800,
     .compression = kY800,
     .bitsPerPixel = 8,
     .width = 640,
     .height = 480,
     .shortestFrameTime = 166'666,    // 60 fps
     .usualFrameTime = 333'333,       // 30 fps
     .longestFrameTime = 5'333'333},  // 1.875 fps
};

LONG BitsPerSecond(const VideoMode& mode, LONGLONG frameTime) {
    const LONGLONG bits = LONGLONG{mode.ImageBytes()} * 8 * 10'000'000 / frameTime;
    return static_cast<LONG>(std::min<LONGLONG>(bits, std::numeric_limits<LONG>::max()));
}

bool Fits(const VideoMode& mode, const AM_MEDIA_TYPE& type, const VIDEOINFOHEADER& video) {
    const bool sameLayout = type.subtype == *mode.subtype && video.bmiHeader.biCompression == mode.compression &&
                            video.bmiHeader.biBitCount == mode.bitsPerPixel;
    const bool sameSize = video.bmiHeader.biWidth == static_cast<LONG>(mode.width) &&
                          video.bmiHeader.biHeight == static_cast<LONG>(mode.height);
    const bool inTime = video.AvgTimePerFrame == 0 || (video.AvgTimePerFrame >= mode.shortestFrameTime &&
                                                       video.AvgTimePerFrame <= mode.longestFrameTime);
    return sameLayout && sameSize && inTime;
}

}  // namespace

std::span<const VideoMode> VideoModes() {
    return kModes;
}

const VideoMode* FindVideoMode(const AM_MEDIA_TYPE& type) {
    const VIDEOINFOHEADER* video = VideoInfo(type);
    if (type.majortype != MEDIATYPE_Video || video == nullptr) {
        return nullptr;
    }
    const auto found = std::ranges::find_if(kModes, [&](const VideoMode& mode) { return Fits(mode, type, *video); });
    return found != std::end(kModes) ? found : nullptr;
}

MediaType MakeMediaType(const VideoMode& mode, LONGLONG frameTime) {
    const LONGLONG actualFrameTime = frameTime != 0 ? frameTime : mode.usualFrameTime;
    VIDEOINFOHEADER video{};
    video.rcSource = {0, 0, static_cast<LONG>(mode.width), static_cast<LONG>(mode.height)};
    video.rcTarget = video.rcSource;
    video.dwBitRate = static_cast<DWORD>(BitsPerSecond(mode, actualFrameTime));
    video.dwBitErrorRate = mode.EmbeddedIidc();
    video.AvgTimePerFrame = actualFrameTime;
    video.bmiHeader.biSize = sizeof video.bmiHeader;
    video.bmiHeader.biWidth = static_cast<LONG>(mode.width);
    video.bmiHeader.biHeight = static_cast<LONG>(mode.height);
    video.bmiHeader.biPlanes = 1;
    video.bmiHeader.biBitCount = mode.bitsPerPixel;
    video.bmiHeader.biCompression = mode.compression;
    video.bmiHeader.biSizeImage = mode.ImageBytes();

    AM_MEDIA_TYPE type{};
    type.majortype = MEDIATYPE_Video;
    type.subtype = *mode.subtype;
    type.bFixedSizeSamples = TRUE;
    type.lSampleSize = mode.ImageBytes();
    type.formattype = FORMAT_VideoInfo;
    type.cbFormat = sizeof video;
    type.pbFormat = reinterpret_cast<BYTE*>(&video);
    return MediaType(type);
}

VIDEO_STREAM_CONFIG_CAPS MakeCapabilities(const VideoMode& mode) {
    const SIZE size = {static_cast<LONG>(mode.width), static_cast<LONG>(mode.height)};
    VIDEO_STREAM_CONFIG_CAPS caps{};
    caps.guid = FORMAT_VideoInfo;
    caps.InputSize = size;
    caps.MinCroppingSize = size;
    caps.MaxCroppingSize = size;
    caps.CropGranularityX = 1;
    caps.CropGranularityY = 1;
    caps.CropAlignX = 1;
    caps.CropAlignY = 1;
    caps.MinOutputSize = size;
    caps.MaxOutputSize = size;
    caps.OutputGranularityX = 1;
    caps.OutputGranularityY = 1;
    caps.MinFrameInterval = mode.shortestFrameTime;
    caps.MaxFrameInterval = mode.longestFrameTime;
    caps.MinBitsPerSecond = BitsPerSecond(mode, mode.longestFrameTime);
    caps.MaxBitsPerSecond = BitsPerSecond(mode, mode.shortestFrameTime);
    return caps;
}

}  // namespace kolmsim
