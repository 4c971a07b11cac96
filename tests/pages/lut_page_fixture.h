#pragma once
/// @file  Page "LUT" in a frame, for the tests of its camera side and of its files.

#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "support/lut_text_file.h"
#include "support/modal_user.h"
#include "support/page_host.h"

namespace kolmfluxor::test {

constexpr int kEnable = 1055;
constexpr int kFunction = 1057;
constexpr int kLoad = 1063;
constexpr int kToCamera = 1064;
constexpr int kNumber = 1152;
constexpr int kEditorGroup = 1158;
constexpr int kLoaded = 1159;
constexpr int kPicture = 1160;
constexpr int kControlGroup = 1161;

constexpr ULONG kLutControlId = 31;
constexpr ULONG kLutBitsId = 63;

using Messages = std::vector<SeenMessage>;

/// What the page says of a table whose size is not that of the camera's.
constexpr const char* kNotEqual = "LUT elements count and found elements are not equal";

/// A color camera and its LUT page.
class LutPage : public PageTest {
protected:
    /// A page on this test's camera; its own requests are forgotten.
    std::unique_ptr<CPageHost> Open() {
        auto host = std::make_unique<CPageHost>(CLSID_KolmFluxorPage_Lut, Object());
        m_opening = Object().Sent();
        return host;
    }
    /// The camera tells these figures of its LUTs, whatever they really are.
    void Tell(ULONG sizeBytes, ULONG bits) {
        Object().Patch(kLutControlId, 36, sizeBytes);
        Object().Patch(kLutBitsId, 24, bits);
    }
    void TellNumbers(ULONG current, ULONG count) {
        Object().Patch(kLutControlId, 24, current);
        Object().Patch(kLutControlId, 40, count);
    }

    /// The user loads a file. @return  what the page said
    static Messages Load(CPageHost& page, const std::string& content) {
        const CLutTextFile file(content);
        CModalUser user(file.Path());
        page.Click(kLoad);
        return user.Messages();
    }
    static Messages Said(const char* text) { return {{"LoadFromFile Error", text}}; }

    /// Runs all messages that wait, paint messages among them.
    static void Settle(const CPageHost& page) {
        MSG message{};
        while (::PeekMessageA(&message, nullptr, 0, 0, PM_REMOVE))
            ::DispatchMessageA(&message);
        ::RedrawWindow(page.Dialog(), nullptr, nullptr, RDW_UPDATENOW | RDW_ALLCHILDREN);
    }

    Wire m_opening;  ///< what opening the page sent
};

}  // namespace kolmfluxor::test
