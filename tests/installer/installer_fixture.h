#pragma once
/// @file  Runs the built installers on the machine of the test, and looks at what is installed.

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include <windows.h>

#include "installer/system_state.h"

namespace kolmfluxor::test {

/// Exit codes of the installer.
inline constexpr DWORD kDone = 0;
inline constexpr DWORD kFilesFailed = 4;
inline constexpr DWORD kModuleFailed = 5;
inline constexpr DWORD kCameraFailed = 6;
inline constexpr DWORD kLibraryFailed = 7;
inline constexpr DWORD kAnotherSetup = 8;
inline constexpr DWORD kRestartNeeded = 3010;

/// Held by an installer while it runs.
inline constexpr wchar_t kSetupMutex[] = L"Global\\KolmFluxor setup";
inline constexpr wchar_t kDefaultFolder[] = L"C:\\Program Files\\KolmFluxor";
inline constexpr wchar_t kModuleKey[] = L"CLSID\\{BE226229-D865-4F2E-AB89-13F359E8F46A}\\InprocServer32";
inline constexpr wchar_t kLibraryKey[] = L"TypeLib\\{F13AE5F4-AEFC-4E7D-8AC1-BF9C96FE9CF3}\\1.0\\0\\win64";
inline constexpr wchar_t kUninstallKey[] = L"Software\\Microsoft\\Windows\\CurrentVersion\\Uninstall\\KolmFluxor";
inline constexpr wchar_t kStartMenu[] = L"C:\\ProgramData\\Microsoft\\Windows\\Start Menu\\Programs\\KolmFluxor";

/// Each test starts on a machine without the product, and ends on one.
class Installer : public ::testing::Test {
protected:
    static void SetUpTestSuite();
    void TearDown() override;

    /// The packages: of this version, of an earlier one with a file that this version lacks, and of a later one whose
    /// type library and simulated camera cannot be registered.
    static std::wstring ThisVersion();
    static std::wstring OlderVersion();
    static std::wstring BrokenVersion();

    /// Runs an installer silently. @return  its exit code
    static DWORD Run(const std::wstring& setup, const std::wstring& options);
    /// Runs the uninstaller of a folder in its place, so that its end can be waited for, and removes it.
    static DWORD UninstallInPlace(const std::wstring& folder);

    /// Names below a folder, each relative to it.
    static std::set<std::wstring> FilesIn(const std::wstring& folder);
    static bool Exists(const std::wstring& path);
    /// A text of the registry, empty when it is not there. @param name  null for the default value
    static std::wstring RegistryText(HKEY root, const std::wstring& key, const wchar_t* name);

    /// What the machine has more, or less, than before the first test; empty is what a test should end with.
    static std::string DifferencesFromBefore();
    /// The machine before the first test.
    static SystemState& Before();
    /// Removes what the simulated cameras have stored for the user.
    static void RemoveCameraSettings();
};

}  // namespace kolmfluxor::test
