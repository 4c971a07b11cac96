#pragma once
/// @file  Page "Smart feat. 1" in a frame, for the tests of its test images and of its feature groups.

#include <memory>

#include <windows.h>

#include <commctrl.h>

#include "pages/camera_page.h"

namespace kolmfluxor::test {

constexpr int kTestImageGroup = 1134;
constexpr int kTestImageLabel = 1135;
constexpr int kTestImages = 1136;
constexpr ULONG kTestImageId = 3;

constexpr GroupRow kGroups[] = {
    {"High snr", 41, 1146, 1147, 1148, 1151, 1149, 1150},
    {"DSNU correction", 32, 1157, 1153, 1155, 1152, 1154, 1156},
};
constexpr ULONG kManual = 0x2;
constexpr ULONG kOff = 0x4;

/// A color camera and its page; High snr is switched on, so that its slider can be moved.
class Smart01Page : public CameraPage {
protected:
    Smart01Page() { SetWord(41, 28, kManual); }

    std::unique_ptr<CPageHost> Open() { return OpenPage(CLSID_KolmFluxorPage_Smart01); }
    void RenewSwitchedOn() {
        Renew(L"color");
        SetWord(41, 28, kManual);
    }
    /// Moves a trackbar and reports it in one way of many.
    static void Scroll(const CPageHost& page, int slider, UINT code, LONG position) {
        ::SendMessageA(page.Control(slider), TBM_SETPOS, TRUE, position);
        ::SendMessageA(page.Dialog(), WM_HSCROLL, MAKEWPARAM(code, code == TB_THUMBTRACK ? position : 0),
                       reinterpret_cast<LPARAM>(page.Control(slider)));
    }
    /// One write, its read-back, and the poll after it.
    static Wire Written(ULONG id, LONG value, ULONG mode = kManual) {
        return {Set(id).With(24, static_cast<std::uint32_t>(value)).With(28, mode), Get(id), Get(id)};
    }
};

}  // namespace kolmfluxor::test
