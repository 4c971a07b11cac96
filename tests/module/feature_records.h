#pragma once
/// @file  What the tests of the generic feature operations share: the record's layout, and a look at the camera's
/// words.

#include <kolmfluxor/features.h>

#include "support/property_set_test.h"

namespace kolmfluxor::test {

constexpr ULONG kValue = 24;
constexpr ULONG kMode = 28;
constexpr ULONG kModeCaps = 32;
constexpr ULONG kMin = 36;
constexpr ULONG kMax = 40;
constexpr ULONG kAutoOn = 44;
constexpr ULONG kOnePushOn = 52;

constexpr ULONG kGain = 265;
constexpr ULONG kGainId = 0;
constexpr ULONG kBrightness = 256;
constexpr ULONG kBrightnessId = 4;
constexpr ULONG kUnmapped = 600;

constexpr ULONG kManual = 1;
constexpr ULONG kAuto = 3;
constexpr ULONG kNoMode = 10;

/// Looks at the records of a color camera beside the object.
class FeatureRecords : public PropertySetTest {
protected:
    ULONG WordOf(ULONG driverId, ULONG offset) {
        std::uint32_t word = kPoison;
        EXPECT_TRUE(Camera().GetFeatureWord(driverId, offset, &word)) << "driver id " << driverId;
        return word;
    }
};

}  // namespace kolmfluxor::test
