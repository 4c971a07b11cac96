#pragma once
/// @file  Camera features and their modes, as callers of `IKolmFluxorPropertySet` name them.
///
/// No Windows header is needed here. The interface takes both as plain 32-bit numbers; these enumerators are their
/// names.

#include <cstdint>

namespace kolmfluxor {

/// A camera feature: the `featureId` argument of the generic feature operations.
///
/// 256 to 266 are the standard IIDC features, 512 and up are features of the camera's maker.
enum class FeatureId : std::uint32_t {
    brightness = 256,
    autoExposure = 257,
    sharpness = 258,
    whiteBalanceUB = 259,  ///< present on color cameras only; decides whether a camera counts as one
    whiteBalanceVR = 260,  ///< color cameras only
    hue = 261,             ///< color cameras only
    saturation = 262,      ///< color cameras only
    gamma = 263,
    shutter = 264,  ///< in units of the time base
    gain = 265,
    triggerDelay = 266,
    timeBase = 512,
    extendedShutter = 514,
    feature515 = 515,  ///< its minimum is always reported as 0
    lut = 516,
    feature517 = 517,
    feature520 = 520,
    colorCorrection = 521,  ///< Off or Manual
    feature523 = 523,       ///< Off or Manual
    dsnuCorrection = 526,
    feature527 = 527,
    delayedIntegration = 528,
    highSnr = 539,
    feature542 = 542,
    feature543 = 543,
    feature544 = 544,
    isoChannel = 1032,
};

/// How a feature works: the `mode` argument of the generic feature operations.
enum class FeatureMode : std::uint32_t {
    off = 0,
    manual = 1,
    onePush = 2,  ///< adjusts itself once, then reports `manual`
    automatic = 3,
    busy = 4,
    showImage = 5,
    loadData = 6,
    saveData = 7,
    clearData = 8,
    error = 9,
    unknown = 10,  ///< no mode is known: what a read leaves behind when the driver reports a bit without a meaning
};

}  // namespace kolmfluxor
