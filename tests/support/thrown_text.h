#pragma once
/// @file  The text of the exception that a piece of code throws.

#include <exception>
#include <string>

namespace kolmfluxor::test {

/// What `run` throws, as text; "(nothing was thrown)" when it throws nothing.
template <class F> std::string ThrownText(F&& run) {
    try {
        run();
    } catch (const std::exception& thrown) {
        return thrown.what();
    }
    return "(nothing was thrown)";
}

}  // namespace kolmfluxor::test
