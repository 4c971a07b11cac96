#include "installer/installer_fixture.h"

#include <array>
#include <filesystem>

#include "support/module.h"
#include "support/process.h"

namespace kolmfluxor::test {
namespace {

std::wstring Package(const wchar_t* folder, const wchar_t* version) {
    return CModule::BesideTheTests(std::wstring(L"..\\") + folder + L"\\KolmFluxor-" + version + L"-x64-setup.exe");
}

}  // namespace

void Installer::SetUpTestSuite() {
    // What every Windows has, and a new prefix of Wine has not: these keys, folders for all users, devices for the
    // screen.
    for (const wchar_t* path :
         {L"System\\CurrentControlSet\\Control\\MediaSets", L"System\\CurrentControlSet\\Control\\MediaInterfaces",
          L"Software\\Classes\\CLSID\\{860BB310-5D01-11D0-BD3B-00A0C911CE86}\\Instance"}) {
        HKEY opened = nullptr;
        ASSERT_EQ(::RegCreateKeyExW(HKEY_LOCAL_MACHINE, path, 0, nullptr, 0, KEY_ALL_ACCESS, nullptr, &opened, nullptr),
                  ERROR_SUCCESS);
        ::RegCloseKey(opened);
    }
    std::filesystem::create_directories(std::filesystem::path(kStartMenu).parent_path());
    HANDLE const other = ::CreateMutexW(nullptr, FALSE, kSetupMutex);
    EXPECT_EQ(Run(ThisVersion(), L""), kAnotherSetup);
    ::CloseHandle(other);
    Before() = SystemState::Now();
}

SystemState& Installer::Before() {
    static SystemState before;
    return before;
}

std::string Installer::DifferencesFromBefore() {
    return Differences(Before(), SystemState::Now());
}

void Installer::RemoveCameraSettings() {
    std::array<wchar_t, MAX_PATH> folder{};
    ::GetEnvironmentVariableW(L"LOCALAPPDATA", folder.data(), static_cast<DWORD>(folder.size()));
    std::filesystem::remove_all(std::wstring(folder.data()) + L"\\KolmFluxor");
}

void Installer::TearDown() {
    const std::wstring folder = RegistryText(HKEY_LOCAL_MACHINE, kUninstallKey, L"InstallLocation");
    if (!folder.empty()) {
        EXPECT_EQ(UninstallInPlace(folder), kDone);
        std::filesystem::remove_all(folder);
    }
}

std::wstring Installer::ThisVersion() {
    return Package(L"package", KOLM_VERSION);
}

std::wstring Installer::OlderVersion() {
    return Package(L"tests\\packages", L"0.0.1");
}

std::wstring Installer::BrokenVersion() {
    return Package(L"tests\\packages", L"99.0.0");
}

DWORD Installer::Run(const std::wstring& setup, const std::wstring& options) {
    return RunCommandLine(setup, L"\"" + setup + L"\" /S " + options).exitCode;
}

DWORD Installer::UninstallInPlace(const std::wstring& folder) {
    const std::wstring program = folder + L"\\uninstall.exe";
    const DWORD exitCode = RunCommandLine(program, L"\"" + program + L"\" /S _?=" + folder).exitCode;
    ::DeleteFileW(program.c_str());
    ::RemoveDirectoryW(folder.c_str());
    return exitCode;
}

std::set<std::wstring> Installer::FilesIn(const std::wstring& folder) {
    std::set<std::wstring> files;
    for (const auto& entry : std::filesystem::recursive_directory_iterator(folder))
        if (entry.is_regular_file()) files.insert(entry.path().wstring().substr(folder.size() + 1));
    return files;
}

bool Installer::Exists(const std::wstring& path) {
    return ::GetFileAttributesW(path.c_str()) != INVALID_FILE_ATTRIBUTES;
}

std::wstring Installer::RegistryText(HKEY root, const std::wstring& key, const wchar_t* name) {
    std::array<wchar_t, 1024> text{};
    DWORD size = sizeof text;
    const LSTATUS status = ::RegGetValueW(root, key.c_str(), name, RRF_RT_REG_SZ, nullptr, text.data(), &size);
    return status == ERROR_SUCCESS ? text.data() : L"";
}

}  // namespace kolmfluxor::test
