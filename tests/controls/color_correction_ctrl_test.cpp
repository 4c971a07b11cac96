/// @file  The color correction group by itself, with each of the interface's answers scripted.

#include "pages/color_correction_ctrl.h"

#include <gtest/gtest.h>

#include <limits>
#include <map>
#include <optional>
#include <string>
#include <tuple>
#include <vector>

#include <windows.h>

#include <commctrl.h>

#include "driver/lockable.h"
#include "support/control_window.h"
#include "support/patched_import.h"
#include "support/property_set_stub.h"
#include "support/thrown_text.h"

extern "C" void* __imp_WaitForSingleObject;
extern "C" void* __imp_CreateMutexA;

namespace kolmfluxor::test {
namespace {

constexpr ColorCorrectionIds kIds = {
    .groupBox = 100,
    .coefficients =
        {{{201, 301}, {202, 302}, {203, 303}, {204, 304}, {205, 305}, {206, 306}, {207, 307}, {208, 308}, {209, 309}}},
    .modeCombo = 101,
};

/// Notes the calls in order, and fails the one with a number.
class CScriptedCamera final : public CPropertySetStub {
public:
    std::vector<std::string> calls;
    std::size_t failAt = 0;  ///< 1-based; 0 for none
    HRESULT code = E_ACCESSDENIED;
    BOOL present = TRUE;
    BOOL on = TRUE;
    bool setsOn = true;
    std::map<ULONG, ULONG> registers;

    HRESULT STDMETHODCALLTYPE IsFeaturePresent(ULONG id, BOOL* out) override {
        *out = present;
        return Note("present " + std::to_string(id));
    }
    HRESULT STDMETHODCALLTYPE GetColorCorrectionOnOff(BOOL* out) override {
        if (setsOn) *out = on;
        return Note("on");
    }
    HRESULT STDMETHODCALLTYPE ReadRegister(ULONG address, ULONG* out) override {
        *out = registers[address];
        return Note("read " + std::to_string(address - 0xF10003A0));
    }
    HRESULT STDMETHODCALLTYPE WriteRegister(ULONG address, ULONG value) override {
        return Note("write " + std::to_string(address - 0xF10003A0) + " " + std::to_string(static_cast<int>(value)));
    }

private:
    HRESULT Note(std::string call) {
        calls.push_back(std::move(call));
        return calls.size() == failAt ? code : S_OK;
    }
};

class ColorCorrection : public ::testing::Test {
protected:
    ColorCorrection() {
        const INITCOMMONCONTROLSEX classes = {.dwSize = sizeof classes, .dwICC = ICC_BAR_CLASSES};
        EXPECT_TRUE(::InitCommonControlsEx(&classes));
        m_window.Add("BUTTON", kIds.groupBox, BS_GROUPBOX);
        m_window.Add("COMBOBOX", kIds.modeCombo, CBS_DROPDOWNLIST | CBS_SORT);
        for (const auto& [edit, upDown] : kIds.coefficients) {
            m_window.Add("EDIT", edit);
            m_window.Add(UPDOWN_CLASSA, upDown);
        }
        m_group.SetRange(-1000, 2000);
        m_group.FillModes();
        m_group.Enable(false);
    }

    void ExpectEnabled(bool group, bool coefficients) {
        EXPECT_EQ(m_window.IsEnabled(kIds.groupBox), group);
        EXPECT_EQ(m_window.IsEnabled(kIds.modeCombo), group);
        for (const auto& [edit, upDown] : kIds.coefficients) {
            EXPECT_EQ(m_window.IsEnabled(edit), coefficients) << edit;
            EXPECT_EQ(m_window.IsEnabled(upDown), coefficients) << upDown;
        }
    }

    CControlWindow m_window;
    CColorCorrectionCtrl m_group{kIds, m_window.Place()};
    CScriptedCamera m_camera;
};

const std::vector<std::string> kRefresh = {"present 521", "on",      "read 4",  "read 8",  "read 12", "read 16",
                                           "read 20",     "read 24", "read 28", "read 32", "read 36"};

TEST_F(ColorCorrection, says_its_text_when_there_is_no_dialog) {
    HWND none = nullptr;
    for (const HWND* place : {static_cast<const HWND*>(nullptr), static_cast<const HWND*>(&none)}) {
        CColorCorrectionCtrl group(kIds, place);
        constexpr char kText[] = "null pointer: pointer to dialog still NULL";
        EXPECT_EQ(ThrownText([&] { group.SetCaption("x"); }), kText);
        EXPECT_EQ(ThrownText([&] { group.Enable(false); }), kText);
        EXPECT_EQ(ThrownText([&] { group.SetRange(0, 1); }), kText);
        EXPECT_EQ(ThrownText([&] { std::ignore = group.SelectedMode(); }), kText);
        EXPECT_EQ(ThrownText([&] { std::ignore = group.Refresh(&m_camera); }), kText);
        EXPECT_EQ(ThrownText([&] { std::ignore = group.OnEdited(201, &m_camera); }), kText);
    }
}

TEST_F(ColorCorrection, clamps_to_its_range) {
    struct Row {
        int value, clamped;
    };
    for (const auto& [value, clamped] : {Row{-1001, -1000},
                                         {-1000, -1000},
                                         {0, 0},
                                         {2000, 2000},
                                         {2001, 2000},
                                         {std::numeric_limits<int>::min(), -1000},
                                         {std::numeric_limits<int>::max(), 2000}}) {
        EXPECT_EQ(m_group.Clamp(value), clamped);
        EXPECT_EQ(m_group.InRange(value), value == clamped);
    }
    m_group.SetRange(5, 3);
    EXPECT_EQ(m_group.Clamp(4), 5) << "below the minimum: the minimum";
    EXPECT_EQ(m_group.Clamp(5), 3) << "else the smaller of the number and the maximum";
}

TEST_F(ColorCorrection, selects_by_data) {
    EXPECT_EQ(m_group.SelectedMode(), 0xFFFFFFFFu);
    for (const ULONG mode : {0UL, 1UL, 2UL}) {
        EXPECT_TRUE(m_group.SelectMode(mode));
        EXPECT_EQ(m_group.SelectedMode(), mode);
    }
    EXPECT_FALSE(m_group.SelectMode(3));
    EXPECT_EQ(m_group.SelectedMode(), 2u);
    EXPECT_EQ(m_window.Text(kIds.modeCombo), "Reset");
    m_group.SelectMode(1);
    EXPECT_EQ(m_window.Text(kIds.modeCombo), "Manual");
    m_group.SelectMode(0);
    EXPECT_EQ(m_window.Text(kIds.modeCombo), "Off");
}

TEST_F(ColorCorrection, enables_all_or_the_coefficients_alone) {
    m_group.Enable(true);
    ExpectEnabled(true, true);
    m_group.EnableCoefficients(false);
    ExpectEnabled(true, false);
    m_group.EnableCoefficients(true);
    m_group.Enable(false);
    ExpectEnabled(false, false);
}

TEST_F(ColorCorrection, a_refresh_asks_in_this_order_and_shows_the_registers_row_by_row) {
    for (ULONG i = 0; i < 9; ++i)
        m_camera.registers[0xF10003A4 + 4 * i] = i - 4;
    EXPECT_EQ(m_group.Refresh(&m_camera), S_OK);
    EXPECT_EQ(m_camera.calls, kRefresh);
    ExpectEnabled(true, true);
    EXPECT_EQ(m_group.SelectedMode(), 1u);
    const int kShown[] = {-4, -1, 2, -3, 0, 3, -2, 1, 4};  // the edits stand column by column
    for (std::size_t i = 0; i < std::size(kShown); ++i)
        EXPECT_EQ(m_window.Text(kIds.coefficients[i].edit), std::to_string(kShown[i])) << i;
}

TEST_F(ColorCorrection, a_camera_without_it_leaves_the_controls_untouched) {
    for (const BOOL present : {FALSE, 2, -1}) {
        CScriptedCamera camera;
        camera.present = present;
        EXPECT_EQ(m_group.Refresh(&camera), E_NOTIMPL) << present;
        EXPECT_EQ(camera.calls.size(), 1u);
        ExpectEnabled(false, false);
    }
    m_group.Enable(true);
    m_group.SelectMode(1);
    for (const HRESULT code : {E_ACCESSDENIED, static_cast<HRESULT>(S_FALSE)}) {
        CScriptedCamera camera;
        camera.failAt = 1;
        camera.code = code;
        EXPECT_EQ(m_group.Refresh(&camera), code);
        EXPECT_EQ(camera.calls.size(), 1u);
        ExpectEnabled(true, true);
        EXPECT_EQ(m_group.SelectedMode(), 1u);
    }
}

TEST_F(ColorCorrection, each_later_call_failing_in_turn) {
    for (const HRESULT code : {E_ACCESSDENIED, static_cast<HRESULT>(S_FALSE)}) {
        for (std::size_t nth = 2; nth <= kRefresh.size(); ++nth) {
            SCOPED_TRACE(kRefresh[nth - 1]);
            CScriptedCamera camera;
            camera.failAt = nth;
            camera.code = code;
            const bool first = kRefresh[nth - 1] == "read 4";

            EXPECT_EQ(m_group.Refresh(&camera), first ? code : S_OK);

            EXPECT_EQ(camera.calls.size(), first ? nth : kRefresh.size());
            ExpectEnabled(true, !first);
            const bool switchFailed = kRefresh[nth - 1] == "on";
            EXPECT_EQ(m_group.SelectedMode(), switchFailed ? 0u : 1u) << "its answer says on, even where it failed";
        }
    }
}

TEST_F(ColorCorrection, a_switch_that_is_not_told_counts_as_off) {
    m_camera.setsOn = false;
    EXPECT_EQ(m_group.Refresh(&m_camera), S_OK);
    EXPECT_EQ(m_group.SelectedMode(), 0u);
}

/// Passes the edits' reports on to the group, as the page does, and counts them.
class CReporting {
public:
    CReporting(HWND window, CColorCorrectionCtrl& group, CScriptedCamera& camera)
        : m_seen(window, [&, this](UINT message, WPARAM wParam, LPARAM) -> std::optional<LRESULT> {
              if (message == WM_COMMAND && HIWORD(wParam) == EN_CHANGE) {
                  ++m_changes;
                  group.OnEdited(LOWORD(wParam), &camera);
              }
              return std::nullopt;
          }) {}

    [[nodiscard]] int Changes() const { return m_changes; }

private:
    int m_changes = 0;
    CSeenMessages m_seen;
};

TEST_F(ColorCorrection, a_refresh_takes_its_own_changes_for_nobodys) {
    const CReporting reporting(m_window.Handle(), m_group, m_camera);

    EXPECT_EQ(m_group.Refresh(&m_camera), S_OK);
    EXPECT_EQ(reporting.Changes(), 9) << "the edits do report";
    EXPECT_EQ(m_camera.calls, kRefresh) << "nothing was written";

    m_camera.calls.clear();
    ::SetDlgItemTextA(m_window.Handle(), 204, "-7000");
    EXPECT_EQ(m_camera.calls, (std::vector<std::string>{"write 16 -7000", "write 16 -1000"}));
}

TEST_F(ColorCorrection, a_minimum_above_the_maximum_clamps_once) {
    const CReporting reporting(m_window.Handle(), m_group, m_camera);
    m_group.SetRange(5, 3);
    struct Row {
        const char *typed, *clamped;
    };
    for (const auto& [typed, clamped] : {Row{"4", "5"}, {"5", "3"}, {"3", "5"}, {"-7", "5"}, {"9", "3"}}) {
        m_camera.calls.clear();
        ::SetDlgItemTextA(m_window.Handle(), 201, typed);
        EXPECT_EQ(m_camera.calls,
                  (std::vector<std::string>{std::string("write 4 ") + typed, std::string("write 4 ") + clamped}));
        EXPECT_EQ(m_window.Text(201), clamped);
    }
}

TEST_F(ColorCorrection, a_number_that_a_new_range_puts_into_an_edit_is_nobodys) {
    const CReporting reporting(m_window.Handle(), m_group, m_camera);
    const CSeenMessages eagerUpDown(::GetDlgItem(m_window.Handle(), 304),
                                    [&](UINT message, WPARAM wParam, LPARAM) -> std::optional<LRESULT> {
                                        // Puts a number into its edit as soon as it gets a range.
                                        if (message == UDM_SETRANGE32)
                                            ::SetDlgItemInt(m_window.Handle(), 204, static_cast<UINT>(wParam), TRUE);
                                        return std::nullopt;
                                    });

    m_group.SetRange(-7, 7);

    EXPECT_EQ(reporting.Changes(), 1) << "the edit does report";
    EXPECT_EQ(m_window.Text(204), "-7");
    EXPECT_EQ(m_camera.calls, std::vector<std::string>{});
    ::SetDlgItemTextA(m_window.Handle(), 204, "5");
    EXPECT_EQ(m_camera.calls, std::vector<std::string>{"write 16 5"}) << "the user's, again";
}

TEST_F(ColorCorrection, an_undo_that_brings_back_no_number_is_not_undone_again) {
    const CReporting reporting(m_window.Handle(), m_group, m_camera);
    HWND const edit = ::GetDlgItem(m_window.Handle(), 201);
    constexpr int kEnough = 10;  // without an end the stack would be used up
    int undos = 0;
    const CSeenMessages stubborn(edit, [&](UINT message, WPARAM, LPARAM) -> std::optional<LRESULT> {
        if (message != EM_UNDO) return std::nullopt;
        // The same text again, reported as a change.
        if (++undos < kEnough) {
            ::SendMessageA(m_window.Handle(), WM_COMMAND, MAKEWPARAM(201, EN_CHANGE), reinterpret_cast<LPARAM>(edit));
        }
        return TRUE;
    });
    for (const char* text : {"abc", "x"}) {
        undos = 0;
        ::SetDlgItemTextA(m_window.Handle(), 201, text);
        EXPECT_EQ(undos, 1) << text;
    }
    EXPECT_TRUE(m_camera.calls.empty());
}

TEST_F(ColorCorrection, knows_its_edits) {
    EXPECT_EQ(m_group.Refresh(&m_camera), S_OK);
    m_camera.calls.clear();
    for (const int id : {0, 100, 101, 200, 210, 301})
        EXPECT_FALSE(m_group.OnEdited(id, &m_camera)) << id;
    EXPECT_EQ(m_camera.calls.size(), 0u);
    std::vector<std::string> expected;
    for (std::size_t order = 0; order < 9; ++order) {
        EXPECT_TRUE(m_group.OnEdited(kIds.coefficients[order].edit, &m_camera));
        expected.push_back("write " + std::to_string(4 + 4 * order) + " 0");
    }
    EXPECT_EQ(m_camera.calls, expected);
}

int g_waits = 0;
DWORD WINAPI CountWait(HANDLE handle, DWORD milliseconds) {
    ++g_waits;
    return ::WaitForSingleObjectEx(handle, milliseconds, FALSE);
}

int g_mutexes = 0;
HANDLE WINAPI CountMutex(SECURITY_ATTRIBUTES* security, BOOL owned, const char* name) {
    ++g_mutexes;
    return ::CreateMutexExA(security, name, owned ? CREATE_MUTEX_INITIAL_OWNER : 0, MUTEX_ALL_ACCESS);
}

TEST_F(ColorCorrection, each_group_makes_a_lock_of_its_own) {
    const CPatchedImport patch(&__imp_CreateMutexA, reinterpret_cast<void*>(&CountMutex));
    g_mutexes = 0;
    const CColorCorrectionCtrl first(kIds, m_window.Place());
    EXPECT_EQ(g_mutexes, 1);
    const CColorCorrectionCtrl second(kIds, m_window.Place());
    EXPECT_EQ(g_mutexes, 2);
}

TEST_F(ColorCorrection, refresh_and_writes_do_not_take_the_lock) {
    const CPatchedImport patch(&__imp_WaitForSingleObject, reinterpret_cast<void*>(&CountWait));
    CLockable taken;
    g_waits = 0;
    ASSERT_TRUE(taken.Lock(0));
    taken.UnLock();
    ASSERT_EQ(g_waits, 1) << "a lock that is taken is counted";
    g_waits = 0;
    EXPECT_EQ(m_group.Refresh(&m_camera), S_OK);
    m_group.OnEdited(201, &m_camera);
    m_group.SelectMode(2);
    m_group.OnModeChosen(&m_camera);
    EXPECT_EQ(g_waits, 0);
}

}  // namespace
}  // namespace kolmfluxor::test
