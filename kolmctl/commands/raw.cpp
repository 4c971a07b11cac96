/// @file  kolmctl raw get and raw set: driver properties by number.

#include <CLI/CLI.hpp>

#include "arguments.h"
#include "commands/commands.h"
#include "errors.h"
#include "text.h"

namespace kolmctl {
namespace {

void DeclareId(CLI::App& app, std::string* id) {
    app.add_option("ID", *id, "Number of a driver property with a 64-byte record")->required()->option_text(" ");
}

std::uint32_t ParseId(const std::string& text) {
    return ParseNumberOf("property number", text);
}

class RawGetCommand final : public Command {
public:
    void Declare(CLI::App& app) override { DeclareId(app, &m_id); }

    void Run(Session& session) override {
        const std::uint32_t id = ParseId(m_id);
        ULONG word44 = 0;
        ULONG value = 0;
        ULONG word48 = 0;
        Check(session.PropertySet().GetPropertyById(id, &word44, &value, &word48),
              "cannot read driver property " + m_id);
        // The words by their offsets in the record: their meaning is each property's own.
        Table table("property", {{"property", "PROPERTY", Align::right},
                                 {"value", "VALUE", Align::right},
                                 {"hex", "HEX", Align::left},
                                 {"word44", "WORD AT 44", Align::left},
                                 {"word48", "WORD AT 48", Align::left}});
        table.Add({id, value, Hex32(value), Hex32(word44), Hex32(word48)});
        session.Out().Print(table);
    }

private:
    std::string m_id;
};

class RawSetCommand final : public Command {
public:
    void Declare(CLI::App& app) override {
        DeclareId(app, &m_id);
        app.add_option("VALUE", m_value, "The value, decimal or 0x...")->required()->option_text(" ");
        app.add_flag("--flag-a", m_flagA, "Send flag 0x10000")->option_text(" ");
        app.add_flag("--flag-b", m_flagB, "Send flag 0x20000")->option_text(" ");
    }

    void Run(Session& session) override {
        const std::uint32_t id = ParseId(m_id);
        const std::uint32_t value = ParseValue(m_value);
        Check(session.PropertySet().SetPropertyById(id, m_flagA ? TRUE : FALSE, value, m_flagB ? TRUE : FALSE),
              "cannot set driver property " + m_id + " to " + m_value);
        // What was sent; not every property can be read back.
        Table table("property", {{"property", "PROPERTY", Align::right},
                                 {"value", "VALUE", Align::right},
                                 {"hex", "HEX", Align::left},
                                 {"flagA", "FLAG A", Align::left},
                                 {"flagB", "FLAG B", Align::left}});
        table.Add({id, value, Hex32(value), m_flagA, m_flagB});
        session.Out().Print(table);
    }

private:
    std::string m_id;
    std::string m_value;
    bool m_flagA = false;
    bool m_flagB = false;
};

}  // namespace

std::unique_ptr<Command> MakeRawGet() {
    return std::make_unique<RawGetCommand>();
}

std::unique_ptr<Command> MakeRawSet() {
    return std::make_unique<RawSetCommand>();
}

}  // namespace kolmctl
