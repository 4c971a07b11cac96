#pragma once
/// @file  Files that hold a camera's settings: reading and writing them whole.

#include <string>

namespace kolmctl {

/// The content of a file, or of the standard input.
///
/// @throws UsageError when it cannot be read, or is larger than any file of settings
[[nodiscard]] std::string ReadSettingsText(const std::string& path);

/// Writes a file whole, or leaves the one that is there as it was.
///
/// @throws CallError
void WriteSettingsFile(const std::string& path, const std::string& text);

}  // namespace kolmctl
