#pragma once
/// @file  What a fuzz target does when something is not as it must be.

#include <cstdio>
#include <cstdlib>

namespace kolmfluxor::fuzz {

/// Ends the program with a message, so that the fuzzer keeps the input.
[[noreturn]] inline void Fail(const char* where, const char* what) {
    std::fprintf(stderr, "%s: %s\n", where, what);
    std::abort();
}

inline void Expect(bool holds, const char* where, const char* what) {
    if (!holds) Fail(where, what);
}

}  // namespace kolmfluxor::fuzz
