/// @file  kolmctl set: value or mode of a feature, or both.

#include <optional>

#include <CLI/CLI.hpp>

#include "arguments.h"
#include "commands/commands.h"
#include "errors.h"
#include "feature_reading.h"
#include "text.h"

namespace kolmctl {
namespace {

using kolmfluxor::IKolmFluxorPropertySet;

/// A change of a feature as the command line tells it.
struct Change {
    const FeatureName& feature;
    std::optional<std::uint32_t> value;
    const ModeName* mode;  ///< null for none

    [[nodiscard]] ULONG Mode() const { return static_cast<ULONG>(mode->mode); }
};

/// The method for value and mode leaves the check of the mode to the driver, so it is made here.
HRESULT SetValueAndMode(IKolmFluxorPropertySet& camera, const Change& change) {
    BOOL supported = FALSE;
    const HRESULT hr = camera.IsFeatureModeSupported(IdOf(change.feature), change.Mode(), &supported);
    if (hr != S_OK) {
        return hr;
    }
    return supported ? camera.SetFeatureValueAndMode(IdOf(change.feature), *change.value, change.Mode()) : E_NOTIMPL;
}

HRESULT Apply(IKolmFluxorPropertySet& camera, const Change& change) {
    if (change.mode == nullptr) {
        return camera.SetFeatureValue(IdOf(change.feature), *change.value);
    }
    if (!change.value) {
        return camera.SetFeatureMode(IdOf(change.feature), change.Mode());
    }
    return SetValueAndMode(camera, change);
}

/// What the feature would take; empty when neither range nor modes explain the refusal. Sends no request: the refused
/// call has already read both.
std::string WhatItTakes(IKolmFluxorPropertySet& camera, const Change& change, HRESULT refusal) {
    const std::string name = change.feature.name;
    ULONG min = 0;
    ULONG max = 0;
    if (refusal == E_INVALIDARG && change.value && camera.GetFeatureRange(IdOf(change.feature), &min, &max) == S_OK &&
        (*change.value < min || *change.value > max)) {
        return name + " takes values from " + std::to_string(min) + " to " + std::to_string(max);
    }
    if (refusal == E_NOTIMPL && change.mode != nullptr) {
        return name + " supports these modes: " + Join(SupportedModes(camera, change.feature), ", ");
    }
    return {};
}

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
        const Change change = ParseChange();
        IKolmFluxorPropertySet& camera = session.PropertySet();
        if (const HRESULT hr = Apply(camera, change); hr != S_OK) {
            throw CallError(Intention(), hr, WhatItTakes(camera, change, hr));
        }
        session.Out().Print(ReadingsTable({ReadFeature(camera, change.feature)}));
    }

private:
    [[nodiscard]] Change ParseChange() const {
        Change change{ParseFeature(m_feature), std::nullopt, nullptr};
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
