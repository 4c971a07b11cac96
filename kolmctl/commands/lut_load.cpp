/// @file  kolmctl lut load: the tables of a file as the page "LUT" reads them, and one of them into the camera.

#include <algorithm>
#include <string_view>

#include <CLI/CLI.hpp>

#include "arguments.h"
#include "commands/commands.h"
#include "errors.h"
#include "lut/lut_loader.h"
#include "lut_file.h"
#include "lut_state.h"
#include "lut_transfer.h"
#include "text.h"

namespace kolmctl {
namespace {

using kolmfluxor::CCsvTable;
using kolmfluxor::CLutSet;
using kolmfluxor::LutType;

std::vector<std::uint32_t> ValuesOf(const CLutSet& set, std::size_t n) {
    if (set.Type() == LutType::bits8) {
        const auto& values = set.Get8BitLUT(n).values;
        return {values.begin(), values.end()};
    }
    const auto& values = set.Get16BitLUT(n).values;
    return {values.begin(), values.end()};
}

/// A name for people and programs: the CR of a line's end does not belong to it.
std::string NameOf(const CLutSet& set, std::size_t n) {
    std::string name = set.GetLUTName(n);
    if (name.ends_with('\r')) {
        name.pop_back();
    }
    return AnsiToUtf8(name);
}

class LutLoadCommand final : public Command {
public:
    void Declare(CLI::App& app) override {
        app.add_option("FILE", m_file,
                       "File with tables, as the page \"LUT\" loads it: comma or semicolon\n"
                       "between the cells; names in the first line, then one line a level;\n"
                       "the first column does not count. Values keep the 8 or 16 bits that\n"
                       "the camera's tables have room for.")
            ->required()
            ->option_text(" ");
        CLI::Option* const upload =
            app.add_option("--upload", m_number, "Number of the camera's table to load, from 0")->option_text("N");
        app.add_option("--table", m_table, "The file's table to upload: its number, from 0 (default), or its name")
            ->option_text("TABLE")
            ->needs(upload);
    }

    void Run(Session& session) override {
        const bool upload = !m_number.empty();
        const ULONG number = upload ? ParseNumberOf("table number", m_number) : 0;
        const CCsvTable file = ReadTable();
        kolmfluxor::IKolmFluxorPropertySet& camera = session.PropertySet();
        const LutState state = ReadLutState(camera);
        const CLutSet set = MakeSet(file, state);
        if (!upload) {
            session.Out().Print(TableOf(set));
            return;
        }
        const std::string intention = "cannot upload table " + m_number;
        CheckLutNumber(state, number, intention);
        const std::size_t chosen = ChosenTable(set);
        const LutTransfer transfer = {.values = ValuesOf(set, chosen),
                                      .source = "\"" + NameOf(set, chosen) + "\"",
                                      .number = number,
                                      .intention = intention};
        session.Out().Print(UploadTable(camera, state, transfer));
    }

private:
    [[nodiscard]] CCsvTable ReadTable() const {
        CCsvTable table;
        if (!table.ReadText(std::string_view(ReadFile(m_file)))) {
            Refuse(WhyNoTable(table));
        }
        if (table.RowCount() < 2 || table.GetLUTCount() == 0) {
            Refuse(table.RowCount() < 2 ? "there is no line below the names" : "there is no column beside the first");
        }
        return table;
    }

    static std::string WhyNoTable(const CCsvTable& table) {
        for (std::size_t row = 1; row < table.RowCount(); ++row) {
            if (table.TokenCount(row) != table.TokenCount(0)) {
                return "the first line has " + std::to_string(table.TokenCount(0)) + " cells, line " +
                       std::to_string(row + 1) + " has " + std::to_string(table.TokenCount(row));
            }
        }
        return "there is no line of text";
    }

    /// The file's tables, which must be as long as the camera's.
    [[nodiscard]] CLutSet MakeSet(const CCsvTable& file, const LutState& state) const {
        if (file.GetElementCount() != state.Values()) {
            throw CallError("cannot load \"" + m_file + "\"", E_INVALIDARG,
                            "it holds tables of " + std::to_string(file.GetElementCount()) +
                                " values, but the camera's tables take " + std::to_string(state.Values()) +
                                "\na line of more than 255 characters ends a file");
        }
        CLutSet set;
        kolmfluxor::LoadLutSet(set, file, static_cast<std::uint32_t>(state.BytesPerValue()));
        return set;
    }

    static Table TableOf(const CLutSet& set) {
        Table table("tables", {{"table", "TABLE", Align::right},
                               {"name", "NAME", Align::left},
                               {"values", "VALUES", Align::right},
                               {"lowest", "LOWEST", Align::right},
                               {"highest", "HIGHEST", Align::right}});
        for (std::size_t n = 0; n < set.GetLUTCount(); ++n) {
            const std::vector<std::uint32_t> values = ValuesOf(set, n);
            const auto [lowest, highest] = std::ranges::minmax(values);
            table.Add({n, NameOf(set, n), values.size(), lowest, highest});
        }
        return table;
    }

    [[nodiscard]] std::size_t ChosenTable(const CLutSet& set) const {
        const auto number = ParseNumber(m_table);
        for (std::size_t n = 0; n < set.GetLUTCount(); ++n) {
            if (number ? n == *number : NameOf(set, n) == m_table) {
                return n;
            }
        }
        throw UsageError("\"" + m_file + "\" has no table \"" + m_table + "\"", "kolmctl lut load FILE lists them");
    }

    [[noreturn]] void Refuse(const std::string& why) const {
        throw UsageError("\"" + m_file + "\" is no file of tables: " + why);
    }

    std::string m_file;
    std::string m_number;
    std::string m_table = "0";
};

}  // namespace

std::unique_ptr<Command> MakeLutLoad() {
    return std::make_unique<LutLoadCommand>();
}

}  // namespace kolmctl
