#pragma once
/// @file  GUIDs as text.

#include <array>
#include <string>

#include <windows.h>

#include <objbase.h>

namespace kolmfluxor {

/// A GUID in braces, upper-case: "{BE226229-D865-4F2E-AB89-13F359E8F46A}".
[[nodiscard]] inline std::wstring GuidText(REFGUID guid) {
    std::array<wchar_t, 39> text{};  // 38 characters and the NUL
    ::StringFromGUID2(guid, text.data(), static_cast<int>(text.size()));
    return text.data();
}

}  // namespace kolmfluxor
