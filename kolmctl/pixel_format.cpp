#include "pixel_format.h"

#include <algorithm>
#include <iterator>
#include <vector>

#include <uuids.h>

#include "text.h"

namespace kolmctl {
namespace {

struct PixelFormatRow {
    const char* name;
    const char* fourCc;
    const char* alias;
    GUID subtype;
};

/// DirectShow's subtype of a FOURCC: the four characters, then the common suffix.
constexpr GUID SubtypeOf(const char (&fourCc)[5]) {
    ULONG word = 0;
    for (int i = 3; i >= 0; --i) {
        word = word << 8 | static_cast<unsigned char>(fourCc[i]);
    }
    return {word, 0x0000, 0x0010, {0x80, 0x00, 0x00, 0xAA, 0x00, 0x38, 0x9B, 0x71}};
}

constexpr PixelFormatRow Row(const char* name, const char (&fourCc)[5], const char* alias) {
    return {name, fourCc, alias, SubtypeOf(fourCc)};
}

// clang-format off
const PixelFormatRow kPixelFormats[] = {
    Row("Mono8",        "Y800", "Mono8"),
    Row("Mono12",       "AY12", "Mono12"),
    Row("Mono16",       "AY16", "Mono16"),
    Row("Raw8",         "ARW8", "Raw8"),
    Row("Raw12",        "ARW2", "Raw12"),
    Row("Raw16",        "ARW6", "Raw16"),
    Row("UYVY(YUV422)", "UYVY", "YUV422"),
    Row("YUV411",       "Y411", "YUV411"),
    {"RGB24", "RGB24", "RGB24", MEDIASUBTYPE_RGB24},
};
// clang-format on

}  // namespace

std::string PixelFormatText(const GUID& subtype) {
    const auto* const row =
        std::ranges::find_if(kPixelFormats, [&](const PixelFormatRow& each) { return each.subtype == subtype; });
    return row != std::end(kPixelFormats) ? row->name : "unknown";
}

const GUID* FindPixelFormat(const std::string& name) {
    const auto matches = [&](const char* text) { return EqualWithoutCase(ToUtf16(text), ToUtf16(name)); };
    const auto* const row = std::ranges::find_if(kPixelFormats, [&](const PixelFormatRow& each) {
        return matches(each.name) || matches(each.fourCc) || matches(each.alias);
    });
    return row != std::end(kPixelFormats) ? &row->subtype : nullptr;
}

std::string PixelFormatNames() {
    std::vector<std::string> names;
    std::ranges::transform(kPixelFormats, std::back_inserter(names), &PixelFormatRow::name);
    return Join(names, ", ");
}

}  // namespace kolmctl
