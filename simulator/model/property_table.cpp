#include "model/property_table.h"

#include <algorithm>
#include <iterator>

#include "model/auto_function.h"
#include "model/camera_info.h"
#include "model/feature_behavior.h"
#include "model/format7_properties.h"
#include "model/memory_window.h"
#include "model/register_memory.h"
#include "model/test_image.h"
#include "model/trigger.h"

namespace kolmsim {
namespace {

constexpr std::size_t kFormat7Bytes = 96;
constexpr std::size_t kSixWordsBytes = 48;

/// Properties that are no features.
// clang-format off
constexpr PropertyRow kProperties[] = {
    {.id =  3, .recordBytes = kFeatureRecordBytes,  .answer = AnswerTestImage},
    {.id =  9, .recordBytes = kCameraInfoBytes,     .answer = AnswerCameraInfo},
    {.id = 10, .recordBytes = kProperty10Bytes,     .answer = AnswerModeFigures},
    {.id = 11, .recordBytes = kRegisterRecordBytes, .answer = AnswerRegister},
    {.id = 12, .recordBytes = kRegisterRecordBytes, .answer = AnswerCurrentMode},
    {.id = 13, .recordBytes = kFormat7Bytes,        .answer = AnswerFormat7Info},
    {.id = 14, .recordBytes = kFormat7Bytes,        .answer = AnswerFormat7Coding},
    {.id = 15, .recordBytes = kFormat7Bytes,        .answer = AnswerFormat7Selection},
    {.id = 16, .recordBytes = kRegisterRecordBytes, .answer = AnswerFormat7Packet},
    {.id = 17, .recordBytes = kFormat7Bytes,        .answer = AnswerFormat7Nearest},
    {.id = 18, .recordBytes = kFormat7Bytes,        .answer = AnswerFormat7Current},
    {.id = 20, .recordBytes = kFormat7Bytes,        .answer = AnswerFormat7Calculation},
    {.id = 24, .recordBytes = kFeatureRecordBytes,  .answer = AnswerAutoShutter},
    {.id = 25, .recordBytes = kFeatureRecordBytes,  .answer = AnswerAutoGain},
    {.id = 26, .recordBytes = kSixWordsBytes,       .answer = AnswerAutoArea},
    {.id = 29, .recordBytes = kFeatureRecordBytes,  .answer = AnswerFactoryReset},
    {.id = 30, .recordBytes = kFeatureRecordBytes,  .answer = AnswerFeature},
    {.id = 34, .recordBytes = kFeatureRecordBytes,  .answer = AnswerFeature},
    {.id = 38, .recordBytes = kFeatureRecordBytes,  .answer = AnswerVersions},
    {.id = 42, .recordBytes = kFeatureRecordBytes,  .answer = AnswerDeferredTransfer},
    {.id = 51, .recordBytes = kFeatureRecordBytes,  .answer = AnswerCameraStatus},
    {.id = 52, .recordBytes = kSixWordsBytes,       .answer = AnswerInput},
    {.id = 53, .recordBytes = kFeatureRecordBytes,  .answer = AnswerTrigger},
    {.id = 54, .recordBytes = kFeatureRecordBytes,  .answer = AnswerFeature},
    {.id = 56, .recordBytes = kFeatureRecordBytes,  .answer = AnswerFigure},
    {.id = 61, .recordBytes = kFeatureRecordBytes,  .answer = AnswerFeature},
    {.id = 62, .recordBytes = kOffsetBlockData,     .dataBytesOffset = kOffsetBlockBytes, .answer = AnswerBlock},
    {.id = 65, .recordBytes = 40,                   .answer = AnswerImagePosition},
};
// clang-format on

/// All features share one row: same record, same behavior.
constexpr PropertyRow kFeature = {.id = 0, .recordBytes = kFeatureRecordBytes, .answer = AnswerFeature};

}  // namespace

const PropertyRow* FindProperty(const CameraState& state, std::uint32_t id) {
    const auto found = std::ranges::find(kProperties, id, &PropertyRow::id);
    if (found != std::end(kProperties)) {
        return found;
    }
    const bool isFeature = FindFeature(id) != nullptr && state.properties[id].present != 0;
    return isFeature ? &kFeature : nullptr;
}

}  // namespace kolmsim
