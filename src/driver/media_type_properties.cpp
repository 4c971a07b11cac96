#include "driver/media_type_properties.h"

#include <cstddef>
#include <cstring>
#include <tuple>

#include <amvideo.h>

#include <wrl/client.h>

#include "base/handles.h"
#include "driver/property_table.h"

namespace kolmfluxor {
namespace {

constexpr ULONG kScalableFormat = 7;
constexpr std::size_t kHeaderSize = 88;
constexpr std::size_t kFormatWord = 36;
static_assert(sizeof(VIDEOINFOHEADER) == kHeaderSize && offsetof(VIDEOINFOHEADER, dwBitErrorRate) == kFormatWord);

/// The number of the scalable mode that a media type names, for the record of the image position.
HRESULT ScalableMode(const AM_MEDIA_TYPE* mt, ULONG* mode) {
    if (mt == nullptr) return E_POINTER;
    ULONG word = 0;
    const HRESULT hr = ReadIidcWord(*mt, &word);
    if (FAILED(hr)) return hr;
    if (word >> 8 != kScalableFormat) return E_INVALIDARG;
    *mode = word & 0xF;
    return S_OK;
}

}  // namespace

HRESULT ReadIidcWord(const AM_MEDIA_TYPE& mt, ULONG* word) {
    if (mt.cbFormat < kHeaderSize || mt.pbFormat == nullptr) return E_INVALIDARG;
    std::memcpy(word, mt.pbFormat + kFormatWord, sizeof *word);
    return S_OK;
}

// NOLINTNEXTLINE(readability-non-const-parameter): the answer is written through both
HRESULT GetImagePosition(const CDirectProperties& properties, ULONG* x, ULONG* y, const AM_MEDIA_TYPE* mt) {
    if (x == nullptr || y == nullptr) return E_POINTER;
    ULONG mode = 0;
    if (const HRESULT hr = ScalableMode(mt, &mode); FAILED(hr)) return hr;
    return properties.Get(property::kImagePosition, {x, y}, {mode});
}

HRESULT SetImagePosition(const CDirectProperties& properties, ULONG x, ULONG y, const AM_MEDIA_TYPE* mt) {
    ULONG mode = 0;
    if (const HRESULT hr = ScalableMode(mt, &mode); FAILED(hr)) return hr;
    ULONG actualX = x;
    ULONG actualY = y;
    const HRESULT hr = properties.Set(property::kImagePosition, {mode, x, y}, {&actualX, &actualY});
    if (FAILED(hr)) return hr;
    return actualX == x && actualY == y ? hr : E_INVALIDARG;
}

HRESULT ApplyMediaType(const CDirectProperties& properties, IUnknown* pin, AM_MEDIA_TYPE* mt,
                       const VIDEO_STREAM_CONFIG_CAPS* caps) {
    if (pin == nullptr || mt == nullptr || caps == nullptr) return E_POINTER;
    ULONG word = 0;
    if (const HRESULT hr = ReadIidcWord(*mt, &word); FAILED(hr)) return hr;
    Microsoft::WRL::ComPtr<IAMStreamConfig> config;
    if (const HRESULT hr = pin->QueryInterface(IID_PPV_ARGS(config.GetAddressOf())); FAILED(hr)) return hr;
    if ((word >> 8 & 0xFF) != kScalableFormat) return config->SetFormat(mt);

    // The driver takes a scalable mode's size from the type only while it accepts a geometry of its own.
    ULONG before = 0;
    if (const HRESULT hr = properties.Get(property::kProperty61, {&before}); FAILED(hr)) return hr;
    if (const HRESULT hr = properties.Set(property::kProperty61, {1}); FAILED(hr)) return hr;
    const ScopeExit restore([&] { std::ignore = properties.Set(property::kProperty61, {before}); });
    return config->SetFormat(mt);
}

}  // namespace kolmfluxor
