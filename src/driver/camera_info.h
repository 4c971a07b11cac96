#pragma once
/// @file  Texts that identify a camera: three names and a number, two versions.

#include "driver/property_transport.h"

namespace kolmfluxor {

/// Reads the camera's names: one request of driver property 9.
///
/// @param texts   three; each gets a `CoTaskMemAlloc` block of its own, at most 256 characters and a NUL, freed by the
///                caller
/// @param number  the word behind them
/// @return  `E_POINTER` for a null output, the driver's failure, or `E_OUTOFMEMORY`; the outputs are left alone then
HRESULT ReadCameraInfo(const CPropertyTransport& transport, char** const (&texts)[3], ULONG* number);

/// A version word as text: the four nibbles of its low 16 bits as "ab.cd", so that 0x0312 gives "03.12".
///
/// The block has exactly 6 bytes and comes from `CoTaskMemAlloc`; nibbles of 10 and above take two characters, and what
/// does not fit is cut off.
/// @return  null when there is no memory
[[nodiscard]] char* NewVersionText(ULONG version);

}  // namespace kolmfluxor
