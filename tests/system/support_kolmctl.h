#pragma once
/// @file  Runs kolmctl.exe on the registered module and the registered simulated camera.

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cstdint>
#include <memory>
#include <string>
#include <vector>

#include "ksproxy/simulator_control.h"
#include "support/process.h"

namespace kolmfluxor::test {

/// A library that can register itself; loaded as long as the object lives.
class CRegistrar {
public:
    explicit CRegistrar(const std::wstring& path);
    ~CRegistrar();
    CRegistrar(const CRegistrar&) = delete;
    CRegistrar& operator=(const CRegistrar&) = delete;

    void Register() const { Call("DllRegisterServer"); }
    void Unregister() const { Call("DllUnregisterServer"); }

private:
    /// Fails the test unless the entry point answers `S_OK`.
    void Call(const char* entryPoint) const;

    HMODULE m_library;
};

/// A device of another kind among the video input devices, as long as the object lives.
class COtherDevice {
public:
    COtherDevice(const wchar_t* friendlyName, REFCLSID filter);
    ~COtherDevice();
    COtherDevice(const COtherDevice&) = delete;
    COtherDevice& operator=(const COtherDevice&) = delete;

private:
    CLSID m_filter;
};

struct CameraCloser {
    void operator()(kolmsim::ISimulatedCamera* camera) const { camera->Close(); }
};
using UniqueCamera = std::unique_ptr<kolmsim::ISimulatedCamera, CameraCloser>;

/// Module and simulated camera are registered for all tests of a suite; each test has cameras in factory state.
class KolmctlTest : public ::testing::Test {
protected:
    static void SetUpTestSuite();
    static void TearDownTestSuite();
    void SetUp() override;
    void TearDown() override;

    /// Runs kolmctl.exe with these arguments.
    [[nodiscard]] static ProcessOutcome Kolmctl(const std::vector<std::wstring>& arguments,
                                                const std::string& input = {});

    /// The same on a camera with faults. @param faults  as KOLMSIM_FAULTS holds them
    [[nodiscard]] static ProcessOutcome KolmctlWithFaults(const std::wstring& faults,
                                                          const std::vector<std::wstring>& arguments);

    /// The runs of kolmctl from here on have a camera in factory state.
    void ChangeToFreshCamera() const;

    /// The camera that the runs of kolmctl share, seen from outside. @param variant  L"mono" or L"color"
    [[nodiscard]] UniqueCamera OpenCamera(const wchar_t* variant = L"color") const;

    /// A word of a feature's record as the color camera holds it.
    [[nodiscard]] std::uint32_t Word(std::uint32_t driverId, std::uint32_t offset) const;

    static const CRegistrar& Module();
    static const CRegistrar& CaptureFilter();

private:
    std::wstring m_stateFile;
};

/// Driver ids of the simulated camera's features, and places in their records.
inline constexpr std::uint32_t kGain = 0;
inline constexpr std::uint32_t kShutter = 5;
inline constexpr std::uint32_t kValue = 24;
inline constexpr std::uint32_t kMode = 28;
inline constexpr std::uint32_t kManualBit = 0x2;
inline constexpr std::uint32_t kAutoBit = 0x8;

/// Exit codes of kolmctl.
inline constexpr DWORD kSuccess = 0;
inline constexpr DWORD kRefused = 1;
inline constexpr DWORD kUsage = 2;
inline constexpr DWORD kNoDevice = 3;
inline constexpr DWORD kNoOutput = 4;

/// What kolmctl printed, for a message.
void PrintTo(const ProcessOutcome& outcome, std::ostream* stream);

/// A run that printed exactly this, and nothing on the error stream.
MATCHER_P(Prints, text, "") {
    return arg.exitCode == kSuccess && arg.out == text && arg.err.empty();
}

/// A run that failed with a code, printed nothing, and said this (among other things) on the error stream.
MATCHER_P2(Fails, exitCode, message, "") {
    return arg.exitCode == exitCode && arg.out.empty() && arg.err.starts_with("kolmctl: ") &&
           arg.err.find(message) != std::string::npos;
}

}  // namespace kolmfluxor::test
