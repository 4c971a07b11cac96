/// @file  Decoders of the maker's registers. Labels and headings, odd ones too, are the layouts' own.

#include "registers/decoder_table.h"

namespace kolmfluxor {
namespace {

// clang-format off
constexpr RegisterField kVersion1[] = {{"MCTypeId: %d", {31, 16}}, {"MCVersion: %x", {15, 0}}};
constexpr RegisterField kVersion3[] = {{"CameraTypeId: %x", {31, 16}}, {"FPGAVersion: %x", {15, 0}}};

constexpr RegisterField kFeatures1[] = {
    {"MaxResolution: %d", {31, 31}},     {"TimeBase: %d", {30, 30}},          {"ExtendedShutter: %d", {29, 29}},
    {"TestImage: %d", {28, 28}},         {"FrameInfo: %d", {27, 27}},         {"SequenceMode: %d", {26, 26}},
    {"VersionInfo: %d", {25, 25}},       {"LUT: %d", {23, 23}},               {"ShadingCorrection: %d", {22, 22}},
    {"DeferredTransport: %d", {21, 21}}, {"HDRMode: %d", {20, 20}},           {"DSNU: %d", {19, 19}},
    {"Blemish: %d", {18, 18}},           {"TriggerDelay: %d", {17, 17}},      {"MirrorImage: %d", {16, 16}},
    {"SoftReset: %d", {15, 15}},         {"HighSNR: %d", {14, 14}},           {"ColorCorrection: %d", {13, 13}},
    {"UserSets: %d", {10, 10}},          {"ParameterInfo: %d", {1, 1}},       {"GPBuffer: %d", {0, 0}},
};
constexpr RegisterField kFeatures2[] = {
    {"Input1: %d", {31, 31}},      {"Input2: %d", {30, 30}},    {"Input3: %d", {29, 29}},    {"Input4: %d", {28, 28}},
    {"Output1: %d", {23, 23}},     {"Output2: %d", {22, 22}},   {"Output3: %d", {21, 21}},   {"Output4: %d", {20, 20}},
    {"IntEnaDelay: %d", {15, 15}}, {"Output1 PWM: %d", {7, 7}}, {"Output2 PWM: %d", {6, 6}}, {"Output3 PWM: %d", {5, 5}},
    {"Output4 PWM: %d", {4, 4}},
};
constexpr RegisterField kFeatures3[] = {
    {"CameraStatus: %d", {31, 31}},  {"MaxIsoSize: %d", {30, 30}},  {"PrmUpdateTiming: %d", {29, 29}},
    {"F7ModeMapping: %d", {28, 28}}, {"AutoShutter: %d", {27, 27}}, {"AutoGain: %d", {26, 26}},
    {"AutoFunctionAOI: %d", {25, 25}},
};
constexpr RegisterField kFeatures4[] = {{"Val: %x", kWholeWord}};

// Compatibility: the width is in the low half here, unlike in every other size register.
constexpr RegisterField kMaxResolution[]   = {{"MaxWidth: %d", {15, 0}}, {"MaxHeight: %d", {31, 16}}};
constexpr RegisterField kTimeBase[]        = {{"Presents: %d", {31, 31}}, {"ExposureOffset: %d", {23, 12}}, {"TimeBaseID: %d", {3, 0}}};
constexpr RegisterField kExtendedShutter[] = {{"Presents: %d", {31, 31}}, {"ExposureTime: %d", {25, 0}}};
constexpr RegisterField kTestImage[] = {
    {"Presents: %d", {31, 31}},  {"Image1Inq: %d", {23, 23}}, {"Image2Inq: %d", {22, 22}},
    {"Image3Inq: %d", {21, 21}}, {"Image4Inq: %d", {20, 20}}, {"Image5Inq: %d", {19, 19}},
    {"Image6Inq: %d", {18, 18}}, {"Image7Inq: %d", {17, 17}}, {"ImageId: %d", {3, 0}},
};

// Compatibility: the sequence control has the labels of the look-up tables.
constexpr RegisterField kLutControl[]    = {{"Presents: %d", {31, 31}}, {"OnOff: %d", {25, 25}}, {"LUTNr: %d", {5, 0}}};
constexpr RegisterField kLutMemControl[] = {
    {"Presents: %d", {31, 31}}, {"EnableMemWr: %d", {26, 26}}, {"LUTNr: %d", {23, 16}}, {"AddressOffset: %x", {15, 0}},
};
constexpr RegisterField kLutInfo[] = {
    {"Presents: %d", {31, 31}}, {"BitsPerValue: %d", {28, 24}}, {"NumberOfLUTs: %d", {23, 16}}, {"MAxLUTSize: %d", {15, 0}},
};

constexpr RegisterField kShadingControl[] = {
    {"Presents: %d", {31, 31}},   {"BuildError: %d", {30, 30}}, {"ShowImage: %d", {27, 27}},
    {"BuildImage: %d", {26, 26}}, {"OnOff: %d", {25, 25}},      {"Busy: %d", {24, 24}},
    {"MemChannelError: %d", {15, 12}}, {"MemChannel: %d", {11, 8}}, {"GrabCount: %d", {7, 0}},
};
constexpr RegisterField kShadingMemControl[] = {
    {"Presents: %d", {31, 31}}, {"EnableMemWrite: %d", {26, 26}}, {"EnableMemRead: %d", {25, 25}}, {"AddressOffset: %d", {23, 0}},
};
constexpr RegisterField kShadingInfo[] = {{"Presents: %d", {31, 31}}, {"MaxMemChannel: %d", {27, 24}}, {"MaxImageSize: %d", {23, 0}}};

constexpr RegisterField kDeferredTransfer[] = {
    {"Presents: %d", {31, 31}},    {"SendImage: %d", {26, 26}}, {"HoldImage: %d", {25, 25}},
    {"FastCapture: %d", {24, 24}}, {"FifoSize: %d", {15, 8}},   {"NumberOfImages: %d", {7, 0}},
};
constexpr RegisterField kFrameInfo[] = {{"Presents: %d", {31, 31}}, {"ResetFramecounter: %d", {30, 30}}};
// Compatibility: the counter goes by this label.
constexpr RegisterField kFrameCounter[] = {{"Presents: %d", kWholeWord}};

constexpr RegisterField kHdrControl[] = {
    {"Presents: %d", {31, 31}}, {"OnOff: %d", {25, 25}}, {"MaxKneePoints: %d", {11, 8}}, {"KneePoints: %d", {3, 0}},
};
constexpr RegisterField kHdrKneePoint[] = {{"Time \xB5s: %d", {15, 0}}};

constexpr RegisterField kDsnuControl[] = {
    {"Presents: %d", {31, 31}}, {"ComputeError: %d", {30, 30}}, {"ShowImage: %d", {27, 27}},
    {"ComputeData: %d", {26, 26}}, {"OnOff: %d", {25, 25}},     {"Busy: %d", {24, 24}},
    {"LoadData: %d", {22, 22}}, {"ZeroData: %d", {21, 21}},     {"GrabCount: %d", {7, 0}},
};
constexpr RegisterField kBlemishControl[] = {
    {"Presents: %d", {31, 31}}, {"ComputeError: %d", {30, 30}}, {"ShowImage: %d", {27, 27}},
    {"ComputeData: %d", {26, 26}}, {"OnOff: %d", {25, 25}},     {"Busy: %d", {24, 24}},
    {"SaveData: %d", {23, 23}}, {"LoadData: %d", {22, 22}},     {"ZeroData: %d", {21, 21}},
    {"GrabCount: %d", {7, 0}},
};

constexpr RegisterField kInputControl[] = {
    {"Presents: %d", {31, 31}}, {"Polarity: %d", {24, 24}}, {"InputMode: %d", {20, 16}}, {"PinState: %d", {0, 0}},
};
constexpr RegisterField kOutputControl[] = {
    {"Presents: %d", {31, 31}}, {"PWMCapable: %d", {30, 30}}, {"Polarity: %d", {24, 24}},
    {"InputMode: %d", {20, 16}},  // Compatibility: the output's mode goes by the input's label.
    {"PinState: %d", {0, 0}},
};
constexpr RegisterField kIntEnaDelay[] = {{"Presents: %d", {31, 31}}, {"OnOff: %d", {25, 25}}, {"DelayTime: %d", {19, 0}}};

constexpr RegisterField kAutoShutter[] = {{"Presents: %d", {31, 31}}};
// Compatibility: six bits under the label of a flag.
constexpr RegisterField kAutoShutterValue[] = {{"Presents: %d", {31, 26}}};
constexpr RegisterField kAutoGain[]         = {{"Presents: %d", {31, 31}}, {"Max: %d", {27, 16}}, {"Min: %d", {11, 0}}};
constexpr RegisterField kAutoArea[] = {
    {"Presents: %d", {31, 31}}, {"ShowWorkArea: %d", {27, 27}}, {"OnOff: %d", {25, 25}},
    {"YUnit: %d", {23, 12}},    {"XUnits: %d", {11, 0}},
};
constexpr RegisterField kAutoAreaPosition[] = {{"Left: %d", {31, 16}}, {"Top: %d", {15, 0}}};
constexpr RegisterField kAutoAreaSize[]     = {{"Width: %d", {31, 16}}, {"Height: %d", {15, 0}}};

constexpr RegisterField kColorCorrection[]  = {{"Presents: %d", {31, 31}}, {"Disable: %d", {25, 25}}, {"Reset: %d", {24, 24}}};
constexpr RegisterField kColorCoefficient[] = {{"Value: %lf", kWholeWord, FieldKind::thousandths}};

constexpr RegisterField kTriggerDelay[] = {{"Presents: %d", {31, 31}}, {"OnOff: %d", {25, 25}}, {"DelayTime: %d", {20, 0}}};
constexpr RegisterField kMirrorImage[] = {
    {"Presents: %d", {31, 31}},      {"HorizontalOnOff: %d", {25, 25}}, {"VerticalOnOff: %d", {24, 24}},
    {"HorizontalInq: %d", {15, 15}}, {"VerticalInq: %d", {14, 14}},
};
constexpr RegisterField kSoftReset[] = {{"Presents: %d", {31, 31}}, {"Reset: %d", {26, 26}}, {"Delay: %d", {11, 0}}};
constexpr RegisterField kHighSnr[]   = {{"Presents: %d", {31, 31}}, {"OnOff: %d", {25, 25}}, {"GrabCount: %d", {8, 0}}};

constexpr RegisterDecoder kDecoders[] = {
    {.first = 0xF1000010, .last = 0xF1000010, .heading = "KolmVersionInfo1: 0x%x",         .fields = kVersion1},
    {.first = 0xF1000018, .last = 0xF1000018, .heading = "KolmVersionInfo3: 0x%x",         .fields = kVersion3},
    {.first = 0xF1000040, .last = 0xF1000040, .heading = "KolmAdvFeatures1: 0x%x",         .fields = kFeatures1},
    {.first = 0xF1000044, .last = 0xF1000044, .heading = "KolmAdvFeatures2: 0x%x",         .fields = kFeatures2},
    {.first = 0xF1000048, .last = 0xF1000048, .heading = "KolmAdvFeature3: 0x%x",          .fields = kFeatures3},
    {.first = 0xF100004C, .last = 0xF100004C, .heading = "KolmAdvFeature4: 0x%x",          .fields = kFeatures4},
    {.first = 0xF1000200, .last = 0xF1000200, .heading = "MaxResolution: 0x%x",            .fields = kMaxResolution},
    {.first = 0xF1000208, .last = 0xF1000208, .heading = "TimeBase: 0x%x",                 .fields = kTimeBase},
    {.first = 0xF100020C, .last = 0xF100020C, .heading = "ExtendedShutter: 0x%x",          .fields = kExtendedShutter},
    {.first = 0xF1000210, .last = 0xF1000210, .heading = "TestImage: 0x%x",                .fields = kTestImage},
    {.first = 0xF1000220, .last = 0xF1000220, .heading = "Sequence Control: 0x%x",         .fields = kLutControl},
    {.first = 0xF1000224, .last = 0xF100022C, .heading = "Default: 0x%x",                  .fields = kDefaultFields},
    {.first = 0xF1000240, .last = 0xF1000240, .heading = "KolmLUTControl: 0x%x",           .fields = kLutControl},
    {.first = 0xF1000244, .last = 0xF1000244, .heading = "KolmLUTMemorControl: 0x%x",      .fields = kLutMemControl},
    {.first = 0xF1000248, .last = 0xF1000248, .heading = "KolmLUTInfo: 0x%x",              .fields = kLutInfo},
    {.first = 0xF1000250, .last = 0xF1000250, .heading = "KolmShadingControl: 0x%x",       .fields = kShadingControl},
    {.first = 0xF1000254, .last = 0xF1000254, .heading = "KolmShadingMemControl: 0x%x",    .fields = kShadingMemControl},
    {.first = 0xF1000258, .last = 0xF1000258, .heading = "KolmShadingInfo: 0x%x",          .fields = kShadingInfo},
    {.first = 0xF1000260, .last = 0xF1000260, .heading = "KolmDeferredTransfer: 0x%x",     .fields = kDeferredTransfer},
    {.first = 0xF1000270, .last = 0xF1000270, .heading = "KolmFrameInfo: 0x%x",            .fields = kFrameInfo},
    {.first = 0xF1000274, .last = 0xF1000274, .heading = "KolmFrameCounter: 0x%x",         .fields = kFrameCounter},
    {.first = 0xF1000280, .last = 0xF1000280, .heading = "KolmHDRControl: 0x%x",           .fields = kHdrControl},
    {.first = 0xF1000284, .last = 0xF100028C, .heading = "KolmHDRKneePoint: 0x%x",         .fields = kHdrKneePoint},
    {.first = 0xF1000290, .last = 0xF1000290, .heading = "KolmDSNUControl: 0x%x",          .fields = kDsnuControl},
    {.first = 0xF1000294, .last = 0xF1000294, .heading = "KolmBlemishControl: 0x%x",       .fields = kBlemishControl},
    {.first = 0xF1000300, .last = 0xF100030C, .heading = "KolmIOInputControl: 0x%x",       .fields = kInputControl},
    {.first = 0xF1000320, .last = 0xF100032C, .heading = "KolmIOOutputControl: 0x%x",      .fields = kOutputControl},
    {.first = 0xF1000340, .last = 0xF1000340, .heading = "KolmDeleyedIntEna: 0x%x",        .fields = kIntEnaDelay},
    {.first = 0xF1000360, .last = 0xF1000360, .heading = "KolmAutoShutterControl: 0x%x",   .fields = kAutoShutter},
    {.first = 0xF1000364, .last = 0xF1000368, .heading = "KolmAutoShutterValue: 0x%x",     .fields = kAutoShutterValue},
    {.first = 0xF1000370, .last = 0xF1000370, .heading = "KolmAutoGainDefault: 0x%x",      .fields = kAutoGain},
    {.first = 0xF1000390, .last = 0xF1000390, .heading = "KolmAutoFunctionAOI: 0x%x",      .fields = kAutoArea},
    {.first = 0xF1000394, .last = 0xF1000394, .heading = "KolmAutoFunctionAoiPos: 0x%x",   .fields = kAutoAreaPosition},
    {.first = 0xF1000398, .last = 0xF1000398, .heading = "KolmAutoFunctionAoiSize: 0x%x",  .fields = kAutoAreaSize},
    {.first = 0xF10003A0, .last = 0xF10003A0, .heading = "KolmColorCorrection: 0x%x",      .fields = kColorCorrection},
    {.first = 0xF10003A4, .last = 0xF10003C4, .heading = "KolmColorCorrectionValue: 0x%x", .fields = kColorCoefficient},
    // Compatibility: the blank belongs to this heading.
    {.first = 0xF1000400, .last = 0xF1000400, .heading = "De fault: 0x%x",                 .fields = kTriggerDelay},
    {.first = 0xF1000410, .last = 0xF1000410, .heading = "Default: 0x%x",                  .fields = kMirrorImage},
    {.first = 0xF1000510, .last = 0xF1000510, .heading = "Default: 0x%x",                  .fields = kSoftReset},
    {.first = 0xF1000520, .last = 0xF1000520, .heading = "Default: 0x%x",                  .fields = kHighSnr},
};
// clang-format on

static_assert(WellFormed(kDecoders));

}  // namespace

std::span<const RegisterDecoder> KolmDecoders() {
    return kDecoders;
}

}  // namespace kolmfluxor
