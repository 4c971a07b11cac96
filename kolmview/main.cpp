/// @file  kolmview: the running picture of an IIDC camera.

#include <algorithm>
#include <exception>
#include <iostream>
#include <string>
#include <vector>

#include <windows.h>

#include "com_apartment.h"
#include "errors.h"
#include "kolmview/viewer_options.h"
#include "kolmview/viewer_window.h"
#include "program_arguments.h"
#include "text.h"

namespace {

using namespace kolmview;
using kolmctl::ExitCode;

/// Tells the user; on the error stream where nobody sits at the screen.
ExitCode Report(const std::string& message, ExitCode code, bool attended) {
    if (attended) {
        const UINT icon = code == ExitCode::success ? MB_ICONINFORMATION : MB_ICONERROR;
        ::MessageBoxW(nullptr, kolmctl::ToUtf16(message).c_str(), L"kolmview", MB_OK | icon);
    } else {
        std::cerr << "kolmview: " << message << std::endl;
    }
    return code;
}

ExitCode Run() {
    const std::vector<std::string> arguments = kolmctl::ProgramArguments();
    // Also for a command line that is wrong: a box would wait for ever.
    const bool attended =
        std::ranges::none_of(arguments, [](const std::string& each) { return each.starts_with("--picture"); });
    try {
        const ParsedOptions parsed = ParseOptions(arguments);
        if (!parsed.answer.empty()) {
            return Report(parsed.answer, ExitCode::success, attended);
        }
        const kolmctl::ComApartment com;
        ViewerWindow viewer(parsed.options);
        viewer.Show();
        return viewer.Run();
    } catch (const kolmctl::Error& error) {
        return Report(error.what() + (error.Hint().empty() ? "" : "\n" + error.Hint()), error.Code(), attended);
    } catch (const std::exception& error) {
        return Report(error.what(), ExitCode::refused, attended);
    }
}

}  // namespace

int WINAPI WinMain(HINSTANCE, HINSTANCE, LPSTR, int) {
    return static_cast<int>(Run());
}
