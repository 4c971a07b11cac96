#pragma once
/// @file  Whether a document holds settings that could be loaded.

#include <string>

#include "output.h"

namespace kolmctl {

/// Judges everything about a document that needs no camera: version, names, types, ranges of numbers.
///
/// @param path  of the file, for messages
/// @throws UsageError that tells the place, as in "settings.gain.value"
void CheckSettings(const Json& document, const std::string& path);

}  // namespace kolmctl
