/// @file  The installer on a machine of its own: installs, works, goes without a trace, and undoes what fails.

#include "installer/installer_fixture.h"

#include <gmock/gmock.h>

#include <algorithm>
#include <chrono>
#include <filesystem>
#include <fstream>
#include <thread>

#include <kolmfluxor/identifiers.h>
#include <kolmfluxor/still_image.h>
#include <oleauto.h>
#include <olectl.h>
#include <wrl/client.h>

#include "support/module.h"
#include "support/process.h"
#include "support/wine.h"

namespace kolmfluxor::test {
namespace {

using Microsoft::WRL::ComPtr;
using ::testing::Contains;
using ::testing::HasSubstr;
using ::testing::IsSupersetOf;
using ::testing::Not;

const std::wstring kFolder = L"C:\\Our own\\Kolm";

/// Looks again until a condition holds or a minute has passed.
template <class Condition> bool Eventually(Condition condition) {
    const auto deadline = std::chrono::steady_clock::now() + std::chrono::minutes(1);
    while (!condition()) {
        if (std::chrono::steady_clock::now() > deadline) return false;
        std::this_thread::yield();
    }
    return true;
}

constexpr wchar_t kSessionManager[] = L"System\\CurrentControlSet\\Control\\Session Manager";
constexpr wchar_t kPendingValue[] = L"PendingFileRenameOperations";

/// Paths that wait for deletion at the next start, each followed by a semicolon.
std::wstring PendingDeletions() {
    std::vector<wchar_t> text(65536);
    auto size = static_cast<DWORD>(text.size() * sizeof(wchar_t));
    if (::RegGetValueW(HKEY_LOCAL_MACHINE, kSessionManager, kPendingValue, RRF_RT_ANY, nullptr, text.data(), &size) !=
        ERROR_SUCCESS)
        return L"";
    std::wstring paths(text.data(), size / sizeof(wchar_t));
    std::ranges::replace(paths, L'\0', L';');
    return paths;
}

void ForgetPendingDeletions() {
    ::RegDeleteKeyValueW(HKEY_LOCAL_MACHINE, kSessionManager, kPendingValue);
}

ProcessOutcome Kolmctl(const std::wstring& folder, const std::vector<std::wstring>& arguments) {
    return RunProcess(folder + L"\\kolmctl.exe", arguments);
}

TEST_F(Installer, installs_what_works_and_uninstalls_without_a_trace) {
    ASSERT_EQ(Run(ThisVersion(), L"/D=" + kFolder), kDone);

    EXPECT_THAT(FilesIn(kFolder), IsSupersetOf({L"kolmfluxor.dll", L"kolmfluxor.tlb", L"kolmctl.exe", L"README.md",
                                                L"CHANGELOG.md", L"LICENSE", L"include\\kolmfluxor\\property_set.h",
                                                L"docs\\pictures\\exposure.png", L"uninstall.exe"}));
    EXPECT_FALSE(Exists(kFolder + L"\\simulator")) << "the simulated camera came unasked";
    EXPECT_FALSE(Exists(kFolder + L"\\setup-backup~"));
    EXPECT_EQ(RegistryText(HKEY_CLASSES_ROOT, kModuleKey, nullptr), kFolder + L"\\kolmfluxor.dll");
    EXPECT_EQ(RegistryText(HKEY_CLASSES_ROOT, kLibraryKey, nullptr), kFolder + L"\\kolmfluxor.tlb");
    EXPECT_EQ(RegistryText(HKEY_LOCAL_MACHINE, kUninstallKey, L"DisplayVersion"), KOLM_VERSION);
    EXPECT_EQ(RegistryText(HKEY_LOCAL_MACHINE, kUninstallKey, L"InstallLocation"), kFolder);
    EXPECT_THAT(FilesIn(kStartMenu), IsSupersetOf({L"KolmFluxor command line.lnk", L"Uninstall KolmFluxor.lnk"}));
    const ProcessOutcome version = Kolmctl(kFolder, {L"--version"});
    EXPECT_EQ(version.exitCode, 0u);
    EXPECT_THAT(version.out, HasSubstr("."));

    const std::wstring quiet = RegistryText(HKEY_LOCAL_MACHINE, kUninstallKey, L"QuietUninstallString");
    ASSERT_EQ(quiet, L"\"" + kFolder + L"\\uninstall.exe\" /S");
    // It goes on as a copy in the folder for temporary files; its last act is to remove its folder.
    EXPECT_EQ(RunCommandLine(kFolder + L"\\uninstall.exe", quiet).exitCode, kDone);
    ASSERT_TRUE(Eventually([] { return !Exists(kFolder); }));
    ::RemoveDirectoryW(L"C:\\Our own");

    EXPECT_EQ(DifferencesFromBefore(), "");
}

TEST_F(Installer, classes_and_type_library_serve_clients_from_their_registered_place) {
    ASSERT_EQ(Run(ThisVersion(), L""), kDone);
    ASSERT_EQ(::CoInitializeEx(nullptr, COINIT_MULTITHREADED), S_OK);
    {
        ComPtr<IUnknown> propertySet;
        ComPtr<IKolmStillImage> still;
        ComPtr<ITypeLib> library;
        // The module itself refuses: this object lives inside a capture filter only.
        EXPECT_EQ(::CoCreateInstance(CLSID_KolmFluxorPropertySet, nullptr, CLSCTX_INPROC_SERVER,
                                     IID_IKolmFluxorPropertySet, reinterpret_cast<void**>(propertySet.GetAddressOf())),
                  CONNECT_E_CANNOTCONNECT);
        EXPECT_EQ(::CoCreateInstance(CLSID_KolmStillImage, nullptr, CLSCTX_INPROC_SERVER, IID_IKolmStillImage,
                                     reinterpret_cast<void**>(still.GetAddressOf())),
                  S_OK);
        EXPECT_EQ(::LoadRegTypeLib(LIBID_KolmFluxor, kTypeLibraryMajor, kTypeLibraryMinor, LOCALE_NEUTRAL, &library),
                  S_OK);
        EXPECT_NE(::GetModuleHandleW((std::wstring(kDefaultFolder) + L"\\kolmfluxor.dll").c_str()), nullptr);
    }
    ::CoUninitialize();
    EXPECT_EQ(::GetModuleHandleW((std::wstring(kDefaultFolder) + L"\\kolmfluxor.dll").c_str()), nullptr);

    EXPECT_EQ(UninstallInPlace(kDefaultFolder), kDone);
    EXPECT_EQ(DifferencesFromBefore(), "");
}

TEST_F(Installer, simulated_camera_comes_when_asked_for_and_keeps_the_users_settings) {
    ASSERT_EQ(Run(ThisVersion(), L"/SIMULATOR"), kDone);

    EXPECT_THAT(FilesIn(kDefaultFolder), IsSupersetOf({L"simulator\\kolmsimcam.ax", L"simulator\\ksproxy.ax"}));
    EXPECT_FALSE(Exists(std::wstring(kDefaultFolder) + L"\\ksproxy.ax"));
    EXPECT_THAT(Kolmctl(kDefaultFolder, {L"list"}).out, HasSubstr("KolmFluxor simulated camera (color)"));
    EXPECT_EQ(Kolmctl(kDefaultFolder, {L"--simulate", L"set", L"gain", L"77"}).exitCode, 0u);
    const SystemState used = SystemState::Now();

    EXPECT_EQ(UninstallInPlace(kDefaultFolder), kDone);

    const SystemState after = SystemState::Now();
    std::string left;
    for (const std::wstring& file : after.files)
        if (!Before().files.contains(file) && file.ends_with(L".camera")) left += "a camera's settings;";
    EXPECT_THAT(left, HasSubstr("a camera's settings;"));
    // They, and nothing else, are there besides what was before.
    SystemState expected = Before();
    for (const std::wstring& file : used.files)
        if (file.find(L"\\AppData\\Local\\KolmFluxor") != std::wstring::npos) expected.files.insert(file);
    EXPECT_EQ(Differences(expected, after), "");
    RemoveCameraSettings();
}

TEST_F(Installer, upgrade_replaces_the_older_version_in_its_folder) {
    ASSERT_EQ(Run(OlderVersion(), L"/SIMULATOR /D=" + kFolder), kDone);
    ASSERT_TRUE(Exists(kFolder + L"\\docs\\old\\retired.txt"));
    ASSERT_EQ(RegistryText(HKEY_LOCAL_MACHINE, kUninstallKey, L"DisplayVersion"), L"0.0.1");

    ASSERT_EQ(Run(ThisVersion(), L""), kDone);

    EXPECT_EQ(RegistryText(HKEY_LOCAL_MACHINE, kUninstallKey, L"DisplayVersion"), KOLM_VERSION);
    EXPECT_EQ(RegistryText(HKEY_LOCAL_MACHINE, kUninstallKey, L"InstallLocation"), kFolder);
    EXPECT_FALSE(Exists(kDefaultFolder));
    EXPECT_FALSE(Exists(kFolder + L"\\docs\\old")) << "a file that this version lacks was left behind";
    EXPECT_FALSE(Exists(kFolder + L"\\setup-backup~"));
    EXPECT_THAT(Kolmctl(kFolder, {L"list"}).out, HasSubstr("simulated camera")) << "the upgrade dropped a component";
    RemoveCameraSettings();

    EXPECT_EQ(UninstallInPlace(kFolder), kDone);
    ::RemoveDirectoryW(L"C:\\Our own");
    EXPECT_EQ(DifferencesFromBefore(), "");
}

TEST_F(Installer, upgrade_can_leave_the_simulated_camera_out) {
    ASSERT_EQ(Run(OlderVersion(), L"/SIMULATOR"), kDone);

    ASSERT_EQ(Run(ThisVersion(), L"/NOSIMULATOR"), kDone);

    EXPECT_FALSE(Exists(std::wstring(kDefaultFolder) + L"\\simulator"));
    EXPECT_THAT(Kolmctl(kDefaultFolder, {L"list"}).out, Not(HasSubstr("simulated camera")));
    EXPECT_EQ(UninstallInPlace(kDefaultFolder), kDone);
    EXPECT_EQ(DifferencesFromBefore(), "");
}

TEST_F(Installer, upgrade_into_another_folder_leaves_the_first_one) {
    ASSERT_EQ(Run(OlderVersion(), L""), kDone);

    ASSERT_EQ(Run(ThisVersion(), L"/D=" + kFolder), kDone);

    EXPECT_FALSE(Exists(kDefaultFolder));
    EXPECT_EQ(RegistryText(HKEY_CLASSES_ROOT, kModuleKey, nullptr), kFolder + L"\\kolmfluxor.dll");
    EXPECT_EQ(RegistryText(HKEY_LOCAL_MACHINE, kUninstallKey, L"InstallLocation"), kFolder);
    EXPECT_EQ(UninstallInPlace(kFolder), kDone);
    ::RemoveDirectoryW(L"C:\\Our own");
    EXPECT_EQ(DifferencesFromBefore(), "");
}

TEST_F(Installer, failed_registration_of_the_module_is_undone) {
    // A class key that can be read only stops the registration halfway.
    HKEY key = nullptr;
    const std::wstring path = L"CLSID\\{AA5B8CE1-6548-44E2-B0A6-1800C33F48A0}";
    ASSERT_EQ(::RegCreateKeyExW(HKEY_CLASSES_ROOT, path.c_str(), 0, nullptr, 0, KEY_ALL_ACCESS, nullptr, &key, nullptr),
              ERROR_SUCCESS);
    CPrivateRegistry::SetAccess(key, L"D:(A;;KR;;;WD)");

    EXPECT_EQ(Run(ThisVersion(), L"/SIMULATOR"), kModuleFailed);

    CPrivateRegistry::SetAccess(key, L"D:(A;;KA;;;WD)");
    ::RegCloseKey(key);
    ::RegDeleteTreeW(HKEY_CLASSES_ROOT, path.c_str());
    EXPECT_EQ(DifferencesFromBefore(), "");
}

TEST_F(Installer, folder_that_the_module_cannot_register_is_refused) {
    // The module stores its path in the system's code page, which lacks these letters. Wine cannot even make the
    // folder.
    const DWORD expected = IsWine() ? kFilesFailed : kModuleFailed;
    EXPECT_EQ(Run(ThisVersion(), L"/D=C:\\\x041A\x043E\x043B\x043C"), expected);

    EXPECT_EQ(DifferencesFromBefore(), "");
}

TEST_F(Installer, failed_later_registrations_are_undone) {
    EXPECT_EQ(Run(BrokenVersion(), L"/SIMULATOR"), kCameraFailed);
    EXPECT_EQ(DifferencesFromBefore(), "");

    EXPECT_EQ(Run(BrokenVersion(), L""), kLibraryFailed);
    EXPECT_EQ(DifferencesFromBefore(), "");
}

TEST_F(Installer, failed_upgrade_leaves_the_old_version_as_it_was) {
    ASSERT_EQ(Run(ThisVersion(), L"/SIMULATOR /D=" + kFolder), kDone);
    const SystemState installed = SystemState::Now();

    EXPECT_EQ(Run(BrokenVersion(), L"/NOSIMULATOR"), kLibraryFailed);
    EXPECT_EQ(Differences(installed, SystemState::Now()), "");
    EXPECT_EQ(Run(BrokenVersion(), L""), kCameraFailed);
    EXPECT_EQ(Differences(installed, SystemState::Now()), "");

    EXPECT_THAT(Kolmctl(kFolder, {L"list"}).out, HasSubstr("simulated camera (mono)"));
    RemoveCameraSettings();
    EXPECT_EQ(UninstallInPlace(kFolder), kDone);
    ::RemoveDirectoryW(L"C:\\Our own");
    EXPECT_EQ(DifferencesFromBefore(), "");
}

TEST_F(Installer, the_users_own_files_stay) {
    ASSERT_EQ(Run(ThisVersion(), L"/D=" + kFolder), kDone);
    const std::wstring own[] = {L"notes.txt", L"docs\\mine.md"};
    for (const std::wstring& name : own)
        std::ofstream(std::filesystem::path(kFolder + L"\\" + name)) << "mine";

    EXPECT_EQ(Run(ThisVersion(), L""), kDone);
    EXPECT_EQ(UninstallInPlace(kFolder), kDone);

    EXPECT_EQ(FilesIn(kFolder), std::set<std::wstring>(std::begin(own), std::end(own)));
    std::filesystem::remove_all(L"C:\\Our own");
    EXPECT_EQ(DifferencesFromBefore(), "");
}

TEST_F(Installer, keys_of_another_copy_stay_when_this_one_goes) {
    ASSERT_EQ(Run(ThisVersion(), L""), kDone);
    ASSERT_EQ(CModule::Get().RegisterServer(), S_OK);

    EXPECT_EQ(UninstallInPlace(kDefaultFolder), kDone);

    EXPECT_EQ(RegistryText(HKEY_CLASSES_ROOT, kModuleKey, nullptr), CModule::Get().Path());
    EXPECT_EQ(RegistryText(HKEY_CLASSES_ROOT, kLibraryKey, nullptr), L"");
    EXPECT_EQ(CModule::Get().UnregisterServer(), S_OK);
    EXPECT_EQ(DifferencesFromBefore(), "");
}

TEST_F(Installer, files_in_use_make_room_and_ask_for_a_restart) {
    ASSERT_EQ(Run(ThisVersion(), L"/D=" + kFolder), kDone);
    const std::wstring module = kFolder + L"\\kolmfluxor.dll";

    HMODULE inUse = ::LoadLibraryW(module.c_str());
    ASSERT_NE(inUse, nullptr);
    const DWORD upgrade = Run(ThisVersion(), L"");
    ::FreeLibrary(inUse);
    inUse = ::LoadLibraryW(module.c_str());
    EXPECT_NE(inUse, nullptr) << "the upgrade left no module";
    const DWORD uninstallation = UninstallInPlace(kFolder);
    const bool room = !Exists(module);
    ::FreeLibrary(inUse);

    EXPECT_EQ(upgrade, kRestartNeeded);
    EXPECT_EQ(uninstallation, kRestartNeeded);
    EXPECT_TRUE(room);
    EXPECT_EQ(RegistryText(HKEY_CLASSES_ROOT, kModuleKey, nullptr), L"");
    EXPECT_EQ(RegistryText(HKEY_LOCAL_MACHINE, kUninstallKey, L"InstallLocation"), L"");
    // As the restart would.
    const std::wstring pending = PendingDeletions();
    EXPECT_NE(pending.find(kFolder + L"\\"), std::wstring::npos);
    EXPECT_EQ(pending.find(kFolder + L"\\kolmfluxor.dll;"), std::wstring::npos) << "a later version would be deleted";
    ForgetPendingDeletions();
    std::filesystem::remove_all(L"C:\\Our own");
    EXPECT_EQ(DifferencesFromBefore(), "");
}

TEST_F(Installer, two_at_once_do_not_disturb_each_other) {
    HANDLE const other = ::CreateMutexW(nullptr, FALSE, kSetupMutex);
    EXPECT_EQ(Run(ThisVersion(), L""), kAnotherSetup);
    ::CloseHandle(other);

    EXPECT_EQ(DifferencesFromBefore(), "");
}

}  // namespace
}  // namespace kolmfluxor::test
