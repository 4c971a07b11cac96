#include "filter/video_types.h"

#include <algorithm>
#include <cstdint>
#include <limits>

#include <uuids.h>

#include "model/color_coding.h"

namespace kolmsim {
namespace {

/// The usual way to make a subtype of a FOURCC; uncompressed RGB has one of its own.
GUID SubtypeOf(const ColorCoding& coding) {
    if (coding.compression == BI_RGB) {
        return MEDIASUBTYPE_RGB24;
    }
    return {coding.compression, 0x0000, 0x0010, {0x80, 0x00, 0x00, 0xAA, 0x00, 0x38, 0x9B, 0x71}};
}

DWORD ImageBytes(const VideoFormat& format) {
    const ColorCoding* coding = FindColorCoding(format.colorCoding);
    return coding != nullptr ? format.width * format.height * coding->bitsPerPixel / 8 : 0;
}

LONG BitsPerSecond(const VideoFormat& format, LONGLONG frameTime) {
    const LONGLONG bits = LONGLONG{ImageBytes(format)} * 8 * 10'000'000 / std::max<LONGLONG>(frameTime, 1);
    return static_cast<LONG>(std::min<LONGLONG>(bits, std::numeric_limits<LONG>::max()));
}

/// How a format travels in a media type: second byte format, low byte mode.
DWORD EmbeddedIidc(const VideoFormat& format) {
    return format.format << 8 | format.mode;
}

bool NamesMode(DWORD embedded) {
    constexpr DWORD kNumbers = 9;
    return embedded != 0 && (embedded >> 8) < kNumbers && (embedded & 0xFF) < kNumbers;
}

/// Takes over the position; false where rcSource cannot be an area of this entry.
bool TakePosition(const RECT& source, const OfferedFormat& offer, VideoFormat& video) {
    const bool empty = source.left == 0 && source.top == 0 && source.right == 0 && source.bottom == 0;
    const auto right = static_cast<LONG>(offer.limits.maxWidth);
    const auto bottom = static_cast<LONG>(offer.limits.maxHeight);
    if (!offer.limits.scalable) {
        return empty || (source.left == 0 && source.top == 0 && source.right == right && source.bottom == bottom);
    }
    if (empty) {
        const bool sameSize = video.width == offer.usual.width && video.height == offer.usual.height;
        video.left = sameSize ? offer.usual.left : 0;
        video.top = sameSize ? offer.usual.top : 0;
        return true;
    }
    if (source.left < 0 || source.top < 0 || source.left >= source.right || source.top >= source.bottom ||
        source.right > right || source.bottom > bottom) {
        return false;
    }
    video.left = static_cast<std::uint32_t>(source.left);
    video.top = static_cast<std::uint32_t>(source.top);
    return true;
}

}  // namespace

std::optional<StreamFormat> ParseMediaType(const AM_MEDIA_TYPE& type, std::span<const OfferedFormat> offers) {
    const VIDEOINFOHEADER* info = VideoInfo(type);
    if (type.majortype != MEDIATYPE_Video || info == nullptr) {
        return std::nullopt;
    }
    const BITMAPINFOHEADER& bitmap = info->bmiHeader;
    const ColorCoding* coding = FindColorCoding(bitmap.biCompression, bitmap.biBitCount);
    if (coding == nullptr || type.subtype != SubtypeOf(*coding) || bitmap.biWidth <= 0 || bitmap.biHeight == 0) {
        return std::nullopt;
    }
    StreamFormat format;
    format.topDown = coding->compression == BI_RGB && bitmap.biHeight < 0;
    VideoFormat& video = format.video;
    video.colorCoding = coding->id;
    video.width = static_cast<std::uint32_t>(bitmap.biWidth);
    const std::int64_t height = bitmap.biHeight;
    video.height = static_cast<std::uint32_t>(height < 0 ? -height : height);
    video.frameTime = info->AvgTimePerFrame;

    const DWORD embedded = info->dwBitErrorRate & 0xFFFF;
    const auto offer = std::ranges::find_if(offers, [&](const OfferedFormat& each) {
        const bool sameMode = NamesMode(embedded) ? EmbeddedIidc(each.usual) == embedded
                                                  : !each.limits.scalable && each.usual.width == video.width &&
                                                        each.usual.height == video.height;
        return sameMode && each.usual.colorCoding == coding->id;
    });
    if (offer == offers.end() || !TakePosition(info->rcSource, *offer, video)) {
        return std::nullopt;
    }
    video.format = offer->usual.format;
    video.mode = offer->usual.mode;
    return format;
}

MediaType MakeMediaType(const StreamFormat& format) {
    const VideoFormat& mode = format.video;
    const ColorCoding* coding = FindColorCoding(mode.colorCoding);
    const auto left = static_cast<LONG>(mode.left);
    const auto top = static_cast<LONG>(mode.top);
    const auto width = static_cast<LONG>(mode.width);
    const auto height = static_cast<LONG>(mode.height);
    VIDEOINFOHEADER video{};
    video.rcSource = {left, top, left + width, top + height};
    video.rcTarget = {0, 0, width, height};
    video.dwBitRate = static_cast<DWORD>(BitsPerSecond(mode, mode.frameTime));
    video.dwBitErrorRate = EmbeddedIidc(mode);
    video.AvgTimePerFrame = mode.frameTime;
    video.bmiHeader.biSize = sizeof video.bmiHeader;
    video.bmiHeader.biWidth = width;
    video.bmiHeader.biHeight = format.topDown ? -height : height;
    video.bmiHeader.biPlanes = 1;
    video.bmiHeader.biBitCount = static_cast<WORD>(coding->bitsPerPixel);
    video.bmiHeader.biCompression = coding->compression;
    video.bmiHeader.biSizeImage = ImageBytes(mode);

    AM_MEDIA_TYPE type{};
    type.majortype = MEDIATYPE_Video;
    type.subtype = SubtypeOf(*coding);
    type.bFixedSizeSamples = TRUE;
    type.lSampleSize = ImageBytes(mode);
    type.formattype = FORMAT_VideoInfo;
    type.cbFormat = sizeof video;
    type.pbFormat = reinterpret_cast<BYTE*>(&video);
    return MediaType(type);
}

VIDEO_STREAM_CONFIG_CAPS MakeCapabilities(const OfferedFormat& offer) {
    const VideoFormatLimits& limits = offer.limits;
    const SIZE smallest = {static_cast<LONG>(limits.minWidth), static_cast<LONG>(limits.minHeight)};
    const SIZE largest = {static_cast<LONG>(limits.maxWidth), static_cast<LONG>(limits.maxHeight)};
    VIDEO_STREAM_CONFIG_CAPS caps{};
    caps.guid = FORMAT_VideoInfo;
    caps.InputSize = largest;
    caps.MinCroppingSize = smallest;
    caps.MaxCroppingSize = largest;
    caps.CropGranularityX = static_cast<int>(limits.unitWidth);
    caps.CropGranularityY = static_cast<int>(limits.unitHeight);
    caps.CropAlignX = static_cast<int>(limits.unitLeft);
    caps.CropAlignY = static_cast<int>(limits.unitTop);
    caps.MinOutputSize = smallest;
    caps.MaxOutputSize = largest;
    caps.OutputGranularityX = caps.CropGranularityX;
    caps.OutputGranularityY = caps.CropGranularityY;
    caps.MinFrameInterval = limits.shortestFrameTime;
    caps.MaxFrameInterval = limits.longestFrameTime;
    caps.MinBitsPerSecond = BitsPerSecond(offer.usual, limits.longestFrameTime);
    caps.MaxBitsPerSecond = BitsPerSecond(offer.usual, limits.shortestFrameTime);
    return caps;
}

}  // namespace kolmsim
