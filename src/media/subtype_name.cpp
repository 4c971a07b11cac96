#include "media/subtype_name.h"

#include <algorithm>
#include <iterator>

#include <uuids.h>

#include "base/media_type.h"

namespace kolmfluxor {
namespace {

/// The subtype whose FOURCC these four characters are.
consteval GUID Subtype(const char (&fourCc)[5]) {
    std::uint32_t code = 0;
    for (int i = 3; i >= 0; --i)
        code = code << 8 | static_cast<unsigned char>(fourCc[i]);
    return FourCcSubtype(code);
}

struct NamedSubtype {
    GUID subtype;
    const char* name;
};
constexpr NamedSubtype kFourCcNames[] = {
    {Subtype("Y800"), "Mono8"},        {Subtype("AY12"), "Mono12"}, {Subtype("AY16"), "Mono16"},
    {Subtype("ARW8"), "Raw8"},         {Subtype("ARW2"), "Raw12"},  {Subtype("ARW6"), "Raw16"},
    {Subtype("UYVY"), "UYVY(YUV422)"}, {Subtype("Y411"), "YUV411"},
};

}  // namespace

const char* SubtypeName(const AM_MEDIA_TYPE& type) noexcept {
    const auto* const found = std::ranges::find(kFourCcNames, type.subtype, &NamedSubtype::subtype);
    if (found != std::end(kFourCcNames)) return found->name;
    return type.subtype == MEDIASUBTYPE_RGB24 ? "RGB24" : "unknown";
}

}  // namespace kolmfluxor
