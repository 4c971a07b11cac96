#include "model/trigger.h"

#include <algorithm>
#include <bit>

#include "model/bits.h"
#include "model/feature_behavior.h"
#include "model/feature_registers.h"
#include "model/register_map.h"
#include "model/register_table.h"

namespace kolmsim {
namespace {

constexpr std::size_t kOffsetParameter = 24;
constexpr std::size_t kOffsetState = 28;
constexpr std::size_t kOffsetInquiry = 32;

constexpr std::uint32_t kOn = 0x20;
constexpr std::uint32_t kInverted = 0x40;
constexpr std::uint32_t kLevel = 0x80;
constexpr std::uint32_t kSources = 0xF00;
constexpr std::uint32_t kModes = 0xC03F0000;
constexpr std::uint32_t kFirstSource = 0x100;
constexpr std::uint32_t kFirstMode = 0x10000;
constexpr std::uint32_t kBulkMode = 0x80000000;  // IIDC: several pictures for each trigger
constexpr std::uint32_t kLargestParameter = 0xFFF;
constexpr std::uint32_t kMostWaiting = 0xFFFF;

constexpr std::uint32_t kTriggerPlace = 12;

/// The state bit of an IIDC mode number; 0 for a number without a mode.
constexpr std::uint32_t ModeBit(std::uint32_t mode) {
    return mode <= 5 ? kFirstMode << mode : mode == 14 || mode == 15 ? 1U << (mode + 16) : 0;
}

/// The IIDC mode number of a state bit.
std::uint32_t ModeNumber(std::uint32_t state) {
    const std::uint32_t mode = state & kModes;
    return mode != 0 ? static_cast<std::uint32_t>(std::countr_zero(mode)) - 16 : 0;
}

bool HasTrigger(const CameraState& state) {
    return state.properties[kTriggerProperty].present != 0;
}

/// The state as far as the camera can have it: what can't be switched off is on; anything else needs the capability.
std::uint32_t EffectiveState(const PropertyState& property) {
    const std::uint32_t inquiry = property.At(kOffsetInquiry);
    return (property.At(kOffsetState) & inquiry) | (~inquiry & kOn);
}

/// Puts the bits of a SET into the state; false, and nothing changed, where the camera lacks one of them.
bool Enter(CameraState& camera, std::uint32_t parameter, std::uint32_t wanted) {
    PropertyState& property = camera.properties[kTriggerProperty];
    const std::uint32_t inquiry = property.At(kOffsetInquiry);
    std::uint32_t source = wanted & kSources;
    std::uint32_t mode = wanted & kModes;
    const bool known = (wanted & ~(kOn | kInverted | kSources | kModes)) == 0 && ((source | mode) & ~inquiry) == 0;
    if (!known || std::popcount(source) > 1 || std::popcount(mode) > 1 || parameter > kLargestParameter) {
        return false;
    }
    std::uint32_t& state = property.At(kOffsetState);
    source = source != 0 ? source : state & kSources;
    mode = mode != 0 ? mode : state & kModes;
    state = (state & kLevel) | source | mode | (wanted & inquiry & (kOn | kInverted));
    property.At(kOffsetParameter) = parameter;
    if ((state & kOn) == 0) {
        camera.triggeredPictures = 0;
    }
    return true;
}

}  // namespace

bool IsTriggerOn(const CameraState& state) {
    return HasTrigger(state) && (EffectiveState(state.properties[kTriggerProperty]) & kOn) != 0;
}

bool Trigger(CameraState& state) {
    if (!IsTriggerOn(state)) {
        return false;
    }
    const PropertyState& property = state.properties[kTriggerProperty];
    ++StoredWord(state, kTriggerCounter);
    const bool several = (property.At(kOffsetState) & kBulkMode) != 0;
    const std::uint32_t pictures = several ? std::max(property.At(kOffsetParameter), 1U) : 1;
    state.triggeredPictures = std::min(state.triggeredPictures, kMostWaiting) + std::min(pictures, kMostWaiting);
    return true;
}

bool PassTrigger(CameraState& state) {
    if (!IsTriggerOn(state)) {
        return true;
    }
    if (state.triggeredPictures == 0) {
        return false;
    }
    --state.triggeredPictures;
    return true;
}

Status AnswerTrigger(CameraState& state, Record record) {
    if (!HasTrigger(state)) {
        for (const std::size_t offset : {kOffsetParameter, kOffsetState, kOffsetInquiry}) {
            record.SetWord(offset, 0);
        }
        return record.IsSet() ? Status::invalidParameter : Status::ok;
    }
    if (record.IsSet() && !Enter(state, record.Word(kOffsetParameter), record.Word(kOffsetState))) {
        return Status::invalidParameter;
    }
    FillFromProperty(state.properties[kTriggerProperty], record);
    return Status::ok;
}

std::uint32_t ReadTriggerInquiry(const CameraState& state, std::uint32_t /*address*/) {
    if (!HasTrigger(state)) {
        return 0;
    }
    const std::uint32_t inquiry = state.properties[kTriggerProperty].At(kOffsetInquiry);
    std::uint32_t word = BitIf(true, kPresence) | BitIf(true, 27) | BitIf((inquiry & kOn) != 0, 26) |
                         BitIf((inquiry & kInverted) != 0, 25) | BitIf((inquiry & kLevel) != 0, 24) | BitIf(true, 16);
    for (unsigned source = 0; source < 4; ++source) {
        word |= BitIf((inquiry & (kFirstSource << source)) != 0, 23 - source);
    }
    for (unsigned mode = 0; mode < 16; ++mode) {
        word |= BitIf((inquiry & ModeBit(mode)) != 0, 15 - mode);
    }
    return word;
}

std::uint32_t ReadTrigger(const CameraState& state, std::uint32_t /*address*/) {
    if (!HasTrigger(state)) {
        return 0;
    }
    const PropertyState& property = state.properties[kTriggerProperty];
    const std::uint32_t bits = EffectiveState(property);
    const std::uint32_t sourceBit = bits & kSources;
    const auto source = sourceBit != 0 ? static_cast<std::uint32_t>(std::countr_zero(sourceBit)) - 8 : 0;
    return BitIf(true, kPresence) | BitIf((bits & kOn) != 0, 25) | BitIf((bits & kInverted) != 0, 24) |
           Place(source, 23, 21) | BitIf((bits & kLevel) != 0, 20) | Place(ModeNumber(bits), 19, 16) |
           Place(property.At(kOffsetParameter), 11, 0);
}

void WriteTrigger(CameraState& state, std::uint32_t /*address*/, std::uint32_t word) {
    const std::uint32_t mode = ModeBit(Field(word, 19, 16));
    const std::uint32_t source = Field(word, 23, 21) < 4 ? kFirstSource << Field(word, 23, 21) : 0;
    const std::uint32_t wanted = mode | source | (Bit(word, 25) ? kOn : 0) | (Bit(word, 24) ? kInverted : 0);
    const bool taken = HasTrigger(state) && mode != 0 && source != 0 && Enter(state, Field(word, 11, 0), wanted);
    NoteFeatureError(state, kTriggerPlace, !taken);
}

void WriteSoftTrigger(CameraState& state, std::uint32_t /*address*/, std::uint32_t word) {
    if (Bit(word, 31)) {
        Trigger(state);
    }
}

void ResetTrigger(CameraState& state) {
    PropertyState& property = state.properties[kTriggerProperty];
    property.present = 1;
    property.At(kOffsetParameter) = 1;
    property.At(kOffsetState) = kFirstMode | kFirstSource;
    property.At(kOffsetInquiry) = kOn | kInverted | kLevel | kSources | kModes;
}

}  // namespace kolmsim
