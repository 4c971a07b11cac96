#pragma once
/// @file  From the table of subcommands to a command line parser.

#include <functional>
#include <memory>
#include <vector>

#include <CLI/CLI.hpp>

#include "command.h"

namespace kolmctl {

/// Subcommands of a parser, one of which the command line chooses.
class CommandSet {
public:
    /// Adds to `parent` the rows of the table that `wanted` accepts; one of them must then be given.
    void AddTo(CLI::App& parent, const std::function<bool(const CommandRow&)>& wanted);

    /// The subcommand that was given; only after a successful parse.
    [[nodiscard]] Command& Given() const;

private:
    struct Entry {
        const CommandRow* row;
        CLI::App* parser;
        std::unique_ptr<Command> command;  ///< null for a group
    };

    /// The parser that a row belongs under. @param top  the parser of rows without a group
    [[nodiscard]] CLI::App& ParserAbove(const CommandRow& row, CLI::App& top) const;

    std::vector<Entry> m_entries;
};

/// The program's command line.
class CommandLine {
public:
    CommandLine();

    /// Reads the arguments, in UTF-8 and without the program's name.
    ///
    /// @throws CLI::ParseError for wrong usage, and as CLI::Success for --help and --version: see Explain
    void Parse(std::vector<std::string> arguments);

    /// Prints what a parse ended with: help or version to the standard output, else an error.
    ///
    /// @return  whether it was an error
    bool Explain(const CLI::ParseError& ended);

    [[nodiscard]] const GlobalOptions& Options() const { return m_options; }
    [[nodiscard]] Command& Given() const { return m_commands.Given(); }

private:
    GlobalOptions m_options;
    CLI::App m_parser;
    CommandSet m_commands;
};

}  // namespace kolmctl
