#pragma once
/// @file  The pin that a capture filter delivers its pictures from, and its video formats.

#include <cstdint>
#include <map>
#include <optional>
#include <vector>

#include <windows.h>

#include <strmif.h>
#include <wrl/client.h>

#include "camera.h"
#include "capture_format.h"

namespace kolmctl {

/// All video formats of a pin.
struct CaptureFormats {
    std::vector<CaptureFormat> offered;
    /// Position of the current one in `offered`; its type is the one in use. Beyond the end when none of them is.
    std::size_t current;

    /// @throws Error when the pin's format is none of those that it offers
    [[nodiscard]] CaptureFormat& Current();
};

class CapturePin {
public:
    /// Finds the camera's first output pin. @param camera  must outlive the object
    ///
    /// @throws CallError when there is none, or it has no formats to choose
    explicit CapturePin(Camera& camera);

    /// Asks the pin for its formats, and the camera for the position of each scalable mode.
    ///
    /// @throws CallError
    [[nodiscard]] CaptureFormats Formats() const;

    /// Sets the pin and the camera to a format.
    ///
    /// @throws CallError
    void Apply(CaptureFormat& format) const;

private:
    /// Of scalable modes, by number; nothing where the camera does not tell it.
    using Positions = std::map<std::uint32_t, std::optional<POINT>>;

    /// Gives a scalable format the position that the camera has for its mode.
    void MoveToPosition(CaptureFormat* format, Positions* positions) const;

    Camera& m_camera;
    Microsoft::WRL::ComPtr<IPin> m_pin;
    Microsoft::WRL::ComPtr<IAMStreamConfig> m_config;
};

}  // namespace kolmctl
