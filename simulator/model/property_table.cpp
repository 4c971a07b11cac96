#include "model/property_table.h"

#include <algorithm>
#include <iterator>

#include "model/feature_behavior.h"
#include "model/register_memory.h"

namespace kolmsim {
namespace {

/// Properties that are no features.
constexpr PropertyRow kProperties[] = {
    {.id = 11, .recordBytes = kRegisterRecordBytes, .answer = AnswerRegister},
};

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
