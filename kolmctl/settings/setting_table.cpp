#include "settings/setting_table.h"

#include <array>
#include <iterator>
#include <string_view>
#include <tuple>

namespace kolmctl {
namespace {

using kolmfluxor::FeatureId;
using kolmfluxor::IKolmFluxorPropertySet;

using enum FieldKind;

constexpr const char* kPolarities[] = {"low", "high"};

// clang-format off
constexpr SettingField kFeature[] = {{.key = "value"}, {.key = "mode", .kind = mode}};

constexpr SettingField kVideoFormat[] = {
    {.key = "mode",   .kind = videoMode}, {.key = "pixels", .kind = pixels},
    {.key = "x",      .msb = 15},         {.key = "y",      .msb = 15},
    {.key = "width",  .msb = 15},         {.key = "height", .msb = 15},
    {.key = "rate",   .kind = rate},
};

// A color coding and a size bring packet and position with them, so these come last.
constexpr SettingField kFormat7Mode[] = {
    {.key = "color-coding",     .reg = "F7Mode#_010_ColorCodingID", .msb = 31, .lsb = 24},
    {.key = "width",            .reg = "F7Mode#_00C_ImageSize",     .msb = 31, .lsb = 16},
    {.key = "height",           .reg = "F7Mode#_00C_ImageSize",     .msb = 15, .lsb = 0},
    {.key = "x",                .reg = "F7Mode#_008_ImagePos",      .msb = 31, .lsb = 16},
    {.key = "y",                .reg = "F7Mode#_008_ImagePos",      .msb = 15, .lsb = 0},
    {.key = "bytes-per-packet", .reg = "F7Mode#_044_BYtePerPacket", .msb = 31, .lsb = 16},
};

constexpr SettingField kIsoSpeed[]       = {{.key = "speed", .kind = speed}};
constexpr SettingField kGeometrySwitch[] = {{.key = "value"}};
constexpr SettingField kTestImage[]      = {{.key = "number"}};
constexpr SettingField kLimits[]         = {{.key = "low", .word = 0}, {.key = "high", .word = 1}};
constexpr SettingField kAutoArea[] = {
    {.key = "on", .kind = flag, .word = 0},
    {.key = "x",     .word = 2}, {.key = "y",      .word = 3},
    {.key = "width", .word = 4}, {.key = "height", .word = 5},
};
constexpr SettingField kAutoAreaDisplay[] = {{.key = "on", .kind = flag, .reg = "KolmAutoFunctionAOI", .msb = 27, .lsb = 27}};

constexpr SettingField kTrigger[] = {
    {.key = "on",        .kind = flag, .reg = "Trigger", .msb = 25, .lsb = 25},
    {.key = "mode",      .reg = "Trigger", .msb = 19, .lsb = 16},
    {.key = "parameter", .reg = "Trigger", .msb = 11, .lsb = 0},
    {.key = "polarity",  .kind = choice, .reg = "Trigger", .msb = 24, .lsb = 24, .names = kPolarities},
    {.key = "source",    .reg = "Trigger", .msb = 23, .lsb = 21},
};
constexpr SettingField kInput[] = {
    {.key = "mode",     .reg = "KolmIOInputCtrl#", .msb = 20, .lsb = 16},
    {.key = "polarity", .kind = choice, .reg = "KolmIOInputCtrl#", .msb = 24, .lsb = 24, .names = kPolarities},
};
constexpr SettingField kOutput[] = {
    {.key = "mode",     .reg = "KolmIOOutputCtrl#", .msb = 20, .lsb = 16},
    {.key = "polarity", .kind = choice, .reg = "KolmIOOutputCtrl#", .msb = 24, .lsb = 24, .names = kPolarities},
    {.key = "on",       .kind = flag, .reg = "KolmIOOutputCtrl#", .msb = 0, .lsb = 0},
};

/// An IIDC feature that the feature table does not know: its control register.
consteval std::array<SettingField, 3> IidcFields(const char* name) {
    return {SettingField{.key = "value", .reg = name, .msb = 11, .lsb = 0},
            SettingField{.key = "on",   .kind = flag, .reg = name, .msb = 25, .lsb = 25},
            SettingField{.key = "auto", .kind = flag, .reg = name, .msb = 24, .lsb = 24}};
}
constexpr auto kIris          = IidcFields("Iris");
constexpr auto kFocus         = IidcFields("Focus");
constexpr auto kFrameRate     = IidcFields("FrameRate");
constexpr auto kZoom          = IidcFields("Zoom");
constexpr auto kPan           = IidcFields("Pan");
constexpr auto kTilt          = IidcFields("Tilt");
constexpr auto kOpticalFilter = IidcFields("OpticalFilter");

constexpr SettingField kColorMatrix[] = {  // thousandths
    {.key = "c11", .kind = signedNumber, .reg = "KolmColorCorrectionC11"},
    {.key = "c12", .kind = signedNumber, .reg = "KolmColorCorrectionC12"},
    {.key = "c13", .kind = signedNumber, .reg = "KolmColorCorrectionC13"},
    {.key = "c21", .kind = signedNumber, .reg = "KolmColorCorrectionC21"},
    {.key = "c22", .kind = signedNumber, .reg = "KolmColorCorrectionC22"},
    {.key = "c23", .kind = signedNumber, .reg = "KolmColorCorrectionC23"},
    {.key = "c31", .kind = signedNumber, .reg = "KolmColorCorrectionC31"},
    {.key = "c32", .kind = signedNumber, .reg = "KolmColorCorrectionC32"},
    {.key = "c33", .kind = signedNumber, .reg = "KolmColorCorrectionC33"},
};
constexpr SettingField kLut[] = {
    {.key = "on",     .kind = flag, .reg = "KolmLUTCtrl", .msb = 25, .lsb = 25},
    {.key = "number", .reg = "KolmLUTCtrl", .msb = 5, .lsb = 0},
};
constexpr SettingField kMirror[] = {
    {.key = "horizontal", .kind = flag, .reg = "KolmMirrorImage", .msb = 25, .lsb = 25},
    {.key = "vertical",   .kind = flag, .reg = "KolmMirrorImage", .msb = 24, .lsb = 24},
};
constexpr SettingField kShading[] = {
    {.key = "on",             .kind = flag, .reg = "KolmShadingCtrl", .msb = 25, .lsb = 25},
    {.key = "show-image",     .kind = flag, .reg = "KolmShadingCtrl", .msb = 27, .lsb = 27},
    {.key = "memory-channel", .reg = "KolmShadingCtrl", .msb = 11, .lsb = 8},
    {.key = "pictures",       .reg = "KolmShadingCtrl", .msb = 7, .lsb = 0},
};
constexpr SettingField kDsnu[] = {
    {.key = "on",         .kind = flag, .reg = "KolmDSNUCtrl", .msb = 25, .lsb = 25},
    {.key = "show-image", .kind = flag, .reg = "KolmDSNUCtrl", .msb = 27, .lsb = 27},
    {.key = "pictures",   .reg = "KolmDSNUCtrl", .msb = 7, .lsb = 0},
};
constexpr SettingField kBlemish[] = {
    {.key = "on",         .kind = flag, .reg = "KolmBlemishCtrl", .msb = 25, .lsb = 25},
    {.key = "show-image", .kind = flag, .reg = "KolmBlemishCtrl", .msb = 27, .lsb = 27},
    {.key = "pictures",   .reg = "KolmBlemishCtrl", .msb = 7, .lsb = 0},
};
constexpr SettingField kHdr[] = {  // times in microseconds
    {.key = "on",           .kind = flag, .reg = "KolmHDRCtrl", .msb = 25, .lsb = 25},
    {.key = "knee-points",  .reg = "KolmHDRCtrl", .msb = 3, .lsb = 0},
    {.key = "knee-point-1", .reg = "KolmHDRKneePint1", .msb = 15, .lsb = 0},
    {.key = "knee-point-2", .reg = "KolmHDRKneePoint2", .msb = 15, .lsb = 0},
    {.key = "knee-point-3", .reg = "KolmHDRKneePoint3", .msb = 15, .lsb = 0},
};
constexpr SettingField kSequence[] = {
    {.key = "on",     .kind = flag, .reg = "KolmSeqCtrl", .msb = 25, .lsb = 25},
    {.key = "length", .reg = "KolmSeqCtrl", .msb = 5, .lsb = 0},
};
constexpr SettingField kDeferred[] = {
    {.key = "hold-image",   .kind = flag, .reg = "KolmDeferredTrans", .msb = 25, .lsb = 25},
    {.key = "fast-capture", .kind = flag, .reg = "KolmDeferredTrans", .msb = 24, .lsb = 24},
    {.key = "images",       .reg = "KolmDeferredTrans", .msb = 7, .lsb = 0},
};
constexpr SettingField kModeMapping[] = {
    {.key = "on",    .kind = flag, .reg = "KolmF7ModeMapping", .msb = 25, .lsb = 25},
    {.key = "value", .reg = "KolmF7ModeMapping", .msb = 11, .lsb = 0},
};
constexpr SettingField kUpdateTiming[] = {
    {.key = "on",    .kind = flag, .reg = "KolmParamUpdateTiming", .msb = 25, .lsb = 25},
    {.key = "value", .reg = "KolmParamUpdateTiming", .msb = 11, .lsb = 0},
};
constexpr SettingField kLowNoise[] = {
    {.key = "on",    .kind = flag, .reg = "KolmLowNoiseBinning", .msb = 25, .lsb = 25},
    {.key = "value", .reg = "KolmLowNoiseBinning", .msb = 11, .lsb = 0},
};

constexpr WordAccess kIsoSpeedAccess = {
    [](IKolmFluxorPropertySet& camera, SettingWords& w) { return camera.GetIsoSpeed(&w[0]); },
    [](IKolmFluxorPropertySet& camera, const SettingWords& w) { return camera.SetIsoSpeed(w[0]); }};
constexpr WordAccess kGeometryAccess = {
    [](IKolmFluxorPropertySet& camera, SettingWords& w) { return camera.GetProperty61(&w[0]); },
    [](IKolmFluxorPropertySet& camera, const SettingWords& w) { return camera.SetProperty61(w[0]); }};
constexpr WordAccess kTestImageAccess = {
    [](IKolmFluxorPropertySet& camera, SettingWords& w) { return camera.GetTestImage(&w[0]); },
    [](IKolmFluxorPropertySet& camera, const SettingWords& w) { return camera.SetTestImage(w[0]); }};
constexpr WordAccess kAutoShutterAccess = {
    [](IKolmFluxorPropertySet& camera, SettingWords& w) { return camera.GetProperty24(&w[0], &w[1]); },
    [](IKolmFluxorPropertySet& camera, const SettingWords& w) { return camera.SetProperty24(w[0], w[1]); }};
constexpr WordAccess kAutoGainAccess = {
    [](IKolmFluxorPropertySet& camera, SettingWords& w) { return camera.GetProperty25(&w[0], &w[1]); },
    [](IKolmFluxorPropertySet& camera, const SettingWords& w) { return camera.SetProperty25(w[0], w[1]); }};
constexpr WordAccess kAutoAreaAccess = {
    [](IKolmFluxorPropertySet& camera, SettingWords& w) {
        return camera.GetProperty26(&w[0], &w[1], &w[2], &w[3], &w[4], &w[5]);
    },
    [](IKolmFluxorPropertySet& camera, const SettingWords& w) {
        return camera.SetProperty26(w[0], w[1], w[2], w[3], w[4], w[5]);
    }};

constexpr SettingRow Feature(const char* name, FeatureId id, FeatureId follows = {}) {
    return {.name = name, .kind = SettingKind::feature, .fields = kFeature, .feature = id, .follows = follows};
}

// Compute, busy, save, load and zero of the picture corrections, and the error flag.
constexpr std::uint32_t kCorrectionCommands = 0x45E00000;
constexpr std::uint32_t kOnePush = 1U << 26;    // IIDC
constexpr std::uint32_t kSendImage = 1U << 26;
constexpr std::uint32_t kMakersCommand = 1U << 26;

// Left out, since setting them again would do something, or they tell what the camera is or does at the moment:
// - "lut" of the feature table: how wide the tables are;
// - switches of power and transmission, memory channels, user profiles, resets, software trigger, one shot, counters;
// - what lies behind a window: contents of the LUT and shading memories, the steps of a sequence.
// Other features of the feature table are registers here: 515 (lut), 523 (mirror), 526 (dsnu-correction),
// 527 (blemish-correction), 542 to 544 (output-2 to output-4): the registers tell more.
constexpr SettingRow kRows[] = {
    // The speed decides which formats the bus can carry, the format brings its mode's area and packet with it.
    {.name = "iso-speed",       .kind = SettingKind::words, .fields = kIsoSpeed, .access = kIsoSpeedAccess},
    Feature("iso-channel",      FeatureId::isoChannel),
    {.name = "format",          .kind = SettingKind::format, .fields = kVideoFormat},
    {.name = "format7-mode-#",  .fields = kFormat7Mode, .count = 8, .presentIn = "F7Mode#_000_MaxImageSize", .presentBits = 0xFFFFFFFF},
    {.name = "geometry-switch", .kind = SettingKind::words, .fields = kGeometrySwitch, .access = kGeometryAccess},

    {.name = "trigger",         .fields = kTrigger, .presentIn = "Trigger"},
    Feature("trigger-delay",    FeatureId::triggerDelay),
    Feature("delayed-integration", FeatureId::delayedIntegration),
    {.name = "input-#",         .fields = kInput,  .first = 1, .count = 4, .presentIn = "KolmIOInputCtrl#"},
    {.name = "output-#",        .fields = kOutput, .first = 1, .count = 4, .presentIn = "KolmIOOutputCtrl#"},

    // Time base and shutter make the exposure time, of which the extended shutter may tell more.
    Feature("time-base",        FeatureId::timeBase),
    Feature("shutter",          FeatureId::shutter),
    Feature("extended-shutter", FeatureId::extendedShutter, FeatureId::shutter),
    Feature("brightness",       FeatureId::brightness),
    Feature("auto-exposure",    FeatureId::autoExposure),
    Feature("sharpness",        FeatureId::sharpness),
    Feature("white-balance-ub", FeatureId::whiteBalanceUB),
    Feature("white-balance-vr", FeatureId::whiteBalanceVR),
    Feature("hue",              FeatureId::hue),
    Feature("saturation",       FeatureId::saturation),
    Feature("gamma",            FeatureId::gamma),
    Feature("gain",             FeatureId::gain),
    {.name = "iris",            .fields = kIris,          .presentIn = "Iris",          .commands = kOnePush},
    {.name = "focus",           .fields = kFocus,         .presentIn = "Focus",         .commands = kOnePush},
    {.name = "frame-rate",      .fields = kFrameRate,     .presentIn = "FrameRate",     .commands = kOnePush},
    {.name = "zoom",            .fields = kZoom,          .presentIn = "Zoom",          .commands = kOnePush},
    {.name = "pan",             .fields = kPan,           .presentIn = "Pan",           .commands = kOnePush},
    {.name = "tilt",            .fields = kTilt,          .presentIn = "Tilt",          .commands = kOnePush},
    {.name = "optical-filter",  .fields = kOpticalFilter, .presentIn = "OpticalFilter", .commands = kOnePush},

    {.name = "auto-shutter-limits", .kind = SettingKind::words, .fields = kLimits,   .access = kAutoShutterAccess},
    {.name = "auto-gain-limits",    .kind = SettingKind::words, .fields = kLimits,   .access = kAutoGainAccess},
    {.name = "auto-area",           .kind = SettingKind::words, .fields = kAutoArea, .access = kAutoAreaAccess},
    {.name = "auto-area-display",   .fields = kAutoAreaDisplay, .presentIn = "KolmAutoFunctionAOI"},

    {.name = "color-matrix",       .fields = kColorMatrix, .presentIn = "KolmColorCorrection"},
    Feature("color-correction",    FeatureId::colorCorrection),
    {.name = "lut",                .fields = kLut,     .presentIn = "KolmLUTCtrl"},
    {.name = "test-image",         .kind = SettingKind::words, .fields = kTestImage, .access = kTestImageAccess},
    {.name = "mirror",             .fields = kMirror,  .presentIn = "KolmMirrorImage"},
    Feature("high-snr",            FeatureId::highSnr),
    {.name = "shading-correction", .fields = kShading, .presentIn = "KolmShadingCtrl", .commands = kCorrectionCommands},
    {.name = "dsnu-correction",    .fields = kDsnu,    .presentIn = "KolmDSNUCtrl",    .commands = kCorrectionCommands},
    {.name = "blemish-correction", .fields = kBlemish, .presentIn = "KolmBlemishCtrl", .commands = kCorrectionCommands},
    Feature("low-smear",           FeatureId::feature517),
    Feature("feature-520",         FeatureId::feature520),
    {.name = "hdr",                .fields = kHdr,      .presentIn = "KolmHDRCtrl"},
    {.name = "sequence",           .fields = kSequence, .presentIn = "KolmSeqCtrl",       .commands = kMakersCommand},
    {.name = "deferred-transfer",  .fields = kDeferred, .presentIn = "KolmDeferredTrans", .commands = kSendImage},
    {.name = "format7-mode-mapping",    .fields = kModeMapping,  .presentIn = "KolmF7ModeMapping",     .commands = kMakersCommand},
    {.name = "parameter-update-timing", .fields = kUpdateTiming, .presentIn = "KolmParamUpdateTiming", .commands = kMakersCommand},
    {.name = "low-noise-binning",       .fields = kLowNoise,     .presentIn = "KolmLowNoiseBinning",   .commands = kMakersCommand},
};
// clang-format on

consteval bool WellFormed() {
    for (std::size_t i = 0; i < std::size(kRows); ++i) {
        const SettingRow& row = kRows[i];
        const bool inRegisters = row.kind == SettingKind::registers;
        const bool inWords = row.kind == SettingKind::words;
        for (std::size_t j = 0; j < i; ++j) {
            if (std::string_view(kRows[j].name) == row.name) {
                return false;
            }
        }
        if (row.fields.empty() || inRegisters != (row.presentIn != nullptr) ||
            inWords != (row.access.read != nullptr && row.access.write != nullptr) ||
            (row.kind == SettingKind::feature) != (row.feature != FeatureId{}) || row.first + row.count > 10) {
            return false;
        }
        for (const SettingField& field : row.fields) {
            if (inRegisters != (field.reg != nullptr) || field.msb > 31 || field.lsb > field.msb ||
                field.word >= std::tuple_size_v<SettingWords> || (field.kind == choice) == field.names.empty()) {
                return false;
            }
        }
    }
    return true;
}

static_assert(WellFormed());

}  // namespace

std::vector<Setting> AllSettings() {
    std::vector<Setting> settings;
    for (const SettingRow& row : kRows) {
        for (unsigned i = 0; i < row.count; ++i) {
            settings.push_back({&row, row.first + i});
        }
    }
    return settings;
}

}  // namespace kolmctl
