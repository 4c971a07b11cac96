/// @file  Choosing a device: what is read of each, what is passed over, and what every failure leaves behind.

#include <string>

#include "media/still_fixture.h"

namespace kolmfluxor::test {
namespace {

class StillDevice : public StillFixture {
protected:
    StillDevice() {
        m_devices->devices = {{.displayName = L"path 0", .friendlyName = L"first", .filter = m_filters[0].Filter()},
                              {.displayName = L"path 1", .friendlyName = L"second", .filter = m_filters[1].Filter()},
                              {.displayName = L"path 2", .friendlyName = L"second", .filter = m_filters[2].Filter()}};
    }
    ~StillDevice() override { m_still->Close(); }

    /// Which of the filters is selected; -1: none.
    int Selected() {
        Microsoft::WRL::ComPtr<IUnknown> device;
        const HRESULT hr = m_still->GetDeviceUnknown(device.GetAddressOf());
        for (int i = 0; i < 3; ++i) {
            if (device.Get() == m_filters[i].Filter()) return i;
        }
        EXPECT_EQ(hr, E_FAIL);
        return -1;
    }
    ScriptedDevice& Entry(std::size_t i) { return m_devices->devices.at(i); }

    CScriptedFilter m_filters[3];
};

TEST_F(StillDevice, the_first_of_a_name_is_selected_and_the_path_is_its) {
    EXPECT_EQ(Path(), L"");
    EXPECT_EQ(m_still->SelectDeviceByName(L"second"), S_OK);
    EXPECT_EQ(Selected(), 1);
    EXPECT_EQ(Path(), L"path 1");
    EXPECT_EQ(m_filters[0].references.filter, 0u) << "not even opened";
    EXPECT_EQ(m_devices->calls,
              (std::vector<std::string>{"CreateClassEnumerator", "Next", "GetDisplayName", "BindToStorage", "Read",
                                        "Next", "GetDisplayName", "BindToStorage", "Read", "BindToObject"}));
}

TEST_F(StillDevice, positions_count_from_0) {
    for (int i = 2; i >= 0; --i) {
        EXPECT_EQ(m_still->SelectDeviceByIndex(static_cast<ULONG>(i)), S_OK);
        EXPECT_EQ(Selected(), i);
        EXPECT_EQ(Path(), L"path " + std::to_wstring(i));
    }
    EXPECT_EQ(m_filters[2].references.filter, 0u) << "the device before is released";
}

TEST_F(StillDevice, nothing_that_matches_gives_the_enumerations_last_result_and_keeps_the_device) {
    ASSERT_EQ(m_still->SelectDeviceByIndex(0), S_OK);
    for (const HRESULT end : {S_FALSE, E_ACCESSDENIED}) {
        m_devices->end = end;
        for (const wchar_t* name : {L"First", L"first ", L"", L"fir"}) {
            EXPECT_EQ(m_still->SelectDeviceByName(name), end) << name;
        }
        EXPECT_EQ(m_still->SelectDeviceByIndex(3), end);
        EXPECT_EQ(m_still->SelectDeviceByIndex(0xFFFFFFFF), end);
        EXPECT_EQ(Selected(), 0);
        EXPECT_EQ(Path(), L"path 2");
    }
}

TEST_F(StillDevice, an_enumeration_that_promises_a_device_and_gives_none_is_unexpected) {
    ASSERT_EQ(m_still->SelectDeviceByIndex(1), S_OK);
    m_devices->end = S_OK;
    EXPECT_EQ(m_still->SelectDeviceByName(L"third"), E_UNEXPECTED);
    EXPECT_EQ(m_still->SelectDeviceByIndex(3), E_UNEXPECTED);
    EXPECT_EQ(Selected(), 1);
    EXPECT_EQ(Path(), L"path 2") << "the last one that there was";
    m_devices->devices.clear();
    EXPECT_EQ(m_still->SelectDeviceByIndex(0), E_UNEXPECTED);
    EXPECT_EQ(Selected(), 1);
}

TEST_F(StillDevice, failures_of_the_enumeration_are_passed_through_and_change_nothing) {
    ASSERT_EQ(m_still->SelectDeviceByIndex(1), S_OK);
    m_devices->create = E_ACCESSDENIED;
    EXPECT_EQ(m_still->SelectDeviceByName(L"first"), E_ACCESSDENIED);
    m_devices->create = S_OK;
    m_devices->enumerate = E_ABORT;
    EXPECT_EQ(m_still->SelectDeviceByIndex(0), E_ABORT);
    for (const HRESULT hr : {S_FALSE, S_OK}) {
        m_devices->enumerate = hr;
        m_devices->givesNothing = true;
        EXPECT_EQ(m_still->SelectDeviceByIndex(0), E_FAIL) << "an empty category";
    }
    EXPECT_EQ(Selected(), 1);
    EXPECT_EQ(Path(), L"path 1");
}

TEST_F(StillDevice, a_missing_enumerator_class_is_reported) {
    m_devices.reset();
    const CStandInClass missing(CLSID_SystemDeviceEnum, REGDB_E_CLASSNOTREG);
    EXPECT_EQ(m_still->SelectDeviceByIndex(0), REGDB_E_CLASSNOTREG);
}

TEST_F(StillDevice, devices_that_cannot_be_read_are_passed_over_and_keep_their_position) {
    for (HRESULT ScriptedDevice::*call : {&ScriptedDevice::display, &ScriptedDevice::storage, &ScriptedDevice::read}) {
        Entry(0) = {.displayName = L"path 0", .friendlyName = L"second", .filter = m_filters[0].Filter()};
        Entry(0).*call = E_ACCESSDENIED;
        EXPECT_EQ(m_still->SelectDeviceByName(L"second"), S_OK);
        EXPECT_EQ(Selected(), 1);
        EXPECT_EQ(m_still->SelectDeviceByIndex(2), S_OK);
        EXPECT_EQ(Selected(), 2);
        EXPECT_EQ(m_still->SelectDeviceByIndex(0), S_FALSE);
        EXPECT_EQ(Selected(), 2);
    }
    Entry(0) = {.displayName = L"path 0", .friendlyName = L"second", .filter = m_filters[0].Filter(), .isNumber = true};
    EXPECT_EQ(m_still->SelectDeviceByName(L"second"), S_OK);
    EXPECT_EQ(Selected(), 1);
}

TEST_F(StillDevice, the_path_is_that_of_the_last_device_with_a_display_name_whatever_else_of_it_fails) {
    const ScriptedDevice readable = Entry(2);
    struct Row {
        HRESULT ScriptedDevice::*call;
        const wchar_t* path;
    };
    for (const auto& [call, path] : {Row{&ScriptedDevice::storage, L"path 2"},
                                     {&ScriptedDevice::read, L"path 2"},
                                     {&ScriptedDevice::display, L"path 1"}}) {
        ASSERT_EQ(m_still->SelectDeviceByIndex(0), S_OK);
        ASSERT_EQ(Path(), L"path 0");
        Entry(2) = readable;
        Entry(2).*call = E_ACCESSDENIED;
        EXPECT_EQ(m_still->SelectDeviceByName(L"third"), S_FALSE);
        EXPECT_EQ(Path(), path);
        EXPECT_EQ(Selected(), 0);
    }
}

TEST_F(StillDevice, a_device_that_cannot_be_opened_ends_the_search_and_keeps_the_one_before) {
    ASSERT_EQ(m_still->SelectDeviceByIndex(0), S_OK);
    Entry(1).bind = HRESULT_FROM_WIN32(ERROR_BUSY);
    EXPECT_EQ(m_still->SelectDeviceByName(L"second"), HRESULT_FROM_WIN32(ERROR_BUSY));
    EXPECT_EQ(m_still->SelectDeviceByIndex(1), HRESULT_FROM_WIN32(ERROR_BUSY));
    EXPECT_EQ(Selected(), 0);
    EXPECT_EQ(Path(), L"path 1");
    Entry(1).bind = S_OK;
    Entry(1).filter = nullptr;
    EXPECT_EQ(m_still->SelectDeviceByIndex(1), E_UNEXPECTED);
    EXPECT_EQ(Selected(), 0);
}

TEST_F(StillDevice, a_device_that_gives_nothing_when_asked_for_itself_is_unexpected) {
    constexpr CallFault kNothing = {.name = "gives nothing", .kind = CallFaultKind::givesNothing};
    ASSERT_EQ(m_still->SelectDeviceByIndex(0), S_OK);
    CCallFaults faults;
    faults.Start(&kNothing, 1);
    m_filters[0].faults = &faults;
    auto* device = reinterpret_cast<IUnknown*>(0xDEADBEEF);

    EXPECT_EQ(m_still->GetDeviceUnknown(&device), E_UNEXPECTED);

    EXPECT_EQ(device, nullptr);
    EXPECT_EQ(faults.calls.size(), 1u);
    m_filters[0].faults = nullptr;
}

TEST_F(StillDevice, names_pass_through_the_ANSI_code_page_and_paths_are_cut_to_255_characters) {
    Entry(0).friendlyName = L"Kamera \x00FC\x00B5";
    Entry(0).displayName = std::wstring(300, L'x');
    EXPECT_EQ(m_still->SelectDeviceByName(L"Kamera \x00FC\x00B5"), S_OK);
    EXPECT_EQ(Path(), std::wstring(255, L'x'));

    // What the code page lacks becomes its default character, on both sides.
    Entry(0).friendlyName = L"Kamera \x4E00";
    Entry(0).displayName = L"\x00B5\x4E00";
    EXPECT_EQ(m_still->SelectDeviceByName(L"Kamera \x4E8C"), S_OK);
    EXPECT_EQ(Selected(), 0);
    EXPECT_EQ(Path(), L"\x00B5?");

    Entry(0).displayName = L"";
    Entry(0).friendlyName = L"";
    EXPECT_EQ(m_still->SelectDeviceByName(L""), S_OK);
    EXPECT_EQ(Path(), L"");
}

TEST_F(StillDevice, the_code_page_is_the_threads_not_the_systems) {
    constexpr LCID kRussian = MAKELCID(MAKELANGID(LANG_RUSSIAN, SUBLANG_DEFAULT), SORT_DEFAULT);
    Entry(0).friendlyName = L"\x0416";  // neither of the two is in code page 1252
    Entry(1).friendlyName = L"\x0428";
    Entry(1).displayName = L"\x0416\x0428";
    EXPECT_EQ(m_still->SelectDeviceByName(L"\x0428"), S_OK);
    EXPECT_EQ(Selected(), ::GetACP() == 1251 ? 1 : 0) << "both are the default character";

    const LCID before = ::GetThreadLocale();
    ASSERT_TRUE(::SetThreadLocale(kRussian));
    EXPECT_EQ(m_still->SelectDeviceByName(L"\x0428"), S_OK);
    EXPECT_EQ(Selected(), 1);
    EXPECT_EQ(Path(), L"\x0416\x0428");
    ASSERT_TRUE(::SetThreadLocale(before));
}

}  // namespace
}  // namespace kolmfluxor::test
