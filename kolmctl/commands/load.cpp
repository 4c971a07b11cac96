/// @file  kolmctl load: all settings of a file into the camera.

#include <CLI/CLI.hpp>

#include "commands/commands.h"
#include "errors.h"
#include "settings/settings_check.h"
#include "settings/settings_file.h"
#include "settings/settings_load.h"
#include "settings/settings_text.h"

namespace kolmctl {
namespace {

class LoadCommand final : public Command {
public:
    void Declare(CLI::App& app) override {
        app.add_option("FILE", m_file, "A file that \"kolmctl save\" wrote; - for the standard input")
            ->required()
            ->option_text(" ");
        app.footer(
            "The whole file is checked before anything is sent to the camera. What the camera\n"
            "refuses is told, one line each, and the rest is set. A file need not name every\n"
            "setting. The contents of look-up tables and of shading memory are in no file.\n\n" +
            app.get_footer());
    }

    void Run(Session& session) override {
        const Json document = ParseSettings(ReadSettingsText(m_file), m_file);
        CheckSettings(document, m_file);

        const LoadReport report = LoadSettings(session.OpenCamera(), document["settings"]);
        PrintReport(session.Out(), report);
        if (report.refused != 0) {
            throw Error(ExitCode::refused, "the camera refused " + std::to_string(report.refused) + " of " +
                                               std::to_string(report.settings) + " settings");
        }
    }

private:
    std::string m_file;
};

}  // namespace

std::unique_ptr<Command> MakeLoad() {
    return std::make_unique<LoadCommand>();
}

}  // namespace kolmctl
