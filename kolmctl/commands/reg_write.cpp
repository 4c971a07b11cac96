/// @file  kolmctl reg write: one register, and what it reads afterwards.

#include <CLI/CLI.hpp>

#include "arguments.h"
#include "commands/commands.h"
#include "errors.h"
#include "registers.h"
#include "text.h"

namespace kolmctl {
namespace {

class RegWriteCommand final : public Command {
public:
    void Declare(CLI::App& app) override {
        app.add_option("REGISTER", m_register, "Name as in \"kolmctl reg dump\", or address")
            ->required()
            ->option_text(" ");
        app.add_option("VALUE", m_value, "The new value, decimal or 0x...")->required()->option_text(" ");
    }

    void Run(Session& session) override {
        const RegisterAddress to = ParseRegister(m_register);
        const std::uint32_t written = ParseValue(m_value);
        kolmfluxor::IKolmFluxorPropertySet& camera = session.PropertySet();
        Check(camera.WriteRegister(to.address, written),
              "cannot write " + Hex32(written) + " to register " + to.Text());

        // Cameras keep the bits that can be written and change others, so the two may well differ.
        ULONG value = 0;
        Check(camera.ReadRegister(to.address, &value),
              "wrote " + Hex32(written) + " to register " + to.Text() + ", but cannot read it back");
        Table table("registers", {{"name", "NAME", Align::left},
                                  {"address", "ADDRESS", Align::left},
                                  {"written", "WRITTEN", Align::left},
                                  {"hex", "HEX", Align::left},
                                  {"value", "VALUE", Align::right}});
        table.Add({to.name, Hex32(to.address), Hex32(written), Hex32(value), value});
        session.Out().Print(table);
    }

private:
    std::string m_register;
    std::string m_value;
};

}  // namespace

std::unique_ptr<Command> MakeRegWrite() {
    return std::make_unique<RegWriteCommand>();
}

}  // namespace kolmctl
