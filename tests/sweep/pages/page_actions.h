#pragma once
/// @file  What a user can do on a page, found by looking at its controls; and all that a page shows.

#include <functional>
#include <string>
#include <vector>

#include "support/page_host.h"

namespace kolmfluxor::test {

/// One thing that a user does.
struct PageAction {
    std::string name;
    /// @param round  makes one time differ from the next: another position, entry or text
    std::function<void(CPageHost& page, int round)> run;
};

/// An action for each control that the page lets a user touch, and those of the page itself: apply, timer, hot keys.
///
/// A control of a kind for which there is no action fails the test.
[[nodiscard]] std::vector<PageAction> ActionsOf(const CPageHost& page);

/// All that the page shows, a line for each control and one for the page itself.
[[nodiscard]] std::vector<std::string> Snapshot(const CPageHost& page);

}  // namespace kolmfluxor::test
