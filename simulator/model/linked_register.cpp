#include "model/linked_register.h"

#include <algorithm>
#include <array>
#include <iterator>
#include <tuple>

#include "model/bits.h"
#include "model/feature_behavior.h"
#include "model/register_map.h"
#include "model/register_table.h"

namespace kolmsim {
namespace {

constexpr unsigned kNone = 32;  ///< no such bit

/// One register that shows one feature.
struct Link {
    std::uint32_t address;
    std::uint32_t id;  ///< driver property id
    unsigned valueMsb;
    unsigned valueLsb;
    unsigned onBit = kNone;    ///< set unless the feature's mode is Off
    std::uint32_t fixed = 0;   ///< bits that always show, presence apart
    std::uint32_t stored = 0;  ///< bits of the register alone: kept as written
};

constexpr std::uint32_t kMirrorInquiry = 1U << 15 | 1U << 14;
constexpr std::uint32_t kVerticalMirror = 1U << 24;
constexpr std::uint32_t kOutputPolarity = 1U << 24;

constexpr Link kLinks[] = {
    {.address = kTimeBase, .id = 6, .valueMsb = 3, .valueLsb = 0},
    {.address = kExtendedShutter, .id = 7, .valueMsb = 25, .valueLsb = 0},
    {.address = kLutControl, .id = 31, .valueMsb = 5, .valueLsb = 0, .onBit = 25},
    {.address = kOutputControl, .id = 34, .valueMsb = 20, .valueLsb = 16, .onBit = 0, .stored = kOutputPolarity},
    {.address = kOutputControl + 4, .id = 35, .valueMsb = 20, .valueLsb = 16, .onBit = 0, .stored = kOutputPolarity},
    {.address = kOutputControl + 8, .id = 36, .valueMsb = 20, .valueLsb = 16, .onBit = 0, .stored = kOutputPolarity},
    {.address = kOutputControl + 12, .id = 37, .valueMsb = 20, .valueLsb = 16, .onBit = 0, .stored = kOutputPolarity},
    {.address = kIntegrationDelay, .id = 39, .valueMsb = 19, .valueLsb = 0, .onBit = 25},
    {.address = kTriggerDelay, .id = 40, .valueMsb = 20, .valueLsb = 0, .onBit = 25},
    {.address = kLowSmear, .id = 64, .valueMsb = 11, .valueLsb = 0, .onBit = 25},
    {.address = kHighSnr, .id = 41, .valueMsb = 8, .valueLsb = 0, .onBit = 25},
};

/// The mirror has a switch for each direction and no value; the feature is the horizontal one.
constexpr std::uint32_t kMirrorId = 19;
constexpr unsigned kMirrorOn = 25;

constexpr std::uint32_t kColorCorrectionId = 27;
constexpr unsigned kDisable = 25;
constexpr unsigned kRestore = 24;

/// Nine coefficients row by row; each row adds up to 1000, so gray stays gray.
constexpr std::array<std::int32_t, 9> kFactoryMatrix = {1400, -300, -100, -250, 1500, -250, -50, -450, 1500};

const Link* FindLink(std::uint32_t address) {
    const auto found = std::ranges::find(kLinks, address, &Link::address);
    return found != std::end(kLinks) ? found : nullptr;
}

bool IsOn(const PropertyState& property) {
    return property.At(kOffsetMode) != kModeOff;
}

/// The mode that a switch asks for: none where it already stands so.
std::uint32_t SwitchMode(const PropertyState& property, bool on) {
    return on == IsOn(property) ? 0 : on ? kModeManual : kModeOff;
}

bool HasColorCorrection(const CameraState& state) {
    return state.properties[kColorCorrectionId].present != 0;
}

}  // namespace

std::uint32_t ReadLinked(const CameraState& state, std::uint32_t address) {
    if (address == kMirror) {
        const PropertyState& property = state.properties[kMirrorId];
        return BitIf(property.present != 0, kPresence) | BitIf(IsOn(property), kMirrorOn) | kMirrorInquiry |
               (StoredWord(state, address) & kVerticalMirror);
    }
    const Link& link = *FindLink(address);
    const PropertyState& property = state.properties[link.id];
    if (property.present == 0) {
        return 0;
    }
    const std::uint32_t on = link.onBit == kNone ? 0 : BitIf(IsOn(property), link.onBit);
    return BitIf(true, kPresence) | link.fixed | on | (StoredWord(state, address) & link.stored) |
           Place(property.At(kOffsetValue), link.valueMsb, link.valueLsb);
}

void WriteLinked(CameraState& state, std::uint32_t address, std::uint32_t word) {
    if (address == kMirror) {
        const PropertyState& property = state.properties[kMirrorId];
        StoredWord(state, address) = word & kVerticalMirror;
        std::ignore = SetFeature(state, *FindFeature(kMirrorId), property.At(kOffsetValue),
                                 SwitchMode(property, Bit(word, kMirrorOn)));
        return;
    }
    const Link& link = *FindLink(address);
    const PropertyState& property = state.properties[link.id];
    if (property.present == 0) {
        return;
    }
    const std::uint32_t value = Field(word, link.valueMsb, link.valueLsb);
    const std::uint32_t mode = link.onBit == kNone ? 0 : SwitchMode(property, Bit(word, link.onBit));
    if (SetFeature(state, *FindAdjustable(link.id), value, mode) == Status::ok) {
        StoredWord(state, address) = word & link.stored;
    }
}

void LookAtLinked(CameraState& state, std::uint32_t address) {
    if (const Link* link = FindLink(address); link != nullptr) {
        LookAtFeature(state, link->id);
    }
}

std::uint32_t ReadColorCorrection(const CameraState& state, std::uint32_t /*address*/) {
    if (!HasColorCorrection(state)) {
        return 0;
    }
    return BitIf(true, kPresence) | BitIf(!IsOn(state.properties[kColorCorrectionId]), kDisable);
}

void WriteColorCorrection(CameraState& state, std::uint32_t /*address*/, std::uint32_t word) {
    if (!HasColorCorrection(state)) {
        return;
    }
    const PropertyState& property = state.properties[kColorCorrectionId];
    std::ignore = SetFeature(state, *FindFeature(kColorCorrectionId), property.At(kOffsetValue),
                             SwitchMode(property, !Bit(word, kDisable)));
    if (Bit(word, kRestore)) {
        ResetColorMatrix(state);
    }
}

std::uint32_t ReadColorCoefficient(const CameraState& state, std::uint32_t address) {
    return HasColorCorrection(state) ? StoredWord(state, address) : 0;
}

void WriteColorCoefficient(CameraState& state, std::uint32_t address, std::uint32_t word) {
    if (HasColorCorrection(state)) {
        StoredWord(state, address) = word;
    }
}

void ResetColorMatrix(CameraState& state) {
    for (std::uint32_t i = 0; i < kFactoryMatrix.size(); ++i) {
        StoredWord(state, kColorMatrix + 4 * i) = static_cast<std::uint32_t>(kFactoryMatrix[i]);
    }
}

}  // namespace kolmsim
