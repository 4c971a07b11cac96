/// @file  kolmctl features: what the camera has, with ranges and modes.

#include "commands/commands.h"
#include "errors.h"
#include "feature_reading.h"

namespace kolmctl {
namespace {

class FeaturesCommand final : public Command {
public:
    void Declare(CLI::App&) override {}

    void Run(Session& session) override {
        kolmfluxor::IKolmFluxorPropertySet& camera = session.PropertySet();
        Table table("features", {{"feature", "FEATURE", Align::left},
                                 {"id", "ID", Align::right},
                                 {"value", "VALUE", Align::right},
                                 {"min", "MIN", Align::right},
                                 {"max", "MAX", Align::right},
                                 {"mode", "MODE", Align::left},
                                 {"modes", "SUPPORTED MODES", Align::left}});
        for (const FeatureName* feature : PresentFeatures(camera)) {
            AddRow(&table, camera, *feature);
        }
        session.Out().Print(table);
    }

private:
    static void AddRow(Table* table, kolmfluxor::IKolmFluxorPropertySet& camera, const FeatureName& feature) {
        const FeatureReading reading = ReadFeature(camera, feature);
        ULONG min = 0;
        ULONG max = 0;
        Check(camera.GetFeatureRange(IdOf(feature), &min, &max),
              std::string("cannot read the range of ") + feature.name);
        table->Add({feature.name, IdOf(feature), reading.value, min, max, ModeText(reading.mode),
                    SupportedModes(camera, feature)});
    }
};

}  // namespace

std::unique_ptr<Command> MakeFeatures() {
    return std::make_unique<FeaturesCommand>();
}

}  // namespace kolmctl
