#include "program.h"

#include <exception>
#include <iostream>
#include <utility>

#include "command_line.h"
#include "session.h"

namespace kolmctl {
namespace {

ExitCode Report(const std::string& message, const std::string& hint, ExitCode code) {
    std::cerr << "kolmctl: " << message << "\n";
    std::string line;
    for (const char c : hint + (hint.empty() ? "" : "\n")) {
        line += c;
        if (c == '\n') {
            std::cerr << "  " << line;
            line.clear();
        }
    }
    return code;
}

/// Runs the command and ends the output; a command that fails may have printed something before.
void RunCommand(Command& command, Session& session) {
    try {
        command.Run(session);
    } catch (...) {
        session.Out().Finish();
        throw;
    }
    session.Out().Finish();
}

}  // namespace

ExitCode RunProgram(std::vector<std::string> arguments) {
    CommandLine commandLine;
    try {
        commandLine.Parse(std::move(arguments));
    } catch (const CLI::ParseError& ended) {
        return commandLine.Explain(ended) ? ExitCode::usage : ExitCode::success;
    }
    try {
        Session session(commandLine.Options(), std::cout);
        RunCommand(commandLine.Given(), session);
        if (!session.Out().TakesMore()) {
            throw Error(ExitCode::noOutput, "cannot write to the standard output");
        }
        return ExitCode::success;
    } catch (const Error& error) {
        return Report(error.what(), error.Hint(), error.Code());
    } catch (const std::exception& error) {
        // The interface lets exceptions pass, of the module and of the standard library.
        return Report(error.what(), "", ExitCode::refused);
    } catch (...) {
        return Report("unknown exception", "", ExitCode::refused);
    }
}

}  // namespace kolmctl
