#include "settings/format_setting.h"

#include <cmath>

#include "capture_pin.h"
#include "errors.h"
#include "format_choice.h"
#include "pixel_format.h"

namespace kolmctl {
namespace {

struct AreaField {
    const char* key;
    std::int64_t Area::*member;
};
constexpr AreaField kAreaFields[] = {
    {"x", &Area::x}, {"y", &Area::y}, {"width", &Area::width}, {"height", &Area::height}};

double FramesPerSecond(MilliFps rate) {
    return static_cast<double>(rate) / 1000;
}

/// The format that mode and pixel format name; the current one when neither does.
CaptureFormat& Choose(CaptureFormats& formats, const Json& fields) {
    std::string words;
    for (const char* key : {"mode", "pixels"}) {
        if (fields.contains(key)) {
            words += (words.empty() ? "" : " ") + fields[key].get<std::string>();
        }
    }
    return words.empty() ? formats.Current() : FormatChoice(words).Choose(formats);
}

}  // namespace

Json ReadFormatFields(Camera& camera) {
    CaptureFormats formats = CapturePin(camera).Formats();
    const CaptureFormat& format = formats.Current();
    Json fields = Json::object();
    if (const auto mode = format.Mode()) {
        fields["mode"] = "f" + std::to_string(mode->format) + "m" + std::to_string(mode->mode);
    }
    if (FindPixelFormat(format.PixelText()) != nullptr) {
        fields["pixels"] = format.PixelText();
    }
    const Area area = format.CurrentArea();
    for (const AreaField& field : kAreaFields) {
        fields[field.key] = area.*field.member;
    }
    if (const auto rate = format.Rate()) {
        fields["rate"] = FramesPerSecond(*rate);
    }
    return fields;
}

void WriteFormatFields(Camera& camera, const Json& fields, const std::string& intention) {
    const CapturePin pin(camera);
    CaptureFormats formats = pin.Formats();
    CaptureFormat& format = Choose(formats, fields);

    const Area before = format.CurrentArea();
    Area area = before;
    for (const AreaField& field : kAreaFields) {
        area.*field.member = fields.value(field.key, area.*field.member);
    }
    if (area != before) {
        if (!format.IsScalable()) {
            throw CallError(intention, E_INVALIDARG, format.ModeText() + " is always " + before.Text());
        }
        if (!format.Limits().Allow(area)) {
            throw CallError(intention, E_INVALIDARG, format.Limits().Text());
        }
        format.SetArea(area);
    }
    if (fields.contains("rate")) {
        const MilliFps rate = std::llround(fields["rate"].get<double>() * 1000);
        if (rate != format.Rate()) {
            format.SetRate(rate);
        }
    }
    pin.Apply(format);
}

}  // namespace kolmctl
