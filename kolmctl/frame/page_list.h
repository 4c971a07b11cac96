#pragma once
/// @file  Which pages a filter has, and which of them are to be shown.

#include <memory>
#include <string>
#include <vector>

#include <windows.h>

#include "frame/frame_page.h"

namespace kolmctl {

using FramePages = std::vector<std::unique_ptr<FramePage>>;

/// The pages of an object, not connected to it yet, and what is to be said about the others.
struct PageList {
    FramePages pages;                ///< in the object's order
    std::vector<std::string> notes;  ///< one for each page that could not be created
};

/// Creates the pages that an object names. @throws CallError when it names none
[[nodiscard]] PageList CreatePages(IUnknown& object);

/// Leaves only the pages with these titles (without case), in this order; all of them when no title is given.
///
/// @throws UsageError when there is no such page
void ChoosePages(PageList* list, const std::vector<std::string>& titles);

}  // namespace kolmctl
