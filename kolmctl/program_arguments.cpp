#include "program_arguments.h"

#include <windows.h>

#include <shellapi.h>

#include "text.h"

namespace kolmctl {

std::vector<std::string> ProgramArguments() {
    int count = 0;
    LPWSTR* const words = ::CommandLineToArgvW(::GetCommandLineW(), &count);
    std::vector<std::string> arguments;
    for (int i = 1; words != nullptr && i < count; ++i) {
        arguments.push_back(ToUtf8(words[i]));
    }
    ::LocalFree(words);
    return arguments;
}

}  // namespace kolmctl
