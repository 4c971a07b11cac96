#include "capture_format.h"

#include <algorithm>
#include <cstdlib>

#include <uuids.h>

#include "pixel_format.h"

namespace kolmctl {
namespace {

constexpr std::uint32_t kEmbeddedBelow = 9;  // an IIDC format or mode; larger bytes are something else

VIDEOINFOHEADER& VideoOf(const AM_MEDIA_TYPE& type) {
    return *reinterpret_cast<VIDEOINFOHEADER*>(type.pbFormat);
}

std::optional<IidcMode> ModeOf(const VIDEOINFOHEADER& video) {
    const IidcMode mode = {.format = video.dwBitErrorRate >> 8 & 0xFF, .mode = video.dwBitErrorRate & 0xFF};
    return mode.format < kEmbeddedBelow && mode.mode < kEmbeddedBelow ? std::optional(mode) : std::nullopt;
}

/// Limits come from a driver: a step of 0 must not divide.
std::int64_t Step(std::int64_t told) {
    return std::max<std::int64_t>(told, 1);
}

std::string Pair(std::int64_t a, const char* between, std::int64_t b) {
    return std::to_string(a) + between + std::to_string(b);
}

}  // namespace

void MediaTypeFree::operator()(AM_MEDIA_TYPE* type) const noexcept {
    ::CoTaskMemFree(type->pbFormat);
    if (type->pUnk != nullptr) {
        type->pUnk->Release();
    }
    ::CoTaskMemFree(type);
}

std::string Area::Text() const {
    return Pair(width, "x", height) + " at " + Pair(x, ",", y);
}

bool AreaLimits::Allow(const Area& area) const {
    return area.x % xStep == 0 && area.y % yStep == 0 && area.width % widthStep == 0 && area.height % heightStep == 0 &&
           area.x >= 0 && area.y >= 0 && area.width >= minWidth && area.height >= minHeight &&
           area.x + area.width <= maxWidth && area.y + area.height <= maxHeight;
}

std::string AreaLimits::Text() const {
    return "areas lie inside " + Pair(maxWidth, "x", maxHeight) + ", sizes are " + Pair(minWidth, "x", minHeight) +
           " or more in steps of " + Pair(widthStep, "x", heightStep) + ",\nx and y go in steps of " +
           Pair(xStep, " and ", yStep);
}

CaptureFormat::CaptureFormat(int index, UniqueMediaType type, const VIDEO_STREAM_CONFIG_CAPS& caps)
    : m_index(index), m_type(std::move(type)), m_caps(caps) {}

bool CaptureFormat::IsVideo(const AM_MEDIA_TYPE& type) {
    return type.majortype == MEDIATYPE_Video && type.formattype == FORMAT_VideoInfo && type.pbFormat != nullptr &&
           type.cbFormat >= sizeof(VIDEOINFOHEADER);
}

VIDEOINFOHEADER& CaptureFormat::Video() const {
    return VideoOf(*m_type);
}

std::optional<IidcMode> CaptureFormat::Mode() const {
    return ModeOf(Video());
}

std::string CaptureFormat::ModeText() const {
    const auto mode = Mode();
    return mode ? "Format " + std::to_string(mode->format) + " mode " + std::to_string(mode->mode) : "unknown";
}

std::string CaptureFormat::PixelText() const {
    return PixelFormatText(m_type->subtype);
}

unsigned CaptureFormat::BitsPerPixel() const {
    return Video().bmiHeader.biBitCount;
}

bool CaptureFormat::IsScalable() const {
    return m_caps.MinOutputSize.cx != m_caps.MaxOutputSize.cx || m_caps.MinOutputSize.cy != m_caps.MaxOutputSize.cy;
}

Area CaptureFormat::CurrentArea() const {
    const RECT& source = Video().rcSource;
    const BITMAPINFOHEADER& bitmap = Video().bmiHeader;
    const std::int64_t width = std::int64_t{source.right} - source.left;
    // A negative height means that the top row comes first.
    return {.x = source.left,
            .y = source.top,
            .width = width != 0 ? width : bitmap.biWidth,
            .height = std::abs(std::int64_t{bitmap.biHeight})};
}

SIZE CaptureFormat::WholeSize() const {
    const Area area = CurrentArea();
    const SIZE& told = m_caps.MaxCroppingSize;
    return {told.cx != 0 ? told.cx : static_cast<LONG>(area.width),
            told.cy != 0 ? told.cy : static_cast<LONG>(area.height)};
}

AreaLimits CaptureFormat::Limits() const {
    const SIZE whole = WholeSize();
    return {.xStep = Step(m_caps.CropAlignX),
            .yStep = Step(m_caps.CropAlignY),
            .widthStep = Step(m_caps.CropGranularityX),
            .heightStep = Step(m_caps.CropGranularityY),
            .minWidth = Step(m_caps.MinCroppingSize.cx),
            .minHeight = Step(m_caps.MinCroppingSize.cy),
            .maxWidth = whole.cx,
            .maxHeight = whole.cy};
}

std::optional<MilliFps> CaptureFormat::Rate() const {
    return RateOf(Video().AvgTimePerFrame);
}

std::optional<RateLimits> CaptureFormat::Rates() const {
    const auto slowest = RateOf(m_caps.MaxFrameInterval);
    const auto fastest = RateOf(m_caps.MinFrameInterval);
    return slowest && fastest ? std::optional(RateLimits{*slowest, *fastest}) : std::nullopt;
}

bool CaptureFormat::HasStandardRates() const {
    return !IsScalable() && Mode().has_value();
}

bool CaptureFormat::Covers(const AM_MEDIA_TYPE& other) const {
    if (!IsVideo(other) || other.subtype != m_type->subtype) {
        return false;
    }
    const VIDEOINFOHEADER& video = VideoOf(other);
    const bool sameSize = video.bmiHeader.biWidth == Video().bmiHeader.biWidth &&
                          std::abs(std::int64_t{video.bmiHeader.biHeight}) == CurrentArea().height;
    return ModeOf(video) == Mode() && (IsScalable() || sameSize);
}

void CaptureFormat::MoveTo(std::int64_t x, std::int64_t y) {
    const Area area = CurrentArea();
    RECT& source = Video().rcSource;
    source.left = static_cast<LONG>(x);
    source.top = static_cast<LONG>(y);
    source.right = static_cast<LONG>(x + area.width);
    source.bottom = static_cast<LONG>(y + area.height);
}

void CaptureFormat::SetArea(const Area& area) {
    BITMAPINFOHEADER& bitmap = Video().bmiHeader;
    bitmap.biWidth = static_cast<LONG>(area.width);
    bitmap.biHeight = static_cast<LONG>(bitmap.biHeight < 0 ? -area.height : area.height);
    bitmap.biSizeImage = static_cast<DWORD>(area.width * area.height * bitmap.biBitCount / 8);
    m_type->lSampleSize = bitmap.biSizeImage;
    Video().rcSource = {0, 0, bitmap.biWidth, static_cast<LONG>(area.height)};
    Video().rcTarget = Video().rcSource;
    MoveTo(area.x, area.y);
}

void CaptureFormat::SetRate(MilliFps rate) {
    Video().AvgTimePerFrame = FrameTimeOf(rate);
    for (const std::int64_t limit : {m_caps.MinFrameInterval, m_caps.MaxFrameInterval}) {
        if (RateOf(limit) == rate) {
            Video().AvgTimePerFrame = limit;
        }
    }
}

}  // namespace kolmctl
