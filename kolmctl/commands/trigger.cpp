/// @file  kolmctl trigger and trigger set.

#include <optional>

#include <CLI/CLI.hpp>

#include "arguments.h"
#include "commands/commands.h"
#include "errors.h"
#include "text.h"
#include "trigger_state.h"

namespace kolmctl {
namespace {

class TriggerCommand final : public Command {
public:
    void Declare(CLI::App&) override {}

    void Run(Session& session) override { session.Out().Print(TriggerTable(ReadTrigger(session.PropertySet()))); }
};

class TriggerSetCommand final : public Command {
public:
    void Declare(CLI::App& app) override {
        app.add_option("--mode", m_mode, "Trigger mode: 0 to 5, 14 or 15")->option_text("N");
        auto* const on = app.add_flag("--on", m_on, "Start exposures by trigger")->option_text(" ");
        app.add_flag("--off", m_off, "Let exposures run freely")->option_text(" ")->excludes(on);
        app.add_option("--polarity", m_polarity, "Active level of the trigger input: high or low")
            ->option_text("high|low");
        app.add_option("--parameter", m_parameter, "Parameter of the mode: a count in modes 3 to 5")->option_text("N");
    }

    void Run(Session& session) override {
        if (!m_mode && !m_on && !m_off && !m_polarity && !m_parameter) {
            throw UsageError("nothing to set", "give --mode, --on, --off, --polarity or --parameter");
        }
        const auto mode = m_mode ? std::optional(ParseTriggerMode(*m_mode)) : std::nullopt;
        const auto activeHigh = m_polarity ? std::optional(ParsePolarity(*m_polarity)) : std::nullopt;
        const auto parameter = m_parameter ? std::optional(ParseNumberOf("parameter", *m_parameter)) : std::nullopt;

        kolmfluxor::IKolmFluxorPropertySet& camera = session.PropertySet();
        TriggerState state = ReadTrigger(camera);
        CheckAbilities(state, mode);
        state.mode = mode.value_or(state.mode);
        state.on = m_on || (state.on && !m_off);
        state.activeHigh = activeHigh.value_or(state.activeHigh);
        state.parameter = parameter.value_or(state.parameter);
        Check(camera.SetTrigger(state.mode, state.on ? 1 : 0, state.activeHigh ? 1 : 0, state.parameter), kIntention);
        session.Out().Print(TriggerTable(ReadTrigger(camera)));
    }

private:
    static constexpr char kIntention[] = "cannot set the trigger";

    static bool ParsePolarity(const std::string& text) {
        if (text != PolarityText(true) && text != PolarityText(false)) {
            throw UsageError("unknown polarity \"" + text + "\"", "it is high or low");
        }
        return text == PolarityText(true);
    }

    static std::string ModesText(const TriggerState& state) {
        std::vector<std::string> modes;
        for (const std::uint32_t number : state.Modes()) {
            modes.push_back(std::to_string(number));
        }
        return Join(modes, ", ");
    }

    /// Refuses what the camera would silently ignore.
    void CheckAbilities(const TriggerState& state, const std::optional<ULONG>& mode) const {
        if (mode && (state.inquiry & *mode) == 0) {
            throw CallError(kIntention, E_NOTIMPL, "the camera's trigger modes are " + ModesText(state));
        }
        if (!mode && state.mode == 0) {
            throw CallError(kIntention, E_FAIL, "the camera reports no mode that could stay: give --mode");
        }
        if (m_off && !state.CanSwitch()) {
            throw CallError(kIntention, E_NOTIMPL, "the camera cannot switch its trigger off");
        }
        if (m_polarity && !state.CanChangePolarity()) {
            throw CallError(kIntention, E_NOTIMPL, "the camera cannot change the polarity of its trigger");
        }
    }

    std::optional<std::string> m_mode;
    std::optional<std::string> m_polarity;
    std::optional<std::string> m_parameter;
    bool m_on = false;
    bool m_off = false;
};

}  // namespace

std::unique_ptr<Command> MakeTrigger() {
    return std::make_unique<TriggerCommand>();
}

std::unique_ptr<Command> MakeTriggerSet() {
    return std::make_unique<TriggerSetCommand>();
}

}  // namespace kolmctl
