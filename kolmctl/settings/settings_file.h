#pragma once
/// @file  Files that hold a camera's settings: their text.

#include <string>

#include "output.h"

namespace kolmctl {

/// The version of the format that this program reads and writes.
inline constexpr int kSettingsVersion = 1;

/// Stands for the standard input or output.
inline constexpr char kStandardStream[] = "-";

/// How messages name a file.
[[nodiscard]] std::string FileText(const std::string& path);

/// The content of a file, or of the standard input.
///
/// @throws UsageError when it cannot be read, or is larger than any file of settings
[[nodiscard]] std::string ReadSettingsText(const std::string& path);

/// Reads JSON in which no object has a name twice.
///
/// @param path  for messages
/// @throws UsageError that tells the place
[[nodiscard]] Json ParseSettings(const std::string& text, const std::string& path);

/// A document as text: one setting a line.
[[nodiscard]] std::string SettingsText(const Json& document);

/// Writes a file whole, or leaves the one that is there as it was.
///
/// @throws CallError
void WriteSettingsFile(const std::string& path, const std::string& text);

}  // namespace kolmctl
