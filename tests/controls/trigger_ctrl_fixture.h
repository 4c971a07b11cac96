#pragma once
/// @file  The trigger group in a bare window, on an interface that a test scripts.

#include <gtest/gtest.h>

#include <array>
#include <string>
#include <utility>
#include <vector>

#include <windows.h>

#include <commctrl.h>

#include "pages/trigger_ctrl.h"
#include "support/control_window.h"
#include "support/property_set_stub.h"

namespace kolmfluxor::test {

inline constexpr TriggerIds kIds = {
    .groupBox = 101,
    .modeCombo = 102,
    .sourceCombo = 103,
    .parameterLabel = 104,
    .parameterEdit = 105,
    .parameterUpDown = 106,
    .onBox = 107,
    .invertedBox = 108,
    .normalPictures = {201, 202, 203, 204, 205, 206, 207},
    .invertedPictures = {301, 302, 303, 304, 305, 306, 307},
};

inline constexpr ULONG kEverything = 0xC03F0FE0;
inline constexpr ULONG kNothingSelected = 0xFFFFFFFF;

struct ModeRow {
    const char* text;
    ULONG mask;
    const char* caption;  ///< "" leaves the one before
    const char* label;    ///< "" for a mode without a parameter
    int picture;          ///< of the normal polarity; 0 for none
};
inline constexpr ModeRow kModes[] = {
    {"Mode0", 0x10000, "Trigger: Edge mode", "", 201},
    {"Mode1", 0x20000, "Trigger: Level mode", "", 202},
    {"Mode2", 0x40000, "", "", 203},
    {"Mode3", 0x80000, "", "cycle", 204},
    {"Mode4", 0x100000, "", "trigger cnt", 205},
    {"Mode5", 0x200000, "", "trigger cnt", 206},
    {"Mode14", 0x40000000, "", "", 0},
    {"Mode15", 0x80000000, "Trigger: Bulk mode", "", 207},
};

class CTriggerCamera final : public CPropertySetStub {
public:
    HRESULT inquiryResult = S_OK;
    HRESULT readResult = S_OK;
    HRESULT writeResult = S_OK;
    ULONG inquiry = kEverything;
    ULONG mode = 0x10000;
    ULONG on = 0;
    ULONG polarity = 0;
    bool tellsMode = true;
    std::vector<std::array<ULONG, 4>> written;

    HRESULT STDMETHODCALLTYPE GetTriggerInquiry(ULONG* out) override {
        *out = inquiry;
        return inquiryResult;
    }
    HRESULT STDMETHODCALLTYPE GetTrigger(ULONG* modeOut, ULONG* onOut, ULONG* polarityOut, ULONG* flagOut) override {
        if (tellsMode) *modeOut = mode;
        *onOut = on;
        *polarityOut = polarity;
        *flagOut = 1;
        return readResult;
    }
    HRESULT STDMETHODCALLTYPE SetTrigger(ULONG modeIn, ULONG onIn, ULONG polarityIn, ULONG parameter) override {
        written.push_back({modeIn, onIn, polarityIn, parameter});
        return writeResult;
    }
};

class TriggerCtrl : public ::testing::Test {
protected:
    TriggerCtrl() {
        const INITCOMMONCONTROLSEX classes = {.dwSize = sizeof classes, .dwICC = ICC_BAR_CLASSES};
        EXPECT_TRUE(::InitCommonControlsEx(&classes));
        m_window.Add("BUTTON", kIds.groupBox, BS_GROUPBOX);
        for (const int id : {kIds.modeCombo, kIds.sourceCombo})
            m_window.Add("COMBOBOX", id, CBS_DROPDOWNLIST | WS_DISABLED);
        m_window.Add("STATIC", kIds.parameterLabel);
        m_window.Add("EDIT", kIds.parameterEdit);
        m_window.Add(UPDOWN_CLASSA, kIds.parameterUpDown, UDS_SETBUDDYINT | UDS_AUTOBUDDY | UDS_NOTHOUSANDS);
        for (const int id : {kIds.onBox, kIds.invertedBox})
            m_window.Add("BUTTON", id, BS_AUTOCHECKBOX);
        for (const auto& pictures : {kIds.normalPictures, kIds.invertedPictures}) {
            for (const int id : pictures)
                m_window.Add("STATIC", id);
        }
    }

    [[nodiscard]] HWND Control(int id) const { return ::GetDlgItem(m_window.Handle(), id); }
    LRESULT Send(int id, UINT message, WPARAM wParam = 0, LPARAM lParam = 0) const {
        return ::SendMessageA(Control(id), message, wParam, lParam);
    }
    [[nodiscard]] std::vector<std::string> Entries(int combo) const {
        std::vector<std::string> entries;
        for (LRESULT i = 0; i < Send(combo, CB_GETCOUNT); ++i) {
            std::array<char, 64> text{};
            Send(combo, CB_GETLBTEXT, static_cast<WPARAM>(i), reinterpret_cast<LPARAM>(text.data()));
            entries.emplace_back(text.data());
        }
        return entries;
    }
    [[nodiscard]] LRESULT Selection(int combo) const { return Send(combo, CB_GETCURSEL); }
    void Type(const char* text) { ::SetWindowTextA(Control(kIds.parameterEdit), text); }

    /// Visible pictures; each must be enabled, all others disabled.
    [[nodiscard]] std::vector<int> Pictures() const {
        std::vector<int> visible;
        for (const auto& pictures : {kIds.normalPictures, kIds.invertedPictures}) {
            for (const int id : pictures) {
                const bool shown = ::IsWindowVisible(Control(id)) != FALSE;
                EXPECT_EQ(m_window.IsEnabled(id), shown) << id;
                if (shown) visible.push_back(id);
            }
        }
        return visible;
    }
    void ExpectParameter(bool on, const std::string& label) const {
        EXPECT_EQ(m_window.Text(kIds.parameterLabel), label);
        for (const int id : {kIds.parameterLabel, kIds.parameterEdit, kIds.parameterUpDown})
            EXPECT_EQ(m_window.IsEnabled(id), on) << id;
    }

    CControlWindow m_window;
    CTriggerCamera m_camera;
    CIIDCTriggerCtrl m_trigger{kIds, m_window.Place()};
};

}  // namespace kolmfluxor::test
