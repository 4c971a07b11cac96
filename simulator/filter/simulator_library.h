#pragma once
/// @file  Loads the stand-in `ksproxy.ax` and opens a simulated camera in it.

#include <memory>
#include <type_traits>

#include <windows.h>

#include "ksproxy/simulator_control.h"

namespace kolmsim {

struct LibraryFreer {
    using pointer = HMODULE;
    void operator()(HMODULE library) const noexcept { ::FreeLibrary(library); }
};
using UniqueLibrary = std::unique_ptr<std::remove_pointer_t<HMODULE>, LibraryFreer>;

struct CameraCloser {
    void operator()(ISimulatedCamera* camera) const noexcept { camera->Close(); }
};
using UniqueCamera = std::unique_ptr<ISimulatedCamera, CameraCloser>;

/// A simulated camera and the library that it lives in.
struct OpenedCamera {
    UniqueLibrary library;  ///< declared first: freed after the camera is closed
    UniqueCamera camera;    ///< null when opening failed
};

/// Opens the camera of a variant.
///
/// The library is the `ksproxy.ax` beside this one, loaded by full path: a module loaded later that imports from
/// `ksproxy.ax` is bound to it. Its memory is kept in a file: the one that the environment variable KOLMSIM_STATE
/// names, else %LOCALAPPDATA%\KolmFluxor\simulated-<variant>.camera. With KOLMSIM_STATE=none, or where the file
/// cannot be opened, the camera is a private one in its factory state. KOLMSIM_FAULTS names faults that wait for it, as
/// fault_text.h tells.
///
/// @param hr  set to a failure when there is no such camera; E_INVALIDARG, with a message on the error stream, for
///            faults that cannot be understood
[[nodiscard]] OpenedCamera OpenVariant(const wchar_t* variant, HRESULT* hr);

}  // namespace kolmsim
