#include "settings/setting_access.h"

#include <algorithm>
#include <map>
#include <string>
#include <string_view>

#include "errors.h"
#include "feature_change.h"
#include "names.h"
#include "registers.h"
#include "settings/format_setting.h"
#include "settings/lasting_modes.h"

namespace kolmctl {
namespace {

using kolmfluxor::FeatureId;

const FeatureName& NameOf(FeatureId id) {
    return *std::ranges::find(FeatureNames(), id, &FeatureName::id);
}

std::uint32_t Mask(const SettingField& field) {
    return field.Most() << field.lsb;
}

std::string Intention(const Setting& setting, const Json& fields) {
    std::string text = "cannot set " + setting.Name();
    const char* separator = " to ";
    for (const auto& [key, value] : fields.items()) {
        text += separator + key + " " + (value.is_string() ? value.get<std::string>() : value.dump());
        separator = ", ";
    }
    return text;
}

// -- Features

std::optional<Json> ReadFeatureFields(Camera& camera, const Setting& setting) {
    const auto id = static_cast<ULONG>(setting.row->feature);
    ULONG value = 0;
    ULONG mode = 0;
    const HRESULT hr = camera.PropertySet().GetFeatureValueAndMode(id, &value, &mode);
    if (TellsAbsence(hr)) {
        return std::nullopt;
    }
    Check(hr, "cannot read " + setting.Name());
    return Json{{"value", value}, {"mode", ModeText(mode)}};
}

void WriteFeatureFields(Camera& camera, const Setting& setting, const Json& fields) {
    FeatureChange change{NameOf(setting.row->feature), std::nullopt, nullptr};
    if (fields.contains("value")) {
        change.value = fields["value"].get<std::uint32_t>();
    }
    if (fields.contains("mode")) {
        change.mode = &ParseMode(fields["mode"].get<std::string>());
    }
    ApplyChange(camera.PropertySet(), change, Intention(setting, fields));
}

// -- Registers

/// Nothing where the camera has no such register.
std::optional<ULONG> ReadIfThere(Camera& camera, const RegisterAddress& from) {
    ULONG word = 0;
    const HRESULT hr = camera.PropertySet().ReadRegister(from.address, &word);
    if (TellsAbsence(hr)) {
        return std::nullopt;
    }
    Check(hr, "cannot read register " + from.Text());
    return word;
}

std::optional<Json> ReadRegisterFields(Camera& camera, const Setting& setting) {
    std::map<std::uint32_t, ULONG> words;  // each is read once
    const auto present = ParseRegister(setting.Register(setting.row->presentIn));
    const auto presence = ReadIfThere(camera, present);
    if (!presence || (*presence & setting.row->presentBits) == 0) {
        return std::nullopt;
    }
    words[present.address] = *presence;

    Json fields = Json::object();
    for (const SettingField& field : setting.row->fields) {
        const auto from = ParseRegister(setting.Register(field.reg));
        if (!words.contains(from.address)) {
            const auto word = ReadIfThere(camera, from);
            if (!word) {
                continue;
            }
            words[from.address] = *word;
        }
        fields[field.key] = WordToJson(field, (words[from.address] & Mask(field)) >> field.lsb);
    }
    return fields;
}

/// Register by register in the order of the fields; bits that are not named stay, but for commands.
void WriteRegisterFields(Camera& camera, const Setting& setting, const Json& wanted) {
    const std::string intention = Intention(setting, wanted);
    const auto& fields = setting.row->fields;
    for (auto field = fields.begin(); field != fields.end();) {
        const std::string_view reg = field->reg;
        const auto to = ParseRegister(setting.Register(field->reg));
        ULONG word = 0;
        Check(camera.PropertySet().ReadRegister(to.address, &word), intention);
        ULONG changed = word & ~setting.row->commands;
        for (; field != fields.end() && field->reg == reg; ++field) {
            if (wanted.contains(field->key)) {
                changed = (changed & ~Mask(*field)) | WordOfJson(*field, wanted[field->key]) << field->lsb;
            }
        }
        if (changed != (word & ~setting.row->commands)) {
            Check(camera.PropertySet().WriteRegister(to.address, changed), intention);
        }
    }
}

// -- Words

std::optional<Json> ReadWordFields(Camera& camera, const Setting& setting) {
    SettingWords words{};
    const HRESULT hr = setting.row->access.read(camera.PropertySet(), words);
    if (TellsAbsence(hr)) {
        return std::nullopt;
    }
    Check(hr, "cannot read " + setting.Name());
    Json fields = Json::object();
    for (const SettingField& field : setting.row->fields) {
        fields[field.key] = WordToJson(field, words.at(field.word));
    }
    return fields;
}

void WriteWordFields(Camera& camera, const Setting& setting, const Json& wanted) {
    const std::string intention = Intention(setting, wanted);
    SettingWords words{};
    Check(setting.row->access.read(camera.PropertySet(), words), intention);
    for (const SettingField& field : setting.row->fields) {
        if (wanted.contains(field.key)) {
            words.at(field.word) = WordOfJson(field, wanted[field.key]);
        }
    }
    Check(setting.row->access.write(camera.PropertySet(), words), intention);
}

bool FollowsAutomatic(Camera& camera, const Setting& setting) {
    ULONG mode = 0;
    return setting.row->follows != FeatureId{} &&
           camera.PropertySet().GetFeatureMode(static_cast<ULONG>(setting.row->follows), &mode) == S_OK &&
           IsAutomaticMode(ModeText(mode));
}

}  // namespace

std::optional<Json> ReadSetting(Camera& camera, const Setting& setting) {
    switch (setting.row->kind) {
    case SettingKind::feature:
        return ReadFeatureFields(camera, setting);
    case SettingKind::registers:
        return ReadRegisterFields(camera, setting);
    case SettingKind::words:
        return ReadWordFields(camera, setting);
    case SettingKind::format:
        return ReadFormatFields(camera);
    }
    return std::nullopt;
}

bool IsChosenByCamera(Camera& camera, const Setting& setting, const SettingField& field, const Json& fields) {
    if (field.kind != FieldKind::number) {
        return false;
    }
    const bool automatic = setting.row->kind == SettingKind::feature
                               ? IsAutomaticMode(fields.value("mode", ""))
                               : setting.FindField("auto") != nullptr && fields.value("auto", false);
    return automatic || FollowsAutomatic(camera, setting);
}

Json LastingFields(Camera& camera, const Setting& setting, const Json& fields) {
    Json lasting = Json::object();
    for (const SettingField& field : setting.row->fields) {
        if (!fields.contains(field.key)) {
            continue;
        }
        Json value = fields[field.key];
        if (field.kind == FieldKind::mode && value == "one-push") {
            value = "manual";
        }
        const bool choosing = field.kind == FieldKind::number && fields.value("mode", Json()) != "one-push" &&
                              IsChosenByCamera(camera, setting, field, fields);
        if (!choosing && Complaint(field, value).empty()) {
            lasting[field.key] = std::move(value);
        }
    }
    return lasting;
}

void WriteSetting(Camera& camera, const Setting& setting, const Json& fields) {
    switch (setting.row->kind) {
    case SettingKind::feature:
        WriteFeatureFields(camera, setting, fields);
        break;
    case SettingKind::registers:
        WriteRegisterFields(camera, setting, fields);
        break;
    case SettingKind::words:
        WriteWordFields(camera, setting, fields);
        break;
    case SettingKind::format:
        WriteFormatFields(camera, fields, Intention(setting, fields));
        break;
    }
}

}  // namespace kolmctl
