/// @file  Decoders of the registers of a Format 7 mode, by their offset in the mode's block.

#include "registers/decoder_table.h"

namespace kolmfluxor {
namespace {

// clang-format off
constexpr RegisterField kSize[]     = {{"Width: %d", {31, 16}}, {"Height: %d", {15, 0}}};
constexpr RegisterField kPosition[] = {{"Left: %d", {31, 16}}, {"Top: %d", {15, 0}}};
// Compatibility: the line of the unit height repeats the unit width.
constexpr RegisterField kUnitSize[] = {{"UWidth: %d", {31, 16}}, {"UHeight: %d", {31, 16}}};

constexpr RegisterField kColorCoding[] = {{"ColorCode: %d", {31, 24}}};
constexpr RegisterField kColorCodings[] = {
    {"Mono8: %d", {31, 31}},  {"YUV411: %d", {30, 30}}, {"YUV422: %d", {29, 29}},  {"YUV444: %d", {28, 28}},
    {"RGB8: %d", {27, 27}},   {"Mono16: %d", {26, 26}}, {"RGB16: %d", {25, 25}},   {"SMono16: %d", {24, 24}},
    {"SRGB16: %d", {23, 23}}, {"Raw8: %d", {22, 22}},   {"Raw16: %d", {21, 21}},
};
constexpr RegisterField kVendorCodings[] = {
    {"Raw12: %d", {23, 23}}, {"SRGB12: %d", {24, 24}}, {"SMono12: %d", {25, 25}}, {"RGB12: %d", {26, 26}},
    {"Mono12: %d", {25, 25}},  // Compatibility: the same bit as SMono12.
    {"MonoB: %d", {29, 29}}, {"MonoG: %d", {30, 30}},  {"MonoR: %d", {31, 31}},
};
constexpr RegisterField kReserved[]       = {{"Res: %d", kWholeWord}};

constexpr RegisterField kPixelNumber[]    = {{"PixelPerFrame: %d", kWholeWord}};
constexpr RegisterField kTotalBytesHigh[] = {{"BytesPerFrameHi: %d", kWholeWord}};
constexpr RegisterField kTotalBytesLow[]  = {{"BytesPerFrameLo: %d", kWholeWord}};
constexpr RegisterField kPacketParam[]    = {{"UnitBytePerPacket: %d", {31, 16}}, {"MaxBytePerPacket: %d", {15, 0}}};
constexpr RegisterField kBytePerPacket[]  = {{"BytePerPacket: %d", {31, 16}}, {"RecommendedBytePerPacket: %d", {15, 0}}};
constexpr RegisterField kPacketPerFrame[] = {{"PacketPerFrame: %d", kWholeWord}};
constexpr RegisterField kUnitPosition[]   = {{"UnitPosHz: %d", {31, 16}}, {"UnitPosVt: %d", {15, 0}}};
constexpr RegisterField kFrameInterval[]  = {{"Frameinterval: %d", kWholeWord}};
constexpr RegisterField kDataDepth[]      = {{"DataDepth: %d", {31, 24}}};
constexpr RegisterField kColorFilter[]    = {{"ColorFilter: %d", {31, 24}}};
constexpr RegisterField kValueSetting[]   = {{"Presence: %d", {31, 31}}, {"CalcF7: %d", {30, 30}}, {"ErrorFlag: %d", {23, 23}}};

// Compatibility: most headings have "x" where one would expect "0x", and some no colon.
constexpr RegisterDecoder kDecoders[] = {
    {.first = 0x00, .last = 0x00, .heading = "Format 7 Max image size: 0x%x",         .fields = kSize},
    {.first = 0x04, .last = 0x04, .heading = "Format 7 Unit Size: 0x%x",              .fields = kUnitSize},
    {.first = 0x08, .last = 0x08, .heading = "Format 7 image pos: 0x%x",              .fields = kPosition},
    {.first = 0x0C, .last = 0x0C, .heading = "Format 7 image size: 0x%x",             .fields = kSize},
    {.first = 0x10, .last = 0x10, .heading = "Format 7 Color coding 0x%x",            .fields = kColorCoding},
    {.first = 0x14, .last = 0x14, .heading = "Format 7 Color coding Inq 0x%x",        .fields = kColorCodings},
    {.first = 0x18, .last = 0x18, .heading = "Format 7 Color coding Inq Res1 x%x",    .fields = kReserved},
    {.first = 0x1C, .last = 0x1C, .heading = "Format 7 Color coding Inq Res2 x%x",    .fields = kReserved},
    {.first = 0x20, .last = 0x20, .heading = "Format 7 Color coding Inq Res3 x%x",    .fields = kReserved},
    {.first = 0x24, .last = 0x24, .heading = "Format 7 Color coding Inq Vendor x%x",  .fields = kVendorCodings},
    {.first = 0x28, .last = 0x28, .heading = "Format 7 Color coding Inq Ven2 x%x",    .fields = kReserved},
    {.first = 0x2C, .last = 0x2C, .heading = "Format 7 Color coding Inq Ven3 x%x",    .fields = kReserved},
    {.first = 0x30, .last = 0x30, .heading = "Format 7 Color coding Inq Ven4 x%x",    .fields = kReserved},
    {.first = 0x34, .last = 0x34, .heading = "Format 7 Pixel number x%x",             .fields = kPixelNumber},
    {.first = 0x38, .last = 0x38, .heading = "Format 7 TotalBytesHi x%x",             .fields = kTotalBytesHigh},
    {.first = 0x3C, .last = 0x3C, .heading = "Format 7 Total Bytes Lo x%x",           .fields = kTotalBytesLow},
    {.first = 0x40, .last = 0x40, .heading = "Format 7 Packet Parameter Inq x%x",     .fields = kPacketParam},
    {.first = 0x44, .last = 0x44, .heading = "Format 7 Byte Per Packet x%x",          .fields = kBytePerPacket},
    {.first = 0x48, .last = 0x48, .heading = "Format 7 Packet Per Frame x%x",         .fields = kPacketPerFrame},
    {.first = 0x4C, .last = 0x4C, .heading = "Format 7 Unit Position Inq x%x",        .fields = kUnitPosition},
    {.first = 0x50, .last = 0x50, .heading = "Format 7 Frame Interval x%x",           .fields = kFrameInterval},
    {.first = 0x54, .last = 0x54, .heading = "Format 7 Data Depth Inq x%x",           .fields = kDataDepth},
    {.first = 0x58, .last = 0x58, .heading = "Format 7 Color Filter Id x%x",          .fields = kColorFilter},
    {.first = 0x5C, .last = 0x78, .heading = "Format 7 Reserved x%x",                 .fields = kReserved},
    {.first = 0x7C, .last = 0x7C, .heading = "Format 7 Value Setting x%x",            .fields = kValueSetting},
};
// clang-format on

static_assert(WellFormed(kDecoders));

}  // namespace

std::span<const RegisterDecoder> Format7Decoders() {
    return kDecoders;
}

}  // namespace kolmfluxor
