#pragma once
/// @file  The maker's registers as rules.

#include "model/auto_function.h"
#include "model/camera_info.h"
#include "model/correction.h"
#include "model/linked_register.h"
#include "model/memory_window.h"
#include "model/register_map.h"
#include "model/register_rule.h"
#include "model/test_image.h"

namespace kolmsim {

// clang-format off
inline constexpr RegisterRule kVendorRules[] = {
    {.first = kVersionInfo1,          .reset = 0x000C0312},                         // microcontroller type 12, 03.12
    {.first = kVersionInfo3,          .read = ReadCameraVersion},
    {.first = kAdvancedInquiry1,      .read = ReadAdvancedInquiry1},
    {.first = 0xF1000044,             .reset = 0xF0F08000},                         // KolmAdvInq2: inputs, outputs, delay
    {.first = 0xF1000048,             .reset = 0xBE000000},                         // KolmAdvInq3: all but the largest packet
    {.first = 0xF100004C},                                                          // KolmAdvInq4
    {.first = kCameraStatus,          .reset = 0x80000001},
    {.first = 0xF1000200,             .reset = 0x03C00500},                         // KolmMaxResolution: height, width
    {.first = kTimeBase,              .count = 2, .read = ReadLinked, .write = WriteLinked, .look = LookAtLinked},
    {.first = kTestImage,             .read = ReadTestImage, .write = WriteTestImage},
    {.first = 0xF1000220,             .reset = 0x80000000, .writable = 0x0200003F}, // KolmSeqCtrl
    {.first = 0xF1000224,             .count = 3, .reset = 0x80000000, .writable = 0x07000FFF},
    {.first = kLutControl,            .read = ReadLinked, .write = WriteLinked, .look = LookAtLinked},
    {.first = kLutMemoryControl,      .read = ReadLutMemoryControl, .write = WriteLutMemoryControl},
    {.first = kLutInfo,               .read = ReadLutInfo},
    {.first = kShadingControl,        .read = ReadCorrection, .write = WriteCorrection, .look = LookAtCorrection},
    {.first = kShadingMemoryControl,  .read = ReadShadingMemoryControl, .write = WriteShadingMemoryControl},
    {.first = kShadingInfo,           .reset = 0x80000000 | kShadingBytes},         // one memory channel, number 0
    {.first = kDeferredTransfer,      .reset = 0x80001000, .writable = 0x070000FF}, // room for 16 pictures
    {.first = kFrameInfo,             .reset = 0x80000000, .write = WriteFrameInfo},
    {.first = kFrameCounter},
    {.first = 0xF1000280,             .reset = 0x80000300, .writable = 0x0200000F}, // KolmHDRCtrl: three knee points
    {.first = 0xF1000284,             .reset = 1000, .writable = 0x0000FFFF},       // microseconds
    {.first = 0xF1000288,             .reset = 200,  .writable = 0x0000FFFF},
    {.first = 0xF100028C,             .reset = 50,   .writable = 0x0000FFFF},
    {.first = kDsnuControl,           .count = 2, .read = ReadCorrection, .write = WriteCorrection, .look = LookAtCorrection},
    {.first = kInputControl,          .reset = 0x80020001, .writable = 0x011F0000}, // input 1 triggers, its pin is high
    {.first = kInputControl + 4,      .count = 3, .reset = 0x80000000, .writable = 0x011F0000},
    {.first = kOutputControl,         .count = 4, .read = ReadLinked, .write = WriteLinked, .look = LookAtLinked},
    {.first = kIntegrationDelay,      .read = ReadLinked, .write = WriteLinked, .look = LookAtLinked},
    {.first = 0xF1000360,             .reset = 0x80000000},                         // KolmAutoShutterCtrl
    {.first = kAutoShutterLow,        .reset = 20,     .writable = 0x03FFFFFF},     // microseconds
    {.first = kAutoShutterHigh,       .reset = 500000, .writable = 0x03FFFFFF},
    {.first = kAutoGain,              .reset = 0x80FF0000, .write = WriteAutoGain}, // highest 255, lowest 0
    {.first = kAutoArea,              .reset = 0x80004004, .writable = 0x0A000000}, // units of 4 x 4 pixels
    {.first = kAutoAreaPosition,      .reset = 0x00A00078, .write = WriteAutoAreaPosition},  // 160, 120
    {.first = kAutoAreaSize,          .reset = 0x014000F0, .write = WriteAutoAreaSize},      // 320 x 240
    {.first = kColorCorrection,       .read = ReadColorCorrection, .write = WriteColorCorrection},
    {.first = kColorMatrix,           .count = 9, .read = ReadColorCoefficient, .write = WriteColorCoefficient},
    {.first = kTriggerDelay,          .read = ReadLinked, .write = WriteLinked, .look = LookAtLinked},
    {.first = kMirror,                .read = ReadLinked, .write = WriteLinked, .look = LookAtLinked},
    {.first = kLowSmear,              .read = ReadLinked, .write = WriteLinked, .look = LookAtLinked},
    {.first = kSoftReset,             .reset = 0x80000000, .write = WriteSoftReset},
    {.first = kHighSnr,               .read = ReadLinked, .write = WriteLinked, .look = LookAtLinked},
    {.first = 0xF1000550,             .reset = 0x80000000, .writable = 0x07000FFF}, // KolmUserProfiles
    {.first = 0xF1000560,             .reset = 0x80000000, .writable = 0x07000FFF}, // KolmF7ModeMapping
    {.first = 0xF1000570,             .reset = 0x80000000, .writable = 0x07000FFF}, // KolmParamUpdateTiming
    {.first = 0xF1000580,             .reset = 0x80000000, .writable = 0x02000FFF}, // KolmLowNoiseBinning
    {.first = kTriggerCounter,        .writable = 0xFFFFFFFF},
    {.first = kGpBufferInfo,          .reset = kGpBufferBytes, .nameless = true},
};
// clang-format on

}  // namespace kolmsim
