#include "media/accessor_cases.h"

#include <utility>

namespace kolmfluxor::test {
namespace {

constexpr const char* kAm = "CAMMediaType";
constexpr const char* kInfo = "CMediaTypeInfo";

// The argument of every call below: T is the type, A are the arguments.
#define CALL(expression) [](CMediaTypeInfo& T, [[maybe_unused]] const AccessorArguments& A) { (void)(expression); }
#define CONST_CALL(method) [](CMediaTypeInfo& T, const AccessorArguments&) { (void)std::as_const(T).method(); }

// clang-format off
constexpr AccessorCase kCases[] = {
    {kAm, "MediaTypeInfo",          nullptr,                                     CALL(T.MediaTypeInfo())},
    {kAm, "HeaderTypeInfo",         nullptr,                                     CALL(T.HeaderTypeInfo())},
    {kAm, "MediaType",              nullptr,                                     CALL(T.MediaType())},
    {kAm, "MediaType",              nullptr,                                     CONST_CALL(MediaType)},
    {kAm, "VideoInfoHeader",        "CAMMediaType::VideoInfoHeader: Null Pointer",  CALL(T.VideoInfoHeader())},
    {kAm, "VideoInfoHeader",        "CAMMediaType::VideoInfoHeader: Null Pointer",  CONST_CALL(VideoInfoHeader)},
    {kAm, "BitMapInfoHeader",       "CAMMediaType::BitMapInfoHeader: Null Pointer", CALL(T.BitMapInfoHeader())},
    {kAm, "BitMapInfoHeader",       "CAMMediaType::BitMapInfoHeader: Null Pointer", CONST_CALL(BitMapInfoHeader)},
    {kAm, "SourceRect",             "CAMMediaType::SourceRect: Null Pointer",    CALL(T.SourceRect())},
    {kAm, "SourceRect",             "CAMMediaType::SourceRect: Null Pointer",    CONST_CALL(SourceRect)},
    {kAm, "TargetRect",             "CAMMediaType::TargetRect: Null Pointer",    CALL(T.TargetRect())},
    {kAm, "TargetRect",             "CAMMediaType::TargetRect: Null Pointer",    CONST_CALL(TargetRect)},
    {kAm, "IsRGB",                  "CAMMediaType::IsRGB: Null Pointer",         CALL(T.IsRGB())},
    {kAm, "XPos",                   "CAMMediaType::XPos: Null Pointer",          CALL(T.XPos())},
    {kAm, "XPos",                   "CAMMediaType::XPos: Null Pointer",          CALL(T.XPos(A.a))},
    {kAm, "YPos",                   "CAMMediaType::YPos: Null Pointer",          CALL(T.YPos())},
    {kAm, "YPos",                   "CAMMediaType::YPos: Null Pointer",          CALL(T.YPos(A.a))},
    {kAm, "Width",                  "CAMMediaType::Width: Null Pointer",         CALL(T.Width())},
    {kAm, "Width",                  "CAMMediaType::Width: Null Pointer",         CALL(T.Width(A.a))},
    {kAm, "Height",                 "CAMMediaType::Height: Null Pointer",        CALL(T.Height())},
    {kAm, "Height",                 "CAMMediaType::Height: Null Pointer",        CALL(T.Height(A.a))},
    {kAm, "WidthSurface",           "CAMMediaType::WidthSurface: Null Pointer",  CALL(T.WidthSurface())},
    {kAm, "BitsPerPixel",           "CAMMediaType::BitsPerPixel: Null Pointer",  CALL(T.BitsPerPixel())},
    {kAm, "Stride",                 "CAMMediaType::Stride: Null Pointer",        CALL(T.Stride())},
    {kAm, "FrameTimeAvg",           "CAMMediaType::FrameTimeAvg: Null Pointer",  CALL(T.FrameTimeAvg())},
    {kAm, "FrameTimeAvg",           "CAMMediaType::FrameTimeAvg: Null Pointer",  CALL(T.FrameTimeAvg(A.time))},
    {kAm, "FrameRate",              "CAMMediaType::FrameRate: Null Pointer",     CALL(T.FrameRate())},
    {kAm, "FrameRate",              "CAMMediaType::FrameRate: Null Pointer",     CALL(T.FrameRate(A.fps))},
    {kAm, "HasEmbeddedFormatInfo",  "CAMMediaType::HasEmbeddedFormatInfo: Null Pointer (VideoInfoHeader)",
                                                                                 CALL(T.HasEmbeddedFormatInfo())},
    {kAm, "GetEmbededFormat",       "CAMMediaType::GetEmbededFormat: Null Pointer (VideoInfoHeader)",
                                                                                 CALL(T.GetEmbededFormat())},
    {kAm, "GetEmbeddedMode",        "CAMMediaType::GetEmbeddedMode: Null Pointer (VideoInfoHeader)",
                                                                                 CALL(T.GetEmbeddedMode())},
    {kAm, "PartialMatch",           nullptr,                                     CALL(T.PartialMatch({}))},
    {kAm, "PartialMatch",           nullptr,                                     CALL(T.PartialMatchVideo({}))},
    {kInfo, "StreamConfigCaps",     nullptr,                                     CALL(T.StreamConfigCaps())},
    {kInfo, "StreamConfigCaps",     nullptr,                                     CONST_CALL(StreamConfigCaps)},
    {kInfo, "IsScalable",           nullptr,                                     CALL(T.IsScalable())},
    {kInfo, "MinWidth",             nullptr,                                     CALL(T.MinWidth())},
    {kInfo, "MinHeight",            nullptr,                                     CALL(T.MinHeight())},
    {kInfo, "MaxWidth",             nullptr,                                     CALL(T.MaxWidth())},
    {kInfo, "MaxHeight",            nullptr,                                     CALL(T.MaxHeight())},
    {kInfo, "UnitWidth",            nullptr,                                     CALL(T.UnitWidth())},
    {kInfo, "UnitHeight",           nullptr,                                     CALL(T.UnitHeight())},
    {kInfo, "UnitXPos",             nullptr,                                     CALL(T.UnitXPos())},
    {kInfo, "UnitYPos",             nullptr,                                     CALL(T.UnitYPos())},
    {kInfo, "FrameTimeMin",         nullptr,                                     CALL(T.FrameTimeMin())},
    {kInfo, "FrameTimeMax",         nullptr,                                     CALL(T.FrameTimeMax())},
    {kInfo, "XPosChecked",          "CAMMediaType::Width: Null Pointer",         CALL(T.XPosChecked(A.a))},
    {kInfo, "YPosChecked",          "CAMMediaType::Height: Null Pointer",        CALL(T.YPosChecked(A.a))},
    {kInfo, "WidthChecked",         "CAMMediaType::XPos: Null Pointer",          CALL(T.WidthChecked(A.a))},
    {kInfo, "HeightChecked",        "CAMMediaType::YPos: Null Pointer",          CALL(T.HeightChecked(A.a))},
    {kInfo, "FrameTimeAvrChecked",  "CAMMediaType::FrameTimeAvg: Null Pointer",  CALL(T.FrameTimeAvrChecked(A.time))},
    {kInfo, "FpsChecked",           "CAMMediaType::FrameTimeAvg: Null Pointer",  CALL(T.FpsChecked(A.fps))},
    {kInfo, "FpmsChecked",          "CAMMediaType::FrameTimeAvg: Null Pointer",  CALL(T.FpmsChecked(A.fpms))},
    {kInfo, "IsValidXPos",          nullptr,                                     CALL(T.IsValidXPos(A.a))},
    {kInfo, "IsValidYPos",          nullptr,                                     CALL(T.IsValidYPos(A.a))},
    {kInfo, "IsValidOffset",        nullptr,                                     CALL(T.IsValidOffset(A.a, A.b))},
    {kInfo, "IsValidWidth",         "CAMMediaType::XPos: Null Pointer",          CALL(T.IsValidWidth(A.a))},
    {kInfo, "IsValidHeight",        "CAMMediaType::YPos: Null Pointer",          CALL(T.IsValidHeight(A.a))},
    {kInfo, "IsValidSize",          "CAMMediaType::XPos: Null Pointer",          CALL(T.IsValidSize(A.a, A.b))},
    {kInfo, "AOI",                  nullptr,                                     CALL(T.AOI())},
    {kInfo, "AOI",                  "CAMMediaType::XPos: Null Pointer",          CALL(T.AOI(A.area))},
};
// clang-format on

#undef CALL
#undef CONST_CALL

}  // namespace

std::span<const AccessorCase> AccessorCases() {
    return kCases;
}

}  // namespace kolmfluxor::test
