/// @file  kolmctl reg dump: all registers of the catalogue, with their fields.

#include <registers/catalogue.h>

#include <CLI/CLI.hpp>

#include "commands/commands.h"
#include "errors.h"
#include "hresult_text.h"
#include "progress.h"
#include "register_lines.h"
#include "text.h"

namespace kolmctl {
namespace {

using kolmfluxor::CatalogueEntry;

class RegDumpCommand final : public Command {
public:
    void Declare(CLI::App& app) override {
        app.add_option("--filter", m_filter, "Only registers with this text in their names; case does not matter")
            ->option_text("TEXT");
    }

    void Run(Session& session) override {
        const std::vector<CatalogueEntry> registers = Wanted();
        kolmfluxor::IKolmFluxorPropertySet& camera = session.PropertySet();
        Table table("registers", {{"name", "NAME", Align::left},
                                  {"address", "ADDRESS", Align::left},
                                  {"hex", "HEX", Align::left},
                                  {"value", "VALUE", Align::right},
                                  {"error", "ERROR", Align::left},
                                  {"fields", "FIELDS", Align::left}});
        bool any = false;
        HRESULT refusal = S_OK;
        {
            Progress progress("reading registers", registers.size());
            for (const CatalogueEntry& entry : registers) {
                ULONG value = 0;
                const HRESULT hr = camera.ReadRegister(entry.address, &value);
                if (hr == S_OK) {
                    const auto lines = DecodeLines(entry.address, value);
                    table.Add({entry.name, Hex32(entry.address), Hex32(value), value, Json(),
                               lines ? FieldsCell(session.Out().Format(), lines->fields) : Json()});
                    any = true;
                } else {
                    table.Add({entry.name, Hex32(entry.address), Json(), Json(), HResultText(hr), Json()});
                    refusal = hr;
                }
                progress.Step();
            }
        }
        if (!any) {
            throw CallError("no register could be read", refusal);
        }
        session.Out().Print(table);
    }

private:
    [[nodiscard]] std::vector<CatalogueEntry> Wanted() const {
        std::vector<CatalogueEntry> registers;
        for (const CatalogueEntry& entry : kolmfluxor::Catalogue()) {
            if (ContainsWithoutCase(ToUtf16(entry.name), ToUtf16(m_filter))) {
                registers.push_back(entry);
            }
        }
        if (registers.empty()) {
            throw UsageError("no register has \"" + m_filter + "\" in its name",
                             "\"kolmctl reg dump\" without a filter lists all of them");
        }
        return registers;
    }

    std::string m_filter;
};

}  // namespace

std::unique_ptr<Command> MakeRegDump() {
    return std::make_unique<RegDumpCommand>();
}

}  // namespace kolmctl
