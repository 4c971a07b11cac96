#pragma once
/// @file  One run of the program: COM, the global options, the camera that they choose, and the output.

#include <iosfwd>
#include <memory>
#include <optional>
#include <string>

#include "camera.h"
#include "output.h"

namespace kolmctl {

/// What the global options say.
struct GlobalOptions {
    std::string device;    ///< name, or part of it; empty for the first device with the property set
    std::string simulate;  ///< variant of the simulated camera; empty for none
    bool json = false;
    bool tsv = false;
};

/// COM on this thread for as long as it lives.
class ComApartment {
public:
    /// @throws CallError
    ComApartment();
    ~ComApartment();
    ComApartment(const ComApartment&) = delete;
    ComApartment& operator=(const ComApartment&) = delete;
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
    void OpenSimulatedCamera();
    void OpenNamedDevice();
    void OpenFirstDevice();

    ComApartment m_com;  ///< first: all below goes before COM does
    const GlobalOptions& m_options;
    Output m_output;
    std::unique_ptr<Camera> m_camera;
};

}  // namespace kolmctl
