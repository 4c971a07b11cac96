#pragma once
/// @file  What every subcommand is, and how they are found.

#include <memory>
#include <span>

#include "session.h"

namespace CLI {
class App;
}

namespace kolmctl {

/// One subcommand. Made before the command line is read, run at most once.
class Command {
public:
    Command() = default;
    virtual ~Command() = default;
    Command(const Command&) = delete;
    Command& operator=(const Command&) = delete;

    /// Declares the subcommand's own arguments and options.
    virtual void Declare(CLI::App& app) = 0;

    /// Does the work. @throws Error
    virtual void Run(Session& session) = 0;
};

struct CommandRow {
    const char* group = nullptr;  ///< the earlier row that this one is a subcommand of; null at the top
    const char* name;
    const char* summary;
    const char* example;  ///< a command line
    bool traceable;       ///< talks to the camera, so that "trace" can run it
    /// Null for a row that only groups others, one of which must then be given.
    std::unique_ptr<Command> (*make)() = nullptr;
};

/// All subcommands, in the order of the help. A new one is a file in commands/ and a row here.
[[nodiscard]] std::span<const CommandRow> CommandTable();

}  // namespace kolmctl
