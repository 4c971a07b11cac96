/// @file  Registration and unregistration of the built module, read back from the registry byte for byte.

#include <gtest/gtest.h>

#include <algorithm>
#include <cstring>
#include <span>
#include <string>
#include <thread>

#include <combaseapi.h>
#include <objbase.h>
#include <uuids.h>

#include <kolmfluxor/identifiers.h>

#include "support/module.h"
#include "support/registry.h"
#include "support/stand_in_class.h"

namespace kolmfluxor::test {
namespace {

const std::wstring kSet = L"{BE226229-D865-4F2E-AB89-13F359E8F46A}";
const std::wstring kMediaInterfaces = L"System\\CurrentControlSet\\Control\\MediaInterfaces\\" + kSet;
const std::wstring kMediaSets = L"System\\CurrentControlSet\\Control\\MediaSets\\" + kSet;
const std::wstring kPages = kMediaSets + L"\\PropertyPages\\";

struct ClassRow {
    const wchar_t* name;
    const wchar_t* classId;
    bool page;
};

/// In the order of the class table.
const ClassRow kClasses[] = {
    {L"KolmFluxorPropertySet", L"{BE226229-D865-4F2E-AB89-13F359E8F46A}", false},
    {L"KolmFluxorPropertyPageColor", L"{CE276B19-CC72-472D-8B2E-25486BFC3C1D}", true},
    {L"KolmFluxorPropertyPageTrigger", L"{B06116DA-98BA-476B-9B26-1D4D46416A75}", true},
    {L"KolmStillImage", L"{A918C124-11AA-4F1B-863B-D677A3FF51C9}", false},
    {L"KolmFluxorPropertyPageInfo", L"{C1266BEE-5A52-433B-9C29-7F64EB5EAA44}", true},
    {L"KolmFluxorPropertyPageFormat", L"{6A890ED5-28D7-4C52-9EBE-57E4B2C4ED2F}", true},
    {L"KolmFluxorPropertyPageExposure", L"{C5DF43B3-0F1C-4A35-BABF-6D9040B127C2}", true},
    {L"KolmFluxorPropertyPageDirectAccess", L"{060BAF79-3243-4CA7-968A-3E03AC700749}", true},
    {L"KolmFluxorPropertyPageSmart01", L"{AA5B8CE1-6548-44E2-B0A6-1800C33F48A0}", true},
    {L"KolmFluxorPropertyPageLUT", L"{970F6EA8-4BF6-4347-9231-A36AA09BA754}", true},
};

RegistryContent ExpectedClasses(std::size_t count = std::size(kClasses)) {
    RegistryContent content;
    for (const ClassRow& row : std::span(kClasses, count)) {
        const std::wstring key = std::wstring(L"CLSID\\") + row.classId;
        content[key + L":"] = Text(row.name, true);
        content[key + L"\\InprocServer32:"] = Text(CModule::Get().Path(), true);
        content[key + L"\\InprocServer32:ThreadingModel"] = Text(L"Both", true);
    }
    return content;
}

RegistryContent ExpectedMedia() {
    RegistryContent content;
    content[kMediaInterfaces + L":"] = Text(L"KolmFluxorPropertySet", false);
    RawValue iid{REG_BINARY, std::vector<BYTE>(sizeof(GUID))};
    std::memcpy(iid.bytes.data(), &PROPSETID_KolmFluxor, sizeof(GUID));
    content[kMediaInterfaces + L":IID"] = iid;
    for (const ClassRow& row : kClasses) {
        if (row.page) content[kPages + row.classId + L":"] = Text(row.name, false);
    }
    return content;
}

class Registration : public ::testing::Test {
protected:
    Registration() { EXPECT_EQ(::CoInitialize(nullptr), S_OK); }
    ~Registration() override {
        ::CoUninitialize();
        EXPECT_EQ(CModule::Get().CanUnloadNow(), S_OK) << "objects were left behind";
    }

    static RegistryContent Classes() { return CPrivateRegistry::ContentOf(HKEY_CLASSES_ROOT); }
    static RegistryContent Machine() {
        RegistryContent content = CPrivateRegistry::ContentOf(HKEY_LOCAL_MACHINE);
        // The system's audio library, which comes with the filter mapper, keeps notes of its own.
        std::erase_if(content, [](const auto& entry) {
            return entry.first.starts_with(L"Software\\Microsoft\\AudioCompressionManager");
        });
        return content;
    }

    const CModule& m_module = CModule::Get();
    CPrivateRegistry m_registry;
};

TEST_F(Registration, writes_every_key_and_nothing_else) {
    EXPECT_EQ(m_module.RegisterServer(), S_OK);

    EXPECT_EQ(Classes(), ExpectedClasses());
    EXPECT_EQ(Machine(), ExpectedMedia());
}

TEST_F(Registration, media_names_are_stored_without_a_terminating_nul) {
    EXPECT_EQ(m_module.RegisterServer(), S_OK);

    int names = 0;
    for (const auto& [path, value] : Machine()) {
        if (value.type != REG_SZ) continue;
        ++names;
        ASSERT_GE(value.bytes.size(), 2u);
        EXPECT_NE(value.bytes[value.bytes.size() - 2], 0) << "the last character is a letter, not a NUL";
    }
    EXPECT_EQ(names, 9) << "eight pages and the property set";
}

TEST_F(Registration, twice_gives_the_same_keys_and_overwrites_values) {
    EXPECT_EQ(m_module.RegisterServer(), S_OK);
    HKEY key = nullptr;
    ASSERT_EQ(::RegOpenKeyExW(HKEY_LOCAL_MACHINE, kMediaInterfaces.c_str(), 0, KEY_ALL_ACCESS, &key), ERROR_SUCCESS);
    ASSERT_EQ(::RegSetValueExW(key, L"IID", 0, REG_DWORD, reinterpret_cast<const BYTE*>("1234"), 4), ERROR_SUCCESS);
    ::RegCloseKey(key);

    EXPECT_EQ(m_module.RegisterServer(), S_OK);

    EXPECT_EQ(Classes(), ExpectedClasses());
    EXPECT_EQ(Machine(), ExpectedMedia());
}

TEST_F(Registration, unregistration_leaves_nothing_of_its_own) {
    EXPECT_EQ(m_module.RegisterServer(), S_OK);

    EXPECT_EQ(m_module.UnregisterServer(), S_OK);

    for (const auto& [path, value] : Classes())
        EXPECT_EQ(path, L"CLSID") << "only the common parent key may stay";
    for (const auto& [path, value] : Machine()) {
        EXPECT_EQ(path.find(kSet), std::wstring::npos) << std::string(path.begin(), path.end());
    }
}

TEST_F(Registration, unregistration_takes_foreign_subkeys_of_a_class_along) {
    EXPECT_EQ(m_module.RegisterServer(), S_OK);
    HKEY key = nullptr;
    for (const wchar_t* foreign :
         {L"\\ProgID\\a\\b\\c", L"\\\u30AB\u30E1\u30E9\\\u8272"}) {  // the second in no ANSI code page
        const std::wstring deep = std::wstring(L"CLSID\\") + kClasses[3].classId + foreign;
        ASSERT_EQ(
            ::RegCreateKeyExW(HKEY_CLASSES_ROOT, deep.c_str(), 0, nullptr, 0, KEY_ALL_ACCESS, nullptr, &key, nullptr),
            ERROR_SUCCESS);
        ::RegCloseKey(key);
    }

    EXPECT_EQ(m_module.UnregisterServer(), S_OK);

    for (const auto& [path, value] : Classes())
        EXPECT_EQ(path, L"CLSID");
}

TEST_F(Registration, unregistering_without_any_keys_succeeds) {
    EXPECT_EQ(m_module.UnregisterServer(), S_OK);
    EXPECT_TRUE(Machine().empty());
    EXPECT_TRUE(Classes().empty());
}

TEST_F(Registration, unregistering_when_the_media_keys_are_gone_already_succeeds) {
    EXPECT_EQ(m_module.RegisterServer(), S_OK);
    ASSERT_EQ(::RegDeleteTreeW(HKEY_LOCAL_MACHINE, L"System"), ERROR_SUCCESS);

    EXPECT_EQ(m_module.UnregisterServer(), S_OK);

    for (const auto& [path, value] : Classes())
        EXPECT_EQ(path, L"CLSID");
}

TEST_F(Registration, a_page_key_that_cannot_be_created_is_skipped) {
    const std::wstring refused = kPages + kClasses[6].classId;
    m_registry.Lock(HKEY_LOCAL_MACHINE, refused);

    EXPECT_EQ(m_module.RegisterServer(), S_OK);

    RegistryContent expected = ExpectedMedia();
    expected.erase(refused + L":");
    expected[refused] = {REG_NONE, {}};
    EXPECT_EQ(Machine(), expected);
    EXPECT_EQ(Classes(), ExpectedClasses());
}

TEST_F(Registration, a_class_key_that_cannot_be_created_ends_it_and_leaves_what_was_written) {
    const std::wstring refused = std::wstring(L"CLSID\\") + kClasses[4].classId;
    m_registry.Lock(HKEY_CLASSES_ROOT, refused);

    EXPECT_EQ(m_module.RegisterServer(), E_ACCESSDENIED);

    RegistryContent expected = ExpectedClasses(4);
    expected[refused] = {REG_NONE, {}};
    EXPECT_EQ(Classes(), expected);
    EXPECT_TRUE(Machine().empty()) << "media registration must not have begun";
}

TEST_F(Registration, a_server_key_that_cannot_be_created_ends_it) {
    const std::wstring classKey = std::wstring(L"CLSID\\") + kClasses[4].classId;
    m_registry.Lock(HKEY_CLASSES_ROOT, classKey + L"\\InprocServer32");

    EXPECT_EQ(m_module.RegisterServer(), E_ACCESSDENIED);

    RegistryContent expected = ExpectedClasses(4);
    expected[classKey + L":"] = Text(kClasses[4].name, true);
    expected[classKey + L"\\InprocServer32"] = {REG_NONE, {}};
    EXPECT_EQ(Classes(), expected);
    EXPECT_TRUE(Machine().empty());
}

TEST_F(Registration, classes_are_written_in_the_order_of_the_table) {
    for (std::size_t refused = 0; refused < std::size(kClasses); ++refused) {
        const std::wstring refusedKey = std::wstring(L"CLSID\\") + kClasses[refused].classId;
        ASSERT_EQ(m_module.UnregisterServer(), S_OK);
        m_registry.Lock(HKEY_CLASSES_ROOT, refusedKey);

        EXPECT_EQ(m_module.RegisterServer(), E_ACCESSDENIED);

        RegistryContent expected = ExpectedClasses(refused);
        expected[refusedKey] = {REG_NONE, {}};
        EXPECT_EQ(Classes(), expected) << "row " << refused;
        m_registry.Unlock();
    }
}

TEST_F(Registration, works_on_a_thread_without_com_and_leaves_it_so) {
    HRESULT registered = E_FAIL;
    HRESULT unregistered = E_FAIL;
    HRESULT apartment = S_OK;
    std::thread([&] {
        registered = m_module.RegisterServer();
        unregistered = m_module.UnregisterServer();
        APTTYPE type{};
        APTTYPEQUALIFIER qualifier{};
        apartment = ::CoGetApartmentType(&type, &qualifier);
    }).join();

    EXPECT_EQ(registered, S_OK);
    EXPECT_EQ(unregistered, S_OK);
    EXPECT_EQ(apartment, CO_E_NOTINITIALIZED);
}

TEST_F(Registration, unregistration_ends_although_a_class_key_cannot_be_deleted) {
    EXPECT_EQ(m_module.RegisterServer(), S_OK);
    const std::wstring refused = std::wstring(L"CLSID\\") + kClasses[4].classId + L"\\InprocServer32";
    m_registry.Lock(HKEY_CLASSES_ROOT, refused);

    EXPECT_EQ(m_module.UnregisterServer(), S_OK);

    EXPECT_FALSE(Classes().empty()) << "the refused key is still there";
    for (const auto& [path, value] : Classes())
        EXPECT_NE(path.find(kClasses[4].classId), std::wstring::npos);
    for (const auto& [path, value] : Machine())
        EXPECT_EQ(path.find(kSet), std::wstring::npos);
}

TEST_F(Registration, without_the_filter_mapper_classes_are_written_and_media_keys_are_not) {
    const CStandInClass mapper2(CLSID_FilterMapper2, REGDB_E_CLASSNOTREG);
    const CStandInClass mapper(CLSID_FilterMapper, REGDB_E_CLASSNOTREG);

    EXPECT_EQ(m_module.RegisterServer(), REGDB_E_CLASSNOTREG);

    EXPECT_EQ(Classes(), ExpectedClasses());
    EXPECT_TRUE(Machine().empty());
}

TEST_F(Registration, the_older_filter_mapper_will_do) {
    const CStandInClass mapper2(CLSID_FilterMapper2, REGDB_E_CLASSNOTREG);

    EXPECT_EQ(m_module.RegisterServer(), S_OK);
    EXPECT_EQ(Machine(), ExpectedMedia());
    EXPECT_EQ(m_module.UnregisterServer(), S_OK);
    EXPECT_EQ(mapper2.Calls(), 2);
}

TEST_F(Registration, unregistering_without_the_filter_mapper_succeeds_and_leaves_all_keys) {
    EXPECT_EQ(m_module.RegisterServer(), S_OK);
    const CStandInClass mapper2(CLSID_FilterMapper2, REGDB_E_CLASSNOTREG);
    const CStandInClass mapper(CLSID_FilterMapper, REGDB_E_CLASSNOTREG);

    EXPECT_EQ(m_module.UnregisterServer(), S_OK);

    EXPECT_EQ(Classes(), ExpectedClasses());
    EXPECT_EQ(Machine(), ExpectedMedia());
}

TEST_F(Registration, unregistering_with_a_filter_mapper_that_fails_otherwise_takes_the_media_keys_only) {
    EXPECT_EQ(m_module.RegisterServer(), S_OK);
    const CStandInClass mapper2(CLSID_FilterMapper2, E_ACCESSDENIED);
    const CStandInClass mapper(CLSID_FilterMapper, E_OUTOFMEMORY);

    EXPECT_EQ(m_module.UnregisterServer(), E_OUTOFMEMORY) << "the code is that of the second attempt";

    EXPECT_EQ(Classes(), ExpectedClasses());
    for (const auto& [path, value] : Machine())
        EXPECT_EQ(path.find(kSet), std::wstring::npos);
}

TEST_F(Registration, works_on_a_thread_of_a_multithreaded_apartment) {
    HRESULT registered = E_FAIL;
    std::thread([&] {
        EXPECT_EQ(::CoInitializeEx(nullptr, COINIT_MULTITHREADED), S_OK);
        registered = m_module.RegisterServer();
        APTTYPE type{};
        APTTYPEQUALIFIER qualifier{};
        EXPECT_EQ(::CoGetApartmentType(&type, &qualifier), S_OK) << "the caller's apartment must survive";
        EXPECT_EQ(type, APTTYPE_MTA);
        ::CoUninitialize();
    }).join();

    EXPECT_EQ(registered, S_OK);
    EXPECT_EQ(Machine(), ExpectedMedia());
}

}  // namespace
}  // namespace kolmfluxor::test
