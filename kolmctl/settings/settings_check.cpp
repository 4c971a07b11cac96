#include "settings/settings_check.h"

#include <algorithm>

#include "errors.h"
#include "settings/setting_table.h"
#include "settings/settings_text.h"
#include "text.h"

namespace kolmctl {
namespace {

constexpr std::size_t kHintWidth = 100;

struct IdentityRow {
    const char* key;
    bool (*accepts)(const Json& value);
    const char* what;
};
constexpr IdentityRow kIdentity[] = {
    {"vendor", [](const Json& value) { return value.is_string(); }, "a text"},
    {"model", [](const Json& value) { return value.is_string(); }, "a text"},
    {"serialNumber", [](const Json& value) { return value.is_number_unsigned(); }, "a whole number"},
};

class Checker {
public:
    explicit Checker(const std::string& path) : m_path(path) {}

    void Document(const Json& document) const {
        Object(document, "the file");
        for (const auto& [key, value] : document.items()) {
            if (key == "camera") {
                Identity(value);
            } else if (key != "version" && key != "settings") {
                Complain(key + ": unknown name", "a file has \"version\", \"camera\" and \"settings\"");
            }
        }
        Version(document);
        if (!document.contains("settings")) {
            Complain("\"settings\" is missing");
        }
        Settings(document["settings"]);
    }

private:
    [[noreturn]] void Complain(const std::string& complaint, const std::string& hint = {}) const {
        throw UsageError(FileText(m_path) + ": " + complaint, hint);
    }

    void Object(const Json& value, const std::string& place) const {
        if (!value.is_object()) {
            Complain(place + " is no object, {...}");
        }
    }

    void Version(const Json& document) const {
        if (!document.contains("version")) {
            Complain("\"version\" is missing");
        }
        const Json& version = document["version"];
        if (version != kSettingsVersion || !version.is_number_integer()) {
            Complain("version: " + version.dump() + " is not " + std::to_string(kSettingsVersion),
                     "this program knows version " + std::to_string(kSettingsVersion) + " alone");
        }
    }

    void Identity(const Json& camera) const {
        Object(camera, "camera");
        for (const auto& [key, value] : camera.items()) {
            const auto* const row = std::ranges::find(kIdentity, key, &IdentityRow::key);
            if (row == std::end(kIdentity)) {
                Complain("camera." + key + ": unknown name");
            }
            if (!row->accepts(value)) {
                Complain("camera." + key + ": " + value.dump() + " is not " + row->what);
            }
        }
    }

    void Settings(const Json& settings) const {
        Object(settings, "settings");
        const std::vector<Setting> known = AllSettings();
        for (const auto& [name, fields] : settings.items()) {
            const auto found = std::ranges::find(known, name, &Setting::Name);
            if (found == known.end()) {
                Complain("settings." + name + ": unknown setting", KnownSettings(known));
            }
            Fields(*found, fields);
        }
    }

    void Fields(const Setting& setting, const Json& fields) const {
        const std::string place = "settings." + setting.Name();
        Object(fields, place);
        if (fields.empty()) {
            Complain(place + " names nothing");
        }
        for (const auto& [key, value] : fields.items()) {
            const SettingField* const field = setting.FindField(key);
            if (field == nullptr) {
                Complain(place + "." + key + ": unknown name", KnownFields(setting));
            }
            if (const std::string complaint = Complaint(*field, value); !complaint.empty()) {
                Complain(place + "." + key + ": " + value.dump() + " " + complaint);
            }
        }
    }

    static std::string KnownSettings(const std::vector<Setting>& known) {
        std::vector<std::string> names;
        for (const Setting& setting : known) {
            names.push_back(setting.Name());
        }
        return Wrap("known are " + Join(names, ", "), kHintWidth);
    }

    static std::string KnownFields(const Setting& setting) {
        std::vector<std::string> names;
        for (const SettingField& field : setting.row->fields) {
            names.emplace_back(field.key);
        }
        return setting.Name() + " has " + Join(names, ", ");
    }

    const std::string& m_path;
};

}  // namespace

void CheckSettings(const Json& document, const std::string& path) {
    Checker(path).Document(document);
}

}  // namespace kolmctl
