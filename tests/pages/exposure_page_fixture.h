#pragma once
/// @file  Page "Exposure" in a frame, for the tests of its groups and of its shutter.

#include <memory>
#include <string>

#include "support/page_host.h"

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
class ExposurePage : public PageTest {
protected:
    /// A page on this test's camera; its own requests are forgotten.
    std::unique_ptr<CPageHost> Open() {
        auto host = std::make_unique<CPageHost>(CLSID_KolmFluxorPage_Exposure, Object());
        m_opening = Object().Sent();
        return host;
    }
    ULONG WordOf(ULONG id, ULONG offset = 24) {
        std::uint32_t word = 0;
        EXPECT_TRUE(Camera().GetFeatureWord(id, offset, &word));
        return word;
    }
    void SetWord(ULONG id, ULONG offset, ULONG word) { EXPECT_TRUE(Camera().SetFeatureWord(id, offset, word)); }
    static std::string Number(ULONG number) { return std::to_string(static_cast<int>(number)); }

    Wire m_opening;  ///< what opening the page sent
};

}  // namespace kolmfluxor::test
