/// @file  kolmctl lut, lut enable and lut disable.

#include <CLI/CLI.hpp>

#include "arguments.h"
#include "commands/commands.h"
#include "errors.h"
#include "lut_state.h"

namespace kolmctl {
namespace {

class LutCommand final : public Command {
public:
    void Declare(CLI::App&) override {}

    void Run(Session& session) override { session.Out().Print(LutTable(ReadLutState(session.PropertySet()))); }
};

class LutEnableCommand final : public Command {
public:
    void Declare(CLI::App& app) override {
        app.add_option("N", m_number, "Number of the table, from 0")->required()->option_text(" ");
    }

    void Run(Session& session) override {
        const ULONG number = ParseNumberOf("table number", m_number);
        const std::string intention = "cannot enable table " + m_number;
        kolmfluxor::IKolmFluxorPropertySet& camera = session.PropertySet();
        CheckLutNumber(ReadLutState(camera), number, intention);
        Check(camera.SetLutControl(TRUE, number), intention);
        session.Out().Print(LutTable(ReadLutState(camera)));
    }

private:
    std::string m_number;
};

class LutDisableCommand final : public Command {
public:
    void Declare(CLI::App&) override {}

    void Run(Session& session) override {
        kolmfluxor::IKolmFluxorPropertySet& camera = session.PropertySet();
        Check(camera.SetLutControl(FALSE, ReadLutState(camera).current), "cannot disable the look-up table");
        session.Out().Print(LutTable(ReadLutState(camera)));
    }
};

}  // namespace

std::unique_ptr<Command> MakeLut() {
    return std::make_unique<LutCommand>();
}

std::unique_ptr<Command> MakeLutEnable() {
    return std::make_unique<LutEnableCommand>();
}

std::unique_ptr<Command> MakeLutDisable() {
    return std::make_unique<LutDisableCommand>();
}

}  // namespace kolmctl
