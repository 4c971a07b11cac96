#include "model/feature_behavior.h"

#include <bit>

namespace kolmsim {
namespace {

/// One step up or down, turning back at the ends of the range. A range without room leaves the value at its minimum.
void MoveValue(PropertyState& property, std::uint32_t step) {
    const std::uint32_t min = property.At(kOffsetMin);
    const std::uint32_t max = property.At(kOffsetMax);
    std::uint32_t& value = property.At(kOffsetValue);
    if (min >= max || value < min || value > max) {
        value = min;
        return;
    }
    if (property.descends != 0 && value - min < step) {
        property.descends = 0;
    } else if (property.descends == 0 && max - value < step) {
        property.descends = 1;
    }
    const std::uint32_t room = property.descends != 0 ? value - min : max - value;
    const std::uint32_t distance = step < room ? step : room;
    value = property.descends != 0 ? value - distance : value + distance;
}

Status SetFeature(PropertyState& property, const FeatureRow& row, Record record) {
    const std::uint32_t value = record.Word(kOffsetValue);
    const std::uint32_t mode = record.Word(kOffsetMode);
    const std::uint32_t lowest = row.minIsNoLimit ? 0 : property.At(kOffsetMin);

    if (value < lowest || value > property.At(kOffsetMax)) {
        return Status::invalidParameter;
    }
    if (mode != 0 && (!std::has_single_bit(mode) || (mode & property.At(kOffsetModeCaps)) == 0)) {
        return Status::invalidParameter;
    }
    property.At(kOffsetValue) = value;
    if (mode != 0) {
        EnterMode(property, mode);
    }
    return Status::ok;
}

}  // namespace

void EnterMode(PropertyState& property, std::uint32_t mode) {
    property.At(kOffsetMode) = mode;
    property.At(kOffsetAutoOn) = mode == kModeAuto ? 1 : 0;
    property.At(kOffsetOnePushOn) = mode == kModeOnePush ? 1 : 0;
    property.onePushLooks = mode == kModeOnePush ? kOnePushLooks : 0;
}

void PassTime(PropertyState& property, const FeatureRow& row) {
    const std::uint32_t mode = property.At(kOffsetMode);
    if (mode == kModeOnePush && property.onePushLooks == 0) {
        EnterMode(property, kModeManual);
    } else if (mode == kModeOnePush) {
        --property.onePushLooks;
        MoveValue(property, row.step);
    } else if (mode == kModeAuto && row.step != 0) {
        MoveValue(property, row.step);
    }
}

Status AnswerFeature(CameraState& state, Record record) {
    const FeatureRow* row = FindFeature(record.Id());
    if (row == nullptr) {
        return Status::propertyNotFound;
    }
    PropertyState& property = state.properties[row->id];
    if (record.IsSet()) {
        if (const Status status = SetFeature(property, *row, record); status != Status::ok) {
            return status;
        }
    } else {
        PassTime(property, *row);
    }
    for (std::size_t offset = kHeaderBytes; offset < kFeatureRecordBytes; offset += 4) {
        record.SetWord(offset, property.At(offset));
    }
    return Status::ok;
}

}  // namespace kolmsim
