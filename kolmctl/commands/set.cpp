/// @file  kolmctl set: value or mode of a feature, or both.

#include <optional>

#include <CLI/CLI.hpp>

#include "arguments.h"
#include "commands/commands.h"
#include "errors.h"
#include "feature_change.h"
#include "feature_reading.h"

namespace kolmctl {
namespace {

using kolmfluxor::IKolmFluxorPropertySet;

class SetCommand final : public Command {
public:
    void Declare(CLI::App& app) override {
        app.add_option("FEATURE", m_feature, "Name or id of the feature, as in \"kolmctl features\"")
            ->required()
            ->option_text(" ");
        app.add_option("VALUE", m_value, "The new value, decimal or 0x...; without it the value stays")
            ->option_text(" ");
        app.add_option("--mode", m_mode,
                       "The new mode: off, manual, one-push, auto, ...\n"
                       "(each feature has some of them); without it the mode stays")
            ->option_text("MODE");
    }

    void Run(Session& session) override {
        const FeatureChange change = ParseChange();
        IKolmFluxorPropertySet& camera = session.PropertySet();
        ApplyChange(camera, change, Intention());
        session.Out().Print(ReadingsTable({ReadFeature(camera, change.feature)}));
    }

private:
    [[nodiscard]] FeatureChange ParseChange() const {
        FeatureChange change{ParseFeature(m_feature), std::nullopt, nullptr};
        if (!m_value && !m_mode) {
            throw UsageError("nothing to set", "give a value, --mode, or both");
        }
        if (m_value) {
            change.value = ParseValue(*m_value);
        }
        if (m_mode) {
            change.mode = &ParseMode(*m_mode);
        }
        return change;
    }

    [[nodiscard]] std::string Intention() const {
        return "cannot set " + m_feature + (m_value ? " to " + *m_value : "") + (m_mode ? ", mode " + *m_mode : "");
    }

    std::string m_feature;
    std::optional<std::string> m_value;
    std::optional<std::string> m_mode;
};

}  // namespace

std::unique_ptr<Command> MakeSet() {
    return std::make_unique<SetCommand>();
}

}  // namespace kolmctl
