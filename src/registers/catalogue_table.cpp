/// @file  The catalogue's data: runs of registers, expanded when this file is compiled.

#include "registers/catalogue.h"

#include <algorithm>
#include <array>

namespace kolmfluxor {
namespace {

// Compatibility: odd spellings of names ("KolmVesrionInfo1", "KolmHDRKneePint1", ...) are kept: callers look registers
// up by name.

/// A register of a run. A '#' in its name stands for the run's number.
struct Register {
    const char* name;
    std::uint32_t offset;  ///< from the run's base
};

constexpr char kNumber = '#';

/// Registers that come `count` times: with the numbers first, first + 1, ... (one digit), at base, base + stride, ...
struct Run {
    std::uint32_t base;
    std::span<const Register> registers;
    const char* suffix = "";  ///< follows each name
    std::uint32_t first = 0;
    std::uint32_t count = 1;
    std::uint32_t stride = 0;
};

// clang-format off
constexpr Register kBase[] = {{"Initialize", 0x000}, {"VFormatInq", 0x100}};

constexpr Register kVideoModes[]    = {{"VModeF#Inq", 0}};
constexpr Register kFrameRates0[]   = {{"VRateF0M#Inq", 0}};
constexpr Register kFrameRates1[]   = {{"VRateF1M#Inq", 0}};
constexpr Register kFrameRates2[]   = {{"VRateF2M#Inq", 0}};
constexpr Register kF7Addresses[]   = {{"F7AddressMode#Inq", 0}};

constexpr Register kFormat7[] = {
    {"F7Mode#_000_MaxImageSize",        0x000},
    {"F7Mode#_004_UnitSize",            0x004},
    {"F7Mode#_008_ImagePos",            0x008},
    {"F7Mode#_00C_ImageSize",           0x00C},
    {"F7Mode#_010_ColorCodingID",       0x010},
    {"F7Mode#_014_ColorCodingInq1",     0x014},
    {"F7Mode#_018_ColorCodingInq2",     0x018},
    {"F7Mode#_01c_ColorCodingInq3",     0x01C},
    {"F7Mode#_020_ColorCodingInq4",     0x020},
    {"F7Mode#_024_ColorCodingInqVen1",  0x024},
    {"F7Mode#_028_ColorCodingInqVen2",  0x028},
    {"F7Mode#_02c_ColorCodingInqVen3",  0x02C},
    {"F7Mode#_030_ColorCodingInqVen4",  0x030},
    {"F7Mode#_034_PixelNumber",         0x034},
    {"F7Mode#_038_TotalBytesHi",        0x038},
    {"F7Mode#_03C_TotalBytesLo",        0x03C},
    {"F7Mode#_040_PacketParaInq",       0x040},
    {"F7Mode#_044_BYtePerPacket",       0x044},
    {"F7Mode#_048_PacketPerFrameInq",   0x048},
    {"F7Mode#_04C_UnitPosInq",          0x04C},
    {"F7Mode#_050_FrameIntervalInq",    0x050},
    {"F7Mode#_054_DataDepth",           0x054},
    {"F7Mode#_058_ColorFilterId",       0x058},
    {"F7Mode#_07C_ValueSetting",        0x07C},
};

constexpr Register kFunctions[] = {
    {"BasicFunctionInq", 0x400}, {"FeatureHiInq", 0x404}, {"FeatureLoInq", 0x408}, {"OptFunctionInq", 0x40C},
    {"AdvFeatureInq",    0x480}, {"PioCtrlInq",   0x484}, {"SioCtrlInq",   0x488}, {"StrobeCtrlInq",  0x48C},
};

/// Each stands twice in a camera: the inquiry (with the suffix "Inq") and the control.
constexpr Register kFeatures[] = {
    {"Brightness", 0x00}, {"AutoExposure", 0x04}, {"Sharpness",    0x08}, {"WhiteBalance", 0x0C},
    {"Hue",        0x10}, {"Saturation",   0x14}, {"Gamma",        0x18}, {"Shutter",      0x1C},
    {"Gain",       0x20}, {"Iris",         0x24}, {"Focus",        0x28}, {"Temperature",  0x2C},
    {"Trigger",    0x30}, {"TriggerDelay", 0x34}, {"WhiteShading", 0x38}, {"FrameRate",    0x3C},
};

constexpr Register kStatus[] = {
    {"CurVFrameRate",    0x600}, {"CurVMode",       0x604}, {"CurVFormat",     0x608}, {"ISOCtrl",    0x60C},
    {"Power",            0x610}, {"ISOEnable",      0x614}, {"MemorySave",     0x618}, {"OneShot",    0x61C},
    {"MemSaveChan",      0x620}, {"CurMemChan",     0x624},
    {"VModeErrorStatus", 0x628}, {"SoftTrigger",    0x62C}, {"DataDepth",      0x630},
    {"FeatureErrorHi",   0x640}, {"FeatureErrorLo", 0x644},
};

constexpr Register kOptics[] = {
    {"Zoom",        0x880}, {"Pan",            0x884}, {"Tilt", 0x888}, {"OpticalFilter", 0x88C},
    {"CaptureSize", 0x8C0}, {"CaptureQuality", 0x8C4},
};

// The maker's registers, split where a numbered run stands among them.
constexpr Register kKolmBasics[] = {
    {"KolmVesrionInfo1",   0x010},
    {"KolmVersionInfo3",   0x018},
    {"KolmAdvInq1",        0x040},
    {"KolmAdvInq2",        0x044},
    {"KolmAdvInq3",        0x048},
    {"KolmAdvInq4",        0x04C},
    {"KolmCameraStatus",   0x100},
    {"KolmMaxResolution",  0x200},
    {"KolmTimeBase",       0x208},
    {"KolmExtShutter",     0x20C},
    {"KolmTestImage",      0x210},
    {"KolmSeqCtrl",        0x220},
    {"KolmSecParam",       0x224},
    {"KolmSeqStep",        0x228},
    {"KolmSeqReset",       0x22C},
    {"KolmLUTCtrl",        0x240},
    {"KolmLUTMemCtrl",     0x244},
    {"KolmLUTInfo",        0x248},
    {"KolmShadingCtrl",    0x250},
    {"KolmShadingMemCtrl", 0x254},
    {"KolmShadingInfo",    0x258},
    {"KolmDeferredTrans",  0x260},
    {"KolmFrameInfo",      0x270},
    {"KolmFrameCounter",   0x274},
    {"KolmHDRCtrl",        0x280},
    {"KolmHDRKneePint1",   0x284},
    {"KolmHDRKneePoint2",  0x288},
    {"KolmHDRKneePoint3",  0x28C},
    {"KolmDSNUCtrl",       0x290},
    {"KolmBlemishCtrl",    0x294},
};

constexpr Register kKolmInputs[]  = {{"KolmIOInputCtrl#", 0}};
constexpr Register kKolmOutputs[] = {{"KolmIOOutputCtrl#", 0}};

constexpr Register kKolmExposure[] = {
    {"KolmIntegrationEnableDelay", 0x340},
    {"KolmAutoShutterCtrl",        0x360},
    {"KolmAutoShutterLo",          0x364},
    {"KolmAutoShutterHi",          0x368},
    {"KolmAutoGainCtrl",           0x370},
    {"KolmAutoFunctionAOI",        0x390},
    {"KolmAutoFunctionPos",        0x394},
    {"KolmAutoFunctionSize",       0x398},
    {"KolmColorCorrection",        0x3A0},
};

constexpr Register kKolmColorRow1[] = {{"KolmColorCorrectionC1#", 0}};
constexpr Register kKolmColorRow2[] = {{"KolmColorCorrectionC2#", 0}};
constexpr Register kKolmColorRow3[] = {{"KolmColorCorrectionC3#", 0}};

constexpr Register kKolmOthers[] = {
    {"KolmTriggerDelay",      0x400},
    {"KolmMirrorImage",       0x410},
    {"KolmLowSmear",          0x440},
    {"KolmSoftReset",         0x510},
    {"KolmHighSNR",           0x520},
    {"KolmUserProfiles",      0x550},
    {"KolmF7ModeMapping",     0x560},
    {"KolmParamUpdateTiming", 0x570},
    {"KolmLowNoiseBinning",   0x580},
    {"KolmTRiggerCounter",    0x620},
};

constexpr Run kRuns[] = {
    {.base = 0xF0F00000, .registers = kBase},
    {.base = 0xF0F00180, .registers = kVideoModes,    .first = 0, .count = 4, .stride = 0x4},  // no formats 4 and 5
    {.base = 0xF0F00198, .registers = kVideoModes,    .first = 6, .count = 2, .stride = 0x4},
    {.base = 0xF0F00200, .registers = kFrameRates0,   .first = 0, .count = 7, .stride = 0x4},  // no mode 7
    {.base = 0xF0F00220, .registers = kFrameRates1,   .first = 0, .count = 8, .stride = 0x4},
    {.base = 0xF0F00240, .registers = kFrameRates2,   .first = 0, .count = 8, .stride = 0x4},
    {.base = 0xF0F002E0, .registers = kF7Addresses,   .first = 0, .count = 8, .stride = 0x4},
    {.base = 0xF0F08000, .registers = kFormat7,       .first = 0, .count = 8, .stride = 0x1000},
    {.base = 0xF0F00000, .registers = kFunctions},
    {.base = 0xF0F00500, .registers = kFeatures,      .suffix = "Inq"},
    {.base = 0xF0F00000, .registers = kStatus},
    {.base = 0xF0F00800, .registers = kFeatures},
    {.base = 0xF0F00000, .registers = kOptics},
    {.base = 0xF1000000, .registers = kKolmBasics},
    {.base = 0xF1000300, .registers = kKolmInputs,    .first = 1, .count = 4, .stride = 0x4},
    {.base = 0xF1000320, .registers = kKolmOutputs,   .first = 1, .count = 4, .stride = 0x4},
    {.base = 0xF1000000, .registers = kKolmExposure},
    {.base = 0xF10003A4, .registers = kKolmColorRow1, .first = 1, .count = 3, .stride = 0x4},
    {.base = 0xF10003B0, .registers = kKolmColorRow2, .first = 1, .count = 3, .stride = 0x4},
    {.base = 0xF10003BC, .registers = kKolmColorRow3, .first = 1, .count = 3, .stride = 0x4},
    {.base = 0xF1000000, .registers = kKolmOthers},
};
// clang-format on

/// Calls visit(run, register, number, address) for each register of the catalogue, in order.
template <class Visit> constexpr void ForEachRegister(Visit&& visit) {
    for (const Run& run : kRuns) {
        for (std::uint32_t i = 0; i < run.count; ++i) {
            for (const Register& row : run.registers) {
                visit(run, row, run.first + i, run.base + i * run.stride + row.offset);
            }
        }
    }
}

consteval std::size_t CountEntries() {
    std::size_t count = 0;
    ForEachRegister([&](const Run&, const Register&, std::uint32_t, std::uint32_t) { ++count; });
    return count;
}

/// Bytes that all names take, each with a NUL after it.
consteval std::size_t CountCharacters() {
    std::size_t count = 0;
    ForEachRegister([&](const Run& run, const Register& row, std::uint32_t, std::uint32_t) {
        count += std::string_view(row.name).size() + std::string_view(run.suffix).size() + 1;
    });
    return count;
}

struct Place {
    std::size_t nameStart;
    std::uint32_t address;
};

struct Expansion {
    std::array<char, CountCharacters()> names{};
    std::array<Place, CountEntries()> places{};
};

consteval Expansion Expand() {
    Expansion expansion;
    std::size_t end = 0;
    std::size_t entry = 0;
    ForEachRegister([&](const Run& run, const Register& row, std::uint32_t number, std::uint32_t address) {
        expansion.places[entry++] = {end, address};
        for (const std::string_view part : {std::string_view(row.name), std::string_view(run.suffix)}) {
            for (const char c : part) {
                expansion.names[end++] = c == kNumber ? static_cast<char>('0' + number) : c;
            }
        }
        ++end;  // the NUL is there
    });
    return expansion;
}

constexpr Expansion kExpansion = Expand();

consteval std::array<CatalogueEntry, CountEntries()> Entries() {
    std::array<CatalogueEntry, CountEntries()> entries{};
    std::ranges::transform(kExpansion.places, entries.begin(), [](const Place& place) {
        return CatalogueEntry{kExpansion.names.data() + place.nameStart, place.address};
    });
    return entries;
}

constexpr auto kEntries = Entries();

consteval bool AddressesDiffer() {
    std::array<std::uint32_t, kEntries.size()> addresses{};
    std::ranges::transform(kEntries, addresses.begin(), &CatalogueEntry::address);
    std::ranges::sort(addresses);
    return std::ranges::adjacent_find(addresses) == addresses.end();
}

consteval bool AddressesAreAligned() {
    return std::ranges::all_of(kEntries, [](const CatalogueEntry& entry) { return entry.address % 4 == 0; });
}

consteval bool NumbersAreDigits() {
    return std::ranges::all_of(kRuns, [](const Run& run) { return run.count > 0 && run.first + run.count <= 10; });
}

static_assert(kEntries.size() == kCatalogueSize);
static_assert(AddressesDiffer());
static_assert(AddressesAreAligned());
static_assert(NumbersAreDigits());

}  // namespace

std::span<const CatalogueEntry> Catalogue() {
    return kEntries;
}

}  // namespace kolmfluxor
