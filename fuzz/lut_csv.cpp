/// @file  Any text as a LUT file: the module's reader and the plain transcription of its rules must agree.

#include <cstddef>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <string>

#include "unit/lut_csv_compare.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const std::string text(reinterpret_cast<const char*>(data), size);
    const std::string difference = kolmfluxor::test::DifferenceFor(text);
    if (difference.empty()) return 0;
    std::fprintf(stderr, "the readers differ in: %s\n", difference.c_str());
    std::abort();
}
