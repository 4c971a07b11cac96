#pragma once
/// @file  The cameras open in this process, by device handle.

#include <memory>

#include "ksproxy/simulated_camera.h"

namespace kolmsim {

/// Opens a camera; see KolmSimOpenCameraFunction. Null with the last error set.
[[nodiscard]] ISimulatedCamera* OpenCamera(const wchar_t* variant, const wchar_t* stateFile);

/// The open camera with this device handle, shared so that it survives a Close during a request; null when none has it.
[[nodiscard]] std::shared_ptr<SimulatedCamera> CameraOfHandle(HANDLE handle);

/// Takes a camera out of the registry; it is destroyed when the last request on it has ended.
void CloseCamera(SimulatedCamera* camera);

}  // namespace kolmsim
