#pragma once
/// @file  The drawing of a histogram.

#include "kolmview/histogram.h"
#include "picture.h"

namespace kolmview {

/// Draws levels from left to right as bars on black: gray for luma; red, green and blue laid over each other, so that
/// what they have in common is white.
///
/// @param picture  its width and height are kept, its pixels made anew
void DrawHistogram(const Histogram& histogram, kolmctl::Picture* picture);

}  // namespace kolmview
