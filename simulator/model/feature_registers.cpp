#include "model/feature_registers.h"

#include <array>
#include <tuple>

#include "model/bits.h"
#include "model/feature_behavior.h"
#include "model/register_map.h"
#include "model/register_table.h"
#include "model/trigger.h"

namespace kolmsim {
namespace {

constexpr std::uint32_t kNoFeature = 0xFFFFFFFF;

/// Driver ids by place in the registers; the trigger (12) has registers of its own.
constexpr std::array<std::uint32_t, 16> kPlaces = {
    4, 60, 21, 1, 22, 23, 8, 5, 0, kNoFeature, kNoFeature, kNoFeature, kNoFeature, 40, kNoFeature, kNoFeature};
constexpr std::uint32_t kTriggerPlace = 12;
constexpr std::uint32_t kWhiteBalanceUb = 1;
constexpr std::uint32_t kWhiteBalanceVr = 2;

// Inquiry
constexpr unsigned kCanOnePush = 28;
constexpr unsigned kCanRead = 27;
constexpr unsigned kCanSwitch = 26;
constexpr unsigned kCanAuto = 25;
constexpr unsigned kCanManual = 24;

// Control
constexpr unsigned kOnePush = 26;
constexpr unsigned kOnOff = 25;
constexpr unsigned kAuto = 24;

std::uint32_t PlaceOf(std::uint32_t address) {
    return (address & 0x3C) / 4;
}

/// Driver id of the feature at an address, or kNoFeature where the camera lacks it.
std::uint32_t IdAt(const CameraState& state, std::uint32_t address) {
    const std::uint32_t id = kPlaces[PlaceOf(address)];
    return id != kNoFeature && state.properties[id].present != 0 ? id : kNoFeature;
}

/// The mode that a control word asks for, as far as the feature can.
std::uint32_t ModeOf(std::uint32_t word, std::uint32_t caps) {
    if (!Bit(word, kOnOff) && (caps & kModeOff) != 0) {
        return kModeOff;
    }
    if (Bit(word, kOnePush) && (caps & kModeOnePush) != 0) {
        return kModeOnePush;
    }
    return Bit(word, kAuto) && (caps & kModeAuto) != 0 ? kModeAuto : kModeManual;
}

bool IsAutomatic(std::uint32_t mode) {
    return mode == kModeAuto || mode == kModeOnePush;
}

bool IsInRange(const PropertyState& property, std::uint32_t value) {
    return value >= property.At(kOffsetMin) && value <= property.At(kOffsetMax);
}

/// In Auto the feature keeps its value; a mode that it already works in is not entered anew, one-push apart.
void Apply(CameraState& state, std::uint32_t id, std::uint32_t value, std::uint32_t mode) {
    const PropertyState& property = state.properties[id];
    const bool again = mode != kModeOnePush && property.At(kOffsetMode) == mode;
    const std::uint32_t kept = IsAutomatic(mode) ? property.At(kOffsetValue) : value;
    std::ignore = SetFeature(state, *FindFeature(id), kept, again ? 0 : mode);
}

}  // namespace

std::uint32_t ReadFeatureHiInquiry(const CameraState& state, std::uint32_t /*address*/) {
    std::uint32_t word = BitIf(state.properties[kTriggerProperty].present != 0, 31 - kTriggerPlace);
    for (std::uint32_t place = 0; place < kPlaces.size(); ++place) {
        word |= BitIf(IdAt(state, kFeatureControl + 4 * place) != kNoFeature, 31 - place);
    }
    return word;
}

std::uint32_t ReadFeatureInquiry(const CameraState& state, std::uint32_t address) {
    const std::uint32_t id = IdAt(state, address);
    if (id == kNoFeature) {
        return 0;
    }
    const PropertyState& property = state.properties[id];
    const std::uint32_t caps = property.At(kOffsetModeCaps);
    return BitIf(true, kPresence) | BitIf((caps & kModeOnePush) != 0, kCanOnePush) | BitIf(true, kCanRead) |
           BitIf((caps & kModeOff) != 0, kCanSwitch) | BitIf((caps & kModeAuto) != 0, kCanAuto) |
           BitIf((caps & kModeManual) != 0, kCanManual) | Place(property.At(kOffsetMin), 23, 12) |
           Place(property.At(kOffsetMax), 11, 0);
}

std::uint32_t ReadFeatureControl(const CameraState& state, std::uint32_t address) {
    const std::uint32_t id = IdAt(state, address);
    if (id == kNoFeature) {
        return 0;
    }
    const PropertyState& property = state.properties[id];
    const std::uint32_t mode = property.At(kOffsetMode);
    const std::uint32_t value = property.At(kOffsetValue);
    const std::uint32_t values =
        id == kWhiteBalanceUb ? Place(value, 23, 12) | Place(state.properties[kWhiteBalanceVr].At(kOffsetValue), 11, 0)
                              : Place(value, 11, 0);
    return BitIf(true, kPresence) | BitIf(mode == kModeOnePush, kOnePush) | BitIf(mode != kModeOff, kOnOff) |
           BitIf(mode == kModeAuto, kAuto) | values;
}

void WriteFeatureControl(CameraState& state, std::uint32_t address, std::uint32_t word) {
    const std::uint32_t id = IdAt(state, address);
    if (id == kNoFeature) {
        return;
    }
    const bool isWhiteBalance = id == kWhiteBalanceUb;
    const PropertyState& property = state.properties[id];
    const PropertyState& second = state.properties[isWhiteBalance ? kWhiteBalanceVr : id];
    const std::uint32_t low = Field(word, 11, 0);
    const std::uint32_t value = isWhiteBalance ? Field(word, 23, 12) : low;
    const std::uint32_t mode = ModeOf(word, property.At(kOffsetModeCaps));

    const bool error = !IsAutomatic(mode) && (!IsInRange(property, value) || !IsInRange(second, low));
    NoteFeatureError(state, PlaceOf(address), error);
    if (error) {
        return;
    }
    Apply(state, id, value, mode);
    if (isWhiteBalance) {
        Apply(state, kWhiteBalanceVr, low, mode);
    }
}

void LookAtFeatureControl(CameraState& state, std::uint32_t address) {
    const std::uint32_t id = IdAt(state, address);
    if (id == kNoFeature) {
        return;
    }
    LookAtFeature(state, id);
    if (id == kWhiteBalanceUb) {
        LookAtFeature(state, kWhiteBalanceVr);
    }
}

void NoteFeatureError(CameraState& state, std::uint32_t place, bool error) {
    std::uint32_t& errors = StoredWord(state, kFeatureErrorHi);
    errors = (errors & ~BitIf(true, 31 - place)) | BitIf(error, 31 - place);
}

}  // namespace kolmsim
