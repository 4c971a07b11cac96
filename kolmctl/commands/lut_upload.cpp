/// @file  kolmctl lut upload: a table from a file into the camera.

#include <algorithm>
#include <cstring>

#include <CLI/CLI.hpp>

#include "arguments.h"
#include "commands/commands.h"
#include "errors.h"
#include "lut_file.h"
#include "lut_state.h"

namespace kolmctl {
namespace {

/// Packs values as `UploadLut` takes them: bytes, or 16-bit values in this machine's order (it swaps them on the way).
///
/// The values must fill whole quadlets.
std::vector<ULONG> Pack(const std::vector<std::uint32_t>& values, std::size_t bytesPerValue) {
    static_assert(sizeof(ULONG) == 4);
    std::vector<std::uint8_t> bytes;
    for (const std::uint32_t value : values) {
        for (std::size_t i = 0; i < bytesPerValue; ++i) {
            bytes.push_back(static_cast<std::uint8_t>(value >> (8 * i)));
        }
    }
    std::vector<ULONG> quadlets(bytes.size() / sizeof(ULONG));
    std::memcpy(quadlets.data(), bytes.data(), quadlets.size() * sizeof(ULONG));
    return quadlets;
}

class LutUploadCommand final : public Command {
public:
    void Declare(CLI::App& app) override {
        app.add_option("FILE", m_file,
                       "File with one table, as long as the camera's tables are.\n"
                       ".bin: little-endian values, one byte each for tables of up to 8\n"
                       "bits per value, two bytes each for wider ones;\n"
                       ".txt: one value a line, decimal or 0x...")
            ->required()
            ->option_text(" ");
        app.add_option("--number", m_number, "Number of the camera's table to load, from 0")
            ->required()
            ->option_text("N");
    }

    void Run(Session& session) override {
        const ULONG number = ParseNumberOf("table number", m_number);
        const LutFile file(m_file);
        kolmfluxor::IKolmFluxorPropertySet& camera = session.PropertySet();
        const LutState state = ReadLutState(camera);
        CheckLutNumber(state, number, Intention());
        const std::vector<ULONG> quadlets = Pack(Values(file, state), state.BytesPerValue());
        Check(camera.UploadLut(quadlets.data(), static_cast<ULONG>(quadlets.size()), number), Intention());

        Table table("upload",
                    {{"number", "table", Align::left},
                     {"values", "values", Align::left},
                     {"bitsPerValue", "bits per value", Align::left},
                     {"bytes", "bytes", Align::left}},
                    Layout::records);
        table.Add({number, state.Values(), state.bitsPerValue, quadlets.size() * sizeof(ULONG)});
        session.Out().Print(table);
    }

private:
    /// The file's values, all of which the camera's table must be able to hold.
    [[nodiscard]] std::vector<std::uint32_t> Values(const LutFile& file, const LutState& state) const {
        if (state.sizeBytes % sizeof(ULONG) != 0) {
            Refuse("the camera's tables of " + std::to_string(state.sizeBytes) + " bytes are no whole quadlets");
        }
        if (file.SizeBytes(state.BytesPerValue()) != state.sizeBytes) {
            Refuse("\"" + m_file + "\" holds " + file.SizeText() + ", but the camera's tables take " +
                   std::to_string(state.Values()) + " values of " + std::to_string(state.bitsPerValue) + " bits (" +
                   std::to_string(state.sizeBytes) + " bytes)");
        }
        std::vector<std::uint32_t> values = file.Values(state.BytesPerValue());
        const auto tooLarge =
            std::ranges::find_if(values, [&](std::uint32_t value) { return value > state.HighestValue(); });
        if (tooLarge != values.end()) {
            Refuse("value " + std::to_string(tooLarge - values.begin() + 1) + " of \"" + m_file + "\" is " +
                   std::to_string(*tooLarge) + ", but the camera's tables take values up to " +
                   std::to_string(state.HighestValue()));
        }
        return values;
    }

    [[noreturn]] void Refuse(const std::string& why) const { throw CallError(Intention(), E_INVALIDARG, why); }

    [[nodiscard]] std::string Intention() const { return "cannot upload table " + m_number; }

    std::string m_file;
    std::string m_number;
};

}  // namespace

std::unique_ptr<Command> MakeLutUpload() {
    return std::make_unique<LutUploadCommand>();
}

}  // namespace kolmctl
