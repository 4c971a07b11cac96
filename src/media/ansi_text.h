#pragma once
/// @file  Texts in the thread's ANSI code page.

#include <string>
#include <string_view>

#include <windows.h>

namespace kolmfluxor {

/// Converts to the thread's ANSI code page; characters that it lacks become its default character.
[[nodiscard]] inline std::string ToThreadAnsi(std::wstring_view wide) {
    const int count = static_cast<int>(wide.size());
    const int bytes = ::WideCharToMultiByte(CP_THREAD_ACP, 0, wide.data(), count, nullptr, 0, nullptr, nullptr);
    std::string ansi(static_cast<std::size_t>(bytes), '\0');
    ::WideCharToMultiByte(CP_THREAD_ACP, 0, wide.data(), count, ansi.data(), bytes, nullptr, nullptr);
    return ansi;
}

/// Converts from the thread's ANSI code page.
[[nodiscard]] inline std::wstring FromThreadAnsi(std::string_view ansi) {
    const int bytes = static_cast<int>(ansi.size());
    const int count = ::MultiByteToWideChar(CP_THREAD_ACP, 0, ansi.data(), bytes, nullptr, 0);
    std::wstring wide(static_cast<std::size_t>(count), L'\0');
    ::MultiByteToWideChar(CP_THREAD_ACP, 0, ansi.data(), bytes, wide.data(), count);
    return wide;
}

}  // namespace kolmfluxor
