#pragma once
/// @file  Page "Exposure" in a frame, for the tests of its groups and of its shutter.

#include <memory>

#include "pages/camera_page.h"

namespace kolmfluxor::test {

constexpr int kShutterGroup = 1090;
constexpr int kShutterMin = 1086;
constexpr int kShutterMax = 1088;
constexpr int kShutterSlider = 1085;
constexpr int kShutterEdit = 1087;
constexpr int kShutterMode = 1089;
constexpr int kTimeBase = 1091;
constexpr int kExtd = 1092;
constexpr int kUnit = 1153;

constexpr ULONG kShutterId = 5;
constexpr ULONG kTimeBaseId = 6;
constexpr ULONG kExtendedId = 7;
constexpr ULONG kAllModes = 0x2 | 0x4 | 0x8 | 0x10;

/// A color camera and its Exposure page.
class ExposurePage : public CameraPage {
protected:
    std::unique_ptr<CPageHost> Open() { return OpenPage(CLSID_KolmFluxorPage_Exposure); }
};

}  // namespace kolmfluxor::test
