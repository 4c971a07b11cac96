#include "command_line.h"

#include <algorithm>
#include <iostream>
#include <stdexcept>
#include <string_view>

#include "errors.h"

namespace kolmctl {
namespace {

constexpr std::size_t kHelpColumn = 28;

std::string ExitCodesText() {
    std::string text = "Exit codes:\n";
    for (const ExitCodeRow& row : ExitCodes()) {
        text += "  " + std::to_string(static_cast<int>(row.code)) + "  " + row.meaning + "\n";
    }
    return text;
}

std::string Examples() {
    std::string text = "Examples:\n";
    for (const CommandRow& row : CommandTable()) {
        if (row.make != nullptr) {
            text += std::string("  ") + row.example + "\n";
        }
    }
    return text;
}

}  // namespace

void CommandSet::AddTo(CLI::App& parent, const std::function<bool(const CommandRow&)>& wanted) {
    for (const CommandRow& row : CommandTable()) {
        if (!wanted(row)) {
            continue;
        }
        CLI::App* const parser = ParserAbove(row, parent).add_subcommand(row.name, row.summary);
        parser->footer(std::string("Global options and exit codes: see kolmctl --help\n\nExample:\n  ") + row.example);
        m_entries.push_back({&row, parser, row.make != nullptr ? row.make() : nullptr});
        if (m_entries.back().command != nullptr) {
            m_entries.back().command->Declare(*parser);
        } else {
            parser->require_subcommand(1);
        }
    }
    parent.require_subcommand(1);
}

CLI::App& CommandSet::ParserAbove(const CommandRow& row, CLI::App& top) const {
    if (row.group == nullptr) {
        return top;
    }
    const auto above = std::ranges::find_if(m_entries, [&](const Entry& entry) {
        return entry.row->group == nullptr && std::string_view(entry.row->name) == row.group;
    });
    if (above == m_entries.end()) {
        throw std::logic_error(std::string("CommandSet::ParserAbove: no group ") + row.group);
    }
    return *above->parser;
}

Command& CommandSet::Given() const {
    // A group is parsed too when a subcommand of it is given; those stand after it.
    const auto given = std::ranges::find_if(m_entries.rbegin(), m_entries.rend(),
                                            [](const Entry& entry) { return entry.parser->parsed(); });
    if (given == m_entries.rend() || given->command == nullptr) {
        throw std::logic_error("CommandSet::Given: no subcommand was parsed");
    }
    return *given->command;
}

CommandLine::CommandLine() : m_parser("Controls IIDC cameras through the KolmFluxor property set.", "kolmctl") {
    m_parser.get_formatter()->column_width(kHelpColumn);
    m_parser.fallthrough();  // global options may also follow the subcommand
    m_parser.allow_windows_style_options(false);
    m_parser.set_version_flag("--version", "kolmctl " KOLMCTL_VERSION, "Print the version and exit");

    DeclareCameraOptions(m_parser, &m_options);
    auto* const json = m_parser.add_flag("--json", m_options.json, "Print JSON");
    json->option_text(" ");
    auto* const tsv = m_parser.add_flag("--tsv", m_options.tsv, "Print tab-separated values with a heading");
    tsv->option_text(" ")->excludes(json);

    m_commands.AddTo(m_parser, [](const CommandRow&) { return true; });
    m_parser.footer(Examples() + "\n" + ExitCodesText());
}

void CommandLine::Parse(std::vector<std::string> arguments) {
    std::ranges::reverse(arguments);  // as the parser takes them
    m_parser.parse(std::move(arguments));
}

bool CommandLine::Explain(const CLI::ParseError& ended) {
    if (ended.get_exit_code() == static_cast<int>(CLI::ExitCodes::Success)) {
        m_parser.exit(ended, std::cout, std::cerr);
        return false;
    }
    // The parser misses a subcommand also where an unknown one was given.
    const std::vector<std::string> unknown = m_parser.remaining(true);
    const bool misnamed = dynamic_cast<const CLI::RequiredError*>(&ended) != nullptr && !unknown.empty();
    const std::string message = misnamed ? "unknown subcommand \"" + unknown.front() + "\"" : ended.what();
    std::cerr << "kolmctl: " << message << "\n  \"kolmctl --help\" tells the usage\n";
    return true;
}

}  // namespace kolmctl
