#include "capture_pin.h"

#include <utility>

#include <vfwmsgs.h>

#include "errors.h"

namespace kolmctl {
namespace {

using Microsoft::WRL::ComPtr;

constexpr std::uint32_t kScalableFormat = 7;  // of IIDC: the only one with a position

ComPtr<IPin> FirstOutputPin(IBaseFilter& filter) {
    ComPtr<IEnumPins> pins;
    Check(filter.EnumPins(pins.GetAddressOf()), "cannot enumerate the capture filter's pins");
    ComPtr<IPin> pin;
    while (pins->Next(1, pin.ReleaseAndGetAddressOf(), nullptr) == S_OK) {
        PIN_DIRECTION direction = PINDIR_INPUT;
        if (pin->QueryDirection(&direction) == S_OK && direction == PINDIR_OUTPUT) {
            return pin;
        }
    }
    throw CallError("the capture filter has no output pin", VFW_E_NOT_FOUND);
}

bool HasPosition(const CaptureFormat& format) {
    const auto mode = format.Mode();
    return format.IsScalable() && mode && mode->format == kScalableFormat;
}

/// One entry of the pin's list; nothing when the pin does not hand it out, or it is no video that we know.
std::optional<CaptureFormat> ReadFormat(IAMStreamConfig& config, int index) {
    AM_MEDIA_TYPE* raw = nullptr;
    VIDEO_STREAM_CONFIG_CAPS caps{};
    const HRESULT hr = config.GetStreamCaps(index, &raw, reinterpret_cast<BYTE*>(&caps));
    UniqueMediaType type(raw);
    if (hr != S_OK || type == nullptr || !CaptureFormat::IsVideo(*type)) {
        return std::nullopt;
    }
    return CaptureFormat(index, std::move(type), caps);
}

}  // namespace

CaptureFormat& CaptureFormats::Current() {
    if (current >= offered.size()) {
        throw Error(ExitCode::refused, "the camera's current format is none of those that it offers",
                    "\"kolmctl formats\" shows these, \"kolmctl format set --mode\" chooses one");
    }
    return offered[current];
}

CapturePin::CapturePin(Camera& camera) : m_camera(camera), m_pin(FirstOutputPin(camera.Filter())) {
    Check(m_pin.As(&m_config), "the capture filter's pin offers no choice of formats");
}

CaptureFormats CapturePin::Formats() const {
    AM_MEDIA_TYPE* raw = nullptr;
    const HRESULT hr = m_config->GetFormat(&raw);
    UniqueMediaType inUse(raw);
    Check(hr, "cannot read the current format");
    int count = 0;
    int recordBytes = 0;
    Check(m_config->GetNumberOfCapabilities(&count, &recordBytes), "cannot read the number of formats");
    if (recordBytes != static_cast<int>(sizeof(VIDEO_STREAM_CONFIG_CAPS))) {
        throw Error(ExitCode::refused, "the pin's capabilities are not those of video");
    }

    CaptureFormats formats{{}, static_cast<std::size_t>(count)};
    Positions positions;
    for (int i = 0; i < count; ++i) {
        std::optional<CaptureFormat> format = ReadFormat(*m_config.Get(), i);
        if (!format) {
            continue;
        }
        if (inUse != nullptr && format->Covers(*inUse)) {
            format->SetType(std::exchange(inUse, nullptr));  // the first that covers it
            formats.current = formats.offered.size();
        }
        if (HasPosition(*format)) {
            MoveToPosition(&*format, &positions);
        }
        formats.offered.push_back(std::move(*format));
    }
    return formats;
}

void CapturePin::MoveToPosition(CaptureFormat* format, Positions* positions) const {
    // The camera knows best where the area lies: it can be moved while the pin streams. Asked once for all the pixel
    // formats of a mode.
    const auto [known, isNew] = positions->try_emplace(format->Mode()->mode);
    ULONG x = 0;
    ULONG y = 0;
    if (isNew && m_camera.PropertySet().GetImagePositionForMediaType(&x, &y, &format->Type()) == S_OK) {
        known->second = POINT{static_cast<LONG>(x), static_cast<LONG>(y)};
    }
    if (known->second) {
        format->MoveTo(known->second->x, known->second->y);
    }
}

void CapturePin::Apply(CaptureFormat& format) const {
    const std::string intention = "cannot set the format to " + format.ModeText() + " " + format.PixelText();
    const Area area = format.CurrentArea();
    Check(m_camera.PropertySet().ApplyMediaTypeComposite(m_pin.Get(), &format.Type(), &format.Caps()),
          intention + ", " + area.Text());
    if (!HasPosition(format)) {
        return;
    }
    const HRESULT hr = m_camera.PropertySet().SetImagePositionForMediaType(static_cast<ULONG>(area.x),
                                                                           static_cast<ULONG>(area.y), &format.Type());
    if (hr != S_OK) {
        throw CallError("cannot set the position to " + std::to_string(area.x) + "," + std::to_string(area.y), hr,
                        "everything else of the format has been set");
    }
}

}  // namespace kolmctl
