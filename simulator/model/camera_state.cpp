#include "model/camera_state.h"

#include <cstring>

#include "model/format7.h"
#include "model/linked_register.h"
#include "model/register_table.h"
#include "model/test_image.h"
#include "model/trigger.h"

namespace kolmsim {
namespace {

void ResetFeature(PropertyState& property, const FeatureRow& row, Variant variant) {
    property.present = HasFeature(row, variant) ? 1 : 0;
    property.At(kOffsetValue) = row.value;
    property.At(kOffsetMode) = row.mode;
    property.At(kOffsetModeCaps) = row.caps;
    property.At(kOffsetMin) = row.min;
    property.At(kOffsetMax) = row.max;
    property.At(kOffsetAutoOn) = row.mode == kModeAuto ? 1 : 0;
    property.At(kOffsetExtra1) = ExtraWord(row.id, 1);
    property.At(kOffsetOnePushOn) = row.mode == kModeOnePush ? 1 : 0;
    property.At(kOffsetExtra2) = ExtraWord(row.id, 2);
    property.At(kOffsetExtra3) = ExtraWord(row.id, 3);
}

/// Every lookup table starts as the identity: input i gives output i.
void ResetLuts(CameraState& state) {
    for (auto& lut : state.lutMemory) {
        for (std::size_t i = 0; i < lut.size() / 2; ++i) {
            lut[2 * i] = static_cast<std::uint8_t>(i >> 8);
            lut[2 * i + 1] = static_cast<std::uint8_t>(i);
        }
    }
}

}  // namespace

void ResetState(CameraState& state, Variant variant) {
    std::memset(&state, 0, sizeof state);
    state.version = kStateVersion;
    state.sizeBytes = sizeof state;
    state.variant = static_cast<std::uint32_t>(variant);

    for (const FeatureRow& row : FeatureTable()) {
        ResetFeature(state.properties[row.id], row, variant);
    }
    for (const FeatureRow& row : FeatureLikeTable()) {
        ResetFeature(state.properties[row.id], row, variant);
    }
    ResetTestImage(state);
    ResetTrigger(state);
    ResetRegisters(state);
    ResetColorMatrix(state);
    ResetFormat7(state);
    ResetLuts(state);

    // Last, so that a block that was left half way is not taken for a camera.
    state.magic = kStateMagic;
}

bool IsUsable(const CameraState& state, Variant variant) {
    return state.magic == kStateMagic && state.version == kStateVersion && state.sizeBytes == sizeof state &&
           state.variant == static_cast<std::uint32_t>(variant);
}

}  // namespace kolmsim
