#pragma once
/// @file  Runs a program as a child process and catches what it prints.

#include <string>
#include <vector>

#include <windows.h>

namespace kolmfluxor::test {

/// How a program ended.
struct ProcessOutcome {
    DWORD exitCode;
    std::string out;  ///< standard output, byte for byte
    std::string err;  ///< standard error, byte for byte
};

/// Runs a program to its end, with an empty standard input and this process's environment.
///
/// @param program    full path
/// @param arguments  each arrives as one argument, whatever blanks or quotation marks it holds
/// @throws std::runtime_error when it cannot be started, or has not ended after a minute (it is ended then)
[[nodiscard]] ProcessOutcome RunProcess(const std::wstring& program, const std::vector<std::wstring>& arguments);

}  // namespace kolmfluxor::test
