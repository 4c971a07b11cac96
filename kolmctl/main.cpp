/// @file  kolmctl: controls IIDC cameras from the command line.

#include <cstdio>

#include <windows.h>

#include <fcntl.h>
#include <io.h>

#include "program.h"
#include "program_arguments.h"

namespace {

/// UTF-8 and plain line feeds on a console and in files alike.
void PrepareStreams() {
    ::_setmode(::_fileno(stdout), _O_BINARY);
    ::_setmode(::_fileno(stderr), _O_BINARY);
    ::SetConsoleOutputCP(CP_UTF8);
}

}  // namespace

int main() {
    PrepareStreams();
    return static_cast<int>(kolmctl::RunProgram(kolmctl::ProgramArguments()));
}
