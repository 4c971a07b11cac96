/// @file  kolmctl format set: mode, area and frame rate.

#include <algorithm>
#include <array>
#include <iterator>
#include <optional>

#include <CLI/CLI.hpp>

#include "arguments.h"
#include "capture_pin.h"
#include "commands/commands.h"
#include "errors.h"
#include "format_choice.h"
#include "format_tables.h"
#include "frame_rate.h"

namespace kolmctl {
namespace {

/// A number of pixels that the command line may name.
struct AreaOption {
    const char* flag;
    const char* help;
    std::int64_t Area::*member;
};

constexpr AreaOption kAreaOptions[] = {
    {"--x", "Position of the area's left edge, in pixels", &Area::x},
    {"--y", "Position of its top edge", &Area::y},
    {"--width", "Width of the area", &Area::width},
    {"--height", "Height of the area", &Area::height},
};

class FormatSetCommand final : public Command {
public:
    void Declare(CLI::App& app) override {
        app.add_option("--mode", m_mode,
                       "Index as in \"kolmctl formats\", or words that tell one format:\n"
                       "f7m0 (Format 7 mode 0), 640x480 (a fixed size), Mono8;\n"
                       "without --mode the current one. A mode comes with its own\n"
                       "area and frame rate")
            ->option_text("FORMAT");
        for (std::size_t i = 0; i < std::size(kAreaOptions); ++i) {
            app.add_option(kAreaOptions[i].flag, m_area.at(i), kAreaOptions[i].help)->option_text("N");
        }
        app.add_option("--rate", m_rate, "Frames per second, as in 7.5")->option_text("FPS");
    }

    void Run(Session& session) override {
        if (!m_mode && !AnyArea() && !m_rate) {
            throw UsageError("nothing to set", "give --mode, --x, --y, --width, --height or --rate");
        }
        const auto choice = m_mode ? std::optional<FormatChoice>(*m_mode) : std::nullopt;
        const auto numbers = ParseArea();
        const MilliFps rate = m_rate ? ParseRate(*m_rate) : 0;

        const CapturePin pin(session.OpenCamera());
        CaptureFormats formats = pin.Formats();
        CaptureFormat& format = choice ? choice->Choose(formats) : formats.Current();
        // All is checked before anything is set, so that a refusal leaves everything as it was.
        const Area before = format.CurrentArea();
        const Area area = Merge(before, numbers);
        CheckArea(format, area);
        if (m_rate) {
            // The limits of a scalable format are those for its present size: only the camera can judge the rate for
            // another one.
            if (area.SameSize(before)) {
                CheckRate(format, rate);
            }
            format.SetRate(rate);
        }
        if (area != before) {
            format.SetArea(area);
        }
        pin.Apply(format);

        CaptureFormats after = pin.Formats();
        const Table result = FormatTable(after);
        session.Out().Print(result);
        if (const auto actual = after.Current().Rate(); m_rate && actual && *actual != rate) {
            session.Out().PrintText("The camera makes " + RateText(*actual) + " frames per second instead of " +
                                    RateText(rate) + ".\n");
        }
    }

private:
    using Numbers = std::array<std::optional<std::int64_t>, std::size(kAreaOptions)>;

    [[nodiscard]] bool AnyArea() const {
        return std::ranges::any_of(m_area, [](const auto& text) { return text.has_value(); });
    }

    [[nodiscard]] Numbers ParseArea() const {
        Numbers numbers;
        for (std::size_t i = 0; i < numbers.size(); ++i) {
            if (m_area.at(i)) {
                numbers.at(i) = ParseNumberOf("pixel count", *m_area.at(i));
            }
        }
        return numbers;
    }

    static Area Merge(Area area, const Numbers& numbers) {
        for (std::size_t i = 0; i < numbers.size(); ++i) {
            area.*kAreaOptions[i].member = numbers.at(i).value_or(area.*kAreaOptions[i].member);
        }
        return area;
    }

    void CheckArea(const CaptureFormat& format, const Area& area) const {
        if (!AnyArea() || (!format.IsScalable() && area == format.CurrentArea())) {
            return;
        }
        const std::string intention = "cannot set the area to " + area.Text();
        if (!format.IsScalable()) {
            throw CallError(
                intention, E_INVALIDARG,
                format.ModeText() + " is always " + format.CurrentArea().Text() + "; Format 7 modes let choose");
        }
        if (!format.Limits().Allow(area)) {
            throw CallError(intention, E_INVALIDARG, format.Limits().Text());
        }
    }

    void CheckRate(const CaptureFormat& format, MilliFps rate) const {
        const auto limits = format.Rates();
        if (!limits) {
            return;
        }
        const bool inside = rate >= limits->slowest && rate <= limits->fastest;
        const std::string intention = "cannot set the frame rate to " + *m_rate;
        if (format.HasStandardRates() && !(inside && IsStandardRate(rate))) {
            throw CallError(intention, E_INVALIDARG,
                            format.ModeText() + " has these rates: " + StandardRates(limits->slowest, limits->fastest));
        }
        if (!inside) {
            throw CallError(intention, E_INVALIDARG,
                            format.ModeText() + " takes rates from " + RateText(limits->slowest) + " to " +
                                RateText(limits->fastest) + " at this size");
        }
    }

    std::optional<std::string> m_mode;
    std::array<std::optional<std::string>, std::size(kAreaOptions)> m_area;
    std::optional<std::string> m_rate;
};

}  // namespace

std::unique_ptr<Command> MakeFormatSet() {
    return std::make_unique<FormatSetCommand>();
}

}  // namespace kolmctl
