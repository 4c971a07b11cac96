#pragma once
/// @file  Page "Trigger" in a frame, for the tests of its trigger group and of its template.

#include <array>
#include <memory>
#include <string>
#include <vector>

#include "pages/camera_page.h"

namespace kolmfluxor::test {

constexpr int kTriggerGroup = 1118;
constexpr int kTriggerMode = 1110;
constexpr int kTriggerSource = 1111;
constexpr int kParameterLabel = 1119;
constexpr int kParameterEdit = 1057;
constexpr int kParameterUpDown = 1060;
constexpr int kTriggerOn = 1055;
constexpr int kTriggerInverted = 1056;

constexpr ULONG kTriggerId = 53;
constexpr ULONG kDelayId = 40;
constexpr ULONG kDelayedIntegrationId = 39;

// Words of the trigger record
constexpr ULONG kParameterWord = 24;
constexpr ULONG kStateWord = 28;
constexpr ULONG kInquiryWord = 32;

/// A trigger mode, and what the page shows for it.
struct TriggerModeRow {
    const char* text;
    ULONG mask;
    const char* caption;                   ///< "" leaves the one before
    const char* label;                     ///< "" for a mode without a parameter
    int normal, inverted;                  ///< control of the picture; 0 for none
    int normalResource, invertedResource;  ///< the bitmap that it shows
};
// clang-format off
inline constexpr TriggerModeRow kTriggerModes[] = {
    {"Mode0",  0x00010000, "Trigger: Edge mode",  "",            1109, 1134, 206,  217},
    {"Mode1",  0x00020000, "Trigger: Level mode", "",            1112, 1135, 207,  218},
    {"Mode2",  0x00040000, "",                    "",            1113, 1136, 208,  219},
    {"Mode3",  0x00080000, "",                    "cycle",       1114, 1138, 209,  220},
    {"Mode4",  0x00100000, "",                    "trigger cnt", 1115, 1140, 210,  221},
    {"Mode5",  0x00200000, "",                    "trigger cnt", 1116, 1139, 211,  222},
    {"Mode14", 0x40000000, "",                    "",            0,    0,    0,    0},
    {"Mode15", 0x80000000, "Trigger: Bulk mode",  "",            1117, 1141, 1051, 216},
};

/// The two feature groups.
struct TriggerFeatureRow {
    const char* caption;
    ULONG driverId;
    int group, min, max, slider, edit, mode, unit;
};
inline constexpr TriggerFeatureRow kTriggerFeatures[] = {
    {"Trigger delay",              kDelayId,              1120, 1122, 1123, 1121, 1124, 1125, 1154},
    {"Delayed integration enable", kDelayedIntegrationId, 1131, 1127, 1129, 1126, 1128, 1130, 1155},
};
// clang-format on

/// A color camera and its Trigger page.
class TriggerPage : public CameraPage {
protected:
    /// A page on this test's camera; its own requests are forgotten.
    std::unique_ptr<CPageHost> Open() { return OpenPage(CLSID_KolmFluxorPage_Trigger); }

    /// The request that writes the trigger.
    static CWireRequest Write(ULONG state, ULONG parameter) {
        return Set(kTriggerId).With(kParameterWord, parameter).With(kStateWord, state);
    }
    static void Type(const CPageHost& page, const char* text) { ::SetWindowTextA(page.Control(kParameterEdit), text); }
    /// Controls of the pictures that can be seen; only those are enabled.
    static std::vector<int> Pictures(const CPageHost& page) {
        std::vector<int> shown;
        for (const TriggerModeRow& row : kTriggerModes) {
            for (const int id : {row.normal, row.inverted}) {
                if (id == 0) continue;
                const bool visible = ::IsWindowVisible(page.Control(id)) != FALSE;
                EXPECT_EQ(page.IsEnabled(id), visible) << id;
                if (visible) shown.push_back(id);
            }
        }
        return shown;
    }
    static std::vector<int> Only(int picture) { return picture == 0 ? std::vector<int>{} : std::vector{picture}; }
};

}  // namespace kolmfluxor::test
