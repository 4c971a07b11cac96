#include "settings/settings_load.h"

#include <algorithm>
#include <iterator>
#include <optional>
#include <string>
#include <vector>

#include "errors.h"
#include "progress.h"
#include "settings/setting_access.h"
#include "settings/setting_table.h"
#include "text.h"

namespace kolmctl {
namespace {

constexpr char kAutomatic[] = "auto";

/// A setting of the file on its way into the camera.
struct Wanted {
    Setting setting;
    const Json* fields;
    std::vector<Refusal> refusals{};

    [[nodiscard]] bool EndsAutomatic() const {
        return setting.row->kind == SettingKind::feature && fields->value("mode", "") == kAutomatic;
    }
};

/// A message with its hint on one line.
std::string ReasonOf(const Error& error) {
    std::string reason = error.what();
    if (!error.Hint().empty()) {
        reason += "; " + error.Hint();
    }
    std::ranges::replace(reason, '\n', ' ');
    return reason;
}

void RefuseWhole(Wanted* wanted, const std::string& reason) {
    wanted->refusals.push_back({wanted->setting.Name(), "", Json(), Json(), reason});
}

/// Runs a step; a refusal is noted.
template <class Step> void Attempt(Wanted* wanted, Step&& step) {
    try {
        step();
    } catch (const Error& error) {
        RefuseWhole(wanted, ReasonOf(error));
    }
}

bool HasAll(const Json& actual, const Json& wanted) {
    return std::ranges::all_of(wanted.items(), [&](const auto& member) {
        return actual.contains(member.key()) && actual[member.key()] == member.value();
    });
}

std::string PlainText(const Json& value) {
    return value.is_string() ? value.get<std::string>() : value.dump();
}

/// All that the file says, but for an automatic mode.
void Write(Camera& camera, Wanted* wanted) {
    const auto actual = ReadSetting(camera, wanted->setting);
    if (!actual) {
        RefuseWhole(wanted, "the camera does not have it");
        return;
    }
    Json fields = *wanted->fields;
    if (wanted->EndsAutomatic()) {
        fields.erase("mode");
    }
    if (!fields.empty() && !HasAll(*actual, *wanted->fields)) {
        WriteSetting(camera, wanted->setting, fields);
    }
}

void SwitchToAutomatic(Camera& camera, Wanted* wanted) {
    const Json mode = {{"mode", kAutomatic}};
    if (const auto actual = ReadSetting(camera, wanted->setting); actual && !HasAll(*actual, mode)) {
        WriteSetting(camera, wanted->setting, mode);
    }
}

void Compare(Camera& camera, Wanted* wanted) {
    const auto actual = ReadSetting(camera, wanted->setting);
    if (!actual) {
        RefuseWhole(wanted, "the camera does not have it any longer");
        return;
    }
    for (const auto& [key, asked] : wanted->fields->items()) {
        const SettingField& field = *wanted->setting.FindField(key);
        const Json found = actual->value(key, Json());
        if (found == asked || IsChosenByCamera(camera, wanted->setting, field, *actual)) {
            continue;
        }
        const std::string reason =
            "asked " + PlainText(asked) + ", the camera has " + (found.is_null() ? "none" : PlainText(found));
        wanted->refusals.push_back({wanted->setting.Name(), key, asked, found, reason});
    }
}

std::vector<Wanted> InOrder(const Json& settings) {
    std::vector<Wanted> all;
    for (const Setting& setting : AllSettings()) {
        if (const auto found = settings.find(setting.Name()); found != settings.end()) {
            all.push_back({setting, &*found});
        }
    }
    return all;
}

}  // namespace

LoadReport LoadSettings(Camera& camera, const Json& settings) {
    std::vector<Wanted> all = InOrder(settings);
    Progress progress("loading settings", 2 * all.size());
    for (Wanted& wanted : all) {
        Attempt(&wanted, [&] { Write(camera, &wanted); });
        progress.Step();
    }
    for (Wanted& wanted : all) {
        if (wanted.refusals.empty() && wanted.EndsAutomatic()) {
            Attempt(&wanted, [&] { SwitchToAutomatic(camera, &wanted); });
        }
    }
    LoadReport report{.settings = all.size(), .refusals = {}};
    for (Wanted& wanted : all) {
        if (wanted.refusals.empty()) {
            Attempt(&wanted, [&] { Compare(camera, &wanted); });
        }
        report.refused += wanted.refusals.empty() ? 0U : 1U;
        std::ranges::move(wanted.refusals, std::back_inserter(report.refusals));
        progress.Step();
    }
    return report;
}

}  // namespace kolmctl
