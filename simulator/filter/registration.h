#pragma once
/// @file  Registration of the capture filters: as COM classes and among the video input devices.

#include <windows.h>

namespace kolmsim {

/// Registers both cameras; registering again is no error. Needs COM on the calling thread or initializes it.
HRESULT RegisterCameras();

/// Undoes RegisterCameras; what is not registered counts as undone.
HRESULT UnregisterCameras();

}  // namespace kolmsim
