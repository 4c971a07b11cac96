#pragma once
/// @file  The viewer's command line.

#include <optional>
#include <string>
#include <vector>

#include "camera_choice.h"

namespace kolmview {

struct ViewerOptions {
    kolmctl::CameraChoice camera;
    std::string still;    ///< file for the button "Save picture"; empty to ask each time
    std::string picture;  ///< file for a picture of the window, after which the program ends; empty for none
};

/// A command line that was read.
struct ParsedOptions {
    ViewerOptions options;
    std::string answer;  ///< the text that --help or --version asks for; empty when neither was given
};

/// Reads the arguments, in UTF-8 and without the program's name. @throws kolmctl::UsageError
[[nodiscard]] ParsedOptions ParseOptions(std::vector<std::string> arguments);

}  // namespace kolmview
