#pragma once
/// @file  What a camera refused of the settings that were loaded.

#include <cstddef>
#include <string>
#include <vector>

#include "output.h"

namespace kolmctl {

/// One thing that is not as the file says.
struct Refusal {
    std::string setting;
    std::string field;   ///< empty for the whole setting
    Json asked;          ///< null for the whole setting
    Json actual;         ///< what the camera has instead; null where it is not known
    std::string reason;  ///< for people
};

struct LoadReport {
    std::size_t settings = 0;  ///< in the file
    std::size_t refused = 0;   ///< settings with at least one refusal
    std::vector<Refusal> refusals;
};

/// A line for each refusal, or a table of them for programs.
void PrintReport(Output& output, const LoadReport& report);

}  // namespace kolmctl
