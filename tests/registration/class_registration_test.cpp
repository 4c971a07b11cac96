#include "module/class_registration.h"

#include <gtest/gtest.h>

#include <cstring>
#include <string>
#include <utility>
#include <vector>

#include <objbase.h>
#include <uuids.h>

#include "module/class_table.h"
#include "support/patched_import.h"
#include "support/registry.h"
#include "support/stand_in_class.h"

extern "C" void* __imp_CoFreeUnusedLibraries;
extern "C" void* __imp_GetModuleFileNameA;
extern "C" void* __imp_RegOpenKeyExW;
extern "C" void* __imp_RegSetValueExA;

namespace kolmfluxor {
namespace {

using test::CPatchedImport;
using test::CPrivateRegistry;
using test::CStandInClass;

int g_librariesFreed = 0;

void WINAPI CountFreedLibraries() {
    ++g_librariesFreed;
}

class ClassRegistration : public ::testing::Test {
protected:
    ClassRegistration() : m_freed(&__imp_CoFreeUnusedLibraries, reinterpret_cast<void*>(&CountFreedLibraries)) {
        EXPECT_EQ(::CoInitialize(nullptr), S_OK);
        g_librariesFreed = 0;
    }
    ~ClassRegistration() override { ::CoUninitialize(); }

    CPrivateRegistry m_registry;
    CPatchedImport m_freed;
};

// ---- Values -------------------------------------------------------------------------------------------------------

std::vector<std::string> g_written;  ///< "name=text"
std::size_t g_failAt = 0;            ///< the write with this number (1-based) fails

LSTATUS WINAPI RecordValue(HKEY, LPCSTR name, DWORD, DWORD, const BYTE* data, DWORD) {
    g_written.push_back(std::string(name != nullptr ? name : "") + "=" + reinterpret_cast<const char*>(data));
    return g_written.size() == g_failAt ? ERROR_DISK_FULL : ERROR_SUCCESS;
}

TEST_F(ClassRegistration, ends_at_the_first_value_that_cannot_be_written) {
    const CPatchedImport patch(&__imp_RegSetValueExA, reinterpret_cast<void*>(&RecordValue));
    const std::size_t values = 3 * ClassTable().size();
    for (std::size_t nth = 1; nth <= values; ++nth) {
        SCOPED_TRACE(nth);
        g_failAt = nth;
        g_written.clear();

        EXPECT_EQ(RegisterClasses(ClassTable()), static_cast<HRESULT>(0x80070070));

        ASSERT_EQ(g_written.size(), nth) << "nothing is written after a failure";
        if (nth % 3 == 1) EXPECT_TRUE(g_written.back().starts_with("=Kolm")) << g_written.back();
        if (nth % 3 == 2) EXPECT_TRUE(g_written.back().ends_with(".exe")) << g_written.back();
        if (nth % 3 == 0) EXPECT_EQ(g_written.back(), "ThreadingModel=Both");
    }
    EXPECT_EQ(g_librariesFreed, 0) << "the filter mapper was asked for after a failure";
}

// ---- The module's path --------------------------------------------------------------------------------------------

DWORD WINAPI NoPath(HMODULE, LPSTR, DWORD) {
    ::SetLastError(ERROR_MOD_NOT_FOUND);
    return 0;
}

DWORD WINAPI CutPath(HMODULE, LPSTR path, DWORD size) {
    std::memset(path, 'x', size - 1);
    path[size - 1] = '\0';
    ::SetLastError(ERROR_INSUFFICIENT_BUFFER);
    return size;
}

TEST_F(ClassRegistration, needs_the_path_of_the_module_before_it_touches_a_key) {
    for (const auto& [function, code] :
         {std::pair{&NoPath, static_cast<HRESULT>(0x8007007E)}, {&CutPath, static_cast<HRESULT>(0x8007007A)}}) {
        ASSERT_EQ(RegisterClasses(ClassTable()), S_OK);
        const test::RegistryContent registered = CPrivateRegistry::ContentOf(HKEY_CLASSES_ROOT);
        g_librariesFreed = 0;
        const CPatchedImport patch(&__imp_GetModuleFileNameA, reinterpret_cast<void*>(function));

        EXPECT_EQ(UnregisterClasses(ClassTable()), code);
        EXPECT_EQ(CPrivateRegistry::ContentOf(HKEY_CLASSES_ROOT), registered);

        ASSERT_EQ(::RegDeleteTreeW(HKEY_CLASSES_ROOT, L"CLSID"), ERROR_SUCCESS);
        EXPECT_EQ(RegisterClasses(ClassTable()), code);
        EXPECT_TRUE(CPrivateRegistry::ContentOf(HKEY_CLASSES_ROOT).empty());
        EXPECT_EQ(g_librariesFreed, 0) << "the filter mapper comes after the path";
    }
}

// ---- The filter mapper --------------------------------------------------------------------------------------------

TEST_F(ClassRegistration, frees_unused_libraries_once_the_filter_mapper_is_let_go) {
    EXPECT_EQ(RegisterClasses(ClassTable()), S_OK);
    EXPECT_EQ(g_librariesFreed, 1);
    EXPECT_EQ(UnregisterClasses(ClassTable()), S_OK);
    EXPECT_EQ(g_librariesFreed, 2);

    const CStandInClass mapper2(CLSID_FilterMapper2, REGDB_E_CLASSNOTREG);
    const CStandInClass mapper(CLSID_FilterMapper, REGDB_E_CLASSNOTREG);
    EXPECT_EQ(UnregisterClasses(ClassTable()), REGDB_E_CLASSNOTREG);
    EXPECT_EQ(g_librariesFreed, 3);
}

// ---- Keys that can't be opened ------------------------------------------------------------------------------------

const std::wstring kUnopened = L"dangling";
int g_unopenedTries = 0;
decltype(&::RegOpenKeyExW) volatile g_open = nullptr;  // kept here: the import is patched then

/// A subkey that is listed but not found, as a link to nowhere is. Found after many tries, so that nothing hangs.
LSTATUS WINAPI OpenUnlessDangling(HKEY parent, LPCWSTR name, DWORD options, REGSAM access, PHKEY key) {
    if (name == kUnopened && ++g_unopenedTries < 100) return ERROR_FILE_NOT_FOUND;
    return g_open(parent, name, options, access, key);
}

TEST_F(ClassRegistration, deletion_ends_although_a_subkey_is_listed_but_not_found) {
    ASSERT_EQ(RegisterClasses(ClassTable()), S_OK);
    const std::wstring classKey = L"CLSID\\{B06116DA-98BA-476B-9B26-1D4D46416A75}";
    for (const std::wstring& name : {std::wstring(L"\\A"), L"\\" + kUnopened, std::wstring(L"\\z")}) {
        HKEY key = nullptr;
        ASSERT_EQ(::RegCreateKeyExW(HKEY_CLASSES_ROOT, (classKey + name).c_str(), 0, nullptr, 0, KEY_ALL_ACCESS,
                                    nullptr, &key, nullptr),
                  ERROR_SUCCESS);
        ::RegCloseKey(key);
    }
    g_unopenedTries = 0;
    g_open = &::RegOpenKeyExW;
    {
        const CPatchedImport patch(&__imp_RegOpenKeyExW, reinterpret_cast<void*>(&OpenUnlessDangling));
        EXPECT_EQ(UnregisterClasses(ClassTable()), S_OK);
    }

    EXPECT_EQ(g_unopenedTries, 1);
    const test::RegistryContent left{
        {classKey + L":", test::Text(L"KolmFluxorPropertyPageTrigger", true)},
        {classKey + L"\\" + kUnopened, {REG_NONE, {}}},
    };
    EXPECT_EQ(CPrivateRegistry::ContentOf(HKEY_CLASSES_ROOT), left) << "the subkeys beside it are gone";
}

}  // namespace
}  // namespace kolmfluxor
