#include "command.h"

#include "commands/commands.h"

namespace kolmctl {
namespace {

// clang-format off
constexpr CommandRow kCommands[] = {
    {.name = "list",     .summary = "List the capture devices",
     .example = "kolmctl list", .traceable = false, .make = MakeList},
    {.name = "features", .summary = "List the camera's features: value, range, mode, supported modes",
     .example = "kolmctl --simulate features", .traceable = true, .make = MakeFeatures},
    {.name = "get",      .summary = "Show value and mode of features",
     .example = "kolmctl --simulate get gain shutter", .traceable = true, .make = MakeGet},
    {.name = "set",      .summary = "Set value or mode of a feature, or both",
     .example = "kolmctl --simulate set gain 100 --mode manual", .traceable = true, .make = MakeSet},
    {.name = "trace",    .summary = "Run another subcommand, then show its driver requests (simulated camera only)",
     .example = "kolmctl --simulate trace set gain 100", .traceable = false, .make = MakeTrace},
};
// clang-format on

}  // namespace

std::span<const CommandRow> CommandTable() {
    return kCommands;
}

}  // namespace kolmctl
