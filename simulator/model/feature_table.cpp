#include "model/feature_table.h"

#include <algorithm>
#include <cstddef>
#include <iterator>

#include "model/record.h"

namespace kolmsim {
namespace {

constexpr std::uint32_t kFixed = kModeManual;
constexpr std::uint32_t kSwitch = kModeOff | kModeManual;
constexpr std::uint32_t kManualAuto = kModeManual | kModeAuto;
constexpr std::uint32_t kAutomatic = kModeManual | kModeAuto | kModeOnePush;
constexpr std::uint32_t kCorrection = kModeOff | kModeManual | kModeShowImage | kModeLoadData | kModeClearData;

// Times are in units of the time base (5), in microseconds (7, 39, 40); 6 is an index into ten time bases.
// The factory exposure of 500 x 20 us and the extended shutter's 10000 us are the same time.
// clang-format off
constexpr FeatureRow kFeatures[] = {
    {.id =  0, .name = "Gain",                .value = 64,    .min = 0,   .max = 255,      .caps = kAutomatic,  .mode = kModeManual, .step = 3},
    {.id =  1, .name = "White balance UB",    .value = 284,   .min = 0,   .max = 568,      .caps = kAutomatic,  .mode = kModeManual, .step = 7, .colorOnly = true},
    {.id =  2, .name = "White balance VR",    .value = 300,   .min = 0,   .max = 568,      .caps = kAutomatic,  .mode = kModeManual, .step = 7, .colorOnly = true},
    {.id =  4, .name = "Brightness",          .value = 16,    .min = 0,   .max = 255,      .caps = kManualAuto, .mode = kModeManual, .step = 2},
    {.id =  5, .name = "Shutter",             .value = 500,   .min = 1,   .max = 4095,     .caps = kAutomatic,  .mode = kModeManual, .step = 25},
    {.id =  6, .name = "Time base",           .value = 4,     .min = 0,   .max = 9,        .caps = kFixed,      .mode = kModeManual},
    {.id =  7, .name = "Extended shutter",    .value = 10000, .min = 1,   .max = 67108863, .caps = kFixed,      .mode = kModeManual},
    {.id =  8, .name = "Gamma",               .value = 1,     .min = 0,   .max = 1,        .caps = kSwitch,     .mode = kModeOff},
    {.id = 19, .name = "Feature 523",         .value = 1,     .min = 0,   .max = 1,        .caps = kSwitch,     .mode = kModeOff},
    {.id = 21, .name = "Sharpness",           .value = 2,     .min = 0,   .max = 7,        .caps = kSwitch,     .mode = kModeManual},
    {.id = 22, .name = "Hue",                 .value = 128,   .min = 88,  .max = 168,      .caps = kSwitch,     .mode = kModeManual, .colorOnly = true},
    {.id = 23, .name = "Saturation",          .value = 256,   .min = 0,   .max = 511,      .caps = kSwitch,     .mode = kModeManual, .colorOnly = true},
    {.id = 27, .name = "Color correction",    .value = 1,     .min = 0,   .max = 1,        .caps = kSwitch,     .mode = kModeOff,    .colorOnly = true},
    {.id = 28, .name = "Feature 520",         .value = 3,     .min = 0,   .max = 255,      .caps = kFixed,      .mode = kModeManual},
    {.id = 31, .name = "LUT number",          .value = 0,     .min = kLutBytes, .max = kLutCount, .caps = kSwitch, .mode = kModeOff, .minIsNoLimit = true},
    {.id = 32, .name = "DSNU correction",     .value = 16,    .min = 1,   .max = 255,      .caps = kCorrection, .mode = kModeManual},
    {.id = 33, .name = "Feature 527",         .value = 32,    .min = 1,   .max = 255,      .caps = kCorrection | kModeSaveData, .mode = kModeManual},
    {.id = 35, .name = "Feature 542",         .value = 1,     .min = 0,   .max = 31,       .caps = kSwitch,     .mode = kModeManual},
    {.id = 36, .name = "Feature 543",         .value = 2,     .min = 0,   .max = 31,       .caps = kSwitch,     .mode = kModeManual},
    {.id = 37, .name = "Feature 544",         .value = 6,     .min = 0,   .max = 31,       .caps = kSwitch,     .mode = kModeOff},
    {.id = 39, .name = "Delayed integration", .value = 100,   .min = 0,   .max = 1048575,  .caps = kSwitch,     .mode = kModeOff},
    {.id = 40, .name = "Trigger delay",       .value = 250,   .min = 0,   .max = 2097151,  .caps = kSwitch,     .mode = kModeOff},
    {.id = 41, .name = "High SNR",            .value = 4,     .min = 2,   .max = 256,      .caps = kSwitch,     .mode = kModeOff},
    {.id = 55, .name = "ISO channel",         .value = 5,     .min = 0,   .max = 63,       .caps = kManualAuto, .mode = kModeAuto},
    {.id = 60, .name = "Auto exposure",       .value = 125,   .min = 50,  .max = 205,      .caps = kSwitch | kModeAuto, .mode = kModeManual, .step = 5},
    {.id = 63, .name = "LUT bits per value",  .value = kLutBitsPerValue, .min = 1, .max = 16, .caps = kFixed,   .mode = kModeManual},
    {.id = 64, .name = "Feature 517",         .value = 7,     .min = 0,   .max = 4095,     .caps = kSwitch,     .mode = kModeOff},
};

constexpr FeatureRow kFeatureLike[] = {
    {.id = 30, .name = "Shading",         .value = 16, .min = 1, .max = 255, .caps = kSwitch | kModeShowImage, .mode = kModeOff},
    {.id = 34, .name = "Output 1",        .value = 3,  .min = 0, .max = 31,  .caps = kSwitch,                  .mode = kModeManual},
    {.id = 54, .name = "ISO speed",       .value = 2,  .min = 0, .max = 3,   .caps = kFixed,                   .mode = kModeManual},
    {.id = 61, .name = "Geometry switch", .value = 0,  .min = 0, .max = 1,   .caps = kFixed,                   .mode = kModeManual},
};
// clang-format on

consteval bool WellFormed(std::span<const FeatureRow> rows) {
    for (std::size_t i = 0; i < rows.size(); ++i) {
        const FeatureRow& row = rows[i];
        const bool ascends = i == 0 || rows[i - 1].id < row.id;
        const bool modeIsOneSupportedBit =
            row.mode != 0 && (row.mode & (row.mode - 1)) == 0 && (row.caps & row.mode) != 0;
        if (!ascends || !modeIsOneSupportedBit || row.value < row.Lowest(row.min) || row.value > row.max) {
            return false;
        }
    }
    return true;
}

static_assert(std::size(kFeatures) == 27);
static_assert(WellFormed(kFeatures));
static_assert(WellFormed(kFeatureLike));

}  // namespace

std::span<const FeatureRow> FeatureTable() {
    return kFeatures;
}

std::span<const FeatureRow> FeatureLikeTable() {
    return kFeatureLike;
}

const FeatureRow* FindFeature(std::uint32_t id) {
    const auto found = std::ranges::lower_bound(kFeatures, id, {}, &FeatureRow::id);
    return found != std::end(kFeatures) && found->id == id ? found : nullptr;
}

const FeatureRow* FindAdjustable(std::uint32_t id) {
    const auto found = std::ranges::find(kFeatureLike, id, &FeatureRow::id);
    return found != std::end(kFeatureLike) ? found : FindFeature(id);
}

}  // namespace kolmsim
