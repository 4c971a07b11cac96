#include "model/feature_behavior.h"

#include <bit>

#include "model/correction.h"
#include "model/feature_coupling.h"
#include "model/video_mode.h"

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

/// Lets the value move as far as it does between two looks.
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

}  // namespace

void EnterMode(PropertyState& property, std::uint32_t mode) {
    property.At(kOffsetMode) = mode;
    property.At(kOffsetAutoOn) = mode == kModeAuto ? 1 : 0;
    property.At(kOffsetOnePushOn) = mode == kModeOnePush ? 1 : 0;
    property.onePushLooks = mode == kModeOnePush ? kOnePushLooks : 0;
}

Status SetFeature(CameraState& state, const FeatureRow& row, std::uint32_t value, std::uint32_t mode) {
    PropertyState& property = state.properties[row.id];
    if (value < row.Lowest(property.At(kOffsetMin)) || value > property.At(kOffsetMax)) {
        return Status::invalidParameter;
    }
    const CorrectionRow* correction = FindCorrection(row.id);
    const bool isCommand = correction != nullptr && IsCorrectionCommand(*correction, mode);
    const bool isMode = std::has_single_bit(mode) && (mode & property.At(kOffsetModeCaps)) != 0;
    if (mode != 0 && !isMode && !isCommand) {
        return Status::invalidParameter;
    }
    if (IsIsoSetting(row.id) && IsStreaming(state)) {
        return Status::busy;
    }
    property.At(kOffsetValue) = value;
    if (isCommand) {
        RunCorrectionCommand(state, *correction, mode);
    } else if (mode != 0) {
        EnterMode(property, mode);
        CoupleMode(state, row.id);
    }
    CoupleValue(state, row.id);
    return Status::ok;
}

void LookAtFeature(CameraState& state, std::uint32_t id) {
    const FeatureRow* row = FindAdjustable(id);
    if (row == nullptr) {
        return;
    }
    PropertyState& property = state.properties[id];
    const std::uint32_t valueBefore = property.At(kOffsetValue);
    const std::uint32_t modeBefore = property.At(kOffsetMode);
    if (const CorrectionRow* correction = FindCorrection(id); correction != nullptr) {
        PassCorrectionTime(state, *correction);
    } else {
        PassTime(property, *row);
    }
    if (property.At(kOffsetMode) != modeBefore) {
        CoupleMode(state, id);
    }
    if (property.At(kOffsetValue) != valueBefore) {
        CoupleValue(state, id);
    }
}

void FillFromProperty(const PropertyState& property, Record record) {
    for (std::size_t offset = kHeaderBytes; offset < kFeatureRecordBytes; offset += 4) {
        record.SetWord(offset, property.At(offset));
    }
}

Status AnswerFeature(CameraState& state, Record record) {
    const FeatureRow* row = FindAdjustable(record.Id());
    if (row == nullptr) {
        return Status::propertyNotFound;
    }
    if (record.IsSet()) {
        const Status status = SetFeature(state, *row, record.Word(kOffsetValue), record.Word(kOffsetMode));
        if (status != Status::ok) {
            return status;
        }
    } else {
        LookAtFeature(state, row->id);
    }
    FillFromProperty(state.properties[row->id], record);
    return Status::ok;
}

}  // namespace kolmsim
