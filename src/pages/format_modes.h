#pragma once
/// @file  The video formats that a camera's pin offers, as the Format page lists them.

#include <cstddef>
#include <optional>
#include <string>
#include <vector>

#include <windows.h>

#include <strmif.h>

#include <kolmfluxor/property_set.h>

#include "media/media_type_info.h"

namespace kolmfluxor {

/// A video capability of the pin.
struct FormatMode {
    int capability;    ///< index for `IAMStreamConfig::GetStreamCaps`
    std::string text;  ///< its line in the list, by `FormatModeText`
    CMediaTypeInfo info;
};

/// The result of `ReadFormatModes`.
struct FormatModes {
    std::vector<FormatMode> modes;         ///< in the pin's order
    std::optional<int> currentCapability;  ///< the last one that equals the pin's current format
};

/// Reads all video capabilities of a pin.
///
/// A capability that can't be read or is no video type with a whole `VIDEOINFOHEADER` is left out. Scalable ones get
/// the image offset that the camera has for their mode. A pin that claims more than 1024 capabilities is read that far.
///
/// @param pin     asked for `IAMStreamConfig`; may be null
/// @param camera  asked for image offsets; not null
/// @param found   emptied first, whatever the result
/// @return  `S_OK`; `E_POINTER` without a pin; the first code that is not `S_OK` of the query, `GetFormat` or
///          `GetNumberOfCapabilities`; `E_UNEXPECTED` when `GetFormat` succeeds without a format or the pin's
///          capability records are not 128 bytes long
[[nodiscard]] HRESULT ReadFormatModes(IUnknown* pin, IKolmFluxorPropertySet* camera, FormatModes& found);

/// The index into the modes that the data of their combo's entry names.
///
/// @param entryData  a capability's index, as the combo keeps it
/// @param modeCount  how many modes there are
/// @throws CKolmFluxorException  "index into media info store out of bounds", code 5, when there is no such mode
[[nodiscard]] std::size_t FormatModeIndex(ULONG entryData, std::size_t modeCount);

/// A mode's line in the list: "DCam 640x480 YUV411[12Bit]" for a fixed mode, "F7M0 1280x960 Mono8[8Bit]" for a scalable
/// one, or "F7 …" when the type does not carry the number of the mode. Sizes are the largest ones, in pixels.
[[nodiscard]] std::string FormatModeText(const CMediaTypeInfo& info);

}  // namespace kolmfluxor
