#include "settings/settings_text.h"

#include <iterator>
#include <set>
#include <vector>

#include "errors.h"

namespace kolmctl {
namespace {

constexpr int kDeepest = 16;

/// The parser's own message without its number: it tells line and column.
std::string MessageOf(const Json::exception& error) {
    const std::string text = error.what();
    const std::size_t number = text.find("] ");
    return number != std::string::npos ? text.substr(number + 2) : text;
}

/// Blanks after colons and commas, all on one line. @param value  an object of plain values, or a plain value
std::string OneLine(const Json& value) {
    if (!value.is_object()) {
        return value.dump(-1, ' ', false, Json::error_handler_t::replace);
    }
    std::string text;
    for (const auto& [key, member] : value.items()) {
        text += (text.empty() ? "" : ", ") + Json(key).dump() + ": " + OneLine(member);
    }
    return "{" + text + "}";
}

}  // namespace

std::string FileText(const std::string& path) {
    return path == kStandardStream ? "the standard input" : "\"" + path + "\"";
}

Json ParseSettings(const std::string& text, const std::string& path) {
    std::vector<std::set<std::string>> names;  // of the objects that are open
    const auto watch = [&](int depth, Json::parse_event_t event, Json& parsed) {
        // Settings lie three levels deep. What handles values calls itself for each level, and must not run out of
        // stack.
        if (depth > kDeepest) {
            throw UsageError(FileText(path) + " holds no settings: it is nested too deeply");
        }
        if (event == Json::parse_event_t::object_start) {
            names.emplace_back();
        } else if (event == Json::parse_event_t::object_end) {
            names.pop_back();
        } else if (event == Json::parse_event_t::key && !names.back().insert(parsed.get<std::string>()).second) {
            throw UsageError(FileText(path) + ": " + parsed.dump() + " stands twice in one object");
        }
        return true;
    };
    try {
        return Json::parse(text, watch);
    } catch (const Json::parse_error& error) {
        throw UsageError(FileText(path) + " is no JSON: " + MessageOf(error));
    } catch (const Json::out_of_range& error) {
        throw UsageError(FileText(path) + ": " + MessageOf(error));  // a number beyond all numbers
    }
}

std::string SettingsText(const Json& document) {
    std::string text = "{\n";
    for (auto member = document.begin(); member != document.end(); ++member) {
        text += "  " + Json(member.key()).dump() + ": ";
        if (member.key() == "settings") {
            text += "{";
            for (auto setting = member->begin(); setting != member->end(); ++setting) {
                text += (setting == member->begin() ? "\n    " : ",\n    ") + Json(setting.key()).dump() + ": " +
                        OneLine(*setting);
            }
            text += "\n  }";
        } else {
            text += OneLine(*member);
        }
        text += std::next(member) != document.end() ? ",\n" : "\n";
    }
    return text + "}\n";
}

}  // namespace kolmctl
