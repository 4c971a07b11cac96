#include "model/format7_properties.h"

#include <algorithm>

#include "model/format7.h"

namespace kolmsim {
namespace {

constexpr std::size_t kMode = 28;
constexpr std::size_t kPacketBytes = 32;
constexpr std::size_t kBitsPerPixel = 44;
constexpr std::size_t kLeft = 48;
constexpr std::size_t kTop = 52;
constexpr std::size_t kWidth = 56;
constexpr std::size_t kHeight = 60;
constexpr std::size_t kLargestPacket = 64;
constexpr std::size_t kColorCoding = 68;
constexpr std::size_t kUnitWidth = 72;
constexpr std::size_t kUnitHeight = 76;
constexpr std::size_t kMaxWidth = 80;
constexpr std::size_t kMaxHeight = 84;
constexpr std::size_t kFrameBytes = 88;
constexpr std::size_t kRecommendedPacket = 92;

constexpr std::size_t kCodingIndex = 28;
constexpr std::size_t kCodingId = 44;
constexpr std::size_t kPacketValue = 24;

constexpr std::size_t kPositionMode = 24;
constexpr std::size_t kPositionLeft = 28;
constexpr std::size_t kPositionTop = 32;

Variant VariantOf(const CameraState& state) {
    return static_cast<Variant>(state.variant);
}

/// What a SET asks for.
Format7State Wanted(Record record) {
    return {.left = record.Word(kLeft),
            .top = record.Word(kTop),
            .width = record.Word(kWidth),
            .height = record.Word(kHeight),
            .colorCoding = record.Word(kColorCoding),
            .bytesPerPacket = record.Word(kPacketBytes),
            .refused = 0};
}

void FillCalculation(Record record, const Format7State& settings) {
    record.SetWord(kFrameBytes, static_cast<std::uint32_t>(Format7FrameBytes(settings)));
    record.SetWord(kRecommendedPacket, RecommendedPacketBytes(settings));
}

void Fill(Record record, const CameraState& state, std::uint32_t mode) {
    const Format7State& settings = state.format7[mode];
    const Format7Limits& limits = Format7LimitsOf(mode);
    record.SetWord(kMode, mode);
    record.SetWord(kPacketBytes, settings.bytesPerPacket);
    record.SetWord(kBitsPerPixel, Format7BitsPerPixel(settings));
    record.SetWord(kLeft, settings.left);
    record.SetWord(kTop, settings.top);
    record.SetWord(kWidth, settings.width);
    record.SetWord(kHeight, settings.height);
    record.SetWord(kLargestPacket, kLargestPacketBytes);
    record.SetWord(kColorCoding, settings.colorCoding);
    record.SetWord(kUnitWidth, limits.unitWidth);
    record.SetWord(kUnitHeight, limits.unitHeight);
    record.SetWord(kMaxWidth, limits.maxWidth);
    record.SetWord(kMaxHeight, limits.maxHeight);
    FillCalculation(record, settings);
}

/// The selected mode; one that a damaged memory names counts as the first.
std::uint32_t Selected(const CameraState& state) {
    return state.selectedFormat7Mode < kFormat7Modes ? state.selectedFormat7Mode : 0;
}

}  // namespace

Status AnswerFormat7Info(CameraState& state, Record record) {
    const std::uint32_t mode = record.Word(kMode);
    if (mode >= kFormat7Modes) {
        return Status::invalidParameter;
    }
    if (record.IsSet()) {
        Format7State wanted = Wanted(record);
        if (wanted.bytesPerPacket == 0) {
            wanted.bytesPerPacket = RecommendedPacketBytes(wanted);
        }
        if (!IsPossible(wanted, mode, VariantOf(state))) {
            return Status::invalidParameter;
        }
        state.format7[mode] = wanted;
    }
    Fill(record, state, mode);
    return Status::ok;
}

Status AnswerFormat7Coding(CameraState& state, Record record) {
    Format7State& settings = state.format7[Selected(state)];
    const auto codings = ColorCodings(Selected(state), VariantOf(state));
    if (record.IsSet()) {
        const std::uint32_t index = record.Word(kCodingIndex);
        if (index >= codings.size()) {
            return Status::invalidParameter;
        }
        settings.colorCoding = codings[index];
        settings = Nearest(settings, Selected(state), VariantOf(state));  // packets may be too many now
    }
    const auto found = std::ranges::find(codings, settings.colorCoding);
    record.SetWord(kCodingIndex, static_cast<std::uint32_t>(found - codings.begin()));
    record.SetWord(kCodingId, settings.colorCoding);
    return Status::ok;
}

Status AnswerFormat7Selection(CameraState& state, Record record) {
    if (record.IsSet()) {
        if (record.Word(kMode) >= kFormat7Modes) {
            return Status::invalidParameter;
        }
        state.selectedFormat7Mode = record.Word(kMode);
    }
    record.SetWord(kMode, Selected(state));
    return Status::ok;
}

Status AnswerFormat7Packet(CameraState& state, Record record) {
    Format7State& settings = state.format7[Selected(state)];
    if (record.IsSet()) {
        Format7State wanted = settings;
        wanted.bytesPerPacket = record.Word(kPacketValue);
        const std::uint32_t fitted = Nearest(wanted, Selected(state), VariantOf(state)).bytesPerPacket;
        if (wanted.bytesPerPacket != 0 && wanted.bytesPerPacket != fitted) {
            return Status::invalidParameter;
        }
        settings.bytesPerPacket = fitted;
    }
    record.SetWord(kPacketValue, settings.bytesPerPacket);
    return Status::ok;
}

Status AnswerFormat7Nearest(CameraState& state, Record record) {
    const std::uint32_t mode = record.Word(kMode);
    if (mode >= kFormat7Modes) {
        return Status::invalidParameter;
    }
    if (record.IsSet()) {
        Format7State fitted = Nearest(Wanted(record), mode, VariantOf(state));
        if (const std::uint32_t bound = record.Word(kLargestPacket); bound != 0 && fitted.bytesPerPacket > bound) {
            fitted.bytesPerPacket = bound;
            fitted = Nearest(fitted, mode, VariantOf(state));
        }
        state.format7[mode] = fitted;
    }
    Fill(record, state, mode);
    return Status::ok;
}

Status AnswerFormat7Current(CameraState& state, Record record) {
    if (record.IsSet()) {
        return Status::invalidParameter;
    }
    Fill(record, state, Selected(state));
    return Status::ok;
}

Status AnswerFormat7Calculation(CameraState& state, Record record) {
    const std::uint32_t mode = record.Word(kMode);
    if (!record.IsSet() || mode >= kFormat7Modes) {
        return Status::invalidParameter;
    }
    Format7State wanted = Wanted(record);
    wanted.bytesPerPacket = RecommendedPacketBytes(wanted);
    if (!IsPossible(wanted, mode, VariantOf(state))) {
        return Status::invalidParameter;
    }
    FillCalculation(record, wanted);
    return Status::ok;
}

Status AnswerImagePosition(CameraState& state, Record record) {
    const std::uint32_t mode = record.Word(kPositionMode);
    if (mode >= kFormat7Modes) {
        return Status::invalidParameter;
    }
    Format7State& settings = state.format7[mode];
    if (record.IsSet()) {
        Format7State wanted = settings;
        wanted.left = record.Word(kPositionLeft);
        wanted.top = record.Word(kPositionTop);
        const Format7State fitted = Nearest(wanted, mode, VariantOf(state));
        settings.left = fitted.left;
        settings.top = fitted.top;
    }
    record.SetWord(kPositionLeft, settings.left);
    record.SetWord(kPositionTop, settings.top);
    return Status::ok;
}

}  // namespace kolmsim
