#include "system/support_kolmctl_help.h"

#include <array>
#include <filesystem>
#include <fstream>
#include <functional>
#include <sstream>
#include <stdexcept>
#include <tuple>

#include <shellapi.h>

#include "support/module.h"

namespace kolmfluxor::test {
namespace {

constexpr char kSubcommands[] = "\nSubcommands:\n  ";
constexpr int kLutValues = 4096;  // of the simulated camera's tables

std::wstring Wide(const std::string& ascii) {
    return {ascii.begin(), ascii.end()};
}

/// The first word of each line below "Subcommands:".
std::vector<std::wstring> SubcommandsIn(const std::string& help) {
    std::vector<std::wstring> names;
    const std::size_t start = help.find(kSubcommands);
    if (start == std::string::npos) {
        return names;
    }
    std::istringstream lines(help.substr(start + sizeof kSubcommands - 3));
    for (std::string line; std::getline(lines, line) && line.starts_with("  ");) {
        if (line[2] != ' ') {  // else a second line of the one before
            names.push_back(Wide(line.substr(2, line.find(' ', 2) - 2)));
        }
    }
    return names;
}

std::string LastLine(std::string text) {
    text.erase(text.find_last_not_of(" \n") + 1);
    return text.substr(text.find_last_of('\n') + 1);
}

ProcessOutcome Help(std::vector<std::wstring> words) {
    words.emplace_back(L"--help");
    return RunProcess(CModule::BesideTheTests(L"kolmctl.exe"), words);
}

void AddPages(const std::vector<std::wstring>& group, const std::string& help, std::vector<HelpPage>* pages) {
    for (const std::wstring& name : SubcommandsIn(help)) {
        HelpPage page{group, {}, {}};
        page.words.push_back(name);
        page.outcome = Help(page.words);
        const std::string line = LastLine(page.outcome.out);
        page.example = line.substr(line.find_first_not_of(' '));
        pages->push_back(page);
        if (name != L"trace") {
            AddPages(page.words, page.outcome.out, pages);
        }
    }
}

/// A curve for each of the camera's values. @param line  makes a line of the file from a value
void WriteCurve(const char* file, const char* firstLine, const std::function<std::string(int)>& line) {
    std::ofstream stream(file, std::ios::binary);
    stream << firstLine;
    for (int value = 0; value < kLutValues; ++value) {
        stream << line(value) << "\n";
    }
}

}  // namespace

std::string HelpPage::Name() const {
    std::string name;
    for (const std::wstring& word : words) {
        name += (name.empty() ? "" : " ") + std::string(word.begin(), word.end());
    }
    return name;
}

std::vector<std::wstring> HelpPage::ExampleArguments() const {
    int count = 0;
    LPWSTR* const parts = ::CommandLineToArgvW(Wide(example).c_str(), &count);
    std::vector<std::wstring> arguments(parts + 1, parts + count);
    ::LocalFree(parts);
    return arguments;
}

std::vector<HelpPage> AllHelpPages() {
    std::vector<HelpPage> pages;
    AddPages({}, Help({}).out, &pages);
    return pages;
}

CExampleFolder::CExampleFolder() : m_before(std::filesystem::current_path().wstring()) {
    std::array<wchar_t, MAX_PATH> temporary{};
    ::GetTempPathW(static_cast<DWORD>(temporary.size()), temporary.data());
    m_folder = std::wstring(temporary.data()) + L"examples-" + std::to_wstring(::GetCurrentProcessId());
    if (!::CreateDirectoryW(m_folder.c_str(), nullptr) || !::SetCurrentDirectoryW(m_folder.c_str())) {
        throw std::runtime_error("CExampleFolder: no folder could be made");
    }
    WriteCurve("gamma.csv", "level,linear,inverse\r\n", [](int value) {
        const std::string number = std::to_string(value);
        return number + "," + number + "," + std::to_string(kLutValues - 1 - value) + "\r";
    });
    WriteCurve("gamma.txt", "", [](int value) { return std::to_string(value); });
}

CExampleFolder::~CExampleFolder() {
    EXPECT_TRUE(::SetCurrentDirectoryW(m_before.c_str()));
    std::error_code failed;
    std::ignore = std::filesystem::remove_all(m_folder, failed);
    EXPECT_FALSE(failed) << failed.message();
}

}  // namespace kolmfluxor::test
