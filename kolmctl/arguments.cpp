#include "arguments.h"

#include "errors.h"
#include "text.h"

namespace kolmctl {

std::uint32_t ParseValue(const std::string& text) {
    return ParseNumberOf("value", text);
}

std::uint32_t ParseNumberOf(const char* what, const std::string& text) {
    const auto value = ParseNumber(text);
    if (!value) {
        throw UsageError("not a " + std::string(what) + ": \"" + text + "\"",
                         std::string(what) + "s are whole numbers from 0 to 4294967295, decimal or 0x...");
    }
    return *value;
}

}  // namespace kolmctl
