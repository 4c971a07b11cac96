/// @file  kolmctl watch: features as the camera changes them.

#include <algorithm>
#include <chrono>
#include <cstdint>
#include <cstring>
#include <optional>

#include <CLI/CLI.hpp>

#include "arguments.h"
#include "commands/commands.h"
#include "errors.h"
#include "feature_reading.h"
#include "stop_request.h"
#include "text.h"
#include "time_stamp.h"

namespace kolmctl {
namespace {

using Clock = std::chrono::steady_clock;
using std::chrono::milliseconds;

constexpr std::uint32_t kDefaultIntervalMs = 500;  // as the property pages look
constexpr std::uint32_t kLongestIntervalMs = 3'600'000;
constexpr std::size_t kStampWidth = 29;  // see TimeStamp
constexpr std::size_t kValueWidth = 10;  // of the largest 32-bit number

class WatchCommand final : public Command {
public:
    void Declare(CLI::App& app) override {
        app.add_option("FEATURE", m_features,
                       "Names or ids of features, as in \"kolmctl features\";\n"
                       "without one, all that the camera has")
            ->option_text("...");
        app.add_option("--interval", m_interval, "Milliseconds from one look to the next (default: 500)")
            ->option_text("MS");
        app.add_option("--count", m_count, "End after so many changes")->option_text("N");
        app.add_option("--for", m_seconds, "End after so many seconds, as in 10 or 2.5")->option_text("SECONDS");
        app.footer(
            "First comes a line for each feature as it is, then one for each change; with --json\n"
            "an object a line. Ctrl+C ends it, which is a success.\n\n" +
            app.get_footer());
    }

    void Run(Session& session) override {
        const Limits limits = ParseLimits();
        std::vector<const FeatureName*> features = ParseFeatures();
        const StopRequest stop;
        kolmfluxor::IKolmFluxorPropertySet& camera = session.PropertySet();
        if (features.empty()) {
            features = PresentFeatures(camera);
        }
        Watch(session, features, limits, stop);
    }

private:
    struct Limits {
        milliseconds interval;
        std::optional<std::uint32_t> changes;
        std::optional<milliseconds> duration;
    };

    [[nodiscard]] Limits ParseLimits() const {
        Limits limits{milliseconds(kDefaultIntervalMs), std::nullopt, std::nullopt};
        if (m_interval) {
            const std::uint32_t interval = ParseNumberOf("number of milliseconds", *m_interval);
            if (interval < 1 || interval > kLongestIntervalMs) {
                throw UsageError("the interval must be 1 to " + std::to_string(kLongestIntervalMs) + " milliseconds");
            }
            limits.interval = milliseconds(interval);
        }
        if (m_count) {
            limits.changes = ParseNumberOf("count", *m_count);
            if (limits.changes == 0U) {
                throw UsageError("the count must be 1 or more");
            }
        }
        if (m_seconds) {
            const auto thousandths = ParseThousandths(*m_seconds);
            if (!thousandths) {
                throw UsageError("not a time: \"" + *m_seconds + "\"",
                                 "times are seconds from 0.001 to 1000000, as in 10 or 2.5");
            }
            limits.duration = milliseconds(*thousandths);
        }
        return limits;
    }

    /// All names before anything is asked from the camera; a feature that is named twice is watched once.
    [[nodiscard]] std::vector<const FeatureName*> ParseFeatures() const {
        std::vector<const FeatureName*> features;
        for (const std::string& text : m_features) {
            const FeatureName* const feature = &ParseFeature(text);
            if (std::ranges::find(features, feature) == features.end()) {
                features.push_back(feature);
            }
        }
        return features;
    }

    static void Watch(Session& session, const std::vector<const FeatureName*>& features, const Limits& limits,
                      const StopRequest& stop) {
        Output& out = session.Out();
        out.StartRows(Columns(features));
        std::vector<std::optional<FeatureReading>> last(features.size());
        std::uint32_t changes = 0;
        const Clock::time_point start = Clock::now();
        Clock::time_point next = start;
        const auto end = limits.duration ? start + *limits.duration : Clock::time_point::max();
        while (true) {
            for (std::size_t i = 0; i < features.size(); ++i) {
                const FeatureReading now = ReadFeature(session.PropertySet(), *features[i]);
                if (last[i] && last[i]->value == now.value && last[i]->mode == now.mode) {
                    continue;
                }
                out.PrintRow({TimeStamp(), now.feature->name, now.value, ModeText(now.mode)});
                changes += last[i] ? 1U : 0U;
                last[i] = now;
                if (!out.TakesMore() || changes == limits.changes) {
                    return;
                }
            }
            next = NextLook(next, limits.interval);
            if (stop.WaitUntil(std::min(next, end)) || next > end) {
                return;
            }
        }
    }

    /// On the grid of the interval; looks that a slow camera has made impossible are left out.
    static Clock::time_point NextLook(Clock::time_point last, milliseconds interval) {
        const auto missed = std::max((Clock::now() - last) / interval, Clock::rep{0});
        return last + (missed + 1) * interval;
    }

    static std::vector<Column> Columns(const std::vector<const FeatureName*>& features) {
        std::size_t width = 0;
        for (const FeatureName* feature : features) {
            width = std::max(width, std::strlen(feature->name));
        }
        return {{.key = "time", .heading = "TIME", .align = Align::left, .width = kStampWidth},
                {.key = "feature", .heading = "FEATURE", .align = Align::left, .width = width},
                {.key = "value", .heading = "VALUE", .align = Align::right, .width = kValueWidth},
                {.key = "mode", .heading = "MODE", .align = Align::left}};
    }

    std::vector<std::string> m_features;
    std::optional<std::string> m_interval;
    std::optional<std::string> m_count;
    std::optional<std::string> m_seconds;
};

}  // namespace

std::unique_ptr<Command> MakeWatch() {
    return std::make_unique<WatchCommand>();
}

}  // namespace kolmctl
