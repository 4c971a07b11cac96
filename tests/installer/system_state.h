#pragma once
/// @file  What an installation may leave behind: the registry and the files of this machine, before and after.

#include <set>
#include <string>

#include "support/registry.h"

namespace kolmfluxor::test {

/// Everything in HKEY_LOCAL_MACHINE and HKEY_CURRENT_USER (HKEY_CLASSES_ROOT is made of them), and every file and
/// folder of drive C: but those of Windows itself, which test programs share.
struct SystemState {
    RegistryContent machine;
    RegistryContent user;
    std::set<std::wstring> files;

    [[nodiscard]] static SystemState Now();
    [[nodiscard]] static std::set<std::wstring> FilesNow();
};

/// What differs, one line each, at most some dozens; empty when nothing does.
///
/// Not counted: what waits for deletion at the next start in the folder for temporary files (an uninstaller runs as a
/// copy there), and files there for the output of the programs that a test runs: the system's own processes, which some
/// of them start, hold these open.
[[nodiscard]] std::string Differences(const SystemState& before, const SystemState& after);

}  // namespace kolmfluxor::test
