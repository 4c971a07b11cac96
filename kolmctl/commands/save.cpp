/// @file  kolmctl save: all settings of the camera to a file.

#include <iostream>

#include <CLI/CLI.hpp>

#include "commands/commands.h"
#include "errors.h"
#include "owned_text.h"
#include "progress.h"
#include "settings/setting_access.h"
#include "settings/setting_table.h"
#include "settings/settings_file.h"
#include "settings/settings_text.h"

namespace kolmctl {
namespace {

Json Identity(kolmfluxor::IKolmFluxorPropertySet& camera) {
    OwnedText vendor;
    OwnedText model;
    OwnedText driver;
    ULONG number = 0;
    Check(camera.GetCameraInfo(vendor.Out(), model.Out(), driver.Out(), &number), "cannot read the camera's texts");
    return {{"vendor", vendor.Cell()}, {"model", model.Cell()}, {"serialNumber", number}};
}

class SaveCommand final : public Command {
public:
    void Declare(CLI::App& app) override {
        app.add_option("FILE", m_file, "A .json file, replaced when it exists; - for the standard output")
            ->required()
            ->option_text(" ");
        app.footer(
            "What the camera lacks is left out, and so is what it does not give back: the contents\n"
            "of look-up tables and of shading memory, the steps of a sequence, its user profiles.\n"
            "A value that the camera chooses by itself (mode auto) is no setting.\n\n" +
            app.get_footer());
    }

    void Run(Session& session) override {
        Camera& camera = session.OpenCamera();
        Json document = {{"version", kSettingsVersion}, {"camera", Identity(camera.PropertySet())}};
        document["settings"] = Settings(camera);
        if (m_file == kStandardStream) {
            std::cout << SettingsText(document);
        } else {
            WriteSettingsFile(m_file, SettingsText(document));
            session.Out().PrintText(std::to_string(document["settings"].size()) + " settings saved to \"" + m_file +
                                    "\".\n");
        }
    }

private:
    static Json Settings(Camera& camera) {
        Json settings = Json::object();
        const std::vector<Setting> all = AllSettings();
        Progress progress("reading settings", all.size());
        for (const Setting& setting : all) {
            if (const auto fields = ReadSetting(camera, setting)) {
                Json lasting = LastingFields(camera, setting, *fields);
                if (!lasting.empty()) {
                    settings[setting.Name()] = std::move(lasting);
                }
            }
            progress.Step();
        }
        return settings;
    }

    std::string m_file;
};

}  // namespace

std::unique_ptr<Command> MakeSave() {
    return std::make_unique<SaveCommand>();
}

}  // namespace kolmctl
