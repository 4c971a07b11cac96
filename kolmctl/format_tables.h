#pragma once
/// @file  Video formats as tables.

#include "capture_pin.h"
#include "output.h"

namespace kolmctl {

/// All formats, one a row.
[[nodiscard]] Table FormatsTable(const CaptureFormats& formats);

/// The current format.
///
/// @throws Error when there is none
[[nodiscard]] Table FormatTable(CaptureFormats& formats);

}  // namespace kolmctl
