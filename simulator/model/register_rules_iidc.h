#pragma once
/// @file  The IIDC registers as rules.

#include "model/camera_info.h"
#include "model/feature_registers.h"
#include "model/format7_registers.h"
#include "model/register_map.h"
#include "model/register_rule.h"
#include "model/trigger.h"
#include "model/video_mode.h"

namespace kolmsim {

// What always reads 0: formats 3 to 6, optional functions, ports and strobe, zoom to capture quality, memory channels.
// Basic functions: the maker's registers, mode and feature error flags, 1394b, power switch, one and several shots.
// clang-format off
inline constexpr RegisterRule kIidcRules[] = {
    {.first = kInitialize,         .write = WriteInitialize},
    {.first = kFormatInquiry,      .reset = 0xE1000000},
    {.first = kModeInquiry,        .count = 4, .read = ReadModeInquiry},
    {.first = kModeInquiry + 0x10, .count = 2, .nameless = true},
    {.first = kModeInquiry + 0x18, .count = 2, .read = ReadModeInquiry},
    {.first = kRateInquiry,        .count = 7, .read = ReadRateInquiry},
    {.first = kRateInquiry + 0x1C, .nameless = true},
    {.first = kRateInquiry + 0x20, .count = 16, .read = ReadRateInquiry},
    {.first = kFormat7Address,     .count = 8, .read = ReadFormat7Address},
    {.first = kBasicInquiry,       .reset = 0xE0809800},
    {.first = kFeatureHiInquiry,   .read = ReadFeatureHiInquiry},
    {.first = 0xF0F00408,          .count = 2},                                  // FeatureLoInq, OptFunctionInq
    {.first = 0xF0F00480,          .reset = 0x00400000},                         // AdvFeatureInq: 0xF1000000
    {.first = 0xF0F00484,          .count = 3},                                  // PioCtrlInq to StrobeCtrlInq
    {.first = kFeatureInquiry,     .count = 12, .read = ReadFeatureInquiry},
    {.first = kTriggerInquiry,     .read = ReadTriggerInquiry},
    {.first = kTriggerInquiry + 4, .count = 3, .read = ReadFeatureInquiry},
    {.first = kCurrentRate,        .reset = 0x80000000, .writable = 0xE0000000}, // 30 frames per second
    {.first = kCurrentMode,        .reset = 0xA0000000, .writable = 0xE0000000}, // mode 5
    {.first = kCurrentFormat,      .writable = 0xE0000000},
    {.first = kIsoControl,         .read = ReadIsoControl, .write = WriteIsoControl},
    {.first = 0xF0F00610,          .reset = 0x80000000, .writable = 0x80000000}, // Power
    {.first = kIsoEnable,          .read = ReadIsoEnable, .write = WriteIsoEnable},
    {.first = 0xF0F00618},                                                       // MemorySave
    {.first = kOneShot,            .writable = 0x0000FFFF},                      // the shot itself is over at once
    {.first = 0xF0F00620,          .count = 2},                                  // MemSaveChan, CurMemChan
    {.first = kModeError,          .read = ReadModeError},
    {.first = kSoftTrigger,        .write = WriteSoftTrigger},
    {.first = kDataDepth,          .read = ReadDataDepth},
    {.first = kFeatureErrorHi,     .count = 2},
    {.first = kFeatureControl,     .count = 12, .read = ReadFeatureControl, .write = WriteFeatureControl, .look = LookAtFeatureControl},
    {.first = kTriggerControl,     .read = ReadTrigger, .write = WriteTrigger},
    {.first = kTriggerControl + 4, .count = 3, .read = ReadFeatureControl, .write = WriteFeatureControl, .look = LookAtFeatureControl},
    {.first = 0xF0F00880,          .count = 4},                                  // Zoom to OpticalFilter
    {.first = 0xF0F008C0,          .count = 2},                                  // CaptureSize, CaptureQuality
    {.first = kFormat7Base,        .count = 23, .blocks = 8, .blockStep = 0x1000, .read = ReadFormat7, .write = WriteFormat7},
    {.first = kFormat7Base + 0x5C, .count = 8, .blocks = 8, .blockStep = 0x1000, .nameless = true},
    {.first = kFormat7Base + 0x7C, .blocks = 8, .blockStep = 0x1000, .read = ReadFormat7, .write = WriteFormat7},
};
// clang-format on

}  // namespace kolmsim
