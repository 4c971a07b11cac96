#include "installer/system_state.h"

#include <algorithm>
#include <array>
#include <string_view>
#include <vector>

#include <windows.h>

namespace kolmfluxor::test {
namespace {

constexpr wchar_t kPending[] = L"System\\CurrentControlSet\\Control\\Session Manager:PendingFileRenameOperations";

/// Parts of the registry that change by themselves.
bool Counts(const std::wstring& key) {
    return !key.starts_with(L"HARDWARE\\") && !key.starts_with(L"Hardware\\");
}

void CollectFiles(const std::wstring& folder, std::set<std::wstring>* files) {
    WIN32_FIND_DATAW found{};
    HANDLE const search = ::FindFirstFileW((folder + L"\\*").c_str(), &found);
    if (search == INVALID_HANDLE_VALUE) return;
    do {
        const std::wstring name = found.cFileName;
        const std::wstring path = folder + L"\\" + name;
        if (name == L"." || name == L".." || path == L"C:\\windows") continue;
        files->insert(path);
        const bool link = (found.dwFileAttributes & FILE_ATTRIBUTE_REPARSE_POINT) != 0;
        if ((found.dwFileAttributes & FILE_ATTRIBUTE_DIRECTORY) != 0 && !link) CollectFiles(path, files);
    } while (::FindNextFileW(search, &found));
    ::FindClose(search);
}

std::wstring TemporaryFolder() {
    std::array<wchar_t, MAX_PATH> path{};
    ::GetTempPathW(static_cast<DWORD>(path.size()), path.data());
    return path.data();
}

/// Forgets files that wait for deletion in the temporary folder, and the value that says so when it says no more.
void ForgetPending(SystemState* state) {
    const std::wstring temporary = TemporaryFolder();
    std::erase_if(state->files, [&](const std::wstring& file) {
        return file.starts_with(temporary + L"~nsu") || file.starts_with(temporary + L"out");
    });
    const auto found = state->machine.find(kPending);
    if (found == state->machine.end()) return;
    const std::wstring text(reinterpret_cast<const wchar_t*>(found->second.bytes.data()),
                            found->second.bytes.size() / sizeof(wchar_t));
    // Pairs of names, the second one empty for a deletion; all stand between NULs.
    const std::wstring harmless = L"\\??\\" + temporary + L"~nsu";
    for (std::size_t i = 0; i < text.size();) {
        const std::wstring name = text.c_str() + i;
        if (!name.empty() && !name.starts_with(harmless)) return;
        i += name.size() + 1;
    }
    state->machine.erase(found);
}

std::string Narrow(const std::wstring& text) {
    std::string narrow;
    for (const wchar_t c : text)
        narrow += c < 127 ? static_cast<char>(c) : '?';
    return narrow;
}

class Report {
public:
    void Add(const char* what, const std::wstring& name) {
        if (++m_count <= kMost) m_text += std::string(what) + Narrow(name) + "\n";
    }
    [[nodiscard]] std::string Text() const {
        return m_count <= kMost ? m_text : m_text + "and " + std::to_string(m_count - kMost) + " more\n";
    }

private:
    static constexpr std::size_t kMost = 40;
    std::size_t m_count = 0;
    std::string m_text;
};

void Compare(const wchar_t* root, const RegistryContent& before, const RegistryContent& after, Report* report) {
    for (const auto& [name, value] : before) {
        if (!Counts(name)) continue;
        const auto found = after.find(name);
        if (found == after.end())
            report->Add("gone: ", root + name);
        else if (found->second != value)
            report->Add("changed: ", root + name);
    }
    for (const auto& [name, value] : after)
        if (Counts(name) && !before.contains(name)) report->Add("new: ", root + name);
}

}  // namespace

SystemState SystemState::Now() {
    return {CPrivateRegistry::ContentOf(HKEY_LOCAL_MACHINE), CPrivateRegistry::ContentOf(HKEY_CURRENT_USER),
            FilesNow()};
}

std::set<std::wstring> SystemState::FilesNow() {
    std::set<std::wstring> files;
    CollectFiles(L"C:", &files);
    return files;
}

std::string Differences(const SystemState& before, const SystemState& after) {
    SystemState first = before;
    SystemState second = after;
    ForgetPending(&first);
    ForgetPending(&second);
    Report report;
    Compare(L"HKLM\\", first.machine, second.machine, &report);
    Compare(L"HKCU\\", first.user, second.user, &report);
    for (const std::wstring& file : first.files)
        if (!second.files.contains(file)) report.Add("gone: ", file);
    for (const std::wstring& file : second.files)
        if (!first.files.contains(file)) report.Add("new: ", file);
    return report.Text();
}

}  // namespace kolmfluxor::test
