/// @file  kolmctl: controls IIDC cameras from the command line.

#include <cstdio>
#include <exception>
#include <iostream>
#include <string>

#include <windows.h>

#include <fcntl.h>
#include <io.h>

#include "command_line.h"
#include "errors.h"
#include "program_arguments.h"
#include "session.h"

namespace {

using namespace kolmctl;

/// UTF-8 and plain line feeds on a console and in files alike.
void PrepareStreams() {
    ::_setmode(::_fileno(stdout), _O_BINARY);
    ::_setmode(::_fileno(stderr), _O_BINARY);
    ::SetConsoleOutputCP(CP_UTF8);
}

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

ExitCode Run() {
    CommandLine commandLine;
    try {
        commandLine.Parse(ProgramArguments());
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

}  // namespace

int main() {
    PrepareStreams();
    return static_cast<int>(Run());
}
