/// @file  kolmctl lut upload: a table from a file into the camera.

#include <CLI/CLI.hpp>

#include "arguments.h"
#include "commands/commands.h"
#include "errors.h"
#include "lut_file.h"
#include "lut_state.h"
#include "lut_transfer.h"

namespace kolmctl {
namespace {

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
        const LutTransfer transfer = {
            .values = Values(file, state), .source = "\"" + m_file + "\"", .number = number, .intention = Intention()};
        session.Out().Print(UploadTable(camera, state, transfer));
    }

private:
    /// The file's values, as many as the camera's tables take.
    [[nodiscard]] std::vector<std::uint32_t> Values(const LutFile& file, const LutState& state) const {
        if (file.SizeBytes(state.BytesPerValue()) != state.sizeBytes) {
            throw CallError(Intention(), E_INVALIDARG,
                            "\"" + m_file + "\" holds " + file.SizeText() + ", but the camera's tables take " +
                                std::to_string(state.Values()) + " values of " + std::to_string(state.bitsPerValue) +
                                " bits (" + std::to_string(state.sizeBytes) + " bytes)");
        }
        return file.Values(state.BytesPerValue());
    }

    [[nodiscard]] std::string Intention() const { return "cannot upload table " + m_number; }

    std::string m_file;
    std::string m_number;
};

}  // namespace

std::unique_ptr<Command> MakeLutUpload() {
    return std::make_unique<LutUploadCommand>();
}

}  // namespace kolmctl
