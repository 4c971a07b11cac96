#pragma once
/// @file  One run of the program: COM, the global options, the camera that they choose, and the output.

#include <iosfwd>
#include <memory>

#include "camera_choice.h"
#include "com_apartment.h"
#include "output.h"

namespace kolmctl {

/// What the global options say.
struct GlobalOptions : CameraChoice {
    bool json = false;
    bool tsv = false;
};

/// Everything that a command works with.
class Session {
public:
    /// @param options  must outlive the session
    Session(const GlobalOptions& options, std::ostream& output);

    /// The camera that the global options choose, opened when it is first asked for.
    ///
    /// @throws DeviceError when no device can be chosen, CallError when it cannot be opened
    [[nodiscard]] Camera& OpenCamera();

    /// The property set of that camera.
    [[nodiscard]] kolmfluxor::IKolmFluxorPropertySet& PropertySet() { return OpenCamera().PropertySet(); }

    [[nodiscard]] Output& Out() { return m_output; }

private:
    ComApartment m_com;  ///< first: all below goes before COM does
    const GlobalOptions& m_options;
    Output m_output;
    std::unique_ptr<Camera> m_camera;
};

}  // namespace kolmctl
