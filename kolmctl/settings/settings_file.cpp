#include "settings/settings_file.h"

#include <fcntl.h>
#include <io.h>

#include <cstdio>
#include <filesystem>
#include <fstream>
#include <iostream>
#include <iterator>
#include <set>
#include <vector>

#include <windows.h>

#include "errors.h"
#include "lut_file.h"
#include "text.h"

namespace kolmctl {
namespace {

constexpr std::size_t kMostBytes = 1'000'000;

std::string ReadStandardInput() {
    ::_setmode(::_fileno(stdin), _O_BINARY);
    return {std::istreambuf_iterator<char>(std::cin), {}};
}

/// The parser's own message without its number: it tells line and column.
std::string MessageOf(const Json::exception& error) {
    const std::string text = error.what();
    const std::size_t number = text.find("] ");
    return number != std::string::npos ? text.substr(number + 2) : text;
}

/// Blanks after colons and commas, all on one line. @param value  an object of plain values, or a plain value
std::string OneLine(const Json& value) {
    if (!value.is_object()) {
        return value.dump(-1, ' ', false, Json::error_handler_t::replace);
    }
    std::string text;
    for (const auto& [key, member] : value.items()) {
        text += (text.empty() ? "" : ", ") + Json(key).dump() + ": " + OneLine(member);
    }
    return "{" + text + "}";
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

std::string FileText(const std::string& path) {
    return path == kStandardStream ? "the standard input" : "\"" + path + "\"";
}

std::string ReadSettingsText(const std::string& path) {
    std::string text = path == kStandardStream ? ReadStandardInput() : ReadFile(path);
    if (text.size() > kMostBytes) {
        throw UsageError(FileText(path) + " holds no settings: it is larger than 1 MB");
    }
    return text;
}

Json ParseSettings(const std::string& text, const std::string& path) {
    std::vector<std::set<std::string>> names;  // of the objects that are open
    const auto watch = [&](int, Json::parse_event_t event, Json& parsed) {
        if (event == Json::parse_event_t::object_start) {
            names.emplace_back();
        } else if (event == Json::parse_event_t::object_end) {
            names.pop_back();
        } else if (event == Json::parse_event_t::key && !names.back().insert(parsed.get<std::string>()).second) {
            throw UsageError(FileText(path) + ": " + parsed.dump() + " stands twice in one object");
        }
        return true;
    };
    try {
        return Json::parse(text, watch);
    } catch (const Json::parse_error& error) {
        throw UsageError(FileText(path) + " is no JSON: " + MessageOf(error));
    } catch (const Json::out_of_range& error) {
        throw UsageError(FileText(path) + ": " + MessageOf(error));  // a number beyond all numbers
    }
}

std::string SettingsText(const Json& document) {
    std::string text = "{\n";
    for (auto member = document.begin(); member != document.end(); ++member) {
        text += "  " + Json(member.key()).dump() + ": ";
        if (member.key() == "settings") {
            text += "{";
            for (auto setting = member->begin(); setting != member->end(); ++setting) {
                text += (setting == member->begin() ? "\n    " : ",\n    ") + Json(setting.key()).dump() + ": " +
                        OneLine(*setting);
            }
            text += "\n  }";
        } else {
            text += OneLine(*member);
        }
        text += std::next(member) != document.end() ? ",\n" : "\n";
    }
    return text + "}\n";
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
