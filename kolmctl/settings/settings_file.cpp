#include "settings/settings_file.h"

#include <fcntl.h>
#include <io.h>

#include <cstdio>
#include <filesystem>
#include <fstream>
#include <iostream>
#include <iterator>

#include <windows.h>

#include "errors.h"
#include "lut_file.h"
#include "settings/settings_text.h"
#include "text.h"

namespace kolmctl {
namespace {

constexpr std::size_t kMostBytes = 1'000'000;

std::string ReadStandardInput() {
    ::_setmode(::_fileno(stdin), _O_BINARY);
    return {std::istreambuf_iterator<char>(std::cin), {}};
}

/// Takes the file away unless it was renamed before.
class TemporaryFile {
public:
    explicit TemporaryFile(std::filesystem::path path) : m_path(std::move(path)) {}
    ~TemporaryFile() { ::DeleteFileW(m_path.c_str()); }
    TemporaryFile(const TemporaryFile&) = delete;
    TemporaryFile& operator=(const TemporaryFile&) = delete;

    [[nodiscard]] const std::filesystem::path& Path() const { return m_path; }

private:
    std::filesystem::path m_path;
};

}  // namespace

std::string ReadSettingsText(const std::string& path) {
    std::string text = path == kStandardStream ? ReadStandardInput() : ReadFile(path);
    if (text.size() > kMostBytes) {
        throw UsageError(FileText(path) + " holds no settings: it is larger than 1 MB");
    }
    return text;
}

void WriteSettingsFile(const std::string& path, const std::string& text) {
    const std::string failed = "cannot write " + FileText(path);
    const std::filesystem::path target = ToUtf16(path);
    const TemporaryFile neighbor(target.wstring() + L"." + std::to_wstring(::GetCurrentProcessId()) + L".tmp");
    ::SetLastError(ERROR_WRITE_FAULT);  // for a stream that fails without asking the system
    {
        std::ofstream file(neighbor.Path(), std::ios::binary | std::ios::trunc);
        file << text;
        file.close();
        if (!file) {
            throw CallError(failed, HRESULT_FROM_WIN32(::GetLastError()));
        }
    }
    if (!::MoveFileExW(neighbor.Path().c_str(), target.c_str(), MOVEFILE_REPLACE_EXISTING | MOVEFILE_WRITE_THROUGH)) {
        throw CallError(failed, HRESULT_FROM_WIN32(::GetLastError()));
    }
}

}  // namespace kolmctl
