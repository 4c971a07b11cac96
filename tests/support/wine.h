#pragma once
/// @file  Whether a test runs under Wine, for the few things that cannot pass there.

#include <windows.h>

namespace kolmfluxor::test {

[[nodiscard]] inline bool IsWine() {
    return ::GetProcAddress(::GetModuleHandleA("ntdll.dll"), "wine_get_version") != nullptr;
}

}  // namespace kolmfluxor::test
