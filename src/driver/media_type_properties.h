#pragma once
/// @file  Properties that are bound to a media type: the image position, and setting a type on a pin.

#include <strmif.h>

#include "driver/direct_property.h"

namespace kolmfluxor {

/// Reads the word of a media type's format block that carries the IIDC format (second byte) and mode (low byte).
///
/// @param mt  not null
/// @return  `E_INVALIDARG` when the block is absent or below 88 bytes, the size of `VIDEOINFOHEADER`
HRESULT ReadIidcWord(const AM_MEDIA_TYPE& mt, ULONG* word);

/// See `IKolmFluxorPropertySet::GetImagePositionForMediaType`.
HRESULT GetImagePosition(const CDirectProperties& properties, ULONG* x, ULONG* y, const AM_MEDIA_TYPE* mt);
/// See `IKolmFluxorPropertySet::SetImagePositionForMediaType`.
HRESULT SetImagePosition(const CDirectProperties& properties, ULONG x, ULONG y, const AM_MEDIA_TYPE* mt);
/// See `IKolmFluxorPropertySet::ApplyMediaTypeComposite`.
HRESULT ApplyMediaType(const CDirectProperties& properties, IUnknown* pin, AM_MEDIA_TYPE* mt,
                       const VIDEO_STREAM_CONFIG_CAPS* caps);

}  // namespace kolmfluxor
