#include "model/auto_function.h"

#include "model/bits.h"
#include "model/register_map.h"
#include "model/register_table.h"

namespace kolmsim {
namespace {

constexpr std::uint32_t kGainId = 0;
constexpr std::uint32_t kExtendedShutterId = 7;

constexpr std::size_t kLow = 36;
constexpr std::size_t kHigh = 40;

constexpr std::size_t kAreaUnits = 24;
constexpr std::size_t kAreaOn = 28;
constexpr std::size_t kAreaLeft = 32;
constexpr std::size_t kAreaTop = 36;
constexpr std::size_t kAreaWidth = 40;
constexpr std::size_t kAreaHeight = 44;

constexpr unsigned kAreaSwitch = 25;
constexpr std::uint32_t kUnit = 4;  // both ways, as the register's factory word says
constexpr std::uint32_t kSensorWidth = 640;
constexpr std::uint32_t kSensorHeight = 480;

bool AreLimits(std::uint32_t low, std::uint32_t high, const PropertyState& feature) {
    return low <= high && low >= feature.At(kOffsetMin) && high <= feature.At(kOffsetMax);
}

std::uint32_t Halves(std::uint32_t high, std::uint32_t low) {
    return Place(high, 31, 16) | Place(low, 15, 0);
}

/// Whether a stretch lies inside the sensor, in whole units; an empty one does not.
bool IsInside(std::uint32_t start, std::uint32_t length, std::uint32_t whole) {
    return start % kUnit == 0 && length % kUnit == 0 && length != 0 && start < whole && length <= whole - start;
}

bool IsArea(std::uint32_t position, std::uint32_t size) {
    return IsInside(Field(position, 31, 16), Field(size, 31, 16), kSensorWidth) &&
           IsInside(Field(position, 15, 0), Field(size, 15, 0), kSensorHeight);
}

bool EnterArea(CameraState& state, std::uint32_t position, std::uint32_t size) {
    if (!IsArea(position, size)) {
        return false;
    }
    StoredWord(state, kAutoAreaPosition) = position;
    StoredWord(state, kAutoAreaSize) = size;
    return true;
}

}  // namespace

Status AnswerAutoShutter(CameraState& state, Record record) {
    if (record.IsSet()) {
        if (!AreLimits(record.Word(kLow), record.Word(kHigh), state.properties[kExtendedShutterId])) {
            return Status::invalidParameter;
        }
        StoredWord(state, kAutoShutterLow) = record.Word(kLow);
        StoredWord(state, kAutoShutterHigh) = record.Word(kHigh);
    }
    record.SetWord(kLow, StoredWord(state, kAutoShutterLow));
    record.SetWord(kHigh, StoredWord(state, kAutoShutterHigh));
    return Status::ok;
}

Status AnswerAutoGain(CameraState& state, Record record) {
    std::uint32_t& word = StoredWord(state, kAutoGain);
    if (record.IsSet()) {
        if (!AreLimits(record.Word(kLow), record.Word(kHigh), state.properties[kGainId])) {
            return Status::invalidParameter;
        }
        word = BitIf(true, kPresence) | Place(record.Word(kHigh), 27, 16) | Place(record.Word(kLow), 11, 0);
    }
    record.SetWord(kLow, Field(word, 11, 0));
    record.SetWord(kHigh, Field(word, 27, 16));
    return Status::ok;
}

Status AnswerAutoArea(CameraState& state, Record record) {
    std::uint32_t& control = StoredWord(state, kAutoArea);
    if (record.IsSet()) {
        const std::uint32_t position = Halves(record.Word(kAreaLeft), record.Word(kAreaTop));
        const std::uint32_t size = Halves(record.Word(kAreaWidth), record.Word(kAreaHeight));
        if (record.Word(kAreaOn) > 1 || !EnterArea(state, position, size)) {
            return Status::invalidParameter;
        }
        control = (control & ~BitIf(true, kAreaSwitch)) | BitIf(record.Word(kAreaOn) == 1, kAreaSwitch);
    }
    const std::uint32_t position = StoredWord(state, kAutoAreaPosition);
    const std::uint32_t size = StoredWord(state, kAutoAreaSize);
    record.SetWord(kAreaUnits, Halves(Field(control, 23, 12), Field(control, 11, 0)));
    record.SetWord(kAreaOn, Bit(control, kAreaSwitch) ? 1 : 0);
    record.SetWord(kAreaLeft, Field(position, 31, 16));
    record.SetWord(kAreaTop, Field(position, 15, 0));
    record.SetWord(kAreaWidth, Field(size, 31, 16));
    record.SetWord(kAreaHeight, Field(size, 15, 0));
    return Status::ok;
}

void WriteAutoGain(CameraState& state, std::uint32_t address, std::uint32_t word) {
    if (AreLimits(Field(word, 11, 0), Field(word, 27, 16), state.properties[kGainId])) {
        StoredWord(state, address) = BitIf(true, kPresence) | (word & (FieldMask(27, 16) | FieldMask(11, 0)));
    }
}

void WriteAutoAreaPosition(CameraState& state, std::uint32_t /*address*/, std::uint32_t word) {
    EnterArea(state, word, StoredWord(state, kAutoAreaSize));
}

void WriteAutoAreaSize(CameraState& state, std::uint32_t /*address*/, std::uint32_t word) {
    EnterArea(state, StoredWord(state, kAutoAreaPosition), word);
}

}  // namespace kolmsim
