#pragma once
/// @file  Runs a program as a child process and catches what it prints.

#include <string>
#include <string_view>
#include <vector>

#include <windows.h>

#include "base/handles.h"

namespace kolmfluxor::test {

/// How a program ended.
struct ProcessOutcome {
    DWORD exitCode;
    std::string out;  ///< standard output, byte for byte
    std::string err;  ///< standard error, byte for byte
};

/// Runs a program to its end, with this process's environment.
///
/// @param program    full path
/// @param arguments  each arrives as one argument, whatever blanks or quotation marks it holds
/// @param input      what its standard input holds, byte for byte
/// @throws std::runtime_error when it cannot be started, or has not ended after a minute (it is ended then)
[[nodiscard]] ProcessOutcome RunProcess(const std::wstring& program, const std::vector<std::wstring>& arguments,
                                        const std::string& input = {});

/// A program that runs beside the test, with a pipe for its standard output and an empty standard input.
class CPipedProcess {
public:
    /// Starts it. @throws std::runtime_error
    CPipedProcess(const std::wstring& program, const std::vector<std::wstring>& arguments);

    /// Ends it if it still runs.
    ~CPipedProcess();

    CPipedProcess(const CPipedProcess&) = delete;
    CPipedProcess& operator=(const CPipedProcess&) = delete;

    /// Waits, at most a minute, until it has printed a text. @return  whether it has
    [[nodiscard]] bool HasPrinted(std::string_view text);

    /// Closes this side of the pipe: the program's next output fails.
    void CloseOutput() { m_pipe.reset(); }

    /// Waits until it has ended.
    ///
    /// @throws std::runtime_error when it has not after a minute
    [[nodiscard]] ProcessOutcome Wait();

private:
    /// Takes what the pipe holds.
    void TakeOutput();

    UniqueHandle m_pipe;
    UniqueHandle m_err;
    UniqueHandle m_process;
    std::string m_out;
};

/// The same with a command line as it stands, for a program that reads it in a way of its own.
///
/// @param commandLine  program and arguments
[[nodiscard]] ProcessOutcome RunCommandLine(const std::wstring& program, std::wstring commandLine,
                                            const std::string& input = {});

}  // namespace kolmfluxor::test
