#pragma once
/// @file  Page "Format" in a frame, on a pin whose answers are scripted and a simulated camera.

#include <algorithm>
#include <memory>
#include <string>
#include <vector>

#include <windows.h>

#include <commctrl.h>

#include "support/page_host.h"
#include "support/scripted_filter.h"

namespace kolmfluxor::test {

constexpr int kMode = 1068;
constexpr int kX = 1045;
constexpr int kY = 1046;
constexpr int kWidth = 1047;
constexpr int kHeight = 1048;
constexpr int kXSpin = 1072;
constexpr int kYSpin = 1073;
constexpr int kWidthSpin = 1074;
constexpr int kHeightSpin = 1075;
constexpr int kAreaControls[] = {kX, kY, kWidth, kHeight, kXSpin, kYSpin, kWidthSpin, kHeightSpin};
constexpr int kWidthMax = 1056;
constexpr int kHeightMax = 1057;
constexpr int kWidthUnit = 1058;
constexpr int kHeightUnit = 1059;
constexpr int kRateSlider = 1069;
constexpr int kRateMin = 1070;
constexpr int kRateMax = 1071;
constexpr int kRate = 1049;
constexpr int kChannel = 1155;
constexpr int kSpeed = 1152;
constexpr int kMultiShot = 1050;

constexpr ULONG kSpeedId = 54;
constexpr ULONG kChannelId = 55;
constexpr ULONG kGeometryId = 61;
constexpr ULONG kPositionId = 65;

/// The camera's request for the image position of a scalable mode.
inline CWireRequest GetPosition(ULONG mode) {
    return Get(kPositionId, 40).With(24, mode);
}
inline CWireRequest SetPosition(ULONG mode, ULONG x, ULONG y) {
    return Set(kPositionId, 40).With(24, mode).With(28, x).With(32, y);
}

/// A color camera whose filter has a scripted pin: two fixed modes, then two scalable ones.
class FormatPage : public PageTest {
protected:
    FormatPage() {
        m_script.formats = {FixedMode(640, 480, FourCc("Y800"), 8, 5), FixedMode(640, 480, FourCc("Y411"), 12, 2),
                            Format7Mode(0, 1280, 960), Format7Mode(1, 640, 480)};
        Object().Filter().Offer(IID_IBaseFilter, m_script.Filter());
        Place(0, 0);
    }

    /// The camera's answer to each question for an image position.
    void Place(ULONG x, ULONG y) {
        Object().Patch(kPositionId, 28, x);
        Object().Patch(kPositionId, 32, y);
    }
    /// A page on this test's camera; what opening it sent and called is kept apart.
    std::unique_ptr<CPageHost> Open() {
        m_script.calls.clear();
        auto host = std::make_unique<CPageHost>(CLSID_KolmFluxorPage_Format, Object());
        m_opening = Object().Sent();
        m_openingCalls = std::exchange(m_script.calls, {});
        return host;
    }
    /// A page that shows the format number `index`.
    std::unique_ptr<CPageHost> OpenAt(int index) {
        m_script.current = index;
        return Open();
    }

    /// A new camera, for a driver whose ranges differ: the object asks for them once.
    void RenewCamera() {
        Renew(L"color");
        Object().Filter().Offer(IID_IBaseFilter, m_script.Filter());
        Place(0, 0);
    }

    /// Types a text into an edit and leaves it.
    static void Type(CPageHost& page, int edit, const std::string& text) {
        ::SetWindowTextA(page.Control(edit), text.c_str());
        page.Notify(edit, EN_KILLFOCUS);
    }
    static std::vector<std::string> Area(const CPageHost& page) {
        return {page.Text(kX), page.Text(kY), page.Text(kWidth), page.Text(kHeight)};
    }
    static bool AreaIsEnabled(const CPageHost& page, bool enabled) {
        return std::ranges::all_of(kAreaControls, [&](int id) { return page.IsEnabled(id) == enabled; });
    }
    static LRESULT Scroll(const CPageHost& page, UINT message, int id) {
        return ::SendMessageA(page.Dialog(), message, MAKEWPARAM(SB_THUMBTRACK, 0),
                              reinterpret_cast<LPARAM>(page.Control(id)));
    }

    CScriptedFilter m_script;
    Wire m_opening;
    std::vector<std::string> m_openingCalls;
};

}  // namespace kolmfluxor::test
