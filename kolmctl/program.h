#pragma once
/// @file  The program, but for the process around it.

#include <string>
#include <vector>

#include "errors.h"

namespace kolmctl {

/// Runs one command line: output to `std::cout`, errors to `std::cerr`.
///
/// @param arguments  in UTF-8, without the program's name
[[nodiscard]] ExitCode RunProgram(std::vector<std::string> arguments);

}  // namespace kolmctl
