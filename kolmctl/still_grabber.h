#pragma once
/// @file  Still pictures of a camera, through the module's still-image object.

#include <memory>

#include <windows.h>

#include <wrl/client.h>

#include <kolmfluxor/still_image.h>

#include "camera.h"
#include "format_choice.h"
#include "picture.h"

namespace kolmctl {

/// Takes pictures with a capture filter of its own, on the same device.
class StillGrabber {
public:
    /// @throws CallError
    explicit StillGrabber(const Device& device);

    /// Sets the device to a format. @throws what FormatChoice and CapturePin throw
    void SetFormat(const FormatChoice& choice);

    /// Takes a picture; waits for the camera's trigger when that is on.
    ///
    /// @throws CallError; Error for a pixel format that is no 24-bit color after the module's conversion
    [[nodiscard]] Picture Take();

private:
    Microsoft::WRL::ComPtr<kolmfluxor::IKolmStillImage> m_still;
    std::unique_ptr<Camera> m_camera;  ///< the object's filter
};

}  // namespace kolmctl
