#pragma once
/// @file  The stand-in for ksproxy.ax and one camera behind it, asked through its one door.

#include <cstddef>
#include <cstdint>
#include <memory>
#include <utility>
#include <vector>

#include <windows.h>

#include <winioctl.h>

#include <ks.h>

#include <gtest/gtest.h>

#include "ksproxy/simulator_control.h"
#include "support/module.h"
#include "support/wire.h"

namespace kolmfluxor::test {

struct CameraCloser {
    void operator()(kolmsim::ISimulatedCamera* camera) const { camera->Close(); }
};
using UniqueCamera = std::unique_ptr<kolmsim::ISimulatedCamera, CameraCloser>;

/// Type of the export `KsSynchronousDeviceControl`.
using DeviceControl = HRESULT(WINAPI*)(HANDLE, ULONG, PVOID, ULONG, PVOID, ULONG, PULONG);

/// Driver ids of the features that these tests use.
inline constexpr std::uint32_t kGainId = 0;
inline constexpr std::uint32_t kBrightnessId = 4;
inline constexpr std::uint32_t kShutterId = 5;

class SimulatorTest : public ::testing::Test {
protected:
    SimulatorTest();

    /// Sends a record as the module does; the answer is in `record` afterwards.
    HRESULT Send(std::vector<std::uint8_t>& record, ULONG* returned = nullptr) const;

    /// A GET of a feature; its answer can be looked at with `Word`.
    HRESULT GetFeature(std::uint32_t id);

    /// A SET of gain in manual mode.
    HRESULT SetGain(std::uint32_t value);

    /// A word of the last feature answer.
    [[nodiscard]] std::uint32_t Word(std::size_t offset) const;

    /// The latest logged request.
    [[nodiscard]] kolmsim::SimRequest Last() const;

    static std::uint32_t GainOf(kolmsim::ISimulatedCamera& camera);
    static HRESULT Win32(ULONG error) { return static_cast<HRESULT>(0x80070000U | error); }

    DeviceControl m_control = nullptr;
    kolmsim::KolmSimOpenCameraFunction m_open = nullptr;
    UniqueCamera m_camera;  ///< a private color camera
    std::vector<std::uint8_t> m_record;
};

}  // namespace kolmfluxor::test
