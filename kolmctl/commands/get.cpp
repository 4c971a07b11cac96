/// @file  kolmctl get: value and mode of features.

#include <CLI/CLI.hpp>

#include "commands/commands.h"
#include "feature_reading.h"

namespace kolmctl {
namespace {

class GetCommand final : public Command {
public:
    void Declare(CLI::App& app) override {
        app.add_option("FEATURE", m_features, "Names or ids of features, as in \"kolmctl features\"")
            ->required()
            ->option_text("...");
    }

    void Run(Session& session) override {
        // All names first: nothing is asked from the camera for a command line that is wrong.
        std::vector<const FeatureName*> features;
        for (const std::string& text : m_features) {
            features.push_back(&ParseFeature(text));
        }
        std::vector<FeatureReading> readings;
        for (const FeatureName* feature : features) {
            readings.push_back(ReadFeature(session.PropertySet(), *feature));
        }
        session.Out().Print(ReadingsTable(readings));
    }

private:
    std::vector<std::string> m_features;
};

}  // namespace

std::unique_ptr<Command> MakeGet() {
    return std::make_unique<GetCommand>();
}

}  // namespace kolmctl
