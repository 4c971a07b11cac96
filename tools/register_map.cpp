/// @file  Prints the register map; docs/register-map.md holds what it prints.

#include <cstdio>
#include <string>

#include "register_map_text.h"

int main() {
    const std::string text = kolmfluxor::RegisterMapText();
    const bool written = std::fwrite(text.data(), 1, text.size(), stdout) == text.size() && std::fflush(stdout) == 0;
    return written ? 0 : 1;
}
