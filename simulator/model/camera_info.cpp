#include "model/camera_info.h"

#include <algorithm>
#include <array>
#include <iterator>
#include <optional>
#include <string_view>

#include "model/bits.h"
#include "model/format7.h"
#include "model/register_map.h"
#include "model/register_memory.h"
#include "model/register_table.h"
#include "model/video_format.h"
#include "model/video_mode.h"

namespace kolmsim {
namespace {

bool IsColor(const CameraState& state) {
    return state.variant == static_cast<std::uint32_t>(Variant::color);
}

/// A text in its field of 256 bytes; what is left of the field is zero.
void SetText(Record record, std::size_t offset, std::string_view text) {
    constexpr std::size_t kFieldBytes = 256;
    const auto field = record.Bytes().subspan(offset, kFieldBytes);
    std::ranges::fill(field, std::uint8_t{0});
    std::ranges::transform(text, field.begin(), [](char c) { return static_cast<std::uint8_t>(c); });
}

/// From 0xMMmm to 0x00MMmm00, whose six shown digits read MM.mm.00.
std::uint32_t ExpandVersion(std::uint32_t word) {
    return Field(word, 15, 0) << 8;
}

/// Features whose presence shows in the maker's inquiry register.
struct InquiryBit {
    unsigned bit;
    std::uint32_t id;
};
constexpr InquiryBit kInquiryBits[] = {
    {30, 6}, {29, 7}, {23, 31}, {19, 32}, {18, 33}, {17, 40}, {16, 19}, {14, 41}, {13, 27},
};

/// What every camera has: resolution, test images, frame info, sequences, versions, shading, deferred transfer, HDR,
/// soft reset, user sets, GP buffer.
constexpr std::uint32_t kAlwaysThere = 0x9E708401;

}  // namespace

Status AnswerCameraInfo(CameraState& state, Record record) {
    constexpr std::size_t kTextOffsets[] = {24, 280, 536};
    constexpr std::size_t kNumberOffset = 792;
    if (record.IsSet()) {
        return Status::invalidParameter;
    }
    SetText(record, kTextOffsets[0], "KolmFluxor");
    SetText(record, kTextOffsets[1], IsColor(state) ? "Simulated camera (color)" : "Simulated camera (mono)");
    SetText(record, kTextOffsets[2], "Simulated driver 1.0");
    record.SetWord(kNumberOffset, IsColor(state) ? 10002 : 10001);
    return Status::ok;
}

Status AnswerModeFigures(CameraState& state, Record record) {
    constexpr std::size_t kCountOffset = 24;
    constexpr std::size_t kFiguresOffset = 612;
    if (record.IsSet()) {
        return Status::invalidParameter;
    }
    const CurrentMode mode = ReadCurrentMode(state);
    const std::optional<VideoFormat> format = CurrentFormat(state);
    const std::uint32_t width = format ? format->width : 0;
    const std::uint32_t height = format ? format->height : 0;
    const std::uint32_t bits = BitsPerPixel(state, mode);
    const std::uint32_t packet = PacketBytes(state, mode);
    const std::uint64_t frameBytes = std::uint64_t{width} * height * bits / 8;
    const auto packets = packet == 0 ? 0 : static_cast<std::uint32_t>((frameBytes + packet - 1) / packet);

    const std::array<std::uint32_t, 6> figures = {width, height, bits, packet, packets, width * height};
    record.SetWord(kCountOffset, static_cast<std::uint32_t>(figures.size()));
    for (std::size_t i = 0; i < figures.size(); ++i) {
        record.SetWord(kFiguresOffset + 4 * i, figures[i]);
    }
    return Status::ok;
}

Status AnswerCurrentMode(CameraState& state, Record record) {
    if (record.IsSet()) {
        return Status::invalidParameter;
    }
    const CurrentMode mode = ReadCurrentMode(state);
    record.SetWord(28, mode.rate << 16 | mode.format << 8 | mode.mode);
    return Status::ok;
}

Status AnswerFactoryReset(CameraState& state, Record record) {
    if (!record.IsSet()) {
        return Status::invalidParameter;
    }
    ResetState(state, static_cast<Variant>(state.variant));
    return Status::ok;
}

Status AnswerVersions(CameraState& state, Record record) {
    if (record.IsSet()) {
        return Status::invalidParameter;
    }
    record.SetWord(24, Field(*ReadRegister(state, kVersionInfo1), 15, 0));
    record.SetWord(40, Field(*ReadRegister(state, kVersionInfo3), 15, 0));
    return Status::ok;
}

Status AnswerDeferredTransfer(CameraState& state, Record record) {
    struct FlagBit {
        std::uint32_t flag;
        unsigned bit;
    };
    constexpr FlagBit kFlags[] = {{0x8, 25}, {0x800, 24}, {0x80000000, 26}};
    std::uint32_t& word = StoredWord(state, kDeferredTransfer);
    const std::uint32_t room = Field(word, 15, 8);
    if (record.IsSet()) {
        const std::uint32_t flags = record.Word(28);
        std::uint32_t known = 0;
        std::uint32_t bits = 0;
        for (const FlagBit& each : kFlags) {
            known |= each.flag;
            bits |= BitIf((flags & each.flag) != 0, each.bit);
        }
        if ((flags & ~known) != 0 || record.Word(24) > room) {
            return Status::invalidParameter;
        }
        word = (word & ~FieldMask(7, 0)) | Place(record.Word(24), 7, 0);
        word = flags == 0 ? word : (word & ~FieldMask(26, 24)) | bits;
    }
    std::uint32_t flags = 0;
    for (const FlagBit& each : kFlags) {
        flags |= Bit(word, each.bit) ? each.flag : 0;
    }
    record.SetWord(24, Field(word, 7, 0));
    record.SetWord(28, flags);
    record.SetWord(36, room);
    return Status::ok;
}

Status AnswerCameraStatus(CameraState& state, Record record) {
    if (record.IsSet()) {
        return Status::invalidParameter;
    }
    record.SetWord(24, StoredWord(state, kCameraStatus));
    return Status::ok;
}

Status AnswerInput(CameraState& state, Record record) {
    constexpr std::uint32_t kInputs = 4;
    const std::uint32_t input = record.Word(24);
    if (record.IsSet() || input >= kInputs) {
        return Status::invalidParameter;
    }
    const std::uint32_t word = StoredWord(state, kInputControl + 4 * input);
    record.SetWord(28, Field(word, 0, 0));
    record.SetWord(36, Field(word, 20, 16));
    record.SetWord(40, Field(word, 24, 24));
    record.SetWord(44, word);
    return Status::ok;
}

Status AnswerFigure(CameraState& state, Record record) {
    if (record.IsSet()) {
        return Status::invalidParameter;
    }
    const BusFigures bus = ReadBusFigures(state);
    struct Figure {
        std::uint32_t selector;
        std::uint32_t value;
    };
    const Figure figures[] = {
        {5, ExpandVersion(record.Word(40))},
        {6, ExpandVersion(record.Word(44))},
        {41, bus.packetBytesUsed},
        {42, bus.packetBytesFree},
        {43, bus.channelsHigh},
        {44, bus.channelsLow},
    };
    const auto found = std::ranges::find(figures, record.Word(24), &Figure::selector);
    if (found == std::end(figures)) {
        return Status::invalidParameter;
    }
    record.SetWord(28, found->value);
    return Status::ok;
}

std::uint32_t ReadCameraVersion(const CameraState& state, std::uint32_t /*address*/) {
    constexpr std::uint32_t kFpgaVersion = 0x0204;
    constexpr std::uint32_t kMonoType = 0x0101;
    constexpr std::uint32_t kColorType = 0x0102;
    return Place(IsColor(state) ? kColorType : kMonoType, 31, 16) | kFpgaVersion;
}

std::uint32_t ReadAdvancedInquiry1(const CameraState& state, std::uint32_t /*address*/) {
    std::uint32_t word = kAlwaysThere;
    for (const InquiryBit& each : kInquiryBits) {
        word |= BitIf(state.properties[each.id].present != 0, each.bit);
    }
    return word;
}

void WriteInitialize(CameraState& state, std::uint32_t /*address*/, std::uint32_t word) {
    if (Bit(word, 31)) {
        ResetState(state, static_cast<Variant>(state.variant));
    }
}

void WriteSoftReset(CameraState& state, std::uint32_t address, std::uint32_t word) {
    if (Bit(word, 26)) {
        ResetState(state, static_cast<Variant>(state.variant));
    } else {
        StoredWord(state, address) = BitIf(true, kPresence) | Field(word, 11, 0);
    }
}

void WriteFrameInfo(CameraState& state, std::uint32_t /*address*/, std::uint32_t word) {
    if (Bit(word, 30)) {
        StoredWord(state, kFrameCounter) = 0;
    }
}

}  // namespace kolmsim
