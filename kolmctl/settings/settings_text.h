#pragma once
/// @file  The text of files that hold a camera's settings. No Windows header.

#include <string>

#include "output.h"

namespace kolmctl {

/// The version of the format that this program reads and writes.
inline constexpr int kSettingsVersion = 1;

/// Stands for the standard input or output.
inline constexpr char kStandardStream[] = "-";

/// How messages name a file.
[[nodiscard]] std::string FileText(const std::string& path);

/// Reads JSON in which no object has a name twice and nothing lies deeper than any setting.
///
/// @param path  for messages
/// @throws UsageError that tells the place
[[nodiscard]] Json ParseSettings(const std::string& text, const std::string& path);

/// A document as text: one setting a line.
[[nodiscard]] std::string SettingsText(const Json& document);

}  // namespace kolmctl
