#pragma once
/// @file  How kolmctl fails: its exit codes, and one exception type for each.

#include <span>
#include <stdexcept>
#include <string>

#include <windows.h>

namespace kolmctl {

/// The program's exit codes, a contract with scripts.
enum class ExitCode : int {
    success = 0,
    refused = 1,       ///< the camera, its driver, the module or a file refused a request
    usage = 2,         ///< wrong usage or input; nothing in a camera was changed
    noSuchDevice = 3,  ///< no such device, several that match, or one without the property set
    noOutput = 4       ///< the standard output takes no more; what was asked for may have been done
};

struct ExitCodeRow {
    ExitCode code;
    const char* meaning;
};

/// All exit codes in words, in ascending order.
[[nodiscard]] std::span<const ExitCodeRow> ExitCodes();

/// An error for the user: a message, a hint that may be empty, and the exit code.
class Error : public std::runtime_error {
public:
    Error(ExitCode code, const std::string& message, std::string hint = {})
        : std::runtime_error(message), m_code(code), m_hint(std::move(hint)) {}

    [[nodiscard]] ExitCode Code() const { return m_code; }
    /// What the user may do about it, lines without a line end after the last one; empty for none.
    [[nodiscard]] const std::string& Hint() const { return m_hint; }

private:
    ExitCode m_code;
    std::string m_hint;
};

/// The command line asks for something that does not exist.
class UsageError final : public Error {
public:
    explicit UsageError(const std::string& message, std::string hint = {})
        : Error(ExitCode::usage, message, std::move(hint)) {}
};

/// No device could be chosen.
class DeviceError final : public Error {
public:
    explicit DeviceError(const std::string& message, std::string hint = {})
        : Error(ExitCode::noSuchDevice, message, std::move(hint)) {}
};

/// A call answered anything but `S_OK`.
class CallError final : public Error {
public:
    /// @param failed  what failed, as in "cannot read gain"
    CallError(const std::string& failed, HRESULT hr, std::string hint = {});

    [[nodiscard]] HRESULT Result() const { return m_hr; }

private:
    HRESULT m_hr;
};

/// Whether a driver says by this code that the camera does not have what was asked for.
[[nodiscard]] bool TellsAbsence(HRESULT hr);

/// Throws a CallError unless `hr` is exactly `S_OK`: the interface's other success codes mean that something is amiss.
void Check(HRESULT hr, const std::string& failed);

}  // namespace kolmctl
