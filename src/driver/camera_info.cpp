#include "driver/camera_info.h"

#include <algorithm>
#include <array>
#include <cstdio>
#include <cstring>

#include "base/handles.h"

namespace kolmfluxor {
namespace {

constexpr ULONG kCameraInfoId = 9;
constexpr std::size_t kTextSize = 256;

struct CameraInfoRecord {
    KSPROPERTY property;
    char texts[3][kTextSize];  // NUL-terminated when shorter
    ULONG number;
    ULONG padding;
};
static_assert(sizeof(CameraInfoRecord) == 800);
static_assert(offsetof(CameraInfoRecord, texts) == 24 && offsetof(CameraInfoRecord, number) == 792);

using UniqueText = UniqueCoTaskMem<char>;

UniqueText NewText(std::span<const char> characters) {
    UniqueText text(static_cast<char*>(::CoTaskMemAlloc(characters.size() + 1)));
    if (text == nullptr) return text;
    std::memcpy(text.get(), characters.data(), characters.size());
    text.get()[characters.size()] = '\0';
    return text;
}

/// The characters of a field up to its NUL; all of them when the driver left it out.
std::span<const char> TextOf(const char (&field)[kTextSize]) {
    return {std::begin(field), std::find(std::begin(field), std::end(field), '\0')};
}

}  // namespace

HRESULT ReadCameraInfo(const CPropertyTransport& transport, char** const (&texts)[3], ULONG* number) {
    if (std::ranges::find(texts, nullptr) != std::end(texts) || number == nullptr) return E_POINTER;

    CameraInfoRecord record{};
    const HRESULT hr = transport.Send(RequestKind::get, kCameraInfoId, record);
    if (FAILED(hr)) return hr;

    std::array<UniqueText, 3> copies;
    for (std::size_t i = 0; i < copies.size(); ++i) {
        copies[i] = NewText(TextOf(record.texts[i]));
        if (copies[i] == nullptr) return E_OUTOFMEMORY;
    }
    for (std::size_t i = 0; i < copies.size(); ++i)
        *texts[i] = copies[i].release();
    *number = record.number;
    return hr;
}

char* NewVersionText(ULONG version) {
    constexpr std::size_t kVersionSize = 6;
    const auto nibble = [version](int n) { return static_cast<int>((version >> (4 * n)) & 0xF); };
    std::array<char, 16> text{};
    std::snprintf(text.data(), text.size(), "%d%d.%d%d", nibble(3), nibble(2), nibble(1), nibble(0));
    // Compatibility: callers count on a block of exactly 6 bytes, in which nibbles of 10 and above do not fit.
    return NewText(std::span<const char>(text).first(std::min(std::strlen(text.data()), kVersionSize - 1))).release();
}

}  // namespace kolmfluxor
