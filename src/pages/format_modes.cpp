#include "pages/format_modes.h"

#include <algorithm>
#include <array>
#include <cstdio>
#include <tuple>

#include <wrl/client.h>

#include "media/subtype_name.h"
#include "pages/common/kolm_fluxor_exception.h"

namespace kolmfluxor {
namespace {

using Microsoft::WRL::ComPtr;

/// Far above what IIDC has room for: 3 fixed formats of 8 modes, 8 scalable modes of some 11 color codings.
constexpr int kMaxCapabilities = 1024;

/// A capability of the pin; nothing when it can't be read or is no video type.
std::optional<CMediaTypeInfo> ReadCapability(IAMStreamConfig& config, int index) {
    AM_MEDIA_TYPE* type = nullptr;
    VIDEO_STREAM_CONFIG_CAPS caps{};
    const HRESULT hr = config.GetStreamCaps(index, &type, reinterpret_cast<BYTE*>(&caps));
    const UniqueMediaType owner(type);
    if (hr != S_OK || type == nullptr) return std::nullopt;
    CMediaTypeInfo info(*type, caps);
    if (!info.IsInitialized() || !info.HeaderTypeInfo()) return std::nullopt;
    return info;
}

void ReadImagePosition(CMediaTypeInfo& info, IKolmFluxorPropertySet& camera) {
    ULONG x = 0;
    ULONG y = 0;
    std::ignore = camera.GetImagePositionForMediaType(&x, &y, &info.MediaType());  // without an answer: the corner
    info.XPos(static_cast<LONG>(x));
    info.YPos(static_cast<LONG>(y));
}

}  // namespace

HRESULT ReadFormatModes(IUnknown* pin, IKolmFluxorPropertySet* camera, FormatModes& found) {
    found = {};
    if (pin == nullptr) return E_POINTER;

    ComPtr<IAMStreamConfig> config;
    HRESULT hr = pin->QueryInterface(IID_PPV_ARGS(&config));
    if (hr != S_OK) return hr;

    AM_MEDIA_TYPE* format = nullptr;
    hr = config->GetFormat(&format);
    const UniqueMediaType current(format);
    if (hr != S_OK) return hr;
    if (current == nullptr) return E_UNEXPECTED;

    int count = 0;
    int recordBytes = 0;
    hr = config->GetNumberOfCapabilities(&count, &recordBytes);
    if (hr != S_OK) return hr;
    if (recordBytes != static_cast<int>(sizeof(VIDEO_STREAM_CONFIG_CAPS))) return E_UNEXPECTED;

    count = std::clamp(count, 0, kMaxCapabilities);
    found.modes.reserve(static_cast<std::size_t>(count));
    for (int i = 0; i < count; ++i) {
        std::optional<CMediaTypeInfo> info = ReadCapability(*config.Get(), i);
        if (!info) continue;
        std::string text = FormatModeText(*info);
        if (info->IsScalable()) ReadImagePosition(*info, *camera);
        if (*info == *current) found.currentCapability = i;
        found.modes.push_back({.capability = i, .text = std::move(text), .info = std::move(*info)});
    }
    return S_OK;
}

std::size_t FormatModeIndex(ULONG entryData, std::size_t modeCount) {
    const auto index = static_cast<LONG>(entryData);
    if (index < 0 || static_cast<std::size_t>(index) >= modeCount) {
        throw CKolmFluxorException("index into media info store out of bounds", 5);
    }
    return static_cast<std::size_t>(index);
}

std::string FormatModeText(const CMediaTypeInfo& info) {
    const bool scalable = info.IsScalable();
    std::array<char, 32> kind{"DCam"};
    if (scalable && info.HasEmbeddedFormatInfo()) {
        std::snprintf(kind.data(), kind.size(), "F7M%d", static_cast<int>(info.GetEmbeddedMode()));
    } else if (scalable) {
        kind = {"F7"};
    }
    std::array<char, 128> text{};
    std::snprintf(text.data(), text.size(), "%s %dx%d %s[%dBit]", kind.data(), static_cast<int>(info.MaxWidth()),
                  static_cast<int>(info.MaxHeight()), SubtypeName(info.MediaType()),
                  static_cast<int>(info.BitsPerPixel()));
    return text.data();
}

}  // namespace kolmfluxor
