/// @file  kolmctl reg decode: the fields of one register.

#include <optional>

#include <CLI/CLI.hpp>

#include "arguments.h"
#include "commands/commands.h"
#include "errors.h"
#include "register_lines.h"
#include "registers.h"
#include "text.h"

namespace kolmctl {
namespace {

class RegDecodeCommand final : public Command {
public:
    void Declare(CLI::App& app) override {
        app.add_option("REGISTER", m_register, "Name as in \"kolmctl reg dump\", or address")
            ->required()
            ->option_text(" ");
        app.add_option("VALUE", m_value,
                       "The value to decode, decimal or 0x...;\n"
                       "without it, what the camera's register holds")
            ->option_text(" ");
    }

    void Run(Session& session) override {
        const RegisterAddress of = ParseRegister(m_register);
        if (!DecodeLines(of.address, 0)) {
            throw UsageError("no register has the address " + of.Text(),
                             "those of a Format 7 mode are the multiples of 4 from 0x00 to 0x7C");
        }
        const std::uint32_t value = m_value ? ParseValue(*m_value) : ReadRegister(session.PropertySet(), of);
        Print(session.Out(), of, value, DecodeLines(of.address, value).value());
    }

private:
    static void Print(Output& out, const RegisterAddress& of, std::uint32_t value, const RegisterLines& lines) {
        std::vector<Column> columns = {{"name", "NAME", Align::left},
                                       {"address", "ADDRESS", Align::left},
                                       {"hex", "HEX", Align::left},
                                       {"value", "VALUE", Align::right}};
        std::vector<Json> row = {of.name, Hex32(of.address), Hex32(value), value};
        if (out.Format() != OutputFormat::text) {
            columns.insert(columns.end(), {{"layout", "LAYOUT", Align::left}, {"fields", "FIELDS", Align::left}});
            row.insert(row.end(), {lines.layout, FieldsCell(out.Format(), lines.fields)});
        }
        Table table("registers", columns);
        table.Add(std::move(row));
        out.Print(table);
        out.PrintText("\n" + lines.layout + "\n  " + Join(lines.fields, "\n  ") + "\n");
    }

    std::string m_register;
    std::optional<std::string> m_value;
};

}  // namespace

std::unique_ptr<Command> MakeRegDecode() {
    return std::make_unique<RegDecodeCommand>();
}

}  // namespace kolmctl
