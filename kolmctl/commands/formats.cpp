/// @file  kolmctl formats and format: what the camera can send, and what it is set to.

#include <CLI/CLI.hpp>

#include "capture_pin.h"
#include "commands/commands.h"
#include "format_tables.h"

namespace kolmctl {
namespace {

class FormatsCommand final : public Command {
public:
    void Declare(CLI::App&) override {}

    void Run(Session& session) override {
        session.Out().Print(FormatsTable(CapturePin(session.OpenCamera()).Formats()));
    }
};

class FormatCommand final : public Command {
public:
    void Declare(CLI::App&) override {}

    void Run(Session& session) override {
        CaptureFormats formats = CapturePin(session.OpenCamera()).Formats();
        session.Out().Print(FormatTable(formats));
    }
};

}  // namespace

std::unique_ptr<Command> MakeFormats() {
    return std::make_unique<FormatsCommand>();
}

std::unique_ptr<Command> MakeFormat() {
    return std::make_unique<FormatCommand>();
}

}  // namespace kolmctl
