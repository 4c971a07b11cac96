#include "format_tables.h"

namespace kolmctl {
namespace {

constexpr char kBySize[] = "x";

Json RateValue(std::optional<MilliFps> rate) {
    return rate ? Json(static_cast<double>(*rate) / 1000) : Json();
}

/// Values that only scalable formats have.
template <class Value> Json IfScalable(const CaptureFormat& format, Value&& value) {
    return format.IsScalable() ? Json(value(format.Limits())) : Json();
}

Json Position(const CaptureFormat& format) {
    const Area area = format.CurrentArea();
    return Json::array({area.x, area.y});
}

Json Size(const CaptureFormat& format) {
    const Area area = format.CurrentArea();
    return Json::array({area.width, area.height});
}

Json Whole(const CaptureFormat& format) {
    return Json::array({format.WholeSize().cx, format.WholeSize().cy});
}

Json Slowest(const CaptureFormat& format) {
    const auto rates = format.Rates();
    return RateValue(rates ? std::optional(rates->slowest) : std::nullopt);
}

Json Fastest(const CaptureFormat& format) {
    const auto rates = format.Rates();
    return RateValue(rates ? std::optional(rates->fastest) : std::nullopt);
}

Json PositionSteps(const CaptureFormat& format) {
    return IfScalable(format, [](const AreaLimits& limits) { return Json::array({limits.xStep, limits.yStep}); });
}

Json SizeSteps(const CaptureFormat& format) {
    return IfScalable(format, [](const AreaLimits& limits) {
        return Json::array({limits.widthStep, limits.heightStep});
    });
}

Json Smallest(const CaptureFormat& format) {
    return IfScalable(format, [](const AreaLimits& limits) {
        return Json::array({limits.minWidth, limits.minHeight});
    });
}

}  // namespace

Table FormatsTable(const CaptureFormats& formats) {
    Table table("formats", {{"index", "INDEX", Align::right},
                            {"current", "CURRENT", Align::left},
                            {"mode", "MODE", Align::left},
                            {"pixels", "PIXELS", Align::left},
                            {"bits", "BITS", Align::right},
                            {"size", "SIZE", Align::right, kBySize},
                            {"wholeSize", "WHOLE", Align::right, kBySize},
                            {"slowestRate", "SLOWEST", Align::right},
                            {"fastestRate", "FASTEST", Align::right},
                            {"position", "POSITION", Align::right},
                            {"positionSteps", "STEPS", Align::right},
                            {"sizeSteps", "SIZE STEPS", Align::right, kBySize},
                            {"smallestSize", "SMALLEST", Align::right, kBySize}});
    for (std::size_t i = 0; i < formats.offered.size(); ++i) {
        const CaptureFormat& format = formats.offered[i];
        table.Add({format.Index(), i == formats.current, format.ModeText(), format.PixelText(), format.BitsPerPixel(),
                   Size(format), Whole(format), Slowest(format), Fastest(format),
                   format.IsScalable() ? Position(format) : Json(), PositionSteps(format), SizeSteps(format),
                   Smallest(format)});
    }
    return table;
}

Table FormatTable(CaptureFormats& formats) {
    const CaptureFormat& format = formats.Current();
    Table table("format",
                {{"index", "index", Align::left},
                 {"mode", "mode", Align::left},
                 {"pixels", "pixels", Align::left},
                 {"bits", "bits per pixel", Align::left},
                 {"position", "position", Align::left},
                 {"size", "size", Align::left, kBySize},
                 {"wholeSize", "whole picture", Align::left, kBySize},
                 {"rate", "frame rate", Align::left},
                 {"slowestRate", "slowest rate", Align::left},
                 {"fastestRate", "fastest rate", Align::left},
                 {"positionSteps", "position in steps", Align::left},
                 {"sizeSteps", "size in steps", Align::left, kBySize},
                 {"smallestSize", "smallest size", Align::left, kBySize}},
                Layout::records);
    table.Add({format.Index(), format.ModeText(), format.PixelText(), format.BitsPerPixel(), Position(format),
               Size(format), Whole(format), RateValue(format.Rate()), Slowest(format), Fastest(format),
               PositionSteps(format), SizeSteps(format), Smallest(format)});
    return table;
}

}  // namespace kolmctl
