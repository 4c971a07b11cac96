#pragma once
/// @file  The keys through which the kernel-streaming proxy finds the property-set object and its pages.
///
/// Below HKEY_LOCAL_MACHINE\System\CurrentControlSet\Control:
/// - MediaInterfaces\{SET}: default value = name of the object, "IID" = the 16 bytes of SET
/// - MediaSets\{SET}\PropertyPages\{page}: default value = name of the page
///
/// The names are stored without a terminating NUL: their size is exactly twice their length.

#include <windows.h>

namespace kolmfluxor {

/// Writes the keys, overwriting what is there. A page whose key can't be created is skipped without complaint.
///
/// @return  the thread's last error at the first step that failed (registry calls may leave it as it was); `S_OK` else
[[nodiscard]] HRESULT RegisterMediaInterfaces();

/// Deletes the keys; the page keys' failures are ignored, the first failure of the other three ends it.
///
/// @return  the last error when it ended early; `S_OK` else
[[nodiscard]] HRESULT UnregisterMediaInterfaces();

}  // namespace kolmfluxor
