#pragma once
/// @file  Uploads through the camera's general-purpose buffer: look-up tables and shading images.

#include "driver/register_access.h"

namespace kolmfluxor {

/// See `IKolmFluxorPropertySet::UploadLut`.
HRESULT UploadLut(const CRegisterAccess& registers, const ULONG* data, ULONG quadlets, ULONG lutNumber);

/// Highest memory channel and size in quadlets of the camera's shading memory; outputs are written on success.
HRESULT ReadShadingInfo(const CRegisterAccess& registers, ULONG* maxChannel, ULONG* quadlets);

/// Uploads a shading image to the start of the shading memory.
///
/// @return  `E_POINTER`; `E_INVALIDARG` for more quadlets than the memory has; `E_FAIL` without a GP buffer
HRESULT UploadShading(const CRegisterAccess& registers, const ULONG* data, ULONG quadlets);

}  // namespace kolmfluxor
