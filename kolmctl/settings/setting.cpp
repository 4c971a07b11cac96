#include "settings/setting.h"

#include <algorithm>
#include <cctype>
#include <iterator>
#include <vector>

#include "errors.h"
#include "iso_transfer.h"
#include "pixel_format.h"
#include "settings/lasting_modes.h"
#include "text.h"

namespace kolmctl {
namespace {

constexpr double kFastest = 1e6;  // frames per second

std::string Numbered(std::string pattern, unsigned number) {
    if (const std::size_t at = pattern.find('#'); at != std::string::npos) {
        pattern.replace(at, 1, std::to_string(number));
    }
    return pattern;
}

bool IsText(const Json& value, bool (*accepts)(const std::string&)) {
    return value.is_string() && accepts(value.get<std::string>());
}

bool IsSpeed(const std::string& text) {
    try {
        return SpeedText(ParseSpeed(text)) == text;  // other spellings would not compare equal afterwards
    } catch (const UsageError&) {
        return false;
    }
}

bool IsVideoMode(const std::string& text) {
    const auto isDigit = [&](std::size_t at) { return std::isdigit(static_cast<unsigned char>(text[at])) != 0; };
    return text.size() == 4 && text[0] == 'f' && isDigit(1) && text[2] == 'm' && isDigit(3);
}

bool IsPixelFormat(const std::string& text) {
    const GUID* const found = FindPixelFormat(text);
    return found != nullptr && PixelFormatText(*found) == text;
}

std::string Quoted(std::span<const char* const> names) {
    std::vector<std::string> quoted;
    std::ranges::transform(names, std::back_inserter(quoted),
                           [](const char* name) { return "\"" + std::string(name) + "\""; });
    return Join(quoted, ", ");
}

/// Whole, and inside the limits; a number with a fraction or exponent is none, even if it is whole.
bool IsWhole(const Json& value, std::int64_t least, std::int64_t most) {
    if (value.is_number_unsigned()) {
        return value.get<std::uint64_t>() <= static_cast<std::uint64_t>(most);
    }
    return value.is_number_integer() && value.get<std::int64_t>() >= least && value.get<std::int64_t>() <= most;
}

}  // namespace

std::string Setting::Name() const {
    return Numbered(row->name, number);
}

std::string Setting::Register(const char* pattern) const {
    return Numbered(pattern, number);
}

const SettingField* Setting::FindField(const std::string& key) const {
    const auto found = std::ranges::find_if(row->fields, [&](const SettingField& field) { return key == field.key; });
    return found != row->fields.end() ? &*found : nullptr;
}

Json WordToJson(const SettingField& field, std::uint32_t word) {
    switch (field.kind) {
    case FieldKind::signedNumber:
        return static_cast<std::int32_t>(word);
    case FieldKind::flag:
        return word != 0;
    case FieldKind::choice:
        return word < field.names.size() ? Json(field.names[word]) : Json(word);
    case FieldKind::speed:
        return SpeedText(word);
    default:
        return word;
    }
}

std::uint32_t WordOfJson(const SettingField& field, const Json& value) {
    switch (field.kind) {
    case FieldKind::signedNumber:
        return static_cast<std::uint32_t>(value.get<std::int32_t>());
    case FieldKind::flag:
        return value.get<bool>() ? 1 : 0;
    case FieldKind::choice:
        return static_cast<std::uint32_t>(std::ranges::find(field.names, value.get<std::string>()) -
                                          field.names.begin());
    case FieldKind::speed:
        return ParseSpeed(value.get<std::string>());
    default:
        return value.get<std::uint32_t>();
    }
}

std::string Complaint(const SettingField& field, const Json& value) {
    switch (field.kind) {
    case FieldKind::number:
        return IsWhole(value, 0, field.Most()) ? "" : "is not a whole number from 0 to " + std::to_string(field.Most());
    case FieldKind::signedNumber:
        return IsWhole(value, INT32_MIN, INT32_MAX) ? "" : "is not a whole number from -2147483648 to 2147483647";
    case FieldKind::flag:
        return value.is_boolean() ? "" : "is neither true nor false";
    case FieldKind::choice:
        return value.is_string() && std::ranges::find(field.names, value.get<std::string>()) != field.names.end()
                   ? ""
                   : "is none of " + Quoted(field.names);
    case FieldKind::speed:
        return IsText(value, IsSpeed) ? "" : "is not a speed such as \"S400\"";
    case FieldKind::mode:
        return IsText(value, IsLastingMode) ? "" : "is none of " + Quoted(LastingModes());
    case FieldKind::videoMode:
        return IsText(value, IsVideoMode) ? "" : "is not a mode such as \"f7m0\"";
    case FieldKind::pixels:
        return IsText(value, IsPixelFormat) ? "" : "is none of " + PixelFormatNames();
    case FieldKind::rate:
        return value.is_number() && value.get<double>() >= 0.001 && value.get<double>() <= kFastest
                   ? ""
                   : "is not a frame rate from 0.001 to 1000000";
    }
    return "cannot be used";
}

}  // namespace kolmctl
