/// @file  kolmctl reg read: registers by name or address.

#include <CLI/CLI.hpp>

#include "commands/commands.h"
#include "registers.h"
#include "text.h"

namespace kolmctl {
namespace {

class RegReadCommand final : public Command {
public:
    void Declare(CLI::App& app) override {
        app.add_option("REGISTER", m_registers,
                       "Names as in \"kolmctl reg dump\", or addresses\n"
                       "(the low 32 bits, as in 0xF0F00800)")
            ->required()
            ->option_text("...");
    }

    void Run(Session& session) override {
        std::vector<RegisterAddress> registers;
        for (const std::string& text : m_registers) {
            registers.push_back(ParseRegister(text));
        }
        Table table("registers", {{"name", "NAME", Align::left},
                                  {"address", "ADDRESS", Align::left},
                                  {"hex", "HEX", Align::left},
                                  {"value", "VALUE", Align::right}});
        for (const RegisterAddress& from : registers) {
            const std::uint32_t value = ReadRegister(session.PropertySet(), from);
            table.Add({from.name, Hex32(from.address), Hex32(value), value});
        }
        session.Out().Print(table);
    }

private:
    std::vector<std::string> m_registers;
};

}  // namespace

std::unique_ptr<Command> MakeRegRead() {
    return std::make_unique<RegReadCommand>();
}

}  // namespace kolmctl
