#pragma once
/// @file  Methods of the interfaces as the compiler sees them in the public headers, in the words of a type library.

#include <gtest/gtest.h>

#include <algorithm>
#include <cstddef>
#include <map>
#include <ostream>
#include <set>
#include <string>
#include <type_traits>
#include <utility>
#include <vector>

#include <kolmfluxor/property_set.h>
#include <kolmfluxor/still_image.h>
#include <oleauto.h>

#include "support/slots.h"

namespace kolmfluxor::test {

/// A type as a type library names it.
template <class T> std::string TypeName() {
    using Plain = std::remove_const_t<T>;
    if constexpr (std::is_pointer_v<Plain>) {
        using Pointee = std::remove_pointer_t<Plain>;
        if constexpr (std::is_same_v<std::remove_const_t<Pointee>, char>) return "LPSTR";
        if constexpr (std::is_same_v<Pointee, const wchar_t>) return "LPWSTR";
        if constexpr (std::is_same_v<Pointee, wchar_t>) return "BSTR";
        if constexpr (std::is_same_v<Plain, HWND>) return "void*";
        return TypeName<Pointee>() + "*";
    } else {
        if constexpr (std::is_void_v<Plain>) return "void";
        if constexpr (std::is_same_v<Plain, ULONG>) return "ULONG";
        if constexpr (std::is_same_v<Plain, LONG> || std::is_same_v<Plain, BOOL>) return "LONG";
        if constexpr (std::is_same_v<Plain, BYTE>) return "BYTE";
        if constexpr (std::is_same_v<Plain, IUnknown>) return "IUnknown";
        if constexpr (std::is_same_v<Plain, BITMAPINFOHEADER>) return "tagBITMAPINFOHEADER";
        if constexpr (std::is_same_v<Plain, BITMAPINFO>) return "tagBITMAPINFO";
        if constexpr (std::is_same_v<Plain, AM_MEDIA_TYPE>) return "_AMMediaType";
        if constexpr (std::is_same_v<Plain, VIDEO_STREAM_CONFIG_CAPS>) return "_VIDEO_STREAM_CONFIG_CAPS";
        return "no name for this type";
    }
}

/// Outputs by type: numbers, texts, objects and bitmap headers behind a pointer that is not const.
inline bool IsOutput(const std::string& type) {
    static const std::set<std::string> kOutputs = {
        "ULONG*", "LONG*", "LPSTR*", "BSTR*", "IUnknown**", "tagBITMAPINFO*", "tagBITMAPINFOHEADER*"};
    return kOutputs.contains(type);
}

struct Argument {
    std::string type;
    int direction;  ///< IDLFLAG_...

    bool operator==(const Argument&) const = default;
};
inline void PrintTo(const Argument& argument, std::ostream* out) {
    *out << argument.type << " (flags " << argument.direction << ")";
}

struct Method {
    int slot;
    std::string name;
    std::vector<Argument> arguments;
};

template <class T> Argument ArgumentOf() {
    constexpr bool constant = std::is_const_v<std::remove_pointer_t<T>>;
    const std::string type = TypeName<T>();
    return {type, IsOutput(type) && !constant ? IDLFLAG_FOUT : IDLFLAG_FIN};
}

template <class Interface, class... Arguments>
Method Describe(int slot, const char* name, HRESULT (STDMETHODCALLTYPE Interface::*method)(Arguments...)) {
    Method described{slot, name, {ArgumentOf<Arguments>()...}};
    EXPECT_EQ(SlotOf(method), slot) << name;

    // Arguments whose type alone says the wrong thing: an array of the caller's, outputs that are left as they were.
    static const std::map<std::pair<std::string, std::size_t>, int> kDirections = {
        {{"SetRegisterComposite73", 0}, IDLFLAG_FIN},
        {{"GetColorCorrectionOnOff", 0}, IDLFLAG_FIN | IDLFLAG_FOUT},
        {{"GetTrigger", 0}, IDLFLAG_FIN | IDLFLAG_FOUT},
    };
    for (std::size_t i = 0; i < described.arguments.size(); ++i) {
        const auto found = kDirections.find({described.name, i});
        if (found != kDirections.end()) described.arguments[i].direction = found->second;
    }
    // The only output becomes the function's result in languages that turn failures into exceptions.
    const auto outputs =
        std::ranges::count_if(described.arguments, [](const auto& a) { return (a.direction & IDLFLAG_FOUT) != 0; });
    if (outputs == 1 && described.arguments.back().direction == IDLFLAG_FOUT)
        described.arguments.back().direction |= IDLFLAG_FRETVAL;
    return described;
}

}  // namespace kolmfluxor::test
