#include "media/am_media_type.h"

#include <cstring>
#include <utility>

#include <uuids.h>

#include "base/bit_field.h"
#include "base/text_exception.h"
#include "media/area_rules.h"
#include "media/frame_time.h"
#include "media/pixel_rect.h"

namespace kolmfluxor {
namespace {

template <FixedText Name> constexpr const Accessor& kOf = kAccessor<"CAMMediaType", Name>;
template <FixedText Name>
constexpr const Accessor& kEmbedded = kAccessor<"CAMMediaType", Name, ": Null Pointer (VideoInfoHeader)">;

// What each accessor is called in its texts; all overloads of one share a row.
constexpr const Accessor& kMediaTypeInfo = kOf<"MediaTypeInfo">;
constexpr const Accessor& kHeaderTypeInfo = kOf<"HeaderTypeInfo">;
constexpr const Accessor& kMediaType = kOf<"MediaType">;
constexpr const Accessor& kVideoInfoHeader = kOf<"VideoInfoHeader">;
constexpr const Accessor& kBitMapInfoHeader = kOf<"BitMapInfoHeader">;
constexpr const Accessor& kSourceRect = kOf<"SourceRect">;
constexpr const Accessor& kTargetRect = kOf<"TargetRect">;
constexpr const Accessor& kIsRgb = kOf<"IsRGB">;
constexpr const Accessor& kXPos = kOf<"XPos">;
constexpr const Accessor& kYPos = kOf<"YPos">;
constexpr const Accessor& kWidth = kOf<"Width">;
constexpr const Accessor& kHeight = kOf<"Height">;
constexpr const Accessor& kWidthSurface = kOf<"WidthSurface">;
constexpr const Accessor& kBitsPerPixel = kOf<"BitsPerPixel">;
constexpr const Accessor& kStride = kOf<"Stride">;
constexpr const Accessor& kFrameTimeAvg = kOf<"FrameTimeAvg">;
constexpr const Accessor& kFrameRate = kOf<"FrameRate">;
constexpr const Accessor& kPartialMatch = kOf<"PartialMatch">;
constexpr const Accessor& kHasEmbeddedFormatInfo = kEmbedded<"HasEmbeddedFormatInfo">;
constexpr const Accessor& kGetEmbededFormat = kEmbedded<"GetEmbededFormat">;
constexpr const Accessor& kGetEmbeddedMode = kEmbedded<"GetEmbeddedMode">;

// dwBitErrorRate as the camera's driver fills it.
constexpr BitRange kIidcFormat{15, 8};
constexpr BitRange kIidcMode{7, 0};
constexpr DWORD kIidcLimit = 9;  // of formats and of modes; anything from here on is no IIDC information

bool IsVideo(const AM_MEDIA_TYPE& type) {
    return type.majortype == MEDIATYPE_Video;
}

bool IsVideoInfo(const AM_MEDIA_TYPE& type) {
    return IsVideo(type) && type.formattype == FORMAT_VideoInfo;
}

/// The rule of initialization: video, FORMAT_VideoInfo, and a block that holds the header.
bool HoldsHeader(const AM_MEDIA_TYPE& type) {
    return IsVideoInfo(type) && type.cbFormat >= sizeof(VIDEOINFOHEADER) && type.pbFormat != nullptr;
}

bool HasIidcWord(const VIDEOINFOHEADER& header) {
    return kIidcFormat.Of(header.dwBitErrorRate) < kIidcLimit && kIidcMode.Of(header.dwBitErrorRate) < kIidcLimit;
}

bool SameHeaders(const VIDEOINFOHEADER& a, const VIDEOINFOHEADER& b) {
    const BitmapSize sizeA = {a.bmiHeader.biWidth, a.bmiHeader.biHeight};
    const BitmapSize sizeB = {b.bmiHeader.biWidth, b.bmiHeader.biHeight};
    if (!SameExtent(ToPixelRect(a.rcSource), sizeA, ToPixelRect(b.rcSource), sizeB)) return false;
    if (!SameExtent(ToPixelRect(a.rcTarget), sizeA, ToPixelRect(b.rcTarget), sizeB)) return false;
    // Compatibility: the widths of the areas are not compared, so that an empty area matches one that fills its bitmap.
    if (WrappedMagnitude(sizeA.height) != WrappedMagnitude(sizeB.height)) return false;
    if (a.bmiHeader.biCompression != b.bmiHeader.biCompression) return false;
    return !HasIidcWord(a) || !HasIidcWord(b) || a.dwBitErrorRate == b.dwBitErrorRate;
}

}  // namespace

CAMMediaType::CAMMediaType(const AM_MEDIA_TYPE& type) : m_type(type) {
    Initialize();
}

CAMMediaType::CAMMediaType(const CAMMediaType& other) : CAMMediaType(other.m_type.Get()) {}

CAMMediaType::CAMMediaType(CAMMediaType&& other) noexcept : m_type(std::move(other.m_type)) {
    Initialize();
    other.Initialize();
}

// NOLINTNEXTLINE(bugprone-unhandled-self-assignment): the block is copied before the old one is let go
CAMMediaType& CAMMediaType::operator=(const CAMMediaType& other) {
    return *this = other.m_type.Get();
}

CAMMediaType& CAMMediaType::operator=(CAMMediaType&& other) noexcept {
    m_type = std::move(other.m_type);
    other.Initialize();
    Initialize();
    return *this;
}

CAMMediaType& CAMMediaType::operator=(const AM_MEDIA_TYPE& type) {
    m_type = CMediaType(type);
    Initialize();
    return *this;
}

void CAMMediaType::Initialize() noexcept {
    AM_MEDIA_TYPE& type = m_type.Get();
    m_initialized = HoldsHeader(type);
    m_header = m_initialized ? reinterpret_cast<VIDEOINFOHEADER*>(type.pbFormat) : nullptr;
}

// -- What every accessor begins with

void CAMMediaType::RequireInitialized(const Accessor& accessor) const {
    if (!m_initialized) throw CTextException(accessor.notInitialized);
}

const VIDEOINFOHEADER& CAMMediaType::Header(const Accessor& accessor) const {
    RequireInitialized(accessor);
    if (m_header == nullptr) throw CTextException(accessor.nullPointer);
    return *m_header;
}

VIDEOINFOHEADER& CAMMediaType::Header(const Accessor& accessor) {
    // NOLINTNEXTLINE(cppcoreguidelines-pro-type-const-cast): this object is not constant
    return const_cast<VIDEOINFOHEADER&>(std::as_const(*this).Header(accessor));
}

// -- The type

bool CAMMediaType::MediaTypeInfo() const {
    RequireInitialized(kMediaTypeInfo);
    return IsVideo(m_type.Get());
}

bool CAMMediaType::HeaderTypeInfo() const {
    RequireInitialized(kHeaderTypeInfo);
    return IsVideoInfo(m_type.Get());
}

const AM_MEDIA_TYPE& CAMMediaType::MediaType() const {
    RequireInitialized(kMediaType);
    return m_type.Get();
}

AM_MEDIA_TYPE& CAMMediaType::MediaType() {
    RequireInitialized(kMediaType);
    return m_type.Get();
}

const VIDEOINFOHEADER& CAMMediaType::VideoInfoHeader() const {
    return Header(kVideoInfoHeader);
}

VIDEOINFOHEADER& CAMMediaType::VideoInfoHeader() {
    return Header(kVideoInfoHeader);
}

const BITMAPINFOHEADER& CAMMediaType::BitMapInfoHeader() const {
    return Header(kBitMapInfoHeader).bmiHeader;
}

BITMAPINFOHEADER& CAMMediaType::BitMapInfoHeader() {
    return Header(kBitMapInfoHeader).bmiHeader;
}

const RECT& CAMMediaType::SourceRect() const {
    return Header(kSourceRect).rcSource;
}

RECT& CAMMediaType::SourceRect() {
    return Header(kSourceRect).rcSource;
}

const RECT& CAMMediaType::TargetRect() const {
    return Header(kTargetRect).rcTarget;
}

RECT& CAMMediaType::TargetRect() {
    return Header(kTargetRect).rcTarget;
}

// -- Geometry

bool CAMMediaType::IsRGB() const {
    return Header(kIsRgb).bmiHeader.biCompression == BI_RGB;
}

LONG CAMMediaType::XPos() const {
    return Header(kXPos).rcSource.left;
}

LONG CAMMediaType::YPos() const {
    return Header(kYPos).rcSource.top;
}

LONG CAMMediaType::Width() const {
    const VIDEOINFOHEADER& header = Header(kWidth);
    return AreaWidth(ToPixelRect(header.rcSource), header.bmiHeader.biWidth);
}

LONG CAMMediaType::Height() const {
    return WrappedMagnitude(Header(kHeight).bmiHeader.biHeight);
}

LONG CAMMediaType::WidthSurface() const {
    return Header(kWidthSurface).bmiHeader.biWidth;
}

WORD CAMMediaType::BitsPerPixel() const {
    return Header(kBitsPerPixel).bmiHeader.biBitCount;
}

LONG CAMMediaType::Stride() const {
    const BITMAPINFOHEADER& bitmap = Header(kStride).bmiHeader;
    return StrideBytes(bitmap.biWidth, bitmap.biBitCount, bitmap.biHeight);
}

void CAMMediaType::XPos(LONG x) {
    VIDEOINFOHEADER& header = Header(kXPos);
    header.rcSource.left = x;
    // Compatibility: the width is that of the rectangle with its new left edge, so that the right edge stays in place
    // unless the rectangle is all zero. Callers set the width after the position.
    header.rcSource.right = WrappedSum(x, Width());
    FitTarget(header);
}

void CAMMediaType::YPos(LONG y) {
    VIDEOINFOHEADER& header = Header(kYPos);
    header.rcSource.top = y;
    header.rcSource.bottom = WrappedSum(y, Height());
    FitTarget(header);
}

void CAMMediaType::Width(LONG w) {
    VIDEOINFOHEADER& header = Header(kWidth);
    header.bmiHeader.biWidth = w;
    header.rcSource.right = WrappedSum(header.rcSource.left, w);
    FitSizes(header);
}

void CAMMediaType::Height(LONG h) {
    VIDEOINFOHEADER& header = Header(kHeight);
    header.rcSource.bottom = WrappedSum(header.rcSource.top, WrappedMagnitude(h));
    header.bmiHeader.biHeight = h;
    FitSizes(header);
}

// NOLINTNEXTLINE(readability-make-member-function-const): the header is this object's own
void CAMMediaType::FitTarget(VIDEOINFOHEADER& header) {
    header.rcTarget = {0, 0, Width(), Height()};
}

void CAMMediaType::FitSizes(VIDEOINFOHEADER& header) {
    header.rcSource = ToRect(Normalized(ToPixelRect(header.rcSource)));
    header.bmiHeader.biSizeImage = static_cast<DWORD>(ImageBytes(Height(), Width(), BitsPerPixel()));
    m_type.SetSampleSize(header.bmiHeader.biSizeImage);
    FitTarget(header);
}

// -- Time

REFERENCE_TIME CAMMediaType::FrameTimeAvg() const {
    return Header(kFrameTimeAvg).AvgTimePerFrame;
}

void CAMMediaType::FrameTimeAvg(REFERENCE_TIME t) {
    Header(kFrameTimeAvg).AvgTimePerFrame = t;
}

std::int64_t CAMMediaType::FrameRate() const {
    return FrameTimeToFps(Header(kFrameRate).AvgTimePerFrame);
}

void CAMMediaType::FrameRate(std::uint32_t fps) {
    VIDEOINFOHEADER& header = Header(kFrameRate);
    header.AvgTimePerFrame = FpsToFrameTime(fps);
}

// -- IIDC

bool CAMMediaType::HasEmbeddedFormatInfo() const {
    return HasIidcWord(Header(kHasEmbeddedFormatInfo));
}

DWORD CAMMediaType::GetEmbededFormat() const {
    return kIidcFormat.Of(Header(kGetEmbededFormat).dwBitErrorRate);
}

DWORD CAMMediaType::GetEmbeddedMode() const {
    return kIidcMode.Of(Header(kGetEmbeddedMode).dwBitErrorRate);
}

// -- Comparison

bool CAMMediaType::operator==(const AM_MEDIA_TYPE& other) const {
    const AM_MEDIA_TYPE& own = m_type.Get();
    if (own.majortype != other.majortype || own.subtype != other.subtype || own.formattype != other.formattype ||
        own.lSampleSize != other.lSampleSize || own.cbFormat != other.cbFormat) {
        return false;
    }
    if (m_header == nullptr || !HoldsHeader(other)) return false;
    VIDEOINFOHEADER otherHeader;
    std::memcpy(&otherHeader, other.pbFormat, sizeof otherHeader);  // someone else's block may lie at any address
    return SameHeaders(*m_header, otherHeader);
}

bool CAMMediaType::PartialMatch(const AM_MEDIA_TYPE& other) const {
    RequireInitialized(kPartialMatch);
    return m_type.MatchesPartial(other);
}

bool CAMMediaType::PartialMatchVideo(const AM_MEDIA_TYPE& other) const {
    RequireInitialized(kPartialMatch);
    return IsVideo(other) && m_type.MatchesPartial(other);
}

}  // namespace kolmfluxor
