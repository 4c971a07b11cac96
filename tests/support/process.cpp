#include "support/process.h"

#include <array>
#include <stdexcept>

#include "base/handles.h"

namespace kolmfluxor::test {
namespace {

constexpr DWORD kLimitMs = 60'000;

/// Adds an argument by the rules that CommandLineToArgvW undoes.
void Append(std::wstring* commandLine, const std::wstring& argument) {
    if (!commandLine->empty()) {
        *commandLine += L' ';
    }
    *commandLine += L'"';
    std::size_t backslashes = 0;
    for (const wchar_t c : argument) {
        if (c == L'"') {
            commandLine->append(backslashes + 1, L'\\');
        }
        backslashes = c == L'\\' ? backslashes + 1 : 0;
        *commandLine += c;
    }
    commandLine->append(backslashes, L'\\');
    *commandLine += L'"';
}

/// A temporary file that a child inherits; it vanishes with its last handle.
UniqueHandle TemporaryFile() {
    std::array<wchar_t, MAX_PATH> folder{};
    std::array<wchar_t, MAX_PATH> path{};
    ::GetTempPathW(static_cast<DWORD>(folder.size()), folder.data());
    ::GetTempFileNameW(folder.data(), L"out", 0, path.data());
    SECURITY_ATTRIBUTES inheritable{sizeof(SECURITY_ATTRIBUTES), nullptr, TRUE};
    HANDLE const file = ::CreateFileW(path.data(), GENERIC_READ | GENERIC_WRITE | DELETE,
                                      FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE, &inheritable,
                                      CREATE_ALWAYS, FILE_ATTRIBUTE_TEMPORARY | FILE_FLAG_DELETE_ON_CLOSE, nullptr);
    if (file == INVALID_HANDLE_VALUE) {
        throw std::runtime_error("RunProcess: no temporary file could be made");
    }
    return UniqueHandle(file);
}

std::string Content(HANDLE file) {
    std::string content;
    std::array<char, 4096> part{};
    ::SetFilePointer(file, 0, nullptr, FILE_BEGIN);
    DWORD read = 0;
    while (::ReadFile(file, part.data(), static_cast<DWORD>(part.size()), &read, nullptr) && read != 0) {
        content.append(part.data(), read);
    }
    return content;
}

}  // namespace

ProcessOutcome RunProcess(const std::wstring& program, const std::vector<std::wstring>& arguments) {
    std::wstring commandLine;
    Append(&commandLine, program);
    for (const std::wstring& argument : arguments) {
        Append(&commandLine, argument);
    }
    const UniqueHandle in = TemporaryFile();
    const UniqueHandle out = TemporaryFile();
    const UniqueHandle err = TemporaryFile();

    STARTUPINFOW startup{};
    startup.cb = sizeof startup;
    startup.dwFlags = STARTF_USESTDHANDLES;
    startup.hStdInput = in.get();
    startup.hStdOutput = out.get();
    startup.hStdError = err.get();
    PROCESS_INFORMATION started{};
    const auto start = [&] {
        return ::CreateProcessW(program.c_str(), commandLine.data(), nullptr, nullptr, TRUE, 0, nullptr, nullptr,
                                &startup, &started) != FALSE
                   ? DWORD{ERROR_SUCCESS}
                   : ::GetLastError();
    };
    // Once in some thousand starts a process of Wine dies before its program begins, which is this error.
    DWORD error = start();
    for (int again = 0; again < 2 && error == ERROR_INTERNAL_ERROR; ++again)
        error = start();
    if (error != ERROR_SUCCESS) {
        throw std::runtime_error("RunProcess: the program could not be started: error " + std::to_string(error));
    }
    const UniqueHandle process(started.hProcess);
    const UniqueHandle thread(started.hThread);
    if (::WaitForSingleObject(process.get(), kLimitMs) != WAIT_OBJECT_0) {
        ::TerminateProcess(process.get(), 99);
        throw std::runtime_error("RunProcess: the program did not end: " + Content(out.get()) + Content(err.get()));
    }
    DWORD exitCode = 0;
    ::GetExitCodeProcess(process.get(), &exitCode);
    return {exitCode, Content(out.get()), Content(err.get())};
}

}  // namespace kolmfluxor::test
