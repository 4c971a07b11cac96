#pragma once
/// @file  The two capture filters that this library offers.

#include <array>

#include <guiddef.h>

namespace kolmsim {

/// {0E79EF7D-6A17-4DE4-9FDF-A94FEB69860B}  Capture filter of the simulated color camera.
inline constexpr CLSID CLSID_SimulatedColorCamera = {
    0x0E79EF7D, 0x6A17, 0x4DE4, {0x9F, 0xDF, 0xA9, 0x4F, 0xEB, 0x69, 0x86, 0x0B}};

/// {44B885A0-5ACE-448D-91C1-98C06F8A5103}  Capture filter of the simulated monochrome camera.
inline constexpr CLSID CLSID_SimulatedMonoCamera = {
    0x44B885A0, 0x5ACE, 0x448D, {0x91, 0xC1, 0x98, 0xC0, 0x6F, 0x8A, 0x51, 0x03}};

/// One creatable capture filter.
struct CameraClass {
    const CLSID* classId;
    const wchar_t* variant;       ///< as KolmSimOpenCamera takes it
    const wchar_t* friendlyName;  ///< in the class key and among the video input devices
};

inline constexpr std::array<CameraClass, 2> kCameraClasses = {{
    {&CLSID_SimulatedColorCamera, L"color", L"KolmFluxor simulated camera (color)"},
    {&CLSID_SimulatedMonoCamera, L"mono", L"KolmFluxor simulated camera (mono)"},
}};

}  // namespace kolmsim
