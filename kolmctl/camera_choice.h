#pragma once
/// @file  Which camera a command line means, and how it is opened.

#include <memory>
#include <string>

#include "camera.h"

namespace CLI {
class App;
}

namespace kolmctl {

/// What the options --device and --simulate say.
struct CameraChoice {
    std::string device;    ///< name, part of it, or position; empty for the first device with the property set
    std::string simulate;  ///< variant of the simulated camera; empty for none
};

/// Declares these two options. @param choice  receives their values; must live as long as the parser
void DeclareCameraOptions(CLI::App& parser, CameraChoice* choice);

/// Opens the camera that is chosen.
///
/// @return  a camera that has the property set
/// @throws  DeviceError when no device can be chosen, CallError when it cannot be opened
[[nodiscard]] std::unique_ptr<Camera> OpenChosenCamera(const CameraChoice& choice);

}  // namespace kolmctl
