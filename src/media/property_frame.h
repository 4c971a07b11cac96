#pragma once
/// @file  The system's frame around an object's property pages.

#include <windows.h>

#include <unknwn.h>

namespace kolmfluxor {

/// Shows the property pages that an object names through `ISpecifyPropertyPages`, until the user closes them.
///
/// @param object  held until the frame is closed
/// @param parent  may be null
/// @return  `E_FAIL` for an object without any page, whose frame the system may never end; else the code of what failed
[[nodiscard]] HRESULT ShowPropertyFrame(IUnknown& object, HWND parent, const wchar_t* caption);

}  // namespace kolmfluxor
