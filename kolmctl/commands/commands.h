#pragma once
/// @file  Makers of the subcommands, one for each file of this folder.

#include <memory>

#include "command.h"

namespace kolmctl {

[[nodiscard]] std::unique_ptr<Command> MakeFeatures();
[[nodiscard]] std::unique_ptr<Command> MakeGet();
[[nodiscard]] std::unique_ptr<Command> MakeList();
[[nodiscard]] std::unique_ptr<Command> MakeSet();
[[nodiscard]] std::unique_ptr<Command> MakeTrace();

}  // namespace kolmctl
