#include "support/process.h"

#include <array>
#include <stdexcept>
#include <utility>

namespace kolmfluxor::test {
namespace {

constexpr DWORD kLimitMs = 60'000;
constexpr DWORD kPollMs = 10;  // between two looks at a pipe

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

/// The standard streams of a program to be started; all can be inherited.
struct Streams {
    HANDLE in;
    HANDLE out;
    HANDLE err;
};

/// Program and arguments as one line, which the program takes apart again.
std::wstring CommandLine(const std::wstring& program, const std::vector<std::wstring>& arguments) {
    std::wstring commandLine;
    Append(&commandLine, program);
    for (const std::wstring& argument : arguments) {
        Append(&commandLine, argument);
    }
    return commandLine;
}

UniqueHandle Start(const std::wstring& program, std::wstring commandLine, const Streams& streams) {
    STARTUPINFOW startup{};
    startup.cb = sizeof startup;
    startup.dwFlags = STARTF_USESTDHANDLES;
    startup.hStdInput = streams.in;
    startup.hStdOutput = streams.out;
    startup.hStdError = streams.err;
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
        throw std::runtime_error("Start: the program could not be started: error " + std::to_string(error));
    }
    const UniqueHandle thread(started.hThread);
    return UniqueHandle(started.hProcess);
}

DWORD ExitCode(HANDLE process) {
    DWORD code = 0;
    ::GetExitCodeProcess(process, &code);
    return code;
}

}  // namespace

ProcessOutcome RunProcess(const std::wstring& program, const std::vector<std::wstring>& arguments,
                          const std::string& input) {
    return RunCommandLine(program, CommandLine(program, arguments), input);
}

ProcessOutcome RunCommandLine(const std::wstring& program, std::wstring commandLine, const std::string& input) {
    const UniqueHandle in = TemporaryFile();
    DWORD written = 0;
    if (!::WriteFile(in.get(), input.data(), static_cast<DWORD>(input.size()), &written, nullptr) ||
        written != input.size()) {
        throw std::runtime_error("RunCommandLine: the program's input could not be written");
    }
    ::SetFilePointer(in.get(), 0, nullptr, FILE_BEGIN);  // the child inherits the place
    const UniqueHandle out = TemporaryFile();
    const UniqueHandle err = TemporaryFile();
    const UniqueHandle process = Start(program, std::move(commandLine), {in.get(), out.get(), err.get()});
    if (::WaitForSingleObject(process.get(), kLimitMs) != WAIT_OBJECT_0) {
        ::TerminateProcess(process.get(), 99);
        throw std::runtime_error("RunCommandLine: the program did not end: " + Content(out.get()) + Content(err.get()));
    }
    return {ExitCode(process.get()), Content(out.get()), Content(err.get())};
}

CPipedProcess::CPipedProcess(const std::wstring& program, const std::vector<std::wstring>& arguments)
    : m_err(TemporaryFile()) {
    HANDLE reading = nullptr;
    HANDLE writing = nullptr;
    if (!::CreatePipe(&reading, &writing, nullptr, 0)) {
        throw std::runtime_error("CPipedProcess: no pipe could be made");
    }
    m_pipe.reset(reading);
    const UniqueHandle out(writing);  // the program's own copy is the only one from its start on
    ::SetHandleInformation(writing, HANDLE_FLAG_INHERIT, HANDLE_FLAG_INHERIT);
    const UniqueHandle in = TemporaryFile();
    m_process = Start(program, CommandLine(program, arguments), {in.get(), out.get(), m_err.get()});
}

CPipedProcess::~CPipedProcess() {
    ::TerminateProcess(m_process.get(), 99);
    ::WaitForSingleObject(m_process.get(), kLimitMs);
}

void CPipedProcess::TakeOutput() {
    DWORD available = 0;
    if (m_pipe == nullptr || !::PeekNamedPipe(m_pipe.get(), nullptr, 0, nullptr, &available, nullptr)) {
        return;
    }
    std::string part(available, '\0');
    DWORD read = 0;
    if (available != 0 && ::ReadFile(m_pipe.get(), part.data(), available, &read, nullptr)) {
        m_out.append(part, 0, read);
    }
}

bool CPipedProcess::HasPrinted(std::string_view text) {
    const ULONGLONG end = ::GetTickCount64() + kLimitMs;
    bool more = true;
    while (m_out.find(text) == std::string::npos && more && ::GetTickCount64() < end) {
        more = ::WaitForSingleObject(m_process.get(), kPollMs) != WAIT_OBJECT_0;  // what it left is still to be taken
        TakeOutput();
    }
    return m_out.find(text) != std::string::npos;
}

ProcessOutcome CPipedProcess::Wait() {
    const ULONGLONG end = ::GetTickCount64() + kLimitMs;
    while (::WaitForSingleObject(m_process.get(), kPollMs) != WAIT_OBJECT_0) {
        TakeOutput();  // a full pipe would hold the program up
        if (::GetTickCount64() >= end) {
            throw std::runtime_error("CPipedProcess: the program did not end: " + m_out + Content(m_err.get()));
        }
    }
    TakeOutput();
    return {ExitCode(m_process.get()), m_out, Content(m_err.get())};
}

}  // namespace kolmfluxor::test
