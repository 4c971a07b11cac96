#include "module/media_registration.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "support/patched_import.h"
#include "support/registry.h"

extern "C" void* __imp_RegSetValueExW;
extern "C" void* __imp_RegDeleteKeyW;

namespace kolmfluxor {
namespace {

constexpr wchar_t kMediaInterfaces[] =
    L"System\\CurrentControlSet\\Control\\MediaInterfaces\\{BE226229-D865-4F2E-AB89-13F359E8F46A}";

// Registry functions leave the thread's last error alone, so the code that comes out is the one that was there before.

TEST(MediaRegistration, reports_a_media_interfaces_key_that_cannot_be_created_as_the_last_error) {
    test::CPrivateRegistry registry;
    registry.Lock(HKEY_LOCAL_MACHINE, kMediaInterfaces);

    ::SetLastError(ERROR_ACCESS_DENIED);
    EXPECT_EQ(RegisterMediaInterfaces(), E_ACCESSDENIED);
    ::SetLastError(ERROR_SHARING_VIOLATION);
    EXPECT_EQ(RegisterMediaInterfaces(), static_cast<HRESULT>(0x80070020));
}

TEST(MediaRegistration, unregistration_stops_at_the_first_key_that_is_not_there) {
    test::CPrivateRegistry registry;
    ASSERT_EQ(RegisterMediaInterfaces(), S_OK);
    ASSERT_EQ(::RegDeleteTreeW(HKEY_LOCAL_MACHINE, L"System\\CurrentControlSet\\Control\\MediaSets"), ERROR_SUCCESS);

    for (const auto& [lastError, code] : {std::pair<DWORD, HRESULT>{ERROR_FILE_NOT_FOUND, 0x80070002}, {0, S_OK}}) {
        ::SetLastError(lastError);
        EXPECT_EQ(UnregisterMediaInterfaces(), code);

        HKEY key = nullptr;
        EXPECT_EQ(::RegOpenKeyExW(HKEY_LOCAL_MACHINE, kMediaInterfaces, 0, KEY_READ, &key), ERROR_SUCCESS)
            << "the last key was reached although an earlier one failed";
        ::RegCloseKey(key);
    }
}

const std::wstring kPageNames[] = {
    L"KolmFluxorPropertyPageExposure",     L"KolmFluxorPropertyPageFormat", L"KolmFluxorPropertyPageColor",
    L"KolmFluxorPropertyPageTrigger",      L"KolmFluxorPropertyPageInfo",   L"KolmFluxorPropertyPageSmart01",
    L"KolmFluxorPropertyPageDirectAccess", L"KolmFluxorPropertyPageLUT",
};

std::vector<std::wstring> g_written;  ///< default values as text, other values by name
std::size_t g_failAt = 0;             ///< the write with this number (1-based) fails

LSTATUS WINAPI RecordValue(HKEY, LPCWSTR name, DWORD, DWORD, const BYTE* data, DWORD size) {
    g_written.push_back(name != nullptr ? name
                                        : std::wstring(reinterpret_cast<const wchar_t*>(data), size / sizeof(wchar_t)));
    return g_written.size() == g_failAt ? ERROR_DISK_FULL : ERROR_SUCCESS;
}

class MediaValues : public ::testing::Test {
protected:
    MediaValues() : m_patch(&__imp_RegSetValueExW, reinterpret_cast<void*>(&RecordValue)) { g_written.clear(); }

    /// Registers while the n-th write fails.
    static HRESULT RegisterFailing(std::size_t nth) {
        g_failAt = nth;
        g_written.clear();
        ::SetLastError(ERROR_DISK_FULL);
        return RegisterMediaInterfaces();
    }

    test::CPrivateRegistry m_registry;
    test::CPatchedImport m_patch;
};

TEST_F(MediaValues, are_written_in_the_order_of_registration) {
    EXPECT_EQ(RegisterFailing(0), S_OK);

    std::vector<std::wstring> expected(std::begin(kPageNames), std::end(kPageNames));
    expected.insert(expected.end(), {L"KolmFluxorPropertySet", L"IID"});
    EXPECT_EQ(g_written, expected);
}

TEST_F(MediaValues, that_cannot_be_written_end_the_registration) {
    for (std::size_t nth = 1; nth <= 10; ++nth) {
        EXPECT_EQ(RegisterFailing(nth), static_cast<HRESULT>(0x80070070)) << "write " << nth;
        EXPECT_EQ(g_written.size(), nth) << "nothing is written after a failure";
    }
}

TEST_F(MediaValues, are_both_tried_when_the_media_interfaces_key_cannot_be_created) {
    m_registry.Lock(HKEY_LOCAL_MACHINE, kMediaInterfaces);

    RegisterFailing(9);

    ASSERT_EQ(g_written.size(), 10u);
    EXPECT_EQ(g_written[9], L"IID");
}

std::vector<std::wstring> g_deleted;

LSTATUS WINAPI RecordDeletion(HKEY, LPCWSTR path) {
    g_deleted.emplace_back(path);
    return g_deleted.size() <= 8 ? ERROR_FILE_NOT_FOUND : ERROR_SUCCESS;
}

TEST(MediaRegistration, deletes_the_page_keys_in_order_then_their_parents) {
    const test::CPatchedImport patch(&__imp_RegDeleteKeyW, reinterpret_cast<void*>(&RecordDeletion));
    const std::wstring set = L"{BE226229-D865-4F2E-AB89-13F359E8F46A}";
    const std::wstring sets = L"System\\CurrentControlSet\\Control\\MediaSets\\" + set;
    g_deleted.clear();

    EXPECT_EQ(UnregisterMediaInterfaces(), S_OK) << "pages that are not there do not matter";

    std::vector<std::wstring> expected;
    for (const wchar_t* page : {L"{CE276B19-CC72-472D-8B2E-25486BFC3C1D}", L"{B06116DA-98BA-476B-9B26-1D4D46416A75}",
                                L"{C1266BEE-5A52-433B-9C29-7F64EB5EAA44}", L"{6A890ED5-28D7-4C52-9EBE-57E4B2C4ED2F}",
                                L"{C5DF43B3-0F1C-4A35-BABF-6D9040B127C2}", L"{060BAF79-3243-4CA7-968A-3E03AC700749}",
                                L"{AA5B8CE1-6548-44E2-B0A6-1800C33F48A0}", L"{970F6EA8-4BF6-4347-9231-A36AA09BA754}"}) {
        expected.push_back(sets + L"\\PropertyPages\\" + page);
    }
    expected.insert(expected.end(), {sets + L"\\PropertyPages\\", sets, kMediaInterfaces});
    EXPECT_EQ(g_deleted, expected);
}

}  // namespace
}  // namespace kolmfluxor
