#include "kolmview/viewer_options.h"

#include <algorithm>
#include <filesystem>
#include <sstream>

#include <CLI/CLI.hpp>

#include "errors.h"
#include "text.h"

namespace kolmview {
namespace {

constexpr std::size_t kHelpColumn = 28;

constexpr char kKeys[] =
    "Keys: F5 starts the stream anew, with the format that the camera is set to.\n\n"
    "Exit codes: 0 success, 1 the camera, its driver or the module refused, 2 wrong usage,\n"
    "3 no such device.\n";

/// The message for a name that is no PNG file's; empty for one that is.
std::string CheckPng(const std::string& name) {
    const std::wstring extension = std::filesystem::path(kolmctl::ToUtf16(name)).extension().wstring();
    return kolmctl::EqualWithoutCase(extension, L".png") ? "" : "\"" + name + "\" is not a .png file";
}

}  // namespace

ParsedOptions ParseOptions(std::vector<std::string> arguments) {
    ParsedOptions parsed;
    CLI::App parser("Shows the running picture of an IIDC camera.", "kolmview");
    parser.get_formatter()->column_width(kHelpColumn);
    parser.allow_windows_style_options(false);
    parser.set_version_flag("--version", "kolmview " KOLMVIEW_VERSION, "Show the version and end");
    kolmctl::DeclareCameraOptions(parser, &parsed.options.camera);
    parser
        .add_option("--still", parsed.options.still,
                    "The button \"Save picture\" writes this PNG file\nwithout asking for a name")
        ->option_text("FILE")
        ->check(CheckPng);
    parser
        .add_option("--picture", parsed.options.picture,
                    "Write a picture of the window to this PNG file as soon as\n"
                    "some of the camera's were shown, and end; errors go to\n"
                    "the error stream")
        ->option_text("FILE")
        ->check(CheckPng);
    parser.footer(kKeys);

    std::ranges::reverse(arguments);  // as the parser takes them
    try {
        parser.parse(std::move(arguments));
    } catch (const CLI::ParseError& ended) {
        if (ended.get_exit_code() != static_cast<int>(CLI::ExitCodes::Success)) {
            throw kolmctl::UsageError(ended.what(), "\"kolmview --help\" tells the usage");
        }
        std::ostringstream answer;
        parser.exit(ended, answer, answer);
        parsed.answer = answer.str();
    }
    return parsed;
}

}  // namespace kolmview
