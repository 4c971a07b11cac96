/// @file  kolmctl iso and iso set: speed and channel of the isochronous transfer.

#include <optional>

#include <CLI/CLI.hpp>

#include "arguments.h"
#include "commands/commands.h"
#include "errors.h"
#include "feature_reading.h"
#include "iso_transfer.h"
#include "text.h"

namespace kolmctl {
namespace {

using kolmfluxor::FeatureMode;
using kolmfluxor::IKolmFluxorPropertySet;

constexpr char kAutomatic[] = "auto";

/// A channel as the command line tells it; no number for the camera's own choice.
struct Channel {
    std::optional<ULONG> number;
};

class IsoCommand final : public Command {
public:
    void Declare(CLI::App&) override {}

    void Run(Session& session) override { session.Out().Print(IsoTable(session.PropertySet())); }
};

class IsoSetCommand final : public Command {
public:
    void Declare(CLI::App& app) override {
        app.add_option("--speed", m_speed, "S100, S200, S400, S800, S1600 or S3200")->option_text("SPEED");
        app.add_option("--channel", m_channel, "A channel number, or auto for the camera's own choice")
            ->option_text("N|auto");
    }

    void Run(Session& session) override {
        if (!m_speed && !m_channel) {
            throw UsageError("nothing to set", "give --speed, --channel, or both");
        }
        const ULONG speed = m_speed ? ParseSpeed(*m_speed) : 0;
        const Channel channel = m_channel ? ParseChannel(*m_channel) : Channel{};
        IKolmFluxorPropertySet& camera = session.PropertySet();
        // Both are checked before one is set, so that a refusal leaves everything as it was.
        if (m_speed) {
            CheckSpeed(camera, speed);
        }
        if (m_channel) {
            CheckChannel(camera, channel);
        }
        if (m_speed) {
            Check(camera.SetIsoSpeed(speed), SpeedIntention());
        }
        if (m_channel) {
            if (const HRESULT hr = SetChannel(camera, channel); hr != S_OK) {
                throw CallError(ChannelIntention(), hr, m_speed ? "the speed has been set" : "");
            }
        }
        session.Out().Print(IsoTable(camera));
    }

private:
    static Channel ParseChannel(const std::string& text) {
        return text == kAutomatic ? Channel{} : Channel{ParseNumberOf("channel number", text)};
    }

    static ULONG ChannelId() { return static_cast<ULONG>(kolmfluxor::FeatureId::isoChannel); }

    void CheckSpeed(IKolmFluxorPropertySet& camera, ULONG speed) const {
        ULONG slowest = 0;
        ULONG fastest = 0;
        Check(camera.GetIsoSpeedRange(&slowest, &fastest), "cannot read the range of the speed");
        if (speed < slowest || speed > fastest) {
            throw CallError(SpeedIntention(), E_INVALIDARG,
                            "the camera takes speeds from " + SpeedText(slowest) + " to " + SpeedText(fastest));
        }
    }

    void CheckChannel(IKolmFluxorPropertySet& camera, const Channel& channel) const {
        const auto mode = static_cast<ULONG>(channel.number ? FeatureMode::manual : FeatureMode::automatic);
        BOOL supported = FALSE;
        Check(camera.IsFeatureModeSupported(ChannelId(), mode, &supported), "cannot read the modes of iso-channel");
        if (!supported) {
            throw CallError(
                ChannelIntention(), E_NOTIMPL,
                "iso-channel supports these modes: " + Join(SupportedModes(camera, ParseFeature("iso-channel")), ", "));
        }
        ULONG lowest = 0;
        ULONG highest = 0;
        Check(camera.GetFeatureRange(ChannelId(), &lowest, &highest), "cannot read the range of iso-channel");
        if (channel.number && (*channel.number < lowest || *channel.number > highest)) {
            throw CallError(
                ChannelIntention(), E_INVALIDARG,
                "the camera takes channels from " + std::to_string(lowest) + " to " + std::to_string(highest));
        }
    }

    static HRESULT SetChannel(IKolmFluxorPropertySet& camera, const Channel& channel) {
        return channel.number ? camera.SetFeatureValueAndMode(ChannelId(), *channel.number,
                                                              static_cast<ULONG>(FeatureMode::manual))
                              : camera.SetFeatureMode(ChannelId(), static_cast<ULONG>(FeatureMode::automatic));
    }

    [[nodiscard]] std::string SpeedIntention() const { return "cannot set the speed to " + *m_speed; }
    [[nodiscard]] std::string ChannelIntention() const { return "cannot set the channel to " + *m_channel; }

    std::optional<std::string> m_speed;
    std::optional<std::string> m_channel;
};

}  // namespace

std::unique_ptr<Command> MakeIso() {
    return std::make_unique<IsoCommand>();
}

std::unique_ptr<Command> MakeIsoSet() {
    return std::make_unique<IsoSetCommand>();
}

}  // namespace kolmctl
