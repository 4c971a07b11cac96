#pragma once
/// @file  Every accessor of the media types: what it is called and what it says.

#include <cstdint>
#include <span>

#include "media/video_type.h"

namespace kolmfluxor::test {

/// What the calls of the list pass on.
struct AccessorArguments {
    LONG a = 16;
    LONG b = 8;
    REFERENCE_TIME time = 333'333;
    std::uint32_t fps = 30;
    std::int32_t fpms = 30'000;
    RECT area = {16, 8, 336, 248};
};

/// One overload of an accessor.
struct AccessorCase {
    const char* className;
    const char* name;
    /// What it says on an initialized type without a header; null when it does without.
    const char* nullPointerText;
    void (*call)(CMediaTypeInfo& type, const AccessorArguments& arguments);
};

[[nodiscard]] std::span<const AccessorCase> AccessorCases();

}  // namespace kolmfluxor::test
