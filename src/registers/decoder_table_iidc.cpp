/// @file  Decoders of the IIDC registers. Labels and headings, odd ones too, are the layouts' own.

#include "registers/decoder_table.h"

namespace kolmfluxor {
namespace {

// clang-format off
constexpr RegisterField kInitialize[]  = {{"Init: %d", {31, 31}}};
constexpr RegisterField kVideoFormat[] = {
    {"Format0: %d", {31, 31}}, {"Format1: %d", {30, 30}}, {"Format2: %d", {29, 29}},
    {"Format6: %d", {25, 25}}, {"Format7: %d", {24, 24}},
};
constexpr RegisterField kVideoMode[] = {
    {"Mode0: %d", {31, 31}}, {"Mode1: %d", {30, 30}}, {"Mode2: %d", {29, 29}}, {"Mode3: %d", {28, 28}},
    {"Mode4: %d", {27, 27}}, {"Mode5: %d", {26, 26}}, {"Mode6: %d", {25, 25}}, {"Mode7: %d", {24, 24}},
};
constexpr RegisterField kFrameRate[] = {
    {"Rate0: %d", {31, 31}}, {"Rate1: %d", {30, 30}}, {"Rate2: %d", {29, 29}}, {"Rate3: %d", {28, 28}},
    {"Rate4: %d", {27, 27}}, {"Rate5: %d", {26, 26}}, {"Rate6: %d", {25, 25}}, {"Rate7: %d", {24, 24}},
};

constexpr RegisterField kAddress[] = {{"Address: %x", kWholeWord, FieldKind::address}};
// Compatibility: this one address is decimal, unlike its neighbors.
constexpr RegisterField kDecimalAddress[] = {{"Address: %d", kWholeWord, FieldKind::address}};

constexpr RegisterField kBasicFunctions[] = {
    {"AdvFeatures: %d", {31, 31}},  {"VModeErrorStatus: %d", {30, 30}}, {"FeatureCtrlError: %d", {29, 29}},
    {"OptFeature: %d", {28, 28}},   {"1394mode: %d", {23, 23}},         {"CamPowerCtrl: %d", {15, 15}},
    {"OneShot: %d", {12, 12}},      {"MultiShot: %d", {11, 11}},        {"MemoryChannel: %d", {3, 0}},
};
constexpr RegisterField kFeaturesHigh[] = {
    {"Brightness: %d", {31, 31}},   {"AutoExposure: %d", {30, 30}}, {"Sharpness: %d", {29, 29}},
    {"WhiteBalance: %d", {28, 28}}, {"Hue: %d", {27, 27}},          {"Saturation: %d", {26, 26}},
    {"Gamma: %d", {25, 25}},        {"Shutter: %d", {24, 24}},      {"Gain: %d", {23, 23}},
    {"Iris: %d", {22, 22}},         {"Focus: %d", {21, 21}},        {"Temperature: %d", {20, 20}},
    {"Trigger: %d", {19, 19}},      {"TriggerDelay: %d", {18, 18}}, {"WhiteShading: %d", {17, 17}},
    {"FrameRate: %d", {16, 16}},
};
constexpr RegisterField kFeaturesLow[] = {{"Zoom: %d", {31, 31}}, {"Pan: %d", {30, 30}}, {"Tilt: %d", {29, 29}}};

constexpr RegisterField kFeatureInq[] = {
    {"Presents: %d", {31, 31}}, {"AbsCtrl: %d", {30, 30}}, {"OnePush: %d", {28, 28}},
    {"ReadOut: %d", {27, 27}},  {"OnOff: %d", {26, 26}},   {"Auto: %d", {25, 25}},
    {"Manual: %d", {24, 24}},   {"MinVal: %d", {23, 12}},  {"MaxVal: %d", {11, 0}},
};
constexpr RegisterField kTriggerInq[] = {
    {"Presents: %d", {31, 31}}, {"AbsCtrl: %d", {30, 30}},  {"ReadOut: %d", {27, 27}},     {"OnOff: %d", {26, 26}},
    {"Polarity: %d", {25, 25}}, {"ValueRead: %d", {24, 24}}, {"Source0: %d", {23, 23}},    {"Source1: %d", {22, 22}},
    {"Source2: %d", {21, 21}},  {"Source3: %d", {20, 20}},  {"SoftTrigger: %d", {16, 16}}, {"Mode0: %d", {15, 15}},
    {"Mode1: %d", {14, 14}},    {"Mode2: %d", {13, 13}},    {"Mode3: %d", {12, 12}},       {"Mode4: %d", {11, 11}},
    {"Mode5: %d", {10, 10}},    {"Mode14: %d", {1, 1}},     {"Mode15: %d", {0, 0}},
};

constexpr RegisterField kCurrentRate[]   = {{"FPS: OOB [%d]", {31, 29}, FieldKind::frameRate}};
constexpr RegisterField kCurrentMode[]   = {{"Mode: %d", {31, 29}}};
constexpr RegisterField kCurrentFormat[] = {{"Format: %d", {31, 29}}};
constexpr RegisterField kIsoControl[] = {
    {"ChanLegacy: %d", {31, 28}}, {"SpeedLegacy: %d", {25, 24}}, {"OperationMode: %d", {15, 15}},
    {"ChanB: %d", {13, 8}},       {"SpeedB: %d", {2, 0}},
};
constexpr RegisterField kIsoEnable[]   = {{"ContShot %d", {31, 31}}};  // Compatibility: no colon.
constexpr RegisterField kOneShot[]     = {{"OneShot: %d", {31, 31}}, {"MultiShot: %d", {30, 30}}, {"NumImages: %d", {15, 0}}};
constexpr RegisterField kModeError[]   = {{"Error: %d", {31, 31}}};
constexpr RegisterField kSoftTrigger[] = {{"SoftTrigger: %d", {31, 31}}};

constexpr RegisterField kFeature[] = {
    {"Present: %d", {31, 31}}, {"AbsControl: %d", {30, 30}}, {"OnePush: %d", {26, 26}},
    {"OnOff: %d", {25, 25}},   {"Auto: %d", {24, 24}},       {"Value: %d", {11, 0}},
};
constexpr RegisterField kWhiteBalance[] = {
    {"Address: %d", {31, 31}},  // Compatibility: the presence bit goes by this label.
    {"AbsControl: %d", {30, 30}}, {"OnePush: %d", {26, 26}}, {"OnOff: %d", {25, 25}},
    {"Auto: %d", {24, 24}},       {"ValueUB: %d", {23, 12}}, {"ValueVR: %d", {11, 0}},
};
constexpr RegisterField kTrigger[] = {
    {":Present %d", {31, 31}},  // Compatibility: the colon comes first.
    {"AbsControl: %d", {30, 30}}, {"OnOff: %d", {25, 25}}, {"Polarity: %d", {24, 24}}, {"Source: %d", {23, 21}},
    {"Value: %d", {20, 20}},      {"Mode: %d", {19, 16}},  {"Parameter: %d", {11, 0}},
};

constexpr RegisterDecoder kDecoders[] = {
    {.first = 0xF0F00000, .last = 0xF0F00000, .heading = "Initialize: 0x%x",         .fields = kInitialize},
    {.first = 0xF0F00100, .last = 0xF0F00100, .heading = "VideoFormatInq: 0x%x",     .fields = kVideoFormat},
    {.first = 0xF0F00180, .last = 0xF0F00188, .heading = "VideoModeInq: 0x%x",       .fields = kVideoMode},
    {.first = 0xF0F0019C, .last = 0xF0F0019C, .heading = "VideoModeInq: 0x%x",       .fields = kVideoMode},
    {.first = 0xF0F00200, .last = 0xF0F0025C, .heading = "VideoFrameRateInq: 0x%x",  .fields = kFrameRate},
    {.first = 0xF0F002E0, .last = 0xF0F002FC, .heading = "Format7AddressInq: 0x%x",  .fields = kAddress},
    {.first = 0xF0F00400, .last = 0xF0F00400, .heading = "BasicFunctionInq: 0x%x",   .fields = kBasicFunctions},
    {.first = 0xF0F00404, .last = 0xF0F00404, .heading = "FeatureHiInq: 0x%x",       .fields = kFeaturesHigh},
    {.first = 0xF0F00408, .last = 0xF0F00408, .heading = "FeatureLoInq: 0x%x",       .fields = kFeaturesLow},
    {.first = 0xF0F00480, .last = 0xF0F00480, .heading = "AdvFeatureAddress: 0x%x",  .fields = kDecimalAddress},
    {.first = 0xF0F00484, .last = 0xF0F00484, .heading = "PioCtrlAddress: 0x%x",     .fields = kAddress},
    {.first = 0xF0F00488, .last = 0xF0F00488, .heading = "SIOCtrlAddress: 0x%x",     .fields = kAddress},
    {.first = 0xF0F0048C, .last = 0xF0F0048C, .heading = "StrobeCtrlAddress: 0x%x",  .fields = kAddress},
    {.first = 0xF0F00500, .last = 0xF0F0052C, .heading = "FeatureInq: 0x%x",         .fields = kFeatureInq},
    {.first = 0xF0F00530, .last = 0xF0F00530, .heading = "Trigger: 0x%x",            .fields = kTriggerInq},
    {.first = 0xF0F00534, .last = 0xF0F0053C, .heading = "FeatureInq: 0x%x",         .fields = kFeatureInq},
    {.first = 0xF0F00600, .last = 0xF0F00600, .heading = "CurrentFrameRate: 0x%x",   .fields = kCurrentRate},
    {.first = 0xF0F00604, .last = 0xF0F00604, .heading = "CurVideoMode: 0x%x",       .fields = kCurrentMode},
    {.first = 0xF0F00608, .last = 0xF0F00608, .heading = "CurVideoFormat: 0x%x",     .fields = kCurrentFormat},
    {.first = 0xF0F0060C, .last = 0xF0F0060C, .heading = "IsoCtrl: 0x%x",            .fields = kIsoControl},
    {.first = 0xF0F00614, .last = 0xF0F00614, .heading = "IsoEnable: 0x%x",          .fields = kIsoEnable},
    {.first = 0xF0F0061C, .last = 0xF0F0061C, .heading = "OneShot: 0x%x",            .fields = kOneShot},
    {.first = 0xF0F00628, .last = 0xF0F00628, .heading = "VModeErrorState: 0x%x",    .fields = kModeError},
    // Compatibility: the software trigger has its neighbor's heading.
    {.first = 0xF0F0062C, .last = 0xF0F0062C, .heading = "VModeErrorState: 0x%x",    .fields = kSoftTrigger},
    {.first = 0xF0F00800, .last = 0xF0F00808, .heading = "Feature: 0x%x",            .fields = kFeature},
    {.first = 0xF0F0080C, .last = 0xF0F0080C, .heading = "Feature: 0x%x",            .fields = kWhiteBalance},
    {.first = 0xF0F00810, .last = 0xF0F0082C, .heading = "Feature: 0x%x",            .fields = kFeature},
    {.first = 0xF0F00830, .last = 0xF0F00830, .heading = "Trigger: 0x%x",            .fields = kTrigger},
    {.first = 0xF0F00834, .last = 0xF0F0083C, .heading = "Feature: 0x%x",            .fields = kFeature},
};
// clang-format on

static_assert(WellFormed(kDecoders));

}  // namespace

std::span<const RegisterDecoder> IidcDecoders() {
    return kDecoders;
}

}  // namespace kolmfluxor
