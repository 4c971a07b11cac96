#pragma once
/// @file  Features and modes by the names that the command line knows.

#include <span>
#include <string>
#include <string_view>

#include <kolmfluxor/features.h>

namespace kolmctl {

struct FeatureName {
    kolmfluxor::FeatureId id;
    const char* name;
};

struct ModeName {
    kolmfluxor::FeatureMode mode;
    const char* name;
};

/// All features, in the order of their ids.
[[nodiscard]] std::span<const FeatureName> FeatureNames();

/// The modes that a feature can be in, in the order of their numbers; "unknown" is not among them.
[[nodiscard]] std::span<const ModeName> ModeNames();

/// The feature of a name such as "auto-exposure", or of an id such as "257" or "0x101".
///
/// @throws UsageError when there is none
[[nodiscard]] const FeatureName& ParseFeature(std::string_view text);

/// The mode of a name such as "one-push", or of its number.
///
/// @throws UsageError when there is none
[[nodiscard]] const ModeName& ParseMode(std::string_view text);

/// A mode number of the interface in words; "unknown" for every number without a name.
[[nodiscard]] std::string ModeText(unsigned long mode);

}  // namespace kolmctl
