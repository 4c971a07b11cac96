#pragma once
/// @file  The words of this process's command line.

#include <string>
#include <vector>

namespace kolmctl {

/// The arguments without the program's name, in UTF-8.
[[nodiscard]] std::vector<std::string> ProgramArguments();

}  // namespace kolmctl
