/// @file  Any text as a file of a camera's settings: refused with a reason, or settings that a camera could be given.

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <string>

#include "check.h"
#include "errors.h"
#include "hresult_text.h"
#include "settings/setting_table.h"
#include "settings/settings_check.h"
#include "settings/settings_text.h"

namespace kolmctl {

// No camera answers here, so nobody reads this.
std::string HResultText(HRESULT /*hr*/) {
    return "a code";
}

}  // namespace kolmctl

namespace {

using namespace kolmctl;

constexpr char kPath[] = "any.json";

void Expect(bool holds, const char* what) {
    kolmfluxor::fuzz::Expect(holds, "settings", what);
}

/// What a file tells, or nothing (null) when it is refused.
Json Accepted(const std::string& text) {
    try {
        const Json document = ParseSettings(text, kPath);
        Expect(Json::accept(text), "what is parsed is JSON");
        CheckSettings(document, kPath);
        return document;
    } catch (const UsageError& error) {
        Expect(std::string(error.what()).find(kPath) != std::string::npos, "a refusal names the file");
        Expect(error.Code() == ExitCode::usage, "a refusal is wrong usage");
        return nullptr;
    }
}

bool IsWord(FieldKind kind) {
    using enum FieldKind;
    constexpr FieldKind kWords[] = {number, signedNumber, flag, choice, speed};
    return std::ranges::find(kWords, kind) != std::end(kWords);
}

void CheckField(const SettingField& field, const Json& value) {
    Expect(value.is_primitive() && !value.is_null(), "a value is one");
    if (!IsWord(field.kind)) return;
    const std::uint32_t word = WordOfJson(field, value);
    Expect(word <= field.Most() || field.kind == FieldKind::choice || field.kind == FieldKind::speed,
           "a word fits its bits");
    Expect(WordToJson(field, word) == value, "a word is the value that it was made of");
}

void CheckDocument(const Json& document) {
    Expect(document.at("version") == 1, "the version is known");
    for (const auto& [name, fields] : document.at("settings").items()) {
        const std::vector<Setting> all = AllSettings();
        const auto setting = std::ranges::find(all, name, [](const Setting& each) { return each.Name(); });
        Expect(setting != all.end() && !fields.empty(), "a setting is known and says something");
        for (const auto& [key, value] : fields.items()) {
            const SettingField* const field = setting->FindField(key);
            Expect(field != nullptr, "a field is known");
            CheckField(*field, value);
        }
    }
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const std::string text(reinterpret_cast<const char*>(data), size);
    const Json document = Accepted(text);
    if (document.is_null()) return 0;
    CheckDocument(document);
    Expect(Accepted(SettingsText(document)) == document, "a document written out reads the same");
    return 0;
}
